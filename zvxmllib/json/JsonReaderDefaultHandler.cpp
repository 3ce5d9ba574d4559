#include "zvxmllib/json/JsonReaderDefaultHandler.h"

#include "zvxmllib/foundation/DebugTrace.h"

namespace ZvXmlLib16 {

namespace {

CInstanceMonitor::Registration s_jsonReaderHandlerInstances("IJsonReaderHandler");

} // namespace

IJsonReaderHandler::IJsonReaderHandler() : CInstanceMonitor(s_jsonReaderHandlerInstances) {}

IJsonReaderHandler::~IJsonReaderHandler() = default;

CJsonReaderDefaultHandler::CJsonReaderDefaultHandler() = default;

CJsonReaderDefaultHandler::~CJsonReaderDefaultHandler() = default;

void CJsonReaderDefaultHandler::StartDocument() {
    m_isTraced = IsDebugTraceEnabled();
    if (m_isTraced)
        DebugTrace("StartDocument\n");
    if (m_next != nullptr)
        m_next->StartDocument();
}

void CJsonReaderDefaultHandler::EndDocument() {
    if (m_isTraced)
        DebugTrace("EndDocument\n");
    if (m_next != nullptr)
        m_next->EndDocument();
}

void CJsonReaderDefaultHandler::OnName(std::string const& name) {
    if (m_isTraced)
        DebugTrace("Name: %s\n", name.c_str());
    if (IsOnTop(StackItemKind::Name))
        Pop();
    Push(StackItemKind::Name, kNoIndex);
    m_names += name;
    if (m_next != nullptr)
        m_next->OnName(name);
}

void CJsonReaderDefaultHandler::OnString(std::string const& value) {
    if (m_isTraced)
        DebugTrace("String: %s\n", value.c_str());
    if (m_next != nullptr)
        m_next->OnString(value);
}

void CJsonReaderDefaultHandler::OnNumber(std::string const& text) {
    if (m_isTraced)
        DebugTrace("Number: %s\n", text.c_str());
    if (m_next != nullptr)
        m_next->OnNumber(text);
}

// The outermost object has no item.
void CJsonReaderDefaultHandler::StartObject() {
    if (m_isTraced)
        DebugTrace("StartObject\n");
    if (IsOnTop(StackItemKind::Name))
        m_stack.back().kind = StackItemKind::Object;
    else if (IsOnTop(StackItemKind::Array))
        Push(StackItemKind::Object, ++m_stack.back().index);
    if (m_next != nullptr)
        m_next->StartObject();
}

void CJsonReaderDefaultHandler::EndObject() {
    if (m_isTraced)
        DebugTrace("EndObject\n");
    PopThrough(StackItemKind::Object);
    if (m_next != nullptr)
        m_next->EndObject();
}

void CJsonReaderDefaultHandler::StartArray() {
    if (m_isTraced)
        DebugTrace("StartArray\n");
    if (IsOnTop(StackItemKind::Name))
        m_stack.back().kind = StackItemKind::Array;
    else if (!m_stack.empty())
        Push(StackItemKind::Array, kNoIndex);
    if (m_next != nullptr)
        m_next->StartArray();
}

void CJsonReaderDefaultHandler::EndArray() {
    if (m_isTraced)
        DebugTrace("EndArray\n");
    PopThrough(StackItemKind::Array);
    if (m_next != nullptr)
        m_next->EndArray();
}

void CJsonReaderDefaultHandler::OnBool(bool value) {
    if (m_isTraced)
        DebugTrace("Bool: %s\n", value ? "true" : "false");
    if (m_next != nullptr)
        m_next->OnBool(value);
}

void CJsonReaderDefaultHandler::OnNull() {
    if (m_isTraced)
        DebugTrace("Null\n");
    if (m_next != nullptr)
        m_next->OnNull();
}

void CJsonReaderDefaultHandler::Push(StackItemKind kind, std::int32_t index) {
    m_stack.push_back({m_names.size(), index, kind});
}

void CJsonReaderDefaultHandler::Pop() noexcept {
    m_names.resize(m_stack.back().name);
    m_stack.pop_back();
}

void CJsonReaderDefaultHandler::PopThrough(StackItemKind kind) noexcept {
    while (!m_stack.empty()) {
        bool const isLast = m_stack.back().kind == kind;
        Pop();
        if (isLast)
            return;
    }
}

std::string CJsonReaderDefaultHandler::NameOf(std::size_t item) const {
    std::size_t const begin = m_stack[item].name;
    std::size_t const end = item + 1 == m_stack.size() ? m_names.size() : m_stack[item + 1].name;
    return m_names.substr(begin, end - begin);
}

std::string CJsonReaderDefaultHandler::GetErrorPath() const {
    std::string path;
    for (std::size_t i = m_stack.size(); i-- != 0;) {
        StackItem const& item = m_stack[i];
        if (item.kind == StackItemKind::Array)
            continue;
        path += '.';
        // Its array lies directly below an item with an index.
        path += item.index == kNoIndex ? NameOf(i) : NameOf(i - 1) + '[' + std::to_string(item.index) + ']';
    }
    return path;
}

} // namespace ZvXmlLib16
