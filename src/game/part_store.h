#pragma once

#include "game/starship_part.h"
#include "main/exception.h"

#include <map>
#include <memory>
#include <string>

class Cannon;
class Cloak;
class Engine;
class Hull;
class Radar;
class Reactor;
class Shield;
class Tank;
class Torpedo;
class TorpedoLauncher;
class Wing;
class XMLElement;

/// A part that the catalogue does not hold, or holds as another kind.
class PartStoreException : public Exception {
public:
    PartStoreException() : Exception("") {}
    using Exception::Exception;
};

/// The catalogue of parts: one prototype per name, read when the game starts. Ships are built from
/// copies, which share nothing with the prototype but the model.
class PartStore {
public:
    static PartStore* getInstance();

    /// Reads a "PartSection" element and returns the number of its children. A name that is already
    /// taken gets the later part. Throws Exception on another element or an unknown kind of part.
    int load(const XMLElement& root_node);
    /// Forgets all prototypes.
    void clear();

    /// The prototype itself. Throws PartStoreException when no part has this name.
    _StarshipPart* getPart(const std::string& name) const;

    /// Each hands out a new copy that the caller owns. Throws PartStoreException when no part has
    /// this name, or when it is of another kind.
    Hull* getHull(const std::string& name) const;
    Wing* getWing(const std::string& name) const;
    Cannon* getCannon(const std::string& name) const;
    TorpedoLauncher* getTorpedoLauncher(const std::string& name) const;
    Torpedo* getTorpedo(const std::string& name) const;
    Engine* getEngine(const std::string& name) const;
    Radar* getRadar(const std::string& name) const;
    Shield* getShield(const std::string& name) const;
    Cloak* getCloak(const std::string& name) const;
    Reactor* getReactor(const std::string& name) const;
    Tank* getTank(const std::string& name) const;

    PartStore(const PartStore&) = delete;
    PartStore& operator=(const PartStore&) = delete;

private:
    PartStore() = default;
    ~PartStore() { clear(); }

    /// Builds a part from its element.
    template <class Part>
    static std::unique_ptr<_StarshipPart> build(const XMLElement& node);
    /// The copy that `getter` hands out; `noun` says what the part had to be.
    template <class Part>
    Part* copy(const std::string& name, PRTenum kind, const char* getter, const char* noun) const;

    static PartStore* instance;
    std::map<std::string, std::unique_ptr<_StarshipPart>> parts;
};
