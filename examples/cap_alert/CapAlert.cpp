#include "CapAlert.h"

#include <cstring>
#include <iterator>

using namespace ZvXmlLib16;
using namespace ZvXmlLib16Data;

namespace cap {

namespace {

// Made when asked for: a static object of another source may be the first to build the tables.
CPrimitiveRestrictions NoFacets() {
    return CPrimitiveRestrictions();
}
constexpr auto kPreserve = CWhitespaceUtils::WhitespaceRule_Preserve;
constexpr auto kCollapse = CWhitespaceUtils::WhitespaceRule_Collapse;

// The two functions of an enumeration, from the names of its values.
template <auto& kNames>
struct Names {
    static char const* ToText(int value) { return kNames[value]; }
    static int FromText(char const* text) {
        for (std::size_t i = 0; i < std::size(kNames); ++i) {
            if (std::strcmp(kNames[i], text) == 0)
                return static_cast<int>(i);
        }
        throw CZvInvalidValueException(FormatString("[%s] is not a value of this enumeration", text));
    }
};

constexpr char const* kCategories[] = {"Geo",    "Met", "Safety",    "Security", "Rescue", "Fire",
                                       "Health", "Env", "Transport", "Infra",    "CBRNE",  "Other"};
constexpr char const* kResponseTypes[] = {"Shelter", "Evacuate", "Prepare",  "Execute", "Avoid",
                                          "Monitor", "Assess",   "AllClear", "None"};
constexpr char const* kStatuses[] = {"Actual", "Exercise", "System", "Test", "Draft"};
constexpr char const* kMsgTypes[] = {"Alert", "Update", "Cancel", "Ack", "Error"};
constexpr char const* kScopes[] = {"Public", "Restricted", "Private"};
constexpr char const* kUrgencies[] = {"Immediate", "Expected", "Future", "Past", "Unknown"};
constexpr char const* kSeverities[] = {"Extreme", "Severe", "Moderate", "Minor", "Unknown"};
constexpr char const* kCertainties[] = {"Observed", "Likely", "Possible", "Unlikely", "Unknown"};

CElementInfo* Mandatory(char const* name, int index) {
    return new CElementInfoSeqPrimMnd(name, kNamespace, index, false, ItemType_string, nullptr, kPreserve,
                                      NoFacets(), nullptr);
}

CElementInfo* Optional(char const* name, int index) {
    return new CElementInfoSeqPrimOpt(name, kNamespace, index, false, ItemType_string, nullptr, kPreserve,
                                      NoFacets(), nullptr);
}

CElementInfo* OptionalOf(ItemType type, char const* name, int index) {
    return new CElementInfoSeqPrimOpt(name, kNamespace, index, false, type, nullptr, kCollapse, NoFacets(),
                                      nullptr);
}

CElementInfo* Sent(int index) {
    return new CElementInfoSeqPrimMnd("sent", kNamespace, index, false, ItemType_datetime, nullptr, kCollapse,
                                      NoFacets(), nullptr);
}

// xs:language, "en-US" by default.
CElementInfo* Language(int index) {
    CPrimitiveRestrictions language;
    language.pattern = "[a-zA-Z]{1,8}(-[a-zA-Z0-9]{1,8})*";
    return new CElementInfoSeqPrimOpt("language", kNamespace, index, false, ItemType_string, nullptr,
                                      kCollapse, language, "en-US");
}

template <auto& kNames>
CElementInfo* OneOf(char const* name, int index) {
    return new CElementInfoSeqEnumMnd(name, kNamespace, index, false, Names<kNames>::ToText,
                                      Names<kNames>::FromText, nullptr);
}

CElementInfo* Typed(char const* name, int index) {
    return new CElementInfoSeqClsCol(name, kNamespace, index, XmlElementType_Element);
}

CElementInfo* Strings(char const* name, int index) {
    return new CElementInfoSeqPrimCol(name, kNamespace, index);
}

CElementInfo* Enumerators(char const* name, int index) {
    return new CElementInfoSeqEnumCol(name, kNamespace, index);
}

CstringCol* NewStringCol(char const* name) {
    return new CstringCol(name, kNamespace, 0, -1, nullptr, -1, -1, nullptr, nullptr, nullptr, nullptr, -1,
                          -1, -1, kPreserve, nullptr);
}

template <auto& kNames>
CEnumCol* NewEnumCol(char const* name, int minOccurs) {
    return new CEnumCol(name, minOccurs, Names<kNames>::ToText, Names<kNames>::FromText);
}

// The tables, each built at its first use. The index of an entry is that of its property.
Tables& NameValueTables() {
    static Tables s_tables("valueName", {Mandatory("valueName", 0), Mandatory("value", 1)});
    return s_tables;
}

Tables& ResourceTables() {
    static Tables s_tables("resource", {Mandatory("resourceDesc", 0), Mandatory("mimeType", 1),
                                        OptionalOf(ItemType_integer, "size", 2), Optional("uri", 3),
                                        Optional("derefUri", 4), Optional("digest", 5)});
    return s_tables;
}

Tables& AreaTables() {
    static Tables s_tables("area", {Mandatory("areaDesc", 0), Strings("polygon", 1), Strings("circle", 2),
                                    Typed("geocode", 3), OptionalOf(ItemType_decimal, "altitude", 4),
                                    OptionalOf(ItemType_decimal, "ceiling", 5)});
    return s_tables;
}

Tables& InfoTables() {
    static Tables s_tables("info", {Language(0),
                                    Enumerators("category", 1),
                                    Mandatory("event", 2),
                                    Enumerators("responseType", 3),
                                    OneOf<kUrgencies>("urgency", 4),
                                    OneOf<kSeverities>("severity", 5),
                                    OneOf<kCertainties>("certainty", 6),
                                    Optional("audience", 7),
                                    Typed("eventCode", 8),
                                    OptionalOf(ItemType_datetime, "effective", 9),
                                    OptionalOf(ItemType_datetime, "onset", 10),
                                    OptionalOf(ItemType_datetime, "expires", 11),
                                    Optional("senderName", 12),
                                    Optional("headline", 13),
                                    Optional("description", 14),
                                    Optional("instruction", 15),
                                    Optional("web", 16),
                                    Optional("contact", 17),
                                    Typed("parameter", 18),
                                    Typed("resource", 19),
                                    Typed("area", 20)});
    return s_tables;
}

Tables& AlertTables() {
    static Tables s_tables(
        "alert", {Mandatory("identifier", 0), Mandatory("sender", 1), Sent(2), OneOf<kStatuses>("status", 3),
                  OneOf<kMsgTypes>("msgType", 4), Optional("source", 5), OneOf<kScopes>("scope", 6),
                  Optional("restriction", 7), Optional("addresses", 8), Strings("code", 9),
                  Optional("note", 10), Optional("references", 11), Optional("incidents", 12),
                  Typed("info", 13), new CElementInfoSeqUntpdCol("AnyElement", kNamespace, 14)});
    return s_tables;
}

} // namespace

Tables::Tables(char const* name, std::vector<CElementInfo*> entries)
    : info(new CParentElementInfo(XmlElementGroupType_Sequence, XmlElementType_Element, name, kNamespace,
                                  true, false, -1, ItemType_invalid, nullptr, false)),
      elements(std::move(entries)) {
    elements.push_back(nullptr);
}

Tables::~Tables() {
    delete info;
    for (CElementInfo const* entry : elements)
        delete entry;
}

CType::CType(Tables& tables, char const* elementName)
    : m_tables(tables), m_values(tables.elements.size() - 1) {
    SetElementName(elementName);
}

CType::~CType() = default;

void CType::AccessProperty(int index, bool read, ZvVariant& value) {
    ZvVariant& property = m_values.at(static_cast<std::size_t>(index));
    if (read)
        value = property;
    else
        property = std::move(value);
}

void CType::Init() {
    for (ZvVariant& value : m_values)
        value.SetInvalid();
    MakeCollections();
}

CEnumCol::CEnumCol(char const* elementName, int minOccurs, char const* (*toText)(int),
                   int (*fromText)(char const*))
    : Ci4Col(elementName, kNamespace, minOccurs, -1, nullptr, -1, -1, nullptr, nullptr, nullptr, nullptr, -1,
             -1, -1, kCollapse, nullptr),
      m_toText(toText), m_fromText(fromText) {}

void CEnumCol::ToXml_Int(CXmlWriter* writer, bool, char const*, CSerializationContext const& ctx,
                         bool) const {
    ValidateCount(ctx);
    for (std::int32_t const value : *this) {
        writer->WriteElementStart(GetElementName(), m_namespace);
        writer->WriteElementValue(m_toText(value), ItemType_string, false);
        writer->WriteElementEnd();
    }
}

CNameValue::CNameValue(char const* elementName) : CType(NameValueTables(), elementName) {}

CResource::CResource(char const* elementName) : CType(ResourceTables(), elementName) {}

CArea::CArea(char const* elementName) : CType(AreaTables(), elementName) {
    CArea::MakeCollections();
}

void CArea::MakeCollections() {
    SetCollection(1, NewStringCol("polygon"));
    SetCollection(2, NewStringCol("circle"));
    SetCollection(3, new CTypeCol<CNameValue>("geocode"));
}

CInfo::CInfo(char const* elementName) : CType(InfoTables(), elementName) {
    CInfo::MakeCollections();
}

void CInfo::MakeCollections() {
    SetCollection(1, NewEnumCol<kCategories>("category", 1));
    SetCollection(3, NewEnumCol<kResponseTypes>("responseType", 0));
    SetCollection(8, new CTypeCol<CNameValue>("eventCode"));
    SetCollection(18, new CTypeCol<CNameValue>("parameter"));
    SetCollection(19, new CTypeCol<CResource>("resource"));
    SetCollection(20, new CTypeCol<CArea>("area"));
}

CAlert::CAlert() : CType(AlertTables(), "alert") {
    CAlert::MakeCollections();
}

void CAlert::MakeCollections() {
    SetCollection(9, NewStringCol("code"));
    SetCollection(13, new CTypeCol<CInfo>("info"));
    SetCollection(14, new CElementCol(kNamespace, "##any", kNamespace, 0, -1));
}

char const* ToText(Category category) {
    return kCategories[static_cast<int>(category)];
}

char const* ToText(Severity severity) {
    return kSeverities[static_cast<int>(severity)];
}

} // namespace cap
