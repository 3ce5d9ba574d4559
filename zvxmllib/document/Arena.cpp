#include "zvxmllib/document/Arena.h"

#include <algorithm>

namespace ZvXmlLib16 {

void Arena::Enter(std::size_t chunk) noexcept {
    m_current = chunk;
    m_top = m_chunks[chunk].data.get();
    m_end = m_top + m_chunks[chunk].size;
}

char* Arena::AllocateInNextChunk(std::size_t size) {
    // Chunks after the current one are left over from before a Rewind; one too small for this request is
    // skipped until the next Rewind.
    std::size_t next = m_chunks.empty() ? 0 : m_current + 1;
    while (next < m_chunks.size() && m_chunks[next].size < size)
        ++next;
    if (next == m_chunks.size()) {
        std::size_t const chunkSize =
            std::max(size, std::clamp(m_capacity / 4, m_smallestChunk, m_largestChunk));
        m_chunks.push_back({platform::AllocateBlock(chunkSize), chunkSize});
        m_capacity += chunkSize;
    }
    Enter(next);
    char* const result = m_top; // the start of a chunk is aligned for every type
    m_top += size;
    return result;
}

void Arena::Rewind(Mark const& mark) noexcept {
    if (m_chunks.empty())
        return;
    // A mark from before the first allocation stands for the start of the first chunk.
    Enter(mark.chunk);
    if (mark.top != nullptr)
        m_top = mark.top;
}

} // namespace ZvXmlLib16
