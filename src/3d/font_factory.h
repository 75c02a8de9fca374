#pragma once

#include "3d/font.h"
#include "3d/font_exception.h"

#include <map>
#include <memory>
#include <string>

class XMLElement;

/// All fonts of the game by the names that the game file gives them.
/// Filled before the first frame and kept until the process ends.
class FontFactory {
public:
    static FontFactory* getInstance();

    /// Reads a "Fonts" element and returns the number of its children. A later font replaces an
    /// earlier one of its name. Throws Exception on any other element.
    int load(const XMLElement& root);

    /// The font stays with the factory. Throws FontFactoryException for an unknown name.
    _Font* getFont(const std::string& name) const;

    FontFactory(const FontFactory&) = delete;
    FontFactory& operator=(const FontFactory&) = delete;

private:
    FontFactory() = default;
    ~FontFactory() = default;

    static FontFactory* instance;
    std::map<std::string, std::unique_ptr<_Font>> fonts;
};
