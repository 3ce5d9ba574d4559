#include "zvxmllib/json/JsonTextReader.h"

#include "zvxmllib/binding/NestingGuard.h"
#include "zvxmllib/context/SerializationContext.h"
#include "zvxmllib/document/XmlTree.h"
#include "zvxmllib/foundation/Utf16.h"
#include "zvxmllib/json/Failures.h"
#include "zvxmllib/json/JsonReaderToXmlHandler.h"
#include "zvxmllib/json/StrictJsonReading.h"
#include "zvxmllib/streams/TextStream.h"
#include "zvxmllib/values/binary/BinaryData.h"
#include "zvxmllib/values/binary/Encoder.h"
#include "zvxmllib/values/text/NumberText.h"
#include "zvxmllib/values/text/Whitespace.h"
#include "zvxmllib/xml/XmlTextWriter.h"

#include <algorithm>
#include <array>

namespace ZvXmlLib16 {

namespace {

constexpr std::int32_t kDepthLimit = 100;
constexpr std::int32_t kStrictDepthLimit =
    2 * kMaxNestingDepth + 2; // an element may be an array and an object

CInstanceMonitor::Registration s_jsonTextReaderInstances("CJsonTextReader");

// The bytes that end a run of ordinary ones in a string.
constexpr std::array<bool, 256> MakeRunEnds() {
    std::array<bool, 256> ends{};
    for (char const c : {'"', '\\', '\n', '\0'})
        ends[static_cast<unsigned char>(c)] = true;
    return ends;
}

constexpr std::array<bool, 256> kRunEnds = MakeRunEnds();

constexpr bool IsControl(char c) noexcept {
    return static_cast<unsigned char>(c) < 0x20;
}

constexpr std::array<bool, 256> MakeStrictRunEnds() {
    std::array<bool, 256> ends = MakeRunEnds();
    for (std::size_t control = 0; control < 0x20; ++control)
        ends[control] = true;
    return ends;
}

constexpr std::array<bool, 256> kStrictRunEnds = MakeStrictRunEnds();

constexpr unsigned kNoDigit = 16;

constexpr unsigned HexDigit(char c) noexcept {
    if (detail::IsDigit(c))
        return static_cast<unsigned>(c - '0');
    if (c >= 'a' && c <= 'f')
        return static_cast<unsigned>(c - 'a' + 10);
    if (c >= 'A' && c <= 'F')
        return static_cast<unsigned>(c - 'A' + 10);
    return kNoDigit;
}

} // namespace

CJsonTextReader::CJsonTextReader(std::string_view text, JsonSyntax syntax)
    : CInstanceMonitor(s_jsonTextReaderInstances), m_isStrict(syntax == JsonSyntax::kStrict),
      m_allowComments(!m_isStrict), m_next(text.data()), m_end(text.data() + text.size()),
      m_lineStart(text.data()) {}

CJsonTextReader::~CJsonTextReader() = default;

void CJsonTextReader::SetHandler(std::unique_ptr<IJsonReaderHandler> handler) noexcept {
    m_handler.SetNextHandler(std::move(handler));
}

CBinaryData CJsonTextReader::ConvertToXml(std::string_view json, CSerializationContext const& ctx) {
    if (ctx.GetStrict())
        return ConvertStrictJson(json, ctx);
    CTextStream stream(XmlEncoding_UTF8);
    CXmlTextWriter writer(&stream);
    writer.WriteDeclaration();
    Convert(json, ctx, writer);
    return stream.GetEncodedData();
}

void CJsonTextReader::Convert(std::string_view json, CSerializationContext const& ctx, CXmlWriter& writer) {
    Convert(json, ctx, writer, nullptr);
}

void CJsonTextReader::Convert(std::string_view json, CSerializationContext const& ctx, CXmlWriter& writer,
                              detail::XmlTree* tree) {
    CJsonContext const& options = ctx.GetJsonContext();
    CJsonTextReader reader(json);
    reader.SetHandler(std::make_unique<CJsonReaderToXmlHandler>(writer, options.GetSupportRoundtrip(),
                                                                reader.GetErrorPathProvider()));
    reader.SetAllowComments(options.GetAllowComments());
    reader.SetRootElementName(options.GetRootElementName());
    if (tree != nullptr && ctx.GetKeepPositions())
        tree->KeepPositions(reader);
    reader.Parse();
    writer.Close();
}

bool CJsonTextReader::Parse() {
    m_handler.StartDocument();
    if (!m_rootElementName.empty()) {
        m_handler.StartObject();
        m_handler.OnName(m_rootElementName);
    }
    bool const hasValue = ReadSignificant();
    if (hasValue)
        ParseValue(0);
    if (m_isStrict && !m_isAtEnd)
        FailExpectedEnd(m_current, Place());
    if (!m_rootElementName.empty())
        m_handler.EndObject();
    m_handler.EndDocument();
    return hasValue;
}

bool CJsonTextReader::ReadSignificant() noexcept {
    do {
        do {
            if (!ReadByte())
                return false;
        } while (CWhitespaceUtils::IsWhiteSpace(m_current));
    } while (m_current == '/' && m_allowComments && SkipComment());
    return true;
}

// True if the current slash began a comment, which has then been skipped.
bool CJsonTextReader::SkipComment() noexcept {
    if (m_next == m_end)
        return false;
    if (*m_next == '*') {
        ++m_next;
        SkipBlockComment();
        return true;
    }
    if (*m_next != '/')
        return false;
    m_next = std::find(m_next, m_end, '\n');
    return true;
}

// The opening star does not count as the start of the end.
void CJsonTextReader::SkipBlockComment() noexcept {
    while (ReadByte()) {
        if (m_current == '*' && m_next != m_end && *m_next == '/') {
            ++m_next;
            return;
        }
    }
}

bool CJsonTextReader::ReadBlock(std::size_t count, std::string_view& block) noexcept {
    std::size_t const length = std::min(count, static_cast<std::size_t>(m_end - m_next));
    block = std::string_view(m_next, length);
    m_next += length;
    m_isAtEnd = length != count;
    return !m_isAtEnd;
}

void CJsonTextReader::ParseValue(std::int32_t depth) {
    m_valueLine = m_line;
    m_valueColumn = m_next - m_lineStart;
    if (++depth > (m_isStrict ? kStrictDepthLimit : kDepthLimit))
        FailJsonTooDeep(Place());
    switch (m_current) {
    case '{':
        m_handler.StartObject();
        ParseObject(depth);
        m_handler.EndObject();
        break;
    case '[':
        m_handler.StartArray();
        ParseArray(depth);
        m_handler.EndArray();
        break;
    case '"':
        ParseString();
        m_handler.OnString(m_token);
        break;
    case 'n':
        ParseWord("ull", "NULL");
        m_handler.OnNull();
        break;
    case 't':
        ParseWord("rue", "true");
        m_handler.OnBool(true);
        break;
    case 'f':
        ParseWord("alse", "false");
        m_handler.OnBool(false);
        break;
    default:
        if (m_current != '-' && !detail::IsDigit(m_current))
            FailExpectedValue(m_current, Place());
        ParseNumber();
        m_handler.OnNumber(m_token);
    }
}

void CJsonTextReader::ParseObject(std::int32_t depth) {
    if (!ReadSignificant())
        FailEndBehindBrace(Place());
    if (m_current != '}') {
        ParseMember(depth);
        while (m_current != '}') {
            if (m_current != ',')
                FailExpectedObjectComma(m_current, Place());
            if (!ReadSignificant())
                FailEndInObject(Place());
            ParseMember(depth);
        }
    }
    ReadSignificant();
}

void CJsonTextReader::ParseMember(std::int32_t depth) {
    if (m_current != '"')
        FailExpectedName(m_current, Place());
    ParseString();
    m_handler.OnName(m_token);
    if (m_isAtEnd)
        FailEndBehindName(Place());
    if (m_current != ':')
        FailExpectedColon(m_current, Place());
    if (!ReadSignificant())
        FailEndBehindColon(Place());
    ParseValue(depth);
    if (m_isAtEnd)
        FailEndInObject(Place());
}

void CJsonTextReader::ParseArray(std::int32_t depth) {
    if (!ReadSignificant())
        FailEndInArray(Place());
    if (m_current != ']') {
        for (;;) {
            ParseValue(depth);
            if (m_isAtEnd)
                FailEndInArray(Place());
            if (m_current == ']')
                break;
            if (m_current != ',')
                FailExpectedArrayComma(m_current, Place());
            if (!ReadSignificant())
                FailEndInArray(Place());
        }
    }
    ReadSignificant();
}

void CJsonTextReader::ParseWord(std::string_view rest, char const* shownWord) {
    std::string_view block;
    if (!ReadBlock(rest.size(), block))
        FailEndInWord(shownWord, Place());
    if (block != rest)
        FailWrongWord(shownWord, Place());
    ReadSignificant();
}

void CJsonTextReader::ParseString() {
    std::array<bool, 256> const& runEnds = m_isStrict ? kStrictRunEnds : kRunEnds;
    m_token.clear();
    m_hasNul = false;
    for (;;) {
        char const* const run = m_next;
        while (m_next != m_end && !runEnds[static_cast<unsigned char>(*m_next)])
            ++m_next;
        if (m_next != run) {
            AppendCharacters();
            m_token.append(run, static_cast<std::size_t>(m_next - run));
        }
        if (!ReadByte())
            FailEndInString(Place());
        if (m_current == '"')
            break;
        if (m_current == '\\') {
            ParseEscape();
        } else if (m_isStrict && IsControl(m_current)) {
            FailControlCharacter(m_current, Place());
        } else { // after a line feed, or a NUL
            AppendCharacters();
            m_hasNul = m_hasNul || m_current == '\0';
            m_token += m_current;
        }
    }
    AppendCharacters();
    if (m_hasNul && !m_isStrict)
        m_token.resize(m_token.find('\0'));
    ReadSignificant();
}

void CJsonTextReader::ParseEscape() {
    if (!ReadByte())
        FailEndInString(Place());
    if (m_current == 'u')
        return ParseCharacterCode();
    AppendCharacters();
    switch (m_current) {
    case '"':
    case '\\':
    case '/':
        m_token += m_current;
        break;
    case 'b':
        m_token += '\b';
        break;
    case 'f':
        m_token += '\f';
        break;
    case 'n':
        m_token += '\n';
        break;
    case 'r':
        m_token += '\r';
        break;
    case 't':
        m_token += '\t';
        break;
    default:
        FailInvalidEscape(m_current, Place());
    }
}

void CJsonTextReader::ParseCharacterCode() {
    std::string_view digits;
    if (!ReadBlock(4, digits))
        FailEndInCharacterCode(Place());
    unsigned code = 0;
    for (char const& character : digits) {
        unsigned const digit = HexDigit(character);
        if (digit == kNoDigit) {
            m_next = &character + 1; // the position of this one
            FailInvalidEscape(character, Place());
        }
        code = code * 16 + digit;
    }
    m_hasNul = m_hasNul || code == 0;
    m_characters += static_cast<char16_t>(code);
}

// Collected, since a character beyond U+FFFF takes two escapes. A lone surrogate is replaced like a character
// that the local encoding lacks.
void CJsonTextReader::AppendCharacters() {
    if (m_characters.empty())
        return;
    if (m_isStrict) {
        if (FindHalfSurrogate(m_characters) != m_characters.size())
            FailInvalidSurrogate(Place());
        m_token += ConvertUtf16ToUtf8(m_characters);
        m_characters.clear();
        return;
    }
    m_token += IsASCIIOnly() ? ConvertUtf16ToUtf8(m_characters)
                             : Utf16ToLocal(m_characters.data(), m_characters.size());
    m_characters.clear();
}

void CJsonTextReader::ParseNumber() {
    m_token.clear();
    if (m_current == '-') {
        TakeCurrent();
        if (m_isAtEnd)
            FailEndBehindSign(Place());
    }
    if (m_current == '0')
        TakeCurrent(); // no digit may follow
    else if (detail::IsDigit(m_current))
        TakeDigits();
    else
        FailExpectedDigit(m_current, Place());
    if (!m_isAtEnd && m_current == '.')
        ParseFraction();
    if (!m_isAtEnd && (m_current == 'e' || m_current == 'E'))
        ParseExponent();
    if (!m_isAtEnd && CWhitespaceUtils::IsWhiteSpace(m_current))
        ReadSignificant();
}

void CJsonTextReader::ParseFraction() {
    TakeCurrent();
    if (m_isAtEnd)
        FailEndBeforeDigit(Place());
    if (!detail::IsDigit(m_current))
        FailExpectedDigit(m_current, Place());
    TakeDigits();
}

void CJsonTextReader::ParseExponent() {
    TakeCurrent();
    if (m_isAtEnd)
        FailEndBehindExponentMark(Place());
    if (m_current == '+' || m_current == '-') {
        TakeCurrent();
        if (m_isAtEnd)
            FailEndBehindSign(Place());
    }
    if (!detail::IsDigit(m_current))
        FailEndBeforeDigit(Place());
    TakeDigits();
}

void CJsonTextReader::TakeCurrent() {
    m_token += m_current;
    ReadByte();
}

// A line feed between digits is dropped like any other.
void CJsonTextReader::TakeDigits() {
    do {
        char const* const run = m_next - 1;
        m_next = std::find_if_not(m_next, m_end, detail::IsDigit);
        m_token.append(run, static_cast<std::size_t>(m_next - run));
    } while (ReadByte() && detail::IsDigit(m_current));
}

detail::NodePosition CJsonTextReader::GetPosition() const {
    return {static_cast<std::uint64_t>(m_valueLine), static_cast<std::uint64_t>(m_valueColumn)};
}

JsonPlace CJsonTextReader::Place() const {
    return {m_line, static_cast<std::int32_t>(m_next - m_lineStart), m_handler.GetErrorPath()};
}

} // namespace ZvXmlLib16
