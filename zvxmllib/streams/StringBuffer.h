// CStringBuffer, a text accumulator that appends without moving what it holds.
#pragma once

#include "zvxmllib/foundation/InstanceMonitor.h"
#include "zvxmllib/platform/MemoryBlock.h"

#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace ZvXmlLib16 {

// A list of blocks of text. Belongs to one thread. More than 4 GiB of text throws std::bad_alloc.
class CStringBuffer : public CInstanceMonitor {
public:
    CStringBuffer();
    // The capacity of a block is one less than `initialSize`, and at least 1.
    explicit CStringBuffer(std::uint32_t initialSize);
    CStringBuffer(CStringBuffer const&) = delete;
    CStringBuffer& operator=(CStringBuffer const&) = delete;
    ~CStringBuffer() override;

    // Frees all blocks.
    void Clear();
    // Empties the buffer; a single block is kept.
    void Reset();

    // Up to the first NUL.
    void Append(std::string const& text) { Append(text.c_str()); }
    void Append(char const* text) { Append(text, std::strlen(text)); }
    // All `length` bytes.
    void Append(char const* text, std::size_t length) {
        if (length - 1 >= m_LastBlock_SizeOf - m_LastBlock_DataIn) // a length of 0 wraps
            return AppendAcrossBlocks(text, length);
        std::memcpy(m_lastBlock + m_LastBlock_DataIn, text, length);
        m_LastBlock_DataIn += length;
        m_dwTotalBufferLen += length;
    }
    void Append(char c) {
        if (m_LastBlock_DataIn == m_LastBlock_SizeOf)
            return AppendAcrossBlocks(&c, 1);
        m_lastBlock[m_LastBlock_DataIn++] = c;
        ++m_dwTotalBufferLen;
    }
    // Where the next `length` bytes go if they are put there directly; null if they do not fit in one piece.
    // Take says how many it has become.
    char* GetRoom(std::size_t length) noexcept {
        return length <= m_LastBlock_SizeOf - m_LastBlock_DataIn ? m_lastBlock + m_LastBlock_DataIn : nullptr;
    }
    void Take(std::size_t length) noexcept {
        m_LastBlock_DataIn += length;
        m_dwTotalBufferLen += length;
    }
    void Assign(char const* text);

    // The whole text as one NUL-terminated array, owned by the buffer and valid until the next change.
    // Joins the blocks once.
    char const* GetBuffer();

    std::size_t GetLength() const noexcept { return m_dwTotalBufferLen; }

    // Calls `visit(std::string_view)` for each block in order, without joining them.
    template <class Visitor>
    void ForEachBlock(Visitor visit) const {
        for (std::size_t i = 0; i < m_blocks.size(); ++i) {
            bool const isLast = i + 1 == m_blocks.size();
            visit(std::string_view(m_blocks[i].data.get(), isLast ? m_LastBlock_DataIn : m_blocks[i].size));
        }
    }

    // The same, and each block is freed after its visit, so that nothing is in memory twice. The buffer is
    // empty afterwards.
    template <class Visitor>
    void TakeBlocks(Visitor visit) {
        if (m_blocks.size() > 1) {
            std::vector<Block> blocks = std::move(m_blocks);
            std::size_t const last = m_LastBlock_DataIn;
            Clear();
            for (Block& block : blocks) {
                visit(std::string_view(block.data.get(), &block == &blocks.back() ? last : block.size));
                block.data.reset();
            }
        } else {
            ForEachBlock(visit);
            Reset();
        }
    }

private:
    struct Block {
        platform::ReturnedBlock data; // size + 1 bytes, the last one for the NUL of GetBuffer
        std::size_t size = 0;
    };

    void AppendAcrossBlocks(char const* text, std::size_t length);
    void AddBlock(std::size_t wanted);

    std::vector<Block> m_blocks; // all but the last are full
    std::size_t m_blockSize;
    bool m_blocksGrow; // as the text does, so that a large one has few blocks
    std::size_t m_LastBlock_DataIn = 0;
    std::size_t m_LastBlock_SizeOf = 0;
    char* m_lastBlock = nullptr;
    std::size_t m_dwTotalBufferLen = 0;
};

} // namespace ZvXmlLib16
