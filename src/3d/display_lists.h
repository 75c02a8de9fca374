#pragma once

#include <GL/gl.h>

#include <utility>

/// A row of display lists with an owner: they are freed with it, unless they were released to live
/// on without one.
class DisplayLists {
public:
    /// `first` is 0 when OpenGL has no such row to give.
    explicit DisplayLists(GLsizei count) : count(count), first(count > 0 ? glGenLists(count) : 0) {}
    ~DisplayLists() {
        if (first != 0) glDeleteLists(first, count);
    }
    DisplayLists(const DisplayLists&) = delete;
    DisplayLists& operator=(const DisplayLists&) = delete;

    GLuint getFirst() const { return first; }
    GLuint release() { return std::exchange(first, 0); }

private:
    GLsizei count;
    GLuint first;
};
