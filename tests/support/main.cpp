#include <GL/gl.h>
#include <SDL.h>
#include <gmock/gmock.h>

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
    testing::UnitTest::GetInstance()->listeners().Append(new RendererState);
    return RUN_ALL_TESTS();
}
