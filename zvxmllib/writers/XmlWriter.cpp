// CXmlWriter, the output contract of a serialisation.
#include "zvxmllib/writers/XmlWriter.h"

#include "zvxmllib/foundation/XmlNamespaces.h"
#include "zvxmllib/writers/Failures.h"

namespace ZvXmlLib16 {

namespace {

CInstanceMonitor::Registration s_contextRegistration("CXmlWriterContext");

} // namespace

CXmlWriter::CXmlWriter(char const* className) : CInstanceMonitor(className) {
    m_namespaceMap.emplace(kXmlNamespace, "xml");
}

CXmlWriter::CXmlWriter(Registration& registration) : CInstanceMonitor(registration) {
    m_namespaceMap.emplace(kXmlNamespace, "xml");
}

CXmlWriter::~CXmlWriter() {
    if (m_openContexts != 0)
        SettleContextCounts(m_contextsNotCounted + 1);
}

void CXmlWriter::Open() {}

void CXmlWriter::Close() {
    if (m_pContext != nullptr)
        FailElementNotClosed();
}

void CXmlWriter::SetDefaultNamespace(std::string const& ns) {
    if (m_pContext != nullptr)
        m_pContext->SetDefaultNamespace(ns);
    else
        m_defaultNamespace = ns;
}

void CXmlWriter::AddNamespaceAlias(std::string const& alias, std::string const& ns) {
    if (m_pContext != nullptr)
        m_pContext->SetNamespaceMapValue(ns, alias);
    else
        m_namespaceMap[ns] = alias;
}

void CXmlWriter::CloseOpenArray() {}

void CXmlWriter::DeclareOnNextElement(std::string const&, std::string const&) {}

void CXmlWriter::BeginMixedContent() {}

bool CXmlWriter::TryWriteTextElement(std::string const&, std::string const&, std::string const&, ItemType) {
    return false;
}

void CXmlWriter::SetCollectionState(int state) {
    if (m_pContext == nullptr)
        return;
    // An array that continues may belong to a repeated group that contains a collection.
    if (state == CollectionState_Announced && m_pContext->m_arrayOpen)
        CloseOpenArray();
    // A collection that never opened an array leaves nothing to close.
    bool const nothingToClose = state == CollectionState_Ended && !m_pContext->m_arrayOpen;
    m_pContext->m_collectionState = nothingToClose ? CollectionState_None : state;
}

void CXmlWriter::SetChildrenSayType(bool sayType) noexcept {
    if (m_pContext != nullptr)
        m_pContext->m_childrenSayType = sayType;
}

bool CXmlWriter::SaysType() const noexcept {
    return m_pContext != nullptr && m_pContext->m_parent != nullptr &&
           m_pContext->m_parent->m_childrenSayType;
}

CXmlWriter::CXmlWriterContext& CXmlWriter::PushContext() {
    if (m_openContexts == m_contexts.size())
        m_contexts.push_back(std::unique_ptr<CXmlWriterContext>(new CXmlWriterContext));
    CXmlWriterContext& context = *m_contexts[m_openContexts];
    context.Reset(m_pContext);
    if (m_pContext == nullptr) {
        context.MakeOwnScope();
        context.m_ownDefaultNamespace = m_defaultNamespace;
        for (auto const& [uri, alias] : m_namespaceMap)
            context.EnterGiven(uri, alias);
        m_contextRecord = s_contextRegistration.Record();
        CountMany(*m_contextRecord, 1, 0);
    } else {
        ++m_contextsNotCounted;
    }
    ++m_openContexts;
    m_pContext = &context;
    return context;
}

void CXmlWriter::PopContext() noexcept {
    m_pContext = m_pContext->m_parent;
    if (--m_openContexts == 0)
        SettleContextCounts(m_contextsNotCounted + 1);
}

// The root is counted at once; everything nested in it is counted when the root is closed.
void CXmlWriter::SettleContextCounts(std::int32_t ended) noexcept {
    CountMany(*m_contextRecord, m_contextsNotCounted, ended);
    m_contextsNotCounted = 0;
}

} // namespace ZvXmlLib16
