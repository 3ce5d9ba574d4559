#include "zvxmllib/json/JsonPlaces.h"

#include <algorithm>
#include <iterator>

namespace ZvXmlLib16::detail {

// As the XML parser counts them: characters, here from 1.
void JsonPlaces::CountColumns(std::string_view xml) noexcept {
    std::size_t offset = 0;
    std::uint64_t column = 1;
    for (Node& node : m_nodes) {
        for (; offset < node.column; ++offset)
            column += (static_cast<unsigned char>(xml[offset]) & 0xC0U) != 0x80U ? 1U : 0U;
        node.column = column;
    }
}

NodePosition JsonPlaces::Find(std::uint64_t column) const noexcept {
    auto const behind = std::upper_bound(m_nodes.begin(), m_nodes.end(), column,
                                         [](std::uint64_t c, Node const& node) { return c < node.column; });
    return behind == m_nodes.begin() ? NodePosition() : std::prev(behind)->place;
}

} // namespace ZvXmlLib16::detail
