#include "zvxmllib/json/PlainJsonReader.h"

#include "zvxmllib/context/SerializationContext.h"
#include "zvxmllib/document/XmlDocument.h"
#include "zvxmllib/document/XmlTree.h"
#include "zvxmllib/foundation/DebugTrace.h"
#include "zvxmllib/foundation/XmlNamespaces.h"
#include "zvxmllib/json/JsonContext.h"
#include "zvxmllib/json/MemberNames.h"
#include "zvxmllib/values/binary/Encoder.h"

namespace ZvXmlLib16 {

namespace {

constexpr std::int32_t kMostContainers = 99; // as the parser allows around a value
constexpr std::string_view kSectionMark = "<![CDATA[";
// The attributes of a null in strict JSON: names with a quote behind them, and values.
constexpr std::string_view kNilAttributes[][2] = {{"xmlns:nil\"", kSchemaInstanceNamespace},
                                                  {"nil:nil\"", "true"}};

} // namespace

bool PlainJsonReader::Fill(CXmlDocument& document, std::string_view json, CSerializationContext const& ctx) {
    // A listener hears the events of the parser. Strict nodes have places in the XML while they are read.
    if (!IsLocalTextUtf8() || IsASCIIOnly() || ctx.GetSchemaType() == SchemaType_NoNamespaces ||
        IsDebugTraceEnabled() || (ctx.GetStrict() && ctx.GetKeepPositions()))
        return false;
    document.MakeTree();
    bool const isRead = PlainJsonReader(document, json, ctx).Read();
    return document.EndPlainReading(isRead);
}

// Strict trees need no places of texts: none stands ahead of a child.
PlainJsonReader::PlainJsonReader(CXmlDocument& document, std::string_view json,
                                 CSerializationContext const& ctx)
    : m_tree(*document.m_tree), m_begin(json.data()), m_tokens(json.data() + json.size(), ctx.GetStrict()),
      m_isStrict(ctx.GetStrict()),
      m_hasMarks(ctx.GetJsonContext().GetSupportRoundtrip() != JsonRoundTrip_None),
      m_rootName(ctx.GetJsonContext().GetRootElementName().empty()
                     ? ""
                     : ctx.GetJsonContext().GetRootElementName() + '"'),
      m_elements(document, m_isStrict, detail::PlainElements::Values::kBorrowed), m_counted(m_begin),
      m_lineStart(m_begin) {
    if (ctx.GetKeepPositions())
        m_tree.KeepPositions(*this);
}

bool PlainJsonReader::Read() {
    char const* const end = ReadDocument();
    if (!m_isStrict)
        return end != nullptr; // what stands behind the root is nobody's business
    return end != nullptr && m_tokens.SkipSpace(end) == m_tokens.GetEnd() && !(m_hasNil && m_hasNilName);
}

char const* PlainJsonReader::ReadDocument() {
    char const* const at = m_tokens.SkipSpace(m_begin);
    if (!m_tokens.Holds(at, '{'))
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
    at = m_tokens.SkipSpace(at);
    if (!m_tokens.Holds(at, '"'))
        return nullptr;
    PlainName* const name = m_elementNames.Read(++at, m_tokens.GetEnd());
    if (name == nullptr || !AddName(*name))
        return nullptr;
    at = m_tokens.ReadColon(at);
    if (at == nullptr)
        return nullptr;
    at = ReadElement(*name, at);
    if (at == nullptr)
        return nullptr;
    at = m_tokens.SkipSpace(at);
    return m_tokens.Holds(at, '}') ? at + 1 : nullptr;
}

// The value of an element that is no array.
char const* PlainJsonReader::ReadElement(PlainName& name, char const* at) {
    if (at == m_tokens.GetEnd())
        return nullptr;
    if (*at == '{')
        return ReadObject(name, at);
    char const* const begin = at;
    bool const isNull = *at == 'n';
    PlainJsonTokens::Text text;
    at = isNull ? m_tokens.ReadWord(at, "null") : m_tokens.ReadText(at, text);
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
        at = ReadMembers(name, at, m_tokens.SkipSpace(at + 1));
        m_uniqueNames.Leave(outside);
    } else {
        at = ReadMembers(name, at, m_tokens.SkipSpace(at + 1));
    }
    --m_depth;
    --m_containers;
    return at;
}

char const* PlainJsonReader::ReadMembers(PlainName& name, char const* begin, char const* at) {
    Object object{&name, begin};
    bool isEnd = m_tokens.Holds(at, '}');
    m_elements.Begin();
    while (!isEnd) {
        at = ReadMember(object, at);
        if (at == nullptr)
            return nullptr;
        at = m_tokens.SkipSpace(at);
        isEnd = m_tokens.Holds(at, '}');
        if (!isEnd) {
            if (!m_tokens.Holds(at, ','))
                return nullptr;
            at = m_tokens.SkipSpace(at + 1);
        }
    }
    return EndObject(object) ? at + 1 : nullptr;
}

// The element begins behind its last attribute.
char const* PlainJsonReader::ReadMember(Object& object, char const* at) {
    if (!m_tokens.Holds(at, '"') || ++at == m_tokens.GetEnd())
        return nullptr;
    if (m_hasMarks && *at == detail::kAttributeMark)
        return object.isStarted ? nullptr : ReadAttribute(at + 1);
    bool const isText = m_hasMarks && *at == detail::kTextName[0];
    if (isText && m_isStrict)
        return ReadStrictText(object, at);
    if (!object.isStarted && !m_elements.Start(*object.name, object.begin))
        return nullptr;
    object.isStarted = true;
    return isText ? ReadLastText(object, at) : ReadChildren(at, object.children);
}

bool PlainJsonReader::EndObject(Object const& object) {
    if (object.isNil && (object.isStarted || !AddNil()))
        return false;
    if (!object.isStarted && !m_elements.Start(*object.name, object.begin))
        return false;
    if (object.children != 0 && !m_isStrict)
        AppendBreaks(object.children, m_depth - 1);
    if (!object.text.empty())
        m_tree.AppendKeptText(object.text);
    m_elements.End();
    return true;
}

// Behind the mark. A null is no attribute.
char const* PlainJsonReader::ReadAttribute(char const* at) {
    detail::PlainElements::Attribute attribute{m_attributeNames.Read(at, m_tokens.GetEnd()), {}};
    if (attribute.name == nullptr || m_elements.IsFull() || !AddName(*attribute.name))
        return nullptr;
    at = m_tokens.ReadColon(at);
    if (at == nullptr)
        return nullptr;
    if (*at == 'n')
        return m_tokens.ReadWord(at, "null");
    attribute.place = at;
    PlainJsonTokens::Text text;
    at = m_tokens.ReadText(at, text);
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
char const* PlainJsonReader::ReadLastText(Object& object, char const* at) {
    at = m_tokens.ReadWord(at, detail::kTextName);
    at = at == nullptr ? nullptr : m_tokens.ReadColon(at);
    if (at == nullptr)
        return nullptr;
    PlainJsonTokens::Text text;
    at = m_tokens.ReadText(at, text);
    if (at == nullptr)
        return nullptr;
    bool const isBehindChildren = object.children != 0 && !text.value.empty();
    if (isBehindChildren) {
        AppendBreaks(object.children, 0);
        object.children = 0;
    }
    if (!AppendText(text))
        return nullptr;
    if (isBehindChildren)
        m_tree.AppendKeptText(m_breaks[m_depth - 1].substr(1)); // the indent of the end tag
    at = m_tokens.SkipSpace(at);
    return m_tokens.Holds(at, '}') ? at : nullptr;
}

// It stands anywhere in its object, and behind the children in the element.
char const* PlainJsonReader::ReadStrictText(Object& object, char const* at) {
    at = object.hasText ? nullptr : m_tokens.ReadWord(at, detail::kTextName);
    at = at == nullptr ? nullptr : m_tokens.ReadColon(at);
    if (at == nullptr)
        return nullptr;
    object.hasText = true;
    object.isNil = *at == 'n';
    if (object.isNil)
        return m_tokens.ReadWord(at, "null");
    PlainJsonTokens::Text text;
    at = m_tokens.ReadText(at, text);
    if (at != nullptr)
        object.text = text.isMade ? m_tree.KeepText(text.value) : text.value;
    return at;
}

// A member, which is one child, or one for each item of an array.
char const* PlainJsonReader::ReadChildren(char const* at, std::uint32_t& count) {
    PlainName* const name = m_elementNames.Read(at, m_tokens.GetEnd());
    if (name == nullptr || !AddName(*name))
        return nullptr;
    at = m_tokens.ReadColon(at);
    if (at == nullptr)
        return nullptr;
    if (*at == '[')
        return ReadItems(*name, m_tokens.SkipSpace(at + 1), count);
    ++count;
    return ReadElement(*name, at);
}

// Behind the bracket.
char const* PlainJsonReader::ReadItems(PlainName& name, char const* at, std::uint32_t& count) {
    if (m_tokens.Holds(at, ']'))
        return at + 1;
    if (m_containers == kMostContainers)
        return nullptr;
    ++m_containers;
    for (;;) {
        ++count;
        at = ReadElement(name, at);
        if (at == nullptr)
            return nullptr;
        at = m_tokens.SkipSpace(at);
        if (m_tokens.Holds(at, ']'))
            break;
        if (!m_tokens.Holds(at, ','))
            return nullptr;
        at = m_tokens.SkipSpace(at + 1);
    }
    --m_containers;
    return at + 1;
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
        if (m_elements.IsFull())
            return false;
        char const* at = name.data();
        PlainName* const known = m_attributeNames.Read(at, at + name.size());
        if (known == nullptr)
            return false;
        m_elements.Add({known, value});
    }
    return true;
}

// The text of an element without children, or a usual one. One that is written as a CDATA section is left to
// the parser.
bool PlainJsonReader::AppendText(PlainJsonTokens::Text const& text) {
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
