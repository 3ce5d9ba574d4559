// PlainJsonReader, which reads plain JSON straight into the tree.
#pragma once

#include "zvxmllib/document/NodePositions.h"
#include "zvxmllib/document/PlainElements.h"
#include "zvxmllib/foundation/Forward.h"
#include "zvxmllib/json/PlainJsonTokens.h"
#include "zvxmllib/json/UniqueNames.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace ZvXmlLib16 {

// Builds the tree that the XML parser would have made of the XML text to which CJsonTextReader converts the
// JSON, by the usual rules, which format it, or by the strict ones, in one pass over the text. Whatever it is
// not certain about it leaves to these two, and with it every failure: it never says that a text is wrong. It
// knows objects, arrays of values and objects, strings with escapes, numbers and words, with names of ASCII
// letters. docs/performance.md says why the result is the same.
class PlainJsonReader final : public IPositionSource {
public:
    // Fills the document, which is empty, by the context's JSON options. The document borrows the text, which
    // outlives it. Returns false, and leaves it empty, if the text or the context needs the way by XML text.
    // Throws std::bad_alloc alone.
    static bool Fill(CXmlDocument& document, std::string_view json, CSerializationContext const& ctx);

    // Where the value begins of the node that is being added.
    detail::NodePosition GetPosition() const override;

private:
    using PlainName = detail::PlainName;
    struct Object {
        PlainName* name; // of the element
        char const* begin;
        std::uint32_t children = 0;
        bool isStarted = false;
        bool hasText = false;       // strict, as the next two
        bool isNil = false;         // that text is null
        std::string_view text = {}; // which comes at the end
    };

    PlainJsonReader(CXmlDocument& document, std::string_view json, CSerializationContext const& ctx);

    bool Read();

    // Each of these reads one thing from `at` on and returns where it ends, null if it is not plain.
    char const* ReadDocument();
    char const* ReadRoot(char const* at);
    char const* ReadElement(PlainName& name, char const* at);
    char const* ReadObject(PlainName& name, char const* at);
    char const* ReadMembers(PlainName& name, char const* begin, char const* at);
    char const* ReadMember(Object& object, char const* at);
    char const* ReadAttribute(char const* at);
    char const* ReadLastText(Object& object, char const* at);
    char const* ReadStrictText(Object& object, char const* at);
    char const* ReadChildren(char const* at, std::uint32_t& count);
    char const* ReadItems(PlainName& name, char const* at, std::uint32_t& count);

    bool EndObject(Object const& object);
    bool AddName(PlainName& name) { return !m_isStrict || AddUniqueName(name); }
    bool AddUniqueName(PlainName& name);
    bool AddNil();
    bool AppendText(PlainJsonTokens::Text const& text);
    void AppendBreaks(std::uint32_t children, std::size_t depthBehind);

    detail::XmlTree& m_tree;
    char const* const m_begin;
    PlainJsonTokens m_tokens;
    bool const m_isStrict;
    bool const m_hasMarks;        // of attributes and texts
    std::string const m_rootName; // with a quote behind it; empty where the text names the root
    detail::PlainNameList m_elementNames;
    detail::PlainNameList m_attributeNames;
    detail::PlainElements m_elements;
    detail::UniqueNames m_uniqueNames; // strict, as the next two
    bool m_hasNil = false;
    bool m_hasNilName = false;              // or one that looks like it
    std::int32_t m_containers = 0;          // objects and arrays that are open
    std::size_t m_depth = 0;                // of elements
    std::vector<std::string_view> m_breaks; // by depth: a line feed and the indent of that depth
    mutable char const* m_counted;          // up to where lines are counted
    mutable char const* m_lineStart;
    mutable std::uint64_t m_line = 1;
};

} // namespace ZvXmlLib16
