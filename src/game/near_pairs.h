#pragma once

#include "game/object_grid.h"

#include <cstdint>
#include <map>
#include <vector>

/// The broad phase of a galaxy's collision pass: the pairs of objects that may touch, in the order
/// of a walk through all pairs, the lower id first. It leaves out only what cannot meet, and pairs
/// of lasers, which do not care for each other.
class NearPairs {
public:
    struct Pair {
        std::uint64_t order;  ///< rises with the first id, then with the second
        const ObjectSlot* first;
        const ObjectSlot* second;
    };

    explicit NearPairs(ObjectGrid& g) : grid(g) {}

    /// How far from its position the object can touch another.
    static float findReach(const _GameObject& object);

    /// Begins a pass over all objects of a galaxy.
    void start(const std::map<int, ObjectSlot>& objects);
    /// The next pair of objects that are both still there, null at the end of the pass.
    const Pair* next();
    /// An object has moved during the pass: goes on behind the present pair from where all are now.
    void restart(const std::map<int, ObjectSlot>& objects);

private:
    void collect(const std::map<int, ObjectSlot>& objects);
    void collectAround(int id, const ObjectSlot& slot);
    void add(int first_id, const ObjectSlot* first, int second_id, const ObjectSlot* second);

    ObjectGrid& grid;
    std::vector<Pair> pairs;
    std::size_t position = 0;
    ObjectGrid::Found found;  ///< kept for its memory, like the pairs
};
