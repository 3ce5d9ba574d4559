#include "zvxmllib/grammar/SimpleTypeTest.h"

#include "zvxmllib/grammar/SimpleType.h"
#include "zvxmllib/grammar/SimpleTypeFaults.h"

#include <algorithm>

namespace ZvXmlLib16::grammar {

// What facets look at.
struct AtomicForm {
    OrderedValue value;             // of an ordered type, if facets or a key need it
    std::size_t octets = kNoOctets; // of binary data
    bool needsValue = false;
};

namespace {

// Keys begin with a sign of the primitive type, and lists with their own.
constexpr char kListSign = 'l';
constexpr char KeySign(BuiltIn primitive) noexcept {
    return static_cast<char>(
        '!' + static_cast<int>(primitive == BuiltIn::kAnySimpleType ? BuiltIn::kString : primitive));
}

bool RefuseForm(SimpleType const& type, std::string_view text, TestOutput const& output) {
    if (output.message != nullptr)
        TellForm(*output.message, text, type.builtIn);
    return false;
}

bool AppendWhole(bool isValid, std::string_view text, std::string* key) {
    if (isValid && key != nullptr)
        key->append(text);
    return isValid;
}

bool ReadBooleanForm(std::string_view text, std::string* key) {
    int const value = ReadBoolean(text);
    return AppendWhole(value >= 0, value == 1 ? "1" : "0", key);
}

bool ReadHex(std::string_view text, AtomicForm& form, std::string* key) {
    form.octets = CountHexOctets(text);
    if (form.octets == kNoOctets)
        return false;
    if (key != nullptr) {
        for (char const c : text)
            *key += c >= 'a' ? static_cast<char>(c - 'a' + 'A') : c;
    }
    return true;
}

bool ReadBase64(std::string_view text, AtomicForm& form, std::string* key) {
    form.octets = CountBase64Octets(text);
    if (form.octets == kNoOctets)
        return false;
    if (key != nullptr)
        std::copy_if(text.begin(), text.end(), std::back_inserter(*key), [](char c) { return c != ' '; });
    return true;
}

// All types with an order. An integer is a decimal without a point.
bool ReadOrderedForm(SimpleType const& type, std::string_view text, AtomicForm& form, std::string* key) {
    if (type.primitive == BuiltIn::kDecimal && type.builtIn != BuiltIn::kDecimal &&
        text.find('.') != std::string_view::npos)
        return false;
    if (!form.needsValue && key == nullptr)
        return IsOrderedForm(type.primitive, text);
    if (!ReadOrdered(type.primitive, text, form.value))
        return false;
    if (key != nullptr)
        AppendKey(form.value, *key);
    return true;
}

// A text that a facet looks at, and where to say that it does not fit.
class FacetTest {
public:
    FacetTest(SimpleType const& type, std::string_view text, std::string* message)
        : m_type(type), m_text(text), m_message(message) {}

    bool HasLength(std::size_t length, char const* unit) const {
        auto const& [exact, least, most] = m_type.lengths;
        if (exact.text != nullptr && length != exact.value)
            return RefuseSize(length, unit, Facet::kLength, exact);
        if (least.text != nullptr && length < least.value)
            return RefuseSize(length, unit, Facet::kMinLength, least);
        return most.text == nullptr || length <= most.value ||
               RefuseSize(length, unit, Facet::kMaxLength, most);
    }

    bool HasDigits(DecimalDigits const& value) const {
        std::size_t const fraction = value.fraction.size();
        std::size_t const total = value.whole.size() + fraction;
        SizeFacet const& totalDigits = m_type.totalDigits;
        SizeFacet const& fractionDigits = m_type.fractionDigits;
        if (totalDigits.text != nullptr && total > totalDigits.value)
            return RefuseSize(total, "digit", Facet::kTotalDigits, totalDigits);
        return fractionDigits.text == nullptr || fraction <= fractionDigits.value ||
               RefuseSize(fraction, "fraction digit", Facet::kFractionDigits, fractionDigits);
    }

    bool IsWithinBounds(OrderedValue const& value) const {
        for (std::size_t i = 0; i < SimpleType::kBounds; ++i) {
            Bound const* const bound = m_type.bounds[i];
            if (bound == nullptr)
                continue;
            Facet const facet = BoundFacet(i);
            Order const order = Compare(value, bound->value);
            bool const isLower = facet == Facet::kMinInclusive || facet == Facet::kMinExclusive;
            bool const isInclusive = facet == Facet::kMinInclusive || facet == Facet::kMaxInclusive;
            if (order != (isLower ? Order::kGreater : Order::kLess) &&
                !(isInclusive && order == Order::kEqual))
                return RefuseBound(*bound, order != Order::kNoOrder, facet);
        }
        return true;
    }

    bool MatchesPatterns() const {
        if (m_type.patterns == nullptr)
            return true;
        PatternStep const* const mismatch = m_type.patterns->FindMismatch(m_text);
        if (mismatch != nullptr && m_message != nullptr)
            TellPattern(*m_message, m_text, mismatch->GetText(), m_type.name);
        return mismatch == nullptr;
    }

    bool IsEnumerated(std::string_view key) const {
        if (m_type.enumeration == nullptr)
            return true;
        bool const isFound = std::binary_search(m_type.enumeration->begin(), m_type.enumeration->end(), key);
        if (!isFound && m_message != nullptr)
            TellEnumeration(*m_message, m_text, m_type.name);
        return isFound;
    }

private:
    bool RefuseSize(std::size_t count, char const* unit, Facet facet, SizeFacet const& limit) const {
        if (m_message != nullptr)
            TellSize(*m_message, m_text, count, unit, facet, limit.text, m_type.name);
        return false;
    }

    bool RefuseBound(Bound const& bound, bool hasOrder, Facet facet) const {
        if (m_message == nullptr)
            return false;
        if (bound.isBuiltIn)
            TellForm(*m_message, m_text, m_type.builtIn);
        else
            TellBound(*m_message, m_text, hasOrder, facet, bound.text, m_type.name);
        return false;
    }

    SimpleType const& m_type;
    std::string_view m_text;
    std::string* m_message;
};

bool FitsAtomicFacets(SimpleType const& type, AtomicForm const& form, std::string_view text,
                      FacetTest const& test) {
    if (type.hasLengths && type.primitive != BuiltIn::kQName && type.primitive != BuiltIn::kNOTATION) {
        bool const isBinary = form.octets != kNoOctets;
        if (!test.HasLength(isBinary ? form.octets : CountCharacters(text), isBinary ? "octet" : "character"))
            return false;
    }
    if (auto const* const digits = std::get_if<DecimalDigits>(&form.value);
        digits != nullptr && !test.HasDigits(*digits))
        return false;
    return (!type.hasBounds || test.IsWithinBounds(form.value)) && test.MatchesPatterns();
}

// The outputs as they were, for a value that turns out not to fit.
class Undo {
public:
    explicit Undo(TestOutput const& output)
        : m_output(output), m_key(output.key == nullptr ? 0 : output.key->size()),
          m_ids(output.value == nullptr ? 0 : output.value->ids.size()),
          m_idrefs(output.value == nullptr ? 0 : output.value->idrefs.size()) {}

    void Run() const {
        if (m_output.key != nullptr)
            m_output.key->resize(m_key);
        if (m_output.value != nullptr) {
            m_output.value->ids.resize(m_ids);
            m_output.value->idrefs.resize(m_idrefs);
        }
    }
    // What was appended since.
    std::string_view GetKey() const { return std::string_view(*m_output.key).substr(m_key); }

private:
    TestOutput const& m_output;
    std::size_t m_key;
    std::size_t m_ids;
    std::size_t m_idrefs;
};

} // namespace

SimpleType const* SimpleTypeTest::Accept(SimpleType const& type, std::string_view text,
                                         TestOutput const& output) const {
    std::string key;
    TestOutput all = output;
    if (type.enumeration != nullptr && all.key == nullptr)
        all.key = &key;
    Undo const undo(all);
    SimpleType const* const accepted = type.variety == Variety::kAtomic ? AcceptAtomic(type, text, all)
                                       : type.variety == Variety::kList ? AcceptList(type, text, all)
                                                                        : AcceptUnion(type, text, all);
    if (accepted != nullptr &&
        (type.enumeration == nullptr || FacetTest(type, text, output.message).IsEnumerated(undo.GetKey())))
        return accepted;
    undo.Run();
    return nullptr;
}

bool SimpleTypeTest::ReadKey(SimpleType const& type, std::string_view text, std::string& key) const {
    TestOutput output;
    output.key = &key;
    if (type.variety == Variety::kUnion)
        return FindMember(type, text, output) != nullptr;
    std::size_t count = 0;
    if (type.variety == Variety::kList)
        return ReadItems(type, text, output, count);
    std::string room;
    AtomicForm form;
    return ReadForm(type, ApplyWhiteSpace(type.whiteSpace, text, room), form, output);
}

SimpleType const* SimpleTypeTest::AcceptAtomic(SimpleType const& type, std::string_view text,
                                               TestOutput const& output) const {
    std::string room;
    text = ApplyWhiteSpace(type.whiteSpace, text, room);
    AtomicForm form;
    form.needsValue =
        type.hasBounds || type.totalDigits.text != nullptr || type.fractionDigits.text != nullptr;
    if (!ReadForm(type, text, form, output) ||
        !FitsAtomicFacets(type, form, text, FacetTest(type, text, output.message)))
        return nullptr;
    if (output.value != nullptr && type.builtIn == BuiltIn::kID)
        output.value->ids.emplace_back(text);
    if (output.value != nullptr && type.builtIn == BuiltIn::kIDREF)
        output.value->idrefs.emplace_back(text);
    return &type;
}

SimpleType const* SimpleTypeTest::AcceptList(SimpleType const& type, std::string_view text,
                                             TestOutput const& output) const {
    std::size_t count = 0;
    if (!ReadItems(type, text, output, count))
        return nullptr;
    std::string room;
    if (type.patterns != nullptr)
        text = ApplyWhiteSpace(WhiteSpace::kCollapse, text, room);
    FacetTest const test(type, text, output.message);
    return (!type.hasLengths || test.HasLength(count, "item")) && test.MatchesPatterns() ? &type : nullptr;
}

SimpleType const* SimpleTypeTest::AcceptUnion(SimpleType const& type, std::string_view text,
                                              TestOutput const& output) const {
    SimpleType const* const member = FindMember(type, text, output);
    text = WithoutNamespace(type, text);
    if (member == nullptr) {
        if (output.message != nullptr)
            TellMembers(*output.message, text, type.name);
        return nullptr;
    }
    // The white space rule is that of the member.
    std::string room;
    if (type.patterns != nullptr)
        text = ApplyWhiteSpace(member->whiteSpace, text, room);
    return FacetTest(type, text, output.message).MatchesPatterns() ? member : nullptr;
}

SimpleType const* SimpleTypeTest::FindMember(SimpleType const& type, std::string_view text,
                                             TestOutput const& output) const {
    TestOutput silent = output;
    silent.message = nullptr;
    std::string_view const plain = WithoutNamespace(type, text);
    for (SimpleType const* const member : type.members->tried) {
        if (SimpleType const* const accepted = Accept(*member, member->hasQNames ? text : plain, silent))
            return accepted;
    }
    return nullptr;
}

std::string_view SimpleTypeTest::WithoutNamespace(SimpleType const& type,
                                                  std::string_view text) const noexcept {
    bool const mayHaveOne = m_scope == nullptr && type.hasQNames && !text.empty() && text[0] == '{';
    std::size_t const end = mayHaveOne ? text.rfind('}') : std::string_view::npos;
    return end == std::string_view::npos ? text : text.substr(end + 1);
}

bool SimpleTypeTest::ReadItems(SimpleType const& type, std::string_view text, TestOutput const& output,
                               std::size_t& count) const {
    std::string* const key = output.key;
    if (key != nullptr)
        *key += kListSign;
    for (std::string_view item; TakeListItem(text, item); ++count) {
        std::size_t const begin = key == nullptr ? 0 : key->size();
        if (Accept(*type.item, item, output) == nullptr)
            return false;
        if (key != nullptr) // no item's key says where it ends
            key->insert(begin, std::to_string(key->size() - begin) + ':');
    }
    return true;
}

bool SimpleTypeTest::ReadForm(SimpleType const& type, std::string_view text, AtomicForm& form,
                              TestOutput const& output) const {
    std::string* const key = output.key;
    if (key != nullptr)
        *key += KeySign(type.primitive);
    auto const isForm = [&] {
        switch (type.builtIn) {
        case BuiltIn::kAnySimpleType:
        case BuiltIn::kString:
        case BuiltIn::kNormalizedString:
        case BuiltIn::kToken:
            return AppendWhole(true, text, key);
        case BuiltIn::kLanguage:
            return AppendWhole(IsLanguage(text), text, key);
        case BuiltIn::kNMTOKEN:
            return AppendWhole(IsNmToken(text), text, key);
        case BuiltIn::kName:
            return AppendWhole(IsXmlName(text), text, key);
        case BuiltIn::kNCName:
        case BuiltIn::kID:
        case BuiltIn::kIDREF:
        case BuiltIn::kENTITY:
            return AppendWhole(IsNCName(text), text, key);
        case BuiltIn::kAnyURI:
            return AppendWhole(IsAnyUri(text), text, key);
        case BuiltIn::kBoolean:
            return ReadBooleanForm(text, key);
        case BuiltIn::kHexBinary:
            return ReadHex(text, form, key);
        case BuiltIn::kBase64Binary:
            return ReadBase64(text, form, key);
        default:
            return ReadOrderedForm(type, text, form, key);
        }
    };
    if (type.hasQNames)
        return ReadQName(type, text, output);
    return isForm() || RefuseForm(type, text, output);
}

bool SimpleTypeTest::ReadQName(SimpleType const& type, std::string_view text,
                               TestOutput const& output) const {
    std::string_view const name = WithoutNamespace(type, text);
    std::string_view prefix;
    std::string_view local;
    if (!SplitQName(name, prefix, local))
        return RefuseForm(type, text, output);
    std::string expanded;
    bool isKnown = true; // whether the namespace is
    if (name.size() != text.size()) {
        expanded = text.substr(0, text.size() - name.size());
    } else {
        std::string ns;
        bool const isFound = m_scope != nullptr && m_scope->FindNamespace(prefix, ns);
        if (m_scope != nullptr && !isFound && !prefix.empty()) {
            if (output.message != nullptr)
                TellPrefix(*output.message, text, prefix);
            return false;
        }
        isKnown = isFound || prefix.empty(); // there may be no default namespace
        if (type.primitive == BuiltIn::kNOTATION || output.key != nullptr)
            expanded.append(1, '{').append(ns).append(1, '}');
    }
    expanded.append(local);
    if (type.primitive == BuiltIn::kNOTATION && isKnown &&
        !std::binary_search(m_notations.begin(), m_notations.end(), expanded)) {
        if (output.message != nullptr)
            TellNotation(*output.message, text);
        return false;
    }
    return AppendWhole(true, isKnown ? std::string_view(expanded) : text, output.key);
}

} // namespace ZvXmlLib16::grammar
