#pragma once

#include "game/cockpit_control.h"

#include <list>

class _2D_Rep;

/// The multi-function display of a cockpit: shows one page of a list and walks through them. The
/// pages are its clients, which it does not own.
class Mfd : public _CockpitControl {
public:
    /// Reads an "MFD" element. Throws Exception on any other element.
    Mfd(const XMLElement& node, Cockpit* owner);
    /// A copy has no clients: those belong to the other's cockpit.
    Mfd(const Mfd& other);

    std::unique_ptr<_CockpitControl> clone() const override;

    /// The page shown, null when there is none.
    _2D_Rep* getCurrent() const;

    /// Adds a page behind the others and shows it.
    void addClient(_2D_Rep* client);
    /// Takes a page off the list, if it is on it. In place of the page shown comes the one behind
    /// it, or none.
    void removeClient(const _2D_Rep* client);
    /// Walk through the pages in a circle. The first does nothing while no page is shown.
    void nextClient() const;
    void previousClient() const;
    /// Takes all pages off the list.
    void clear();

protected:
    void drawControl(float x, float y, float w, float h) const override;

private:
    using client_list = std::list<_2D_Rep*>;

    client_list clients;
    mutable client_list::const_iterator current;
    ColorRGBA highlighted;
};
