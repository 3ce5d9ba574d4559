// JsonPlaces, where the nodes of an XML text stood in the JSON text that it was made of.
#pragma once

#include "zvxmllib/document/NodePositions.h"

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace ZvXmlLib16::detail {

// Filled while the XML is made, which is one line of UTF-8.
class JsonPlaces {
public:
    // `offset` of a node in the XML, in octets and ascending.
    void Add(std::size_t offset, NodePosition const& place) { m_nodes.push_back({offset, place}); }
    // When the XML is complete.
    void CountColumns(std::string_view xml) noexcept;
    // Of the node at this column of the XML, or the last one before it; nowhere for column 0.
    NodePosition Find(std::uint64_t column) const noexcept;

private:
    struct Node {
        std::uint64_t column; // an offset until the columns are counted
        NodePosition place;
    };

    std::vector<Node> m_nodes;
};

} // namespace ZvXmlLib16::detail
