// ZvVariant, the value carrier between the properties of generated classes and the library.
#include "zvxmllib/values/variant/ZvVariant.h"

#include "zvxmllib/foundation/SimpleTypes.h"
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
    HeldObject const held(FindXmlObject()); // `other` may be part of what this one holds
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

// Releases what the slot holds and leaves it at 0; the caller sets the type.
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
#define ZV_COPY_SCALAR(slot) m_ui8 = other.m_ui8
#define ZV_COPY_OBJECT(slot) SetObject(other.m_type, m_p##slot, *other.m_p##slot)
#define ZV_COPY_DATE(slot) ZV_COPY_OBJECT(DateTime)
#define ZV_COPY_BINARY ZV_COPY_OBJECT
#define ZV_COPY_NUMBER ZV_COPY_OBJECT
#define ZV_COPY_TEXT(slot)                                                                                   \
    m_text = other.m_text;                                                                                   \
    m_pString = &m_text
#define ZV_CASE(name, Policy, Name, Value, KIND, slot)                                                       \
    case ItemType_##name:                                                                                    \
        ZV_COPY_##KIND(slot);                                                                                \
        break;
            ZV_SIMPLE_TYPES(ZV_CASE)
#undef ZV_CASE
#undef ZV_COPY_TEXT
#undef ZV_COPY_NUMBER
#undef ZV_COPY_BINARY
#undef ZV_COPY_DATE
#undef ZV_COPY_OBJECT
#undef ZV_COPY_SCALAR
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

// `value` may be part of what this variant holds, so the old value is dropped last.
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

// NOLINTBEGIN(modernize-use-nullptr): the assertions' texts
#define ZV_ACCESS_SCALAR(name, Name, Value, slot)                                                            \
    Value ZvVariant::Get##Name() const {                                                                     \
        ZV_ASSERT(m_type == ItemType_##name);                                                                \
        return m_##slot;                                                                                     \
    }                                                                                                        \
    void ZvVariant::Set##Name(Value value) {                                                                 \
        BeginValue(ItemType_##name);                                                                         \
        m_##slot = value;                                                                                    \
    }
#define ZV_ACCESS_FOUND(name, Name, Value, found, slot, assertion)                                           \
    Value ZvVariant::Get##Name() const {                                                                     \
        ZV_ASSERT(assertion);                                                                                \
        Value const* const value = found;                                                                    \
        return value != nullptr ? *value : Value();                                                          \
    }                                                                                                        \
    void ZvVariant::Set##Name(Value const& value) {                                                          \
        SetObject(ItemType_##name, slot, value);                                                             \
    }
#define ZV_ACCESS_DATE(name, Name, Value, slot)                                                              \
    ZV_ACCESS_FOUND(name, Name, Value, FindDateTime(), m_pDateTime, m_type == ItemType_##name)
#define ZV_ACCESS_OBJECT(name, Name, Value, slot)                                                            \
    ZV_ACCESS_FOUND(name, Name, Value, Find##Name(), m_p##slot, m_type == ItemType_##name)
#define ZV_ACCESS_NUMBER(name, Name, Value, slot)                                                            \
    ZV_ACCESS_FOUND(name, Name, Value, Find##Name(), m_p##slot, m_type == ItemType_##name && m_p##slot != 0)
#define ZV_ACCESS_BINARY(name, Name, Value, slot)                                                            \
    Value ZvVariant::Get##Name() const {                                                                     \
        ZV_ASSERT(m_type == ItemType_##name);                                                                \
        return GetBinary();                                                                                  \
    }                                                                                                        \
    void ZvVariant::Set##Name(Value const& value) {                                                          \
        SetObject(ItemType_##name, m_p##slot, value);                                                        \
    }
#define ZV_ACCESS_TEXT(name, Name, Value, slot) // below
#define ZV_ACCESS(name, Policy, Name, Value, KIND, slot) ZV_ACCESS_##KIND(name, Name, Value, slot)
ZV_SIMPLE_TYPES(ZV_ACCESS)
#undef ZV_ACCESS
#undef ZV_ACCESS_TEXT
#undef ZV_ACCESS_BINARY
#undef ZV_ACCESS_NUMBER
#undef ZV_ACCESS_OBJECT
#undef ZV_ACCESS_DATE
#undef ZV_ACCESS_FOUND
#undef ZV_ACCESS_SCALAR
// NOLINTEND(modernize-use-nullptr)

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

// The setters write the text before they drop the old value, which may contain `value`.
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
