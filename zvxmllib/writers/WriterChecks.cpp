// WriterChecks, what must hold for the calls of a writer to make a document of XML.
#include "zvxmllib/writers/WriterChecks.h"

#include "zvxmllib/foundation/XmlNamespaces.h"
#include "zvxmllib/values/binary/BinaryData.h"
#include "zvxmllib/values/binary/Encoder.h"
#include "zvxmllib/writers/Failures.h"
#include "zvxmllib/writers/XmlNames.h"

#include <algorithm>

namespace ZvXmlLib16 {

namespace {

// Local text in UTF-8, the text itself where it is the same. A zero stays one, so that it is found.
std::string_view Utf8Of(std::string const& text, bool isLocalUtf8, CBinaryData& room) {
    if (isLocalUtf8 || text.find('\0') != std::string::npos)
        return text;
    room = LocalToUtf8(text.c_str());
    return {reinterpret_cast<char const*>(room.GetData()), room.GetLength()};
}

bool IsXmlInAnyCase(std::string_view target) {
    auto const lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; };
    return target.size() == 3 && lower(target[0]) == 'x' && lower(target[1]) == 'm' &&
           lower(target[2]) == 'l';
}

} // namespace

XmlInstruction RequireInstruction(std::string const& text) {
    constexpr std::string_view kOpen = "<?";
    constexpr std::string_view kClose = "?>";
    constexpr std::string_view kBlanks = " \t\r\n";
    std::string_view data = text;
    if (data.size() < kOpen.size() + kClose.size() || data.substr(0, kOpen.size()) != kOpen ||
        data.find(kClose) != data.size() - kClose.size())
        FailInstruction(text);
    data = data.substr(kOpen.size(), data.size() - kOpen.size() - kClose.size());
    std::string_view const target = data.substr(0, data.find_first_of(kBlanks));
    CBinaryData room;
    if (IsXmlInAnyCase(target) || !IsXmlNCName(Utf8Of(std::string(target), IsLocalTextUtf8(), room)) ||
        FindXmlTextFault(Utf8Of(text, IsLocalTextUtf8(), room)).kind != XmlTextFault::kNone)
        FailInstruction(text);
    data.remove_prefix(target.size());
    data.remove_prefix(std::min(data.find_first_not_of(kBlanks), data.size()));
    return {target, data};
}

WriterChecks::WriterChecks(bool hasNamespaces)
    : m_hasNamespaces(hasNamespaces), m_isLocalUtf8(IsLocalTextUtf8()) {}

// A document has few names: those that were good lately are known again.
bool WriterChecks::IsName(std::string const& name) const {
    if (name.empty())
        return false;
    auto const octet = [&name](std::size_t at) { return static_cast<unsigned char>(name[at]); };
    std::size_t const place =
        (octet(0) * 5U + octet(name.size() / 2) * 17U + octet(name.size() - 1) * 33U + name.size() * 3U) %
        m_goodNames.size();
    std::string& known = m_goodNames[place];
    if (known == name)
        return true;
    CBinaryData room;
    std::string_view const utf8 = Utf8Of(name, m_isLocalUtf8, room);
    bool const isName = m_hasNamespaces ? IsXmlNCName(utf8) : IsXmlName(utf8);
    if (isName)
        known = name;
    return isName;
}

void WriterChecks::RequireText(std::string const& text, std::string const& owner) const {
    if (m_isLocalUtf8 && FindXmlTextFault(text).kind == XmlTextFault::kNone)
        return;
    CBinaryData room;
    XmlTextFault const fault = FindXmlTextFault(Utf8Of(text, m_isLocalUtf8, room));
    if (fault.kind == XmlTextFault::kMalformed)
        FailMalformedText(owner);
    if (fault.kind == XmlTextFault::kCharacter)
        FailCharacterOfXml(fault.character, owner);
}

void WriterChecks::RequireNamespace(std::string const& ns, std::string const& owner) const {
    if (ns.empty() || ns == m_goodNamespace)
        return;
    RequireText(ns, owner);
    if (ns == kXmlnsNamespace)
        FailNamespaceOfXml(ns);
    m_goodNamespace = ns;
}

// "xml" is bound to its namespace, and nothing else is; a prefix can not be taken away (Namespaces in
// XML 1.0, 3 and 6.1). An empty alias counts as none.
void WriterChecks::RequireAlias(std::string const& alias, std::string const& ns) const {
    if (alias.empty())
        return;
    RequireNamespace(ns, alias);
    if (ns.empty() || !IsName(alias) || alias == "xmlns" || (alias == "xml") != (ns == kXmlNamespace))
        FailAlias(alias);
}

void WriterChecks::AddDocumentAlias(std::string const& alias, std::string const& ns) {
    if (alias.empty())
        return;
    std::string const& known = m_documentAliases.emplace(alias, ns).first->second;
    if (known != ns)
        FailAliasOfTwo(alias, known, ns);
}

void WriterChecks::RequireDefaultNamespace(std::string const& ns) const {
    RequireNamespace(ns, "xmlns");
    if (ns == kXmlNamespace)
        FailNamespaceOfXml(ns);
}

void WriterChecks::RequireDeclaration(std::string const& alias, std::string const& ns) const {
    if (alias.empty())
        RequireDefaultNamespace(ns);
    else
        RequireAlias(alias, ns);
}

void WriterChecks::RequireComment(std::string const& text) const {
    CBinaryData room;
    if (text.find("--") != std::string::npos || (!text.empty() && text.back() == '-') ||
        FindXmlTextFault(Utf8Of(text, m_isLocalUtf8, room)).kind != XmlTextFault::kNone)
        FailComment(text);
}

void WriterChecks::StartElement(std::string const& name, std::string const& ns) {
    if (!IsName(name))
        FailElementNameOfXml(name);
    RequireNamespace(ns, name);
    if (m_depth == 0 && m_hasRoot)
        FailSecondRoot(name);
    m_hasRoot = true;
    m_attributeCount = 0;
    if (!m_moreAttributes.empty())
        m_moreAttributes = {}; // with its buckets, which may be many
    if (m_depth == m_open.size())
        m_open.emplace_back();
    m_open[m_depth++] = name;
}

void WriterChecks::EndElement() {
    if (m_depth != 0)
        --m_depth;
}

void WriterChecks::AddAttribute(std::string const& name, std::string const& ns, std::string const& value) {
    if (!IsName(name) || (m_hasNamespaces && ns.empty() && name == "xmlns"))
        FailAttributeNameOfXml(name);
    RequireNamespace(ns, name);
    RequireText(value, name);
    if (m_attributeCount < kFewAttributes) {
        auto const end = m_attributes.begin() + m_attributeCount;
        if (std::any_of(m_attributes.begin(), end,
                        [&](Name const& a) { return a.name == name && a.ns == ns; }))
            FailTwinAttribute(name);
        m_attributes[m_attributeCount].name = name;
        m_attributes[m_attributeCount++].ns = ns;
        return;
    }
    // No name has a blank in it.
    if (m_moreAttributes.empty()) {
        for (Name const& a : m_attributes)
            m_moreAttributes.insert(a.name + ' ' + a.ns);
    }
    if (!m_moreAttributes.insert(name + ' ' + ns).second)
        FailTwinAttribute(name);
}

void WriterChecks::RequireType(std::string const& ns, std::string const& name) const {
    if (!IsName(name))
        FailElementNameOfXml(name);
    RequireNamespace(ns, name);
}

void WriterChecks::RequireValue(std::string const& text) const {
    RequireText(text, m_depth == 0 ? std::string() : m_open[m_depth - 1]);
}

bool WriterChecks::IsValue(std::string const& text) const {
    CBinaryData room;
    return FindXmlTextFault(Utf8Of(text, m_isLocalUtf8, room)).kind == XmlTextFault::kNone;
}

void WriterChecks::RequireRoot() const {
    if (!m_hasRoot)
        FailNoRoot();
}

} // namespace ZvXmlLib16
