// What a form has no place for, and is left out if the user says so.
#include "Losses.h"

#include "../Messages.h"

namespace zvxml {

namespace {

struct Words {
    char const* one;
    char const* several;
};
constexpr Words kWords[] = {{"comment", "comments"},
                            {"processing instruction", "processing instructions"},
                            {"document type", "document types"}};

} // namespace

void Losses::Add(Loss loss) {
    auto const kind = static_cast<std::size_t>(loss);
    if (!m_keepsGoing)
        throw DocumentError(m_form + " has no place for a " + kWords[kind].one +
                                "; --keep-going leaves it out",
                            m_source.GetPlace());
    ++m_counts[kind];
}

void Losses::Tell(std::string const& file) const {
    for (std::size_t kind = 0; kind < m_counts.size(); ++kind) {
        std::uint64_t const count = m_counts[kind];
        if (count != 0)
            TellWarning(file + ": " + std::to_string(count) + ' ' +
                        (count == 1 ? kWords[kind].one : kWords[kind].several) + " left out, for which " +
                        m_form + " has no place");
    }
}

} // namespace zvxml
