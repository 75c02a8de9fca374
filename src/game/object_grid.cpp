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
constexpr float farthest = 1e9F;      // coordinate up to which there are cells
constexpr float tolerance = 1e-3F;    // of lengths, for what the exact tests lose in rounding
constexpr float place_error = 1e-5F;  // the same, of coordinates
constexpr std::size_t least_buckets = 16;

float cellSize(int level) {
    return std::ldexp(finest_cell, level);
}

int cellAt(float coordinate, int level) {
    return static_cast<int>(std::floor(coordinate / cellSize(level)));
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
        double length = 0, along = 0, distance = 0;
        for (int i : {0, 1, 2}) {
            length += static_cast<double>(way[i]) * way[i];
            along += (static_cast<double>(entry.filing.place[i]) - start[i]) * way[i];
        }
        const double share = length > 0 ? std::clamp(along / length, 0.0, 1.0) : 0;
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
        return std::clamp((coordinate - start[main_axis]) / way[main_axis], 0.0F, 1.0F);
    }

    Place start, end, way;
    float radius;
    float slack = 0;
    int main_axis = 0;
    bool bounded;
};

void ObjectGrid::insert(const ObjectSlot& slot) {
    _GameObject& object = **slot;
    int index = free_entry;
    if (index == none) {
        index = static_cast<int>(entries.size());
        entries.emplace_back();
    } else {
        free_entry = entries[index].next;
    }
    static_cast<Entry&>(entries[index]) = {&object, &slot, object.getId(), object.getSize()};
    object.grid_entry = index;
    file(index, findFiling(object, entries[index].reach));
}

void ObjectGrid::erase(_GameObject& object) {
    const int index = std::exchange(object.grid_entry, none);
    if (index == none) return;
    unfile(index);
    entries[index].next = std::exchange(free_entry, index);
}

void ObjectGrid::move(const _GameObject& object) {
    const int index = object.grid_entry;
    if (index == none) return;

    Filed& entry = entries[index];
    const Filing filing = findFiling(object, entry.reach);
    if (filing.level == entry.filing.level && filing.cell == entry.filing.cell) {
        entry.filing.place = filing.place;
        return;
    }
    unfile(index);
    file(index, filing);
}

void ObjectGrid::setReach(const _GameObject& object, float reach) {
    if (object.grid_entry == none) return;
    entries[object.grid_entry].reach = reach;
    move(object);
}

void ObjectGrid::widen(const _GameObject& object, float reach) {
    if (object.grid_entry != none && !(reach <= entries[object.grid_entry].reach))
        setReach(object, reach);
}

ObjectGrid::Filing ObjectGrid::findFiling(const _GameObject& object, float reach) {
    const Point4& p = object.position;
    Filing filing{{p.x, p.y, p.z}, 0, {}};
    while (filing.level < cell_levels && !(reach * (1 + tolerance) <= cellSize(filing.level) / 2))
        ++filing.level;

    if (!isOrdinary(p)) filing.level = everywhere;
    if (filing.level != everywhere)
        for (int i : {0, 1, 2}) filing.cell[i] = cellAt(filing.place[i], filing.level);
    return filing;
}

void ObjectGrid::file(int index, const Filing& filing) {
    Level& level = levels[filing.level];
    entries[index].filing = filing;
    entries[index].member = static_cast<int>(level.members.size());
    level.members.push_back(index);
    if (level.members.size() > level.buckets.size())
        growBuckets(level);
    else
        chain(index);
}

void ObjectGrid::unfile(int index) {
    const Filed& entry = entries[index];
    Level& level = levels[entry.filing.level];

    const int last = level.members.back();
    level.members[entry.member] = last;
    entries[last].member = entry.member;
    level.members.pop_back();

    if (entry.next != none) entries[entry.next].previous = entry.previous;
    if (entry.previous != none)
        entries[entry.previous].next = entry.next;
    else
        level.buckets[findBucket(level, entry.filing.cell)] = entry.next;
}

void ObjectGrid::chain(int index) {
    Filed& entry = entries[index];
    Level& level = levels[entry.filing.level];
    int& first = level.buckets[findBucket(level, entry.filing.cell)];
    entry.previous = none;
    entry.next = first;
    if (first != none) entries[first].previous = index;
    first = index;
}

void ObjectGrid::growBuckets(Level& level) {
    level.buckets.assign(std::max(least_buckets, level.buckets.size() * 2), none);
    for (const int member : level.members) chain(member);
}

std::size_t ObjectGrid::findBucket(const Level& level, const Cell& cell) {
    std::uint32_t hash = 0;
    for (const int i : cell) hash = (hash ^ static_cast<std::uint32_t>(i)) * 0x9e3779b1U;
    return (hash >> 8) & (level.buckets.size() - 1);
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
    for (int i = 0; i < static_cast<int>(levels.size()); ++i) {
        const Level& level = levels[i];
        if (level.members.empty()) continue;

        const float grow = cellSize(i) / 2 + around.getRadius();
        if (around.countCells(cellSize(i), grow) < static_cast<float>(level.members.size())) {
            collectCells(i, around, grow, found);
            continue;
        }
        for (const int member : level.members)
            if (around.isNear(entries[member])) found.push_back(&entries[member]);
    }
}

// Goes along the line, one layer of cells after the other, so that each is looked into once.
void ObjectGrid::collectCells(int level, const Capsule& around, float grow, Found& found) const {
    const float size = cellSize(level);
    const int axis = around.getMainAxis(), axis_1 = (axis + 1) % 3, axis_2 = (axis + 2) % 3;
    const auto cellsOf = [level](std::pair<float, float> extent) {
        return std::pair(cellAt(extent.first, level), cellAt(extent.second, level));
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
                collectCell(levels[level], cell, around, found);
    }
}

void ObjectGrid::collectCell(const Level& level, const Cell& cell, const Capsule& around,
                             Found& found) const {
    for (int i = level.buckets[findBucket(level, cell)]; i != none; i = entries[i].next)
        if (entries[i].filing.cell == cell && around.isNear(entries[i]))
            found.push_back(&entries[i]);
}
