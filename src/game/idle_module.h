#pragma once

#include "3d/point.h"

#include <list>

class AIControl;
class XMLElement;

/// One way-point of a patrol.
struct NavEntry_t {
    Point4 point;
    float speed;  ///< world units per second
};

/// How a pilot spends its time without a target: it flies a closed round of way-points and looks
/// for the ships that it is to attack.
class IdleModule {
public:
    /// Reads an "IdleModule" element, whose children are the way-points. Throws Exception on a
    /// wrong element and on a patrol without way-points.
    IdleModule(const XMLElement& node, AIControl* a);
    // The patrol is held at one of its own way-points.
    IdleModule(const IdleModule&) = delete;
    IdleModule& operator=(const IdleModule&) = delete;

    /// Begins the patrol at its first way-point.
    void activate();
    /// Flies on, and throws the slot of the nearest target within radar range. A cloak hides nobody
    /// from it.
    void update(int time_diff);

private:
    void flyToCurrentEntry();
    void lookForTarget();

    std::list<NavEntry_t> nav_entry_list;
    std::list<NavEntry_t>::const_iterator current_nav_entry;
    AIControl* aic;
    float tol;  ///< a way-point is reached below this distance
};
