#include "game/radar.h"

#include "game/cloak.h"
#include "tests/support/pilots.h"

namespace {

using RadarTest = Pilots;

// The ship faces along +x with +y up, so that its right is +z. What is abeam is in both halves,
// what is at the ship's own place too, in the middle. A cloak hides from radars of a lower
// category.
TEST_F(RadarTest, ShowsWhatIsInRangeAndNotHidden) {
    ship.setPosition(place(9000, 0, 0));
    ship.setOrientation(direction(1, 0, 0));
    const std::tuple<Point4, int, int, int, Point4> places[] = {
        {place(9500, 0, 0), 0, 1, 0, place(0, 0, 0.5f)},
        {place(8800, 0, 0), 0, 0, 1, place(0, 0, 0.8f)},
        {place(9000, 0, 500), 0, 1, 1, place(1, 0, 0.5f)},
        {place(9000, -200, 0), 0, 1, 1, place(0, -1, 0.8f)},
        {place(9300, 400, 0), 1, 0, 0, {}},
        {place(8000, 0, 0), 0, 0, 1, place(0, 0, 0)},
        {place(10001, 0, 0), 0, 0, 0, {}},
        {place(9000, 0, 0), 0, 1, 1, place(0, 0, 1)}};
    for (const auto& [pos, cloak, front, back, shown] : places) {
        put(2, pos).setCloak(
            new Cloak(yard.element("<Cloak name='' mass='1' size='1' power='1' cloak_cat='" +
                                   std::to_string(cloak) + "'/>")));
        for (const auto& [half, count] : {std::pair(RADAR_FRONT, front), {RADAR_BACK, back}}) {
            const auto seen = ship.getRadar()->detectObjects(half);
            ASSERT_EQ(seen.size(), count) << pos;
            for (const auto& thing : seen) EXPECT_THAT(thing.pos, IsNear(shown)) << pos;
        }
    }
}

}  // namespace
