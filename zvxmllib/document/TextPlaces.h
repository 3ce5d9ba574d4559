// TextPlaces, where the texts of a document stand between child elements.
#pragma once

#include "zvxmllib/document/TextPlace.h"
#include "zvxmllib/foundation/Forward.h"

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace ZvXmlLib16::detail {

// Beside the tree, for the readers of strict contexts, since the tree joins the texts of an element. Keeps
// something for elements that have text ahead of a child, white space or other. Belongs to the thread of the
// document.
class TextPlaces {
public:
    void AddElement(CXmlElement const* element);
    // To the innermost open element.
    void AddText(std::string_view text);
    void EndElement();
    // Forgets the element that was closed last, and what is in it. Only directly behind its EndElement.
    void RemoveLastElement();

    // Empty if all the text of a closed element stands behind its children.
    std::vector<TextPlace> Of(CXmlElement const& element) const;
    // Whether any of it but white space stands ahead of a child.
    bool HasTextAheadOfChild(CXmlElement const& element) const;

private:
    struct Open {
        CXmlElement const* element = nullptr;
        std::uint32_t children = 0;
        std::vector<TextPlace> places;
        bool hasText = false;      // that is not white space
        bool hasTextAhead = false; // likewise, of a child
        std::size_t firstEntry = 0;
    };
    struct Entry {
        CXmlElement const* element;
        std::size_t firstPlace;
        std::size_t places;
        bool hasTextAhead;
    };
    Entry const* Find(CXmlElement const& element) const;

    std::vector<Open> m_open; // the first m_depth; the others keep their storage
    std::size_t m_depth = 0;
    std::vector<Entry> m_entries;
    std::vector<TextPlace> m_places;
    // Made when somebody asks: those before m_indexed.
    mutable std::unordered_map<CXmlElement const*, std::size_t> m_index;
    mutable std::size_t m_indexed = 0;
};

} // namespace ZvXmlLib16::detail
