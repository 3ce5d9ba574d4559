// Text or octets to a file or standard output, in pieces, through compression and another encoding.
#pragma once

#include "../OutputFormats.h"

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>

namespace zvxml {

// What stands between a sink and the file. Sinks append UTF-8, or octets. A file takes its name at Commit,
// and is as it was if that is not reached. Throws FileError.
class ByteOutput {
public:
    // "-" is standard output. Of the options the line end, the encoding and the compression count; neither
    // of the first two for octets.
    // `mayBeGivenUp`: what cannot be taken back, in a pipe for instance, waits for Commit in a temporary
    // file.
    ByteOutput(std::string const& file, WriteOptions const& options, bool isText, bool mayBeGivenUp = false);
    // Only counts the bytes; `count` is borrowed.
    ByteOutput(std::uint64_t& count, WriteOptions const& options, bool isText);
    ByteOutput(ByteOutput const&) = delete;
    ByteOutput& operator=(ByteOutput const&) = delete;
    ~ByteOutput();

    void Append(char c) {
        if (m_used == kRoom)
            Flush();
        m_room[m_used++] = c;
    }
    void Append(std::string_view text) {
        if (text.empty())
            return;
        if (text.size() > kRoom - m_used)
            return AppendLarge(text);
        std::memcpy(m_room.get() + m_used, text.data(), text.size());
        m_used += text.size();
    }
    void Commit();

private:
    struct Parts; // the stages and the file

    static constexpr std::size_t kRoom = std::size_t{1} << 16U;

    void Open(WriteOptions const& options, bool isText);
    void AppendLarge(std::string_view text);
    void Flush();

    std::unique_ptr<char[]> m_room;
    std::size_t m_used = 0;
    std::unique_ptr<Parts> m_parts;
};

} // namespace zvxml
