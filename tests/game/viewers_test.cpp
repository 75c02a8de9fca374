#include "3d/image.h"
#include "3d/opengl.h"
#include "game/cockpit.h"
#include "game/hull.h"
#include "game/mfd.h"
#include "game/shield.h"
#include "tests/support/pilots.h"

namespace {

using Color = std::array<int, 3>;
constexpr Color red{255, 0, 0}, green{0, 255, 0}, blue{0, 0, 255}, black{0, 0, 0};

/// Upright and flat squares half as wide as the object: green above and ahead, red on the other
/// side.
struct Beacon : Probe {
    explicit Beacon(float r) : Probe(GO_STARSHIP | 7), radius(r) {}
    void drawModel(DRWenum mode) const override {
        Probe::drawModel(mode);
        glDisable(GL_LIGHTING);
        for (const float tilt : {0, 90}) {
            glRotatef(tilt, 1, 0, 0);
            glColor3f(1, 0, 0);
            glRectf(-radius / 2, -radius / 2, radius / 2, 0);
            glColor3f(0, 1, 0);
            glRectf(-radius / 2, 0, radius / 2, radius / 2);
        }
    }
    _BoundingObject* computeBoundingObject() const override {
        return new BoundingSphere(Point4(), radius);
    }
    float radius;
};

struct Viewers : Pilots {
    /// Puts a beacon in the place of the last one and selects it.
    Beacon& aim(const Point4& place, float radius) {
        auto made = std::make_unique<Beacon>(radius);
        made->setPosition(place);
        Beacon& beacon = *made;
        space.add(std::move(made));
        mind.select(space.getObjectById(beacon.getId()));
        return beacon;
    }
    /// Shows a new picture on a display of 200 by `h` pixels in the corner of a black window.
    template <class Page>
    void show(Page& page, float h) {
        page.update();
        glDisable(GL_LIGHTING);
        glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
        gl->switchTo2D(0, window().getWidth(), 0, window().getHeight());
        page.drawMonitor(0, 0, 200, h, blue_ink, blue_ink, blue_ink, DRAW_FLAT);
        gl->switchTo3D();
    }
    /// One frame of the flight, as the player sees it.
    std::vector<Uint8> frame() {
        space.update(0);
        std::array<float, 4> clear;
        glGetFloatv(GL_COLOR_CLEAR_VALUE, clear.data());
        EXPECT_EQ(clear, (std::array<float, 4>{}));
        space.show();
        const Image image = gl->captureScreen(0, 0, 800, 600);
        return {image.getPixels(), image.getPixels() + 800 * 600 * 4};
    }
    OpenGLContext* const gl = OpenGLContext::getInstance();
    inline static const ColorRGBA blue_ink{0, 0, 1, 0.5f};
    Pilot mind = pilot();
};

}  // namespace

// From above and nose up, however the ship lies: its cannon is ahead, on the right wing. The mask
// lies under the ship and shines by itself.
TEST_F(Viewers, ShieldPageGoesFromRedToGreenUnderTheShip) {
    Starship& armed = put(4, Point4(100, 200, 300, 1),
                          "<WingConfig type='wing'><CannonConfig type='cannon'/></WingConfig>");
    armed.setOrientation(Vector4(1, 0, 0, 1));
    armed.setUp(Vector4(0, 0, 1, 1));
    ShieldViewer page;
    page.setCockpit(armed.getHull()->getCockpit());
    const auto expect = [&](const Color& around) {
        glEnable(GL_TEXTURE_2D);  // what the last frame may leave behind
        show(page, 200);
        EXPECT_EQ(std::pair(readPixel(47, 153), readPixel(2, 2)), std::pair(around, around));
        EXPECT_NE(readPixel(153, 153), around);
    };
    show(page, 200);  // tells the page its size
    expect(blue);
    armed.setShield(PartStore::getInstance()->getShield("Simple Shield"));
    expect({128, 128, 0});
    float energy = 100;
    armed.getShield()->testHit(BoundingSphere(armed.getPosition(), 1), energy);
    expect(red);
    armed.getShield()->setUsedPower(1000);
    armed.getShield()->update(20000);
    expect(green);
}

// From the ship's side, undistorted, whole and upright, however far, large or small, also where the
// ship's own up vector is no help, and in a small window.
TEST_F(Viewers, TargetPageShowsWhatIsInReach) {
    TargetViewer page;
    page.setCockpit(ship.getHull()->getCockpit());
    show(page, 100);
    EXPECT_EQ(readPixel(100, 55), black);
    const std::tuple<Point4, float, int, int> targets[] = {
        {place(0, 0, 500), 5, 800, 600},   {place(0, 0, 1000), 5, 800, 600},
        {place(0, 0, 30), 0.2f, 400, 300}, {place(0, 0, 900), 400, 200, 100},
        {place(0, 700, 0), 5, 800, 600},   {Point4(), 5, 800, 600}};
    for (const auto& [place, radius, w, h] : targets) {
        SDL_Event event{.resize = {SDL_VIDEORESIZE, w, h}};
        SDL_PushEvent(&event);
        while (window().pollEvent(event)) continue;
        Beacon& beacon = aim(place, radius);
        show(page, 100);
        EXPECT_EQ(std::pair(readPixel(117, 55), readPixel(100, 45)), std::pair(green, red));
        EXPECT_EQ(std::pair(readPixel(126, 55), readPixel(100, 78)), std::pair(blue, blue));
        beacon.setPosition(Point4(0, 0, 1000.5f, 1));
        show(page, 100);
        EXPECT_EQ(readPixel(100, 55), black) << "out of range";
    }
    aim(Point4(0, 0, 500, 1), 5);
    show(page, 100);
    space.add(std::make_unique<Beacon>(5));  // in its place
    show(page, 100);
    EXPECT_EQ(readPixel(100, 55), black) << "it has ended";
}

// The page of the ship under the camera alone is drawn, and the real frame does not notice.
TEST_F(Viewers, LeaveTheRealFrameAlone) {
    const TempDir dir;
    yard.load("<Hull name='glass' size='7'" + yard.body() + ">" +
              yard.cockpit("<MFD background='C(0|0|1|0.5)' foreground='C(1|1|1|1)' "
                           "pos_rel='P(0.5|0.5|0)' alignement='center|center' mask='" +
                           dir.write("display.bw", masks::full(200, 100)) + "'/>") +
              "</Hull>");
    ship.setHull(PartStore::getInstance()->getHull("glass"));
    ship.setShield(PartStore::getInstance()->getShield("Simple Shield"));
    const Starship& other = put(2, Point4(4, 3, 30, 1));
    Beacon& beacon = aim(Point4(0, 0, 100, 1), 50);
    const Mfd& display = *ship.getHull()->getCockpit()->getMFD(0);
    CameraManagement* cameras = CameraManagement::getInstance();
    cameras->changeCamera(CAM_STARSHIP, ship.getCameras(), CPOS_BACK);
    const auto off = frame();
    const auto shield = frame();
    display.nextClient();
    frame();
    const auto target = frame();
    for (const auto* on : {&shield, &target}) {
        int outside = 0, inside = 0, lit = 0;
        for (int i = 0; i < 800 * 600 * 4; ++i) {
            if (i % 4 == 3) continue;  // alpha is not seen
            const int x = i / 4 % 800 - 300, y = i / 4 / 800 - 250;
            (x >= 0 && x < 200 && y >= 0 && y < 100 ? inside : outside) += (*on)[i] != off[i];
            lit += off[i] == 255;
        }
        EXPECT_EQ(outside, 0);
        EXPECT_GT(inside, 1000);
        EXPECT_GT(lit, 1000) << "there is something to be seen";
    }

    beacon.drawn = 0;
    cameras->changeCamera(CAM_STARSHIP, other.getCameras(), CPOS_FRONT);
    space.update(0);
    EXPECT_EQ(beacon.drawn, 0);
}
