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

constexpr auto kStringEncoding = CFastInfosetContext::EncodingType_String;
constexpr auto kAlphabetEncoding = CFastInfosetContext::EncodingType_RestrictedAlphabet;
constexpr auto kAlgorithmEncoding = CFastInfosetContext::EncodingType_Algorithm;

// An unsigned type goes by the next wider signed one, as far as there is one.
constexpr std::array<Suggestion, 24> kSuggestions = {{
    {ItemType_hexBinary, kAlgorithmEncoding, 1}, {ItemType_base64Binary, kAlgorithmEncoding, 2},
    {ItemType_i1, kAlgorithmEncoding, 3},        {ItemType_i2, kAlgorithmEncoding, 3},
    {ItemType_i4, kAlgorithmEncoding, 4},        {ItemType_i8, kAlgorithmEncoding, 5},
    {ItemType_ui1, kAlgorithmEncoding, 3},       {ItemType_ui2, kAlgorithmEncoding, 4},
    {ItemType_ui4, kAlgorithmEncoding, 5},       {ItemType_ui8, kAlgorithmEncoding, 5},
    {ItemType_r4, kAlgorithmEncoding, 7},        {ItemType_r8, kAlgorithmEncoding, 8},
    {ItemType_boolean, kAlgorithmEncoding, 6},   {ItemType_duration, kStringEncoding, 0},
    {ItemType_yearMonth, kAlphabetEncoding, 2},  {ItemType_monthDay, kAlphabetEncoding, 2},
    {ItemType_year, kAlphabetEncoding, 2},       {ItemType_month, kAlphabetEncoding, 2},
    {ItemType_day, kAlphabetEncoding, 2},        {ItemType_date, kAlphabetEncoding, 2},
    {ItemType_datetime, kAlphabetEncoding, 2},   {ItemType_time, kAlphabetEncoding, 2},
    {ItemType_decimal, kAlphabetEncoding, 1},    {ItemType_integer, kAlphabetEncoding, 1},
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
