#include "zvxmllib/grammar/PatternMachine.h"

#include <algorithm>
#include <charconv>
#include <map>

namespace ZvXmlLib16::grammar {

namespace {

constexpr std::uint32_t kNoSet = 0xFFFFFFFF;
constexpr std::uint32_t kNoLimit = 0xFFFFFFFF;
constexpr std::size_t kMostStates = std::size_t{1} << 20;
constexpr std::size_t kMostVisits = 200'000'000; // of states, in one match

struct TooLarge {};

// An expression taken apart.
struct Node {
    enum class Kind : std::uint8_t { kSet, kSequence, kChoice };
    Kind kind = Kind::kSequence;
    std::uint32_t set = kNoSet;
    std::uint32_t least = 1; // of repetitions
    std::uint32_t most = 1;  // or kNoLimit
    std::vector<Node> parts;
};

std::size_t LengthOfCharacter(char lead) noexcept {
    auto const octet = static_cast<unsigned char>(lead);
    return octet < 0xC0 ? 1 : octet < 0xE0 ? 2 : octet < 0xF0 ? 3 : 4;
}

} // namespace

// Reads the language that TranslateSchemaPattern writes: letters and digits, classes, classes less others,
// groups, and quantities.
class PatternMachineMaker {
public:
    PatternMachineMaker(std::string_view expression, PatternMachine& machine)
        : m_text(expression), m_machine(machine) {}

    void Make() {
        Node const root = TakeChoice();
        m_machine.m_states.push_back({kNoSet, 0, 0});
        m_machine.m_start = Add(root, 0);
    }

private:
    char Peek() const noexcept { return m_at < m_text.size() ? m_text[m_at] : '\0'; }

    Node TakeChoice() {
        Node choice;
        choice.kind = Node::Kind::kChoice;
        choice.parts.push_back(TakeSequence());
        while (Peek() == '|') {
            ++m_at;
            choice.parts.push_back(TakeSequence());
        }
        return choice;
    }

    // Large quantities are several atoms, each with a part of the quantity, which are made one again.
    Node TakeSequence() {
        Node sequence;
        std::string_view lastAtom;
        while (m_at < m_text.size() && Peek() != '|' && Peek() != ')') {
            std::size_t const begin = m_at;
            Node node = TakeAtom();
            std::string_view const atom = m_text.substr(begin, m_at - begin);
            TakeQuantity(node);
            if (atom == lastAtom) {
                Node& last = sequence.parts.back();
                last.least += node.least;
                last.most = last.most == kNoLimit || node.most == kNoLimit ? kNoLimit : last.most + node.most;
                if (last.least > kMostStates || (last.most != kNoLimit && last.most > kMostStates))
                    throw TooLarge();
            } else {
                sequence.parts.push_back(std::move(node));
            }
            lastAtom = atom;
        }
        return sequence;
    }

    Node TakeAtom() {
        constexpr std::string_view kDifference = "(?:"; // of classes
        std::size_t const begin = m_at;
        if (Peek() == '(' && m_text.substr(m_at, kDifference.size()) != kDifference) {
            ++m_at;
            Node group = TakeChoice();
            ++m_at;
            return group;
        }
        if (Peek() == '(')
            SkipDifference();
        else if (Peek() == '[')
            m_at = m_text.find(']', m_at) + 1;
        else
            ++m_at;
        Node node;
        node.kind = Node::Kind::kSet;
        node.set = SetOf(std::string(m_text.substr(begin, m_at - begin)));
        return node;
    }

    // Classes hold neither parentheses nor brackets as they are.
    void SkipDifference() noexcept {
        int depth = 0;
        do {
            if (Peek() == '(')
                ++depth;
            if (Peek() == ')')
                --depth;
            ++m_at;
        } while (depth != 0 && m_at < m_text.size());
    }

    void TakeQuantity(Node& node) {
        char const sign = Peek();
        if (sign == '?' || sign == '*' || sign == '+') {
            ++m_at;
            node.least = sign == '+' ? 1 : 0;
            node.most = sign == '?' ? 1 : kNoLimit;
        } else if (sign == '{') {
            ++m_at;
            node.least = TakeNumber();
            ++m_at;
            node.most = Peek() == '}' ? kNoLimit : TakeNumber();
            ++m_at;
        }
    }

    std::uint32_t TakeNumber() noexcept {
        std::uint32_t number = 0;
        char const* const begin = m_text.data() + m_at;
        m_at += static_cast<std::size_t>(std::from_chars(begin, m_text.data() + m_text.size(), number).ptr -
                                         begin);
        return number;
    }

    std::uint32_t SetOf(std::string const& text) {
        auto const [place, isNew] = m_sets.emplace(text, static_cast<std::uint32_t>(m_machine.m_sets.size()));
        if (!isNew)
            return place->second;
        std::string error;
        PatternMachine::CharacterSet set;
        set.regex = detail::CompileRegex("(" + text + ")\\z", error);
        if (set.regex == nullptr)
            throw TooLarge();
        for (std::size_t c = 0; c < set.ascii.size(); ++c) {
            char const character = static_cast<char>(c);
            set.ascii[c] = detail::MatchesWhole(*set.regex, std::string_view(&character, 1), true);
        }
        m_machine.m_sets.push_back(std::move(set));
        return place->second;
    }

    // The states of a node come out at `next`; returns where they begin.
    std::uint32_t Add(Node const& node, std::uint32_t next) {
        std::uint32_t const end = next;
        if (node.most == kNoLimit) {
            std::uint32_t const loop = AddState({kNoSet, 0, end});
            std::uint32_t const body = AddOnce(node, loop);
            m_machine.m_states[loop].next = body;
            next = loop;
        } else {
            for (std::uint32_t i = node.least; i < node.most; ++i)
                next = AddState({kNoSet, AddOnce(node, next), end});
        }
        for (std::uint32_t i = 0; i < node.least; ++i)
            next = AddOnce(node, next);
        return next;
    }

    std::uint32_t AddOnce(Node const& node, std::uint32_t next) {
        if (++m_work > 2 * kMostStates)
            throw TooLarge();
        if (node.kind == Node::Kind::kSet)
            return AddState({node.set, next, 0});
        if (node.kind == Node::Kind::kSequence) {
            for (auto part = node.parts.rbegin(); part != node.parts.rend(); ++part)
                next = Add(*part, next);
            return next;
        }
        std::uint32_t start = Add(node.parts.back(), next);
        for (auto part = node.parts.rbegin() + 1; part != node.parts.rend(); ++part)
            start = AddState({kNoSet, Add(*part, next), start});
        return start;
    }

    std::uint32_t AddState(PatternMachine::State const& state) {
        if (m_machine.m_states.size() >= kMostStates)
            throw TooLarge();
        m_machine.m_states.push_back(state);
        return static_cast<std::uint32_t>(m_machine.m_states.size() - 1);
    }

    std::string_view m_text;
    std::size_t m_at = 0;
    std::size_t m_work = 0;
    std::map<std::string, std::uint32_t> m_sets;
    PatternMachine& m_machine;
};

std::unique_ptr<PatternMachine> PatternMachine::Make(std::string_view expression) {
    constexpr std::string_view kEnd = "\\z";
    auto machine = std::make_unique<PatternMachine>();
    try {
        PatternMachineMaker(expression.substr(0, expression.size() - kEnd.size()), *machine).Make();
    } catch (TooLarge const&) {
        return nullptr;
    }
    return machine;
}

bool PatternMachine::Matches(std::string_view text) const {
    std::vector<std::uint32_t> current; // states that take a character, or the end
    std::vector<std::uint32_t> following;
    std::vector<std::uint32_t> open;
    std::vector<std::size_t> lastSeen(m_states.size(), 0); // by state, the place in the text plus 1
    std::size_t visits = 0;
    auto const reach = [&](std::uint32_t state, std::size_t place, std::vector<std::uint32_t>& states) {
        open.push_back(state);
        while (!open.empty()) {
            std::uint32_t const next = open.back();
            open.pop_back();
            if (lastSeen[next] == place + 1)
                continue;
            lastSeen[next] = place + 1;
            ++visits;
            if (next == 0 || m_states[next].set != kNoSet) {
                states.push_back(next);
            } else {
                open.push_back(m_states[next].other);
                open.push_back(m_states[next].next);
            }
        }
    };
    reach(m_start, 0, current);
    for (std::size_t at = 0; at < text.size();) {
        std::string_view const character = text.substr(at, LengthOfCharacter(text[at]));
        bool const isAscii = static_cast<unsigned char>(text[at]) < 128;
        at += character.size();
        following.clear();
        for (std::uint32_t const state : current) {
            if (state == 0)
                continue;
            CharacterSet const& set = m_sets[m_states[state].set];
            if (isAscii ? set.ascii[static_cast<unsigned char>(character[0])]
                        : detail::MatchesWhole(*set.regex, character, false))
                reach(m_states[state].next, at, following);
        }
        visits += current.size();
        if (visits > kMostVisits)
            return false;
        current.swap(following);
    }
    return std::find(current.begin(), current.end(), 0U) != current.end();
}

} // namespace ZvXmlLib16::grammar
