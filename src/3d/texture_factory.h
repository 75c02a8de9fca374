#pragma once

#include <map>
#include <ostream>
#include <string>

/// Turns a picture file into one OpenGL texture object and keeps it, so that all models, buttons
/// and effects that name the same file share it. Only the picture of a sky goes before the run
/// ends, together with the sky. Made on first use, lives until the process ends.
class TextureFactory {
public:
    static TextureFactory* getInstance();

    TextureFactory(const TextureFactory&) = delete;
    TextureFactory& operator=(const TextureFactory&) = delete;

    /// The texture object of file `t`, loaded by the first request. The reference stays valid for
    /// ever. With `c_sw` a picture that is loaded now has its black pixels turned white. Throws
    /// Exception when the picture cannot be loaded; later requests then get an empty texture.
    unsigned int& getTexObject(const std::string& t, bool c_sw);
    /// A new texture object with a copy of this rectangle of the frame buffer. The caller owns it.
    unsigned int getTexObjectFromFramebuffer(unsigned int x, unsigned int y, unsigned int w,
                                             unsigned int h) const;

    /// Frees the texture object of file `t`; the next request for the file loads it again.
    void deleteTexObject(const std::string& t);
    /// The same, by whoever has requested the file. Keeps a texture object that others requested as
    /// well.
    void releaseTexObject(const std::string& t);
    /// Frees a texture object and sets its name to 0.
    void deleteTexObject(unsigned int& o);

    /// Texturing on and off, touching OpenGL only for a change.
    void activate() const;
    void deactivate() const;
    bool isActivated() const;

    /// Makes the bound texture repeat in both directions and sample linearly.
    void applyModel() const;

private:
    friend std::ostream& operator<<(std::ostream& out, const TextureFactory& tf);

    TextureFactory() = default;
    ~TextureFactory() = default;

    static TextureFactory* instance;
    struct Entry {
        unsigned int name = 0;
        bool shared = false;  // requested more than once since it was loaded
    };
    /// By file name. Textures hold references into it: its entries must not move.
    std::map<std::string, Entry> tex_objs;
};

/// Writes the number of known texture files.
std::ostream& operator<<(std::ostream& out, const TextureFactory& tf);
