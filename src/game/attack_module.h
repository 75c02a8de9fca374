#pragma once

class AIControl;
class Starship;
class XMLElement;

/// How a pilot chooses its weapon: lasers at any distance, torpedoes at a locked target that is far
/// enough away.
class AttackModule {
public:
    /// Nothing of the element is read.
    AttackModule(const XMLElement& node, AIControl* a);

    /// Fires at `t`, or holds its fire, by chance.
    void attack(Starship* t);

    void activate() {}
    void update(int) {}

private:
    AIControl* aic;
    Starship* ship;
};
