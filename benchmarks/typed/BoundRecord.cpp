// The bound classes. Their tables live as long as the program.
#include "benchmarks/typed/Record.h"

#include <cstring>

using namespace ZvXmlLib16;
using namespace ZvXmlLib16Data;

namespace bench {

namespace {

enum Field {
    Field_id,
    Field_name,
    Field_city,
    Field_mail,
    Field_quantity,
    Field_stock,
    Field_price,
    Field_weight,
    Field_active,
    Field_rating,
    Field_category,
    Field_note
};

CPrimitiveRestrictions const kNoFacets;

CElementInfo* Prim(char const* name, Field field, ItemType type) {
    return new CElementInfoSeqPrimMnd(name, kRecordNamespace, field, false, type, nullptr,
                                      type == ItemType_string ? CWhitespaceUtils::WhitespaceRule_Preserve
                                                              : CWhitespaceUtils::WhitespaceRule_Collapse,
                                      kNoFacets, nullptr);
}

struct Tables {
    CParentElementInfo info;
    CElementInfo** elements;
    CAttributeInfo** attributes;
};

Tables& RecordTables() {
    static Tables tables{
        {XmlElementGroupType_Sequence, XmlElementType_Element, "record", kRecordNamespace, true, false, -1,
         ItemType_invalid, nullptr, false},
        new CElementInfo* [12] {
            Prim("name", Field_name, ItemType_string), Prim("city", Field_city, ItemType_string),
                Prim("mail", Field_mail, ItemType_string), Prim("quantity", Field_quantity, ItemType_i4),
                Prim("stock", Field_stock, ItemType_i8), Prim("price", Field_price, ItemType_r8),
                Prim("weight", Field_weight, ItemType_r8), Prim("active", Field_active, ItemType_boolean),
                Prim("rating", Field_rating, ItemType_ui1),
                new CElementInfoSeqEnumMnd("category", kRecordNamespace, Field_category, false,
                                           CategoryToText, TextToCategory, nullptr),
                Prim("note", Field_note, ItemType_string), nullptr
        },
        new CAttributeInfo* [2] {
            new CAttributeInfoPrimitive("id", "", Field_id, false, ItemType_i4, nullptr,
                                        CWhitespaceUtils::WhitespaceRule_Collapse, kNoFacets, nullptr),
                nullptr
        }};
    return tables;
}

Tables& RecordsTables() {
    static Tables tables{{XmlElementGroupType_Sequence, XmlElementType_Element, "records", kRecordNamespace,
                          true, false, -1, ItemType_invalid, nullptr, false},
                         new CElementInfo* [2] {
                             new CElementInfoSeqClsCol("record", kRecordNamespace, 0, XmlElementType_Element),
                                 nullptr
                         },
                         new CAttributeInfo* [1] { nullptr }};
    return tables;
}

} // namespace

CRecord::CRecord() {
    SetElementName("record");
}
CRecord::~CRecord() = default;
CParentElementInfo* CRecord::GetClassInfo() {
    return &RecordTables().info;
}
CElementInfo** CRecord::GetClassElementInfo() {
    return RecordTables().elements;
}
CAttributeInfo** CRecord::GetClassAttributeInfo() {
    return RecordTables().attributes;
}

void CRecord::AccessProperty(int index, bool read, ZvVariant& value) {
    Record& r = m_fields;
    switch (index) {
    case Field_id:
        return read ? value.SetI4(r.id) : void(r.id = value.GetI4());
    case Field_name:
        return read ? value.SetString(r.name) : void(r.name = value.TakeString());
    case Field_city:
        return read ? value.SetString(r.city) : void(r.city = value.TakeString());
    case Field_mail:
        return read ? value.SetString(r.mail) : void(r.mail = value.TakeString());
    case Field_quantity:
        return read ? value.SetI4(r.quantity) : void(r.quantity = value.GetI4());
    case Field_stock:
        return read ? value.SetI8(r.stock) : void(r.stock = value.GetI8());
    case Field_price:
        return read ? value.SetR8(r.price) : void(r.price = value.GetR8());
    case Field_weight:
        return read ? value.SetR8(r.weight) : void(r.weight = value.GetR8());
    case Field_active:
        return read ? value.SetBoolean(r.active) : void(r.active = value.GetBoolean());
    case Field_rating:
        return read ? value.SetUI1(r.rating) : void(r.rating = value.GetUI1());
    case Field_category:
        return read ? value.SetI4(r.category) : void(r.category = static_cast<Category>(value.GetI4()));
    case Field_note:
        return read ? value.SetString(r.note) : void(r.note = value.TakeString());
    default:
        throw CZvInvalidParamException("There is no such property");
    }
}

CRecordCol::~CRecordCol() {
    Clear();
}

void CRecordCol::ToXml_Int(CXmlWriter* writer, bool, char const* ns, CSerializationContext const& ctx,
                           bool) const {
    ValidateCount(ctx);
    for (CNode const* node = m_pHead; node != nullptr; node = node->m_pNext)
        CXmlObjectBase::ToXml_Int(node->m_item->GetBase(), writer, false, ns, ctx, false);
}

CXmlElement* CRecordCol::FromXml_Int(CXmlElement*, CXmlElement* current, CSerializationContext const& ctx,
                                     bool) {
    while (current != nullptr && DoesElementNameMatch(ctx, current, "record", kRecordNamespace)) {
        CSmartPtr<CRecord> const record(new CRecord);
        CXmlObjectBase::FromXml_Int(record->GetBase(), current, current->GetFirstElement(), ctx);
        AppendItem(record);
        current = current->GetNextSiblingElement();
    }
    return current;
}

CRecords::CRecords() : m_records(new CRecordCol) {
    SetElementName("records");
}
CRecords::~CRecords() = default;
CParentElementInfo* CRecords::GetClassInfo() {
    return &RecordsTables().info;
}
CElementInfo** CRecords::GetClassElementInfo() {
    return RecordsTables().elements;
}
CAttributeInfo** CRecords::GetClassAttributeInfo() {
    return RecordsTables().attributes;
}

void CRecords::AccessProperty(int, bool read, ZvVariant& value) {
    if (!read)
        throw CZvInvalidStateException("The collection is filled, not replaced");
    value.SetXmlCollection(m_records);
}

} // namespace bench
