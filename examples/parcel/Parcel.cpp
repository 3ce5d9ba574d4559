#include "Parcel.h"

#include <cstring>

using namespace ZvXmlLib16;
using namespace ZvXmlLib16Data;

namespace parcel {

namespace {

constexpr char kNamespace[] = "urn:example:parcel";
constexpr auto kCollapse = CWhitespaceUtils::WhitespaceRule_Collapse;
constexpr auto kPreserve = CWhitespaceUtils::WhitespaceRule_Preserve;

// Made when asked for: a static object of another source may be the first to build the tables.
CPrimitiveRestrictions NoFacets() {
    return CPrimitiveRestrictions();
}

class TableLock {
public:
    explicit TableLock(CZVCriticalSection& lock) : m_lock(lock) { m_lock.Enter(); }
    TableLock(TableLock const&) = delete;
    TableLock& operator=(TableLock const&) = delete;
    ~TableLock() { m_lock.Leave(); }

private:
    CZVCriticalSection& m_lock;
};

[[noreturn]] void FailUnknownProperty(int index) {
    throw CZvInvalidParamException(FormatString("There is no property %d", index));
}

[[noreturn]] void FailToReplace() {
    throw CZvInvalidStateException("This property is filled, not replaced");
}

char const* UnitToText(int unit) {
    return unit == Unit_lb ? "lb" : "kg";
}

int TextToUnit(char const* text) {
    if (std::strcmp(text, "kg") == 0)
        return Unit_kg;
    if (std::strcmp(text, "lb") == 0)
        return Unit_lb;
    throw CZvInvalidValueException(FormatString("The unit [%s] is not one of kg, lb", text));
}

// Refuses other kinds, such as a year: the text decides what kind of date a CDateTime is.
CDateTime const& RequireDate(CDateTime const& value) {
    if (value.GetType() != CDateTime::dt_date)
        throw CZvInvalidValueException("[" + value.ToString() + "] is not a date");
    return value;
}

enum ClassId { Class_locker, Class_remark, Class_returned };

// The class factory of the optional entries.
CSmartPtr<CXmlObjectBase> MakeObject(int classId, char const* elementName) {
    switch (classId) {
    case Class_locker:
        return new CLocker(elementName);
    case Class_remark:
        return new CRemark(elementName);
    default:
        return new CReturned(elementName);
    }
}

// The element factory of the abstract entry.
class CContentFactory : public CClassfactoryBase {
public:
    static CSmartPtr<CXmlObjectBase> Make(CXmlElement* element) {
        if (GetElementTypeNamespaceUri(element) != kNamespace)
            return {};
        std::string const type = GetElementType(element);
        if (type == "Book")
            return new CBook;
        if (type == "Tea")
            return new CTea;
        return {};
    }
};

// An empty element that is there or not; its property is a boolean.
class CFlagEntry : public CElementInfo {
public:
    CFlagEntry(char const* name, char const* ns, int index) : CElementInfo(name, ns, index) {}

    bool ElementToXml(CSerializationContext const&, CXmlGeneratedClass const* object,
                      CXmlWriter* writer) const override {
        ZvVariant value;
        ReadProperty(object, value);
        if (!value.GetBoolean())
            return false;
        writer->WriteElementStart(GetElementName(), GetElementNamespace());
        writer->WriteElementEnd();
        return true;
    }
    bool ElementFromXml(CSerializationContext const& ctx, CXmlGeneratedClass* object, CXmlElement*,
                        CXmlElement** current, char const*, XmlElementType) override {
        if (IsThisElement(ctx, *current)) {
            ZvVariant value;
            value.SetBoolean(true);
            InvokePropertySet(object, value, **current);
            *current = (*current)->GetNextSiblingElement();
        }
        return true; // done, also when it is not there
    }
};

CParentElementInfo* NewInfo(XmlElementGroupType group, XmlElementType type, char const* name) {
    return new CParentElementInfo(group, type, name, kNamespace, type == XmlElementType_Element, false, -1,
                                  ItemType_invalid, nullptr, false);
}

CElementInfo* MandatoryText(char const* name, CProperty const& property) {
    return new CElementInfoSeqPrimMnd(name, kNamespace, property, false, ItemType_string, nullptr, kPreserve,
                                      NoFacets(), nullptr);
}

CstringCol* NewTexts(char const* name) {
    return new CstringCol(name, kNamespace, 0, -1, nullptr, -1, -1, nullptr, nullptr, nullptr, nullptr, -1,
                          -1, -1, kPreserve, nullptr);
}

CType::Tables s_weight, s_locker, s_receiver, s_leg, s_book, s_tea, s_remark, s_returned, s_parcel;

} // namespace

// CType

CType::CType(Tables& tables, void (*build)(Tables&), char const* elementName) : m_tables(tables) {
    if (!tables.areBuilt.load(std::memory_order_acquire)) {
        TableLock const lock(m_csInit);
        if (!tables.areBuilt.load(std::memory_order_relaxed))
            build(tables);
        tables.areBuilt.store(true, std::memory_order_release);
    }
    SetElementName(elementName);
}

CType::~CType() = default;

std::string CType::GetNamespace() {
    return kNamespace;
}
std::string CType::GetTargetNamespace() {
    return kNamespace;
}

void CType::CleanUp() {
    for (Tables* tables :
         {&s_weight, &s_locker, &s_receiver, &s_leg, &s_book, &s_tea, &s_remark, &s_returned, &s_parcel}) {
        CleanMetaData(tables->info, tables->elements, tables->attributes);
        tables->areBuilt = false;
    }
}

// CWeight

namespace {

enum WeightProperty { Weight_value, Weight_unit };

void BuildWeight(CType::Tables& tables) {
    tables.info = new CParentElementInfo(XmlElementGroupType_Sequence, XmlElementType_Element, "weight",
                                         kNamespace, true, false, Weight_value, ItemType_decimal, "3", true);
    tables.elements = new CElementInfo* [1] { nullptr };
    tables.attributes = new CAttributeInfo* [2] {
        new CAttributeInfoEnum("unit", "", Weight_unit, false, UnitToText, TextToUnit, nullptr), nullptr
    };
}

} // namespace

CWeight::CWeight() : CType(s_weight, BuildWeight, "weight") {}
CWeight::~CWeight() = default;

// The facets of simple content are the setter's to test.
void CWeight::SetValue(CDecimal const& value) {
    if (value < CDecimal(0))
        throw CZvInvalidValueException("A weight is not negative");
    m_value = value;
}

void CWeight::AccessProperty(int index, bool read, ZvVariant& value) {
    switch (index) {
    case Weight_value:
        return read ? value.SetDecimal(m_value)
                    : SetValue(CConversions::decimalFromString(value.GetText(), kCollapse));
    case Weight_unit:
        return read ? value.SetI4(m_unit) : SetUnit(static_cast<Unit>(value.GetI4()));
    default:
        FailUnknownProperty(index);
    }
}

void CWeight::Init() {
    m_value = CDecimal();
    m_unit = Unit_kg;
}

// CLocker

void CLocker::Build(Tables& tables) {
    tables.info = NewInfo(XmlElementGroupType_Sequence, XmlElementType_Element, "locker");
    tables.elements = new CElementInfo* [2] {
        new CElementInfoSeqPrimMnd("number", kNamespace, &CLocker::m_number, false, ItemType_i4, nullptr,
                                   kCollapse, NoFacets(), nullptr),
            nullptr
    };
    tables.attributes = new CAttributeInfo* [1] { nullptr };
}

CLocker::CLocker(char const* elementName) : CType(s_locker, Build, elementName) {}
CLocker::~CLocker() = default;

// CReceiver

namespace {

enum ReceiverProperty { Receiver_address, Receiver_locker, Receiver_phones };

void BuildReceiver(CType::Tables& tables) {
    tables.info = NewInfo(XmlElementGroupType_Choice, XmlElementType_Pseudo, "receiver");
    tables.elements = new CElementInfo* [4] {
        new CElementInfoChoicePrimOpt("address", kNamespace, Receiver_address, false, ItemType_string,
                                      nullptr, kPreserve, NoFacets(), nullptr),
            new CElementInfoChoiceClsOpt("locker", kNamespace, Receiver_locker, XmlElementType_Element,
                                         MakeObject, Class_locker),
            new CElementInfoChoicePrimCol("phone", kNamespace, Receiver_phones), nullptr
    };
    tables.attributes = new CAttributeInfo* [1] { nullptr };
}

} // namespace

CReceiver::CReceiver() : CType(s_receiver, BuildReceiver, "receiver"), m_phones(NewTexts("phone")) {
    m_phones->AddEventListener(this);
}
CReceiver::~CReceiver() {
    m_phones->RemoveEventListener(this);
}

void CReceiver::SetAddress(std::string const& address) {
    Choice_SetElementValid(true, "address", m_selected);
    m_address = address;
}

void CReceiver::RemoveAddress() {
    if (m_selected == "address")
        Choice_SetElementValid(false, "address", m_selected);
    m_address.clear();
}

void CReceiver::SetLocker(CLocker* locker) {
    Throw_IfElementNameDiffers(locker, "locker");
    if (locker != nullptr || m_locker != nullptr)
        Choice_SelectElement("locker", locker, m_selected);
    m_locker = locker;
}

// Refuses a phone before it is added, and notices when the last one goes.
void CReceiver::OnEvent(CXmlObjectBase*, MsgType type, void*) {
    if (type == MsgCollectionAdd)
        Choice_CollectionChanged("phone", m_phones->GetCount() + 1, m_selected);
    else if (type == MsgCollectionChange)
        Choice_CollectionChanged("phone", m_phones->GetCount(), m_selected);
}

void CReceiver::AccessProperty(int index, bool read, ZvVariant& value) {
    switch (index) {
    case Receiver_address:
        if (!read)
            return SetAddress(value.TakeString());
        return m_selected == "address" ? value.SetString(m_address) : value.SetInvalid();
    case Receiver_locker:
        return read ? value.SetXmlObject(m_locker) : SetLocker(static_cast<CLocker*>(value.FindXmlObject()));
    case Receiver_phones:
        return read ? value.SetXmlCollection(m_phones) : FailToReplace();
    default:
        FailUnknownProperty(index);
    }
}

void CReceiver::Init() {
    RemoveAddress();
    SetLocker(nullptr);
    m_phones->Clear();
}

// CLeg

// The tables name members: a leg has no value that a setter would refuse.
void CLeg::Build(Tables& tables) {
    tables.info = NewInfo(XmlElementGroupType_Sequence, XmlElementType_Pseudo, "leg");
    tables.elements = new CElementInfo* [3] {
        MandatoryText("from", &CLeg::m_from), MandatoryText("to", &CLeg::m_to), nullptr
    };
    tables.attributes = new CAttributeInfo* [1] { nullptr };
}

CLeg::CLeg() : CType(s_leg, Build, "leg") {}
CLeg::~CLeg() = default;

void CLeg::Init() {
    m_from.clear();
    m_to.clear();
}

// CLegCol

CLegCol::CLegCol() : CXmlCollection("", kNamespace, 0, -1) {}
CLegCol::~CLegCol() {
    Clear();
}

CSmartPtr<CLeg> CLegCol::Add() {
    CSmartPtr<CLeg> leg(new CLeg);
    AppendItem(leg);
    return leg;
}

CSmartPtr<CLeg> CLegCol::Item(int index) const {
    return static_cast<CLeg*>(static_cast<CXmlObjectBase*>(GetNodeAtIndex(index)->m_item));
}

void CLegCol::ToXml_Int(CXmlWriter* writer, bool, char const* ns, CSerializationContext const& ctx,
                        bool) const {
    ValidateCount(ctx);
    for (CNode const* node = m_pHead; node != nullptr; node = node->m_pNext)
        CXmlObjectBase::ToXml_Int(node->m_item->GetBase(), writer, false, ns, ctx, false);
}

CXmlElement* CLegCol::FromXml_Int(CXmlElement* element, CXmlElement* current,
                                  CSerializationContext const& ctx, bool) {
    while (current != nullptr) {
        CSmartPtr<CLeg> const leg(new CLeg);
        CXmlElement* const next = CXmlObjectBase::FromXml_Int(leg->GetBase(), element, current, ctx);
        if (next == current)
            break; // the group took nothing: no more items
        AppendItem(leg);
        current = next;
    }
    return current;
}

// CContent, CBook, CTea

namespace {

enum ContentProperty { Content_title, Content_count };
enum TeaProperty { Tea_grams = Content_count };

// The name is that of the type, which xsi:type names.
CParentElementInfo* NewDerivedInfo(char const* typeName) {
    return new CParentElementInfo(XmlElementGroupType_Sequence, XmlElementType_Element, typeName, kNamespace,
                                  true, true, -1, ItemType_invalid, nullptr, false);
}

void BuildBook(CType::Tables& tables) {
    tables.info = NewDerivedInfo("Book");
    tables.elements = new CElementInfo* [2] { MandatoryText("title", Content_title), nullptr };
    tables.attributes = new CAttributeInfo* [1] { nullptr };
}

void BuildTea(CType::Tables& tables) {
    tables.info = NewDerivedInfo("Tea");
    tables.elements = new CElementInfo* [3] {
        MandatoryText("title", Content_title), // the entry of the base
            new CElementInfoSeqPrimMnd("grams", kNamespace, Tea_grams, false, ItemType_i4, nullptr, kCollapse,
                                       NoFacets(), nullptr),
            nullptr
    };
    tables.attributes = new CAttributeInfo* [1] { nullptr };
}

} // namespace

CContent::~CContent() = default;
CBook::CBook() : CContent(s_book, BuildBook, "content") {}
CBook::~CBook() = default;
CTea::CTea() : CContent(s_tea, BuildTea, "content") {}
CTea::~CTea() = default;

void CContent::AccessProperty(int index, bool read, ZvVariant& value) {
    if (index != Content_title)
        FailUnknownProperty(index);
    return read ? value.SetString(m_title) : SetTitle(value.TakeString());
}

void CTea::AccessProperty(int index, bool read, ZvVariant& value) {
    if (index != Tea_grams)
        return CContent::AccessProperty(index, read, value);
    return read ? value.SetI4(m_grams) : SetGrams(value.GetI4());
}

void CTea::Init() {
    CContent::Init();
    m_grams = 0;
}

// CRemark

namespace {

enum RemarkProperty { Remark_text, Remark_bold };

void BuildRemark(CType::Tables& tables) {
    tables.info =
        new CParentElementInfo(XmlElementGroupType_Sequence, XmlElementType_Element, "remark", kNamespace,
                               true, false, Remark_text, ItemType_string, nullptr, true);
    tables.elements =
        new CElementInfo* [2] { new CElementInfoSeqPrimCol("b", kNamespace, Remark_bold), nullptr };
    tables.attributes = new CAttributeInfo* [1] { nullptr };
}

} // namespace

CRemark::CRemark(char const* elementName)
    : CType(s_remark, BuildRemark, elementName), m_bold(NewTexts("b")) {}
CRemark::~CRemark() = default;

void CRemark::AccessProperty(int index, bool read, ZvVariant& value) {
    switch (index) {
    case Remark_text:
        return read ? value.SetString(m_text) : SetText(value.TakeString());
    case Remark_bold:
        return read ? value.SetXmlCollection(m_bold) : FailToReplace();
    default:
        FailUnknownProperty(index);
    }
}

void CRemark::Init() {
    m_text.clear();
    m_bold->Clear();
}

// CReturned

namespace {

void BuildReturned(CType::Tables& tables) {
    tables.info = NewInfo(XmlElementGroupType_Sequence, XmlElementType_Element, "returned");
    tables.elements = new CElementInfo* [1] { nullptr };
    tables.attributes = new CAttributeInfo* [2] {
        new CAttributeInfoPrimitive("on", "", 0, true, ItemType_date, nullptr, kCollapse, NoFacets(),
                                    nullptr),
            nullptr
    };
}

} // namespace

CReturned::CReturned(char const* elementName) : CType(s_returned, BuildReturned, elementName) {}
CReturned::~CReturned() = default;

void CReturned::SetOn(CDateTime const& on) {
    m_on = RequireDate(on);
}

void CReturned::AccessProperty(int index, bool read, ZvVariant& value) {
    if (index != 0)
        FailUnknownProperty(index);
    if (!read)
        return SetOn(value.GetDate());
    return m_on.GetType() == CDateTime::dt_date ? value.SetDate(m_on) : value.SetInvalid();
}

void CReturned::Init() {
    m_isNil = false;
    m_on = CDateTime();
}

// CParcel

namespace {

enum ParcelProperty {
    Parcel_weight,
    Parcel_receiver,
    Parcel_legs,
    Parcel_content,
    Parcel_fragile,
    Parcel_insured,
    Parcel_pieces,
    Parcel_remark,
    Parcel_returned,
    Parcel_any,
    Parcel_priority,
    Parcel_version,
    Parcel_anyAttributes
};

void BuildParcel(CType::Tables& tables) {
    tables.info = NewInfo(XmlElementGroupType_Sequence, XmlElementType_Element, "parcel");
    tables.elements = new CElementInfo* [11] {
        new CElementInfoSeqClsMnd("weight", kNamespace, Parcel_weight, XmlElementType_Element, nullptr, 0,
                                  true),
            // The choice is mandatory, so its content is.
            new CElementInfoSeqClsMnd("receiver", kNamespace, Parcel_receiver, XmlElementType_Pseudo, nullptr,
                                      0, true),
            new CElementInfoSeqClsCol("leg", kNamespace, Parcel_legs, XmlElementType_Pseudo),
            new CElementInfoSeqAbsClsMnd("content", kNamespace, Parcel_content, XmlElementType_Element,
                                         CContentFactory::Make),
            new CFlagEntry("fragile", kNamespace, Parcel_fragile),
            new CElementInfoSeqPrimOpt("insured", kNamespace, Parcel_insured, true, ItemType_decimal, "2",
                                       kCollapse, NoFacets(), nullptr),
            new CElementInfoSeqPrimOpt("pieces", kNamespace, Parcel_pieces, false, ItemType_i4, nullptr,
                                       kCollapse, NoFacets(), "1"),
            new CElementInfoSeqClsOpt("remark", kNamespace, Parcel_remark, XmlElementType_Element, MakeObject,
                                      Class_remark),
            new CElementInfoSeqClsOpt("returned", kNamespace, Parcel_returned, XmlElementType_Element,
                                      MakeObject, Class_returned),
            new CElementInfoSeqUntpdCol("AnyElement", kNamespace, Parcel_any), nullptr
    };
    tables.attributes = new CAttributeInfo* [4] {
        new CAttributeInfoPrimitive("priority", "", Parcel_priority, true, ItemType_i4, nullptr, kCollapse,
                                    NoFacets(), "0"),
            new CAttributeInfoPrimitive("version", "", Parcel_version, true, ItemType_string, nullptr,
                                        kPreserve, NoFacets(), nullptr),
            // Last: a wildcard takes what it is offered first.
            new CAttributeInfoAny("AnyAttribute", "", Parcel_anyAttributes, true, "##other", kNamespace,
                                  nullptr),
            nullptr
    };
}

} // namespace

CParcel::CParcel()
    : CType(s_parcel, BuildParcel, "parcel"), m_weight(new CWeight), m_receiver(new CReceiver),
      m_legs(new CLegCol), m_any(new CElementCol("", "##other", kNamespace, 0, -1)),
      m_anyAttributes(new CAttributeCol("", "##other", kNamespace)) {}
CParcel::~CParcel() = default;

void CParcel::SetContent(CContent* content) {
    Throw_IfPropertyIsNull(content, "content");
    Throw_IfElementNameDiffers(content, "content");
    m_content = content;
}

void CParcel::SetInsured(CDecimal const& insured) {
    m_insured = insured;
    m_insurance = Insurance::Known;
}

void CParcel::SetInsuredNil() {
    m_insurance = Insurance::Unknown;
}

void CParcel::SetPieces(std::int32_t pieces) {
    m_pieces = pieces;
    m_hasPieces = true;
}

void CParcel::SetVersion(std::string const& version) {
    if (version != "1")
        throw CZvInvalidValueException("The version [" + version + "] is not 1");
}

void CParcel::AccessProperty(int index, bool read, ZvVariant& value) {
    switch (index) {
    case Parcel_weight:
        return read ? value.SetXmlObject(m_weight) : FailToReplace();
    case Parcel_receiver:
        return read ? value.SetXmlObject(m_receiver) : FailToReplace();
    case Parcel_legs:
        return read ? value.SetXmlCollection(m_legs) : FailToReplace();
    case Parcel_content:
        return read ? value.SetXmlObject(m_content)
                    : SetContent(static_cast<CContent*>(value.FindXmlObject()));
    case Parcel_fragile:
        return read ? value.SetBoolean(m_isFragile) : SetFragile(value.GetBoolean());
    case Parcel_insured:
        if (!read)
            return value.IsNil() ? SetInsuredNil() : SetInsured(value.GetDecimal());
        if (m_insurance == Insurance::Known)
            return value.SetDecimal(m_insured);
        return m_insurance == Insurance::Unknown ? value.SetNil(ItemType_decimal) : value.SetInvalid();
    case Parcel_pieces:
        if (!read)
            return SetPieces(value.GetI4());
        return m_hasPieces ? value.SetI4(m_pieces) : value.SetInvalid();
    case Parcel_remark:
        return read ? value.SetXmlObject(m_remark) : SetRemark(static_cast<CRemark*>(value.FindXmlObject()));
    case Parcel_returned:
        return read ? value.SetXmlObject(m_returned)
                    : SetReturned(static_cast<CReturned*>(value.FindXmlObject()));
    case Parcel_any:
        return read ? value.SetXmlCollection(m_any) : FailToReplace();
    case Parcel_priority:
        return read ? value.SetI4(m_priority) : SetPriority(value.GetI4());
    case Parcel_version:
        return read ? value.SetString("1") : SetVersion(value.TakeString());
    case Parcel_anyAttributes:
        return read ? value.SetXmlCollection(m_anyAttributes) : FailToReplace();
    default:
        FailUnknownProperty(index);
    }
}

void CParcel::Init() {
    m_weight = new CWeight;
    m_receiver = new CReceiver;
    m_legs->Clear();
    m_content = nullptr;
    m_isFragile = false;
    m_insurance = Insurance::None;
    m_insured = CDecimal();
    m_hasPieces = false;
    m_pieces = 1;
    m_remark = nullptr;
    m_returned = nullptr;
    m_any->Clear();
    m_priority = 0; // the default, which holds where the attribute is absent
    m_anyAttributes->Clear();
}

CSmartPtr<CParcel> ReadParcel(char const* xml, CSerializationContext const& ctx) {
    CXmlDocument document(ctx);
    document.LoadXml(xml);
    CXmlElement const* const root = document.GetDocumentElement();
    if (root->GetLocalName() != "parcel" || root->GetNamespaceURI() != kNamespace)
        throw CZvValidationException("The document is no parcel", root->GetXPath());
    CSmartPtr<CParcel> parcel(new CParcel);
    parcel->FromXmlElement(root, ctx);
    return parcel;
}

} // namespace parcel
