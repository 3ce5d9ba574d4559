// ZvVariant, the value carrier between the properties of generated classes and the library.
#pragma once

#include "zvxmllib/foundation/Enumerations.h"
#include "zvxmllib/foundation/Forward.h"
#include "zvxmllib/foundation/SmartPtr.h"
#include "zvxmllib/platform/Api.h"
#include "zvxmllib/values/binary/BinaryData.h"
#include "zvxmllib/values/text/Whitespace.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace ZvXmlLib16 {

// One value of any ItemType, in one of three states: invalid (no type), nil (a type without a value, as by
// xsi:nil), holding. Values are copies; an object or a collection is shared by its count. A variant used for
// many values keeps the memory of its string, and of a date, duration or number. Belongs to one thread at a
// time.
class ZV_API ZvVariant {
public:
    ZvVariant() noexcept;
    ZvVariant(ZvVariant const& other);
    ZvVariant(ZvVariant&& other) noexcept; // leaves the other one invalid
    virtual ~ZvVariant();

    // Throws CZvException for a type out of range.
    ZvVariant& operator=(ZvVariant const& other);
    ZvVariant& operator=(ZvVariant&& other) noexcept;

    // Does not change a variant without a type, or its nil flag. SetInvalid also resets the flag.
    void Clear();
    void SetInvalid();
    // True for a type or a nil flag.
    bool IsValid() const noexcept { return m_type != ItemType_invalid || m_isNil; }

    // Whether it is nil.
    bool IsNil() const noexcept { return m_isNil; }
    // Keeps the type, drops the value.
    void SetNil();
    // A nil value of this type.
    void SetNil(ItemType type);

    // The name of the type. Throws CZvException without a type, and for objects and collections.
    std::string GetType() const;
    ItemType GetTypeAsEnum() const noexcept { return m_type; }

    // The text of the value. `format` is a printf format for one double for r4 and r8, the number of fraction
    // digits for decimal; null for none. A nil value gives the text of the empty one, so ask IsNil first.
    // Throws CZvException without a type, and for objects and collections.
    std::string ToString(char const* format) const;
    // The same without a copy: the held string itself, or `buffer` with its content replaced. Valid until
    // either changes.
    std::string const& ToText(char const* format, std::string& buffer) const;
    // Parses a value of the type, after the whitespace rule. Throws what the conversion of the type throws,
    // and CZvException for the types that ToString refuses; the variant is then unchanged.
    void FromString(std::string const& text, ItemType type, CWhitespaceUtils::WhitespaceRule rule);

    // The same for text that is not a std::string; a string value is copied once, into the memory the variant
    // has.
    void FromText(std::string_view text, ItemType type, CWhitespaceUtils::WhitespaceRule rule);

    // Getters assert that the variant has their type. A nil variant gives the empty value.
    CBinaryData GetHexBinary() const;
    void SetHexBinary(CBinaryData const& value);
    CBinaryData GetBase64Binary() const;
    void SetBase64Binary(CBinaryData const& value);
    char GetI1() const; // a signed number
    void SetI1(char value);
    short GetI2() const;
    void SetI2(short value);
    std::int32_t GetI4() const;
    void SetI4(std::int32_t value);
    long long GetI8() const;
    void SetI8(long long value);
    unsigned char GetUI1() const;
    void SetUI1(unsigned char value);
    unsigned short GetUI2() const;
    void SetUI2(unsigned short value);
    std::uint32_t GetUI4() const;
    void SetUI4(std::uint32_t value);
    unsigned long long GetUI8() const;
    void SetUI8(unsigned long long value);
    float GetR4() const;
    void SetR4(float value);
    double GetR8() const;
    void SetR8(double value);
    char GetChar() const;
    void SetChar(char value);
    bool GetBoolean() const;
    void SetBoolean(bool value);
    // The numbers of a gYear, gMonth and gDay, without a zone.
    unsigned short GetYear() const;
    void SetYear(unsigned short value);
    unsigned char GetMonth() const;
    void SetMonth(unsigned char value);
    unsigned char GetDay() const;
    void SetDay(unsigned char value);

    // The value keeps its kind of date, whichever setter stores it.
    CDateTimeSpan GetDuration() const;
    void SetDuration(CDateTimeSpan const& value);
    CDateTime GetYearMonth() const;
    void SetYearMonth(CDateTime const& value);
    CDateTime GetMonthDay() const;
    void SetMonthDay(CDateTime const& value);
    CDateTime GetDate() const;
    void SetDate(CDateTime const& value);
    CDateTime GetDateTime() const;
    void SetDateTime(CDateTime const& value);
    CDateTime GetTime() const;
    void SetTime(CDateTime const& value);
    // These getters assert that the number is not nil.
    CDecimal GetDecimal() const;
    void SetDecimal(CDecimal const& value);
    CBigInteger GetInteger() const;
    void SetInteger(CBigInteger const& value);
    // The held value itself, null for any other state and type. Valid until the variant changes.
    CDateTime const* FindDateTime() const noexcept; // of any of the five types
    CDateTimeSpan const* FindDuration() const noexcept;
    CDecimal const* FindDecimal() const noexcept;
    CBigInteger const* FindInteger() const noexcept;

    // GetString and TakeString assert that the string is not nil.
    std::string GetString() const;
    // Moves the string out. The variant holds the empty string afterwards.
    std::string TakeString();
    // The held string itself, empty for any other state. Valid until the variant changes.
    std::string const& GetText() const noexcept { return m_text; }
    void SetString(std::string const& value);
    void SetString(std::string&& value);
    void SetString(char const* value); // null counts as empty

    // A null pointer is a value too: "no object". GetXmlObject takes a collection as well.
    CSmartPtr<CXmlObjectBase> GetXmlObject() const;
    void SetXmlObject(CXmlObjectBase* value);
    CSmartPtr<CXmlCollectionBase> GetXmlCollection() const;
    void SetXmlCollection(CXmlCollectionBase* value);
    // The held object, not counted; null for any other state and type. Valid until the variant changes.
    CXmlObjectBase* FindXmlObject() const noexcept;
    CXmlCollectionBase* FindXmlCollection() const noexcept;

private:
    void DropValue() noexcept;
    void BeginValue(ItemType type) noexcept;
    void SetRuledString(std::string_view text, CWhitespaceUtils::WhitespaceRule rule);
    void TextBecomesValue() noexcept;
    // The number of a value class, for what m_object points to.
    static constexpr std::uint8_t NumberOf(CBinaryData const*) noexcept { return 1; }
    static constexpr std::uint8_t NumberOf(CDateTime const*) noexcept { return 2; }
    static constexpr std::uint8_t NumberOf(CDateTimeSpan const*) noexcept { return 3; }
    static constexpr std::uint8_t NumberOf(CDecimal const*) noexcept { return 4; }
    static constexpr std::uint8_t NumberOf(CBigInteger const*) noexcept { return 5; }
    template <class Value>
    void SetObject(ItemType type, Value*& slot, Value const& value);
    void DeleteObject() noexcept;
    CBinaryData GetBinary() const noexcept;
    void CopyValue(ZvVariant const& other);
    void TakeValue(ZvVariant& other) noexcept;

    bool m_isNil = false;
    std::uint8_t m_objectClass = 0; // of m_object, by NumberOf
    ItemType m_type = ItemType_invalid;
    // The slot. m_type says which member is alive; without a value it is m_ui8, at 0. Scalars are written
    // over a slot of 0, so that all of its 64 bits can be copied.
    union {
        char m_i1;
        short m_i2;
        std::int32_t m_i4;
        long long m_i8;
        unsigned char m_ui1;
        unsigned short m_ui2;
        std::uint32_t m_ui4;
        unsigned long long m_ui8;
        float m_r4;
        double m_r8;
        char m_char;
        bool m_boolean;
        std::string* m_pString; // m_text, while that is the value
        CBinaryData* m_pBinary; // m_object, as the next four, while that is the value
        CDateTime* m_pDateTime;
        CDateTimeSpan* m_pDuration;
        CDecimal* m_pDecimal;
        CBigInteger* m_pBigInteger;
        CXmlObjectBase* m_pXmlObj; // counted; a collection too
    };
    std::string m_text;       // beside the slot, so that its memory is kept; empty unless it is the value
    void* m_object = nullptr; // owned; kept for the next value of its class
};

} // namespace ZvXmlLib16
