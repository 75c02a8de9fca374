#pragma once

#include "game/object_slot.h"

#include <array>
#include <vector>

class Point4;

/// Files the objects of a galaxy by the cells of space that they are in, so that a question about a
/// neighbourhood or a line need not go through them all. An object tells its galaxy's grid of each
/// change of position by itself.
///
/// Objects of similar reach share a level, whose cells are at least twice as wide as any of them.
/// What cannot be filed, such as a place that is not finite, counts as near everything.
class ObjectGrid {
public:
    /// One filed object.
    struct Entry {
        _GameObject* object = nullptr;
        const ObjectSlot* slot = nullptr;
        int id = 0;
        float reach = 0;  ///< how far from its position the object can be met
    };
    using Found = std::vector<const Entry*>;

    ObjectGrid() = default;
    ObjectGrid(const ObjectGrid&) = delete;
    ObjectGrid& operator=(const ObjectGrid&) = delete;

    /// Files the object of a slot, which keeps its address for as long as the object is filed.
    void insert(const ObjectSlot& slot);
    /// Forgets the object. One that is not filed changes nothing, here and below.
    void erase(_GameObject& object);
    /// The object has another position.
    void move(const _GameObject& object);
    /// Sets the reach of the object; widen() never makes it less.
    void setReach(const _GameObject& object, float reach);
    void widen(const _GameObject& object, float reach);

    /// Fills `found` with all objects that can be met within `reach` of the object's position, or
    /// by the line between two points: each of them once, in no order, and some more. The entries
    /// are good until the next change.
    void findNear(const _GameObject& object, float reach, Found& found) const;
    void findAlong(const Point4& start, const Point4& end, Found& found) const;

private:
    static constexpr int none = -1;
    static constexpr int cell_levels = 16;
    static constexpr int everywhere = cell_levels;  ///< the level without cells

    using Place = std::array<float, 3>;
    using Cell = std::array<int, 3>;

    /// Where an object is filed.
    struct Filing {
        Place place;
        int level;
        Cell cell;
    };
    struct Filed : Entry {
        Filing filing;
        int member;          ///< the index in the list of the level
        int next, previous;  ///< in the chain of a bucket
    };
    /// The objects of a level, and the first of each chain of those whose cells share a bucket.
    struct Level {
        std::vector<int> members;
        std::vector<int> buckets;
    };
    class Capsule;

    static Filing findFiling(const _GameObject& object, float reach);
    static std::size_t findBucket(const Level& level, const Cell& cell);

    void file(int index, const Filing& filing);
    void unfile(int index);
    void chain(int index);
    void growBuckets(Level& level);

    void collect(const Capsule& around, Found& found) const;
    void collectCells(int level, const Capsule& around, float grow, Found& found) const;
    void collectCell(const Level& level, const Cell& cell, const Capsule& around,
                     Found& found) const;

    std::vector<Filed> entries;
    int free_entry = none;  ///< the first of the chain of unused entries
    std::array<Level, cell_levels + 1> levels;
};
