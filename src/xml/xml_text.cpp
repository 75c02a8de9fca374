#include "xml/xml_text.h"

#include <xercesc/util/TransService.hpp>

std::string toUtf8(const XMLCh* text) {
    if (!text) return {};
    const xercesc::TranscodeToStr utf8(text, "UTF-8");
    return {reinterpret_cast<const char*>(utf8.str()), utf8.length()};
}
