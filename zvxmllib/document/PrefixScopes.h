// PrefixScopes, which prefixes the elements of a document declare.
#pragma once

#include "zvxmllib/foundation/Forward.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace ZvXmlLib16::detail {

// Strings are borrowed; they and the elements are the tree's. An empty URI takes a default namespace away.
struct PrefixDeclaration {
    std::string const* prefix; // empty for the default namespace
    std::string const* uri;
};

// Beside the tree, for the readers of strict contexts (Namespaces in XML, 6). Belongs to the thread of the
// document.
class PrefixScopes {
public:
    // On the element that is added next.
    void Declare(std::string const* prefix, std::string const* uri) { m_next.push_back({prefix, uri}); }
    // An element in the storage of one that is gone takes its place here, too.
    void AddElement(CXmlElement const* element);

    // Made on the element itself.
    std::vector<PrefixDeclaration> const& GetDeclared(CXmlElement const& element) const;
    // What the prefix stands for at the element, null if it is not declared.
    PrefixDeclaration const* Find(CXmlElement const& element, std::string_view prefix) const;

private:
    struct Prefix {
        std::unordered_map<CXmlElement const*, PrefixDeclaration> declarations;
        // The last answer for elements that do not declare it themselves, by their parent.
        mutable CXmlElement const* parent = nullptr;
        mutable PrefixDeclaration const* answer = nullptr;
        mutable std::uint64_t answered = 0; // m_elements then
    };

    std::vector<PrefixDeclaration> m_next;
    std::unordered_map<CXmlElement const*, std::vector<PrefixDeclaration>> m_declared;
    std::unordered_map<std::string_view, Prefix> m_prefixes;
    std::uint64_t m_elements = 0; // so many have been added
};

} // namespace ZvXmlLib16::detail
