#pragma once

class AIControl;
class XMLElement;

/// The place of a pilot's defence. No pilot defends itself yet.
class DefenseModule {
public:
    /// Nothing of the element is read.
    DefenseModule(const XMLElement&, AIControl*) {}

    void activate() {}
    void update(int) {}
};
