#include "schema/diagnostics/Diagnostics.h"

#include <algorithm>
#include <tuple>
#include <utility>

namespace ZvXmlLib16::schema {

void Diagnostics::AddFile(std::string file) {
    if (OrderOf(file) > m_files.size())
        m_files.push_back(std::move(file));
}

void Diagnostics::Error(Position position, std::string text) {
    ++m_errors;
    m_list.push_back({Severity::kError, std::move(position), std::move(text), {}});
}

void Diagnostics::Warning(Position position, std::string text, std::string_view name) {
    m_list.push_back({Severity::kWarning, std::move(position), std::move(text), std::string(name)});
}

// 0 for no file, then from 1; one more than the count of files for an unknown one.
std::size_t Diagnostics::OrderOf(std::string const& file) const {
    if (file.empty())
        return 0;
    auto const found = std::find(m_files.begin(), m_files.end(), file);
    return static_cast<std::size_t>(found - m_files.begin()) + 1;
}

std::vector<Diagnostic> Diagnostics::GetSorted() const {
    std::vector<Diagnostic> sorted = m_list;
    auto const placeOf = [this](Diagnostic const& diagnostic) {
        Position const& at = diagnostic.position;
        return std::make_tuple(OrderOf(at.file), at.line, at.column);
    };
    std::stable_sort(sorted.begin(), sorted.end(),
                     [&placeOf](Diagnostic const& left, Diagnostic const& right) {
                         return placeOf(left) < placeOf(right);
                     });
    auto const isSame = [&placeOf](Diagnostic const& left, Diagnostic const& right) {
        return placeOf(left) == placeOf(right) && left.text == right.text;
    };
    sorted.erase(std::unique(sorted.begin(), sorted.end(), isSame), sorted.end());
    return sorted;
}

std::string Diagnostics::Format(Diagnostic const& diagnostic) {
    std::string line = diagnostic.position.file;
    if (diagnostic.position.line != 0)
        line +=
            ":" + std::to_string(diagnostic.position.line) + ":" + std::to_string(diagnostic.position.column);
    if (!line.empty())
        line += ": ";
    line += diagnostic.severity == Severity::kError ? "error: " : "warning: ";
    line += diagnostic.text;
    if (!diagnostic.name.empty())
        line += " [-W" + diagnostic.name + "]";
    return line;
}

} // namespace ZvXmlLib16::schema
