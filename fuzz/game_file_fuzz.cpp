// A game file, whole or in part: a section that it lacks is that of the tiny game of the tests. It
// is loaded as the game loads it, and in each galaxy a moment passes.

#include "3d/font.h"
#include "3d/font_factory.h"
#include "3d/gfx_factory.h"
#include "bench/campaign/blind.h"
#include "fuzz/fuzz.h"
#include "game/galaxy.h"
#include "game/game_event.h"
#include "game/level.h"
#include "game/part_store.h"
#include "game/starship.h"
#include "game/story_teller.h"
#include "game/world.h"
#include "main/menu_factory.h"
#include "tests/support/events.h"
#include "tests/support/tiny_game.h"
#include "xml/xml_parser.h"

#include <cstdlib>
#include <filesystem>
#include <map>
#include <utility>

namespace {

/// Let go of what the game keeps until it ends.
void forgetFonts(FontFactory& factory);
void forgetMenu();

template <auto fonts>
struct Fonts {
    friend void forgetFonts(FontFactory& factory) { (factory.*fonts).clear(); }
};
template struct Fonts<&FontFactory::fonts>;

template <auto instance>
struct Menu {
    friend void forgetMenu() { delete std::exchange(*instance, nullptr); }
};
template struct Menu<&MenuFactory::instance>;

constexpr int frame_time = 20;  // milliseconds
constexpr int frames = 5;
constexpr int keys = 100;

using Sections = std::map<std::string, XMLElement>;

class Arena : public Galaxy {
public:
    using Galaxy::Galaxy, Galaxy::receive;

    void pass() {
        update(frame_time);
        detectCollisions();
        show();
    }
};

template <class Visit>
void forEachChild(const XMLElement& parent, Visit visit) {
    for (XMLElement child = parent.getFirstChild(); !child.isNull(); child = child.getNext())
        visit(child);
}

/// The catalogues that are loaded once in a game, from the tiny game unless an input has some.
class Catalogues {
public:
    explicit Catalogues(Sections tiny) : tiny(std::move(tiny)) {}

    /// The sections of an input, and those that it lacks.
    Sections load(const Sections& own) {
        Sections all = own;
        all.insert(tiny.begin(), tiny.end());
        const bool strange =
            own.contains("Fonts") || own.contains("MenuConfig") || own.contains("PartSection");
        if (strange || !pristine) {
            forget();
            loadInto(all);
        }
        pristine = !strange;
        return all;
    }

private:
    void forget() {
        pristine = false;
        PartStore::getInstance()->clear();
        forgetMenu();
        forgetFonts(*FontFactory::getInstance());
    }
    static void loadInto(const Sections& sections) {
        FontFactory::getInstance()->load(sections.at("Fonts"));
        MenuFactory::createInstance(sections.at("MenuConfig"));
        PartStore::getInstance()->load(sections.at("PartSection"));
    }

    const Sections tiny;
    bool pristine = false;
};

Sections findSections(const XMLElement& root) {
    Sections sections;
    forEachChild(
        root, [&](const XMLElement& child) { sections.insert_or_assign(child.getName(), child); });
    return sections;
}

/// A landing waits for a key: there are enough for all planets of a crowded galaxy.
void fly(const XMLElement& galaxy, Starship& ship) {
    Arena arena(galaxy, nullptr);
    arena.receive(&ship);
    try {
        for (int i = 0; i < frames; ++i) {
            events::flush();
            events::push(SDL_KEYDOWN, keys);
            arena.pass();
        }
    } catch (const GameOverEvent&) {
        // as in the game
    }
}

struct LoadedWorld {
    explicit LoadedWorld(const XMLElement& node) { World::init(node, nullptr); }
    ~LoadedWorld() { World::getInstance()->destroy(); }
    LoadedWorld(const LoadedWorld&) = delete;
    LoadedWorld& operator=(const LoadedWorld&) = delete;
};

void play(const Sections& sections) {
    const LoadedWorld world(sections.at("WorldSection"));
    Starship ship(sections.at("Starship"));
    forEachChild(sections.at("LevelSection"),
                 [&](const XMLElement& level) { fuzz::attempt([&] { Level(level, &ship); }); });
    forEachChild(sections.at("WorldSection"), [&](const XMLElement& universe) {
        forEachChild(universe,
                     [&](const XMLElement& galaxy) { fuzz::attempt([&] { fly(galaxy, ship); }); });
    });
}

const XMLParser& tinyGame() {
    static const TinyGame game;
    std::filesystem::current_path(game.getDirectory());
    static const XMLParser parser("../data/game.xml");
    return parser;
}

}  // namespace

int LLVMFuzzerInitialize(int*, char***) {
    fuzz::silence();
    blind::start(0);
    tinyGame();
    GFX_Factory& effects = *GFX_Factory::getInstance();
    effects.addAnimatedSprite("starship_explosion", "../data/tarvex_explosion/explosion*.png", 101);
    effects.addAnimatedSprite("torpedo_explosion",
                              "../data/tarvex_explosion/torpedo_explosion_blue*.png", 101);
    return 0;
}

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static Catalogues catalogues(findSections(tinyGame().getRootElement()));
    srand(1);
    fuzz::attempt([&] {
        const XMLParser parser(fuzz::folder().write("game.xml", fuzz::toText(data, size)));
        const XMLElement root = parser.getRootElement();
        if (root.getName() != "TarvexGame") return;
        play(catalogues.load(findSections(root)));
    });
    return 0;
}
