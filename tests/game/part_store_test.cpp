#include "game/part_store.h"

#include "game/tank.h"
#include "game/wing.h"
#include "tests/support/failure.h"
#include "tests/support/ship_yard.h"

#include <gtest/gtest.h>

namespace {

// Of two parts with one name the later is handed out, though both are counted.
TEST(PartStore, LaterPartOfANameWins) {
    ShipYard yard;
    const std::string tank = "<Tank name='spare' mass='1' size='2' fuel=";
    EXPECT_EQ(yard.load(tank + "'10'/>" + tank + "'30'/>"), 2);
    const std::unique_ptr<Tank> spare(PartStore::getInstance()->getTank("spare"));
    EXPECT_EQ(spare->getCapacity(), 30);
}

// What one ship does to its part must not show in any other ship.
TEST(PartStore, CopiesShareNothingButTheModel) {
    const ShipYard yard;
    const PartStore& store = *PartStore::getInstance();
    const std::unique_ptr<Wing> a(store.getWing("wing")), b(store.getWing("wing"));
    a->damage(40);
    EXPECT_EQ(b->getIntegrity(), 100);
    EXPECT_EQ(b->get3DObject(), a->get3DObject());
}

TEST(PartStore, RefusesFaultyParts) {
    ShipYard yard;
    const std::string hull = "<Hull name='x' size='1'" + yard.body() + ">";
    const std::string wing = "<Wing name='x'" + yard.body() + ">";
    for (const auto& [part, message] :
         {std::pair<std::string, std::string>  //
          {"<Sail name='x'/>", "Partstore::load: unknown part (Sail)"},
          {"<Hull name='x' mass='1'/>", "no such attribute: size"},
          {"<Hull name='x' mass='1' size='-2'/>", "Hull: attribute size: -2 is below 0"},
          {"<Torpedo name='x' mass='1' size='1' power='1' speed='0'/>",
           "Torpedo: attribute speed: 0 is below 1"},
          {"<Shield name='x' mass='1' size='1' power='1' efficiency='0'/>",
           "Shield: attribute efficiency: 0 is below 1"},
          {"<Radar name='x' mass='1' size='1' power='1' range='0'/>",
           "Radar: attribute range: 0 is below 1"},
          {hull + "<Mast/></Hull>", "Hull::Hull: Wrong subelement in Hull (Mast)"},
          {wing + "<Cockpit/></Wing>", "Wing::Wing: Wrong subelement in Wing (Cockpit)"},
          {hull + "<Slot type='w'/></Hull>", "Hull::Hull: unknown slot type (w)"},
          {wing + "<Slot type=''/></Wing>", "Wing::Wing: unknown slot type ()"}})
        EXPECT_EQ(failureOf([&, &part = part] { yard.load(part); }), message);
    EXPECT_EQ(failureOf([&] { PartStore::getInstance()->load(yard.element("<Parts/>")); }),
              "PartStore::load: invalid game file (wrong node type)");
}

}  // namespace
