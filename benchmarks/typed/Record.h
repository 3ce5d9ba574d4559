// Records of a dozen typed fields: as plain structs, filled by hand from the parser's events and written by
// hand, and as a bound class. Both hold the same values.
#pragma once

#include <zvxmllib/ZvXmlLib.h>

#include <cstdint>
#include <string>
#include <vector>

namespace bench {

enum Category : std::int32_t { Category_tool, Category_toy, Category_food };

struct Record {
    std::int32_t id = 0;
    std::string name;
    std::string city;
    std::string mail;
    std::int32_t quantity = 0;
    long long stock = 0;
    double price = 0;
    double weight = 0;
    bool active = false;
    unsigned char rating = 0;
    Category category = Category_tool;
    std::string note;
};

char const* CategoryToText(int category);
int TextToCategory(char const* text);

inline constexpr char kRecordNamespace[] = "urn:example:records";

// An indented document of at least `bytes` bytes.
std::string MakeRecords(std::size_t bytes);

// The yardstick: an expat program and a serialiser as one would write them for this vocabulary alone.
std::vector<Record> ReadByHand(std::string const& xml);
std::string WriteByHand(std::vector<Record> const& records);

// Whether the tables of CRecord name members, or numbers, which they do at first.
void BindMembers(bool areMembers);

class CRecord : public ZvXmlLib16::CXmlGeneratedClass {
public:
    CRecord();

    Record const& GetFields() const { return m_fields; }
    static Record CRecord::*PlaceOfFields() { return &CRecord::m_fields; }

    using CXmlObjectBase::GetBase;
    ZvXmlLib16::CXmlObjectBase* GetBase() override { return this; }
    std::string GetNamespace() override { return kRecordNamespace; }
    void AccessProperty(int index, bool read, ZvXmlLib16::ZvVariant& value) override;
    ZvXmlLib16Data::CParentElementInfo* GetClassInfo() override;
    ZvXmlLib16Data::CElementInfo** GetClassElementInfo() override;
    ZvXmlLib16Data::CAttributeInfo** GetClassAttributeInfo() override;
    void Init() override { m_fields = Record(); }

protected:
    ~CRecord() override;
    std::string GetTargetNamespace() override { return kRecordNamespace; }

private:
    Record m_fields;
};

class CRecordCol : public ZvXmlLib16::CXmlCollection {
public:
    CRecordCol() : CXmlCollection("record", kRecordNamespace, 0, -1) {}
    template <class Call>
    void ForEach(Call call) const {
        for (CNode const* node = m_pHead; node != nullptr; node = node->m_pNext)
            call(static_cast<CRecord const&>(*node->m_item));
    }
    using CXmlObjectBase::GetBase;
    ZvXmlLib16::CXmlObjectBase* GetBase() override { return this; }

protected:
    ~CRecordCol() override;
    void ToXml_Int(ZvXmlLib16::CXmlWriter* writer, bool isRoot, char const* ns,
                   ZvXmlLib16::CSerializationContext const& ctx, bool optionalChoice) const override;
    ZvXmlLib16::CXmlElement* FromXml_Int(ZvXmlLib16::CXmlElement* element, ZvXmlLib16::CXmlElement* current,
                                         ZvXmlLib16::CSerializationContext const& ctx,
                                         bool optionalChoice) override;
};

class CRecords : public ZvXmlLib16::CXmlGeneratedClass {
public:
    CRecords();

    CSmartPtr<CRecordCol> GetRecords() const { return m_records; }

    using CXmlObjectBase::GetBase;
    ZvXmlLib16::CXmlObjectBase* GetBase() override { return this; }
    std::string GetNamespace() override { return kRecordNamespace; }
    void AccessProperty(int index, bool read, ZvXmlLib16::ZvVariant& value) override;
    ZvXmlLib16Data::CParentElementInfo* GetClassInfo() override;
    ZvXmlLib16Data::CElementInfo** GetClassElementInfo() override;
    ZvXmlLib16Data::CAttributeInfo** GetClassAttributeInfo() override;
    void Init() override { m_records->Clear(); }

protected:
    ~CRecords() override;
    std::string GetTargetNamespace() override { return kRecordNamespace; }

private:
    CSmartPtr<CRecordCol> m_records;
};

} // namespace bench
