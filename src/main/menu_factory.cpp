#include "main/menu_factory.h"

#include "main/exception.h"
#include "xml/xml_element.h"

MenuFactory* MenuFactory::instance = nullptr;

void MenuFactory::createInstance(const XMLElement& node) {
    if (instance) throw Exception("MenuFactory::createInstance: MenuFactory already exists");
    instance = new MenuFactory(node);
}

MenuFactory* MenuFactory::getInstance() {
    if (!instance) throw Exception("MenuFactory::getInstance: MenuFactory has not been created");
    return instance;
}

MenuFactory::MenuFactory(const XMLElement& node) {
    if (node.getName() != "MenuConfig")
        throw Exception("MenuFactory::MenuFactory: wrong XML node type (" + node.getName() + ")");
    background = node.getAttributeAsColor("background");
    for (XMLElement child = node.getFirstChild(); !child.isNull(); child = child.getNext()) {
        if (child.getName() != "MenuButton") continue;
        if (button) throw Exception("MenuFactory::MenuFactory: button already created");
        button = std::make_unique<Button>(child);
    }
    if (!button) throw Exception("MenuFactory::MenuFactory: no MenuButton in MenuConfig");
}
