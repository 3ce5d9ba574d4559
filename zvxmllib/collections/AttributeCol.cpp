// CAttributeCol, attributes that no schema describes.
#include "zvxmllib/binding/NamespaceRules.h"
#include "zvxmllib/collections/Attribute.h"
#include "zvxmllib/collections/Failures.h"
#include "zvxmllib/context/SerializationContext.h"
#include "zvxmllib/document/XmlAttribute.h"
#include "zvxmllib/document/XmlElement.h"
#include "zvxmllib/foundation/TextOrEmpty.h"

namespace ZvXmlLib16 {

// The additional root attributes of a context. Copies share the collection.
struct detail::RootAttributes {
    CSmartPtr<CAttributeCol> attributes{new CAttributeCol("", kAnyNamespace, "")};
};

CSmartPtr<CAttributeCol> CSerializationContext::GetAdditionalRootAttributes() const {
    return m_rootAttributes.Get().attributes;
}

CInstanceMonitor::Registration CAttributeCol::s_registration("CAttributeCol");

CAttributeCol::CAttributeCol(char const* namespaceURI, char const* allowedNamespaces,
                             char const* targetNamespace)
    : CXmlCollection("", namespaceURI, 0, -1), CInstanceMonitor(s_registration),
      m_allowedNamespaces(detail::TextOrEmpty(allowedNamespaces)),
      m_targetNamespace(detail::TextOrEmpty(targetNamespace)) {
    std::string_view const allowed = m_allowedNamespaces;
    std::string_view const first = allowed.substr(0, allowed.find(' '));
    if (m_namespace.empty() && first.size() >= 2 && first[0] != '#' && first[1] != '#')
        m_namespace = first;
}

CAttributeCol::~CAttributeCol() = default;

CXmlObjectBase* CAttributeCol::GetBase() {
    return this;
}

std::string CAttributeCol::GetTargetNamespace() {
    return m_namespace;
}

CSmartPtr<CAttribute> CAttributeCol::Add(char const* name) {
    return Add(name, "", m_namespace.c_str());
}

CSmartPtr<CAttribute> CAttributeCol::Add(char const* name, char const* value) {
    return Add(name, value, m_namespace.c_str());
}

CSmartPtr<CAttribute> CAttributeCol::Add(char const* name, char const* value, char const* namespaceURI) {
    TestNamespace(namespaceURI, m_allowedNamespaces.c_str(), m_targetNamespace.c_str());
    CSmartPtr<CAttribute> attribute(new CAttribute(name, value, namespaceURI));
    AppendItem(attribute);
    return attribute;
}

CSmartPtr<CAttribute> CAttributeCol::Add(CAttribute* attribute) {
    CSmartPtr<CAttribute> result(attribute);
    AppendItem(attribute);
    return result;
}

void CAttributeCol::AddAfter(CAttribute const* after, CAttribute* attribute) {
    AddAfterItem(after, attribute);
}

void CAttributeCol::AddBefore(CAttribute const* before, CAttribute* attribute) {
    AddBeforeItem(before, attribute);
}

CSmartPtr<CAttribute> CAttributeCol::Item(int index) const {
    return *CZvIterator<CAttribute>(GetNodeAtIndex(index));
}

CSmartPtr<CAttributeCol> CAttributeCol::Clone() const {
    CSmartPtr<CAttributeCol> clone(
        new CAttributeCol("", m_allowedNamespaces.c_str(), m_targetNamespace.c_str()));
    if (!m_namespace.empty())
        clone->m_namespace = m_namespace;
    for (CAttribute* const attribute : *this)
        clone->Add(attribute->Clone());
    if (m_declarations != nullptr)
        clone->m_declarations = std::make_unique<std::vector<Declaration>>(*m_declarations);
    return clone;
}

// An attribute does not count as a level of nesting.
void CAttributeCol::ToXml_Int(CXmlWriter* writer, bool, char const* ns, CSerializationContext const& ctx,
                              bool) const {
    for (CAttribute const* const attribute : *this)
        attribute->ToXml_Int(writer, false, ns, ctx, false);
}

CXmlElement* CAttributeCol::FromXml_Int(CXmlElement* element, CXmlElement* current,
                                        CSerializationContext const& ctx, bool) {
    for (std::size_t i = 0; i < element->GetAttributeCount(); ++i) {
        CXmlAttribute const& source = *element->GetAttributeAt(i);
        std::string const& ns = source.GetNamespaceURI();
        if (!IsNamespaceAllowed(ns, m_allowedNamespaces, m_targetNamespace, ctx.GetStrict()))
            FailAttributeNamespace(source.GetLocalName(), element->GetXPath());
        CSmartPtr<CAttribute> const attribute(
            new CAttribute(source.ShareLocalName(), source.GetValueView(), source.ShareNamespaceURI()));
        AppendItem(attribute);
    }
    return current;
}

} // namespace ZvXmlLib16
