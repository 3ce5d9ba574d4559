#include "zvxmllib/json/ExactJsonWriter.h"

#include "zvxmllib/foundation/XmlNamespaces.h"
#include "zvxmllib/json/Failures.h"
#include "zvxmllib/values/text/NumberText.h"
#include "zvxmllib/writers/Failures.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <cstring>
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
    constexpr std::size_t kMostDigits = 300; // of a number without exponent that every double can hold
    std::string_view const whole = text;
    bool hasExponent = false;
    Take(text, "-");
    if (!Take(text, "0") && !TakeDigits(text))
        return false;
    if (Take(text, ".") && !TakeDigits(text))
        return false;
    if (Take(text, "eE")) {
        hasExponent = true;
        Take(text, "+-");
        if (!TakeDigits(text))
            return false;
    }
    if (!text.empty())
        return false;
    double value;
    return (!hasExponent && whole.size() < kMostDigits) ||
           std::from_chars(whole.data(), whole.data() + whole.size(), value).ec !=
               std::errc::result_out_of_range;
}

// A format may leave a decimal its point without a digit behind it, which JSON does not.
JsonValue ScalarOf(std::string const& text, ItemType type) {
    if (type == ItemType_decimal && text.size() > 1 && text.back() == '.')
        return ScalarOf(text.substr(0, text.size() - 1), type);
    bool const isBare = StandsBare(type) && (text == "true" || text == "false" || IsNumber(text));
    return {isBare ? JsonValue::kBare : JsonValue::kString, text, {}};
}

// Whether none of eight octets is a control character, a quotation mark or a backslash. An octet that is one
// is always seen; one above it may be taken for one, and is then looked at by itself.
bool AreEightPlain(std::uint64_t octets) noexcept {
    constexpr std::uint64_t kOnes = 0x0101010101010101U;
    auto const hasZero = [](std::uint64_t eight) { return (eight - kOnes) & ~eight; };
    std::uint64_t const controls = (octets - kOnes * 0x20) & ~octets;
    return ((controls | hasZero(octets ^ (kOnes * '"')) | hasZero(octets ^ (kOnes * '\\'))) &
            (kOnes << 7U)) == 0;
}

// Where the characters end that stand in a string as they are.
std::size_t EndOfPlainRun(std::string const& text, std::size_t at) noexcept {
    for (std::uint64_t octets = 0; at + sizeof octets <= text.size(); at += sizeof octets) {
        std::memcpy(&octets, text.data() + at, sizeof octets);
        if (!AreEightPlain(octets))
            break;
    }
    while (at < text.size() && static_cast<unsigned char>(text[at]) >= 0x20 && text[at] != '"' &&
           text[at] != '\\')
        ++at;
    return at;
}

// Growing one by one from the start would move the members often.
void ReserveFew(std::vector<JsonMember>& members) {
    if (members.capacity() == 0)
        members.reserve(4);
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

// Without a context and an open element of its own, where nothing has to be declared.
bool CExactJsonWriter::TryWriteTextElement(std::string const& name, std::string const& ns,
                                           std::string const& text, ItemType type) {
    if (m_open.empty() || text.empty() || !m_kept.IsEmpty())
        return false;
    std::string const* alias = nullptr;
    if (IsFull() && ns != m_pContext->GetDefaultNamespace()) {
        alias = ns.empty() ? nullptr : m_pContext->FindAlias(ns);
        if (alias == nullptr)
            return false;
    }
    ForgetBlankText(true);
    AddChild(alias == nullptr ? name : *alias + ':' + name, ScalarOf(text, type),
             m_pContext->m_collectionState == CollectionState_Announced);
    CountContext();
    return true;
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

// To be asked before each member is added, which it then expects.
bool CExactJsonWriter::Open::HasMember(std::string const& name) {
    constexpr std::size_t kFew = 16;
    std::vector<JsonMember> const& members = object.members;
    if (members.size() < kFew)
        return std::any_of(members.rbegin(), members.rend(),
                           [&name](JsonMember const& known) { return known.name == name; });
    if (names.empty()) {
        for (JsonMember const& known : members)
            names.insert(known.name);
    }
    return !names.insert(name).second;
}

// A declaration may stand there already, and changes then.
void CExactJsonWriter::AddAttribute(std::string const& name, JsonValue value) {
    Open& element = m_open.back();
    std::vector<JsonMember>& members = element.object.members;
    if (element.HasMember(name)) {
        for (std::size_t i = 0; i < element.attributes; ++i) {
            if (members[i].name == name)
                members[i].value = std::move(value);
        }
        return;
    }
    ReserveFew(members);
    members.insert(members.begin() + static_cast<std::ptrdiff_t>(element.attributes++),
                   JsonMember{name, std::move(value)});
}

// Neighbours of one name are an array. A name that comes again later has no place in the object.
void CExactJsonWriter::AddChild(std::string const& name, JsonValue value, bool isAnnounced) {
    Open& parent = m_open.back();
    std::vector<JsonMember>& members = parent.object.members;
    if (parent.HasMember(name)) {
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
    ReserveFew(members);
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
        std::size_t const end = EndOfPlainRun(text, run);
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
