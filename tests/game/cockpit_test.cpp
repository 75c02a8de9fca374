#include "game/cockpit.h"

#include "game/camera_management.h"
#include "game/game_camera_interface.h"
#include "game/hull.h"
#include "game/mfd.h"
#include "game/tank.h"
#include "tests/support/events.h"
#include "tests/support/pilots.h"

namespace {

/// A page that does not care where it ends.
struct Page : _2D_Rep {
    void drawMonitor(float, float, float, float, const ColorRGBA& fg, const ColorRGBA&,
                     const ColorRGBA&, DRWenum) const override {
        fg.activate();
        glRectf(-5000, -5000, 5000, 5000);
    }
};

constexpr std::array red{255, 0, 0}, blue{0, 0, 255};

MATCHER_P(IsAbout, color, "") {
    for (int i = 0; i < 3; ++i)
        if (std::abs(arg[i] - color[i]) > 4) return false;
    return true;
}

struct CockpitTest : Pilots {
    CockpitTest() { ship.setPosition(place(9999, 0, 0)); }  // out of sight

    /// An element of any kind that shades from red to green on blue, with green ink.
    std::string control(const std::string& kind, const std::string& place,
                        const std::string& alignment = "left|bottom",
                        const std::string& direction = "right") const {
        return "<" + kind + " pos_rel='P(" + place + "|0)' alignement='" + alignment + "' mask='" +
               mask + "' direction='" + direction +
               "' background='C(0|0|1|1)' foreground='C(0|1|0|1)' start_color='C(1|0|0|1)' "
               "end_color='C(0|1|0|1)'/>";
    }
    std::string hull(const std::string& children) const {
        return "<Hull name='hull' size='7'" + yard.body() + ">" + children + "</Hull>";
    }
    /// A ship that the player flies, with a radar, a white crosshair and these instruments.
    Starship& shipWith(const std::string& controls) {
        std::string text = hull(yard.cockpit(controls));
        yard.load(text.replace(text.find("C(0|0|0|0)"), 10, "C(1|1|1|1)"));
        return put(3, Point4(), "<UserControl/>");
    }
    static Cockpit& cockpitOf(const Starship& ship) { return *ship.getHull()->getCockpit(); }
    static void show(const Cockpit& cockpit) {
        OpenGLContext::getInstance()->startFrame(false);
        cockpit.draw(DRAW_TEXTURE);
    }
    const TempDir dir;
    std::string mask = dir.write("plain.bw", masks::full(80, 40));
};

}  // namespace

// Every pixel of the window, before and after a change of its size: none beside the mask is
// touched, and none of the mask is left out. The mask is an L, 20 by 9, the crosshair one pixel.
TEST_F(CockpitTest, MasksConfineAllThatIsDrawn) {
    std::string shape = "20 9\n\xff\xff\xf0";
    for (int row = 1; row < 9; ++row) shape += std::string("\x80\0\0", 3);
    mask = dir.write("l.bw", shape);
    const char* const columns[] = {"left", "center", "right"};
    const char* const rows[] = {"top", "center", "bottom"};
    const char* const kinds[] = {"MFD",
                                 "RadarInterfaceFront",
                                 "RadarInterfaceBack",
                                 "BatteryInterface",
                                 "Speedometer",
                                 "TankInterface",
                                 "MFD",
                                 "MFD",
                                 "MFD"};
    for (const auto& [w, h] : {std::pair(800, 600), {801, 599}, {640, 320}, {800, 600}}) {
        SDL_Event event{.resize = {SDL_VIDEORESIZE, w, h}};
        SDL_PushEvent(&event);
        while (window().pollEvent(event)) continue;
        for (int i = 0; i < 9; ++i) {
            const int column = i / 3, row = i % 3;
            const std::string alignment = std::string(columns[column]) + '|' + rows[row];
            const double left = column * 10, below = 9 - row * 4.5;
            Cockpit& cockpit = cockpitOf(shipWith(control(kinds[i], "0.25|0.75", alignment)));
            Page page;
            cockpit.addClient(&page);
            show(cockpit);
            std::vector<std::array<unsigned char, 3>> pixels(static_cast<std::size_t>(w * h));
            glPixelStorei(GL_PACK_ALIGNMENT, 1);
            glReadPixels(0, 0, w, h, GL_RGB, GL_UNSIGNED_BYTE, pixels.data());
            int wrong = 0;
            for (int at = 0; at < w * h; ++at) {
                const int x = at % w - static_cast<int>(w * 0.25 - left);
                const int y = at / w - static_cast<int>(h * 0.75 - below);
                const bool bit = (y == 0 && x >= 0 && x < 20) || (x == 0 && y >= 0 && y < 9) ||
                                 at == (h - 1) / 2 * w + (w - 1) / 2;
                wrong += bit != (pixels[at] != std::array<unsigned char, 3>{});
            }
            EXPECT_EQ(wrong, 0) << alignment << " in " << w << " by " << h;
        }
    }
}

// Half a tank, then none, in bars of 80 by 40 that grow in the four directions: at each share of
// the way the colour is that share of the way from red to green. A new battery is a tenth full.
// Of the throttle and the speed the throttle counts. Of two on one place the later is seen.
TEST_F(CockpitTest, BarsGrowAndShade) {
    Starship& ship = shipWith(control("TankInterface", "0.1|0.5", "left|bottom", "left") +
                              control("TankInterface", "0.3|0.5") +
                              control("TankInterface", "0.5|0.5", "left|bottom", "up") +
                              control("TankInterface", "0.7|0.5", "left|bottom", "down") +
                              control("BatteryInterface", "0.3|0.2") +
                              control("Speedometer", "0.3|0.2", "left|center"));
    for (int i = 0; i < 7; ++i) ship.getControl()->handleEvents(ShipYard::key(SDLK_UP));
    for (const float fill : {0.5F, 0.0F}) {
        ship.getTank()->drawFuel(500);
        show(cockpitOf(ship));
        for (const float t : {0.05F, 0.25F, 0.45F, 0.55F, 0.95F}) {
            const int g = static_cast<int>(255 * t);
            const auto color = t < fill ? std::array{255 - g, g, 0} : blue;
            const int x = static_cast<int>(80 * t), y = static_cast<int>(40 * t);
            EXPECT_THAT(readPixel(159 - x, 301), IsAbout(color)) << t;
            EXPECT_THAT(readPixel(240 + x, 338), IsAbout(color)) << t;
            EXPECT_THAT(readPixel(478, 300 + y), IsAbout(color)) << t;
            EXPECT_THAT(readPixel(561, 339 - y), IsAbout(color)) << t;
        }
    }
    for (const auto& [fill, y] : {std::pair(8, 155), {56, 105}, {56, 135}}) {
        EXPECT_NE(readPixel(239 + fill, y), blue) << y;
        EXPECT_EQ(readPixel(240 + fill, y), blue) << y;
    }
}

// Two scopes of 80 by 40 pixels around (200, 300) and (600, 300). All objects are 500 away, half of
// the range; the fainter they are, the more of the blue shows.
TEST_F(CockpitTest, ScopesPlotWhatTheRadarSees) {
    Starship& ship = shipWith(control("RadarInterfaceFront", "0.25|0.5", "center|center") +
                              control("RadarInterfaceBack", "0.75|0.5", "center|center"));
    const std::vector<std::tuple<GAMEOBJenum, Point4, int, int, std::array<int, 3>>> echoes = {
        {GO_STARSHIP, place(-300, 0, 400), 224, 300, red},
        {GO_PLANET, place(300, 0, 400), 176, 300, {76, 102, 204}},
        {GO_TORPEDO, place(0, 300, 400), 200, 312, {204, 102, 51}},
        {GO_LASER, place(0, -300, 400), 200, 288, blue},  // not there
        {GO_SUN, place(-300, 0, -400), 624, 300, {127, 127, 127}},
        {GO_LASER, place(0, 0, -500), 600, 300, {255, 255, 0}},  // selected, larger
    };
    int id = 7;
    for (const auto& [type, pos, x, y, color] : echoes) {
        auto probe = std::make_unique<Probe>(++id | type, 0, 0, type);
        probe->setPosition(pos);
        space.add(std::move(probe));
    }
    const ObjectSlot target = space.getObjectById(id | GO_LASER);
    Pilot(&ship, yard.element(Pilots::control())).select(target);
    show(cockpitOf(ship));
    for (const auto& [type, pos, x, y, color] : echoes) {
        std::array<int, 3> seen{};
        for (int i = 0; i < 3; ++i) seen[i] = color[i] * 65 / 100 + blue[i] * 35 / 100;
        const int radius = pos.z == -500 ? 3 : 2;
        EXPECT_THAT(readPixel(x - radius, y + radius), IsAbout(seen)) << pos;
        EXPECT_EQ(readPixel(x + radius + 1, y), blue) << pos;
    }
    delete *target;
    show(cockpitOf(ship));
    EXPECT_EQ(readPixel(600, 300), blue) << "the target has gone";
    ship.setRadar(nullptr);
    show(cockpitOf(ship));
    EXPECT_EQ(readPixel(224, 300), blue) << "no radar";
}

// The page key turns the player's first display, and does nothing without one. The cockpit shown is
// that of the ship under the camera, whichever way it looks; a display without a page is no fault.
TEST_F(CockpitTest, FliesWithItsShip) {
    const auto turnPage = [&](Starship& ship) {
        SDL_Event minus = ShipYard::key(SDLK_MINUS);
        SDL_PushEvent(&minus);
        events::push(SDL_QUIT);
        EXPECT_EQ(space.run(&ship), SYSTEM_EXIT);
    };
    const Capture no_sound(std::cerr);
    window().enableEvents(SDL_KEYDOWN);
    turnPage(*yard.ship("<UserControl/>"));

    const Starship& other = shipWith(control("MFD", "0.5|0.5"));
    cockpitOf(other).getMFD(0)->clear();
    const auto player = std::make_unique<Starship>(
        yard.element(ShipYard::shipElement("<UserControl/>").replace(14, 1, "4")));
    const Mfd& display = *cockpitOf(*player).getMFD(0);
    CameraManagement* cameras = CameraManagement::getInstance();

    const _2D_Rep* shield_page = display.getCurrent();
    turnPage(*player);
    EXPECT_NE(display.getCurrent(), shield_page);
    turnPage(*player);
    EXPECT_EQ(display.getCurrent(), shield_page);
    for (const auto change : {CHG_CURR_LEFT_WING, CHG_CURR_BACK, CHG_NEXT_RELATED_OBJECT}) {
        cameras->changeCamera(change);
        space.update(1);
        space.show();
        EXPECT_EQ(readPixel(410, 310), blue) << change;
    }
    EXPECT_EQ(cameras->getCurrentCamera()->getGameObject(), &other);
    cameras->changeCamera(CAM_EXPLOSION, player.get());
    space.update(1);
    space.show();
    EXPECT_NE(readPixel(410, 310), blue);
}

TEST_F(CockpitTest, RefusesFaultyCockpits) {
    const std::string clock = control("ClockInterface", "0|0"),
                      middle = control("MFD", "0|0", "left|middle"),
                      back = control("TankInterface", "0|0", "left|bottom", "back");
    mask = "/no/mask.bw";
    const std::pair<std::string, std::string> cockpits[] = {
        {"", "Hull::Hull: cockpit must be specified!"},
        {yard.cockpit() + yard.cockpit(), "Hull::Hull: only one cockpit allowed"},
        {yard.cockpit(clock), "Cockpit::Cockpit: invalid cockpit control type: ClockInterface"},
        {yard.cockpit(back),
         "_CockpitBarControl::_CockpitBarControl: invalid direction (backbut must be one of the "
         "following: left, right, up, down)"},
        {yard.cockpit(control("MFD", "0|0")), "Bitmap::Bitmap: Error loading bitmap /no/mask.bw"}};
    for (const auto& [cockpit, message] : cockpits)
        EXPECT_EQ(failureOf([&, &made = cockpit] { yard.load(hull(made)); }), message);
    const Mfd crooked(yard.element(middle), nullptr);
    EXPECT_EQ(failureOf([&] { crooked.getPosition(); }),
              "_CockpitControl::getPosition: invalid alignment (X)");
}
