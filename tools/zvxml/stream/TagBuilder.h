// Makes start tags of names as they are written, by the rules of Namespaces in XML.
#pragma once

#include "Events.h"

#include <cstddef>
#include <deque>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace zvxml {

// Keeps the prefixes in force. For each element: Begin, its attributes and declarations, Finish, and Close at
// its end. Throws DocumentError without a place.
class TagBuilder {
public:
    // With the name of the element, which stays valid until Finish, as all that follows.
    void Begin(std::string_view qualified);
    // "xmlns" and "xmlns:..." are declarations.
    void AddAttribute(std::string_view qualified, std::string_view value);
    void Declare(std::string_view prefix, std::string_view uri);
    StartTag const& Finish();
    void Close();

    // A prefix that stands for a namespace, empty if none of the last declarations is one. The default
    // namespace has none.
    std::string_view FindPrefix(std::string_view uri) const;
    // Null for a prefix that is not declared.
    std::string const* FindUri(std::string_view prefix) const;
    std::size_t GetDepth() const noexcept { return m_open.size(); }

private:
    struct Binding {
        std::string prefix;
        std::string uri;
    };

    // The place of the innermost binding, or kNone.
    std::size_t Find(std::string_view prefix) const;
    void Resolve(Name& name, bool isAttribute) const;
    void RequireDifferentAttributes();

    std::deque<Binding> m_bindings; // the innermost last; only the first m_count are in force
    std::size_t m_count = 0;
    std::unordered_map<std::string, std::vector<std::size_t>> m_places; // of each prefix, the innermost last
    std::vector<std::size_t> m_open; // for each open element, how many there were before
    StartTag m_tag;
    std::vector<Name const*> m_sorted;
};

} // namespace zvxml
