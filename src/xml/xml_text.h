#pragma once

#include <xercesc/util/XercesDefs.hpp>

#include <string>

/// A text of the XML library in UTF-8; empty for a null pointer.
std::string toUtf8(const XMLCh* text);
