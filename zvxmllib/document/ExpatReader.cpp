#include "zvxmllib/document/ExpatReader.h"

#include "zvxmllib/context/SerializationContext.h"
#include "zvxmllib/document/Failures.h"
#include "zvxmllib/document/XmlDocument.h"
#include "zvxmllib/document/XmlTree.h"
#include "zvxmllib/values/binary/BinaryData.h"
#include "zvxmllib/values/binary/Encoder.h"

#include <expat.h>

#include <algorithm>
#include <cstring>
#include <new>
#include <utility>

namespace ZvXmlLib16 {

namespace {

CInstanceMonitor::Registration s_expatReaderInstances("CExpatReader");

// The parser copies what it is given, so it gets the input in slices that stay in the cache. A token that
// goes on beyond its slice is looked at from its beginning with each further one, so the slices double until
// it ends.
constexpr std::size_t kSliceSize = 256 * 1024;
constexpr std::size_t kLargestSlice = std::size_t{1} << 30; // the parser counts in int

constexpr std::string_view kCdataStart = "<![CDATA[";
constexpr std::string_view kCdataEnd = "]]>";

// A start tag, attribute by attribute.
class StartTagScan {
public:
    StartTagScan(std::string_view tag, detail::NodePosition const& position) noexcept
        : m_rest(tag), m_at(position) {
        PassUpTo(" \t\r\n/>");
    }

    // The name of the next attribute, empty if there is none. The value is passed by the next call.
    std::string_view NextAttribute() noexcept {
        if (m_isBehindName) {
            PassUpTo("\"'");
            if (m_rest.empty())
                return {};
            char const quote[] = {m_rest.front(), '\0'};
            Pass(1);
            PassUpTo(quote);
            Pass(1);
        }
        Pass(std::min(m_rest.find_first_not_of(" \t\r\n"), m_rest.size()));
        std::string_view const name = m_rest.substr(0, m_rest.find_first_of(" \t\r\n=/>"));
        m_found = m_at;
        Pass(name.size());
        m_isBehindName = true;
        return name;
    }
    // Of the attribute found last.
    detail::NodePosition const& GetPosition() const noexcept { return m_found; }

private:
    void PassUpTo(char const* stops) noexcept { Pass(std::min(m_rest.find_first_of(stops), m_rest.size())); }
    // Characters of several octets count once.
    void Pass(std::size_t length) noexcept {
        length = std::min(length, m_rest.size());
        for (char const c : m_rest.substr(0, length)) {
            if (c == '\n')
                m_at = {m_at.line + 1, 1};
            else if ((static_cast<unsigned char>(c) & 0xC0U) != 0x80U)
                ++m_at.column;
        }
        m_rest.remove_prefix(length);
    }

    std::string_view m_rest;
    detail::NodePosition m_at;
    detail::NodePosition m_found;
    bool m_isBehindName = false;
};

} // namespace

// No exception may pass through the parser: the first one is kept and rethrown after the parser returns, and
// the events in between are ignored.
struct CExpatReader::Handlers {
    template <class Action>
    static void Run(void* userData, Action action) noexcept {
        CExpatReader& reader = *static_cast<CExpatReader*>(userData);
        if (reader.m_failure != nullptr)
            return;
        try {
            action(reader);
        } catch (...) {
            reader.m_failure = std::current_exception();
        }
    }

    static void XMLCALL StartElement(void* userData, XML_Char const* name, XML_Char const** attributes) {
        Run(userData, [=](CExpatReader& reader) { reader.StartElement(name, attributes); });
    }
    static void XMLCALL EndElement(void* userData, XML_Char const*) {
        Run(userData, [](CExpatReader& reader) { reader.EndElement(); });
    }
    static void XMLCALL StartNamespace(void* userData, XML_Char const* prefix, XML_Char const* uri) {
        Run(userData, [=](CExpatReader& reader) { reader.DeclareNamespace(prefix, uri); });
    }
    static void XMLCALL StartScope(void* userData, XML_Char const* name, XML_Char const** attributes) {
        Run(userData, [=](CExpatReader& reader) { reader.StartScope(name, attributes); });
    }
    static void XMLCALL DeclareInScope(void* userData, XML_Char const* prefix, XML_Char const* uri) {
        Run(userData, [=](CExpatReader& reader) { reader.DeclareInScope(prefix, uri); });
    }
    static void XMLCALL EndNamespace(void*, XML_Char const*) {}
    static void XMLCALL Text(void* userData, XML_Char const* text, int length) {
        Run(userData, [=](CExpatReader& reader) { reader.Text(text, static_cast<std::size_t>(length)); });
    }
    static void XMLCALL ExactText(void* userData, XML_Char const* text, int length) {
        Run(userData,
            [=](CExpatReader& reader) { reader.ExactText(text, static_cast<std::size_t>(length)); });
    }
    static void XMLCALL SkippedEntity(void* userData, XML_Char const* name, int isParameterEntity) {
        if (isParameterEntity == 0)
            Run(userData, [=](CExpatReader& reader) { reader.RefuseEntity(name); });
    }
    // The context is a list of declarations and entities, divided by form feeds; the entity is the one
    // without "=".
    static int XMLCALL ExternalEntity(XML_Parser parser, XML_Char const* context, XML_Char const*,
                                      XML_Char const*, XML_Char const*) {
        std::string_view rest = context == nullptr ? "" : context;
        std::string_view name;
        for (bool isLast = false; !isLast;) {
            std::size_t const end = rest.find('\f');
            isLast = end == std::string_view::npos;
            std::string_view const part = rest.substr(0, end);
            if (part.find('=') == std::string_view::npos)
                name = part;
            rest.remove_prefix(isLast ? rest.size() : end + 1);
        }
        Run(XML_GetUserData(parser), [=](CExpatReader& reader) { reader.RefuseEntity(name); });
        return XML_STATUS_ERROR;
    }
    // The names of encodings are compared without case.
    static int XMLCALL UnknownEncoding(void*, XML_Char const* name, XML_Encoding* encoding) {
        auto const upper = [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; };
        std::string const local = GetLocalEncodingName();
        std::string_view const asked = name;
        if (local.empty() || !std::equal(asked.begin(), asked.end(), local.begin(), local.end(),
                                         [&](char a, char b) { return upper(a) == upper(b); }))
            return XML_STATUS_ERROR;
        for (int byte = 0; byte < 256; ++byte)
            encoding->map[byte] = byte < 128 ? byte : CharacterOf(static_cast<char>(byte));
        encoding->data = nullptr;
        encoding->convert = nullptr;
        encoding->release = nullptr;
        return XML_STATUS_OK;
    }
    // Of local text; -1 for none.
    static int CharacterOf(char byte) {
        char const text[] = {byte, '\0'};
        CBinaryData const units = LocalToUtf16(text);
        constexpr int kMalformed = 0xFFFD;
        int const unit = units.GetLength() == 2 ? units.GetData()[0] | units.GetData()[1] << 8 : kMalformed;
        return unit == kMalformed ? -1 : unit;
    }
    static void XMLCALL StartCdata(void* userData) {
        Run(userData, [](CExpatReader& reader) { reader.Mark(kCdataStart); });
    }
    static void XMLCALL EndCdata(void* userData) {
        Run(userData, [](CExpatReader& reader) { reader.Mark(kCdataEnd); });
    }
};

void CExpatReader::ParserDeleter::operator()(XML_ParserStruct* parser) const noexcept {
    XML_ParserFree(parser);
}

CExpatReader::CExpatReader(CXmlDocument& document)
    : CInstanceMonitor(s_expatReaderInstances), m_doc(document), m_sliceSize(kSliceSize) {}

CExpatReader::~CExpatReader() = default;

void CExpatReader::Init() {
    m_tree = m_doc.m_tree.get();
    m_isLocalUtf8 = IsLocalTextUtf8();
    m_splitsNames = m_doc.m_schemaType != SchemaType_NoNamespaces;
    bool const isStrict = m_doc.m_pContext->GetStrict();
    XML_Char const separator = isStrict ? detail::kStrictNamespaceSeparator : detail::kNamespaceSeparator;
    m_parser.reset(m_splitsNames ? XML_ParserCreateNS(nullptr, separator) : XML_ParserCreate(nullptr));
    if (m_parser == nullptr)
        throw std::bad_alloc();
    XML_SetUserData(m_parser.get(), this);
    XML_SetElementHandler(m_parser.get(), Handlers::StartElement, Handlers::EndElement);
    XML_SetNamespaceDeclHandler(m_parser.get(), Handlers::StartNamespace, Handlers::EndNamespace);
    XML_SetCharacterDataHandler(m_parser.get(), Handlers::Text);
    if (isStrict)
        InitStrict();
    if (m_doc.m_pContext->GetKeepPositions())
        m_tree->KeepPositions(*this);
    if (!m_doc.m_pContext->GetStripCDATA())
        XML_SetCdataSectionHandler(m_parser.get(), Handlers::StartCdata, Handlers::EndCdata);
}

// Texts keep their carriage returns, which only a reference can give them, prefixes their scopes, and no
// entity is passed over in silence, nor a character that local text does not have. Of other encodings that of
// local text is read, if it is one of single octets: what writes local text names it.
void CExpatReader::InitStrict() {
    m_tree->KeepTextPlaces();
    m_scopes = &m_tree->KeepScopes();
    XML_SetElementHandler(m_parser.get(), Handlers::StartScope, Handlers::EndElement);
    XML_SetNamespaceDeclHandler(m_parser.get(), Handlers::DeclareInScope, Handlers::EndNamespace);
    XML_SetCharacterDataHandler(m_parser.get(), Handlers::ExactText);
    XML_SetUnknownEncodingHandler(m_parser.get(), Handlers::UnknownEncoding, nullptr);
    XML_SetSkippedEntityHandler(m_parser.get(), Handlers::SkippedEntity);
    XML_SetExternalEntityRefHandler(m_parser.get(), Handlers::ExternalEntity);
}

void CExpatReader::Parse(unsigned char const* data, std::size_t length, bool final) {
    char const* const text = reinterpret_cast<char const*>(data);
    bool const isInsideToken = m_sliceSize != kSliceSize || !m_heldBack.empty();
    if (!isInsideToken) {
        ParseSlices(text, length, final);
    } else {
        m_heldBack.insert(m_heldBack.end(), text, text + length);
        if (!final && m_heldBack.size() < m_sliceSize)
            return;
        ParseSlices(m_heldBack.data(), m_heldBack.size(), final);
        m_heldBack.clear();
    }
    m_tree->SettleCounts();
    if (final)
        m_parser.reset();
}

void CExpatReader::ParseSlices(char const* data, std::size_t length, bool final) {
    std::size_t done = 0;
    do {
        std::size_t const slice = std::min(m_sliceSize, length - done);
        XML_Index const before = XML_GetCurrentByteIndex(m_parser.get());
        bool const isLast = done + slice == length;
        ParseSlice(data + done, slice, final && isLast);
        done += slice;
        bool const isInsideToken = XML_GetCurrentByteIndex(m_parser.get()) == before;
        m_sliceSize = isInsideToken ? std::min(2 * m_sliceSize, kLargestSlice) : kSliceSize;
    } while (done != length);
}

void CExpatReader::ParseSlice(char const* data, std::size_t length, bool final) {
    XML_Status const status = XML_Parse(m_parser.get(), data, static_cast<int>(length), final ? 1 : 0);
    if (m_failure == nullptr && status != XML_STATUS_ERROR)
        return;
    m_tree->SettleCounts();
    if (m_failure != nullptr) {
        m_parser.reset();
        std::rethrow_exception(std::exchange(m_failure, nullptr));
    }
    XML_Error const code = XML_GetErrorCode(m_parser.get());
    detail::NodePosition const position = GetPosition();
    m_parser.reset();
    if (code == XML_ERROR_NO_MEMORY)
        throw std::bad_alloc();
    FailParse(XML_ErrorString(code), position);
}

std::string_view CExpatReader::ToLocal(char const* utf8, std::size_t length) {
    if (m_isLocalUtf8)
        return {utf8, length};
    m_local = Utf8ToLocal(utf8, length);
    return m_local;
}

CXmlElement const* CExpatReader::StartElement(char const* name, char const** attributes) {
    detail::NameTable& names = m_tree->GetNames();
    CXmlElement const* const element = m_tree->AddElement(names.FindElementName(name, m_splitsNames));
    int const specified = XML_GetSpecifiedAttributeCount(m_parser.get());
    char const* const* const defaults = attributes + specified;
    for (; *attributes != nullptr; attributes += 2) {
        detail::XmlName const* const attribute = names.Find(attributes[0], m_splitsNames);
        if (attributes >= defaults && !m_tree->IsStreaming())
            m_tree->AddKeptAttribute(attribute, KeepDefault(attributes[1]));
        else
            m_tree->AddElementAttribute(attribute, ToLocal(attributes[1], std::strlen(attributes[1])));
    }
    if (m_tree->GetPositions() != nullptr)
        LocateAttributes(*element, static_cast<std::size_t>(specified) / 2);
    return element;
}

void CExpatReader::StartScope(char const* name, char const** attributes) {
    RequireLocal(name);
    for (char const* const* text = attributes; *text != nullptr; ++text)
        RequireLocal(*text);
    m_scopes->AddElement(StartElement(name, attributes));
}

// The parser counts columns from 0.
detail::NodePosition CExpatReader::GetPosition() const {
    return {XML_GetCurrentLineNumber(m_parser.get()), XML_GetCurrentColumnNumber(m_parser.get()) + 1};
}

// The parser tells where a start tag stands, and gives its text; the places of the attributes are in there.
// Tags of two octets for a character are not looked at, and attributes that come from the document type are
// nowhere: these stand where their tag does.
void CExpatReader::LocateAttributes(CXmlElement const& element, std::size_t specified) const {
    int offset = 0;
    int size = 0;
    char const* const context = XML_GetInputContext(m_parser.get(), &offset, &size);
    if (specified == 0 || context == nullptr || size <= offset)
        return;
    std::size_t const length = std::min(static_cast<std::size_t>(XML_GetCurrentByteCount(m_parser.get())),
                                        static_cast<std::size_t>(size - offset));
    std::string_view const tag(context + offset, length);
    if (tag.substr(0, 2).find('\0') != std::string_view::npos)
        return;
    StartTagScan scan(tag, GetPosition());
    for (std::size_t index = 0; index < specified;) {
        std::string_view const name = scan.NextAttribute();
        if (name.empty())
            return;
        bool const isDeclaration = m_splitsNames && (name == "xmlns" || name.substr(0, 6) == "xmlns:");
        if (!isDeclaration)
            m_tree->GetPositions()->SetAttribute(&element, index++, scan.GetPosition());
    }
}

// A default value of the document type is one text for all elements that get it.
std::string_view CExpatReader::KeepDefault(char const* value) {
    auto const [known, isNew] = m_defaults.try_emplace(value);
    if (isNew)
        known->second = m_tree->KeepText(ToLocal(value, std::strlen(value)));
    return known->second;
}

void CExpatReader::EndElement() {
    m_doc.EndElement();
}

void CExpatReader::DeclareNamespace(char const* prefix, char const* uri) {
    std::string const localPrefix = prefix == nullptr ? std::string() : Utf8ToLocal(prefix);
    m_doc.m_namespaces[localPrefix] =
        std::make_shared<std::string const>(uri == nullptr ? std::string() : Utf8ToLocal(uri));
}

// The parser tells this before it tells of the element.
void CExpatReader::DeclareInScope(char const* prefix, char const* uri) {
    DeclareNamespace(prefix, uri);
    auto const keep = [this](char const* utf8) {
        RequireLocal(utf8);
        return m_tree->GetNames().Keep(utf8 == nullptr ? std::string() : Utf8ToLocal(utf8));
    };
    m_scopes->Declare(keep(prefix), keep(uri));
}

void CExpatReader::Text(char const* text, std::size_t length) {
    m_tree->AppendTextExcludingCR(ToLocal(text, length));
}

void CExpatReader::ExactText(char const* text, std::size_t length) {
    if (char32_t const character = FindCharacterNotLocal({text, length}))
        FailCharacterNotLocal(character, GetPosition());
    m_tree->AppendText(ToLocal(text, length));
}

void CExpatReader::RequireLocal(char const* utf8) const {
    if (char32_t const character = FindCharacterNotLocal(utf8 == nullptr ? "" : utf8))
        FailCharacterNotLocal(character, GetPosition());
}

void CExpatReader::RefuseEntity(std::string_view name) const {
    FailUnreadEntity(Utf8ToLocal(name.data(), name.size()), XML_GetCurrentLineNumber(m_parser.get()));
}

void CExpatReader::Mark(std::string_view mark) {
    m_tree->AppendText(mark);
}

} // namespace ZvXmlLib16
