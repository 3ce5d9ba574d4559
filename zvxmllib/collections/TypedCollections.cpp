// The bodies of the collections of values, and the 25 members of the family.
#include "zvxmllib/collections/TypedCollections.h"

#include "zvxmllib/collections/Failures.h"
#include "zvxmllib/context/SerializationContext.h"
#include "zvxmllib/values/facets/CheckPrimitive.h"
#include "zvxmllib/values/text/TextValues.h"
#include "zvxmllib/values/variant/StrictText.h"
#include "zvxmllib/writers/XmlWriter.h"

#include <type_traits>
#include <utility>

namespace ZvXmlLib16 {

namespace detail {

namespace {

// The collection of each type, and the texts of its values.
template <ItemType type>
struct Conversion;

#define ZV_CONVERSION(name, Policy, Name, Value, KIND, slot)                                                 \
    template <>                                                                                              \
    struct Conversion<ItemType_##name> {                                                                     \
        static constexpr char const* kClassName = "C" #name "Col";                                           \
        static constexpr auto FromText = &name##FromText;                                                    \
        [[maybe_unused]] static constexpr auto ToText = &name##ToText; /* dates share one */                 \
        template <class Any>                                                                                 \
        static void Put(ZvVariant& variant, Any const& value) {                                              \
            variant.Set##Name(value);                                                                        \
        }                                                                                                    \
    };
ZV_COLLECTED_TYPES(ZV_CONVERSION)
#undef ZV_CONVERSION

// For all kinds of dates.
std::string const& DateText(CDateTime const& value, std::string& buffer) {
    return dateToText(value, nullptr, buffer);
}

// Instances are counted by the names of the collections.
template <ItemType type>
CInstanceMonitor::Registration registration(Conversion<type>::kClassName);

} // namespace

template <class Value>
ValueStore<Value>::~ValueStore() = default;

template <class Value>
int ValueStore<Value>::GetCount() const {
    return static_cast<int>(m_values.size());
}

template <class Value>
Value ValueStore<Value>::At(int index) const {
    if (index > GetCount() - 1 || index < 0)
        FailIndexOutOfRange(index, GetCount());
    return m_values[static_cast<std::size_t>(index)];
}

template <class Value>
void ValueStore<Value>::Remove(int index) {
    FireOnCollectionRemove(index);
    if (index > GetCount() - 1 || index < 0)
        FailIndexOutOfRange(index, GetCount());
    m_values.erase(m_values.begin() + index);
    FireOnCollectionRemoveComplete(index);
    FireOnCollectionChange();
}

// Listeners get the address of the value, and must not change it.
template <class Value>
void ValueStore<Value>::BeginAdd(int index, Value const& value) {
    FireOnCollectionAdd(const_cast<Value*>(&value));
    if (index < 0 || index > GetCount())
        FailIndexOutOfRange();
}

template <class Value>
void ValueStore<Value>::Insert(int index, Value value) {
    m_values.insert(m_values.begin() + index, std::move(value));
}

template <class Value>
void ValueStore<Value>::CompleteAdd(Value const& value) {
    FireOnCollectionAddComplete(const_cast<Value*>(&value));
    FireOnCollectionChange();
}

template <class Value>
void ValueStore<Value>::ClearAs(std::type_info const& collection) {
    if (!HasListeners() && typeid(*this) == collection)
        m_values.clear();
    while (GetCount() != 0)
        Remove(0);
}

template <class Value>
template <class ToText>
void ValueStore<Value>::WriteValues(CXmlWriter* writer, CSerializationContext const& ctx, ItemType type,
                                    ToText toText) const {
    ValidateCount(ctx);
    std::string& buffer = writer->GetValueRoom().text;
    for (Value const& value : m_values) {
        std::string const& text = toText(value, buffer);
        if (writer->TryWriteTextElement(GetElementName(), m_namespace, text, type))
            continue;
        writer->WriteElementStart(GetElementName(), m_namespace);
        writer->WriteElementValue(text, type, false);
        writer->WriteElementEnd();
    }
}

template <class Value>
template <class Put>
void ValueStore<Value>::WriteStrictly(CXmlWriter* writer, CSerializationContext const& ctx, ItemType type,
                                      Put put) const {
    ZvVariant& variant = writer->GetValueRoom().value;
    WriteValues(writer, ctx, type, [&](auto const& value, std::string& buffer) -> std::string const& {
        put(variant, value);
        return CheckWritten(variant, buffer);
    });
}

#define ZV_PARAMETERS                                                                                        \
    char const *elementName, char const *namespaceURI, int minOccurs, int maxOccurs, char const *pattern,    \
        std::int32_t minLength, std::int32_t maxLength, char const *minInclusive, char const *maxInclusive,  \
        char const *minExclusive, char const *maxExclusive, std::int32_t length, std::int32_t totalDigits,   \
        std::int32_t fractionDigits, CWhitespaceUtils::WhitespaceRule rule, char const *formatOverride
#define ZV_ARGUMENTS                                                                                         \
    elementName, namespaceURI, minOccurs, maxOccurs, pattern, minLength, maxLength, minInclusive,            \
        maxInclusive, minExclusive, maxExclusive, length, totalDigits, fractionDigits, rule, formatOverride

template <class Policy>
ValueCollection<Policy>::ValueCollection(ZV_PARAMETERS)
    : ValueStore<Value>(Policy::kType, ZV_ARGUMENTS), CInstanceMonitor(registration<Policy::kType>) {}

template <class Policy>
DateCollection<Policy>::DateCollection(ZV_PARAMETERS)
    : CdatetimeBaseCol(Policy::kType, ZV_ARGUMENTS), CInstanceMonitor(registration<Policy::kType>) {}

#undef ZV_PARAMETERS
#undef ZV_ARGUMENTS

template <class Policy>
ValueCollection<Policy>::~ValueCollection() = default;

template <class Policy>
void ValueCollection<Policy>::Add(Argument value) {
    AddAt(this->GetCount(), std::forward<Argument>(value));
}

template <class Policy>
void ValueCollection<Policy>::AddAt(int index, Argument value) {
    this->BeginAdd(index, value);
    Check(value);
    if (this->HasListeners()) // they also see the value after this one
        this->Insert(index, value);
    else
        this->Insert(index, std::forward<Argument>(value));
    this->CompleteAdd(value);
}

template <class Policy>
void ValueCollection<Policy>::Check(Value const& value) const {
    if (this->m_needsCheck)
        CheckPrimitive(this->GetElementName().c_str(), value, Policy::kType, this->m_restrictions);
}

template <class Policy>
typename Policy::Value ValueCollection<Policy>::Item(int index) const {
    return this->At(index);
}

template <class Policy>
void ValueCollection<Policy>::Clear() {
    this->ClearAs(typeid(typename Policy::Collection));
}

template <class Policy>
void ValueCollection<Policy>::ToXml_Int(CXmlWriter* writer, bool, char const*,
                                        CSerializationContext const& ctx, bool) const {
    if (ctx.GetStrict())
        return this->WriteStrictly(writer, ctx, Policy::kType,
                                   Conversion<Policy::kType>::template Put<Value>);
    this->WriteValues(
        writer, ctx, Policy::kType, [this](auto const& value, std::string& buffer) -> std::string const& {
            return Conversion<Policy::kType>::ToText(value, this->m_formatOverride.c_str(), buffer);
        });
}

template <class Policy>
CXmlElement* ValueCollection<Policy>::FromXml_Int(CXmlElement* element, CXmlElement* current,
                                                  CSerializationContext const& ctx, bool optionalChoice) {
    if (typeid(*this) != typeid(typename Policy::Collection))
        return CXmlTypeCollection::FromXml_Int(element, current, ctx, optionalChoice);
    if (ctx.GetStrict())
        return this->ReadStrictly(
            current, ctx,
            [](CXmlTypeCollection& collection, std::string_view text, CXmlElement const& itemElement) {
                static_cast<ValueCollection&>(collection).AddStrictly(text, itemElement);
            },
            optionalChoice);
    return this->ReadTexts(current, ctx, [](CXmlTypeCollection& collection, std::string_view text) {
        static_cast<ValueCollection&>(collection).AddText(text);
    });
}

template <class Policy>
void ValueCollection<Policy>::AddStrictly(std::string_view text, CXmlElement const& element) {
    RequireLexical(Policy::kType, text);
    Value value = Conversion<Policy::kType>::FromText(text, CWhitespaceUtils::WhitespaceRule_None);
    if (this->m_restrictions.HasFacets()) {
        ZvVariant variant;
        Conversion<Policy::kType>::Put(variant, value);
        this->CheckRead(variant, text, element);
    }
    int const index = this->GetCount();
    this->BeginAdd(index, value);
    this->Insert(index, value);
    this->CompleteAdd(value);
}

template <class Policy>
void ValueCollection<Policy>::AddFromString(std::string value) {
    AddText(value);
}

template <class Policy>
void ValueCollection<Policy>::AddText(std::string_view text) {
    Value value = Conversion<Policy::kType>::FromText(text, this->m_whitespaceRule);
    if (this->HasListeners())
        return Add(value);
    Check(value);
    this->Insert(this->GetCount(), std::move(value));
}

template <class Policy>
DateCollection<Policy>::~DateCollection() = default;

template <class Policy>
void DateCollection<Policy>::AddAt(int index, CDateTime const& value) {
    if (value.GetType() != Policy::kKind)
        FailKindOfDate(Policy::kKind);
    if (m_needsCheck)
        CheckPrimitive(GetElementName().c_str(), value, Policy::kType, m_restrictions);
    BaseAddAt(index, value);
}

template <class Policy>
void DateCollection<Policy>::Clear() {
    ClearAs(typeid(typename Policy::Collection));
}

template <class Policy>
void DateCollection<Policy>::ToXml_Int(CXmlWriter* writer, bool isRoot, char const* ns,
                                       CSerializationContext const& ctx, bool optionalChoice) const {
    if (typeid(*this) != typeid(typename Policy::Collection))
        return CdatetimeBaseCol::ToXml_Int(writer, isRoot, ns, ctx, optionalChoice);
    if (ctx.GetStrict())
        return WriteStrictly(writer, ctx, Policy::kType, Conversion<Policy::kType>::template Put<CDateTime>);
    WriteValues(writer, ctx, ItemType_datetime, DateText);
}

template <class Policy>
CXmlElement* DateCollection<Policy>::FromXml_Int(CXmlElement* element, CXmlElement* current,
                                                 CSerializationContext const& ctx, bool optionalChoice) {
    if (typeid(*this) != typeid(typename Policy::Collection))
        return CXmlTypeCollection::FromXml_Int(element, current, ctx, optionalChoice);
    if (ctx.GetStrict())
        return ReadStrictly(
            current, ctx,
            [](CXmlTypeCollection& collection, std::string_view text, CXmlElement const& itemElement) {
                static_cast<DateCollection&>(collection).AddStrictly(text, itemElement);
            },
            optionalChoice);
    return ReadTexts(current, ctx, [](CXmlTypeCollection& collection, std::string_view text) {
        static_cast<DateCollection&>(collection).AddText(text);
    });
}

template <class Policy>
void DateCollection<Policy>::AddStrictly(std::string_view text, CXmlElement const& element) {
    CDateTime const value = StrictDateTimeFromText(Policy::kType, text);
    ZvVariant variant;
    Conversion<Policy::kType>::Put(variant, value);
    CheckRead(variant, text, element);
    BaseAddAt(GetCount(), value);
}

template <class Policy>
void DateCollection<Policy>::AddFromString(std::string value) {
    AddText(value);
}

template <class Policy>
void DateCollection<Policy>::AddText(std::string_view text) {
    Add(Conversion<Policy::kType>::FromText(text, m_whitespaceRule));
}

template <class Policy>
std::string DateCollection<Policy>::ItemToString(CDateTime const& value) {
    return value.ToString();
}

} // namespace detail

CdatetimeBaseCol::~CdatetimeBaseCol() = default;

void CdatetimeBaseCol::Clear() {
    while (GetCount() != 0)
        Remove(0);
}

void CdatetimeBaseCol::Add(CDateTime const& value) {
    AddAt(GetCount(), value);
}

CDateTime CdatetimeBaseCol::Item(int index) {
    return At(index);
}

void CdatetimeBaseCol::BaseAddAt(int index, CDateTime const& value) {
    BeginAdd(index, value);
    Insert(index, value);
    CompleteAdd(value);
}

// The operation that makes the text is not const, but does not change the collection.
void CdatetimeBaseCol::ToXml_Int(CXmlWriter* writer, bool, char const*, CSerializationContext const& ctx,
                                 bool) const {
    auto& self = const_cast<CdatetimeBaseCol&>(*this);
    WriteValues(writer, ctx, ItemType_datetime,
                [&self](CDateTime const& value, std::string& buffer) -> std::string const& {
                    return buffer = self.ItemToString(value);
                });
}

namespace detail {

#define ZV_COLLECTION(name, Policy, Name, Value, KIND, slot)                                                 \
    template class ZV_COLLECTION_##KIND<Policy##Item>;
ZV_COLLECTED_TYPES(ZV_COLLECTION)
#undef ZV_COLLECTION

#define ZV_STORE(Value) template class ValueStore<Value>;
ZV_SIMPLE_VALUES(ZV_STORE)
#undef ZV_STORE

} // namespace detail

#define ZV_DESTRUCTOR(name, Policy, Name, Value, KIND, slot) C##name##Col::~C##name##Col() = default;
ZV_COLLECTED_TYPES(ZV_DESTRUCTOR)
#undef ZV_DESTRUCTOR

} // namespace ZvXmlLib16
