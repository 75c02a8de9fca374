#pragma once

#include <GL/glut.h>

/// Makes GLUT ready for its bitmap characters and solids. Opens no window, but needs a display.
/// May be called any number of times; everyone who draws with GLUT calls it before the first use.
void initGlut();
