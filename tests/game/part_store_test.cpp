#include "game/part_store.h"

#include "tests/support/failure.h"
#include "tests/support/ship_yard.h"

#include <gtest/gtest.h>

namespace {

TEST(PartStore, RefusesFaultyParts) {
    ShipYard yard;
    const std::string hull = "<Hull name='x' size='1'" + yard.body() + ">";
    for (const auto& [part, message] :
         {std::pair<std::string, std::string>  //
          {"<Sail name='x'/>", "Partstore::load: unknown part (Sail)"},
          {"<Hull name='x' mass='1' size='-2'/>", "Hull: attribute size: -2 is below 0"},
          {"<Torpedo name='x' mass='1' size='1' power='1' speed='0'/>",
           "Torpedo: attribute speed: 0 is below 1"},
          {"<Shield name='x' mass='1' size='1' power='1' efficiency='0'/>",
           "Shield: attribute efficiency: 0 is below 1"},
          {hull + "<Mast/></Hull>", "Hull::Hull: Wrong subelement in Hull (Mast)"},
          {hull + "<Slot type='w'/></Hull>", "Hull::Hull: unknown slot type (w)"}})
        EXPECT_EQ(failureOf([&, &part = part] { yard.load(part); }), message);
}

}  // namespace
