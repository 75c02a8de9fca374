#pragma once

#include "3d/point.h"
#include "game/control.h"
#include "game/object_slot.h"

#include <list>
#include <memory>
#include <vector>

class AttackModule;
class DefenseModule;
class IdleModule;
class TacticalModule;
class XMLElement;

/// What a pilot is about.
enum AISTATEenum {
    AI_STATE_IDLE = 0,      ///< on patrol
    AI_STATE_TACTICAL = 1,  ///< after a target
    AI_STATE_DEFENSE = 2,
};

/// The computer's fighting pilot. In each frame the module of the present state names a point to go
/// to and a speed; one steering layer, the same in all states, flies there, feels ahead with four
/// rays and finds a way past what they meet.
///
/// A module ends its state by throwing out of its update: the state that follows, or the galaxy's
/// slot of a ship to attack.
class AIControl : public _Control {
public:
    /// Reads an "AIControl" element: its modules and the ships that it attacks. Throws Exception on
    /// a wrong element or child, and when a module is missing.
    AIControl(Starship* s, const XMLElement& node);
    ~AIControl() override;

protected:
    friend class AttackModule;
    friend class IdleModule;
    friend class TacticalModule;

    /// Lets the module of the present state decide, then steers for `td` milliseconds.
    void updateAI(int td) override;

    /// The ship in a slot, null when it has gone. What is no ship is nobody's target.
    static Starship* findShip(const ObjectSlot& slot);
    /// The top speed of the ship, 0 without an engine.
    float getTopSpeed() const;

    /// Fires in this same frame.
    void fireWeapon(WPenum wm);
    /// Leaves the choice of the weapon against `t` to the attack module.
    void doAttack(Starship* t);
    /// Selects `s` if it is what the ship points at, within reach of a torpedo.
    void lockTarget(Starship* s);

    std::unique_ptr<IdleModule> idle;
    std::vector<std::unique_ptr<TacticalModule>> tacticals;
    std::unique_ptr<DefenseModule> defense;
    std::unique_ptr<AttackModule> attack;
    int current_tactical = 0;
    std::list<int> targets;         ///< ids of the ships that this pilot attacks
    Point4 nav_point;               ///< where the module wants to go
    float nav_speed = 0;            ///< how fast, in world units per second
    float distance = 0;             ///< to `nav_point`, as of the start of the frame
    Point4 tmp_point;               ///< a way past an obstacle
    bool tmp_point_valid = false;   ///< the ship steers at `tmp_point` instead of `nav_point`
    float dist_to_point = 0;        ///< to the point steered at, as of the last frame
    float ray_length_factor = 0;    ///< length of the feelers per unit of speed
    float ray_length_offset = 0;    ///< length of the feelers beyond the ship's own size
    float tmp_point_threshold = 0;  ///< how near to `tmp_point` counts as arrived
    AISTATEenum current_state = AI_STATE_IDLE;

private:
    void readChildren(const XMLElement& node);
    void runModule(int td);
    void changeState(AISTATEenum state);
    void beginAttack(const ObjectSlot& target);

    void turnTowards(const Vector4& destination, int td);
    void adjustThrottle(int td);
    void avoidObstacles(const Point4& current_point);
    void passObstacle(const _GameObject& obstacle, const Point4& free_edge_point,
                      const Point4& current_point);
};
