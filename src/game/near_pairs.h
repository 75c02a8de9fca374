#pragma once

#include "game/object_grid.h"

#include <cstddef>
#include <map>
#include <vector>

/// The broad phase of a galaxy's collision pass: the pairs of objects that may touch, in the order
/// of a walk through all pairs, the lower id first. It leaves out only what cannot meet, and pairs
/// of lasers, which do not care for each other.
class NearPairs {
public:
    struct Pair {
        const ObjectSlot* first;
        const ObjectSlot* second;
    };

    explicit NearPairs(ObjectGrid& g) : grid(g) {}

    /// How far from its position the object can touch another.
    static float findReach(const _GameObject& object);

    /// Begins a pass over all objects of a galaxy, which takes in no other until the end of the
    /// pass.
    void start(const std::map<int, ObjectSlot>& all);
    /// The next pair of objects that are both still there, null at the end of the pass.
    const Pair* next();
    /// An object has moved during the pass: goes on behind the present pair from where all are now.
    void restart();

private:
    using Objects = std::map<int, ObjectSlot>;

    void measure();
    /// Makes the object of that entry the first of the next pairs, and finds the others.
    void approach(Objects::const_iterator entry);

    ObjectGrid& grid;
    const Objects* objects = nullptr;
    Objects::const_iterator first;
    ObjectGrid::Found seconds;  ///< by id; kept for its memory
    std::size_t position = 0;   ///< in `seconds`, of what comes next
    int last_body = 0;          ///< the highest id of what is no laser
    Pair pair{};
};
