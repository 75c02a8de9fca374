#pragma once

#include "3d/opengl.h"
#include "game/ai_control.h"
#include "game/galaxy.h"
#include "tests/support/capture.h"
#include "tests/support/failure.h"
#include "tests/support/geometry.h"
#include "tests/support/probe.h"
#include "tests/support/ship_yard.h"

#include <gmock/gmock.h>

/// A pilot whose thoughts a test reads and changes.
struct Pilot : AIControl {
    using AIControl::AIControl, AIControl::current_state, AIControl::fired, AIControl::nav_point,
        AIControl::nav_speed, AIControl::select, AIControl::targets, AIControl::throttle,
        AIControl::tmp_point, AIControl::tmp_point_valid;
};

/// Empty space with ships that stay where a test puts them, and pilots that a test flies itself.
struct Pilots : testing::Test {
    struct Space : Galaxy {
        using Galaxy::add, Galaxy::detectCollisions, Galaxy::Galaxy, Galaxy::show, Galaxy::update;
    };

    Pilots() { OpenGLContext::getInstance()->setShowFPS(false); }  // there are no fonts
    ~Pilots() override { OpenGLContext::getInstance()->setShowFPS(true); }

    /// A ship with a radar that reaches 1000. An older one of that id is gone.
    Starship& put(int id, const Point4& pos, const std::string& children = "") {
        std::string text = ShipYard::shipElement(children);
        text.replace(text.find("id='3'"), 6, "radar='eye' id='" + std::to_string(id) + "'");
        auto made = std::make_unique<Starship>(yard.element(text));
        made->setPosition(pos);
        Starship& placed = *made;
        space.add(std::move(made));
        return placed;
    }
    /// An "AIControl" element with all that it needs, and more children behind them.
    static std::string control(const std::string& more = "") {
        return "<AIControl><IdleModule tolerance='5'><Way speed='50' point='P(0|0|1000)'/>"
               "</IdleModule><TacticalModule/><DefenseModule/><AttackModule/>" +
               more + "</AIControl>";
    }
    Pilot pilot(const std::string& more = "") { return {&ship, yard.element(control(more))}; }

    const Capture silence{std::cout};
    ShipYard yard;
    const int eyes =
        yard.load("<Radar name='eye' mass='1' power='1' size='1' range='1000' cloak_cat='0'/>");
    Space space{yard.element(yard.galaxyElement()), nullptr};
    Starship& ship = put(1, Point4());
};
