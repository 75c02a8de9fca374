#include "game/mfd.h"

#include "game/2d_rep.h"
#include "main/exception.h"
#include "xml/xml_element.h"

#include <algorithm>
#include <iterator>

Mfd::Mfd(const XMLElement& node, Cockpit* owner)
    : _CockpitControl(node, owner), current(clients.end()) {
    if (getType() != CPCTRL_MFD)
        throw Exception("Mfd::Mfd: wrong XML node type: " + node.getName());
}

Mfd::Mfd(const Mfd& other)
    : _CockpitControl(other), current(clients.end()), highlighted(other.highlighted) {}

std::unique_ptr<_CockpitControl> Mfd::clone() const {
    return std::make_unique<Mfd>(*this);
}

_2D_Rep* Mfd::getCurrent() const {
    return current == clients.end() ? nullptr : *current;
}

void Mfd::addClient(_2D_Rep* client) {
    current = clients.insert(clients.end(), client);
}

void Mfd::removeClient(const _2D_Rep* client) {
    const auto entry = std::ranges::find(clients, client);
    if (entry == clients.end()) return;
    if (current == entry) ++current;
    clients.erase(entry);
}

void Mfd::nextClient() const {
    if (current == clients.end()) return;
    if (++current == clients.end()) current = clients.begin();
}

void Mfd::previousClient() const {
    if (clients.empty()) return;
    if (current == clients.begin()) current = clients.end();
    --current;
}

void Mfd::clear() {
    clients.clear();
    current = clients.end();
}

void Mfd::drawControl(float x, float y, float w, float h) const {
    if (const _2D_Rep* page = getCurrent())
        page->drawMonitor(x, y, w, h, foreground, background, highlighted, DRAW_MULTITEX);
}
