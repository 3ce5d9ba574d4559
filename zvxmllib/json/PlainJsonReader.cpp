#include "zvxmllib/json/PlainJsonReader.h"

#include "zvxmllib/context/SerializationContext.h"
#include "zvxmllib/document/PlainCharacters.h"
#include "zvxmllib/document/XmlDocument.h"
#include "zvxmllib/document/XmlTree.h"
#include "zvxmllib/foundation/DebugTrace.h"
#include "zvxmllib/foundation/Utf16.h"
#include "zvxmllib/foundation/XmlNamespaces.h"
#include "zvxmllib/json/JsonContext.h"
#include "zvxmllib/json/MemberNames.h"
#include "zvxmllib/values/binary/Encoder.h"
#include "zvxmllib/values/text/NumberText.h"

#include <algorithm>

namespace ZvXmlLib16 {

namespace {

constexpr std::int32_t kMostContainers = 99; // as the parser allows around a value
constexpr std::string_view kSectionMark = "<![CDATA[";
// The attributes of a null in strict JSON: names with a quote behind them, and values.
constexpr std::string_view kNilAttributes[][2] = {{"xmlns:nil\"", kSchemaInstanceNamespace},
                                                  {"nil:nil\"", "true"}};

bool IsJsonSpace(char c) noexcept {
    return c == ' ' || c == '\n' || c == '\t' || c == '\r';
}

constexpr int kNoHexDigit = -1;

int HexDigitOf(char c) noexcept {
    if (detail::IsDigit(c))
        return c - '0';
    if (c >= 'a' && c <= 'f')
        return c - 'a' + 10;
    return c >= 'A' && c <= 'F' ? c - 'A' + 10 : kNoHexDigit;
}

} // namespace

bool PlainJsonReader::Fill(CXmlDocument& document, std::string_view json, CSerializationContext const& ctx) {
#ifdef ZVXMLLIB_NO_PLAIN_READER
    return false;
#endif
    // A listener hears the events of the parser. Strict nodes have places in the XML while they are read.
    if (!IsLocalTextUtf8() || IsASCIIOnly() || ctx.GetSchemaType() == SchemaType_NoNamespaces ||
        IsDebugTraceEnabled() || (ctx.GetStrict() && ctx.GetKeepPositions()))
        return false;
    document.MakeTree();
    if (PlainJsonReader(document, json, ctx).Read()) {
        document.m_tree->SettleCounts();
        return true;
    }
    document.m_tree->ForgetCounts();
    document.m_tree.reset();
    document.m_namespaces.clear();
    return false;
}

PlainJsonReader::PlainJsonReader(CXmlDocument& document, std::string_view json,
                                 CSerializationContext const& ctx)
    : m_tree(*document.m_tree), m_begin(json.data()), m_end(json.data() + json.size()),
      m_isStrict(ctx.GetStrict()),
      m_hasMarks(ctx.GetJsonContext().GetSupportRoundtrip() != JsonRoundTrip_None),
      m_rootName(ctx.GetJsonContext().GetRootElementName().empty()
                     ? ""
                     : ctx.GetJsonContext().GetRootElementName() + '"'),
      m_elements(document, m_isStrict, detail::PlainElements::Values::kBorrowed), m_counted(m_begin),
      m_lineStart(m_begin) {
    if (ctx.GetKeepPositions())
        m_tree.KeepPositions(*this);
    if (m_isStrict)
        m_tree.KeepTextPlaces();
}

bool PlainJsonReader::Read() {
    char const* const end = ReadDocument();
    if (!m_isStrict)
        return end != nullptr; // what stands behind the root is nobody's business
    return end != nullptr && SkipSpace(end) == m_end && !(m_hasNil && m_hasNilName);
}

char const* PlainJsonReader::ReadDocument() {
    char const* const at = SkipSpace(m_begin);
    if (!Holds(at, '{'))
        return nullptr;
    if (m_rootName.empty())
        return ReadRoot(at + 1);
    char const* rootName = m_rootName.data();
    PlainName* const name = m_elementNames.Read(rootName, rootName + m_rootName.size());
    bool const isWhole = rootName + 1 == m_rootName.data() + m_rootName.size();
    return name != nullptr && isWhole && AddName(*name) ? ReadElement(*name, at) : nullptr;
}

// The only member of the outermost object.
char const* PlainJsonReader::ReadRoot(char const* at) {
    ++m_containers;
    at = SkipSpace(at);
    if (!Holds(at, '"'))
        return nullptr;
    PlainName* const name = m_elementNames.Read(++at, m_end);
    if (name == nullptr || !AddName(*name))
        return nullptr;
    at = ReadColon(at);
    if (at == nullptr)
        return nullptr;
    at = ReadElement(*name, at);
    if (at == nullptr)
        return nullptr;
    at = SkipSpace(at);
    return Holds(at, '}') ? at + 1 : nullptr;
}

// From the quote behind a name to the value.
char const* PlainJsonReader::ReadColon(char const* at) const noexcept {
    if (!Holds(at, '"'))
        return nullptr;
    at = SkipSpace(at + 1);
    if (!Holds(at, ':'))
        return nullptr;
    at = SkipSpace(at + 1);
    return at == m_end ? nullptr : at;
}

// The value of an element that is no array.
char const* PlainJsonReader::ReadElement(PlainName& name, char const* at) {
    if (at == m_end)
        return nullptr;
    if (*at == '{')
        return ReadObject(name, at);
    char const* const begin = at;
    bool const isNull = *at == 'n';
    Text text;
    at = isNull ? ReadWord(at, "null") : ReadText(at, text);
    if (at == nullptr)
        return nullptr;
    m_elements.Begin();
    if (isNull && m_isStrict && !AddNil())
        return nullptr;
    if (!m_elements.Start(name, begin) || !AppendText(text))
        return nullptr;
    m_elements.End();
    return at;
}

char const* PlainJsonReader::ReadObject(PlainName& name, char const* at) {
    if (m_containers == kMostContainers)
        return nullptr;
    ++m_containers;
    ++m_depth;
    if (m_isStrict) {
        detail::UniqueNames::Place const outside = m_uniqueNames.Enter();
        at = ReadMembers(name, at, SkipSpace(at + 1));
        m_uniqueNames.Leave(outside);
    } else {
        at = ReadMembers(name, at, SkipSpace(at + 1));
    }
    --m_depth;
    --m_containers;
    return at;
}

// The element begins behind its last attribute.
char const* PlainJsonReader::ReadMembers(PlainName& name, char const* begin, char const* at) {
    bool isStarted = false;
    bool isEnd = Holds(at, '}');
    std::uint32_t children = 0;
    m_elements.Begin();
    while (!isEnd) {
        if (!Holds(at, '"') || ++at == m_end)
            return nullptr;
        if (m_hasMarks && *at == detail::kAttributeMark) {
            at = isStarted ? nullptr : ReadAttribute(at + 1);
        } else {
            if (!isStarted && !m_elements.Start(name, begin))
                return nullptr;
            isStarted = true;
            bool const isText = m_hasMarks && *at == detail::kTextName[0];
            at = isText ? ReadTextMember(at, children) : ReadChildren(at, children);
        }
        if (at == nullptr)
            return nullptr;
        at = SkipSpace(at);
        isEnd = Holds(at, '}');
        if (!isEnd) {
            if (!Holds(at, ','))
                return nullptr;
            at = SkipSpace(at + 1);
        }
    }
    if (!isStarted && !m_elements.Start(name, begin))
        return nullptr;
    if (children != 0 && !m_isStrict)
        AppendBreaks(children, m_depth - 1);
    m_elements.End();
    return at + 1;
}

// Behind the mark. A null is no attribute.
char const* PlainJsonReader::ReadAttribute(char const* at) {
    detail::PlainElements::Attribute attribute{m_attributeNames.Read(at, m_end), {}};
    if (attribute.name == nullptr || m_elements.IsFull() || !AddName(*attribute.name))
        return nullptr;
    at = ReadColon(at);
    if (at == nullptr)
        return nullptr;
    if (*at == 'n')
        return ReadWord(at, "null");
    attribute.place = at;
    Text text;
    at = ReadText(at, text);
    if (at == nullptr)
        return nullptr;
    if (text.isMade) {
        // A tab that is no reference is a blank to the parser. In strict XML it is one.
        if (!m_isStrict && text.value.find('\t') != std::string_view::npos)
            return nullptr;
        attribute.kept = m_elements.GetValues().size();
        attribute.keptLength = text.value.size();
        m_elements.GetValues() += text.value;
    } else {
        attribute.value = text.value;
    }
    m_elements.Add(attribute);
    return at;
}

// It ends its element.
char const* PlainJsonReader::ReadTextMember(char const* at, std::uint32_t& children) {
    at = ReadWord(at, detail::kTextName);
    at = at == nullptr ? nullptr : ReadColon(at);
    if (at == nullptr)
        return nullptr;
    Text text;
    at = ReadText(at, text);
    if (at == nullptr)
        return nullptr;
    bool const isBehindChildren = children != 0 && !text.value.empty() && !m_isStrict;
    if (isBehindChildren) {
        AppendBreaks(children, 0);
        children = 0;
    }
    if (!AppendText(text))
        return nullptr;
    if (isBehindChildren)
        m_tree.AppendKeptText(m_breaks[m_depth - 1].substr(1)); // the indent of the end tag
    at = SkipSpace(at);
    return Holds(at, '}') ? at : nullptr;
}

// A member, which is one child, or one for each item of an array.
char const* PlainJsonReader::ReadChildren(char const* at, std::uint32_t& count) {
    PlainName* const name = m_elementNames.Read(at, m_end);
    if (name == nullptr || !AddName(*name))
        return nullptr;
    at = ReadColon(at);
    if (at == nullptr)
        return nullptr;
    if (*at == '[')
        return ReadItems(*name, SkipSpace(at + 1), count);
    ++count;
    return ReadElement(*name, at);
}

// Behind the bracket.
char const* PlainJsonReader::ReadItems(PlainName& name, char const* at, std::uint32_t& count) {
    if (Holds(at, ']'))
        return at + 1;
    if (m_containers == kMostContainers)
        return nullptr;
    ++m_containers;
    for (;;) {
        ++count;
        at = ReadElement(name, at);
        if (at == nullptr)
            return nullptr;
        at = SkipSpace(at);
        if (Holds(at, ']'))
            break;
        if (!Holds(at, ','))
            return nullptr;
        at = SkipSpace(at + 1);
    }
    --m_containers;
    return at + 1;
}

// What is neither null nor a container.
char const* PlainJsonReader::ReadText(char const* at, Text& text) {
    if (*at == '"')
        return ReadString(at + 1, text);
    char const* const end = *at == 't'   ? ReadWord(at, "true")
                            : *at == 'f' ? ReadWord(at, "false")
                                         : ReadNumber(at);
    if (end != nullptr)
        text.value = std::string_view(at, static_cast<std::size_t>(end - at));
    return end;
}

char const* PlainJsonReader::ReadString(char const* at, Text& text) {
    char const* const end = detail::PlainBytes<0, '"', '\\'>::FindEnd(at, m_end);
    if (!Holds(end, '"'))
        return ReadMixedString(at, end, text);
    text.value = std::string_view(at, static_cast<std::size_t>(end - at));
    return end + 1;
}

// Line feeds, which are dropped, and other control characters are left to the parser.
char const* PlainJsonReader::ReadMixedString(char const* begin, char const* at, Text& text) {
    char const* from = begin;
    m_made.clear();
    for (;; at = detail::PlainBytes<0, '"', '\\'>::FindEnd(at, m_end)) {
        if (at == m_end)
            return nullptr;
        if (static_cast<unsigned char>(*at) >= 0x80) {
            at = SkipBeyondAscii(at, m_end);
            continue;
        }
        if (from != at) {
            AppendCharacters();
            if (*at == '\\' || from != begin)
                m_made.append(from, at);
        }
        if (*at == '"')
            break;
        if (*at != '\\')
            return nullptr;
        at = ReadEscape(at + 1);
        if (at == nullptr)
            return nullptr;
        text.isMade = true;
        from = at;
    }
    AppendCharacters();
    text.value = text.isMade ? std::string_view(m_made)
                             : std::string_view(begin, static_cast<std::size_t>(at - begin));
    // A carriage return comes from an escape alone.
    bool const isPlain = AreXmlCharacters(text.value) && text.value.find('\r') == std::string_view::npos;
    return isPlain ? at + 1 : nullptr;
}

// Behind the backslash.
char const* PlainJsonReader::ReadEscape(char const* at) {
    if (at == m_end)
        return nullptr;
    if (*at == 'u')
        return ReadCharacterCode(at + 1);
    AppendCharacters();
    switch (*at) {
    case '"':
    case '\\':
    case '/':
        m_made += *at;
        break;
    case 'n':
        m_made += '\n';
        break;
    case 't':
        m_made += '\t';
        break;
    default:
        return nullptr;
    }
    return at + 1;
}

char const* PlainJsonReader::ReadCharacterCode(char const* at) {
    unsigned code = 0;
    for (int i = 0; i != 4; ++i, ++at) {
        int const digit = at == m_end ? kNoHexDigit : HexDigitOf(*at);
        if (digit == kNoHexDigit)
            return nullptr;
        code = code * 16 + static_cast<unsigned>(digit);
    }
    m_characters += static_cast<char16_t>(code);
    return at;
}

// Collected, since a character beyond U+FFFF takes two escapes. Half of one becomes a NUL, which is not
// plain.
void PlainJsonReader::AppendCharacters() {
    if (m_characters.empty())
        return;
    if (FindHalfSurrogate(m_characters) != m_characters.size())
        m_made += '\0';
    else
        m_made += ConvertUtf16ToUtf8(m_characters);
    m_characters.clear();
}

// What follows is not part of it; whether it may follow is the caller's question.
char const* PlainJsonReader::ReadNumber(char const* at) const noexcept {
    auto const skipDigits = [this](char const* from) {
        return std::find_if_not(from, m_end, detail::IsDigit);
    };
    auto const isDigit = [this](char const* place) { return place != m_end && detail::IsDigit(*place); };
    if (*at == '-')
        ++at;
    if (!isDigit(at))
        return nullptr;
    at = *at == '0' ? at + 1 : skipDigits(at);
    if (Holds(at, '.')) {
        if (!isDigit(++at))
            return nullptr;
        at = skipDigits(at);
    }
    if (Holds(at, 'e') || Holds(at, 'E')) {
        ++at;
        if (Holds(at, '+') || Holds(at, '-'))
            ++at;
        if (!isDigit(at))
            return nullptr;
        at = skipDigits(at);
    }
    return at;
}

char const* PlainJsonReader::ReadWord(char const* at, std::string_view word) const noexcept {
    bool const isThere =
        static_cast<std::size_t>(m_end - at) >= word.size() && std::string_view(at, word.size()) == word;
    return isThere ? at + word.size() : nullptr;
}

char const* PlainJsonReader::SkipSpace(char const* at) const noexcept {
    while (at != m_end && IsJsonSpace(*at))
        ++at;
    return at;
}

// In strict JSON a name stands once in its object. One that looks like the prefix of nulls gives them
// another.
bool PlainJsonReader::AddUniqueName(PlainName& name) {
    if (!detail::UniqueNames::IsKnown(name) && name.text.find(detail::kNilPrefix) != std::string_view::npos)
        m_hasNilName = true;
    return m_uniqueNames.Add(name);
}

// The attributes of an element that is null.
bool PlainJsonReader::AddNil() {
    m_hasNil = true;
    for (auto const& [name, value] : kNilAttributes) {
        char const* at = name.data();
        PlainName* const known = m_attributeNames.Read(at, at + name.size());
        if (known == nullptr)
            return false;
        m_elements.Add({known, value});
    }
    return true;
}

// A text that the usual rules write as a CDATA section is left to the parser.
bool PlainJsonReader::AppendText(Text const& text) {
    if (text.value.empty())
        return true;
    if (!m_isStrict && text.value[0] == '<' && text.value.substr(0, kSectionMark.size()) == kSectionMark)
        return false;
    if (text.isMade)
        m_tree.AppendText(text.value);
    else
        m_tree.AppendKeptText(text.value);
    return true;
}

// Formatted text breaks the line ahead of each child, and behind the last one.
void PlainJsonReader::AppendBreaks(std::uint32_t children, std::size_t depthBehind) {
    while (m_breaks.size() <= m_depth)
        m_breaks.push_back(m_tree.KeepText('\n' + std::string(m_breaks.size(), '\t')));
    m_tree.AppendKeptText(m_breaks[m_depth], children);
    m_tree.AppendKeptText(m_breaks[depthBehind]);
}

// Nodes are added in the order of the text.
detail::NodePosition PlainJsonReader::GetPosition() const {
    char const* const place = m_elements.GetPlace();
    for (; m_counted != place; ++m_counted) {
        if (*m_counted == '\n') {
            ++m_line;
            m_lineStart = m_counted + 1;
        }
    }
    return {m_line, static_cast<std::uint64_t>(place - m_lineStart) + 1};
}

} // namespace ZvXmlLib16
