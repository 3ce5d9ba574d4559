// NodeText, a text of the parsed tree: kept in the pieces in which it arrived, joined on request.
#pragma once

#include "zvxmllib/platform/Api.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace ZvXmlLib16 {
class CXmlElement;
}

namespace ZvXmlLib16::detail {

class XmlTree;

// Text of an element or an attribute in one of three forms: one run of bytes in the tree's storage, a chain
// of such runs, or a string that was asked for. Most texts are a single run. Only XmlTree fills it.
class ZV_API NodeText {
public:
    // The whole text as a string, made at the first call and kept by `tree`. `element` is its element.
    std::string const& AsString(XmlTree& tree, CXmlElement const& element) const;

    // Appends the text to `target`, without keeping a joined copy.
    void AppendTo(std::string& target) const;

    // The text in place, or joined in `room` if it is in pieces. Valid as long as both are.
    std::string_view Read(std::string& room) const {
        if (m_form != Form::kChain)
            return View();
        room.clear();
        AppendTo(room);
        return room;
    }

    bool IsEmpty() const noexcept { return m_length == 0; }

    // Empty if the text is in pieces.
    std::string_view View() const noexcept {
        if (m_form == Form::kRun)
            return {m_run, m_length};
        return m_form == Form::kString ? std::string_view(*m_string) : std::string_view();
    }

    // Whether the owner keeps its text elsewhere. Nothing of the above may be asked then.
    bool IsElsewhere() const noexcept { return m_form == Form::kElsewhere; }
    void* Elsewhere() const noexcept { return m_elsewhere; }
    // A mark of the owner's, which is no part of the text.
    bool HasMark() const noexcept { return m_hasMark; }

private:
    friend class XmlTree;

    enum class Form : std::uint8_t { kRun, kChain, kString, kElsewhere };

    // One run of a chain, repeated `repeat` times, as white space between children often is.
    struct Piece {
        Piece* next;
        char const* chars;
        std::uint32_t length;
        std::uint32_t repeat;
    };

    union {
        char const* m_run = nullptr;
        Piece* m_chain;
        std::string* m_string;
        void* m_elsewhere;
    };
    std::uint32_t m_length = 0; // of the run; not 0 for a chain and a string
    Form m_form = Form::kRun;
    bool m_hasMark = false;
};

} // namespace ZvXmlLib16::detail
