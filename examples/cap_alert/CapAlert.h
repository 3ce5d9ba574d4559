// A binding of the Common Alerting Protocol 1.2 (OASIS), written by hand.
#pragma once

#include <zvxmllib/ZvXmlLib.h>

#include <string>
#include <vector>

namespace cap {

inline constexpr char kNamespace[] = "urn:oasis:names:tc:emergency:cap:1.2";

enum class Category { Geo, Met, Safety, Security, Rescue, Fire, Health, Env, Transport, Infra, CBRNE, Other };
enum class ResponseType { Shelter, Evacuate, Prepare, Execute, Avoid, Monitor, Assess, AllClear, None };
enum class Status { Actual, Exercise, System, Test, Draft };
enum class MsgType { Alert, Update, Cancel, Ack, Error };
enum class Scope { Public, Restricted, Private };
enum class Urgency { Immediate, Expected, Future, Past, Unknown };
enum class Severity { Extreme, Severe, Moderate, Minor, Unknown };
enum class Certainty { Observed, Likely, Possible, Unlikely, Unknown };

// The static description of one type. Lives as long as the program.
struct Tables {
    ZvXmlLib16Data::CParentElementInfo* info;
    std::vector<ZvXmlLib16Data::CElementInfo*> elements; // closed by null
    ZvXmlLib16Data::CAttributeInfo* noAttributes = nullptr;

    Tables(char const* name, std::vector<ZvXmlLib16Data::CElementInfo*> entries);
    Tables(Tables const&) = delete;
    Tables& operator=(Tables const&) = delete;
    ~Tables();
};

// The base of the types of this vocabulary: their properties are variants, by index.
class CType : public ZvXmlLib16::CXmlGeneratedClass {
public:
    using CXmlObjectBase::GetBase;
    ZvXmlLib16::CXmlObjectBase* GetBase() override { return this; }
    std::string GetNamespace() override { return kNamespace; }
    void AccessProperty(int index, bool read, ZvXmlLib16::ZvVariant& value) override;
    ZvXmlLib16Data::CParentElementInfo* GetClassInfo() override { return m_tables.info; }
    ZvXmlLib16Data::CElementInfo** GetClassElementInfo() override { return m_tables.elements.data(); }
    ZvXmlLib16Data::CAttributeInfo** GetClassAttributeInfo() override { return &m_tables.noAttributes; }
    void Init() override;

protected:
    CType(Tables& tables, char const* elementName);
    ~CType() override;
    std::string GetTargetNamespace() override { return kNamespace; }
    // Makes the collections of a fresh object.
    virtual void MakeCollections() {}

    // Empty for a property that is not set.
    std::string const& Text(int index) const { return Value(index).GetText(); }
    // Null for a property that is not set.
    ZvXmlLib16::CDateTime const* Time(int index) const { return Value(index).FindDateTime(); }
    ZvXmlLib16::CDecimal const* Decimal(int index) const { return Value(index).FindDecimal(); }
    ZvXmlLib16::CBigInteger const* Integer(int index) const { return Value(index).FindInteger(); }
    void SetText(int index, std::string const& text) {
        m_values[static_cast<std::size_t>(index)].SetString(text);
    }
    template <class Enumeration>
    Enumeration Enumerator(int index) const {
        return static_cast<Enumeration>(Value(index).GetI4());
    }
    template <class Enumeration>
    void SetEnumerator(int index, Enumeration value) {
        m_values[static_cast<std::size_t>(index)].SetI4(static_cast<std::int32_t>(value));
    }
    template <class Col>
    CSmartPtr<Col> Collection(int index) const {
        return static_cast<Col*>(Value(index).FindXmlCollection());
    }
    // Replaces a collection by a fresh one.
    void SetCollection(int index, ZvXmlLib16::CXmlCollectionBase* collection) {
        m_values[static_cast<std::size_t>(index)].SetXmlCollection(collection);
    }

private:
    ZvXmlLib16::ZvVariant const& Value(int index) const { return m_values[static_cast<std::size_t>(index)]; }

    Tables& m_tables;
    std::vector<ZvXmlLib16::ZvVariant> m_values;
};

// A repeating element of the type T.
template <class T>
class CTypeCol : public ZvXmlLib16::CXmlCollection {
public:
    explicit CTypeCol(char const* elementName) : CXmlCollection(elementName, kNamespace, 0, -1) {}

    CSmartPtr<T> Add() {
        CSmartPtr<T> item(new T(GetElementName().c_str()));
        AppendItem(item);
        return item;
    }
    CSmartPtr<T> Item(int index) const {
        return static_cast<T*>(static_cast<CXmlObjectBase*>(GetNodeAtIndex(index)->m_item));
    }

    using CXmlObjectBase::GetBase;
    CXmlObjectBase* GetBase() override { return this; }

protected:
    ~CTypeCol() override { Clear(); }
    void ToXml_Int(ZvXmlLib16::CXmlWriter* writer, bool, char const* ns,
                   ZvXmlLib16::CSerializationContext const& ctx, bool) const override {
        ValidateCount(ctx);
        for (CNode const* node = m_pHead; node != nullptr; node = node->m_pNext)
            CXmlObjectBase::ToXml_Int(node->m_item->GetBase(), writer, false, ns, ctx, false);
    }
    ZvXmlLib16::CXmlElement* FromXml_Int(ZvXmlLib16::CXmlElement*, ZvXmlLib16::CXmlElement* current,
                                         ZvXmlLib16::CSerializationContext const& ctx, bool) override {
        while (current != nullptr &&
               DoesElementNameMatch(ctx, current, GetElementName().c_str(), kNamespace)) {
            CXmlObjectBase::FromXml_Int(Add()->GetBase(), current, current->GetFirstElement(), ctx);
            current = current->GetNextSiblingElement();
        }
        return current;
    }
};

// A repeating element of an enumeration. Its values are the enumerators.
class CEnumCol : public ZvXmlLib16::Ci4Col {
public:
    CEnumCol(char const* elementName, int minOccurs, char const* (*toText)(int),
             int (*fromText)(char const*));

protected:
    ~CEnumCol() override = default;
    void ToXml_Int(ZvXmlLib16::CXmlWriter* writer, bool isRoot, char const* ns,
                   ZvXmlLib16::CSerializationContext const& ctx, bool optionalChoice) const override;
    void AddFromString(std::string value) override { Add(m_fromText(value.c_str())); }

private:
    char const* (*m_toText)(int);
    int (*m_fromText)(char const*);
};

// eventCode, parameter, geocode
class CNameValue : public CType {
public:
    explicit CNameValue(char const* elementName);
    std::string const& GetValueName() const { return Text(0); }
    void SetValueName(std::string const& name) { SetText(0, name); }
    std::string const& GetValue() const { return Text(1); }
    void SetValue(std::string const& value) { SetText(1, value); }
};

class CResource : public CType {
public:
    explicit CResource(char const* elementName = "resource");
    std::string const& GetResourceDesc() const { return Text(0); }
    std::string const& GetMimeType() const { return Text(1); }
    ZvXmlLib16::CBigInteger const* GetSize() const { return Integer(2); }
    std::string const& GetUri() const { return Text(3); }
};

class CArea : public CType {
public:
    explicit CArea(char const* elementName = "area");
    std::string const& GetAreaDesc() const { return Text(0); }
    void SetAreaDesc(std::string const& text) { SetText(0, text); }
    CSmartPtr<ZvXmlLib16::CstringCol> GetPolygons() const { return Collection<ZvXmlLib16::CstringCol>(1); }
    CSmartPtr<ZvXmlLib16::CstringCol> GetCircles() const { return Collection<ZvXmlLib16::CstringCol>(2); }
    CSmartPtr<CTypeCol<CNameValue>> GetGeocodes() const { return Collection<CTypeCol<CNameValue>>(3); }
    ZvXmlLib16::CDecimal const* GetAltitude() const { return Decimal(4); }
    ZvXmlLib16::CDecimal const* GetCeiling() const { return Decimal(5); }

protected:
    void MakeCollections() override;
};

class CInfo : public CType {
public:
    explicit CInfo(char const* elementName = "info");
    // "en-US" by default.
    std::string const& GetLanguage() const { return Text(0); }
    CSmartPtr<CEnumCol> GetCategories() const { return Collection<CEnumCol>(1); }
    std::string const& GetEvent() const { return Text(2); }
    Urgency GetUrgency() const { return Enumerator<Urgency>(4); }
    Severity GetSeverity() const { return Enumerator<Severity>(5); }
    void SetSeverity(Severity severity) { SetEnumerator(5, severity); }
    Certainty GetCertainty() const { return Enumerator<Certainty>(6); }
    CSmartPtr<CEnumCol> GetResponseTypes() const { return Collection<CEnumCol>(3); }
    ZvXmlLib16::CDateTime const* GetEffective() const { return Time(9); }
    ZvXmlLib16::CDateTime const* GetOnset() const { return Time(10); }
    ZvXmlLib16::CDateTime const* GetExpires() const { return Time(11); }
    std::string const& GetHeadline() const { return Text(13); }
    void SetHeadline(std::string const& text) { SetText(13, text); }
    CSmartPtr<CTypeCol<CNameValue>> GetParameters() const { return Collection<CTypeCol<CNameValue>>(18); }
    CSmartPtr<CTypeCol<CArea>> GetAreas() const { return Collection<CTypeCol<CArea>>(20); }

protected:
    void MakeCollections() override;
};

class CAlert : public CType {
public:
    CAlert();
    std::string const& GetIdentifier() const { return Text(0); }
    std::string const& GetSender() const { return Text(1); }
    ZvXmlLib16::CDateTime const* GetSent() const { return Time(2); }
    Status GetStatus() const { return Enumerator<Status>(3); }
    void SetStatus(Status status) { SetEnumerator(3, status); }
    MsgType GetMsgType() const { return Enumerator<MsgType>(4); }
    CSmartPtr<ZvXmlLib16::CstringCol> GetCodes() const { return Collection<ZvXmlLib16::CstringCol>(9); }
    CSmartPtr<CTypeCol<CInfo>> GetInfos() const { return Collection<CTypeCol<CInfo>>(13); }

protected:
    void MakeCollections() override;
};

char const* ToText(Category category);
char const* ToText(Severity severity);

} // namespace cap
