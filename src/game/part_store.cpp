#include "game/part_store.h"

#include "game/cannon.h"
#include "game/cloak.h"
#include "game/engine.h"
#include "game/hull.h"
#include "game/radar.h"
#include "game/reactor.h"
#include "game/shield.h"
#include "game/tank.h"
#include "game/torpedo.h"
#include "game/torpedo_launcher.h"
#include "game/wing.h"
#include "main/log_factory.h"
#include "xml/xml_element.h"

#include <iostream>

PartStore* PartStore::instance = nullptr;

PartStore* PartStore::getInstance() {
    if (!instance) instance = new PartStore();
    return instance;
}

template <class Part>
std::unique_ptr<_StarshipPart> PartStore::build(const XMLElement& node) {
    return std::unique_ptr<_StarshipPart>(new Part(node));
}

int PartStore::load(const XMLElement& root_node) {
    using Builder = std::unique_ptr<_StarshipPart> (*)(const XMLElement&);
    static const std::map<std::string, Builder> builders = {
        {"Hull", build<Hull>},       {"Wing", build<Wing>},
        {"Cannon", build<Cannon>},   {"TorpedoLauncher", build<TorpedoLauncher>},
        {"Torpedo", build<Torpedo>}, {"Engine", build<Engine>},
        {"Shield", build<Shield>},   {"Cloak", build<Cloak>},
        {"Radar", build<Radar>},     {"Reactor", build<Reactor>},
        {"Tank", build<Tank>},
    };

    if (root_node.getName() != "PartSection") {
        throw Exception("PartStore::load: invalid game file (wrong node type)");
    }
    int i = 0;
    for (XMLElement node = root_node.getFirstChild(); !node.isNull(); node = node.getNext()) {
        const std::string element = node.getName();
        const std::string name = node.getAttributeAsString("name");
        logLine(std::cout, "GAME: ", "Loading Part ", ++i, ": ", name, " <", element, ">...");

        const auto builder = builders.find(element);
        if (builder == builders.end()) {
            throw Exception("Partstore::load: unknown part (" + element + ")");
        }
        parts[name] = builder->second(node);
    }
    return i;
}

void PartStore::clear() {
    parts.clear();
}

_StarshipPart* PartStore::getPart(const std::string& name) const {
    const auto part = parts.find(name);
    if (part == parts.end()) {
        throw PartStoreException("PartStore::getPart: no such part (" + name + ")");
    }
    return part->second.get();
}

template <class Part>
Part* PartStore::copy(const std::string& name, PRTenum kind, const char* getter,
                      const char* noun) const {
    const _StarshipPart* part = getPart(name);
    if (part->getType() != kind) {
        throw PartStoreException(std::string("PartStore::") + getter + ": " + name + " is not " +
                                 noun);
    }
    return new Part(static_cast<const Part&>(*part));
}

Hull* PartStore::getHull(const std::string& name) const {
    return copy<Hull>(name, PRT_HULL, "getHull", "a hull");
}

Wing* PartStore::getWing(const std::string& name) const {
    return copy<Wing>(name, PRT_WING, "getWing", "a wing");
}

Cannon* PartStore::getCannon(const std::string& name) const {
    return copy<Cannon>(name, PRT_CANNON, "getCannon", "a cannon");
}

TorpedoLauncher* PartStore::getTorpedoLauncher(const std::string& name) const {
    return copy<TorpedoLauncher>(name, PRT_TORPEDO_LAUNCHER, "getTorpedoLauncher",
                                 "a torpedo launcher");
}

Torpedo* PartStore::getTorpedo(const std::string& name) const {
    return copy<Torpedo>(name, PRT_TORPEDO, "get", "a torpedo");
}

Engine* PartStore::getEngine(const std::string& name) const {
    return copy<Engine>(name, PRT_ENGINE, "getEngine", "an engine");
}

Radar* PartStore::getRadar(const std::string& name) const {
    return copy<Radar>(name, PRT_RADAR, "get", "a radar");
}

Shield* PartStore::getShield(const std::string& name) const {
    return copy<Shield>(name, PRT_SHIELD, "getShield", "a shield");
}

Cloak* PartStore::getCloak(const std::string& name) const {
    return copy<Cloak>(name, PRT_CLOAK, "getCloak", "a cloak");
}

Reactor* PartStore::getReactor(const std::string& name) const {
    return copy<Reactor>(name, PRT_REACTOR, "getReactor", "a reactor");
}

Tank* PartStore::getTank(const std::string& name) const {
    return copy<Tank>(name, PRT_TANK, "getTank", "a tank");
}
