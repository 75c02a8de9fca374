#include "game/game_sound.h"

#include "3d/opengl.h"
#include "game/cannon.h"
#include "game/hull.h"
#include "game/laser.h"
#include "game/simple_game_camera.h"
#include "game/torpedo.h"
#include "game/torpedo_launcher.h"
#include "tests/support/events.h"
#include "tests/support/loudspeaker.h"
#include "tests/support/pilots.h"
#include "tests/support/sounds.h"

namespace {

/// A listener at (0, 100, 0) who looks along +x, with +z up: -y is to the right.
struct GameSoundTest : Pilots {
    GameSoundTest() { OpenGLContext::getInstance()->setCurrentCamera(&ears); }

    int play(const Point4& pos, short vol = 100) const {
        return sound.playSound(SND_WEAPONFIRE, tone, pos, vol, 0);
    }

    GameSound& sound = *GameSound::getInstance();
    const TempDir dir;
    const std::string tone = dir.write("tone.wav", sounds::wave(25500));
    SimpleGameCamera ears{place(0, 100, 0), direction(0, 0, 1), place(9, 100, 0)};
};

TEST_F(GameSoundTest, FallsWithDistanceAndComesFromItsSide) {
    const std::tuple<float, float, short, int, int> shots[] = {
        {0, -650, 100, 0, 37},    {0, 850, 100, 37, 0},     {750, 100, 100, 18, 18},
        {-750, 100, 100, 18, 18}, {300, -200, 100, 13, 40}, {0, 100, 100, 37, 37},
        {0, -200, 32767, 0, 128}, {1500, 100, 100, 0, 0}};
    for (auto [x, y, vol, left, right] : shots) {
        Loudspeaker speaker;
        EXPECT_EQ(play(place(x, y, 0), vol), 0);
        EXPECT_EQ(speaker.hear(), std::pair(left, right)) << "from " << x << ", " << y;
    }
    const Loudspeaker speaker;
    const Capture errors(std::cerr);
    for (float far : {1501.f, NAN}) EXPECT_EQ(play(place(far, 100, 0)), -2);
    OpenGLContext::forgetCamera(ears);
    EXPECT_EQ(play(Point4()), -2) << "nobody listens";
    EXPECT_EQ(sound.playSound(SND_MUSIC, tone, 1, 0), -1) << "no sample";
    for (short vol : {-1, 129}) EXPECT_EQ(sound.playSound(SND_ENGINE, tone, vol, 0), -1);
    EXPECT_EQ(Mix_Playing(-1), 0);
}

// Every deed that makes a noise, by the level of its own sound file and how loud it is from ahead.
TEST_F(GameSoundTest, ShotsAndExplosionsAreHeard) {
    for (auto [name, level] : {std::pair("build/.keep", 0),
                               {"data/explosion.wav", 32000},
                               {"data/torpedo_explode.wav", 16000},
                               {"data/click.wav", 8000}})
        dir.write(name, sounds::wave(level));
    yard.load(
        "<Cannon name='gun' power='10' efficiency='1' sound='" + tone + "'" + yard.body() +
        "/><TorpedoLauncher name='tube' type='torpedo' power='1' maxload='1' range='1' sound='" +
        tone + "'" + yard.body() + "/>");
    Starship& source =
        put(2, place(700, 100, 0),
            "<WingConfig type='wing'><CannonConfig type='gun'/></WingConfig>"
            "<WingConfig type='wing'><TorpedoLauncherConfig type='tube'/></WingConfig>");
    _3D_Rep& wing = *source.getHull()->getSlot(0).item;
    const auto shoot = [gun = dynamic_cast<Cannon*>(wing.getSlot(0).item)] {
        const std::unique_ptr<Laser> shot(gun->fire());
    };
    std::unique_ptr<Torpedo> shark;
    const auto launch = [&] { shark.reset(source.getTorpedoLauncher()->fire()); };
    const auto bang = [](float r) { return 800 * 50 * 4 * static_cast<int>(r) / 300000; };
    const std::tuple<std::function<void()>, int, int> deeds[] = {
        {shoot, 25500, 20},
        {launch, 25500, 24},
        {[&] { shark->setPosition(place(700, 100, 0)), shark->destroy(), shark->update(0); }, 16000,
         6},
        {launch, 8000, 24},
        {[&] { wing.explode(); }, 32000, bang(wing.getBoundingObject()->getRadius())},
        {[&] { source.explode(false); }, 32000, bang(source.getSize())},
        {[&] { wing.explode(), source.explode(false); }, 1, 0},
    };
    const auto before = std::filesystem::current_path();
    std::filesystem::current_path(dir / "build");
    for (const auto& [deed, level, share] : deeds) {
        Loudspeaker speaker;
        deed();
        const auto [left, right] = speaker.hear(level);
        EXPECT_NEAR(left, share, 2) << level;
        EXPECT_NEAR(right, share, 2) << level;
    }
    std::filesystem::current_path(before);
}

// The first flight's loop plays beside another sound, the next one's in its place.
TEST_F(GameSoundTest, AnEngineReplacesTheLastFlightsAndSilencesNothingElse) {
    const Loudspeaker speaker;
    const AudioFactory& mixer = *AudioFactory::getInstance();
    const auto fly = [&](Galaxy& galaxy, Starship& flown) {
        events::flush();
        events::push(SDL_QUIT);
        galaxy.run(&flown);
    };
    const auto silent = yard.ship("<UserControl/>");
    yard.load("<Engine name='engine' power='1' efficiency='1' v_max='1' a_max='1' file='" + tone +
              "'" + yard.body() + "/>");
    auto loud = yard.ship("<UserControl/>");
    {
        Space galaxy(yard.element(yard.galaxyElement()), nullptr);
        sound.playSound(SND_EXPLOSION, tone, 0, -1);
        fly(galaxy, *loud);
        EXPECT_TRUE(mixer.isPlaying(1));
        EXPECT_EQ(mixer.getVolume(1), 0);
        sound.freeChannel(0);
        fly(galaxy, *loud);
        EXPECT_EQ(Mix_Playing(-1), 1);
        EXPECT_TRUE(mixer.isPlaying(0));
        EXPECT_EQ(mixer.getVolume(1), 40) << "as good as new";
    }
    EXPECT_EQ(Mix_Playing(-1), 0);
    loud.reset();
    fly(space, *silent);
    EXPECT_EQ(mixer.getVolume(-1), 40) << "a loop that did not start";
}

}  // namespace
