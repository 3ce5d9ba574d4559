// Gives a document its own namespace prefixes back.
#include "Prefixes.h"

#include "TreeWalk.h"

#include <set>
#include <string>
#include <string_view>

using namespace ZvXmlLib16;

namespace zvxml {

namespace {

constexpr std::string_view kXmlNamespace = "http://www.w3.org/XML/1998/namespace";
constexpr std::size_t kLongestQName = 256;

bool IsNameStart(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' ||
           static_cast<unsigned char>(c) >= 0x80U;
}

bool IsNameChar(char c) {
    return IsNameStart(c) || (c >= '0' && c <= '9') || c == '-' || c == '.';
}

bool IsNCName(std::string_view text) {
    if (text.empty() || !IsNameStart(text.front()))
        return false;
    for (char const c : text)
        if (!IsNameChar(c))
            return false;
    return true;
}

// The prefix of a text that has the form of a qualified name with a prefix; empty for any other text.
std::string_view PrefixOfQName(std::string_view text) {
    std::size_t const colon = text.substr(0, kLongestQName).find(':');
    if (colon == std::string_view::npos || text.size() > kLongestQName)
        return {};
    std::string_view const prefix = text.substr(0, colon);
    return IsNCName(prefix) && IsNCName(text.substr(colon + 1)) ? prefix : std::string_view();
}

// The namespaces that names and values of a document refer to.
class UsedNamespaces {
public:
    explicit UsedNamespaces(CXmlDocument const& document) {
        for (TreeWalk walk(document.GetDocumentElement()); walk.Current() != nullptr; walk.Advance())
            AddElement(*walk.Current());
    }

    bool IsEveryElementInSome() const { return m_ofElements.count({}) == 0; }
    bool HasElementsIn(std::string const& uri) const { return m_ofElements.count(uri) != 0; }
    bool HasAttributesIn(std::string const& uri) const { return m_ofAttributes.count(uri) != 0; }

    // Without no namespace and the one whose prefix is always known.
    std::set<std::string> All() const {
        std::set<std::string> all;
        for (auto const* part : {&m_ofElements, &m_ofAttributes})
            all.insert(part->begin(), part->end());
        all.erase(std::string());
        all.erase(std::string(kXmlNamespace));
        return all;
    }
    std::set<std::string, std::less<>> const& PrefixesInValues() const { return m_prefixesInValues; }

private:
    using Names = std::set<std::string, std::less<>>;

    void AddElement(CXmlElement const& element) {
        // Neighbours mostly share a namespace, so the set is rarely searched.
        std::string const& uri = element.GetNamespaceURI();
        if (m_lastOfElements == nullptr || *m_lastOfElements != uri)
            m_lastOfElements = &*m_ofElements.insert(uri).first;
        if (element.GetFirstElement() == nullptr)
            AddValue(element.GetNodeText().Read(m_room));
        for (std::size_t i = 0; i < element.GetAttributeCount(); ++i) {
            CXmlAttribute const& attribute = *element.GetAttributeAt(i);
            if (!attribute.GetNamespaceURI().empty())
                m_ofAttributes.insert(attribute.GetNamespaceURI());
            AddValue(attribute.GetValueView());
        }
    }

    void AddValue(std::string_view value) {
        std::string_view const prefix = PrefixOfQName(value);
        if (!prefix.empty() && m_prefixesInValues.find(prefix) == m_prefixesInValues.end())
            m_prefixesInValues.emplace(prefix);
    }

    std::string m_room; // for texts that are not in one piece
    Names m_ofElements;
    Names m_ofAttributes;
    Names m_prefixesInValues;
    std::string const* m_lastOfElements = nullptr; // in m_ofElements
};

// If the root's namespace has no prefix, it was a default namespace. A name without a namespace cannot be
// written under a default namespace, so then there is none.
std::string DefaultNamespaceOf(CXmlDocument const& document, UsedNamespaces const& used) {
    if (!used.IsEveryElementInSome())
        return {};
    std::string const& ofRoot = document.GetDocumentElement()->GetNamespaceURI();
    if (document.LookupAliasFromNamespace(ofRoot.c_str()).empty())
        return ofRoot;
    std::string const declared = document.LookupNamespaceFromAlias("");
    return used.HasElementsIn(declared) ? declared : std::string();
}

std::string MakeUpPrefix(CXmlDocument const& document, CNamespaceAliasMap const& aliases) {
    for (int number = 1;; ++number) {
        std::string prefix = "ns" + std::to_string(number);
        if (document.LookupNamespaceFromAlias(prefix.c_str()).empty() &&
            !aliases.DoesAliasExist(prefix.c_str()))
            return prefix;
    }
}

} // namespace

void UsePrefixesOf(CXmlDocument const& document, CSerializationContext& ctx) {
    if (document.GetDocumentElement() == nullptr)
        return;
    UsedNamespaces const used(document);
    std::string const defaultNamespace = DefaultNamespaceOf(document, used);
    CNamespaceAliasMap& aliases = ctx.GetNamespaceAliases();
    // Names can take any prefix of their namespace, values cannot.
    for (std::string const& prefix : used.PrefixesInValues()) {
        std::string const uri = document.LookupNamespaceFromAlias(prefix.c_str());
        if (!uri.empty() && uri != kXmlNamespace)
            aliases.Add(prefix.c_str(), uri.c_str());
    }
    for (std::string const& uri : used.All()) {
        bool const needsPrefix = uri != defaultNamespace || used.HasAttributesIn(uri);
        if (!needsPrefix || aliases.DoesNamespaceExist(uri.c_str()))
            continue;
        std::string const prefix = document.LookupAliasFromNamespace(uri.c_str());
        aliases.Add((prefix.empty() ? MakeUpPrefix(document, aliases) : prefix).c_str(), uri.c_str());
    }
    ctx.SetDefaultNamespaceURI(defaultNamespace.c_str());
}

} // namespace zvxml
