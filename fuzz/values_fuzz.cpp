// A text as the value of an attribute, read in every way there is. Bytes are characters of Latin 1.

#include "3d/color_rgba.h"
#include "3d/point.h"
#include "3d/vector.h"
#include "fuzz/fuzz.h"
#include "xml/xml_element.h"

#include <xercesc/dom/DOM.hpp>
#include <xercesc/util/PlatformUtils.hpp>

#include <algorithm>
#include <climits>
#include <cmath>

namespace {

using namespace xercesc;

constexpr float rounding = 0.001F;

template <typename Quadrupel>
void requireFinite(const Quadrupel& q) {
    for (const float part : {q.x, q.y, q.z}) fuzz::require(std::isfinite(part));
}

void requireWhole(const XMLElement& element, int base) {
    const long number = element.getAttributeAsLong("value", base);
    fuzz::require(element.getAttributeAsInt("value", base) ==
                  std::clamp<long>(number, INT_MIN, INT_MAX));
}

void requireColor(const XMLElement& element) {
    float rgba[4];
    element.getAttributeAsColor("value").getRGBA(rgba);
    for (const float part : rgba) fuzz::require(0 <= part && part <= 1);
}

void readAll(const XMLElement& element) {
    using fuzz::attempt;
    for (const int base : {0, 10, 16}) attempt([&] { requireWhole(element, base); });
    attempt([&] { fuzz::require(std::isfinite(element.getAttributeAsFloat("value"))); });
    attempt([&] { element.getAttributeAsBool("value"); });
    attempt([&] { requireFinite(element.getAttributeAsPoint("value")); });
    attempt([&] { requireFinite(element.getAttributeAsVector("value")); });
    attempt([&] {
        const float length = element.getAttributeAsDirection("value").getLength();
        fuzz::require(std::fabs(length - 1) < rounding);
    });
    attempt([&] { requireColor(element); });
}

}  // namespace

int LLVMFuzzerInitialize(int*, char***) {
    fuzz::silence();
    XMLPlatformUtils::Initialize();
    return 0;
}

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::u16string value(data, data + size);
    DOMDocument* document =
        DOMImplementation::getImplementation()->createDocument(nullptr, u"Element", nullptr);
    document->getDocumentElement()->setAttribute(u"value", value.c_str());
    readAll(XMLElement(document->getDocumentElement()));
    document->release();
    return 0;
}
