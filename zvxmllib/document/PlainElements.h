// PlainElements, start tags on their way from a reader of plain text into the tree.
#pragma once

#include "zvxmllib/document/PlainNames.h"
#include "zvxmllib/foundation/Forward.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace ZvXmlLib16::detail {

class PrefixScopes;
class XmlTree;

// A reader gathers the attributes of a start tag here, and then starts the element: what the names mean
// depends on all declarations of the tag.
class PlainElements {
public:
    static constexpr std::size_t kMostAttributes = 64; // each is compared with all others

    struct Attribute {
        PlainName* name;
        std::string_view value;     // of the input
        std::size_t kept = 0;       // where the value is in GetValues() otherwise
        std::size_t keptLength = 0; // 0 for a value of the input
        char const* place = nullptr;
        XmlName const* known = nullptr;
    };

    // Whether the tree takes values of the input as they are, without a copy.
    enum class Values { kCopied, kBorrowed };

    // The tree of the document is made, and empty. A strict one remembers the scopes of prefixes.
    PlainElements(CXmlDocument& document, bool isStrict, Values values);

    // The next start tag, without attributes yet.
    void Begin() noexcept {
        m_attributes.clear();
        m_values.clear();
    }
    bool IsFull() const noexcept { return m_attributes.size() == kMostAttributes; }
    void Add(Attribute const& attribute) { m_attributes.push_back(attribute); }
    // The values that are not in the input as they are, one behind the other.
    std::string& GetValues() noexcept { return m_values; }

    // Adds the element with the attributes and opens it. False if the parser's judgement is needed; the tree
    // does not know of the element then. `place` and the places of attributes are for GetPlace alone.
    bool Start(PlainName& name, char const* place = nullptr);
    void End();

    bool IsEmpty() const noexcept { return m_open.empty(); }
    PlainName const& GetOpenName() const noexcept { return *m_open.back().name; }
    // Of the node that is being added.
    char const* GetPlace() const noexcept { return m_place; }

private:
    struct OpenElement {
        PlainName const* name;
        PlainScopes::Place outside;
    };

    bool Declare(PlainScopes::Place const& outside, Attribute const& attribute);
    bool FindAttributeNames();
    void AddToTree(Attribute const& attribute);

    CXmlDocument& m_doc;
    XmlTree& m_tree;
    PrefixScopes* m_prefixScopes = nullptr; // null where nothing is strict
    bool const m_isBorrowing;
    PlainScopes m_scopes;
    std::vector<OpenElement> m_open;
    std::vector<Attribute> m_attributes; // of the current start tag
    std::string m_values;                // of these, where they are not in the input as they are
    char const* m_place = nullptr;
};

} // namespace ZvXmlLib16::detail
