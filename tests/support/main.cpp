#include <GL/gl.h>
#include <SDL.h>
#include <gmock/gmock.h>

#include <cstdlib>

namespace {

/// What a test leaves switched on in the renderer is no business of the next one in the same
/// process.
struct RendererState : testing::EmptyTestEventListener {
    void OnTestStart(const testing::TestInfo&) override {
        saved = SDL_GetVideoSurface() != nullptr;
        if (saved) glPushAttrib(GL_ALL_ATTRIB_BITS);
    }
    void OnTestEnd(const testing::TestInfo&) override {
        if (saved) glPopAttrib();
    }

    bool saved = false;
};

}  // namespace

int main(int argc, char** argv) {
    testing::InitGoogleMock(&argc, argv);
    // Where the tests look and point; the layer over SDL 2 centres its windows.
    setenv("SDL_VIDEO_WINDOW_POS", "0,0", 1);
    testing::UnitTest::GetInstance()->listeners().Append(new RendererState);
    return RUN_ALL_TESTS();
}
