// The bound classes. Their tables live as long as the program.
#include "benchmarks/typed/Record.h"

#include <cstring>

using namespace ZvXmlLib16;
using namespace ZvXmlLib16Data;

namespace bench {

namespace {

bool s_areMembers = false;

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

// By the number, or as a member.
template <class Member>
CProperty Place(Field field, Member Record::*member) {
    return s_areMembers ? CProperty(CRecord::PlaceOfFields(), member) : CProperty(field);
}

CElementInfo* Prim(char const* name, CProperty const& property, ItemType type) {
    return new CElementInfoSeqPrimMnd(name, kRecordNamespace, property, false, type, nullptr,
                                      type == ItemType_string ? CWhitespaceUtils::WhitespaceRule_Preserve
                                                              : CWhitespaceUtils::WhitespaceRule_Collapse,
                                      kNoFacets, nullptr);
}

struct Tables {
    CParentElementInfo info;
    CElementInfo** elements;
    CAttributeInfo** attributes;
};

Tables MakeRecordTables() {
    return {{XmlElementGroupType_Sequence, XmlElementType_Element, "record", kRecordNamespace, true, false,
             -1, ItemType_invalid, nullptr, false},
            new CElementInfo* [12] {
                Prim("name", Place(Field_name, &Record::name), ItemType_string),
                    Prim("city", Place(Field_city, &Record::city), ItemType_string),
                    Prim("mail", Place(Field_mail, &Record::mail), ItemType_string),
                    Prim("quantity", Place(Field_quantity, &Record::quantity), ItemType_i4),
                    Prim("stock", Place(Field_stock, &Record::stock), ItemType_i8),
                    Prim("price", Place(Field_price, &Record::price), ItemType_r8),
                    Prim("weight", Place(Field_weight, &Record::weight), ItemType_r8),
                    Prim("active", Place(Field_active, &Record::active), ItemType_boolean),
                    Prim("rating", Place(Field_rating, &Record::rating), ItemType_ui1),
                    new CElementInfoSeqEnumMnd("category", kRecordNamespace,
                                               Place(Field_category, &Record::category), false,
                                               CategoryToText, TextToCategory, nullptr),
                    Prim("note", Place(Field_note, &Record::note), ItemType_string), nullptr
            },
            new CAttributeInfo* [2] {
                new CAttributeInfoPrimitive("id", "", Place(Field_id, &Record::id), false, ItemType_i4,
                                            nullptr, CWhitespaceUtils::WhitespaceRule_Collapse, kNoFacets,
                                            nullptr),
                    nullptr
            }};
}

Tables& RecordTables() {
    if (s_areMembers) {
        static Tables ofMembers = MakeRecordTables();
        return ofMembers;
    }
    static Tables ofNumbers = MakeRecordTables();
    return ofNumbers;
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

void BindMembers(bool areMembers) {
    s_areMembers = areMembers;
}

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
