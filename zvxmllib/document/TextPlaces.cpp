#include "zvxmllib/document/TextPlaces.h"

#include "zvxmllib/values/text/Whitespace.h"

#include <algorithm>

namespace ZvXmlLib16::detail {

void TextPlaces::AddElement(CXmlElement const* element) {
    if (m_depth != 0) {
        Open& parent = m_open[m_depth - 1];
        ++parent.children;
        parent.hasTextAhead = parent.hasText;
    }
    if (m_depth == m_open.size())
        m_open.emplace_back();
    Open& open = m_open[m_depth++];
    open.element = element;
    open.children = 0;
    open.places.clear();
    open.hasText = open.hasTextAhead = false;
    open.firstEntry = m_entries.size();
}

void TextPlaces::AddText(std::string_view text) {
    Open& open = m_open[m_depth - 1];
    open.hasText = open.hasText || !std::all_of(text.begin(), text.end(), CWhitespaceUtils::IsWhiteSpace);
    AddTextPlace(open.places, open.children, text.size());
}

void TextPlaces::EndElement() {
    Open const& open = m_open[--m_depth];
    if (open.places.empty() || open.places.front().children == open.children)
        return;
    m_entries.push_back({open.element, m_places.size(), open.places.size(), open.hasTextAhead});
    m_places.insert(m_places.end(), open.places.begin(), open.places.end());
}

void TextPlaces::RemoveLastElement() {
    if (m_depth != 0)
        --m_open[m_depth - 1].children;
    std::size_t const first = m_open[m_depth].firstEntry;
    for (; m_indexed > first; --m_indexed)
        m_index.erase(m_entries[m_indexed - 1].element);
    if (first == m_entries.size())
        return;
    m_places.resize(m_entries[first].firstPlace);
    m_entries.resize(first);
}

TextPlaces::Entry const* TextPlaces::Find(CXmlElement const& element) const {
    for (; m_indexed < m_entries.size(); ++m_indexed)
        m_index[m_entries[m_indexed].element] = m_indexed;
    auto const found = m_index.find(&element);
    return found == m_index.end() ? nullptr : &m_entries[found->second];
}

std::vector<TextPlace> TextPlaces::Of(CXmlElement const& element) const {
    Entry const* const entry = Find(element);
    if (entry == nullptr)
        return {};
    TextPlace const* const first = m_places.data() + entry->firstPlace;
    return {first, first + entry->places};
}

bool TextPlaces::HasTextAheadOfChild(CXmlElement const& element) const {
    Entry const* const entry = Find(element);
    return entry != nullptr && entry->hasTextAhead;
}

} // namespace ZvXmlLib16::detail
