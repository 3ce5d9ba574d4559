// CStringBuffer, a text accumulator that appends without moving what it holds.
#include "zvxmllib/streams/StringBuffer.h"

#include "zvxmllib/foundation/Assert.h"

#include <algorithm>
#include <limits>
#include <new>

namespace ZvXmlLib16 {

namespace {

constexpr std::size_t kDefaultBlockSize = 4095;
constexpr std::size_t kGreatestBlockSize = platform::kReturnedSize - 1; // of a buffer whose blocks grow
constexpr std::size_t kGreatestLength = std::numeric_limits<std::uint32_t>::max();

CInstanceMonitor::Registration registration("CStringBuffer");

} // namespace

CStringBuffer::CStringBuffer()
    : CInstanceMonitor(registration), m_blockSize(kDefaultBlockSize), m_blocksGrow(true) {}

CStringBuffer::CStringBuffer(std::uint32_t initialSize)
    : CInstanceMonitor(registration), m_blockSize(initialSize > 2 ? initialSize - 1 : 1),
      m_blocksGrow(false) {}

CStringBuffer::~CStringBuffer() = default;

void CStringBuffer::Clear() {
    m_blocks.clear();
    m_LastBlock_DataIn = 0;
    m_LastBlock_SizeOf = 0;
    m_lastBlock = nullptr;
    m_dwTotalBufferLen = 0;
}

void CStringBuffer::Reset() {
    if (m_blocks.size() != 1)
        return Clear();
    m_LastBlock_DataIn = 0;
    m_dwTotalBufferLen = 0;
}

void CStringBuffer::Assign(char const* text) {
    Clear();
    Append(text);
}

void CStringBuffer::AppendAcrossBlocks(char const* text, std::size_t length) {
    if (length > kGreatestLength - m_dwTotalBufferLen)
        throw std::bad_alloc();
    while (length > 0) {
        if (m_LastBlock_SizeOf == m_LastBlock_DataIn)
            AddBlock(length);
        std::size_t const part = std::min(length, m_LastBlock_SizeOf - m_LastBlock_DataIn);
        std::memcpy(m_lastBlock + m_LastBlock_DataIn, text, part);
        m_LastBlock_DataIn += part;
        m_dwTotalBufferLen += part;
        text += part;
        length -= part;
    }
}

// All blocks together never exceed the greatest length, so filling a block needs no test.
void CStringBuffer::AddBlock(std::size_t wanted) {
    ZV_ASSERT(m_LastBlock_SizeOf == m_LastBlock_DataIn);
    std::size_t capacity = m_blockSize;
    if (m_blocksGrow)
        capacity = std::max({capacity, wanted, std::min(m_dwTotalBufferLen / 2, kGreatestBlockSize)});
    capacity = std::min(capacity, kGreatestLength - m_dwTotalBufferLen);
    m_blocks.push_back(Block{platform::AllocateReturnedBlock(capacity + 1), capacity});
    m_lastBlock = m_blocks.back().data.get();
    m_LastBlock_SizeOf = capacity;
    m_LastBlock_DataIn = 0;
}

char const* CStringBuffer::GetBuffer() {
    if (m_blocks.empty())
        return "";
    if (m_blocks.size() > 1) {
        std::size_t const length = m_dwTotalBufferLen;
        Block joined{platform::AllocateReturnedBlock(length + 1), length};
        std::size_t dwOutputPos = 0;
        TakeBlocks([&](std::string_view block) {
            std::memcpy(joined.data.get() + dwOutputPos, block.data(), block.size());
            dwOutputPos += block.size();
        });
        ZV_ASSERT(dwOutputPos == length);
        m_blocks.push_back(std::move(joined));
        m_lastBlock = m_blocks.front().data.get();
        m_LastBlock_SizeOf = m_LastBlock_DataIn = m_dwTotalBufferLen = length;
    }
    m_lastBlock[m_LastBlock_DataIn] = '\0';
    return m_lastBlock;
}

} // namespace ZvXmlLib16
