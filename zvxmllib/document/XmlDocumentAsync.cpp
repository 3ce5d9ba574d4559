// Loading by chunks: one is parsed while the next is being read.
#include "zvxmllib/document/ExpatReader.h"
#include "zvxmllib/document/Failures.h"
#include "zvxmllib/document/XmlDocument.h"
#include "zvxmllib/document/XmlTree.h"
#include "zvxmllib/platform/OverlappedFile.h"

#include <utility>
#include <vector>

namespace ZvXmlLib16 {

namespace {

constexpr std::size_t kChunkSize = 0x20000;

} // namespace

namespace detail {

// A file and two buffers: the chunk that has been read, and the room that the next one is being read into.
class ChunkedFile {
public:
    explicit ChunkedFile(char const* fileName) : m_chunk(kChunkSize), m_spare(kChunkSize) {
        if (!m_file.OpenForReading(fileName))
            FailOpen(fileName, m_file.Error());
        StartReading();
        if (!Fetch())
            FailRead(fileName, m_file.Error());
    }

    unsigned char const* GetChunk() const noexcept { return m_chunk.data(); }
    std::size_t GetLength() const noexcept { return m_length; }
    bool IsLast() const noexcept { return m_length < kChunkSize; }

    void StartReading() { m_file.StartRead(m_spare.data(), kChunkSize, m_position); }
    // Waits for what StartReading began; then that is the chunk.
    void Next() {
        if (!Fetch())
            FailReadChunk(m_file.Error());
    }

private:
    bool Fetch() {
        if (!m_file.Wait(m_length))
            return false;
        m_position += m_length;
        m_chunk.swap(m_spare);
        return true;
    }

    std::vector<unsigned char> m_chunk;
    std::vector<unsigned char> m_spare;
    std::size_t m_length = 0;        // of the chunk
    std::uint64_t m_position = 0;    // of what is read next
    platform::OverlappedFile m_file; // goes first, and with it the read in flight
};

} // namespace detail

void CXmlDocument::LoadOverlapped(char const* fileName) {
    detail::ChunkedFile file(fileName);
    try {
        ParseOverlapped(file);
    } catch (...) {
        Cleanup();
        throw;
    }
}

void CXmlDocument::ParseOverlapped(detail::ChunkedFile& file) {
    MakeTree();
    CExpatReader reader(*this);
    reader.Init();
    for (; !file.IsLast(); file.Next()) {
        file.StartReading();
        reader.Parse(file.GetChunk(), file.GetLength(), false);
    }
    reader.Parse(file.GetChunk(), file.GetLength(), true);
    if (GetDocumentElement() == nullptr)
        FailNoElement();
}

} // namespace ZvXmlLib16
