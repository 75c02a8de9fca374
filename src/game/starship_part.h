#pragma once

#include <string>

class Starship;
class XMLElement;

/// The kind of a part, which decides the getter of the catalogue that hands it out.
enum PRTenum {
    PRT_HULL = 0,
    PRT_WING = 1,
    PRT_CANNON = 2,
    PRT_TORPEDO_LAUNCHER = 3,
    PRT_TORPEDO = 4,
    PRT_ENGINE = 5,
    PRT_REACTOR = 6,
    PRT_TANK = 7,
    PRT_RADAR = 8,
    PRT_SHIELD = 9,
    PRT_CLOAK = 10,
};

/// The base of everything that a ship is assembled from. The catalogue holds one prototype of each
/// part; a ship carries copies, so that damage, fuel and charge are its own.
class _StarshipPart {
public:
    virtual ~_StarshipPart() = default;
    _StarshipPart& operator=(const _StarshipPart&) = delete;

    std::string getName() const { return name; }
    PRTenum getType() const { return type; }
    unsigned long getMass() const { return mass; }
    /// What the nominal power means depends on the part.
    unsigned long getPower() const { return power; }
    unsigned long getSize() const { return size; }
    /// The ship that carries this part, null for a prototype.
    Starship* getParentShip() const { return parent_ship; }

protected:
    explicit _StarshipPart(PRTenum type) : type(type) {}
    _StarshipPart(const _StarshipPart&) = default;

    void setName(const std::string& n) { name = n; }
    void setMass(unsigned long m) { mass = m; }
    void setPower(unsigned long p) { power = p; }
    void setSize(unsigned long s) { size = s; }

    /// Called by the ship that takes the part in.
    virtual void setParentShip(Starship* ship) { parent_ship = ship; }

    /// Throws Exception "Part::Part: wrong XML node type" unless the element is called `part`.
    static void checkElement(const XMLElement& node, const std::string& part);
    /// Reads the attributes "name" and "mass", which every part has.
    void readNameAndMass(const XMLElement& node);
    /// Reads a whole number of at least `least`. Throws Exception, naming the element and the
    /// attribute, on a lower one.
    static unsigned long readNumber(const XMLElement& node, const std::string& attribute,
                                    unsigned long least = 0);
    /// The same for a number that is kept as an int: one too large becomes the largest.
    static int readInt(const XMLElement& node, const std::string& attribute,
                       unsigned long least = 0);

    Starship* parent_ship = nullptr;

private:
    friend class Starship;

    std::string name = "no name yet";
    PRTenum type;
    unsigned long mass = 0;
    unsigned long size = 0;
    unsigned long power = 0;
};
