// InfosetChecks, what a Fast Infoset document must fulfil to stand for an XML document.
#include "zvxmllib/fastinfoset/InfosetChecks.h"

#include "zvxmllib/document/NameTable.h"
#include "zvxmllib/fastinfoset/Failures.h"
#include "zvxmllib/foundation/Utf16.h"
#include "zvxmllib/foundation/XmlNamespaces.h"
#include "zvxmllib/values/binary/Encoder.h"
#include "zvxmllib/writers/XmlNames.h"

#include <algorithm>

namespace ZvXmlLib16 {

namespace {

void RequireLocal(std::string_view utf8) {
    if (char32_t const character = FindCharacterNotLocal(utf8))
        FailReadCharacterNotLocal(character);
}

} // namespace

InfosetChecks::InfosetChecks(detail::NameTable& names)
    : m_noText(names.Keep("")), m_xml(names.Keep("xml")), m_xmlNamespace(names.Keep(kXmlNamespace)),
      m_xmlns(names.Keep("xmlns")), m_xmlnsNamespace(names.Keep(kXmlnsNamespace)) {
    m_inForce[m_xml] = {m_xmlNamespace, 0};
}

void InfosetChecks::RequireName(std::string_view utf8) {
    if (!IsXmlNCName(utf8))
        FailReadName(Utf8ToLocal(utf8.data(), utf8.size()));
    RequireLocal(utf8);
}

void InfosetChecks::RequireText(std::string_view utf8) {
    XmlTextFault const fault = FindXmlTextFault(utf8);
    if (fault.kind == XmlTextFault::kMalformed)
        FailReadUtf8();
    if (fault.kind == XmlTextFault::kCharacter)
        FailReadCharacter(fault.character);
    RequireLocal(utf8);
}

void InfosetChecks::RequireText(std::u16string_view units) {
    if (!units.empty() && ConvertUtf16ToUtf8(units.data(), units.size(), nullptr, 0) == 0)
        FailReadUtf16();
    RequireText(ConvertUtf16ToUtf8(units));
}

void InfosetChecks::OpenElement() {
    m_open.push_back(m_hidden.size());
    m_attributes.clear();
}

void InfosetChecks::CloseElement() {
    for (; m_hidden.size() > m_open.back(); m_hidden.pop_back())
        m_inForce[m_hidden.back().prefix] = m_hidden.back().binding;
    m_open.pop_back();
}

void InfosetChecks::Declare(std::string const* prefix, std::string const* uri) {
    bool const isXml = prefix == m_xml && uri == m_xmlNamespace;
    bool const takesPrefixAway = prefix != m_noText && uri == m_noText;
    bool const isReserved =
        prefix == m_xml || prefix == m_xmlns || uri == m_xmlNamespace || uri == m_xmlnsNamespace;
    if (takesPrefixAway || (isReserved && !isXml))
        FailReadDeclaration(*prefix);
    Binding& binding = m_inForce[prefix];
    if (binding.depth == m_open.size())
        FailReadTwin(*prefix);
    m_hidden.push_back({prefix, binding});
    binding = {uri, m_open.size()};
}

void InfosetChecks::RequireDeclared(std::string const* prefix, std::string const* uri) const {
    if (prefix == m_noText && uri != m_xmlnsNamespace)
        return;
    auto const found = m_inForce.find(prefix);
    if (found == m_inForce.end() || found->second.uri != uri)
        FailUndeclaredPrefix(*prefix);
}

void InfosetChecks::AddAttribute(detail::XmlName const* name) {
    if (name->localName == m_xmlns && name->namespaceUri == m_noText)
        FailReadName(*m_xmlns);
    m_attributes.push_back(name);
}

void InfosetChecks::EndAttributes() {
    std::sort(m_attributes.begin(), m_attributes.end());
    auto const twin = std::adjacent_find(m_attributes.begin(), m_attributes.end());
    if (twin != m_attributes.end())
        FailReadTwin(*(*twin)->localName);
}

} // namespace ZvXmlLib16
