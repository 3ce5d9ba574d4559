// The grammar of JSON (RFC 8259), read in pieces.
#pragma once

#include "ByteInput.h"
#include "Events.h"

#include <string>
#include <string_view>
#include <vector>

namespace zvxml {

// Texts are UTF-8 with characters that XML has, and valid during the call only.
class JsonReceiver {
public:
    JsonReceiver() = default;
    JsonReceiver(JsonReceiver const&) = delete;
    JsonReceiver& operator=(JsonReceiver const&) = delete;
    virtual ~JsonReceiver() = default;

    virtual void OnName(std::string const& name) = 0;
    // A string, a number as it is written, "true" or "false".
    virtual void OnText(std::string const& text) = 0;
    virtual void OnNull() = 0;
    virtual void StartObject() = 0;
    virtual void EndObject() = 0;
    virtual void StartArray() = 0;
    virtual void EndArray() = 0;
};

// Lists and objects nest at most 20000 deep. Memory holds the longest string and the open levels.
class JsonReader {
public:
    // Both are borrowed.
    JsonReader(ByteInput& input, JsonReceiver& receiver);

    // Call it once. Throws DocumentError with the place.
    void Read();
    // Where the last value or name begins.
    Place GetPlace() const noexcept { return m_place; }

private:
    static constexpr int kEnd = -1;

    int Peek() {
        if (m_at == m_piece.size() && !ReadPiece())
            return kEnd;
        return static_cast<unsigned char>(m_piece[m_at]);
    }
    int Take() {
        int const c = Peek();
        if (c != kEnd)
            ++m_at;
        return c;
    }
    bool ReadPiece();
    int PeekBehindSpace();
    void Note();
    void Expect(char c, char const* what);
    void ReadValue();
    void EndLevel();
    void ReadName();
    void ReadString();
    void ReadEscape();
    unsigned ReadUnit();
    void ReadBare();
    [[noreturn]] void Fail(std::string const& message);

    ByteInput& m_input;
    JsonReceiver& m_receiver;
    std::string_view m_piece;
    std::size_t m_at = 0;
    std::uint64_t m_before = 0; // octets ahead of the piece
    std::uint64_t m_line = 1;
    std::uint64_t m_lineStart = 0;
    Place m_place;
    std::vector<bool> m_isObject; // of the open levels
    bool m_hasItems = false;      // the innermost one
    std::string m_token;
};

} // namespace zvxml
