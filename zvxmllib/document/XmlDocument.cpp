#include "zvxmllib/document/XmlDocument.h"

#include "zvxmllib/context/SerializationContext.h"
#include "zvxmllib/document/ExpatReader.h"
#include "zvxmllib/document/Failures.h"
#include "zvxmllib/document/PlainXmlReader.h"
#include "zvxmllib/document/XmlTree.h"
#include "zvxmllib/foundation/Utf16.h"
#include "zvxmllib/platform/File.h"
#include "zvxmllib/streams/AsyncFiles.h"
#include "zvxmllib/streams/ZvZip.h"
#include "zvxmllib/values/binary/BinaryData.h"

#include <cstring>
#include <limits>
#include <utility>

namespace ZvXmlLib16 {

namespace {

CInstanceMonitor::Registration s_xmlDocumentInstances("CXmlDocument");

#ifdef ZVXMLLIB_NO_PLAIN_READER
constexpr bool kReadsPlainXml = false;
#else
constexpr bool kReadsPlainXml = true;
#endif

std::unique_ptr<unsigned char[]> NewBuffer(std::size_t length) {
    return std::unique_ptr<unsigned char[]>(new unsigned char[length]);
}

std::unique_ptr<unsigned char[]> ReadToEnd(platform::File& file, char const* fileName, std::size_t& length) {
    std::size_t room = 64 * 1024;
    std::unique_ptr<unsigned char[]> data = NewBuffer(room);
    for (length = 0;;) {
        std::size_t count = 0;
        if (!file.Read(data.get() + length, room - length, count))
            FailRead(fileName, file.Error());
        length += count;
        if (length < room)
            return data;
        if (length > std::numeric_limits<std::uint32_t>::max() / 2)
            FailSize(fileName, platform::File::TooLargeError());
        room *= 2;
        std::unique_ptr<unsigned char[]> larger = NewBuffer(room);
        std::memcpy(larger.get(), data.get(), length);
        data = std::move(larger);
    }
}

} // namespace

CXmlDocument::CXmlDocument() : CXmlDocument(nullptr, CSerializationContext::GetDefaultContext()) {}

CXmlDocument::CXmlDocument(CSerializationContext const& context) : CXmlDocument(nullptr, context) {}

CXmlDocument::CXmlDocument(ElementCallback callback)
    : CXmlDocument(callback, CSerializationContext::GetDefaultContext()) {}

CXmlDocument::CXmlDocument(ElementCallback callback, CSerializationContext const& context)
    : CInstanceMonitor(s_xmlDocumentInstances), m_schemaType(context.GetSchemaType()),
      m_pfnElementCallback(callback), m_pContext(&context) {}

CXmlDocument::~CXmlDocument() {
    CXmlDocument::Cleanup();
}

void CXmlDocument::Cleanup() {
    m_tree.reset();
    m_json = std::string();
    m_namespaces.clear();
}

std::unique_ptr<unsigned char[]> CXmlDocument::ReadFile(char const* fileName, std::size_t& length,
                                                        bool toEnd) {
    platform::File file;
    if (!file.OpenForReading(fileName))
        FailOpen(fileName, file.Error());
    std::uint64_t size = 0;
    if (!file.GetSize(size))
        FailSize(fileName, file.Error());
    if (size > std::numeric_limits<std::uint32_t>::max())
        FailSize(fileName, platform::File::TooLargeError());
    if (toEnd && size == 0)
        return ReadToEnd(file, fileName, length);
    length = static_cast<std::size_t>(size);
    std::unique_ptr<unsigned char[]> data = NewBuffer(length);
    std::size_t count = 0;
    if (!file.Read(data.get(), length, count) || count != length)
        FailRead(fileName, file.Error());
    return data;
}

void CXmlDocument::Load(char const* fileName) {
    Cleanup();
    if (fileName == nullptr)
        fileName = "";
    if (IsAsyncFromXmlFile())
        return LoadOverlapped(fileName);
    std::size_t length = 0;
    std::unique_ptr<unsigned char[]> const data = ReadFile(fileName, length, m_pContext->GetStrict());
    Parse(data.get(), length);
}

void CXmlDocument::LoadXml(char const* text) {
    Cleanup();
    std::size_t const length = text == nullptr ? 0 : std::strlen(text);
    if (length == 0)
        FailEmptyText();
    ParseText(reinterpret_cast<unsigned char const*>(text), length);
}

void CXmlDocument::LoadXml(wchar_t const* text) {
    LoadXml(text == nullptr ? u"" : UnitsFromWide(text).c_str());
}

void CXmlDocument::LoadXml(char16_t const* text) {
    Cleanup();
    std::size_t const units = text == nullptr ? 0 : std::char_traits<char16_t>::length(text);
    if (units == 0)
        FailEmptyText();
    // The byte order mark tells the parser that this is UTF-16, low byte first.
    std::size_t const length = (units + 1) * 2;
    std::unique_ptr<unsigned char[]> const data = NewBuffer(length);
    unsigned char* out = data.get();
    *out++ = 0xFF;
    *out++ = 0xFE;
    for (std::size_t i = 0; i < units; ++i) {
        *out++ = static_cast<unsigned char>(text[i] & 0xFF);
        *out++ = static_cast<unsigned char>(text[i] >> 8);
    }
    ParseText(data.get(), length);
}

void CXmlDocument::LoadXmlStream(unsigned char const* data, std::uint32_t length) {
    Cleanup();
    if (data == nullptr || length == 0)
        FailEmptyStream();
    Parse(data, length);
}

// Data that is not a complete compressed stream is passed on unchanged.
void CXmlDocument::Parse(unsigned char const* data, std::size_t length) {
    CBinaryData decompressed;
    if (CZvZip::TryDecompress(data, static_cast<std::uint32_t>(length), decompressed,
                              m_pContext->GetStrict())) {
        data = decompressed.GetData();
        length = decompressed.GetLength();
        m_borrowsInput = false;
    }
    if (!ParseFastInfoset(data, length))
        ParseText(data, length);
}

void CXmlDocument::ParseText(unsigned char const* data, std::size_t length) {
    CExpatReader reader(*this); // counted, whoever reads
    if (kReadsPlainXml &&
        PlainXmlReader::Fill(*this, {reinterpret_cast<char const*>(data), length}, m_borrowsInput))
        return;
    MakeTree();
    reader.Init();
    reader.Parse(data, length, true);
}

void CXmlDocument::MakeTree() {
    m_tree = std::make_unique<detail::XmlTree>(*this, m_pfnElementCallback != nullptr);
}

bool CXmlDocument::EndPlainReading(bool isRead) noexcept {
    if (isRead) {
        m_tree->SettleCounts();
    } else {
        m_tree->ForgetCounts();
        m_tree.reset();
        m_namespaces.clear();
    }
    return isRead;
}

// The element arrives complete, as the last child of its parent; the callback decides whether to remove it.
void CXmlDocument::EndElement() {
    CXmlElement* const element = m_tree->EndElement();
    if (m_pfnElementCallback == nullptr)
        return;
    m_tree->SettleCounts();
    if (m_pfnElementCallback(element))
        m_tree->RemoveLastChildElement();
}

CXmlElement* CXmlDocument::GetDocumentElement() const noexcept {
    return m_tree == nullptr ? nullptr : m_tree->GetRoot();
}

std::string CXmlDocument::LookupAliasFromNamespace(char const* namespaceURI) const {
    char const* const uri = namespaceURI == nullptr ? "" : namespaceURI;
    for (auto const& [prefix, declared] : m_namespaces) {
        if (*declared == uri)
            return prefix;
    }
    return std::string();
}

std::string CXmlDocument::LookupNamespaceFromAlias(char const* alias) const {
    auto const found = m_namespaces.find(alias == nullptr ? "" : alias);
    return found == m_namespaces.end() ? std::string() : *found->second;
}

} // namespace ZvXmlLib16
