// PlainXmlReader, which reads plain XML text without the parser.
#pragma once

#include "zvxmllib/document/PlainElements.h"
#include "zvxmllib/document/PlainNames.h"
#include "zvxmllib/foundation/Forward.h"

#include <string_view>

namespace ZvXmlLib16::detail {
class XmlTree;
} // namespace ZvXmlLib16::detail

namespace ZvXmlLib16 {

// Builds the tree that the XML parser would have made, in one pass over the text. Whatever it is not certain
// about it leaves to the parser, and with it every failure: it never says that a document is wrong. It knows
// UTF-8 with a version, elements and attributes with names of ASCII letters, declarations of namespaces,
// text, references to characters and to the five entities of XML, CDATA sections, comments and processing
// instructions. docs/performance.md says why the result is the same.
class PlainXmlReader {
public:
    // Fills the document, which is empty, by its context. Returns false, and leaves it empty, if the text,
    // the context or a callback needs the parser. Throws std::bad_alloc alone.
    // With `borrows` the text outlives the tree, whose texts stay in it where they are there as they are.
    static bool Fill(CXmlDocument& document, std::string_view xml, bool borrows = false);

private:
    using Attribute = detail::PlainElements::Attribute;

    PlainXmlReader(CXmlDocument& document, std::string_view xml, bool borrows);

    static bool IsFor(CXmlDocument const& document, std::string_view xml);
    bool Read();

    // Each of these reads one thing from `at` on and returns where it ends, null if the parser is needed.
    char const* ReadDeclaration(char const* at) const;
    char const* ReadSurroundings(char const* at) const; // of the root: space, comments, instructions
    bool ReadContent(char const* at);
    char const* ReadMarkup(char const* at);
    char const* ReadStartTag(char const* at);
    char const* ReadAttributes(char const* at);
    char const* ReadValue(char const* at, char quote, Attribute& attribute);
    char const* ReadMixedValue(char const* begin, char const* at, char quote, Attribute& attribute);
    char const* ReadEndTag(char const* at);
    char const* ReadText(char const* at);
    char const* ReadMixedText(char const* begin, char const* at);
    char const* ReadCData(char const* at);
    char const* ReadComment(char const* at) const;
    char const* ReadInstruction(char const* at) const;
    char const* SkipSpace(char const* at) const noexcept;

    void AppendText(std::string_view text);
    void AppendWholeText(std::string_view text);
    void AppendLines(std::string_view text);

    CXmlDocument& m_doc;
    detail::XmlTree& m_tree;
    char const* const m_begin;
    char const* const m_end;
    bool const m_isStrict;
    bool const m_isBorrowing; // texts stay in the input
    detail::PlainNameList m_elementNames;
    detail::PlainNameList m_attributeNames;
    detail::PlainElements m_elements;
};

} // namespace ZvXmlLib16
