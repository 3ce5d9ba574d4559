// unique, key and keyref (XML Schema Part 1, 3.11), tested while a document is walked.
#pragma once

#include "zvxmllib/grammar/GrammarRows.h"
#include "zvxmllib/grammar/SimpleTypes.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace ZvXmlLib16 {
class CXmlElement;
}

namespace ZvXmlLib16::grammar {

// A constraint that does not hold, and the element that is at fault.
struct IdentityFault {
    CXmlElement const* element;
    std::string message;
};

// The identity constraints of a grammar with their paths taken apart. Any number of threads may use it.
class IdentityPaths {
public:
    // `rows` is borrowed. Throws CZvInvalidParamException for a path that is none.
    explicit IdentityPaths(GrammarRows const& rows);
    IdentityPaths(IdentityPaths const&) = delete;
    IdentityPaths& operator=(IdentityPaths const&) = delete;
    ~IdentityPaths();

private:
    friend class IdentityWalk;
    struct Paths;
    GrammarRows const& m_rows;
    std::vector<Paths> m_paths; // one for each row of `identities`
};

// One walk over a document: the elements in document order, each with its attributes and, at its end, its
// value. Takes time and memory in proportion to what the selectors and fields select.
class IdentityWalk {
public:
    explicit IdentityWalk(IdentityPaths const& paths);
    IdentityWalk(IdentityWalk const&) = delete;
    IdentityWalk& operator=(IdentityWalk const&) = delete;
    ~IdentityWalk();

    // Whether any constraint is in force: otherwise nothing but EnterElement and LeaveElement need be called.
    bool IsActive() const noexcept;

    // `identities` are those of the element's declaration, an empty range for none.
    void EnterElement(CXmlElement const& element, Range identities);
    // Directly behind EnterElement, for each attribute, also one that is there by its default. `value` is
    // null if it is at fault itself; messages show `text`.
    void AddAttribute(std::string_view name, std::string_view ns, SimpleValue const* value,
                      std::string_view text);
    // Whether the value of the open element is asked for.
    bool WantsValue() const noexcept;
    // `value` is null for a nilled element, and where there is none. A field may select no element that has
    // no simple type. `faults` gets a message for each constraint that turns out not to hold.
    void LeaveElement(SimpleValue const* value, std::string_view text, bool hasSimpleType, bool isNillable,
                      std::vector<IdentityFault>& faults);

private:
    struct State;
    std::unique_ptr<State> m_state;
};

} // namespace ZvXmlLib16::grammar
