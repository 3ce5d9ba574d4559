// A binding of purchase orders, written by hand in the form that a code generator emits. The schema that it
// stands for:
//
//     <xs:element name="order"> sequence of
//         customer  xs:string                 mandatory
//         item      complex, see CItem        one or more
//         delivery  xs:date                   up to three days on which somebody is there
//         note      xs:string                 optional
//       attributes: number xs:int required; date xs:date; status "draft" or "sent", "draft" by default
//
// One class for each complex type, one collection class for each of them that repeats; the collections of
// simple types are the library's.
#pragma once

#include <zvxmllib/ZvXmlLib.h>

#include <atomic>
#include <string>

namespace purchase_order {

enum Status { Status_draft, Status_sent };

// <item sku="..."> with name xs:string, quantity xs:int from 1 to 1000, price xs:decimal with at most two
// fraction digits. A sku is letters, and perhaps a number behind a dash.
class CItem : public ZvXmlLib16::CXmlGeneratedClass {
public:
    CItem();

    std::string const& GetSku() const { return m_sku; }
    void SetSku(std::string const& sku) { m_sku = sku; }
    std::string const& GetName() const { return m_name; }
    void SetName(std::string const& name) { m_name = name; }
    std::int32_t GetQuantity() const { return m_quantity; }
    void SetQuantity(std::int32_t quantity) { m_quantity = quantity; }
    ZvXmlLib16::CDecimal const& GetPrice() const { return m_price; }
    void SetPrice(ZvXmlLib16::CDecimal const& price) { m_price = price; }

    using CXmlObjectBase::GetBase;
    ZvXmlLib16::CXmlObjectBase* GetBase() override { return this; }
    std::string GetNamespace() override;
    void AccessProperty(int index, bool read, ZvXmlLib16::ZvVariant& value) override;
    ZvXmlLib16Data::CParentElementInfo* GetClassInfo() override;
    ZvXmlLib16Data::CElementInfo** GetClassElementInfo() override;
    ZvXmlLib16Data::CAttributeInfo** GetClassAttributeInfo() override;
    void Init() override;

    // Ends the static tables; called once, when no object is in use any more.
    static void CleanUp();

protected:
    ~CItem() override;
    std::string GetTargetNamespace() override;

private:
    static void BuildTables();

    std::string m_sku;
    std::string m_name;
    std::int32_t m_quantity = 0;
    ZvXmlLib16::CDecimal m_price;

    static ZvXmlLib16Data::CParentElementInfo* s_info;
    static ZvXmlLib16Data::CElementInfo** s_elements;
    static ZvXmlLib16Data::CAttributeInfo** s_attributes;
    static std::atomic<bool> s_hasTables; // the three above are built
};

class CItemCol : public ZvXmlLib16::CXmlCollection {
public:
    CItemCol();

    CSmartPtr<CItem> Add();
    CSmartPtr<CItem> Item(int index) const;

    using CXmlObjectBase::GetBase;
    ZvXmlLib16::CXmlObjectBase* GetBase() override { return this; }

protected:
    ~CItemCol() override;
    void ToXml_Int(ZvXmlLib16::CXmlWriter* writer, bool isRoot, char const* ns,
                   ZvXmlLib16::CSerializationContext const& ctx, bool optionalChoice) const override;
    ZvXmlLib16::CXmlElement* FromXml_Int(ZvXmlLib16::CXmlElement* element, ZvXmlLib16::CXmlElement* current,
                                         ZvXmlLib16::CSerializationContext const& ctx,
                                         bool optionalChoice) override;
};

class COrder : public ZvXmlLib16::CXmlGeneratedClass {
public:
    COrder();

    std::int32_t GetNumber() const { return m_number; }
    void SetNumber(std::int32_t number) { m_number = number; }
    bool IsDateValid() const { return m_date.GetType() != ZvXmlLib16::CDateTime::dt_yearZero; }
    ZvXmlLib16::CDateTime const& GetDate() const { return m_date; }
    // Throws CZvInvalidValueException for other kinds than a date, such as a year.
    void SetDate(ZvXmlLib16::CDateTime const& date);
    Status GetStatus() const { return m_status; }
    void SetStatus(Status status) { m_status = status; }
    std::string const& GetCustomer() const { return m_customer; }
    void SetCustomer(std::string const& customer) { m_customer = customer; }
    // Never null.
    CSmartPtr<CItemCol> GetItems() const { return m_items; }
    CSmartPtr<ZvXmlLib16::CdateCol> GetDeliveries() const { return m_deliveries; }
    bool IsNoteValid() const { return m_hasNote; }
    std::string const& GetNote() const { return m_note; }
    void SetNote(std::string const& note);
    void RemoveNote();

    using CXmlObjectBase::GetBase;
    ZvXmlLib16::CXmlObjectBase* GetBase() override { return this; }
    std::string GetNamespace() override;
    void AccessProperty(int index, bool read, ZvXmlLib16::ZvVariant& value) override;
    ZvXmlLib16Data::CParentElementInfo* GetClassInfo() override;
    ZvXmlLib16Data::CElementInfo** GetClassElementInfo() override;
    ZvXmlLib16Data::CAttributeInfo** GetClassAttributeInfo() override;
    void Init() override;

    static void CleanUp();

protected:
    ~COrder() override;
    std::string GetTargetNamespace() override;

private:
    static void BuildTables();

    std::int32_t m_number = 0;
    ZvXmlLib16::CDateTime m_date; // of type dt_yearZero for none
    Status m_status = Status_draft;
    std::string m_customer;
    CSmartPtr<CItemCol> m_items;
    CSmartPtr<ZvXmlLib16::CdateCol> m_deliveries;
    bool m_hasNote = false;
    std::string m_note;

    static ZvXmlLib16Data::CParentElementInfo* s_info;
    static ZvXmlLib16Data::CElementInfo** s_elements;
    static ZvXmlLib16Data::CAttributeInfo** s_attributes;
    static std::atomic<bool> s_hasTables; // the three above are built
};

} // namespace purchase_order
