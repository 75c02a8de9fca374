#pragma once

#include "main/exception.h"

/// The base of all geometry failures.
class _3DException : public Exception {
public:
    using Exception::Exception;
};

class QuadrupelException : public _3DException {
public:
    using _3DException::_3DException;
};

class PointException : public _3DException {
public:
    using _3DException::_3DException;
};

class VectorException : public _3DException {
public:
    using _3DException::_3DException;
};

/// An intersection without a result.
class IntersectException : public _3DException {
public:
    using _3DException::_3DException;
};
