#include "3d/font_factory.h"

#include "3d/ase_font.h"
#include "3d/glut_font.h"
#include "main/exception.h"
#include "main/log_factory.h"
#include "xml/xml_element.h"

#include <iostream>

namespace {

std::unique_ptr<_Font> makeFont(const XMLElement& node) {
    if (node.getName() == "GlutFont") return std::make_unique<GlutFont>(node);
    if (node.getName() == "Font3D") return std::make_unique<AseFont>(node);
    logLine(std::cerr, "ERROR (3D): ", "FontFactory::load: unknown font type (", node.getName(),
            ")");
    return nullptr;
}

}  // namespace

FontFactory* FontFactory::instance = nullptr;

FontFactory* FontFactory::getInstance() {
    if (!instance) instance = new FontFactory;
    return instance;
}

int FontFactory::load(const XMLElement& root) {
    if (root.getName() != "Fonts") {
        throw Exception("FontFactory::load: wrong node type (" + root.getName() + ")");
    }
    int num = 0;
    for (XMLElement child = root.getFirstChild(); !child.isNull(); child = child.getNext()) {
        ++num;
        if (auto font = makeFont(child))
            fonts[child.getAttributeAsString("name")] = std::move(font);
    }
    return num;
}

_Font* FontFactory::getFont(const std::string& name) const {
    const auto found = fonts.find(name);
    if (found == fonts.end()) {
        throw FontFactoryException("FontFactory::getFont: no such font (" + name + ")");
    }
    return found->second.get();
}
