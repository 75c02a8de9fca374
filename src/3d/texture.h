#pragma once

#include <GL/gl.h>

#include <ostream>
#include <string>

/// A light handle on a picture in OpenGL: how it is combined with the colour below it, and how it
/// is tiled and shifted. Any number of textures may stand on one picture file: they share its
/// OpenGL object, which the texture factory keeps. Needs an OpenGL context from its construction
/// on.
class Texture {
public:
    /// The picture in file `f`; `te` is one of GL_DECAL, GL_REPLACE, GL_BLEND and GL_MODULATE. With
    /// `c_sw`, black pixels turn white when the file is loaded for the first time. Throws Exception
    /// when the picture cannot be loaded.
    Texture(const std::string& f, int te, bool c_sw);
    /// A texture for a part of the frame buffer, empty until it is grabbed.
    Texture();
    /// Shares the picture of a file. The copy of a frame buffer texture is an empty one of its own,
    /// so that neither can take the other's picture away.
    Texture(const Texture& other);
    Texture& operator=(const Texture&) = delete;
    /// The picture of a file stays with the factory; a part of the frame buffer goes with its
    /// texture.
    ~Texture();

    /// Replaces the picture by a copy of this rectangle of the frame buffer, in pixels from the
    /// lower left corner.
    void grabFrameBuffer(unsigned int x, unsigned int y, unsigned int w, unsigned int h);

    /// "none" for a frame buffer texture.
    const std::string& getFilename() const { return filename; }
    float getUTile() const { return u_tile; }
    float getVTile() const { return v_tile; }
    float getUOffset() const { return u_off; }
    float getVOffset() const { return v_off; }
    int getTexEnvMode() const { return tex_env; }

    void setUTile(float u) { u_tile = u; }
    void setVTile(float v) { v_tile = v; }
    void setUOffset(float u) { u_off = u; }
    void setVOffset(float v) { v_off = v; }
    void setTexEnvMode(int te) { tex_env = te; }

    /// Switches texturing on with this picture. Warns of an unknown environment mode and mends it;
    /// warns of a picture that was deleted and leaves OpenGL as it is.
    void activate() const;
    /// Does nothing: texturing stays on until someone switches it off.
    void deactivate() const {}

private:
    friend std::ostream& operator<<(std::ostream& out, const Texture& t);

    bool isFromFrameBuffer() const { return &tex_obj == &tmp; }

    std::string filename;
    /// The factory's entry for a file, so that a change of the entry reaches all who share it;
    /// `tmp` for a frame buffer texture.
    GLuint& tex_obj;
    GLuint tmp = 0;
    float u_tile = 1;
    float v_tile = 1;
    float u_off = 0;
    float v_off = 0;
    mutable GLint tex_env;  // mended by activate()
};

/// Writes the file name and the name of the environment mode, on two lines.
std::ostream& operator<<(std::ostream& out, const Texture& t);
