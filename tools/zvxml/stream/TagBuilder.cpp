// Makes start tags of names as they are written, by the rules of Namespaces in XML.
#include "TagBuilder.h"

#include "zvxmllib/foundation/XmlNamespaces.h"

#include <algorithm>
#include <tuple>

namespace zvxml {

namespace {

constexpr std::string_view kXmlUri = ZvXmlLib16::kXmlNamespace;
constexpr std::string_view kXmlnsUri = ZvXmlLib16::kXmlnsNamespace;
constexpr std::string_view kXmlns = "xmlns";
constexpr std::size_t kFewAttributes = 8;
constexpr std::size_t kNone = static_cast<std::size_t>(-1);

std::string Quoted(std::string_view text) {
    return "'" + std::string(text) + "'";
}

Name SplitName(std::string_view qualified) {
    Name name{qualified, {}, qualified, {}};
    std::size_t const colon = qualified.find(':');
    if (colon == std::string_view::npos)
        return name;
    name.prefix = qualified.substr(0, colon);
    name.local = qualified.substr(colon + 1);
    if (name.prefix.empty() || name.local.empty() || name.local.find(':') != std::string_view::npos)
        throw DocumentError("the name " + Quoted(qualified) + " has a colon in the wrong place");
    return name;
}

} // namespace

void TagBuilder::Begin(std::string_view qualified) {
    m_open.push_back(m_count);
    m_tag.name = SplitName(qualified);
    m_tag.declarations.clear();
    m_tag.attributes.clear();
}

void TagBuilder::AddAttribute(std::string_view qualified, std::string_view value) {
    if (qualified.substr(0, kXmlns.size()) == kXmlns) {
        if (qualified.size() == kXmlns.size())
            return Declare({}, value);
        if (qualified[kXmlns.size()] == ':')
            return Declare(SplitName(qualified).local, value);
    }
    m_tag.attributes.push_back({SplitName(qualified), value});
}

void TagBuilder::Declare(std::string_view prefix, std::string_view uri) {
    bool const isOfXml = prefix == "xml";
    if (prefix == kXmlns || uri == kXmlnsUri || isOfXml != (uri == kXmlUri))
        throw DocumentError("the prefix " + Quoted(prefix) + " cannot stand for the namespace " +
                            Quoted(uri));
    if (uri.empty() && !prefix.empty())
        throw DocumentError("the prefix " + Quoted(prefix) + " cannot stand for no namespace");
    if (std::size_t const place = Find(prefix); place != kNone && place >= m_open.back())
        throw DocumentError("the prefix " + Quoted(prefix) + " is declared twice");
    if (m_count == m_bindings.size())
        m_bindings.emplace_back();
    m_places[std::string(prefix)].push_back(m_count);
    m_bindings[m_count].prefix = prefix; // the room of old ones is used again
    m_bindings[m_count++].uri = uri;
    m_tag.declarations.push_back({prefix, uri});
}

// Most documents have a few prefixes, which are faster looked at than looked up.
std::size_t TagBuilder::Find(std::string_view prefix) const {
    constexpr std::size_t kFew = 12;
    if (m_count > kFew) {
        auto const found = m_places.find(std::string(prefix));
        return found == m_places.end() ? kNone : found->second.back();
    }
    for (std::size_t i = m_count; i-- != 0;) {
        if (m_bindings[i].prefix == prefix)
            return i;
    }
    return kNone;
}

std::string const* TagBuilder::FindUri(std::string_view prefix) const {
    static std::string const ofXml(kXmlUri);
    if (std::size_t const place = Find(prefix); place != kNone)
        return &m_bindings[place].uri;
    return prefix == "xml" ? &ofXml : nullptr;
}

std::string_view TagBuilder::FindPrefix(std::string_view uri) const {
    constexpr std::size_t kMostLookedAt = 64;
    for (std::size_t i = m_count; i-- != 0 && m_count - i <= kMostLookedAt;) {
        Binding const& binding = m_bindings[i];
        if (binding.uri == uri && !binding.prefix.empty() && *FindUri(binding.prefix) == uri)
            return binding.prefix;
    }
    return {};
}

void TagBuilder::Resolve(Name& name, bool isAttribute) const {
    if (name.prefix.empty() && isAttribute)
        return;
    std::string const* const uri = FindUri(name.prefix);
    if (uri != nullptr)
        name.uri = *uri;
    else if (!name.prefix.empty())
        throw DocumentError("the prefix " + Quoted(name.prefix) + " is not declared");
}

StartTag const& TagBuilder::Finish() {
    Resolve(m_tag.name, false);
    for (Attribute& attribute : m_tag.attributes)
        Resolve(attribute.name, true);
    if (m_tag.attributes.size() > 1)
        RequireDifferentAttributes();
    return m_tag;
}

// In order of the names where there are many.
void TagBuilder::RequireDifferentAttributes() {
    auto const key = [](Name const* name) { return std::tie(name->local, name->uri); };
    m_sorted.clear();
    for (Attribute const& attribute : m_tag.attributes)
        m_sorted.push_back(&attribute.name);
    bool const areMany = m_sorted.size() > kFewAttributes;
    if (areMany)
        std::sort(m_sorted.begin(), m_sorted.end(),
                  [&](Name const* a, Name const* b) { return key(a) < key(b); });
    for (std::size_t i = 1; i < m_sorted.size(); ++i) {
        for (std::size_t j = areMany ? i - 1 : 0; j < i; ++j) {
            if (key(m_sorted[i]) == key(m_sorted[j]))
                throw DocumentError("the attribute " + Quoted(m_sorted[i]->qualified) + " stands twice");
        }
    }
}

void TagBuilder::Close() {
    for (; m_count != m_open.back(); --m_count) {
        auto const places = m_places.find(m_bindings[m_count - 1].prefix);
        places->second.pop_back();
        if (places->second.empty())
            m_places.erase(places);
    }
    m_open.pop_back();
}

} // namespace zvxml
