#pragma once

#include "game/object_slot.h"

#include <array>
#include <cstdint>
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
        bool isSameCell(const Filing& other) const;

        Place place;
        int level;
        Cell cell;
        std::uint32_t hash;  ///< of level and cell
    };
    /// The neighbours of an entry in a chain of entries.
    struct Link {
        int next, previous;
    };
    struct Filed : Entry {
        Filing filing;
        int level_by_reach;  ///< the level on which it is filed wherever there are cells
        Link in_bucket, in_level;
    };
    /// The chain of all that is filed on a level.
    struct Level {
        int first = none;
        int size = 0;
    };
    class Capsule;

    static int findLevel(float reach);
    static Filing findFiling(const _GameObject& object, int level);
    static std::uint32_t hashOf(int level, const Cell& cell);

    void file(int index, const Filing& filing);
    void unfile(int index);
    void chain(int index, int& first, Link Filed::*link);
    void unchain(int index, int& first, Link Filed::*link);
    void growBuckets();
    int& bucketOf(std::uint32_t hash) { return buckets[hash & (buckets.size() - 1)]; }

    void collect(const Capsule& around, Found& found) const;
    void collectCells(int level, const Capsule& around, float grow, Found& found) const;
    void collectCell(int level, const Cell& cell, const Capsule& around, Found& found) const;

    std::vector<Filed> entries;
    int free_entry = none;     ///< the first of the chain of unused entries
    std::vector<int> buckets;  ///< the first of each chain of those whose hashes end alike
    std::array<Level, cell_levels + 1> levels;
};
