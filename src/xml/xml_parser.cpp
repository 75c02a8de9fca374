#include "xml/xml_parser.h"

#include "main/log_factory.h"
#include "xml/xml_exception.h"
#include "xml/xml_text.h"

#include <xercesc/dom/DOM.hpp>
#include <xercesc/parsers/XercesDOMParser.hpp>
#include <xercesc/sax/ErrorHandler.hpp>
#include <xercesc/sax/SAXParseException.hpp>
#include <xercesc/util/PlatformUtils.hpp>
#include <xercesc/util/SecurityManager.hpp>
#include <xercesc/util/XMLException.hpp>

#include <iostream>
#include <iterator>

namespace {

using namespace xercesc;

/// A file that expands its entities more often than this is not a game file.
constexpr XMLSize_t entity_expansion_limit = 1000;

/// Tells where a file is broken. Without a handler that throws, the library would take a malformed
/// file for a valid one with errors in it.
class FaultReporter : public ErrorHandler {
public:
    explicit FaultReporter(const std::string& filename) : filename(filename) {}

    void warning(const SAXParseException&) override {}
    void error(const SAXParseException& fault) override { report(fault); }
    void fatalError(const SAXParseException& fault) override {
        report(fault);
        throw fault;
    }
    void resetErrors() override {}

private:
    void report(const SAXParseException& fault) const {
        const std::string place =
            toUtf8(fault.getSystemId());  // none for a file that does not open
        logLine(std::cerr, "ERROR: ", place.empty() ? filename : place, ", line ",
                fault.getLineNumber(), ", column ", fault.getColumnNumber(), ": ",
                toUtf8(fault.getMessage()));
    }

    std::string filename;
};

/// Runs one step of the library and turns what it throws into the game's own failure.
template <typename Step>
void guarded(Step step) {
    try {
        step();
    } catch (const XMLException& e) {
        throw XMLParserException(
            "A fatal XML error occured during parsing: " + toUtf8(e.getMessage()) + ".");
    } catch (const DOMException& e) {
        throw XMLParserException("A fatal DOM error occured during parsing (" +
                                 std::to_string(e.code) + ").");
    } catch (...) {
        throw XMLParserException("An unknown fatal error occured during parsing.");
    }
}

}  // namespace

int XMLParser::instances = 0;

XMLParser::Library::Library() {
    if (instances == 0) guarded([] { XMLPlatformUtils::Initialize(); });
    ++instances;
}

XMLParser::Library::~Library() {
    if (--instances == 0) XMLPlatformUtils::Terminate();
}

XMLParser::XMLParser(const std::string& filename) {
    FaultReporter reporter(filename);
    SecurityManager limits;
    limits.setEntityExpansionLimit(entity_expansion_limit);

    guarded([&] {
        parser = std::make_unique<XercesDOMParser>();
        parser->setCreateEntityReferenceNodes(false);
        parser->setIncludeIgnorableWhitespace(false);
        // The game file stands alone: it fetches nothing, from the disk or from the net.
        parser->setLoadExternalDTD(false);
        parser->setDisableDefaultEntityResolution(true);
        parser->setErrorHandler(&reporter);
        parser->setSecurityManager(&limits);
        parser->parse(filename.c_str());
    });
    parser->setErrorHandler(nullptr);
    parser->setSecurityManager(nullptr);
    if (parser->getErrorCount() > 0)
        throw XMLParserException("An error (not fatal) occured during parsing.");
}

XMLParser::~XMLParser() = default;

XMLElement XMLParser::getRootElement() const {
    return XMLElement(parser->getDocument()->getFirstChild()->getNextSibling());
}

void XMLParser::printtype(std::ostream& target, short t) const {
    static constexpr const char* names[] = {
        "unknown",       "element",          "attribute",     "text",
        "CDATA section", "entity reference", "entity",        "processing instruction",
        "comment",       "document",         "document type", "document fragment",
        "notation"};
    target << (t > 0 && t < static_cast<short>(std::size(names)) ? names[t] : names[0]);
}

void XMLParser::print_node(const DOMNode* node) const {
    if (!node) return;
    printtype(std::cout, node->getNodeType());
    std::cout << ": " << toUtf8(node->getNodeName());
    if (node->getNodeValue()) std::cout << " = " << toUtf8(node->getNodeValue());
    std::cout << std::endl;
}

void XMLParser::print_siblings(const DOMNode* node) const {
    for (; node; node = node->getNextSibling()) print_node(node);
}

void XMLParser::print_nodes(const DOMNode* node) const {
    if (!node) return;
    print_node(node);
    for (const DOMNode* child = node->getFirstChild(); child; child = child->getNextSibling())
        print_nodes(child);
}
