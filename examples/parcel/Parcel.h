// A binding of parcels, written by hand in the form that a code generator emits. It shows what the purchase
// order next door does without. The schema that it stands for:
//
//     <xs:element name="parcel"> sequence of
//         weight    xs:decimal with an attribute unit, "kg" or "lb"
//         one of    address xs:string | locker (number xs:int) | phone xs:string, one or more
//         any number of pairs of from xs:string, to xs:string
//         content   abstract; a Book (title) or a Tea (title, grams xs:int)
//         fragile   empty, optional
//         insured   xs:decimal, optional, nillable: the value is not known
//         pieces    xs:int, optional, "1" by default
//         remark    mixed: text and b elements, optional
//         returned  nillable, on xs:date; optional
//         ##other   any number of elements of other namespaces
//       attributes: priority xs:int, "0" by default; version, fixed "1"; any of other namespaces
#pragma once

#include <zvxmllib/ZvXmlLib.h>

#include <atomic>
#include <string>

namespace parcel {

enum Unit { Unit_kg, Unit_lb };

// What all classes here share: the namespace, and the tables.
class CType : public ZvXmlLib16::CXmlGeneratedClass {
public:
    // The tables of one class, built when its first object is made.
    struct Tables {
        std::atomic<bool> areBuilt{false};
        ZvXmlLib16Data::CParentElementInfo* info = nullptr;
        ZvXmlLib16Data::CElementInfo** elements = nullptr;
        ZvXmlLib16Data::CAttributeInfo** attributes = nullptr;
    };

    using CXmlObjectBase::GetBase;
    ZvXmlLib16::CXmlObjectBase* GetBase() override { return this; }
    std::string GetNamespace() override;
    ZvXmlLib16Data::CParentElementInfo* GetClassInfo() override { return m_tables.info; }
    ZvXmlLib16Data::CElementInfo** GetClassElementInfo() override { return m_tables.elements; }
    ZvXmlLib16Data::CAttributeInfo** GetClassAttributeInfo() override { return m_tables.attributes; }

    // Ends the tables of all classes; no object may be in use.
    static void CleanUp();

protected:
    CType(Tables& tables, void (*build)(Tables&), char const* elementName);
    ~CType() override;
    std::string GetTargetNamespace() override;

private:
    Tables& m_tables;
};

// <weight unit="kg">2.5</weight>
class CWeight : public CType {
public:
    CWeight();
    ZvXmlLib16::CDecimal const& GetValue() const { return m_value; }
    void SetValue(ZvXmlLib16::CDecimal const& value);
    Unit GetUnit() const { return m_unit; }
    void SetUnit(Unit unit) { m_unit = unit; }

    void AccessProperty(int index, bool read, ZvXmlLib16::ZvVariant& value) override;
    void Init() override;

protected:
    ~CWeight() override;

private:
    ZvXmlLib16::CDecimal m_value;
    Unit m_unit = Unit_kg;
};

class CLocker : public CType {
public:
    explicit CLocker(char const* elementName = "locker");
    std::int32_t GetNumber() const { return m_number; }
    void SetNumber(std::int32_t number) { m_number = number; }

    void Init() override { m_number = 0; }

protected:
    ~CLocker() override;

private:
    static void Build(Tables& tables);

    std::int32_t m_number = 0;
};

// The choice of address, locker and phones: a group without a tag. A member is set when no other one is.
class CReceiver : public CType {
public:
    CReceiver();
    // The element name of the member that is set, empty for none.
    std::string const& GetSelected() const { return m_selected; }
    std::string const& GetAddress() const { return m_address; }
    void SetAddress(std::string const& address);
    void RemoveAddress();
    // Null for none.
    CSmartPtr<CLocker> GetLocker() const { return m_locker; }
    void SetLocker(CLocker* locker);
    // Never null.
    CSmartPtr<ZvXmlLib16::CstringCol> GetPhones() const { return m_phones; }

    void AccessProperty(int index, bool read, ZvXmlLib16::ZvVariant& value) override;
    void Init() override;

protected:
    ~CReceiver() override;
    void OnEvent(CXmlObjectBase* sender, MsgType type, void* data) override;

private:
    std::string m_selected;
    std::string m_address;
    CSmartPtr<CLocker> m_locker;
    CSmartPtr<ZvXmlLib16::CstringCol> m_phones;
};

// One pair of from and to: a group that repeats.
class CLeg : public CType {
public:
    CLeg();
    std::string const& GetFrom() const { return m_from; }
    void SetFrom(std::string const& from) { m_from = from; }
    std::string const& GetTo() const { return m_to; }
    void SetTo(std::string const& to) { m_to = to; }

    void Init() override;

protected:
    ~CLeg() override;

private:
    static void Build(Tables& tables);

    std::string m_from;
    std::string m_to;
};

class CLegCol : public ZvXmlLib16::CXmlCollection {
public:
    CLegCol();
    CSmartPtr<CLeg> Add();
    CSmartPtr<CLeg> Item(int index) const;

    using CXmlObjectBase::GetBase;
    ZvXmlLib16::CXmlObjectBase* GetBase() override { return this; }

protected:
    ~CLegCol() override;
    void ToXml_Int(ZvXmlLib16::CXmlWriter* writer, bool isRoot, char const* ns,
                   ZvXmlLib16::CSerializationContext const& ctx, bool optionalChoice) const override;
    ZvXmlLib16::CXmlElement* FromXml_Int(ZvXmlLib16::CXmlElement* element, ZvXmlLib16::CXmlElement* current,
                                         ZvXmlLib16::CSerializationContext const& ctx,
                                         bool optionalChoice) override;
};

// The abstract type of content.
class CContent : public CType {
public:
    std::string const& GetTitle() const { return m_title; }
    void SetTitle(std::string const& title) { m_title = title; }

    void AccessProperty(int index, bool read, ZvXmlLib16::ZvVariant& value) override;
    void Init() override { m_title.clear(); }

protected:
    using CType::CType;
    ~CContent() override;

private:
    std::string m_title;
};

class CBook : public CContent {
public:
    CBook();

protected:
    ~CBook() override;
};

class CTea : public CContent {
public:
    CTea();
    std::int32_t GetGrams() const { return m_grams; }
    void SetGrams(std::int32_t grams) { m_grams = grams; }

    void AccessProperty(int index, bool read, ZvXmlLib16::ZvVariant& value) override;
    void Init() override;

protected:
    ~CTea() override;

private:
    std::int32_t m_grams = 0;
};

// Mixed content. Where the text stood among the elements is lost.
class CRemark : public CType {
public:
    explicit CRemark(char const* elementName = "remark");
    std::string const& GetText() const { return m_text; }
    void SetText(std::string const& text) { m_text = text; }
    CSmartPtr<ZvXmlLib16::CstringCol> GetBold() const { return m_bold; }

    void AccessProperty(int index, bool read, ZvXmlLib16::ZvVariant& value) override;
    void Init() override;

protected:
    ~CRemark() override;

private:
    std::string m_text;
    CSmartPtr<ZvXmlLib16::CstringCol> m_bold;
};

// <returned on="2026-11-23"/>, or nil: it came back on a day that nobody knows.
class CReturned : public CType, public ZvXmlLib16::INillable {
public:
    explicit CReturned(char const* elementName = "returned");
    bool GetIsNil() override { return m_isNil; }
    void SetIsNil(bool isNil) override { m_isNil = isNil; }
    ZvXmlLib16::CDateTime const& GetOn() const { return m_on; }
    void SetOn(ZvXmlLib16::CDateTime const& on);

    void AccessProperty(int index, bool read, ZvXmlLib16::ZvVariant& value) override;
    void Init() override;

protected:
    ~CReturned() override;

private:
    bool m_isNil = false;
    ZvXmlLib16::CDateTime m_on; // of type dt_yearZero for none
};

class CParcel : public CType {
public:
    CParcel();
    // The two that are mandatory and made by Init.
    CSmartPtr<CWeight> GetWeight() const { return m_weight; }
    CSmartPtr<CReceiver> GetReceiver() const { return m_receiver; }
    CSmartPtr<CLegCol> GetLegs() const { return m_legs; }
    // Null until it is set.
    CSmartPtr<CContent> GetContent() const { return m_content; }
    void SetContent(CContent* content);
    bool IsFragile() const { return m_isFragile; }
    void SetFragile(bool isFragile) { m_isFragile = isFragile; }
    enum class Insurance { None, Unknown, Known };
    Insurance GetInsurance() const { return m_insurance; }
    ZvXmlLib16::CDecimal const& GetInsured() const { return m_insured; }
    void SetInsured(ZvXmlLib16::CDecimal const& insured);
    void SetInsuredNil();
    std::int32_t GetPieces() const { return m_pieces; }
    void SetPieces(std::int32_t pieces);
    CSmartPtr<CRemark> GetRemark() const { return m_remark; }
    void SetRemark(CRemark* remark) { m_remark = remark; }
    CSmartPtr<CReturned> GetReturned() const { return m_returned; }
    void SetReturned(CReturned* returned) { m_returned = returned; }
    CSmartPtr<ZvXmlLib16::CElementCol> GetAny() const { return m_any; }
    std::int32_t GetPriority() const { return m_priority; }
    void SetPriority(std::int32_t priority) { m_priority = priority; }
    // Throws CZvInvalidValueException unless it is "1".
    void SetVersion(std::string const& version);
    CSmartPtr<ZvXmlLib16::CAttributeCol> GetAnyAttributes() const { return m_anyAttributes; }

    void AccessProperty(int index, bool read, ZvXmlLib16::ZvVariant& value) override;
    void Init() override;

protected:
    ~CParcel() override;

private:
    CSmartPtr<CWeight> m_weight;
    CSmartPtr<CReceiver> m_receiver;
    CSmartPtr<CLegCol> m_legs;
    CSmartPtr<CContent> m_content;
    bool m_isFragile = false;
    Insurance m_insurance = Insurance::None;
    ZvXmlLib16::CDecimal m_insured;
    bool m_hasPieces = false;
    std::int32_t m_pieces = 1;
    CSmartPtr<CRemark> m_remark;
    CSmartPtr<CReturned> m_returned;
    CSmartPtr<ZvXmlLib16::CElementCol> m_any;
    std::int32_t m_priority = 0;
    CSmartPtr<ZvXmlLib16::CAttributeCol> m_anyAttributes;
};

// Reads a document whose root is a parcel. Throws CZvValidationException for another root.
CSmartPtr<CParcel> ReadParcel(char const* xml, ZvXmlLib16::CSerializationContext const& ctx);

} // namespace parcel
