#include "xml/xml_element.h"

#include "3d/color_rgba.h"
#include "3d/point.h"
#include "3d/vector.h"
#include "xml/xml_text.h"

#include <xercesc/dom/DOM.hpp>
#include <xercesc/util/TransService.hpp>

#include <algorithm>
#include <array>
#include <cfloat>
#include <climits>
#include <clocale>
#include <cmath>
#include <cstdlib>
#include <utility>

namespace {

using namespace xercesc;

using Quadrupel = std::array<float, 4>;

template <typename... Pieces>
[[noreturn]] void rejectText(const Pieces&... pieces) {
    throw XMLWrongAttributeTypeException((std::string() += ... += pieces));
}

/// What strtod reads at the start of the text, whatever the user's language; nothing where it reads
/// nothing or no number that single precision can hold.
std::optional<float> toNumber(const std::string& text) {
    static const locale_t c_locale = newlocale(LC_ALL_MASK, "C", nullptr);
    char* end = nullptr;
    const double number = strtod_l(text.c_str(), &end, c_locale);
    const bool in_range = std::fabs(number) <= FLT_MAX;  // false for what is not a number as well
    if (end == text.c_str() || !in_range) return std::nullopt;
    return static_cast<float>(number);
}

/// Reads "(a|b|...)", `count` numbers.
Quadrupel convertQuadrupel(const std::string& s, std::size_t count) {
    if (!s.starts_with('(') || !s.ends_with(')'))
        rejectText("XMLElement::convertQuadrupel: can't convert ", s, " to a quadruple");

    // Where the numbers begin and end. A bar is looked for behind the first character of its
    // number, and one that is missing leaves all that follow it missing.
    std::array<std::size_t, 5> border{0};
    for (std::size_t i = 1; i < count; ++i) {
        const std::size_t from = i == 1 ? 0 : border[i - 1] + 2;
        border[i] = border[i - 1] == std::string::npos ? std::string::npos : s.find('|', from);
    }
    border[count] = s.size() - 1;

    Quadrupel values{0, 0, 0, 1};
    for (std::size_t i = 0; i < count; ++i) {
        if (border[i + 1] == std::string::npos)
            rejectText("XMLElement::convertQuadrupel: ", s, " wrong format");
        const std::string component = s.substr(border[i] + 1, border[i + 1] - border[i] - 1);
        const auto number = toNumber(component);
        if (!number)
            rejectText("XMLElement::convertQuadrupel: ", component,
                       " can't be converted to double");
        values[i] = *number;
    }
    return values;
}

/// How one of the value types is written, and how its failure speaks of it.
struct Form {
    char upper, lower;  ///< the letter in front of the numbers, in both cases
    std::size_t count;  ///< how many numbers follow
    const char* getter;
    const char* type;
};

constexpr Form point_form{'P', 'p', 3, "XMLElement::getAttribute as Point: ", "Point"};
constexpr Form vector_form{'V', 'v', 3, "XMLElement::getAttribute as Vector: ", "Vector"};
constexpr Form color_form{'C', 'c', 4, "XMLElement::getAttributeAsColor: ", "Vector"};

[[noreturn]] void rejectValue(const std::string& value, const Form& form,
                              const std::string& reason) {
    rejectText(form.getter, value, " can't be converted to a ", form.type, " (", reason, ")");
}

Quadrupel convert(const std::string& value, const Form& form) {
    if (!value.starts_with(form.upper) && !value.starts_with(form.lower))
        rejectValue(value, form,
                    std::string("not starting with ") + form.upper + " or " + form.lower);
    try {
        return convertQuadrupel(value.substr(1), form.count);
    } catch (const XMLWrongAttributeTypeException& e) {
        rejectValue(value, form, e.getMessage());
    }
}

/// The nearest element from `node` on, in steps of `next`.
template <typename Next>
XMLElement findElement(DOMNode* node, Next next) {
    while (node && node->getNodeType() != DOMNode::ELEMENT_NODE) node = (node->*next)();
    return XMLElement(node);
}

}  // namespace

void XMLElement::requireNode(const char* operation) const {
    if (isNull())
        throw XMLNoSuchElementException(std::string("XMLElement::") + operation +
                                        ": node is empty");
}

XMLElement XMLElement::getFirstChild() const {
    requireNode("getFirstChild");
    return findElement(node->getFirstChild(), &DOMNode::getNextSibling);
}

XMLElement XMLElement::getNext() const {
    requireNode("getNext");
    return findElement(node->getNextSibling(), &DOMNode::getNextSibling);
}

XMLElement XMLElement::getPrevious() const {
    requireNode("getPrevious");
    return findElement(node->getPreviousSibling(), &DOMNode::getPreviousSibling);
}

XMLElement XMLElement::getParent() const {
    requireNode("getParent");
    DOMNode* parent = node->getParentNode();
    return XMLElement(parent && parent->getNodeType() == DOMNode::ELEMENT_NODE ? parent : nullptr);
}

std::string XMLElement::getName() const {
    requireNode("getFirstChild");
    return toUtf8(node->getNodeName());
}

std::string XMLElement::getAttribute(const std::string& name) const {
    requireNode("getFirstChild");
    const TranscodeFromStr key(reinterpret_cast<const XMLByte*>(name.data()), name.size(), "UTF-8");
    const DOMNamedNodeMap* attributes = node->getAttributes();
    const DOMNode* attribute = attributes ? attributes->getNamedItem(key.str()) : nullptr;
    if (!attribute) throw XMLNoSuchAttributeException("no such attribute: " + name);
    return toUtf8(attribute->getNodeValue());
}

std::string XMLElement::getAttributeAsString(const std::string& name) const {
    return getAttribute(name);
}

int XMLElement::getAttributeAsInt(const std::string& name, int base) const {
    const long number = getAttributeAsLong(name, base);
    return static_cast<int>(std::clamp<long>(number, INT_MIN, INT_MAX));
}

long XMLElement::getAttributeAsLong(const std::string& name, int base) const {
    const std::string value = getAttribute(name);
    char* end = const_cast<char*>(value.c_str());
    const long number = std::strtol(value.c_str(), &end, base);
    if (end == value.c_str())
        rejectText("XMLElement::getAttributeAsLong: attribute ", name, ": ", value,
                   " can't be converted to an integer number");
    return number;
}

double XMLElement::getAttributeAsDouble(const std::string& name) const {
    const std::string value = getAttribute(name);
    const auto number = toNumber(value);
    if (!number)
        rejectText("XMLElement::getAttributeAsDouble: attribute ", name, ": ", value,
                   " can't be converted to double");
    return *number;
}

float XMLElement::getAttributeAsFloat(const std::string& name) const {
    return static_cast<float>(getAttributeAsDouble(name));
}

bool XMLElement::getAttributeAsBool(const std::string& name) const {
    static constexpr std::pair<const char*, bool> words[] = {
        {"true", true},   {"True", true},   {"TRUE", true},
        {"false", false}, {"False", false}, {"FALSE", false},
    };
    const std::string value = getAttribute(name);
    for (const auto& [word, meaning] : words)
        if (value == word) return meaning;
    rejectText("XMLElement::getAttributeAsBool: attribute ", name, ": ", value,
               " can't be converted to boolean");
}

Point4 XMLElement::getAttributeAsPoint(const std::string& name) const {
    return Point4(convert(getAttributeAsString(name), point_form).data());
}

Vector4 XMLElement::getAttributeAsVector(const std::string& name) const {
    return Vector4(convert(getAttributeAsString(name), vector_form).data());
}

Vector4 XMLElement::getAttributeAsDirection(const std::string& name) const {
    Vector4 direction = getAttributeAsVector(name);
    const float length = direction.getLength();
    if (length == 0)
        throw Exception(getName() + ": attribute " + name + ": " + getAttribute(name) +
                        " has no direction");
    // Single precision holds not every length: the longest side of such a vector becomes 1 first.
    if (!std::isnormal(length))
        direction /=
            std::max({std::fabs(direction.x), std::fabs(direction.y), std::fabs(direction.z)});
    return direction.normalize();
}

ColorRGBA XMLElement::getAttributeAsColor(const std::string& name) const {
    return ColorRGBA(convert(getAttributeAsString(name), color_form).data());
}
