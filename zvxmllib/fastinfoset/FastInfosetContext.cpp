// CFastInfosetContext, the Fast Infoset options of one serialisation or one read.
#include "zvxmllib/fastinfoset/FastInfosetContext.h"

#include "zvxmllib/context/SerializationContext.h"
#include "zvxmllib/fastinfoset/Failures.h"

namespace ZvXmlLib16 {

namespace {

struct Suggestion {
    ItemType itemType;
    std::uint32_t type;
    std::uint32_t index;
};

constexpr auto kString = CFastInfosetContext::EncodingType_String;
constexpr auto kAlphabet = CFastInfosetContext::EncodingType_RestrictedAlphabet;
constexpr auto kAlgorithm = CFastInfosetContext::EncodingType_Algorithm;

// An unsigned type goes by the next wider signed one, as far as there is one.
constexpr std::array<Suggestion, 24> kSuggestions = {{
    {ItemType_hexBinary, kAlgorithm, 1}, {ItemType_base64Binary, kAlgorithm, 2},
    {ItemType_i1, kAlgorithm, 3},        {ItemType_i2, kAlgorithm, 3},
    {ItemType_i4, kAlgorithm, 4},        {ItemType_i8, kAlgorithm, 5},
    {ItemType_ui1, kAlgorithm, 3},       {ItemType_ui2, kAlgorithm, 4},
    {ItemType_ui4, kAlgorithm, 5},       {ItemType_ui8, kAlgorithm, 5},
    {ItemType_r4, kAlgorithm, 7},        {ItemType_r8, kAlgorithm, 8},
    {ItemType_boolean, kAlgorithm, 6},   {ItemType_duration, kString, 0},
    {ItemType_yearMonth, kAlphabet, 2},  {ItemType_monthDay, kAlphabet, 2},
    {ItemType_year, kAlphabet, 2},       {ItemType_month, kAlphabet, 2},
    {ItemType_day, kAlphabet, 2},        {ItemType_date, kAlphabet, 2},
    {ItemType_datetime, kAlphabet, 2},   {ItemType_time, kAlphabet, 2},
    {ItemType_decimal, kAlphabet, 1},    {ItemType_integer, kAlphabet, 1},
}};

} // namespace

CFastInfosetContext::CFastInfosetContext() = default;
CFastInfosetContext::CFastInfosetContext(CFastInfosetContext const& other) {
    *this = other;
}
CFastInfosetContext& CFastInfosetContext::operator=(CFastInfosetContext const& other) = default;
CFastInfosetContext::~CFastInfosetContext() = default;

CFastInfosetContext::EncodedCharacterString CFastInfosetContext::GetEncoding(std::uint32_t itemType) const {
    if (itemType >= m_encodings.size())
        FailEncodingOfItemType(itemType);
    return m_encodings[itemType];
}

void CFastInfosetContext::SetEncoding(std::uint32_t itemType, EncodedCharacterString encoding) {
    if (itemType >= m_encodings.size())
        FailEncodingOfItemType(itemType);
    m_encodings[itemType] = encoding;
}

void CFastInfosetContext::SetSuggestedValues() {
    for (Suggestion const& suggestion : kSuggestions)
        m_encodings[suggestion.itemType] = {suggestion.type, suggestion.index};
}

CFastInfosetContext& CSerializationContext::GetFIContext() const {
    return m_fastInfoset.Get();
}

} // namespace ZvXmlLib16
