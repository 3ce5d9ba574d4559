// ZvVariant, the value carrier between the properties of generated classes and the library.
#include "zvxmllib/values/variant/ZvVariant.h"

#include "zvxmllib/values/Failures.h"
#include "zvxmllib/values/dates/DateTime.h"
#include "zvxmllib/values/dates/DateTimeSpan.h"
#include "zvxmllib/values/numbers/Decimal.h"
#include "zvxmllib/values/variant/ObjectCount.h"

#include <utility>

namespace ZvXmlLib16 {

static_assert(sizeof(ZvVariant) <= 64, "a variant fills no more than a cache line");

namespace {

// Keeps an object, which may be null, for the length of a block.
class HeldObject {
public:
    explicit HeldObject(CXmlObjectBase* object) noexcept : m_object(object) {
        if (m_object != nullptr)
            detail::AddRefObject(m_object);
    }
    HeldObject(HeldObject const&) = delete;
    HeldObject& operator=(HeldObject const&) = delete;
    ~HeldObject() {
        if (m_object != nullptr)
            detail::ReleaseObject(m_object);
    }

private:
    CXmlObjectBase* m_object;
};

} // namespace

ZvVariant::ZvVariant() noexcept : m_ui8(0) {}

ZvVariant::ZvVariant(ZvVariant const& other) : m_ui8(0) {
    CopyValue(other);
}

ZvVariant::ZvVariant(ZvVariant&& other) noexcept : m_ui8(0) {
    TakeValue(other);
}

ZvVariant::~ZvVariant() {
    DropValue();
    DeleteObject();
}

ZvVariant& ZvVariant::operator=(ZvVariant const& other) {
    if (this == &other)
        return *this;
    HeldObject const held(FindXmlObject()); // `other` may live in what this one holds
    Clear();
    CopyValue(other);
    return *this;
}

ZvVariant& ZvVariant::operator=(ZvVariant&& other) noexcept {
    if (this == &other)
        return *this;
    HeldObject const held(FindXmlObject());
    Clear();
    TakeValue(other);
    return *this;
}

void ZvVariant::Clear() {
    if (m_type == ItemType_invalid)
        return;
    DropValue();
    m_isNil = false;
    m_type = ItemType_invalid;
}

void ZvVariant::SetInvalid() {
    Clear();
    m_isNil = false;
}

void ZvVariant::SetNil() {
    SetNil(m_type);
}

void ZvVariant::SetNil(ItemType type) {
    BeginValue(type);
    m_isNil = true;
}

// Gives back what the slot holds and leaves it at 0; the type is the caller's to set.
void ZvVariant::DropValue() noexcept {
    if (!m_isNil) {
        switch (m_type) {
        case ItemType_hexBinary:
        case ItemType_base64Binary:
            m_pBinary->Clear(); // others may share the bytes
            break;
        case ItemType_string:
            m_text.clear();
            break;
        case ItemType_XmlObjectBase:
        case ItemType_XmlCollection:
            if (m_pXmlObj != nullptr)
                detail::ReleaseObject(m_pXmlObj);
            break;
        default: // in the slot itself, or in the object that stays
            break;
        }
    }
    m_ui8 = 0;
}

void ZvVariant::BeginValue(ItemType type) noexcept {
    DropValue();
    m_isNil = false;
    m_type = type;
}

// This variant is in its initial state, or was cleared.
void ZvVariant::CopyValue(ZvVariant const& other) {
    if (!other.m_isNil) {
        switch (other.m_type) {
        case ItemType_hexBinary:
        case ItemType_base64Binary:
            SetObject(other.m_type, m_pBinary, *other.m_pBinary);
            break;
        case ItemType_string:
            m_text = other.m_text;
            m_pString = &m_text;
            break;
        case ItemType_duration:
            SetObject(other.m_type, m_pDuration, *other.m_pDuration);
            break;
        case ItemType_yearMonth:
        case ItemType_monthDay:
        case ItemType_date:
        case ItemType_datetime:
        case ItemType_time:
            SetObject(other.m_type, m_pDateTime, *other.m_pDateTime);
            break;
        case ItemType_decimal:
            SetObject(other.m_type, m_pDecimal, *other.m_pDecimal);
            break;
        case ItemType_integer:
            SetObject(other.m_type, m_pBigInteger, *other.m_pBigInteger);
            break;
        case ItemType_XmlObjectBase:
        case ItemType_XmlCollection:
            m_pXmlObj = other.m_pXmlObj;
            if (m_pXmlObj != nullptr)
                detail::AddRefObject(m_pXmlObj);
            break;
        default:
            if (other.m_type > ItemType_XmlCollection)
                FailUnknownType();
            m_ui8 = other.m_ui8;
            break;
        }
    }
    m_type = other.m_type;
    m_isNil = other.m_isNil;
}

// As CopyValue; the other variant becomes invalid.
void ZvVariant::TakeValue(ZvVariant& other) noexcept {
    if (!other.m_isNil) {
        switch (other.m_type) {
        case ItemType_string:
            m_text.swap(other.m_text);
            m_pString = &m_text;
            break;
        default: // a counted pointer changes hands with its count
            m_ui8 = other.m_ui8;
            break;
        }
    }
    std::swap(m_object, other.m_object);
    std::swap(m_objectClass, other.m_objectClass);
    m_type = std::exchange(other.m_type, ItemType_invalid);
    m_isNil = std::exchange(other.m_isNil, false);
    other.m_ui8 = 0;
}

#define ZV_SCALAR(Name, type, Value, field)                                                                  \
    Value ZvVariant::Get##Name() const {                                                                     \
        ZV_ASSERT(m_type == ItemType_##type);                                                                \
        return field;                                                                                        \
    }                                                                                                        \
    void ZvVariant::Set##Name(Value value) {                                                                 \
        BeginValue(ItemType_##type);                                                                         \
        field = value;                                                                                       \
    }
ZV_SCALAR(I1, i1, char, m_i1)
ZV_SCALAR(I2, i2, short, m_i2)
ZV_SCALAR(I4, i4, std::int32_t, m_i4)
ZV_SCALAR(I8, i8, long long, m_i8)
ZV_SCALAR(UI1, ui1, unsigned char, m_ui1)
ZV_SCALAR(UI2, ui2, unsigned short, m_ui2)
ZV_SCALAR(UI4, ui4, std::uint32_t, m_ui4)
ZV_SCALAR(UI8, ui8, unsigned long long, m_ui8)
ZV_SCALAR(R4, r4, float, m_r4)
ZV_SCALAR(R8, r8, double, m_r8)
ZV_SCALAR(Char, char, char, m_char)
ZV_SCALAR(Boolean, boolean, bool, m_boolean)
ZV_SCALAR(Year, year, unsigned short, m_ui2)
ZV_SCALAR(Month, month, unsigned char, m_ui1)
ZV_SCALAR(Day, day, unsigned char, m_ui1)
#undef ZV_SCALAR

void ZvVariant::DeleteObject() noexcept {
    switch (m_objectClass) {
    case NumberOf(static_cast<CBinaryData*>(nullptr)):
        delete static_cast<CBinaryData*>(m_object);
        break;
    case NumberOf(static_cast<CDateTime*>(nullptr)):
        delete static_cast<CDateTime*>(m_object);
        break;
    case NumberOf(static_cast<CDateTimeSpan*>(nullptr)):
        delete static_cast<CDateTimeSpan*>(m_object);
        break;
    case NumberOf(static_cast<CDecimal*>(nullptr)):
        delete static_cast<CDecimal*>(m_object);
        break;
    case NumberOf(static_cast<CBigInteger*>(nullptr)):
        delete static_cast<CBigInteger*>(m_object);
        break;
    default: // none yet
        break;
    }
}

// `value` may live in what this variant holds, so the old value goes last.
template <class Value>
void ZvVariant::SetObject(ItemType type, Value*& slot, Value const& value) {
    constexpr std::uint8_t kClass = NumberOf(static_cast<Value*>(nullptr));
    if (m_objectClass == kClass) {
        Value fresh(value);
        BeginValue(type);
        *static_cast<Value*>(m_object) = std::move(fresh);
    } else {
        Value* const fresh = new Value(value);
        BeginValue(type);
        DeleteObject();
        m_object = fresh;
        m_objectClass = kClass;
    }
    slot = static_cast<Value*>(m_object);
}

#define ZV_OBJECT(Name, type, Value, field, assertion)                                                       \
    Value ZvVariant::Get##Name() const {                                                                     \
        ZV_ASSERT(assertion);                                                                                \
        Value const* const value = Find##field();                                                            \
        return value != nullptr ? *value : Value();                                                          \
    }                                                                                                        \
    void ZvVariant::Set##Name(Value const& value) {                                                          \
        SetObject(ItemType_##type, m_p##field, value);                                                       \
    }
ZV_OBJECT(Duration, duration, CDateTimeSpan, Duration, m_type == ItemType_duration)
ZV_OBJECT(YearMonth, yearMonth, CDateTime, DateTime, m_type == ItemType_yearMonth)
ZV_OBJECT(MonthDay, monthDay, CDateTime, DateTime, m_type == ItemType_monthDay)
ZV_OBJECT(Date, date, CDateTime, DateTime, m_type == ItemType_date)
ZV_OBJECT(DateTime, datetime, CDateTime, DateTime, m_type == ItemType_datetime)
ZV_OBJECT(Time, time, CDateTime, DateTime, m_type == ItemType_time)
#undef ZV_OBJECT

CDateTimeSpan const* ZvVariant::FindDuration() const noexcept {
    return m_type == ItemType_duration && !m_isNil ? m_pDuration : nullptr;
}

CDateTime const* ZvVariant::FindDateTime() const noexcept {
    bool const isDate = m_type == ItemType_yearMonth || m_type == ItemType_monthDay ||
                        m_type == ItemType_date || m_type == ItemType_datetime || m_type == ItemType_time;
    return isDate && !m_isNil ? m_pDateTime : nullptr;
}

CDecimal const* ZvVariant::FindDecimal() const noexcept {
    return m_type == ItemType_decimal && !m_isNil ? m_pDecimal : nullptr;
}

CBigInteger const* ZvVariant::FindInteger() const noexcept {
    return m_type == ItemType_integer && !m_isNil ? m_pBigInteger : nullptr;
}

CDecimal ZvVariant::GetDecimal() const {
    // NOLINTNEXTLINE(modernize-use-nullptr): the assertion's text
    ZV_ASSERT(m_type == ItemType_decimal && m_pDecimal != 0);
    CDecimal const* const value = FindDecimal();
    return value != nullptr ? *value : CDecimal();
}

void ZvVariant::SetDecimal(CDecimal const& value) {
    SetObject(ItemType_decimal, m_pDecimal, value);
}

CBigInteger ZvVariant::GetInteger() const {
    // NOLINTNEXTLINE(modernize-use-nullptr): the assertion's text
    ZV_ASSERT(m_type == ItemType_integer && m_pBigInteger != 0);
    CBigInteger const* const value = FindInteger();
    return value != nullptr ? *value : CBigInteger();
}

void ZvVariant::SetInteger(CBigInteger const& value) {
    SetObject(ItemType_integer, m_pBigInteger, value);
}

CBinaryData ZvVariant::GetHexBinary() const {
    ZV_ASSERT(m_type == ItemType_hexBinary);
    return GetBinary();
}

void ZvVariant::SetHexBinary(CBinaryData const& value) {
    SetObject(ItemType_hexBinary, m_pBinary, value);
}

CBinaryData ZvVariant::GetBase64Binary() const {
    ZV_ASSERT(m_type == ItemType_base64Binary);
    return GetBinary();
}

void ZvVariant::SetBase64Binary(CBinaryData const& value) {
    SetObject(ItemType_base64Binary, m_pBinary, value);
}

CBinaryData ZvVariant::GetBinary() const noexcept {
    bool const isBinary = m_type == ItemType_hexBinary || m_type == ItemType_base64Binary;
    return isBinary && !m_isNil ? *m_pBinary : CBinaryData();
}

std::string ZvVariant::GetString() const {
    // NOLINTNEXTLINE(modernize-use-nullptr): the assertion's text
    ZV_ASSERT(m_type == ItemType_string && m_pString != 0);
    return m_text;
}

std::string ZvVariant::TakeString() {
    // NOLINTNEXTLINE(modernize-use-nullptr): the assertion's text
    ZV_ASSERT(m_type == ItemType_string && m_pString != 0);
    std::string text = std::move(m_text);
    m_text.clear();
    return text;
}

// The setters write the text before they drop the old value, in which `value` may live.
void ZvVariant::SetString(std::string const& value) {
    m_text = value;
    TextBecomesValue();
}

void ZvVariant::SetString(std::string&& value) {
    if (&value != &m_text)
        m_text = std::move(value);
    TextBecomesValue();
}

void ZvVariant::SetString(char const* value) {
    m_text = value != nullptr ? value : "";
    TextBecomesValue();
}

void ZvVariant::TextBecomesValue() noexcept {
    if (m_type != ItemType_string)
        BeginValue(ItemType_string);
    m_isNil = false;
    m_pString = &m_text;
}

CXmlObjectBase* ZvVariant::FindXmlObject() const noexcept {
    bool const isObject = m_type == ItemType_XmlObjectBase || m_type == ItemType_XmlCollection;
    return isObject ? m_pXmlObj : nullptr; // a collection is an object too
}

} // namespace ZvXmlLib16
