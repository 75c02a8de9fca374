#pragma once

#include "xml/xml_exception.h"

#include <xercesc/util/XercesDefs.hpp>

#include <optional>
#include <string>

XERCES_CPP_NAMESPACE_BEGIN
class DOMNode;
XERCES_CPP_NAMESPACE_END

class ColorRGBA;
class Point4;
class Vector4;

/// One element of the game file, or none at all: a null element. A cheap handle that is passed by
/// value; the document behind it lives as long as the XMLParser that read it.
///
/// Attributes are texts; the typed getters fix how numbers, truth values, points, vectors and
/// colours are written. All of them throw XMLNoSuchAttributeException for a missing attribute and
/// XMLWrongAttributeTypeException for a text of the wrong form.
class XMLElement {
public:
    explicit XMLElement(XERCES_CPP_NAMESPACE_QUALIFIER DOMNode* n) : node(n) {}

    /// The nearest element in that direction, a null element where there is none; text and comments
    /// are passed over. Throw XMLNoSuchElementException on a null element.
    XMLElement getFirstChild() const;
    XMLElement getNext() const;
    XMLElement getPrevious() const;
    XMLElement getParent() const;

    bool isNull() const { return !node; }
    /// The tag name. Throws XMLNoSuchElementException on a null element.
    std::string getName() const;

    /// The attribute as it stands in the file, in UTF-8.
    std::string getAttribute(const std::string& name) const;
    std::string getAttributeAsString(const std::string& name) const;

    /// A whole number in the given base. What follows it is ignored; one that is too large becomes
    /// the largest of its type.
    int getAttributeAsInt(const std::string& name, int base) const;
    long getAttributeAsLong(const std::string& name, int base) const;
    /// A finite number in single precision, with a decimal point whatever the user's language.
    double getAttributeAsDouble(const std::string& name) const;
    float getAttributeAsFloat(const std::string& name) const;
    /// One of "true", "True", "TRUE", "false", "False", "FALSE".
    bool getAttributeAsBool(const std::string& name) const;

    /// "P(x|y|z)" and "V(x|y|z)"; the fourth component is 1.
    Point4 getAttributeAsPoint(const std::string& name) const;
    Vector4 getAttributeAsVector(const std::string& name) const;
    /// A vector of which only the direction counts: it comes back with length 1. Throws Exception
    /// for one without length.
    Vector4 getAttributeAsDirection(const std::string& name) const;
    /// "C(red|green|blue|alpha)", each from 0 to 1.
    ColorRGBA getAttributeAsColor(const std::string& name) const;

private:
    void requireNode(const char* operation) const;

    XERCES_CPP_NAMESPACE_QUALIFIER DOMNode* node;
};

/// Runs a getter and returns what it read, or nothing where the attribute is missing: the way to
/// read an optional attribute. A text of the wrong form still throws.
template <typename Getter>
auto ifPresent(Getter getter) -> std::optional<decltype(getter())> {
    try {
        return getter();
    } catch (const XMLNoSuchAttributeException&) {
        return std::nullopt;
    }
}
