// The progress of reading a large document: one line on the terminal, rewritten in place.
#include "Progress.h"

#include <cstdio>

namespace zvxml {

namespace {

constexpr std::uintmax_t kSmallestShown = std::uintmax_t{32} << 20U; // bytes
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
    if (++progress.m_elements % kElementsBetweenLooks == 0) {
        auto const now = std::chrono::steady_clock::now();
        if (now - progress.m_lastShown >= kBetweenLines) {
            progress.m_lastShown = now;
            progress.Show(std::to_string(progress.m_elements) + " elements read");
        }
    }
    return false;
}

void Progress::Show(std::string const& state) const {
    std::fprintf(stderr, "\r\033[K%s: %s", m_file.c_str(), state.c_str());
    std::fflush(stderr);
}

} // namespace zvxml
