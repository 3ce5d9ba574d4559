// The progress of reading a large document: one line on the terminal, rewritten in place.
#include "Progress.h"

#include <cstdio>

namespace zvxml {

namespace {

constexpr std::uintmax_t kSmallestShown = std::uintmax_t{32} << 20U; // bytes
constexpr std::uintmax_t kMegabyte = 1000000;
constexpr std::uint64_t kElementsBetweenLooks = 16384;
constexpr std::chrono::milliseconds kBetweenLines{200};

} // namespace

Progress* Progress::s_reading = nullptr;

bool Progress::IsShownFor(std::uintmax_t bytes) const noexcept {
    return m_isWatched && bytes >= kSmallestShown;
}

void Progress::StartReading(std::string const& file) {
    m_file = file;
    m_elements = 0;
    m_isShown = true;
    m_lastShown = std::chrono::steady_clock::now();
    s_reading = this;
    Show("reading");
}

void Progress::StartReading(std::string const& file, std::uintmax_t size) {
    StartReading(file);
    m_size = size;
}

void Progress::Tick(std::uintmax_t bytes) {
    if (m_isShown && IsTimeToShow())
        Show(std::to_string(bytes / kMegabyte) + " of " + std::to_string(m_size / kMegabyte) + " MB read");
}

bool Progress::IsTimeToShow() {
    auto const now = std::chrono::steady_clock::now();
    bool const isTime = now - m_lastShown >= kBetweenLines;
    if (isTime)
        m_lastShown = now;
    return isTime;
}

void Progress::StartStep(char const* step) {
    if (m_isShown)
        Show(std::to_string(m_elements) + " elements read, " + step);
}

void Progress::Finish() noexcept {
    if (s_reading == this)
        s_reading = nullptr;
    if (m_isShown)
        std::fputs("\r\033[K", stderr);
    m_isShown = false;
}

bool Progress::CountElement(ZvXmlLib16::CXmlElement*) {
    if (s_reading == nullptr)
        return false;
    Progress& progress = *s_reading;
    if (++progress.m_elements % kElementsBetweenLooks == 0 && progress.IsTimeToShow())
        progress.Show(std::to_string(progress.m_elements) + " elements read");
    return false;
}

void Progress::Show(std::string const& state) const {
    std::fprintf(stderr, "\r\033[K%s: %s", m_file.c_str(), state.c_str());
    std::fflush(stderr);
}

} // namespace zvxml
