#include "3d/glut.h"

void initGlut() {
    static const bool initialised = [] {
        char program[] = "tarvex";
        char* arguments[] = {program, nullptr};
        int count = 1;
        glutInit(&count, arguments);
        return true;
    }();
    static_cast<void>(initialised);
}
