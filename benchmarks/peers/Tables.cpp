// Classes written by hand, with tables that name their members.
#include "benchmarks/peers/Library.h"

using namespace ZvXmlLib16;
using namespace ZvXmlLib16Data;

namespace peers {

namespace {

constexpr auto kCollapse = CWhitespaceUtils::WhitespaceRule_Collapse;
constexpr auto kPreserve = CWhitespaceUtils::WhitespaceRule_Preserve;
CPrimitiveRestrictions const kNoFacets;

struct TypeTables {
    CParentElementInfo info;
    CElementInfo** elements;
    CAttributeInfo** attributes;
};

CParentElementInfo InfoOf(char const* name) {
    return {XmlElementGroupType_Sequence,
            XmlElementType_Element,
            name,
            kNamespace,
            true,
            false,
            -1,
            ItemType_invalid,
            nullptr,
            false};
}

template <class Entry>
CElementInfo* Value(char const* name, CProperty const& property, ItemType type) {
    return new Entry(name, kNamespace, property, false, type, nullptr,
                     type == ItemType_string ? kPreserve : kCollapse, kNoFacets, nullptr);
}

CAttributeInfo* Attribute(char const* name, CProperty const& property, ItemType type) {
    return new CAttributeInfoPrimitive(name, "", property, false, type, nullptr,
                                       type == ItemType_string ? kPreserve : kCollapse, kNoFacets, nullptr);
}

int CurrencyOf(char const* text) {
    return static_cast<int>(ToCurrency(text));
}
char const* TextOfCurrency(int currency) {
    return NameOf(static_cast<Currency>(currency));
}

// What all these classes have. Class gives its Tables.
template <class Class>
class Bound : public CXmlGeneratedClass {
public:
    using CXmlObjectBase::GetBase;
    CXmlObjectBase* GetBase() override { return this; }
    std::string GetNamespace() override { return kNamespace; }
    CParentElementInfo* GetClassInfo() override { return &Class::Tables().info; }
    CElementInfo** GetClassElementInfo() override { return Class::Tables().elements; }
    CAttributeInfo** GetClassAttributeInfo() override { return Class::Tables().attributes; }

protected:
    explicit Bound(char const* name) { SetElementName(name); }
    std::string GetTargetNamespace() override { return kNamespace; }
};

// A repeating element.
template <class Item_>
class ListOf : public CXmlCollection {
public:
    ListOf(char const* name, int minOccurs) : CXmlCollection(name, kNamespace, minOccurs, -1), m_name(name) {}
    using CXmlObjectBase::GetBase;
    CXmlObjectBase* GetBase() override { return this; }

protected:
    ~ListOf() override { Clear(); }
    void ToXml_Int(CXmlWriter* writer, bool, char const* ns, CSerializationContext const& ctx,
                   bool) const override {
        ValidateCount(ctx);
        for (CNode const* node = m_pHead; node != nullptr; node = node->m_pNext)
            CXmlObjectBase::ToXml_Int(node->m_item->GetBase(), writer, false, ns, ctx, false);
    }
    CXmlElement* FromXml_Int(CXmlElement*, CXmlElement* current, CSerializationContext const& ctx,
                             bool) override {
        while (current != nullptr && DoesElementNameMatch(ctx, current, m_name, kNamespace)) {
            CSmartPtr<Item_> const item(new Item_);
            CXmlObjectBase::FromXml_Int(item->GetBase(), current, current->GetFirstElement(), ctx);
            AppendItem(item);
            current = current->GetNextSiblingElement();
        }
        return current;
    }

private:
    char const* const m_name;
};

class CItem : public Bound<CItem> {
public:
    CItem()
        : Bound("item"), m_tags(new CstringCol("tag", kNamespace, 0, -1, nullptr, -1, -1, nullptr, nullptr,
                                               nullptr, nullptr, -1, -1, -1, kPreserve, nullptr)) {}
    static TypeTables& Tables() {
        static TypeTables tables{
            InfoOf("Item"),
            new CElementInfo* [5] {
                Value<CElementInfoSeqPrimMnd>("quantity", &CItem::m_quantity, ItemType_i4),
                    Value<CElementInfoSeqPrimMnd>("price", &CItem::m_price, ItemType_decimal),
                    Value<CElementInfoSeqPrimOpt>("note", &CItem::m_note, ItemType_string),
                    new CElementInfoSeqPrimCol("tag", kNamespace, &CItem::m_tags), nullptr
            },
            new CAttributeInfo* [2] { Attribute("sku", &CItem::m_sku, ItemType_string), nullptr }};
        return tables;
    }
    void Init() override {
        m_note.reset();
        m_tags->Clear();
    }

protected:
    ~CItem() override = default;

private:
    std::string m_sku;
    std::int32_t m_quantity = 0;
    CDecimal m_price;
    std::optional<std::string> m_note;
    CSmartPtr<CstringCol> m_tags;
};

class COrder : public Bound<COrder> {
public:
    COrder() : Bound("order"), m_items(new ListOf<CItem>("item", 1)) {}
    static TypeTables& Tables() {
        static TypeTables tables{
            InfoOf("Order"),
            new CElementInfo* [6] {
                Value<CElementInfoSeqPrimMnd>("customer", &COrder::m_customer, ItemType_string),
                    Value<CElementInfoSeqPrimMnd>("date", &COrder::m_date, ItemType_date),
                    Value<CElementInfoSeqPrimMnd>("express", &COrder::m_express, ItemType_boolean),
                    Value<CElementInfoSeqPrimMnd>("total", &COrder::m_total, ItemType_decimal),
                    new CElementInfoSeqClsCol("item", kNamespace, &COrder::m_items, XmlElementType_Element),
                    nullptr
            },
            new CAttributeInfo* [3] {
                Attribute("id", &COrder::m_id, ItemType_i8),
                    new CAttributeInfoEnum("currency", "", &COrder::m_currency, false, TextOfCurrency,
                                           CurrencyOf, nullptr),
                    nullptr
            }};
        return tables;
    }
    void Init() override { m_items->Clear(); }

protected:
    ~COrder() override = default;

private:
    long long m_id = 0;
    Currency m_currency = Currency::kEur;
    std::string m_customer;
    CDateTime m_date;
    bool m_express = false;
    CDecimal m_total;
    CSmartPtr<ListOf<CItem>> m_items;
};

class COrders : public Bound<COrders> {
public:
    COrders() : Bound("orders"), m_orders(new ListOf<COrder>("order", 0)) {}
    static TypeTables& Tables() {
        static TypeTables tables{InfoOf("orders"),
                                 new CElementInfo* [2] {
                                     new CElementInfoSeqClsCol("order", kNamespace, &COrders::m_orders,
                                                               XmlElementType_Element),
                                         nullptr
                                 },
                                 new CAttributeInfo* [1] { nullptr }};
        return tables;
    }
    void Init() override { m_orders->Clear(); }

protected:
    ~COrders() override = default;

private:
    CSmartPtr<ListOf<COrder>> m_orders;
};

class TablesProgram final : public Program {
public:
    explicit TablesProgram(Form form) : m_form(form) { m_ctx.SetDefaultNamespaceURI(kNamespace); }

    void Read(std::string const& document) override {
        m_orders = new COrders;
        if (m_form == Form::kXml)
            m_orders->FromXml(document.c_str(), m_ctx);
        else if (m_form == Form::kJson)
            m_orders->FromJson(document.c_str(), m_ctx);
        else
            m_orders->FromXmlStream(reinterpret_cast<unsigned char*>(const_cast<char*>(document.data())),
                                    static_cast<std::uint32_t>(document.size()), m_ctx);
    }
    std::string Write() override { return Written(*m_orders, m_form, m_ctx); }

private:
    Form const m_form;
    CSerializationContext m_ctx;
    CSmartPtr<COrders> m_orders;
};

} // namespace

std::unique_ptr<Program> Tables(Form form) {
    return std::make_unique<TablesProgram>(form);
}

} // namespace peers
