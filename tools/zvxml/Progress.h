// The progress of reading a large document, on standard error.
#pragma once

#include <chrono>
#include <cstdint>
#include <string>

namespace ZvXmlLib16 {
class CXmlElement;
}

namespace zvxml {

// Silent for small inputs, and if standard error is not a terminal.
class Progress {
public:
    // `isWatched`: standard error is a terminal.
    explicit Progress(bool isWatched) noexcept : m_isWatched(isWatched) {}
    Progress(Progress const&) = delete;
    Progress& operator=(Progress const&) = delete;
    ~Progress() { Finish(); }

    // True if an input of this size is worth a report.
    bool IsShownFor(std::uintmax_t bytes) const noexcept;

    // From here on, CountElement counts for this object.
    void StartReading(std::string const& file);
    // Instead, Tick tells how much of `size` bytes is read.
    void StartReading(std::string const& file, std::uintmax_t size);
    void Tick(std::uintmax_t bytes);
    void StartStep(char const* step);
    // Erases the line.
    void Finish() noexcept;

    // For the document: called at the end of each element, which stays in the tree.
    static bool CountElement(ZvXmlLib16::CXmlElement* element);

private:
    bool IsTimeToShow();
    void Show(std::string const& state) const;

    bool m_isWatched;
    bool m_isShown = false;
    std::string m_file;
    std::uint64_t m_elements = 0;
    std::uintmax_t m_size = 0;
    std::chrono::steady_clock::time_point m_lastShown;

    static Progress* s_reading; // the document calls a plain function
};

} // namespace zvxml
