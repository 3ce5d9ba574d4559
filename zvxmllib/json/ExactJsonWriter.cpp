#include "zvxmllib/json/ExactJsonWriter.h"

#include "zvxmllib/foundation/XmlNamespaces.h"
#include "zvxmllib/json/Failures.h"
#include "zvxmllib/values/text/NumberText.h"
#include "zvxmllib/writers/Failures.h"

#include <charconv>
#include <system_error>

namespace ZvXmlLib16 {

namespace {

CInstanceMonitor::Registration s_exactJsonWriterInstances("CExactJsonWriter");

constexpr std::string_view kBlanks = " \t\n\r";
constexpr char kDefaultDeclaration[] = "@xmlns";

// Skips digits; false if there are none.
bool TakeDigits(std::string_view& text) noexcept {
    std::size_t count = 0;
    while (count < text.size() && detail::IsDigit(text[count]))
        ++count;
    text.remove_prefix(count);
    return count != 0;
}

bool Take(std::string_view& text, std::string_view choice) noexcept {
    if (text.empty() || choice.find(text[0]) == std::string_view::npos)
        return false;
    text.remove_prefix(1);
    return true;
}

// RFC 8259, section 6. Many programs refuse what is beyond a double.
bool IsNumber(std::string_view text) noexcept {
    double value;
    if (std::from_chars(text.data(), text.data() + text.size(), value).ec == std::errc::result_out_of_range)
        return false;
    Take(text, "-");
    if (!Take(text, "0") && !TakeDigits(text))
        return false;
    if (Take(text, ".") && !TakeDigits(text))
        return false;
    if (Take(text, "eE")) {
        Take(text, "+-");
        if (!TakeDigits(text))
            return false;
    }
    return text.empty();
}

// A format may leave a decimal its point without a digit behind it, which JSON does not.
JsonValue ScalarOf(std::string const& text, ItemType type) {
    if (type == ItemType_decimal && text.size() > 1 && text.back() == '.')
        return ScalarOf(text.substr(0, text.size() - 1), type);
    bool const isBare = StandsBare(type) && (text == "true" || text == "false" || IsNumber(text));
    return {isBare ? JsonValue::kBare : JsonValue::kString, text, {}};
}

} // namespace

CExactJsonWriter::CExactJsonWriter(CTextStream* sink, JsonRoundTrip roundTrip)
    : CTextWriter(s_exactJsonWriterInstances, sink), m_roundTrip(roundTrip) {}

CExactJsonWriter::~CExactJsonWriter() = default;

void CExactJsonWriter::Close() {
    if (m_open.empty() && m_hasRoot) {
        JsonValue document{JsonValue::kObject, {}, {}};
        document.members.push_back(std::move(m_root));
        Print(document, 0);
    }
    CTextWriter::Close();
}

void CExactJsonWriter::SetDefaultNamespace(std::string const& ns) {
    if (m_pContext == nullptr) // it would move an element that is open
        CTextWriter::SetDefaultNamespace(ns);
}

void CExactJsonWriter::AddNamespaceAlias(std::string const& alias, std::string const& ns) {
    if (m_pContext != nullptr && !m_inForce.IsNew(alias, ns))
        return;
    CTextWriter::AddNamespaceAlias(alias, ns);
    if (m_pContext != nullptr)
        AppendDeclaration(alias, ns);
}

void CExactJsonWriter::DeclareOnNextElement(std::string const& alias, std::string const& ns) {
    if (IsFull())
        m_kept.Add(alias, ns);
}

void CExactJsonWriter::WriteComment(std::string const&) {}

void CExactJsonWriter::WriteProcessingInstruction(std::string const&) {}

void CExactJsonWriter::WriteInlineSchema(std::string const&) {}

void CExactJsonWriter::WriteElementStart(std::string const& name, std::string const& ns) {
    bool const isRoot = m_open.empty();
    if (!isRoot)
        ForgetBlankText(true);
    else
        m_kept.ReplaceGiven(m_namespaceMap, m_defaultNamespace);
    m_hasRoot = true;
    PushContext();
    m_open.emplace_back();
    if (isRoot && IsFull())
        AppendRootDeclarations();
    for (auto const& declaration : m_kept.Enter(*m_pContext, ns, m_inForce))
        AppendDeclaration(declaration.alias, declaration.ns);
    std::string member = MemberOf(name, ns);
    m_open.back().member = std::move(member);
}

void CExactJsonWriter::WriteElementValue(std::string const& text, ItemType type, bool) {
    if (m_open.empty())
        FailValueOutsideElement();
    Open& element = m_open.back();
    element.text += text;
    element.type = type;
    element.hasText = true;
}

void CExactJsonWriter::WriteElementEnd() {
    if (m_open.empty())
        FailEndOutsideElement();
    std::string const member = std::move(m_open.back().member);
    if (m_open.back().object.members.size() != m_open.back().attributes)
        ForgetBlankText(false);
    if (m_open.back().isNil && !m_open.back().text.empty()) { // null would leave no room for the text
        m_open.back().isNil = false;
        AddAttribute(AttributeMemberOf("nil", kSchemaInstanceNamespace), {JsonValue::kString, "true", {}});
    }
    JsonValue value = Finish(m_open.back());
    m_open.pop_back();
    m_inForce.EndElement(m_pContext->m_depth);
    PopContext();
    if (m_open.empty())
        m_root = {member, std::move(value)};
    else
        AddChild(member, std::move(value), m_pContext->m_collectionState == CollectionState_Announced);
}

void CExactJsonWriter::WriteAttribute(std::string const& name, std::string const& ns,
                                      std::string const& value, ItemType type) {
    RequireOpenStartTag();
    AddAttribute(AttributeMemberOf(name, ns), ScalarOf(value, type));
}

void CExactJsonWriter::WriteTypeAttribute(std::string const& ns, std::string const& typeName, ItemType type) {
    if (!IsFull())
        return;
    if (ns.empty() && m_pContext != nullptr && !m_pContext->GetDefaultNamespace().empty())
        FailAliasOfTwo({}, m_pContext->GetDefaultNamespace(), ns); // a name without a prefix is one of it
    CTextWriter::WriteTypeAttribute(ns, typeName, type);
}

void CExactJsonWriter::WriteNilAttribute() {
    RequireOpenStartTag();
    m_open.back().isNil = true;
}

void CExactJsonWriter::RequireOpenStartTag() const {
    if (m_open.empty() || m_open.back().hasText ||
        m_open.back().object.members.size() != m_open.back().attributes)
        FailAttributeAfterContent();
}

bool CExactJsonWriter::IsKnownUndeclared(std::string const& ns) const {
    return ns == kXmlNamespace;
}

void CExactJsonWriter::AppendDeclaration(std::string_view alias, std::string const& ns) {
    if (!IsFull())
        return;
    std::string member = kDefaultDeclaration;
    if (!alias.empty()) {
        member += ':';
        member += alias;
    }
    AddAttribute(member, {JsonValue::kString, ns, {}});
    m_inForce.Declare(alias, ns, m_pContext->m_depth);
}

// The name of the current element in its parent. What it needs is declared on it.
std::string CExactJsonWriter::MemberOf(std::string const& name, std::string const& ns) {
    if (!IsFull() || ns == m_pContext->GetDefaultNamespace())
        return name;
    if (!ns.empty())
        return AliasOf(ns) + ':' + name;
    m_pContext->SetDefaultNamespace(ns);
    AppendDeclaration({}, ns);
    return name;
}

std::string CExactJsonWriter::AttributeMemberOf(std::string const& name, std::string const& ns) {
    std::string const mark = m_roundTrip == JsonRoundTrip_None ? "" : "@";
    return IsFull() && !ns.empty() ? mark + AliasOf(ns) + ':' + name : mark + name;
}

std::string const& CExactJsonWriter::AliasOf(std::string const& ns) {
    if (std::string const* const alias = m_pContext->FindAlias(ns))
        return *alias;
    std::string const& alias = GenerateAlias(*m_pContext, ns);
    AppendDeclaration(alias, ns);
    return alias;
}

// A declaration may stand there already, and changes then.
void CExactJsonWriter::AddAttribute(std::string const& name, JsonValue value) {
    Open& element = m_open.back();
    std::vector<JsonMember>& members = element.object.members;
    if (!element.names.insert(name).second) {
        for (std::size_t i = 0; i < element.attributes; ++i) {
            if (members[i].name == name)
                members[i].value = std::move(value);
        }
        return;
    }
    members.insert(members.begin() + static_cast<std::ptrdiff_t>(element.attributes++),
                   JsonMember{name, std::move(value)});
}

// Neighbours of one name are an array. A name that comes again later has no place in the object.
void CExactJsonWriter::AddChild(std::string const& name, JsonValue value, bool isAnnounced) {
    Open& parent = m_open.back();
    std::vector<JsonMember>& members = parent.object.members;
    if (!parent.names.insert(name).second) {
        if (members.size() == parent.attributes || members.back().name != name)
            FailElementPlaceInJson(name);
        JsonValue& last = members.back().value;
        if (last.kind != JsonValue::kArray) {
            JsonValue array{JsonValue::kArray, {}, {}};
            array.members.push_back({std::string(), std::move(last)});
            last = std::move(array);
        }
        last.members.push_back({std::string(), std::move(value)});
        return;
    }
    if (isAnnounced) {
        JsonValue array{JsonValue::kArray, {}, {}};
        array.members.push_back({std::string(), std::move(value)});
        value = std::move(array);
    }
    members.push_back({name, std::move(value)});
}

// White space beside children has no place in JSON and means nothing there. Other text may stand behind them.
void CExactJsonWriter::ForgetBlankText(bool isAheadOfChild) {
    Open& element = m_open.back();
    if (element.text.find_first_not_of(kBlanks) != std::string::npos) {
        if (isAheadOfChild)
            FailTextPlaceInJson(element.member);
        return;
    }
    element.text.clear();
    element.hasText = false;
}

JsonValue CExactJsonWriter::Finish(Open& element) const {
    bool const isObject = !element.object.members.empty();
    JsonValue value = element.isNil ? JsonValue() : ScalarOf(element.text, element.type);
    if (!isObject && (element.isNil || element.hasText))
        return value;
    if (isObject && (element.isNil || !element.text.empty())) {
        std::string const name = m_roundTrip == JsonRoundTrip_None ? "" : "#text";
        element.object.members.push_back({name, std::move(value)});
    }
    return std::move(element.object);
}

void CExactJsonWriter::Print(JsonValue const& value, std::int32_t depth) {
    bool const isObject = value.kind == JsonValue::kObject;
    switch (value.kind) {
    case JsonValue::kNull:
        m_sink->Append("null", 4);
        return;
    case JsonValue::kBare:
        m_sink->Append(value.text);
        return;
    case JsonValue::kString:
        PrintString(value.text);
        return;
    case JsonValue::kObject:
    case JsonValue::kArray:
        m_sink->Append(isObject ? '{' : '[');
        for (JsonMember const& member : value.members) {
            if (&member != value.members.data())
                m_sink->Append(',');
            PrintMember(member, depth + 1, isObject);
        }
        if (!value.members.empty())
            AppendLineBreak(depth);
        m_sink->Append(isObject ? '}' : ']');
    }
}

void CExactJsonWriter::PrintMember(JsonMember const& member, std::int32_t depth, bool hasName) {
    AppendLineBreak(depth);
    if (hasName) {
        PrintString(member.name);
        m_sink->Append(": ", 2);
    }
    Print(member.value, depth);
    FlushIfLarge();
}

void CExactJsonWriter::PrintString(std::string const& text) {
    m_sink->Append('"');
    for (std::size_t run = 0;;) {
        std::size_t end = run;
        while (end < text.size() && static_cast<unsigned char>(text[end]) >= 0x20 && text[end] != '"' &&
               text[end] != '\\')
            ++end;
        m_sink->Append(text.data() + run, end - run);
        if (end == text.size())
            break;
        m_sink->Append('\\');
        switch (text[end]) {
        case '\n':
            m_sink->Append('n');
            break;
        case '\r':
            m_sink->Append('r');
            break;
        case '\t':
            m_sink->Append('t');
            break;
        default: // of what XML can express, a quotation mark or a backslash
            m_sink->Append(text[end]);
        }
        run = end + 1;
    }
    m_sink->Append('"');
}

} // namespace ZvXmlLib16
