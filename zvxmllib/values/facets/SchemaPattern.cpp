#include "zvxmllib/values/facets/SchemaPattern.h"

#include "zvxmllib/foundation/Utf16.h"
#include "zvxmllib/values/facets/CharacterSets.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <iterator>

// Nothing that the libraries could misread is passed on: outside a class only letters, digits and the signs
// of the grammar appear, inside a class everything but letters and digits is written by its number.

namespace ZvXmlLib16::detail {

namespace {

constexpr std::uint32_t kLastCodePoint = 0x10FFFF;
constexpr std::uint32_t kFirstSurrogate = 0xD800;
constexpr std::uint32_t kLastSurrogate = 0xDFFF;
constexpr std::uint32_t kMostQuantity = 65535;
constexpr std::uint32_t kMostRepeats = 16 * kMostQuantity;
constexpr std::size_t kMostExpression = std::size_t{1} << 20; // that repeats may lead to, in bytes
constexpr int kMostNesting = 200;                             // the libraries take 250 levels of parentheses

// XML 1.0, 2.3: NameStartChar, and what NameChar has beyond it.
constexpr CharacterRange kNameStart[] = {
    {':', ':'},       {'A', 'Z'},       {'_', '_'},       {'a', 'z'},
    {0xC0, 0xD6},     {0xD8, 0xF6},     {0xF8, 0x2FF},    {0x370, 0x37D},
    {0x37F, 0x1FFF},  {0x200C, 0x200D}, {0x2070, 0x218F}, {0x2C00, 0x2FEF},
    {0x3001, 0xD7FF}, {0xF900, 0xFDCF}, {0xFDF0, 0xFFFD}, {0x10000, 0xEFFFF}};
constexpr CharacterRange kNameOnly[] = {
    {'-', '.'}, {'0', '9'}, {0xB7, 0xB7}, {0x300, 0x36F}, {0x203F, 0x2040}};
constexpr CharacterRange kWhiteSpace[] = {{'\t', '\n'}, {'\r', '\r'}, {' ', ' '}};

constexpr std::string_view kCategories[] = {"C",  "Cc", "Cf", "Cn", "Co", "L",  "Ll", "Lm", "Lo",
                                            "Lt", "Lu", "M",  "Mc", "Me", "Mn", "N",  "Nd", "Nl",
                                            "No", "P",  "Pc", "Pd", "Pe", "Pf", "Pi", "Po", "Ps",
                                            "S",  "Sc", "Sk", "Sm", "So", "Z",  "Zl", "Zp", "Zs"};

constexpr std::string_view kSingleEscapes = "nrt\\|.?*+(){}-[]^";
constexpr std::string_view kMetaCharacters = "?*+{}()[]|"; // the point and the backslash begin an atom

bool IsLetterOrDigit(std::uint32_t c) noexcept {
    return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

void AppendCharacter(std::uint32_t c, std::string& items) {
    if (IsLetterOrDigit(c)) {
        items += static_cast<char>(c);
        return;
    }
    char text[16];
    int const length = std::snprintf(text, sizeof text, "\\x{%X}", static_cast<unsigned>(c));
    items.append(text, static_cast<std::size_t>(length));
}

// The libraries know no surrogates, and no text holds one.
void AppendRange(CharacterRange range, std::string& items) {
    if (range.first >= kFirstSurrogate && range.first <= kLastSurrogate)
        range.first = kLastSurrogate + 1;
    if (range.last >= kFirstSurrogate && range.last <= kLastSurrogate)
        range.last = kFirstSurrogate - 1;
    if (range.first > range.last)
        return;
    AppendCharacter(range.first, items);
    if (range.first == range.last)
        return;
    items += '-';
    AppendCharacter(range.last, items);
}

void AppendSet(CharacterSet const& set, bool isComplement, std::string& items) {
    std::uint32_t next = 0; // the first that no range has had yet
    for (CharacterRange const& range : set) {
        if (!isComplement)
            AppendRange(range, items);
        else if (range.first > next)
            AppendRange({next, range.first - 1}, items);
        next = range.last + 1;
    }
    if (isComplement && next <= kLastCodePoint)
        AppendRange({next, kLastCodePoint}, items);
}

CharacterSet NameCharacters() {
    CharacterSet set(std::begin(kNameStart), std::end(kNameStart));
    set.insert(set.end(), std::begin(kNameOnly), std::end(kNameOnly));
    std::sort(set.begin(), set.end(), [](auto const& a, auto const& b) { return a.first < b.first; });
    return set;
}

// Made once, since they are long.
std::string const& NameItems(bool isStart, bool isComplement) {
    auto const make = [](bool isOfStart, bool isOfComplement) {
        std::string items;
        AppendSet(isOfStart ? CharacterSet(std::begin(kNameStart), std::end(kNameStart)) : NameCharacters(),
                  isOfComplement, items);
        return items;
    };
    static std::string const items[] = {make(false, false), make(false, true), make(true, false),
                                        make(true, true)};
    return items[(isStart ? 2 : 0) + (isComplement ? 1 : 0)];
}

// The items of \s, \i, \c, \d, \w and their complements. False for another letter.
bool AppendMultiCharacterEscape(char letter, std::string& items) {
    bool const isComplement = letter >= 'A' && letter <= 'Z';
    switch (letter) {
    case 's':
    case 'S':
        AppendSet(CharacterSet(std::begin(kWhiteSpace), std::end(kWhiteSpace)), isComplement, items);
        return true;
    case 'i':
    case 'I':
        items += NameItems(true, isComplement);
        return true;
    case 'c':
    case 'C':
        items += NameItems(false, isComplement);
        return true;
    case 'd':
        items += R"(\p{Nd})";
        return true;
    case 'D':
        items += R"(\P{Nd})";
        return true;
    case 'w': // all but punctuation, separators and the rest
        items += R"(\p{L}\p{M}\p{N}\p{S})";
        return true;
    case 'W':
        items += R"(\p{P}\p{Z}\p{C})";
        return true;
    default:
        return false;
    }
}

// One pass over the pattern by the productions of the grammar; ends by a Fault where none fits.
class Translator {
public:
    struct Fault {
        char const* what;
    };

    Translator(std::string_view pattern, PatternGrammar grammar)
        : m_text(pattern), m_isTolerant(grammar == PatternGrammar::kTolerant) {}

    std::string TranslateAll() {
        RegularExpression();
        if (!IsAtEnd())
            throw Fault{"unmatched ')'"};
        return "(" + m_out + ")\\z";
    }
    std::size_t GetPosition() const noexcept { return m_at; }

private:
    struct Level {
        explicit Level(int& depth) : m_depth(depth) {
            if (++m_depth > kMostNesting)
                throw Fault{"too many levels of nesting"};
        }
        Level(Level const&) = delete;
        Level& operator=(Level const&) = delete;
        ~Level() { --m_depth; }
        int& m_depth;
    };

    bool IsAtEnd() const noexcept { return m_at >= m_text.size(); }
    // NUL, which no pattern has, behind the end.
    char Peek(std::size_t ahead = 0) const noexcept {
        return m_at + ahead < m_text.size() ? m_text[m_at + ahead] : '\0';
    }
    bool Take(char c) noexcept {
        if (IsAtEnd() || Peek() != c)
            return false;
        ++m_at;
        return true;
    }
    // The text is well-formed.
    std::uint32_t TakeCharacter() noexcept {
        auto const octet = [this] {
            return static_cast<std::uint32_t>(static_cast<unsigned char>(m_text[m_at++]));
        };
        std::uint32_t const lead = octet();
        if (lead < 0x80)
            return lead;
        int const more = lead >= 0xF0 ? 3 : lead >= 0xE0 ? 2 : 1;
        std::uint32_t c = lead & (0x3FU >> static_cast<unsigned>(more));
        for (int i = 0; i < more; ++i)
            c = c << 6U | (octet() & 0x3FU);
        return c;
    }

    // regExp ::= branch ( '|' branch )*; it ends ahead of what cannot go on.
    void RegularExpression() {
        for (;;) {
            while (!IsAtEnd() && Peek() != '|' && Peek() != ')') {
                std::size_t const begin = m_out.size();
                Atom();
                Quantifier(begin);
            }
            if (!Take('|'))
                return;
            m_out += '|';
        }
    }

    void Atom() {
        char const c = Peek();
        if (c == '(') {
            Level const level(m_depth);
            ++m_at;
            m_out += '(';
            RegularExpression();
            if (!Take(')'))
                throw Fault{"missing ')'"};
            m_out += ')';
        } else if (c == '[') {
            m_out += Class();
        } else if (c == '\\') {
            std::string items;
            Escape(items);
            m_out += '[' + items + ']';
        } else if (c == '.') {
            ++m_at;
            m_out += R"([^\x{A}\x{D}])";
        } else if (kMetaCharacters.find(c) != std::string_view::npos && c != '\0') {
            throw Fault{"unexpected metacharacter"};
        } else {
            NormalCharacter();
        }
    }

    void NormalCharacter() {
        std::uint32_t const c = TakeCharacter();
        if (IsLetterOrDigit(c)) {
            m_out += static_cast<char>(c);
            return;
        }
        m_out += '[';
        AppendCharacter(c, m_out);
        m_out += ']';
    }

    // Of the atom that begins at `atom` in what is written.
    void Quantifier(std::size_t atom) {
        for (char const sign : {'?', '*', '+'}) {
            if (Take(sign)) {
                m_out += sign;
                return;
            }
        }
        if (!Take('{'))
            return;
        Quantity quantity;
        quantity.least = quantity.most = Number();
        if (Take(',')) {
            quantity.hasMost = Peek() != '}';
            if (quantity.hasMost)
                quantity.most = Number();
        }
        if (quantity.most < quantity.least)
            throw Fault{"quantity out of order"};
        if (!Take('}'))
            throw Fault{"missing '}'"};
        Repeat(m_out.substr(atom), quantity);
    }

    struct Quantity {
        std::uint32_t least = 0;
        std::uint32_t most = 0;
        bool hasMost = true;
    };

    // The libraries take quantities of 16 bits: what is more is written as several of them.
    void Repeat(std::string const& atom, Quantity rest) {
        for (bool isFirst = true;; isFirst = false) {
            std::uint32_t const least = std::min(rest.least, kMostQuantity);
            std::uint32_t const most = std::min(rest.most, kMostQuantity);
            bool const isLast = rest.least == least && (rest.most == most || !rest.hasMost);
            if (m_out.size() + atom.size() > kMostExpression)
                throw Fault{"pattern too large"};
            if (!isFirst)
                m_out += atom;
            m_out += '{' + std::to_string(least) + ',';
            if (rest.hasMost || !isLast)
                m_out += std::to_string(most);
            m_out += '}';
            if (isLast)
                return;
            rest.least -= least;
            rest.most -= most;
        }
    }

    std::uint32_t Number() {
        if (Peek() < '0' || Peek() > '9')
            throw Fault{"missing quantity"};
        std::uint32_t number = 0;
        for (; Peek() >= '0' && Peek() <= '9'; ++m_at) {
            number = number * 10 + static_cast<std::uint32_t>(Peek() - '0');
            if (number > kMostRepeats)
                throw Fault{"quantity too large"};
        }
        return number;
    }

    // An escape as the items of a class. True, with the character, if it stands for a single one, which is
    // not appended.
    bool SingleEscape(std::uint32_t& c) {
        char const letter = Peek(1);
        if (letter == '\0' || kSingleEscapes.find(letter) == std::string_view::npos)
            return false;
        m_at += 2;
        c = static_cast<unsigned char>(letter == 'n'   ? '\n'
                                       : letter == 'r' ? '\r'
                                       : letter == 't' ? '\t'
                                                       : letter);
        return true;
    }

    void Escape(std::string& items) {
        std::uint32_t c = 0;
        if (SingleEscape(c))
            return AppendCharacter(c, items);
        char const letter = Peek(1);
        if (letter == 'p' || letter == 'P') {
            m_at += 2;
            return Property(letter == 'P', items);
        }
        if (!AppendMultiCharacterEscape(letter, items))
            throw Fault{"unknown escape"};
        m_at += 2;
    }

    // '{' ( IsCategory | IsBlock ) '}'
    void Property(bool isComplement, std::string& items) {
        std::size_t const end = m_text.find('}', m_at);
        if (!Take('{') || end == std::string_view::npos)
            throw Fault{"missing name of a property"};
        std::string_view const name = m_text.substr(m_at, end - m_at);
        if (std::binary_search(std::begin(kCategories), std::end(kCategories), name)) {
            items += isComplement ? "\\P{" : "\\p{";
            items.append(name) += '}';
        } else {
            CharacterSet const block = name.substr(0, 2) == "Is" ? BlockOf(name.substr(2)) : CharacterSet();
            if (block.empty() || (block.front().first == kNoCharacter && !m_isTolerant))
                throw Fault{"unknown property"};
            AppendSet(block, isComplement, items);
        }
        m_at = end + 1;
    }

    // charClassExpr, which takes one character. What is subtracted must not match ahead of it.
    std::string Class() {
        Level const level(m_depth);
        ++m_at;
        std::string result = Take('^') ? "[^" : "[";
        ClassItems(result);
        result += ']';
        if (Take('-')) {
            if (Peek() != '[')
                throw Fault{"missing class behind '-'"};
            result = "(?:(?!" + Class() + ")" + result + ")";
        }
        if (!Take(']'))
            throw Fault{"missing ']'"};
        return result;
    }

    // posCharGroup: one item at least, up to the end of the class or to what is subtracted. The
    // grammar has a '-' at both ends only.
    void ClassItems(std::string& items) {
        for (bool isFirst = true, isBehindDash = false;; isFirst = false) {
            if (IsAtEnd())
                throw Fault{"missing ']'"};
            char const c = Peek();
            bool const isSubtraction = c == '-' && Peek(1) == '[';
            if ((c == ']' || isSubtraction) && !isFirst)
                return;
            if (c == ']' || c == '[' || isSubtraction)
                throw Fault{"unexpected character in a class"};
            if (c == '-') {
                if (!isFirst && !IsLastDash() && (isBehindDash || !m_isTolerant))
                    throw Fault{"'-' within a class"};
                ++m_at;
                AppendCharacter('-', items);
            } else {
                ClassItem(items);
            }
            isBehindDash = c == '-';
        }
    }

    // Whether the '-' at the place is the last item of its group.
    bool IsLastDash() const noexcept { return Peek(1) == ']' || (Peek(1) == '-' && Peek(2) == '['); }

    // A range, a character, or an escape.
    void ClassItem(std::string& items) {
        std::uint32_t first = 0;
        if (Peek() != '\\')
            first = TakeCharacter();
        else if (!SingleEscape(first))
            return Escape(items);
        bool const isRange = Peek() == '-' && Peek(1) != '[' && !IsLastDash();
        if (!isRange)
            return AppendCharacter(first, items);
        ++m_at;
        std::uint32_t last = 0;
        if (IsAtEnd())
            throw Fault{"missing ']'"};
        if (Peek() == '-')
            throw Fault{"'-' within a class"};
        if (Peek() != '\\')
            last = TakeCharacter();
        else if (!SingleEscape(last))
            throw Fault{"range to a set of characters"};
        if (last < first)
            throw Fault{"range out of order"};
        AppendRange({first, last}, items);
    }

    std::string_view m_text;
    bool m_isTolerant;
    std::size_t m_at = 0;
    std::string m_out;
    int m_depth = 0;
};

} // namespace

SchemaPattern TranslateSchemaPattern(std::string_view pattern, PatternGrammar grammar) {
    SchemaPattern result;
    if (!IsValidUtf8(pattern)) {
        result.error = "no UTF-8";
        return result;
    }
    Translator translator(pattern, grammar);
    try {
        result.expression = translator.TranslateAll();
    } catch (Translator::Fault const& fault) {
        result.error = fault.what;
        result.position = translator.GetPosition();
    }
    return result;
}

} // namespace ZvXmlLib16::detail
