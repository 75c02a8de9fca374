#include "3d/image.h"

#include "main/exception.h"
#include "main/log_factory.h"

#include <SDL_image.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>
#include <fstream>
#include <iostream>
#include <memory>
#include <new>
#include <stdexcept>

namespace {

constexpr Uint8 opaque = 255;
constexpr int tga_side = 0xffff;  // two bytes a side in the header

/// A vector of this many zeros, or an Exception with this message.
template <typename T>
std::vector<T> allocate(std::size_t count, const std::string& failure) {
    try {
        return std::vector<T>(count);
    } catch (const std::bad_alloc&) {
        throw Exception(failure);
    } catch (const std::length_error&) {
        throw Exception(failure);
    }
}

std::vector<Uint8> allocatePixels(int width, int height, int components,
                                  const std::string& failure) {
    return allocate<Uint8>(static_cast<std::size_t>(width) * height * components, failure);
}

std::vector<Uint8> copyPixels(const std::vector<Uint8>& pixels, const std::string& failure) {
    auto copy = allocate<Uint8>(pixels.size(), failure);
    std::copy(pixels.begin(), pixels.end(), copy.begin());
    return copy;
}

/// The largest power of two that is not above `side`: textures shrink, they never grow.
int textureSide(int side) {
    return static_cast<int>(std::bit_floor(static_cast<unsigned>(side)));
}

/// The two neighbouring source rows (or columns) of one target row, and how far it lies on the way
/// from the first to the second.
struct Neighbours {
    int first;
    int second;
    float way;
};

/// Source rows per target row.
float scale(int from, int to) {
    const auto steps = static_cast<float>(from - 1);
    return to > 1 ? steps / static_cast<float>(to - 1) : steps;
}

std::vector<Neighbours> neighbours(int from, int to, const std::string& failure) {
    auto result = allocate<Neighbours>(to, failure);
    for (int i = 0; i < to; ++i) {
        const float place = static_cast<float>(i) * scale(from, to);
        const int first = static_cast<int>(place);
        // A float may round a long side's last place up beyond its end.
        result[i] = {std::min(first, from - 1), std::min(first + 1, from - 1),
                     place - static_cast<float>(first)};
    }
    return result;
}

float between(float first, float second, float way) {
    return first * (1 - way) + second * way;
}

}  // namespace

std::ostream& operator<<(std::ostream& out, IMAGE_ALPHAenum mode) {
    switch (mode) {
        case DEFAULT_ALPHA:
            return out << "DEFAULT_ALPHA";
        case WITH_ALPHA:
            return out << "WITH_ALPHA";
        case WITHOUT_ALPHA:
            return out << "WITHOUT_ALPHA";
    }
    return out << "INVALID !!!!!!";
}

Image::Image() : file("default"), width(64), height(64), alpha(true) {
    updateGLProperties();
    for (int j = 0; j < height; ++j) {
        for (int i = 0; i < width; ++i) {
            const bool light = (i ^ j) & 8;
            const int shade = ((i ^ j) & 16) ? 1 : 0;
            const int value = light ? 255 - 64 * shade : 128 * shade;
            data.insert(data.end(), components(), static_cast<Uint8>(value));
        }
    }
}

Image::Image(const std::string& filename, int w, int h, IMAGE_ALPHAenum mode) {
    load(filename);
    adjustAlpha(mode);
    if (w == 0) w = width;
    if (h == 0) h = height;
    if (w != width || h != height) resize(w, h);
}

Image::Image(const std::string& filename, bool autosize, IMAGE_ALPHAenum mode) {
    load(filename);
    adjustAlpha(mode);
    if (!autosize) return;
    const int w = textureSide(width);
    const int h = textureSide(height);
    if (w != width || h != height) resize(w, h);
}

Image::Image(int x1, int y1, int x2, int y2, bool a) : file("new_screenshot"), alpha(a) {
    if (x1 > x2) std::swap(x1, x2);
    if (y1 > y2) std::swap(y1, y2);
    width = x2 - x1;
    height = y2 - y1;
    updateGLProperties();
    data = allocatePixels(width, height, components(), "Image::Image(3): error alocating memory.");
    glPushMatrix();
    glLoadIdentity();
    glPixelStorei(GL_PACK_ALIGNMENT, 1);
    glReadPixels(x1, y1, width, height, a ? GL_RGBA : GL_RGB, GL_UNSIGNED_BYTE, data.data());
    glPopMatrix();
}

Image::Image(const Image& other)
    : width(other.width),
      height(other.height),
      alpha(other.alpha),
      swaprb(other.swaprb),
      swapa(other.swapa),
      data(copyPixels(other.data, "Image::Image(4): error alocating memory.")),
      format(other.format),
      type(other.type) {}

Image& Image::operator=(const Image& other) {
    if (this == &other) return *this;
    data = copyPixels(other.data, "Image::operator=: error alocating memory.");
    width = other.width;
    height = other.height;
    alpha = other.alpha;
    swaprb = other.swaprb;
    swapa = other.swapa;
    format = other.format;
    type = other.type;
    return *this;
}

void Image::load(const std::string& filename) {
    const std::string failure = "Image::Image: Error loading image " + filename;
    const std::unique_ptr<SDL_Surface, decltype(&SDL_FreeSurface)> surface(
        IMG_Load(filename.c_str()), SDL_FreeSurface);
    if (!surface || surface->w < 1 || surface->h < 1) throw Exception(failure + "!");
    const SDL_PixelFormat& pixel = *surface->format;
    const Uint32 color_mask = pixel.Rmask | pixel.Gmask | pixel.Bmask;
    if (color_mask == 0 || pixel.BytesPerPixel < 3) throw Exception(failure + ": not supported.");

    file = filename;
    width = surface->w;
    height = surface->h;
    alpha = pixel.BytesPerPixel == 4;
    // The byte that the colours leave: some decoders name no alpha mask, or a wrong one.
    swapa = alpha && ~color_mask < pixel.Rmask;
    swaprb = pixel.Bmask <= pixel.Rmask;
    updateGLProperties();

    // SDL pads its rows and starts with the top one.
    data = allocatePixels(width, height, components(), failure + "!");
    const std::size_t row = static_cast<std::size_t>(width) * components();
    const auto* source = static_cast<const Uint8*>(surface->pixels);
    for (int y = height - 1; y >= 0; --y, source += surface->pitch)
        std::memcpy(&data[y * row], source, row);
    if (alpha && !pixel.Amask) setAlpha(opaque);
}

void Image::updateGLProperties() {
    if (swapa) {
        format = swaprb ? GL_RGBA : GL_BGRA;
        type = GL_UNSIGNED_INT_8_8_8_8_REV;
        return;
    }
    type = GL_UNSIGNED_BYTE;
    if (alpha)
        format = swaprb ? GL_BGRA : GL_RGBA;
    else
        format = swaprb ? GL_BGR : GL_RGB;
}

template <typename Change>
void Image::forEachPixel(Change change) {
    for (std::size_t i = 0; i < data.size(); i += components()) change(&data[i]);
}

Image& Image::resize(int w, int h) {
    if (w < 1 || h < 1 || data.empty()) throw Exception("Image::resize: invalid size");
    const std::string failure = "Imagae::resize: out of memory";
    auto scaled = allocatePixels(w, h, components(), failure);
    const auto rows = neighbours(height, h, failure);
    const auto columns = neighbours(width, w, failure);
    const bool enlarge = scale(width, w) < 1 && scale(height, h) < 1;

    auto* target = scaled.data();
    for (const Neighbours& row : rows) {
        for (const Neighbours& column : columns) {
            for (int byte = 0; byte < components(); ++byte) {
                const auto in = [&](int r, int c) -> int {
                    return data[(static_cast<std::size_t>(r) * width + c) * components() + byte];
                };
                if (enlarge) {
                    const auto across = [&](int r) {
                        return between(static_cast<float>(in(r, column.first)),
                                       static_cast<float>(in(r, column.second)), column.way);
                    };
                    *target++ =
                        static_cast<Uint8>(between(across(row.first), across(row.second), row.way));
                    continue;
                }
                int sum = 0;
                int count = 0;
                for (int r = row.first; r <= row.second; ++r) {
                    for (int c = column.first; c <= column.second; ++c, ++count) sum += in(r, c);
                }
                *target++ = static_cast<Uint8>(sum / count);
            }
        }
    }
    width = w;
    height = h;
    data = std::move(scaled);
    return *this;
}

Image& Image::flipX() {
    if (data.empty()) return *this;
    const auto row = static_cast<std::ptrdiff_t>(width) * components();
    auto low = data.begin();
    auto high = data.end() - row;
    for (int swaps = height / 2; swaps > 0; --swaps, low += row, high -= row)
        std::swap_ranges(low, low + row, high);
    return *this;
}

Image& Image::flipY() {
    // All pixels the other way round, and the rows back in their places.
    return flipXY().flipX();
}

Image& Image::flipXY() {
    std::reverse(data.begin(), data.end());
    // That turned the bytes within the pixels round as well.
    forEachPixel([this](Uint8* pixel) { std::reverse(pixel, pixel + components()); });
    return *this;
}

Image& Image::swapColorOrder(int p1, int p2, int p3, int p4) {
    const std::array<int, 4> places = {p1, p2, p3, p4};
    const auto* end = places.data() + components();
    for (const int* place = places.data(); place != end; ++place) {
        if (*place < 0 || *place >= components())
            throw Exception("Image::swapColorOrder: Invalid parameter: value out of range (0..3).");
        if (std::count(places.data(), end, *place) > 1)
            throw Exception("Image::swapColorOrder: Invalid parameter: values must be diffrent.");
    }
    forEachPixel([&](Uint8* pixel) {
        std::array<Uint8, 4> old{};
        std::copy_n(pixel, components(), old.begin());
        for (int i = 0; i < components(); ++i) pixel[places[i]] = old[i];
    });
    return *this;
}

Image& Image::swapA() {
    if (alpha) {
        if (swapa)
            swapColorOrder(3, 0, 1, 2);
        else
            swapColorOrder(1, 2, 3, 0);
        swapa = !swapa;
    }
    updateGLProperties();
    return *this;
}

Image& Image::swapRB() {
    return swapColorOrder(2, 1, 0, alpha ? 3 : -1);
}

Image& Image::setAlpha(unsigned char a) {
    if (!alpha)
        throw Exception("Image::setAlpha: Trying to set alpha for image without alpha channel.");
    forEachPixel([&](Uint8* pixel) { pixel[alphaByte()] = a; });
    return *this;
}

Image& Image::invertAlpha() {
    if (!alpha)
        throw Exception("Image::setAlpha: Trying to invert alpha for image without alpha channel.");
    forEachPixel([&](Uint8* pixel) { pixel[alphaByte()] ^= 0xff; });
    return *this;
}

Image& Image::addAlpha(unsigned char a) {
    if (alpha) return *this;
    auto wider = allocatePixels(width, height, 4, "Image::addAlpha: out of memory");
    auto* target = wider.data();
    forEachPixel([&](const Uint8* pixel) {
        target = std::copy_n(pixel, 3, target);
        *target++ = a;
    });
    data = std::move(wider);
    alpha = true;
    swapa = false;
    updateGLProperties();
    return *this;
}

Image& Image::deleteAlpha() {
    if (!alpha) return *this;
    if (swapa) swapA();
    auto* target = data.data();
    forEachPixel([&](const Uint8* pixel) { target = std::copy_n(pixel, 3, target); });
    data.resize(data.size() / 4 * 3);
    alpha = false;
    updateGLProperties();
    return *this;
}

Image& Image::adjustAlpha(IMAGE_ALPHAenum mode) {
    switch (mode) {
        case DEFAULT_ALPHA:
            return *this;
        case WITH_ALPHA:
            return addAlpha(opaque);
        case WITHOUT_ALPHA:
            return deleteAlpha();
    }
    throw Exception("Image::adjustAlpha: Invalid parameter (no of type IMAG_ALPPHAenum)");
}

Image& Image::swapColors(unsigned char r1, unsigned char g1, unsigned char b1, unsigned char r2,
                         unsigned char g2, unsigned char b2) {
    const std::array<Uint8, 3> from = {r1, g1, b1};
    const std::array<Uint8, 3> to = {r2, g2, b2};
    forEachPixel([&](Uint8* pixel) {
        if (std::equal(from.begin(), from.end(), pixel)) std::copy(to.begin(), to.end(), pixel);
    });
    return *this;
}

const Uint8* Image::getPixels() const {
    if (data.empty()) throw Exception("Image::getPixels: null pointer");
    return data.data();
}

void Image::writeTGA(const std::string& fn) const {
    logLine(std::cout, "3D: ", "writing image to file <", fn, ">...");
    std::ofstream out(fn, std::ios::binary | std::ios::trunc);
    if (!out) throw Exception("Image::writeTGA: Error opening file " + fn + ".");

    Image copy(*this);
    copy.deleteAlpha();
    if (!swaprb) copy.swapRB();

    const auto low = [](int side) { return static_cast<char>(side & 0xff); };
    const auto high = [](int side) { return static_cast<char>(side >> 8); };
    std::array<char, 18> header{};
    header[2] = 2;  // true colour, not compressed
    header[12] = low(width);
    header[13] = high(width);
    header[14] = low(height);
    header[15] = high(height);
    header[16] = 24;  // bits per pixel
    if (width > tga_side || height > tga_side || !out.write(header.data(), header.size()))
        throw Exception("Image::writeTGA: Error writing header.");
    out.write(reinterpret_cast<const char*>(copy.data.data()),
              static_cast<std::streamsize>(copy.data.size()));
    // A full disk shows only when the last bytes leave the buffer.
    if (!out.flush()) throw Exception("Image::writeTGA: Error writing data.");
    logLine(std::cout, "3D: ", "done");
}

void Image::draw(int x, int y) const {
    glPushMatrix();
    glLoadIdentity();
    glPixelStorei(GL_UNPACK_ALIGNMENT, 1);
    glRasterPos2i(x, y);
    glDrawPixels(width, height, alpha ? GL_RGBA : GL_RGB, GL_UNSIGNED_BYTE, data.data());
    glPopMatrix();
}

std::ostream& operator<<(std::ostream& out, const Image& image) {
    return out << "* file: " << image.getFilename() << std::endl
               << "* width: " << image.getWidth() << std::endl
               << "* height: " << image.getHeight() << std::endl
               << "* alpha: " << (image.hasAlpha() ? "true" : "false");
}
