#pragma once

#include "xml/xml_element.h"

#include <xercesc/util/XercesDefs.hpp>

#include <memory>
#include <ostream>
#include <string>

XERCES_CPP_NAMESPACE_BEGIN
class DOMNode;
class XercesDOMParser;
XERCES_CPP_NAMESPACE_END

/// The game file in memory. Lives as long as the game, since every XMLElement points into its
/// document. The first parser starts the XML library, the last one stops it.
class XMLParser {
public:
    /// Reads the whole file. Throws XMLParserException when it cannot be read or is malformed;
    /// where and why goes to standard error.
    explicit XMLParser(const std::string& filename);
    ~XMLParser();
    XMLParser(const XMLParser&) = delete;
    XMLParser& operator=(const XMLParser&) = delete;

    /// The second node of the document: a document type declaration, or one comment or processing
    /// instruction, stands ahead of the root element. A null element in a file without one.
    XMLElement getRootElement() const;

    /// Debug dumps to standard output: one node, a node and its later siblings, a whole subtree.
    void print_node(const XERCES_CPP_NAMESPACE_QUALIFIER DOMNode* node) const;
    void print_siblings(const XERCES_CPP_NAMESPACE_QUALIFIER DOMNode* node) const;
    void print_nodes(const XERCES_CPP_NAMESPACE_QUALIFIER DOMNode* node) const;
    /// Writes the name of a node type, such as "element" for 1.
    void printtype(std::ostream& target, short t) const;

private:
    /// Keeps the XML library started.
    class Library {
    public:
        Library();
        ~Library();
        Library(const Library&) = delete;
        Library& operator=(const Library&) = delete;
    };

    static int instances;  ///< live parsers

    Library library;
    std::unique_ptr<XERCES_CPP_NAMESPACE_QUALIFIER XercesDOMParser> parser;
};
