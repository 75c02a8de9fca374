#include "3d/bitmap.h"

#include "main/exception.h"
#include "main/log_factory.h"

#include <algorithm>
#include <fstream>
#include <iostream>
#include <vector>

namespace {

constexpr int largest_side = 16384;  // pixels; wider and higher than any window

}  // namespace

class Bitmap::List {
public:
    List(int width, int height, const GLubyte* bits) : name(glGenLists(1)) {
        glNewList(name, GL_COMPILE);
        glBitmap(width, height, 0, 0, 0, 0, bits);
        glEndList();
    }
    ~List() { glDeleteLists(name, 1); }
    List(const List&) = delete;
    List& operator=(const List&) = delete;

    void call() const { glCallList(name); }

private:
    GLuint name;
};

Bitmap::Bitmap(const std::string& fn, const ColorRGBA& c, bool invert) : file(fn), color(c) {
    const auto believable = [](int side) { return side >= 0 && side <= largest_side; };
    std::ifstream in(fn, std::ios::binary);
    in >> width >> height;
    if (!in.is_open() || in.bad() || !believable(width) || !believable(height))
        throw Exception("Bitmap::Bitmap: Error loading bitmap " + fn);
    if (!in) width = height = 0;  // no header, no mask
    in.ignore(1);

    // Row by row, so that memory follows what the file has and not what it claims. Rows that it
    // lacks need not be drawn: they are clear.
    const int row = (width + 7) / 8;
    std::vector<GLubyte> bits;
    std::streamsize loaded = 0;
    int rows = 0;
    for (; rows < height && in; ++rows) {
        const std::size_t start = bits.size();
        bits.resize(start + row);
        in.read(reinterpret_cast<char*>(bits.data() + start), row);
        loaded += in.gcount();
    }
    logLine(std::cout, "!! 3D(4): ", "Bitmap ", file, " : ", row * height, " bytes loaded");

    if (invert)
        std::transform(bits.begin(), bits.begin() + loaded, bits.begin(),
                       [](GLubyte byte) { return static_cast<GLubyte>(~byte); });
    gllist = std::make_shared<List>(width, rows, bits.data());
}

void Bitmap::draw(int x, int y, int z, bool colored) const {
    glDisable(GL_LIGHTING);
    // The raster position takes the colour of the moment with it.
    if (colored) color.activate();
    const bool ignore_depth = z < 0 && glIsEnabled(GL_DEPTH_TEST);
    if (ignore_depth) glDisable(GL_DEPTH_TEST);
    if (x >= 0 && y >= 0) glRasterPos3d(x, y, std::max(z, 0));
    gllist->call();
    if (ignore_depth) glEnable(GL_DEPTH_TEST);
}

std::ostream& operator<<(std::ostream& out, const Bitmap& b) {
    return out << "Bitmap: " << b.file << "( " << b.width << " x " << b.height << ")";
}
