// Loading by chunks: one is parsed while the next is being read.
#include "zvxmllib/context/SerializationContext.h"
#include "zvxmllib/document/ExpatReader.h"
#include "zvxmllib/document/Failures.h"
#include "zvxmllib/document/XmlDocument.h"
#include "zvxmllib/document/XmlTree.h"
#include "zvxmllib/platform/OverlappedFile.h"
#include "zvxmllib/streams/ZvZip.h"

#include <limits>
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

    // The whole file, from the first chunk on, which is still there.
    std::vector<unsigned char> TakeAll(char const* fileName) {
        std::vector<unsigned char> all;
        for (;;) {
            all.insert(all.end(), m_chunk.begin(), m_chunk.begin() + static_cast<std::ptrdiff_t>(m_length));
            if (all.size() > std::numeric_limits<std::uint32_t>::max())
                FailSize(fileName, platform::File::TooLargeError());
            if (IsLast())
                return all;
            StartReading();
            Next();
        }
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

// Of the beginning of a file: whether it is in one of the other forms.
bool CXmlDocument::IsNoText(unsigned char const* data, std::size_t length) noexcept {
    return CZvZip::IsCompressed(data, static_cast<std::uint32_t>(length)) || IsFastInfoset(data, length);
}

void CXmlDocument::LoadOverlapped(char const* fileName) {
    detail::ChunkedFile file(fileName);
    try {
        if (m_pContext->GetStrict() && IsNoText(file.GetChunk(), file.GetLength())) {
            std::vector<unsigned char> const whole = file.TakeAll(fileName);
            Parse(whole.data(), whole.size());
        } else {
            ParseOverlapped(file);
        }
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
