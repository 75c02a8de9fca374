#pragma once

/// What wears off under fire. Its armour absorbs a share of every hit, and ever less of it as the
/// thing is shot to pieces.
class _Damageable {
public:
    /// Takes a hit of strength `i` and returns the integrity that is left. Throws DestroyEvent the
    /// first time that integrity falls to 0 or below; from then on it only keeps falling.
    float damage(float i);
    /// Adds `i` to the integrity, up to 100.
    void repair(float i);

    /// Health in percent, below 0 for a wreck.
    float getIntegrity() const { return integrity; }
    /// Percent of a hit that is absorbed at full integrity.
    float getResistance() const { return resistance; }

protected:
    void setIntegrity(float i) { integrity = i; }
    void setResistance(float r) { resistance = r; }

private:
    float integrity = 100;
    float resistance = 50;

protected:
    bool destroyed = false;  ///< the integrity has once been at 0 or below
};
