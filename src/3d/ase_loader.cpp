#include "3d/ase_loader.h"

#include "main/exception.h"
#include "main/log_factory.h"

#include <algorithm>
#include <iostream>
#include <iterator>
#include <string>

namespace {

struct ColorToken {
    std::string_view token;
    const ColorRGB* (Material::*get)() const;
    void (Material::*set)(ColorRGB*);
};

constexpr ColorToken color_tokens[] = {
    {"*MATERIAL_AMBIENT", &Material::getAmbient, &Material::setAmbient},
    {"*MATERIAL_DIFFUSE", &Material::getDiffuse, &Material::setDiffuse},
    {"*MATERIAL_SPECULAR", &Material::getSpecular, &Material::setSpecular},
};

struct TextureToken {
    std::string_view token;
    const char* name;
    void (Texture::*set)(float);
    bool tiling;
};

constexpr TextureToken texture_tokens[] = {
    {"*UVW_U_OFFSET", "u-offset", &Texture::setUOffset, false},
    {"*UVW_V_OFFSET", "v-offset", &Texture::setVOffset, false},
    {"*UVW_U_TILING", "u-tiling", &Texture::setUTile, true},
    {"*UVW_V_TILING", "v-tiling", &Texture::setVTile, true},
};

template <typename Entry, std::size_t size>
const Entry* lookUp(const Entry (&entries)[size], std::string_view token) {
    const auto* known = std::find_if(std::begin(entries), std::end(entries),
                                     [&](const Entry& e) { return e.token == token; });
    return known == std::end(entries) ? nullptr : known;
}

void readColor(AseFile& file, Material& material, const ColorToken& entry) {
    float rgb[3];
    (material.*entry.get)()->getRGB(rgb);
    file.getNumbers(rgb[0], rgb[1], rgb[2]);
    (material.*entry.set)(new ColorRGB(rgb));
}

/// The path of a picture, without the quotes around it.
void readBitmap(AseFile& file, Material& material, MTLenum mode) {
    std::string_view quoted;
    if (!file.getToken(quoted)) return;
    const std::string path(quoted.size() < 2 ? "" : quoted.substr(1, quoted.size() - 2));
    material.setTexture(path, mode, false);
}

/// Applies to the texture of the last picture before it. Throws Exception when there is none.
void readTextureValue(AseFile& file, Material& material, const TextureToken& entry) {
    float value = 0;
    const bool read = file.getNumbers(value);
    Texture* texture = material.getTexture();
    if (read) (texture->*entry.set)(value);
}

}  // namespace

void _AseLoader::loadSubMaterials(AseFile& file, int index, int count, MTLenum mode,
                                  TilingFault fault) {
    for (int i = 1; i <= count; ++i) {
        file.moveToMaterial(index);
        if (!file.moveToSubMaterial(i)) return;
        if (!addMaterialUpTo(file, true, mode, fault)) return;
    }
}

void _AseLoader::loadPlainMaterial(AseFile& file, int index, MTLenum mode, TilingFault fault) {
    file.moveToMaterial(index);
    addMaterialUpTo(file, false, mode, fault);
}

bool _AseLoader::addMaterialUpTo(AseFile& file, bool sub_material, MTLenum mode,
                                 TilingFault fault) {
    auto material = std::make_unique<Material>();
    std::string_view token;
    while (file.getToken(token)) {
        const bool ends = token == AseFile::material || token == AseFile::geometry_object ||
                          (sub_material && token == AseFile::sub_material);
        if (ends) {
            addMaterial(material.release());
            return true;
        }
        if (token == "*MATERIAL_NAME") continue;  // the name itself drops the line
        if (token == "*BITMAP") {
            readBitmap(file, *material, mode);
        } else if (const ColorToken* color = lookUp(color_tokens, token)) {
            readColor(file, *material, *color);
        } else if (const TextureToken* value = lookUp(texture_tokens, token)) {
            try {
                readTextureValue(file, *material, *value);
            } catch (const Exception& e) {
                if (value->tiling && fault == TILING_THROWN) throw;
                logLine(std::cerr, "ERROR (3D): ", "AseObject::loadMaterial: cannot set ",
                        value->name, " (", e.getMessage(), ")");
            }
        } else {
            file.dropLine();
        }
    }
    return false;
}

void _AseLoader::reserve(const AseFile& file, const AseCounts& declared) {
    reserveTables(file.getNumAtMost(declared.vertices, "*MESH_VERTEX"),
                  file.getNumAtMost(declared.texture_vertices, "*MESH_TVERT"));
    reserveFaces(file.getNumAtMost(declared.faces, "*MESH_FACE"));
}

void _AseLoader::getTVertices(AseFile& file) {
    int ignored_index = 0;
    float u = 0;
    float v = 0;
    file.getData("*MESH_TVERT", [&] {
        file.getNumbers(ignored_index, u, v);
        addTVertex(Vector2(u, v));
    });
}

void _AseLoader::getMaterialReference(AseFile& file) {
    file.getData("*MATERIAL_REF", [&] { file.getNumbers(mat_ref); });
}
