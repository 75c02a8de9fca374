#pragma once

#include "3d/accum_buffer.h"
#include "3d/image.h"
#include "3d/light_factory.h"
#include "3d/stencil_buffer.h"
#include "game/drawable.h"

#include <GL/gl.h>

#include <atomic>
#include <ostream>
#include <vector>

class _CameraInterface;
class _Light;

/// The renderer's state as a whole. Every frame is a bracket of startFrame() and endFrame(); within
/// it everything visible draws itself with the draw mode kept here, and overlays go between
/// switchTo2D() and switchTo3D(). Owns the light slots and the lamp that lights every scene, and
/// knows the current camera. Created once the window is open and kept until the process ends.
class OpenGLContext {
public:
    /// Needs an open window on the first call.
    static OpenGLContext* getInstance();

    ~OpenGLContext();
    OpenGLContext(const OpenGLContext&) = delete;
    OpenGLContext& operator=(const OpenGLContext&) = delete;

    /// Clears picture and depth. With `c` true the current camera, if there is one, is activated.
    /// Lighting is brought to what isLighting() says, and the scene's lamps are placed.
    void startFrame(bool c) const;
    /// Writes the frame rate if it is wanted, reports a pending OpenGL error, shows the picture.
    void endFrame() const;
    /// Fits viewport and current camera to a window of `w` by `h` pixels.
    void reshape(int w, int h);
    /// Sends the scene's lamps to OpenGL under the modelview matrix of the moment. startFrame()
    /// does so; whoever activates another camera within a frame does it again.
    void placeLights() const;

    /// Opens an overlay with the given borders, filled polygons, and no view of its own. Depth
    /// test, lighting and blending stay as they are. Always paired with switchTo3D(), never nested.
    void switchTo2D(double left, double right, double bottom, double top) const;
    void switchTo3D() const;

    /// The camera of the frame, not owned; null before the first one and after its end.
    _CameraInterface* getCurrentCamera() const { return currentCamera; }
    /// Makes `c` current and gives it the window's aspect, which loads its projection.
    /// Throws Exception on null.
    void setCurrentCamera(_CameraInterface* c);
    /// Called by every camera at its end: no dead camera stays current.
    static void forgetCamera(const _CameraInterface& c);

    DRWenum getDrawMode() const { return draw_mode; }
    /// Takes `i` modulo 5: shadows are never a mode of the whole frame.
    void setDrawMode(int i);

    LightFactory* getLightFactory() { return &lf; }
    const AccumBuffer& getAccumBuffer() const { return acc_buffer; }
    const StencilBuffer& getStencilBuffer() const { return stc_buffer; }

    /// Take effect with the next frame, or the next request for blending.
    void setLighting(bool on) { light_on = on; }
    void setBlending(bool on) { blend_on = on; }
    void setShowFPS(bool on) { show_fps = on; }
    bool isLighting() const { return light_on; }
    bool isBlending() const { return blend_on; }
    bool isShowFPS() const { return show_fps; }

    /// Whether one pass can carry two textures.
    bool isMultiTexSupported() const { return multitex_supported && max_tex_units > 1; }
    bool isTexCompSupported() const { return texcomp_supported; }
    /// False where pictures travel through the display's own protocol: too slow for live displays.
    bool isAccelerated() const { return accelerated; }

    /// Ordinary transparency by alpha; without effect while blending is not wanted.
    void activateBlending() const;
    /// Switches blending off in any case.
    void deactivateBlending() const;

    /// The picture in the frame buffer between the corners (x, y) and (x + w, y + h), in pixels
    /// from the lower left.
    Image captureScreen(int x, int y, int w, int h) const;

    friend unsigned int updateFPS(unsigned int intv, void* data);
    friend std::ostream& operator<<(std::ostream& out, const OpenGLContext& context);

private:
    OpenGLContext();

    void drawFrameRate() const;

    static OpenGLContext* instance;

    AccumBuffer acc_buffer;
    StencilBuffer stc_buffer;
    bool light_on = true;
    bool blend_on = true;
    bool multitex_supported = false;
    bool texcomp_supported = false;
    bool accelerated = true;
    bool show_fps = true;
    GLint max_tex_units = 0;
    GLint aux_buffers = 0;
    int stencil_planes = 0;
    DRWenum draw_mode = DRAW_MULTITEX;
    LightFactory lf;
    std::vector<_Light*> lights;  // the lamps of every scene; their slots in `lf` own them
    _CameraInterface* currentCamera = nullptr;
    mutable std::atomic<unsigned int> num_frames = 0;  // since the timer's last tick
    std::atomic<unsigned int> fps = 0;
};

/// SDL's timer calls it every `intv` milliseconds, on a thread of its own: turns the frames ended
/// since the last call into frames per second. Returns `intv`, which keeps the timer going.
unsigned int updateFPS(unsigned int intv, void* data);

/// Vendor, renderer, versions and abilities, one on each line; the last line is left open.
std::ostream& operator<<(std::ostream& out, const OpenGLContext& context);
