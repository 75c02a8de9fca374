// A mask file, loaded as a cockpit loads it and drawn.

#include "3d/bitmap_factory.h"
#include "bench/campaign/blind.h"
#include "fuzz/fuzz.h"

#include <algorithm>

namespace {

/// Lets go of the masks, which the factory keeps for the rest of the run.
void forgetMasks(BitmapFactory& factory);

template <auto masks>
struct Masks {
    friend void forgetMasks(BitmapFactory& factory) { (factory.*masks).clear(); }
};
template struct Masks<&BitmapFactory::bitmaps>;

}  // namespace

extern "C" {

/// Reads what OpenGL would read, where the sanitizer sees it.
void glBitmap(GLsizei width, GLsizei height, GLfloat, GLfloat, GLfloat, GLfloat,
              const GLubyte* bits) {
    const std::ptrdiff_t bytes = static_cast<std::ptrdiff_t>((width + 7) / 8) * height;
    const volatile auto set = std::count_if(bits, bits + bytes, [](GLubyte b) { return b > 0; });
    static_cast<void>(set);
}

int LLVMFuzzerInitialize(int*, char***) {
    fuzz::silence();
    return 0;
}

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    BitmapFactory& factory = *BitmapFactory::getInstance();
    fuzz::attempt([&] {
        Bitmap* mask = factory.getBitmap(fuzz::folder().write("mask.bw", fuzz::toText(data, size)));
        fuzz::require(mask->getWidth() >= 0 && mask->getHeight() >= 0);
        mask->setColor(ColorRGBA(1, 0, 0, 1));
        mask->draw(0, 0, -1, true);
    });
    forgetMasks(factory);
    fuzz::require(blind::countNames() == 0);
    return 0;
}
}
