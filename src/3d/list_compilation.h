#pragma once

#include <GL/gl.h>

/// Compiles what is drawn during its life into a display list; ends the list on every way out.
class ListCompilation {
public:
    explicit ListCompilation(GLuint list) { glNewList(list, GL_COMPILE); }
    ~ListCompilation() { glEndList(); }
    ListCompilation(const ListCompilation&) = delete;
    ListCompilation& operator=(const ListCompilation&) = delete;
};
