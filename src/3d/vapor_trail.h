#pragma once

#include "3d/color_rgba.h"
#include "3d/point.h"
#include "game/drawable.h"

#include <list>

/// One square of vapour, which grows and fades as it gets older. Times are milliseconds.
struct vapor_t {
    vapor_t(const ColorRGBA& c, const Point4& p, unsigned int l, unsigned int s_s,
            unsigned int e_s);

    ColorRGBA color;
    float size;
    Point4 pos;
    int life;             ///< what is left of it
    int time_diff = 100;  ///< between two showings
    int tmp = 0;          ///< since the last showing
    float alpha_factor;   ///< alpha lost per millisecond
    float x_factor;       ///< size gained per millisecond
    float y_factor;       ///< the same; this one is in use
    bool draw = true;     ///< to be shown at the next draw()
};

/// The trails that ships leave behind: squares of vapour that face the camera. Made on first use,
/// lives until the process ends.
class VaporTrail {
public:
    using Effects = std::list<vapor_t>;

    static VaporTrail* getInstance();

    VaporTrail(const VaporTrail&) = delete;
    VaporTrail& operator=(const VaporTrail&) = delete;

    /// Adds a square at `p` that lives for `l` milliseconds and grows from edge `s_s` to `e_s`. The
    /// entry returned is valid until the first update after the end of its life.
    Effects::iterator registerEffect(const ColorRGBA& c, const Point4& p, unsigned int l,
                                     unsigned int s_s, unsigned int e_s);

    /// Ages all squares by `timediff` milliseconds and removes those whose life was over before.
    void update(unsigned int timediff);
    /// Draws the squares whose time for a showing has come, turned towards the game's camera.
    void draw(DRWenum mode);

private:
    VaporTrail() = default;

    static VaporTrail* instance;
    Effects effects;
};
