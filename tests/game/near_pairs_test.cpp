#include "game/near_pairs.h"

#include "game/game_event.h"
#include "game/hull.h"
#include "game/laser.h"
#include "game/shield.h"
#include "game/torpedo.h"
#include "tests/support/events.h"
#include "tests/support/landing.h"
#include "tests/support/pilots.h"
#include "tests/support/plain_galaxy.h"
#include "tests/support/tiny_game.h"

#include <cmath>
#include <random>

namespace {

/// A galaxy that is filled and stirred by chance, in the same way for the same seed.
template <class Base>
struct Melee : Base {
    Melee(ShipYard& yard, const XMLElement& element)
        : Base(element, nullptr),
          player_element(yard.element(ShipYard::shipElement("<UserControl/>"))) {
        for (const char* id : {"1", "2", "4", "5", "32769", "40000"})
            for (const char* hull : {"'hull'", "'barge'"}) {
                std::string text = ShipYard::shipElement("<WingConfig type='wing'/>");
                text.replace(text.find("'3'"), 3, std::string("'") + id + "'");
                text.replace(text.find("'hull'"), 6, hull);
                ships.push_back(yard.element(text));
            }
    }

    /// What is known of the galaxy in the course of time, comparable to the last bit.
    std::string play(unsigned int seed) {
        random.seed(seed);
        extent = std::array{40.0F, 200.0F, 2000.0F}[seed % 3];
        origin = std::array{0.0F, 0.0F, -90000.0F, 2e6F}[seed % 4];
        Starship player(player_element);
        if (seed % 32 == 0) {
            player.setShield(PartStore::getInstance()->getShield("Simple Shield"));
            events::push(SDL_QUIT);
            this->run(&player);
            events::push(SDL_KEYDOWN, 60);  // for the landings
        }
        for (const XMLElement& ship : ships)
            if (chance(2)) addShip(ship);
        shoot(seed % 50 == 0 ? 700 : 8);

        facts.clear();
        for (int frame = 0; frame < 3; ++frame) {
            for (const auto& [id, slot] : this->getObjects())
                if (*slot && chance(3)) stir(**slot);
            srand(seed);
            note(this->detectCollisions());
            for (const auto& [id, slot] : this->getObjects())
                if (*slot) noteObject(**slot);
            this->update(100);
            for (int line = 0; line < 20; ++line) note(look());
        }
        note(events::flush());
        return facts;
    }

private:
    void note(auto... values) {
        (facts.append(reinterpret_cast<const char*>(&values), sizeof values), ...);
    }
    /// Whatever a collision could have changed.
    void noteObject(_GameObject& object) {
        note(object.getId());
        const Vector4 place(object.getPosition()), middle(object.getBoundingObject().getCenter());
        for (const Vector4& v : {object.getOrientation(), object.getUp(), place, middle})
            note(v.x, v.y, v.z);
        if (auto* laser = dynamic_cast<Laser*>(&object)) note(laser->getEnergy());
        if (auto* torpedo = dynamic_cast<Torpedo*>(&object))
            note(torpedo->getEnergy(), torpedo->getTTL());
        if (auto* ship = dynamic_cast<Starship*>(&object)) {
            note(ship->getVelocity(), ship->getHull()->getIntegrity());
            if (const _3D_Rep* wing = ship->getHull()->getSlot(0).item) note(wing->getIntegrity());
            if (ship->getShield()) note(ship->getShield()->getCurrentEnergy());
        }
    }
    bool chance(unsigned int n) { return random() % n == 0; }
    float any() { return std::uniform_real_distribution<float>(-1, 1)(random) * extent; }
    Vector4 direction() { return Vector4(any(), any(), any(), 1).normalize(); }
    /// Half of the places are on a lattice, so that distances can be the same.
    Point4 place() {
        Point4 p(any(), any(), any(), 1);
        if (chance(2)) p = Point4(std::round(p.x / 16) * 16, std::round(p.y / 16) * 16, 0, 1);
        return p + Vector4(origin, 0, 0, 1);
    }
    void stir(_GameObject& object) {
        object.setPosition(chance(50) ? Point4(NAN, 0, INFINITY, 1) : place());
        object.setOrientation(direction());
        if (chance(4)) object.setUp(direction());
    }
    void addShip(const XMLElement& element) {
        auto ship = std::make_unique<Starship>(element);
        if (chance(2)) ship->setShield(PartStore::getInstance()->getShield("Simple Shield"));
        ship->setVelocity(100);
        stir(*ship);
        this->add(std::move(ship));
    }
    void shoot(int num_lasers) {
        auto gun = std::make_unique<Probe>(0, 0, 0, GO_SUN);
        std::function<void()>& deed = gun->deed;
        this->add(std::move(gun));
        deed = [this, num_lasers] {
            std::list<Laser*> lasers;
            for (int i = 0; i < num_lasers; ++i)
                lasers.push_back(new Laser(nullptr, 15, place(), direction(), direction(), 300));
            throw LaserFiredEvent(lasers);
        };
        this->update(0);
        deed = [] { throw TorpedoFiredEvent(PartStore::getInstance()->getTorpedo("torpedo")); };
        for (int i = 0; i < 2; ++i) this->update(0);
        deed = nullptr;
    }
    int look() {
        const Point4 start = place();
        const Point4 end = chance(2) ? place() : start + direction() * (extent / 8);
        const _GameObject* ego = *this->getObjectById(0x5001);
        const ObjectSlot seen = this->getObjectByLine(ego, start, end);
        return seen ? (*seen)->getId() : 0;
    }

    XMLElement player_element;
    std::vector<XMLElement> ships;
    std::mt19937 random;
    float extent = 0, origin = 0;
    std::string facts;
};

}  // namespace

// What is left out cannot meet: everybody ends as if all pairs and all objects had been asked.
TEST(NearPairs, GalaxiesFareAsIfAllPairsWereTried) {
    const Capture silence(std::cout), no_sound_device(std::cerr);
    const TempDir dir;
    ShipYard yard;
    yard.load(
        "<Hull name='barge' mass='1' size='1' resistance='0' explosion_name='starship_explosion' "
        "rep3d='" +
        dir.write("big.ASE", boxModel(90)) + "'>" + yard.cockpit() +
        "<Slot type='Wing' trans_offset='P(9|0|0)'/></Hull>");
    std::string planets;
    for (const std::string id : {"1", "2", "33000"})
        planets +=
            "<Planet id='" + id + "' name='' pos='P(0|0|0)' velocity='0'" + yard.body() + "/>";
    const XMLElement element = yard.element(yard.galaxyElement(planets));
    loadLandingFonts(yard);
    events::flush();

    Melee<Galaxy> galaxy(yard, element);
    Melee<PlainGalaxy> plain(yard, element);
    for (unsigned int seed = 0; seed < 2000; ++seed)
        ASSERT_TRUE(galaxy.play(seed) == plain.play(seed)) << "seed " << seed;
}
