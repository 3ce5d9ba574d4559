// CXmlCollectionBase, the base of all collections.
#include "zvxmllib/binding/XmlCollectionBase.h"

#include "zvxmllib/binding/Failures.h"
#include "zvxmllib/context/SerializationContext.h"
#include "zvxmllib/foundation/RecentTexts.h"

#include <algorithm>

namespace ZvXmlLib16 {

CXmlCollectionBase::CXmlCollectionBase() = default;

CXmlCollectionBase::CXmlCollectionBase(char const* elementName, char const* namespaceURI, int minOccurs,
                                       int maxOccurs)
    : m_namespace(detail::ShareRecent(namespaceURI == nullptr ? "" : namespaceURI)), m_minOccurs(minOccurs),
      m_maxOccurs(maxOccurs) {
    SetElementName(elementName);
}

CXmlCollectionBase::~CXmlCollectionBase() = default;

CXmlObjectBase* CXmlCollectionBase::GetBase() {
    return this;
}

std::string CXmlCollectionBase::GetTargetNamespace() {
    FailTargetNamespaceOfCollection();
}

std::string CXmlCollectionBase::GetNamespace() {
    return m_namespace;
}

void CXmlCollectionBase::ValidateCount(CSerializationContext const& ctx) const {
    if (ctx.GetIgnoreInvalidCollectionCounts())
        return;
    int const count = GetCount();
    if (m_maxOccurs != -1 && count > m_maxOccurs)
        FailTooManyItems(GetElementName(), m_maxOccurs);
    if (count < m_minOccurs)
        FailTooFewItems(GetElementName(), m_minOccurs);
}

bool CXmlCollectionBase::IsValidCount(CSerializationContext const& ctx) const {
    if (ctx.GetIgnoreInvalidCollectionCounts())
        return true;
    int const count = GetCount();
    return (m_maxOccurs == -1 || count <= m_maxOccurs) && count >= m_minOccurs;
}

void CXmlCollectionBase::AddEventListener(IEventSink* sink) {
    if (m_listeners == nullptr)
        m_listeners = std::make_unique<std::vector<IEventSink*>>();
    m_listeners->push_back(sink);
}

void CXmlCollectionBase::RemoveEventListener(IEventSink* sink) {
    if (m_listeners != nullptr)
        m_listeners->erase(std::remove(m_listeners->begin(), m_listeners->end(), sink), m_listeners->end());
}

template <class Fire>
void CXmlCollectionBase::TellListeners(Fire fire) {
    if (m_listeners == nullptr)
        return;
    for (IEventSink* const sink : *m_listeners)
        fire(sink);
}

void CXmlCollectionBase::FireOnCollectionChange() {
    TellListeners([this](IEventSink* sink) { FireOnCollectionChangeEvent(sink, this); });
}

void CXmlCollectionBase::FireOnCollectionAdd(void* item) {
    TellListeners([this, item](IEventSink* sink) { FireOnCollectionAddEvent(sink, this, item); });
}

void CXmlCollectionBase::FireOnCollectionAddComplete(void* item) {
    TellListeners([this, item](IEventSink* sink) { FireOnCollectionAddCompleteEvent(sink, this, item); });
}

void CXmlCollectionBase::FireOnCollectionRemove(int index) {
    TellListeners([this, index](IEventSink* sink) { FireOnCollectionRemoveEvent(sink, this, index); });
}

void CXmlCollectionBase::FireOnCollectionRemoveComplete(int index) {
    TellListeners(
        [this, index](IEventSink* sink) { FireOnCollectionRemoveCompleteEvent(sink, this, index); });
}

} // namespace ZvXmlLib16
