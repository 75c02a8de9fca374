#include "game/object_grid.h"

#include "3d/point.h"
#include "game/game_object.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <utility>

namespace {

constexpr float finest_cell = 64;     // world units
constexpr float farthest = 1e9f;      // coordinate up to which there are cells
constexpr float tolerance = 1e-3f;    // of lengths, for what the exact tests lose in rounding
constexpr float place_error = 1e-5f;  // the same, of coordinates
constexpr std::size_t least_buckets = 16;

float cellSize(int level) {
    return finest_cell * static_cast<float>(1 << level);
}

/// The cell of a coordinate, in cells of an edge of `size`.
int cellAt(float coordinate, float size) {
    const float cells = coordinate / size;
    const int whole = static_cast<int>(cells);
    return cells < static_cast<float>(whole) ? whole - 1 : whole;
}

/// Whether the point can be told from others in cells; NaN cannot.
bool isOrdinary(const Point4& p) {
    return p.w == 1 && std::fabs(p.x) < farthest && std::fabs(p.y) < farthest &&
           std::fabs(p.z) < farthest;
}

}  // namespace

/// Everything within a radius of the line between two points, which may be the same.
class ObjectGrid::Capsule {
public:
    Capsule(const Point4& s, const Point4& e, float r)
        : start{s.x, s.y, s.z}, end{e.x, e.y, e.z}, radius(r) {
        bounded = isOrdinary(s) && isOrdinary(e) && r < farthest;
        for (int i : {0, 1, 2}) {
            way[i] = end[i] - start[i];
            slack = std::max({slack, std::fabs(start[i]), std::fabs(end[i])});
            if (std::fabs(way[i]) > std::fabs(way[main_axis])) main_axis = i;
            squared_length += static_cast<double>(way[i]) * way[i];
        }
        slack = slack * place_error + tolerance;
    }

    /// The axis along which the line leads most.
    int getMainAxis() const { return main_axis; }
    float getRadius() const { return radius * (1 + tolerance) + slack; }

    /// Up to how many cells of an edge of `size` the capsule grown by `grow` may touch; infinite
    /// for what is not finite.
    float countCells(float size, float grow) const {
        if (!bounded) return std::numeric_limits<float>::infinity();
        const float layers = (std::fabs(way[main_axis]) + 2 * grow) / size + 1;
        const float across = (size + 4 * grow) / size + 1;
        return layers * across * across;
    }

    /// The ends along one axis of that part of the line whose coordinates on the main axis lie
    /// between two values; then grown on either side.
    std::pair<float, float> getExtent(int axis, float low, float high, float grow) const {
        float from = start[axis], to = end[axis];
        if (way[main_axis] != 0) {
            from = start[axis] + way[axis] * shareUpTo(low);
            to = start[axis] + way[axis] * shareUpTo(high);
        }
        return {std::min(from, to) - grow, std::max(from, to) + grow};
    }
    std::pair<float, float> getMainExtent(float grow) const {
        const auto [low, high] = std::minmax(start[main_axis], end[main_axis]);
        return {low - grow, high + grow};
    }

    bool isNear(const Filed& entry) const {
        if (!bounded || entry.filing.level == everywhere) return true;
        double along = 0, distance = 0;
        for (int i : {0, 1, 2})
            along += (static_cast<double>(entry.filing.place[i]) - start[i]) * way[i];
        const double share = squared_length > 0 ? std::clamp(along / squared_length, 0.0, 1.0) : 0;
        for (int i : {0, 1, 2}) {
            const double away = entry.filing.place[i] - (start[i] + share * way[i]);
            distance += away * away;
        }
        const double reach = (static_cast<double>(radius) + entry.reach) * (1 + tolerance) + slack;
        return distance <= reach * reach;
    }

private:
    /// The share of the line up to a coordinate on the main axis.
    float shareUpTo(float coordinate) const {
        return std::clamp((coordinate - start[main_axis]) / way[main_axis], 0.0f, 1.0f);
    }

    Place start, end, way;
    double squared_length = 0;
    float radius;
    float slack = 0;
    int main_axis = 0;
    bool bounded;
};

bool ObjectGrid::Filing::isSameCell(const Filing& other) const {
    return hash == other.hash && level == other.level && cell[0] == other.cell[0] &&
           cell[1] == other.cell[1] && cell[2] == other.cell[2];
}

void ObjectGrid::insert(const ObjectSlot& slot) {
    _GameObject& object = **slot;
    int index = free_entry;
    if (index == none) {
        index = static_cast<int>(entries.size());
        entries.emplace_back();
        if (entries.size() > buckets.size()) growBuckets();
    } else {
        free_entry = entries[index].in_level.next;
    }
    Filed& entry = entries[index];
    static_cast<Entry&>(entry) = {&object, &slot, object.getId(), object.getSize()};
    object.grid_entry = index;
    entry.level_by_reach = findLevel(entry.reach);
    file(index, findFiling(object, entry.level_by_reach));
}

void ObjectGrid::erase(_GameObject& object) {
    const int index = std::exchange(object.grid_entry, none);
    if (index == none) return;
    unfile(index);
    entries[index].in_level.next = std::exchange(free_entry, index);
}

void ObjectGrid::move(const _GameObject& object) {
    const int index = object.grid_entry;
    if (index == none) return;

    Filed& entry = entries[index];
    const Filing filing = findFiling(object, entry.level_by_reach);
    if (filing.isSameCell(entry.filing)) {
        entry.filing.place = filing.place;
        return;
    }
    unfile(index);
    file(index, filing);
}

void ObjectGrid::setReach(const _GameObject& object, float reach) {
    if (object.grid_entry == none) return;
    Filed& entry = entries[object.grid_entry];
    entry.reach = reach;
    const int level = findLevel(reach);
    if (level == entry.level_by_reach) return;
    entry.level_by_reach = level;
    move(object);
}

void ObjectGrid::widen(const _GameObject& object, float reach) {
    if (object.grid_entry != none && !(reach <= entries[object.grid_entry].reach))
        setReach(object, reach);
}

int ObjectGrid::findLevel(float reach) {
    int level = 0;
    while (level < cell_levels && !(reach * (1 + tolerance) <= cellSize(level) / 2)) ++level;
    return level;
}

ObjectGrid::Filing ObjectGrid::findFiling(const _GameObject& object, int level) {
    const Point4& p = object.position;
    Filing filing{{p.x, p.y, p.z}, isOrdinary(p) ? level : everywhere, {}, 0};
    if (filing.level != everywhere) {
        const float size = cellSize(filing.level);
        for (int i : {0, 1, 2}) filing.cell[i] = cellAt(filing.place[i], size);
    }
    filing.hash = hashOf(filing.level, filing.cell);
    return filing;
}

std::uint32_t ObjectGrid::hashOf(int level, const Cell& cell) {
    auto hash = static_cast<std::uint32_t>(level);
    for (const int i : cell) hash = (hash ^ static_cast<std::uint32_t>(i)) * 0x9e3779b1U;
    return hash ^ hash >> 16;
}

void ObjectGrid::file(int index, const Filing& filing) {
    entries[index].filing = filing;
    ++levels[filing.level].size;
    chain(index, levels[filing.level].first, &Filed::in_level);
    chain(index, bucketOf(filing.hash), &Filed::in_bucket);
}

void ObjectGrid::unfile(int index) {
    const Filing& filing = entries[index].filing;
    --levels[filing.level].size;
    unchain(index, levels[filing.level].first, &Filed::in_level);
    unchain(index, bucketOf(filing.hash), &Filed::in_bucket);
}

void ObjectGrid::chain(int index, int& first, Link Filed::*link) {
    entries[index].*link = {first, none};
    if (first != none) (entries[first].*link).previous = index;
    first = index;
}

void ObjectGrid::unchain(int index, int& first, Link Filed::*link) {
    const auto [next, previous] = entries[index].*link;
    if (next != none) (entries[next].*link).previous = previous;
    (previous != none ? (entries[previous].*link).next : first) = next;
}

// As many buckets as there can be objects: what moves later finds its place without taking memory.
void ObjectGrid::growBuckets() {
    buckets.assign(std::max(least_buckets, buckets.size() * 2), none);
    for (const Level& level : levels)
        for (int i = level.first; i != none; i = entries[i].in_level.next)
            chain(i, bucketOf(entries[i].filing.hash), &Filed::in_bucket);
}

void ObjectGrid::findNear(const _GameObject& object, float reach, Found& found) const {
    collect(Capsule(object.position, object.position, reach), found);
}

void ObjectGrid::findAlong(const Point4& start, const Point4& end, Found& found) const {
    collect(Capsule(start, end, 0), found);
}

// Where there are more cells to look into than objects, the objects are looked at instead.
void ObjectGrid::collect(const Capsule& around, Found& found) const {
    found.clear();
    found.reserve(entries.capacity());
    for (int i = 0; i < static_cast<int>(levels.size()); ++i) {
        const Level& level = levels[i];
        if (level.size == 0) continue;

        const float grow = cellSize(i) / 2 + around.getRadius();
        if (i != everywhere &&
            around.countCells(cellSize(i), grow) < static_cast<float>(level.size)) {
            collectCells(i, around, grow, found);
            continue;
        }
        for (int member = level.first; member != none; member = entries[member].in_level.next)
            if (around.isNear(entries[member])) found.push_back(&entries[member]);
    }
}

// Goes along the line, one layer of cells after the other, so that each is looked into once.
void ObjectGrid::collectCells(int level, const Capsule& around, float grow, Found& found) const {
    const float size = cellSize(level);
    const int axis = around.getMainAxis(), axis_1 = (axis + 1) % 3, axis_2 = (axis + 2) % 3;
    const auto cellsOf = [size](std::pair<float, float> extent) {
        return std::pair(cellAt(extent.first, size), cellAt(extent.second, size));
    };
    const auto [from, to] = cellsOf(around.getMainExtent(grow));
    Cell cell;
    for (cell[axis] = from; cell[axis] <= to; ++cell[axis]) {
        const float low = static_cast<float>(cell[axis]) * size - grow;
        const float high = static_cast<float>(cell[axis] + 1) * size + grow;
        const auto [from_1, to_1] = cellsOf(around.getExtent(axis_1, low, high, grow));
        const auto [from_2, to_2] = cellsOf(around.getExtent(axis_2, low, high, grow));
        for (cell[axis_1] = from_1; cell[axis_1] <= to_1; ++cell[axis_1])
            for (cell[axis_2] = from_2; cell[axis_2] <= to_2; ++cell[axis_2])
                collectCell(level, cell, around, found);
    }
}

void ObjectGrid::collectCell(int level, const Cell& cell, const Capsule& around,
                             Found& found) const {
    const Filing here{{}, level, cell, hashOf(level, cell)};
    for (int i = buckets[here.hash & (buckets.size() - 1)]; i != none;
         i = entries[i].in_bucket.next)
        if (entries[i].filing.isSameCell(here) && around.isNear(entries[i]))
            found.push_back(&entries[i]);
}
