#pragma once

#include <GL/gl.h>
#include <SDL.h>

#include <ostream>
#include <string>
#include <vector>

/// What to do with the alpha channel of a picture file.
enum IMAGE_ALPHAenum {
    DEFAULT_ALPHA = 0,  // as the file has it
    WITH_ALPHA = 1,     // add one if missing
    WITHOUT_ALPHA = 2,  // remove one if present
};

/// Writes the name of the value, or "INVALID !!!!!!".
std::ostream& operator<<(std::ostream& out, IMAGE_ALPHAenum mode);

/// Pixels in memory on their way from a picture file to a texture, or from the frame buffer to a
/// screenshot. Rows are packed and stand in the order of OpenGL, the bottom row first; a pixel has
/// three bytes, or four with alpha, in the order that getGLFormat() and getGLType() tell.
/// Short-lived: nobody keeps one once the texture or the file exists. All operations that change
/// the image return it, so that they can be chained.
class Image {
public:
    /// A checkered test pattern of 64 by 64 pixels with alpha.
    Image();
    /// Loads a picture and scales it to `w` by `h` pixels, 0 standing for the size it has. Throws
    /// Exception when it cannot be decoded or its pixels are no direct colours.
    Image(const std::string& filename, int w, int h, IMAGE_ALPHAenum mode);
    /// Loads a picture; with `autosize` both sides shrink to a power of two, as textures want them.
    /// Throws like the form above.
    Image(const std::string& filename, bool autosize, IMAGE_ALPHAenum mode);
    /// Captures the frame buffer between two corners, given in any order in pixels from the lower
    /// left of the window; `a` asks for the alpha channel.
    Image(int x1, int y1, int x2, int y2, bool a);
    /// Copies of the pixels, not of the file name: a copy has none, an assignment keeps its own.
    Image(const Image& other);
    Image& operator=(const Image& other);
    ~Image() = default;

    /// Scales to `w` by `h` pixels: bilinear when both sides grow, otherwise from boxes of at most
    /// two by two pixels. Throws Exception for a size below 1 and when memory runs out.
    Image& resize(int w, int h);

    /// Reverses the order of the rows: upside down.
    Image& flipX();
    /// Reverses the pixels within every row.
    Image& flipY();
    /// Both flips at once.
    Image& flipXY();

    /// Moves byte 0 of every pixel to place `p1`, byte 1 to `p2`, byte 2 to `p3` and, with alpha,
    /// byte 3 to `p4`. Throws Exception unless these are different places within the pixel.
    Image& swapColorOrder(int p1, int p2, int p3, int p4);
    /// Moves the alpha byte to the other end of each pixel.
    Image& swapA();
    /// Exchanges the first and the third byte of each pixel; what the image says of their order
    /// stays.
    Image& swapRB();

    /// Gives every pixel this alpha. Throws Exception without an alpha channel.
    Image& setAlpha(unsigned char a);
    /// Throws Exception without an alpha channel.
    Image& invertAlpha();
    /// Adds an alpha channel of this value if there is none.
    Image& addAlpha(unsigned char a);
    /// Removes the alpha channel if there is one.
    Image& deleteAlpha();
    /// Adds (opaque) or removes alpha as the mode asks. Throws Exception on an unknown mode.
    Image& adjustAlpha(IMAGE_ALPHAenum mode);

    /// Gives the second colour to every pixel of the first one. Colours count in the order of the
    /// bytes.
    Image& swapColors(unsigned char r1, unsigned char g1, unsigned char b1, unsigned char r2,
                      unsigned char g2, unsigned char b2);

    int getWidth() const { return width; }
    int getHeight() const { return height; }
    const std::string& getFilename() const { return file; }
    bool hasAlpha() const { return alpha; }
    GLenum getGLType() const { return type; }
    GLenum getGLFormat() const { return format; }
    /// The pixels, kept by the image. Throws Exception when it has none.
    const Uint8* getPixels() const;

    /// Writes an uncompressed 24-bit TGA file, replacing an older one. Throws Exception when the
    /// file cannot be opened or written to its end.
    void writeTGA(const std::string& fn) const;
    /// Puts the pixels on screen at a raster position.
    void draw(int x, int y) const;

private:
    void load(const std::string& filename);
    void updateGLProperties();

    int components() const { return alpha ? 4 : 3; }
    int alphaByte() const { return swapa ? 0 : 3; }
    /// Calls `change` with the first byte of every pixel.
    template <typename Change>
    void forEachPixel(Change change);

    std::string file;
    int width = 0;
    int height = 0;
    bool alpha = false;
    bool swaprb = false;  // blue, green, red
    bool swapa = false;   // alpha comes first
    std::vector<Uint8> data;
    GLenum format = GL_RGB;
    GLenum type = GL_UNSIGNED_BYTE;
};

/// Writes file, size and alpha, one a line.
std::ostream& operator<<(std::ostream& out, const Image& image);
