// What the schema tools tell about the schemas they read.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace ZvXmlLib16::schema {

// The names of all warnings.
inline constexpr std::string_view kMissingSchema = "missing-schema"; // a place that leads nowhere
inline constexpr std::string_view kRenamed = "renamed";              // a name that was taken
inline constexpr std::string_view kWarningNames[] = {kMissingSchema, kRenamed};

// A place in a schema document. Line and column count from 1; 0 where they are not known.
struct Position {
    std::string file;
    unsigned line = 0;
    unsigned column = 0;
};

enum class Severity { kError, kWarning };

struct Diagnostic {
    Severity severity;
    Position position;
    std::string text;
    std::string name; // of a warning, as -W takes it
};

// The errors and warnings of one run.
class Diagnostics {
public:
    // Files are told in the order in which they are registered; positions without a file come first.
    void AddFile(std::string file);

    void Error(Position position, std::string text);
    void Warning(Position position, std::string text, std::string_view name);

    bool HasErrors() const noexcept { return m_errors != 0; }
    // In source order; equal ones once.
    std::vector<Diagnostic> GetSorted() const;
    // FILE:LINE:COLUMN: error: TEXT, or FILE:LINE:COLUMN: warning: TEXT [-Wname].
    static std::string Format(Diagnostic const& diagnostic);

private:
    std::size_t OrderOf(std::string const& file) const;

    std::vector<std::string> m_files;
    std::vector<Diagnostic> m_list;
    std::size_t m_errors = 0;
};

} // namespace ZvXmlLib16::schema
