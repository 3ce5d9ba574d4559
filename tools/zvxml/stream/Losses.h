// What a form has no place for, and is left out if the user says so.
#pragma once

#include "Events.h"

#include <array>
#include <cstdint>
#include <string>

namespace zvxml {

enum class Loss { kComment, kInstruction, kType };

class Losses {
public:
    // `form` is for messages: "JSON".
    Losses(Source const& source, std::string form, bool keepsGoing)
        : m_source(source), m_form(std::move(form)), m_keepsGoing(keepsGoing) {}

    // Takes the counts of another one for the same form.
    void Take(Losses const& other) { m_counts = other.m_counts; }
    // Counts one, or throws DocumentError.
    void Add(Loss loss);
    // A line for each kind on standard error.
    void Tell(std::string const& file) const;

private:
    Source const& m_source;
    std::string const m_form;
    bool const m_keepsGoing;
    std::array<std::uint64_t, 3> m_counts{};
};

} // namespace zvxml
