#pragma once

#include "main/exception.h"

#include <string>
#include <utility>

/// The base of all failures of the game file.
class XML_Exception : public Exception {
public:
    explicit XML_Exception(std::string thisMsg = "") : Exception(std::move(thisMsg)) {}
};

/// The game file cannot be read or is malformed.
class XMLParserException : public XML_Exception {
public:
    using XML_Exception::XML_Exception;
};

/// Navigation from a null element.
class XMLNoSuchElementException : public XML_Exception {
public:
    using XML_Exception::XML_Exception;
};

/// A missing attribute; the reader of an optional attribute catches it.
class XMLNoSuchAttributeException : public XML_Exception {
public:
    using XML_Exception::XML_Exception;
};

/// An attribute whose text has the wrong form.
class XMLWrongAttributeTypeException : public XML_Exception {
public:
    using XML_Exception::XML_Exception;
};
