#include "game/ai_control.h"

#include "3d/line.h"
#include "3d/plane.h"
#include "3d/util3d.h"
#include "game/attack_module.h"
#include "game/defense_module.h"
#include "game/engine.h"
#include "game/galaxy.h"
#include "game/idle_module.h"
#include "game/starship.h"
#include "game/tactical_module.h"
#include "main/log_factory.h"
#include "xml/xml_element.h"

#include <algorithm>
#include <array>
#include <iostream>
#include <map>
#include <string>

namespace {

constexpr float turn_rate = 40;        // degrees per second
constexpr int throttle_time = 20;      // milliseconds in which the throttle moves by a percent
constexpr float safety_margin = 1.1f;  // of the ship's size, for the feelers
constexpr float clearance = 2;         // times the ship's size, beside an obstacle

constexpr int num_rays = 4;
constexpr int no_ray = -1;

/// The corners of a square around the ship, from which the feelers start. Neighbours follow each
/// other round the square.
using Corners = std::array<Point4, num_rays>;

/// What the feelers have met.
struct Survey {
    /// Notes that a ray has met nothing.
    void addFree(int ray) {
        last_last_not_obstacle = last_not_obstacle;
        last_not_obstacle = ray;
    }
    /// Notes what a ray has met, and how bad that is.
    void addObstacle(int ray, const _GameObject& obstacle, float danger) {
        ++num_obstacles;
        if (danger > max_danger) {
            max_danger = danger;
            most_dangerous = &obstacle;
        }
        if (danger < min_danger) {
            min_danger = danger;
            least_dangerous_ray = ray;
        }
        last_last_obstacle = last_obstacle;
        last_obstacle = ray;
    }

    /// Where there is most room: a corner, or the middle between two.
    Point4 findFreeEdge(const Corners& start) const {
        switch (num_obstacles) {
            case 1:
                return start[(last_obstacle + 2) % num_rays];
            case 2:
                if ((last_obstacle + last_last_obstacle) % 2 == 0) return start[last_not_obstacle];
                return {start[last_not_obstacle], start[last_last_not_obstacle]};
            case 3:
                return start[last_not_obstacle];
            case 4:
                return start[least_dangerous_ray];
            default:
                throw Exception("AIControl::updateAI: more than 4 obstacles");
        }
    }

    int num_obstacles = 0;
    int last_obstacle = no_ray, last_last_obstacle = no_ray;
    int last_not_obstacle = no_ray, last_last_not_obstacle = no_ray;
    int least_dangerous_ray = 0;  // any ray, where all are as bad as can be
    float max_danger = 0, min_danger = 1000000;
    const _GameObject* most_dangerous = nullptr;
};

/// The larger and the nearer an object, the worse. Below 0 for one that the ship is inside of.
float rateDanger(const Point4& s_pos, const _GameObject& object) {
    const float size = object.getSize();
    return size / (Vector4(s_pos, object.getPosition()).getLength() - size);
}

/// Sends a ray from each corner to where they all meet.
Survey lookAhead(const Starship& ship, const Corners& start, const Point4& end) {
    Survey survey;
    for (int i = 0; i < num_rays; ++i) {
        const ObjectSlot obstacle = ship.getGalaxy()->getObjectByLine(&ship, start[i], end);
        if (obstacle && *obstacle)
            survey.addObstacle(i, **obstacle, rateDanger(ship.getPosition(), **obstacle));
        else
            survey.addFree(i);
    }
    return survey;
}

}  // namespace

AIControl::AIControl(Starship* s, const XMLElement& node) : _Control(s, CTRL_AI) {
    readChildren(node);
    if (tacticals.empty() || !idle || !attack || !defense)
        throw Exception("AIControl::AIControl: invalid AI configuration (missing nodes)");
    idle->activate();
}

AIControl::~AIControl() = default;

void AIControl::readChildren(const XMLElement& node) {
    const auto reject = [](const XMLElement& e) {
        throw Exception("AIControl::AIControl: wrong xml node type (" + e.getName() + ")");
    };
    using Reader = void (*)(AIControl&, const XMLElement&);
    static const std::map<std::string, Reader> readers = {
        {"IdleModule",
         [](AIControl& c, const XMLElement& e) { c.idle = std::make_unique<IdleModule>(e, &c); }},
        {"TacticalModule",
         [](AIControl& c, const XMLElement& e) {
             c.tacticals.push_back(std::make_unique<TacticalModule>(e, &c));
         }},
        {"DefenseModule",
         [](AIControl& c, const XMLElement& e) {
             c.defense = std::make_unique<DefenseModule>(e, &c);
         }},
        {"AttackModule",
         [](AIControl& c, const XMLElement& e) {
             c.attack = std::make_unique<AttackModule>(e, &c);
         }},
        {"AITarget",
         [](AIControl& c, const XMLElement& e) {
             c.targets.push_back(e.getAttributeAsInt("id", 10) | GO_STARSHIP);
         }},
    };

    if (node.getName() != "AIControl") reject(node);
    for (XMLElement child = node.getFirstChild(); !child.isNull(); child = child.getNext()) {
        const auto reader = readers.find(child.getName());
        if (reader == readers.end()) reject(child);
        reader->second(*this, child);
    }
}

Starship* AIControl::findShip(const ObjectSlot& slot) {
    return slot ? dynamic_cast<Starship*>(*slot) : nullptr;
}

float AIControl::getTopSpeed() const {
    const Engine* engine = ship->getEngine();
    return engine ? static_cast<float>(engine->getVMax()) : 0;
}

void AIControl::fireWeapon(WPenum wm) {
    weapon_mode = wm;
    fired = true;
}

void AIControl::doAttack(Starship* t) {
    attack->attack(t);
}

void AIControl::lockTarget(Starship* s) {
    const ObjectSlot ahead = findAhead(static_cast<float>(ship->getTorpedoRange()));
    if (ahead && *ahead == s) select(ahead);
}

void AIControl::updateAI(int td) {
    const Point4 s_pos = ship->getPosition();
    distance = Vector4(s_pos, nav_point).getLength();
    runModule(td);

    // A way past an obstacle that ends here, or brings the ship no nearer, is still followed for
    // this frame.
    const Point4 current_point = tmp_point_valid ? tmp_point : nav_point;
    const Vector4 to_destination(s_pos, current_point);
    const float length = to_destination.getLength();
    if (length <= tmp_point_threshold || length == dist_to_point) tmp_point_valid = false;
    dist_to_point = length;

    turnTowards(to_destination, td);
    adjustThrottle(td);
    avoidObstacles(current_point);
}

void AIControl::runModule(int td) {
    try {
        switch (current_state) {
            case AI_STATE_IDLE:
                idle->update(td);
                break;
            case AI_STATE_TACTICAL:
                tacticals[current_tactical]->update(td);
                break;
            case AI_STATE_DEFENSE:
                defense->update(td);
                break;
        }
    } catch (AISTATEenum state) {
        changeState(state);
    } catch (const ObjectSlot& target) {
        beginAttack(target);
    }
}

void AIControl::changeState(AISTATEenum state) {
    current_state = state;
    switch (state) {
        case AI_STATE_IDLE:
            idle->activate();
            break;
        case AI_STATE_DEFENSE:
            defense->activate();
            break;
        case AI_STATE_TACTICAL:
            logLine(std::cerr, "ERROR (GAME): ",
                    "AIControl::updateAI: invalid usage of state change (must throw Starship * for "
                    "AI_STATE_TACTICAL)");
            break;
        default:
            logLine(std::cerr, "ERROR (GAME): ", "AIControl::updateAI: invalid state change");
    }
}

void AIControl::beginAttack(const ObjectSlot& target) {
    current_tactical = 0;
    tacticals.front()->activate(target);
    current_state = AI_STATE_TACTICAL;
}

void AIControl::turnTowards(const Vector4& destination, int td) {
    const Vector4 ahead = new_orientation;
    Vector4 direction(0, 0, 1, 1);
    if (isDirection(destination)) direction = Vector4(destination).normalize();

    const float angle = util3d::rad2deg(util3d::angle(ahead, direction).total);
    const float turn = std::min(angle, static_cast<float>(td) * turn_rate / 1000);
    if (!(turn > 0)) return;

    Vector4 axis = direction ^ ahead;
    // Towards a point exactly behind, all ways are equally long.
    if (axis.getLength() == 0 && direction * ahead < 0) axis = new_up;
    new_orientation.rotate(axis, turn).normalize();
}

void AIControl::adjustThrottle(int td) {
    const float v_max = getTopSpeed();
    const float wanted = v_max > 0 ? std::clamp(100 * nav_speed / v_max, 0.0f, 100.0f) : 0;
    const int step = td / throttle_time;
    throttle += std::clamp(static_cast<int>(wanted) - throttle, -step, step);
}

/// Four feelers start around the ship and meet ahead of it. What they meet sends the ship past the
/// worst of the obstacles, on the side of the feelers that met nothing.
void AIControl::avoidObstacles(const Point4& current_point) {
    const float dim = ship->getSize() * safety_margin;
    const float reach = dim + ray_length_offset + ship->getVelocity() * ray_length_factor;
    const Vector4 s_y = ship->getUp().normalize() * dim;
    const Vector4 s_z = new_orientation * reach;
    Vector4 s_x = s_y ^ s_z;
    if (!ship->getGalaxy() || !isDirection(s_x)) return;

    s_x = s_x.normalize() * dim;
    const Point4 s_pos = ship->getPosition();
    const Corners start = {s_pos - s_x - s_y, s_pos + s_x - s_y, s_pos + s_x + s_y,
                           s_pos - s_x + s_y};
    const Survey survey = lookAhead(*ship, start, s_pos + s_z);
    if (survey.num_obstacles == 0) return;

    const Point4 free_edge_point = survey.findFreeEdge(start);
    if (survey.most_dangerous) passObstacle(*survey.most_dangerous, free_edge_point, current_point);
}

/// Sets a point beside the obstacle, on the way from the free edge to where the ship goes.
void AIControl::passObstacle(const _GameObject& obstacle, const Point4& free_edge_point,
                             const Point4& current_point) {
    const Vector4 way_back(current_point, ship->getPosition());
    if (!isDirection(way_back)) return;

    const Point4 center = obstacle.getPosition();
    const Point4 s = Line(free_edge_point, way_back) & Plane(center, way_back);
    const Vector4 v(center, s);
    if (!isDirection(v)) return;

    const float room = clearance * ship->getSize() + obstacle.getSize();
    tmp_point = center + Vector4(v).normalize() * room;
    tmp_point_valid = true;
}
