#include "PurchaseOrder.h"

#include <cstring>

using namespace ZvXmlLib16;
using namespace ZvXmlLib16Data;

namespace purchase_order {

namespace {

constexpr char kNamespace[] = "urn:example:purchase-order";
constexpr auto kCollapse = CWhitespaceUtils::WhitespaceRule_Collapse;
constexpr auto kPreserve = CWhitespaceUtils::WhitespaceRule_Preserve;

// Made when asked for: a static object of another source may be the first to build the tables.
CPrimitiveRestrictions NoFacets() {
    return CPrimitiveRestrictions();
}

// The tables of a class are built under the one lock of the process, at the first use of the class. A flag in
// front of the lock spares later objects the lock.
class TableLock {
public:
    explicit TableLock(CZVCriticalSection& lock) : m_lock(lock) { m_lock.Enter(); }
    TableLock(TableLock const&) = delete;
    TableLock& operator=(TableLock const&) = delete;
    ~TableLock() { m_lock.Leave(); }

private:
    CZVCriticalSection& m_lock;
};

char const* StatusToText(int status) {
    return status == Status_sent ? "sent" : "draft";
}

int TextToStatus(char const* text) {
    if (std::strcmp(text, "draft") == 0)
        return Status_draft;
    if (std::strcmp(text, "sent") == 0)
        return Status_sent;
    throw CZvInvalidValueException(FormatString("The status [%s] is not one of draft, sent", text));
}

[[noreturn]] void FailUnknownProperty(int index) {
    throw CZvInvalidParamException(FormatString("There is no property %d", index));
}

enum ItemProperty { Item_sku, Item_name, Item_quantity, Item_price };
enum OrderProperty {
    Order_number,
    Order_date,
    Order_status,
    Order_customer,
    Order_items,
    Order_deliveries,
    Order_note
};

CdateCol* NewDeliveries() {
    return new CdateCol("delivery", kNamespace, 0, 3, nullptr, -1, -1, "2000-01-01", nullptr, nullptr,
                        nullptr, -1, -1, -1, kCollapse, nullptr);
}

} // namespace

// CItem

CParentElementInfo* CItem::s_info = nullptr;
CElementInfo** CItem::s_elements = nullptr;
CAttributeInfo** CItem::s_attributes = nullptr;
std::atomic<bool> CItem::s_hasTables{false};

CItem::CItem() {
    BuildTables();
    SetElementName("item");
}

CItem::~CItem() = default;

void CItem::BuildTables() {
    if (s_hasTables.load(std::memory_order_acquire))
        return;
    TableLock const lock(m_csInit);
    if (s_info != nullptr)
        return;
    CPrimitiveRestrictions quantity;
    quantity.minInclusive = "1";
    quantity.maxInclusive = "1000";
    CPrimitiveRestrictions price;
    price.fractionDigits = 2;
    CPrimitiveRestrictions sku;
    sku.pattern = "[a-z]+(-\\d+)?";
    s_elements = new CElementInfo* [4] {
        new CElementInfoSeqPrimMnd("name", kNamespace, Item_name, false, ItemType_string, nullptr, kPreserve,
                                   NoFacets(), nullptr),
            new CElementInfoSeqPrimMnd("quantity", kNamespace, Item_quantity, false, ItemType_i4, nullptr,
                                       kCollapse, quantity, nullptr),
            new CElementInfoSeqPrimMnd("price", kNamespace, Item_price, false, ItemType_decimal, "2",
                                       kCollapse, price, nullptr),
            nullptr
    };
    s_attributes = new CAttributeInfo* [2] {
        new CAttributeInfoPrimitive("sku", "", Item_sku, false, ItemType_string, nullptr, kPreserve, sku,
                                    nullptr),
            nullptr
    };
    s_info = new CParentElementInfo(XmlElementGroupType_Sequence, XmlElementType_Element, "item", kNamespace,
                                    true, false, -1, ItemType_invalid, nullptr, false);
    s_hasTables.store(true, std::memory_order_release);
}

void CItem::CleanUp() {
    s_hasTables = false;
    CleanMetaData(s_info, s_elements, s_attributes);
}
CParentElementInfo* CItem::GetClassInfo() {
    return s_info;
}
CElementInfo** CItem::GetClassElementInfo() {
    return s_elements;
}
CAttributeInfo** CItem::GetClassAttributeInfo() {
    return s_attributes;
}
std::string CItem::GetNamespace() {
    return kNamespace;
}
std::string CItem::GetTargetNamespace() {
    return kNamespace;
}

void CItem::AccessProperty(int index, bool read, ZvVariant& value) {
    switch (index) {
    case Item_sku:
        return read ? value.SetString(m_sku) : SetSku(value.TakeString());
    case Item_name:
        return read ? value.SetString(m_name) : SetName(value.TakeString());
    case Item_quantity:
        return read ? value.SetI4(m_quantity) : SetQuantity(value.GetI4());
    case Item_price:
        return read ? value.SetDecimal(m_price) : SetPrice(value.GetDecimal());
    default:
        FailUnknownProperty(index);
    }
}

void CItem::Init() {
    m_sku.clear();
    m_name.clear();
    m_quantity = 0;
    m_price = CDecimal();
}

// CItemCol

CItemCol::CItemCol() : CXmlCollection("item", kNamespace, 1, -1) {}
CItemCol::~CItemCol() {
    Clear();
}

CSmartPtr<CItem> CItemCol::Add() {
    CSmartPtr<CItem> item(new CItem);
    AppendItem(item);
    return item;
}

CSmartPtr<CItem> CItemCol::Item(int index) const {
    return static_cast<CItem*>(static_cast<CXmlObjectBase*>(GetNodeAtIndex(index)->m_item));
}

void CItemCol::ToXml_Int(CXmlWriter* writer, bool, char const* ns, CSerializationContext const& ctx,
                         bool) const {
    ValidateCount(ctx);
    for (CNode const* node = m_pHead; node != nullptr; node = node->m_pNext)
        CXmlObjectBase::ToXml_Int(node->m_item->GetBase(), writer, false, ns, ctx, false);
}

CXmlElement* CItemCol::FromXml_Int(CXmlElement*, CXmlElement* current, CSerializationContext const& ctx,
                                   bool) {
    while (current != nullptr && DoesElementNameMatch(ctx, current, "item", kNamespace)) {
        CSmartPtr<CItem> const item(new CItem);
        CXmlObjectBase::FromXml_Int(item->GetBase(), current, current->GetFirstElement(), ctx);
        AppendItem(item);
        current = current->GetNextSiblingElement();
    }
    return current;
}

// COrder

CParentElementInfo* COrder::s_info = nullptr;
CElementInfo** COrder::s_elements = nullptr;
CAttributeInfo** COrder::s_attributes = nullptr;
std::atomic<bool> COrder::s_hasTables{false};

COrder::COrder() : m_items(new CItemCol), m_deliveries(NewDeliveries()) {
    BuildTables();
    SetElementName("order");
}

COrder::~COrder() = default;

void COrder::BuildTables() {
    if (s_hasTables.load(std::memory_order_acquire))
        return;
    TableLock const lock(m_csInit);
    if (s_info != nullptr)
        return;
    s_elements = new CElementInfo* [5] {
        new CElementInfoSeqPrimMnd("customer", kNamespace, Order_customer, false, ItemType_string, nullptr,
                                   kPreserve, NoFacets(), nullptr),
            new CElementInfoSeqClsCol("item", kNamespace, Order_items, XmlElementType_Element),
            new CElementInfoSeqPrimCol("delivery", kNamespace, Order_deliveries),
            new CElementInfoSeqPrimOpt("note", kNamespace, Order_note, false, ItemType_string, nullptr,
                                       kPreserve, NoFacets(), nullptr),
            nullptr
    };
    s_attributes = new CAttributeInfo* [4] {
        new CAttributeInfoPrimitive("number", "", Order_number, false, ItemType_i4, nullptr, kCollapse,
                                    NoFacets(), nullptr),
            new CAttributeInfoPrimitive("date", "", Order_date, true, ItemType_date, nullptr, kCollapse,
                                        NoFacets(), nullptr),
            new CAttributeInfoEnum("status", "", Order_status, true, StatusToText, TextToStatus, "draft"),
            nullptr
    };
    s_info = new CParentElementInfo(XmlElementGroupType_Sequence, XmlElementType_Element, "order", kNamespace,
                                    true, false, -1, ItemType_invalid, nullptr, false);
    s_hasTables.store(true, std::memory_order_release);
}

void COrder::CleanUp() {
    s_hasTables = false;
    CleanMetaData(s_info, s_elements, s_attributes);
}
CParentElementInfo* COrder::GetClassInfo() {
    return s_info;
}
CElementInfo** COrder::GetClassElementInfo() {
    return s_elements;
}
CAttributeInfo** COrder::GetClassAttributeInfo() {
    return s_attributes;
}
std::string COrder::GetNamespace() {
    return kNamespace;
}
std::string COrder::GetTargetNamespace() {
    return kNamespace;
}

void COrder::SetDate(CDateTime const& date) {
    if (date.GetType() != CDateTime::dt_date)
        throw CZvInvalidValueException("[" + date.ToString() + "] is not a date");
    m_date = date;
}

void COrder::SetNote(std::string const& note) {
    m_note = note;
    m_hasNote = true;
}

void COrder::RemoveNote() {
    m_note.clear();
    m_hasNote = false;
}

void COrder::AccessProperty(int index, bool read, ZvVariant& value) {
    switch (index) {
    case Order_number:
        return read ? value.SetI4(m_number) : SetNumber(value.GetI4());
    case Order_date:
        if (!read)
            return SetDate(value.GetDate());
        return IsDateValid() ? value.SetDate(m_date) : value.SetInvalid();
    case Order_status:
        return read ? value.SetI4(m_status) : SetStatus(static_cast<Status>(value.GetI4()));
    case Order_customer:
        return read ? value.SetString(m_customer) : SetCustomer(value.TakeString());
    case Order_items:
        if (!read)
            throw CZvInvalidStateException("The collection of items is filled, not replaced");
        return value.SetXmlCollection(m_items);
    case Order_deliveries:
        if (!read)
            throw CZvInvalidStateException("The collection of deliveries is filled, not replaced");
        return value.SetXmlCollection(m_deliveries);
    case Order_note:
        if (!read)
            return SetNote(value.TakeString());
        return m_hasNote ? value.SetString(m_note) : value.SetInvalid();
    default:
        FailUnknownProperty(index);
    }
}

void COrder::Init() {
    m_number = 0;
    m_date = CDateTime();
    m_status = Status_draft;
    m_customer.clear();
    m_items->Clear();
    m_deliveries->Clear();
    RemoveNote();
}

} // namespace purchase_order
