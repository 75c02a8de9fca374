// A model file, loaded as every kind of model; behind a zero byte stands the file of a second
// layer, otherwise the first is both.

#include "3d/ase_object.h"
#include "3d/mt_ase_object.h"
#include "3d/texture_factory.h"
#include "bench/campaign/blind.h"
#include "fuzz/fuzz.h"
#include "tests/support/picture.h"

#include <filesystem>

namespace {

/// Lets go of the textures, which the factory keeps for the rest of the run.
void forgetTextures(TextureFactory& factory);

template <auto textures>
struct Textures {
    friend void forgetTextures(TextureFactory& factory) {
        for (auto& [file, texture] : factory.*textures)
            if (texture.name != 0) factory.deleteTexObject(texture.name);
        (factory.*textures).clear();
    }
};
template struct Textures<&TextureFactory::tex_objs>;

void inspect(const Comp3DObject& model) {
    fuzz::require(model.getBoundingObject() != nullptr);
    fuzz::require(model.getAnzNormal() == model.getAnzVertex());
    model.draw(DRAW_TEXTURE);
}

}  // namespace

int LLVMFuzzerInitialize(int*, char***) {
    fuzz::silence();
    blind::start(0);
    fuzz::folder().write("picture.ppm", picture::ppm(2, 1, "abcdef"));
    std::filesystem::current_path(fuzz::folder() / "");
    return 0;
}

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string input = fuzz::toText(data, size);
    const std::size_t border = input.find('\0');
    const std::string first = input.substr(0, border);
    const bool two = border != std::string::npos;
    const std::string one_file = fuzz::folder().write("1.ASE", first);
    const std::string other_file =
        two ? fuzz::folder().write("2.ASE", input.substr(border + 1)) : one_file;

    for (const BOUNDINGenum bounding : {BOUNDING_BOX, BOUNDING_SPHERE})
        if (!two)
            fuzz::attempt([&] { inspect(AseObject(one_file, MTL_TEX_ONLY, bounding, true)); });
    for (const bool calc_normals : {true, false})
        fuzz::attempt([&] {
            inspect(MT_AseObject(one_file, MTL_TEX_ONLY, other_file, MTL_TEX_DECAL, BOUNDING_SPHERE,
                                 calc_normals));
        });
    forgetTextures(*TextureFactory::getInstance());
    fuzz::require(blind::countNames() == 0);
    return 0;
}
