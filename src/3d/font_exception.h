#pragma once

#include "main/exception.h"

/// A font name that is unknown.
class FontFactoryException : public Exception {
public:
    using Exception::Exception;
};

/// Marker for faults of a single font; carries no message.
class FontException {};

/// A character without a glyph.
class InvalidCharacterException : public FontException {};
