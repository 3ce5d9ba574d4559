// CElementCol, elements that no schema describes.
#include "zvxmllib/binding/Failures.h"
#include "zvxmllib/binding/NamespaceRules.h"
#include "zvxmllib/binding/NestingGuard.h"
#include "zvxmllib/collections/Element.h"
#include "zvxmllib/collections/Failures.h"
#include "zvxmllib/context/SerializationContext.h"
#include "zvxmllib/document/XmlElement.h"
#include "zvxmllib/foundation/TextOrEmpty.h"

namespace ZvXmlLib16 {

CInstanceMonitor::Registration CElementCol::s_registration("CElementCol");

CElementCol::CElementCol(char const* namespaceURI, char const* allowedNamespaces, char const* targetNamespace,
                         int minOccurs, int maxOccurs)
    : CInstanceMonitor(s_registration), m_targetNamespace(detail::TextOrEmpty(targetNamespace)) {
    TestNamespace(namespaceURI, allowedNamespaces, targetNamespace);
    std::string_view const allowed = detail::TextOrEmpty(allowedNamespaces);
    m_itemNamespace = detail::TextOrEmpty(namespaceURI);
    if (m_itemNamespace.empty() && allowed.substr(0, 2) == "##")
        m_itemNamespace = allowed;
    if (allowed != kAnyNamespace || minOccurs != 0 || maxOccurs != -1)
        m_limits.reset(new Limits{std::string(allowed), minOccurs, maxOccurs});
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
    if (m_limits != nullptr)
        clone->m_limits = std::make_unique<Limits const>(*m_limits);
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

void CElementCol::ValidateCount(CSerializationContext const& ctx) const {
    CXmlCollection::ValidateCount(ctx);
    if (IsValidCount(ctx))
        return;
    if (GetCount() < m_limits->minOccurs)
        FailTooFewItems(GetElementName(), m_limits->minOccurs);
    FailTooManyItems(GetElementName(), m_limits->maxOccurs);
}

bool CElementCol::IsValidCount(CSerializationContext const& ctx) const {
    if (m_limits == nullptr || !ctx.GetStrict() || ctx.GetIgnoreInvalidCollectionCounts())
        return true;
    bool const isFew = m_limits->maxOccurs == -1 || GetCount() <= m_limits->maxOccurs;
    return isFew && GetCount() >= m_limits->minOccurs;
}

// Whether what a schema says lets this collection have one more.
bool CElementCol::TakesStrictly(CXmlElement const& element, CSerializationContext const& ctx) const {
    if (m_limits == nullptr)
        return true;
    bool const hasRoom = m_limits->maxOccurs == -1 || GetCount() < m_limits->maxOccurs ||
                         ctx.GetIgnoreInvalidCollectionCounts();
    return hasRoom && AllowsStrictly(element.GetNamespaceURI());
}

bool CElementCol::AllowsStrictly(std::string const& ns) const noexcept {
    return m_limits == nullptr ||
           IsNamespaceAllowed(ns, m_limits->allowedNamespaces, m_targetNamespace, true);
}

// Reads `current` and moves on. False if the new element did not take it.
bool CElementCol::ReadOne(CXmlElement* element, CXmlElement*& current, CSerializationContext const& ctx) {
    if (ctx.GetStrict() && !TakesStrictly(*current, ctx))
        return false;
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
