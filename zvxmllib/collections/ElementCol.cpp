// CElementCol, elements that no schema describes.
#include "zvxmllib/binding/NamespaceRules.h"
#include "zvxmllib/binding/NestingGuard.h"
#include "zvxmllib/collections/Element.h"
#include "zvxmllib/collections/Failures.h"
#include "zvxmllib/document/XmlElement.h"

namespace ZvXmlLib16 {

namespace {

char const* TextOf(char const* text) noexcept {
    return text == nullptr ? "" : text;
}

} // namespace

CInstanceMonitor::Registration CElementCol::s_registration("CElementCol");

CElementCol::CElementCol(char const* namespaceURI, char const* allowedNamespaces, char const* targetNamespace,
                         int, int)
    : CInstanceMonitor(s_registration), m_targetNamespace(TextOf(targetNamespace)) {
    TestNamespace(namespaceURI, allowedNamespaces, targetNamespace);
    std::string_view const allowed = TextOf(allowedNamespaces);
    m_itemNamespace = TextOf(namespaceURI);
    if (m_itemNamespace.empty() && allowed.substr(0, 2) == "##")
        m_itemNamespace = allowed;
}

CElementCol::~CElementCol() = default;

CXmlObjectBase* CElementCol::GetBase() {
    return this;
}

std::string CElementCol::GetNamespace() {
    return m_targetNamespace;
}

std::string CElementCol::GetTargetNamespace() {
    return m_targetNamespace;
}

CSmartPtr<CElement> CElementCol::Add(char const* name) {
    if (m_itemNamespace.empty())
        FailNoItemNamespace();
    return Add(name, m_itemNamespace.c_str());
}

CSmartPtr<CElement> CElementCol::Add(char const* name, char const* namespaceURI) {
    CSmartPtr<CElement> element(new CElement(name, namespaceURI, kAnyNamespace, m_targetNamespace.c_str()));
    AppendItem(element);
    return element;
}

CSmartPtr<CElement> CElementCol::Add(CElement* element) {
    CSmartPtr<CElement> result(element);
    AppendItem(element);
    return result;
}

void CElementCol::AddAfter(CElement const* after, CElement* element) {
    AddAfterItem(after, element);
}

void CElementCol::AddBefore(CElement const* before, CElement* element) {
    AddBeforeItem(before, element);
}

CSmartPtr<CElement> CElementCol::Item(int index) const {
    return *CZvIterator<CElement>(GetNodeAtIndex(index));
}

CSmartPtr<CElementCol> CElementCol::Clone() const {
    CSmartPtr<CElementCol> clone(
        new CElementCol("", kAnyNamespace, m_targetNamespace.c_str(), GetMinOccurs(), GetMaxOccurs()));
    clone->m_itemNamespace = m_itemNamespace;
    for (CElement* const element : *this) {
        NestingGuard const level;
        clone->Add(element->Clone());
    }
    return clone;
}

void CElementCol::ToXml_Int(CXmlWriter* writer, bool, char const* ns, CSerializationContext const& ctx,
                            bool) const {
    ValidateCount(ctx);
    for (CNode const* node = m_pHead; node != nullptr; node = node->m_pNext)
        CXmlObjectBase::ToXml_Int(node->m_item->GetBase(), writer, false, ns, ctx, false);
}

CXmlElement* CElementCol::FromXml_Int(CXmlElement* element, CXmlElement* current,
                                      CSerializationContext const& ctx, bool) {
    while (current != nullptr && ReadOne(element, current, ctx)) {
    }
    return current;
}

// NOLINTNEXTLINE(performance-unnecessary-value-param): the signature of the slot
CXmlElement* CElementCol::FromXmlLockElementName_Int(std::string localName, std::string namespaceURI,
                                                     CXmlElement* element, CXmlElement* current,
                                                     CSerializationContext const& ctx) {
    while (current != nullptr && current->GetLocalName() == localName &&
           current->GetNamespaceURI() == namespaceURI && ReadOne(element, current, ctx)) {
    }
    return current;
}

// Reads `current` and moves on. False if the new element did not take it.
bool CElementCol::ReadOne(CXmlElement* element, CXmlElement*& current, CSerializationContext const& ctx) {
    CSmartPtr<CElement> const item(new CElement(CElement::NamespaceIsTested(), current->ShareLocalName(),
                                                current->ShareNamespaceURI(), kAnyNamespace,
                                                m_targetNamespace.c_str()));
    CXmlElement* const next = CXmlObjectBase::FromXml_Int(item, element, current, ctx);
    if (next == current)
        return false;
    AppendItem(item);
    current = next;
    return true;
}

} // namespace ZvXmlLib16
