// NodePositions, where the nodes of a document stand in what it was read from.
#pragma once

#include "zvxmllib/foundation/Exceptions.h"
#include "zvxmllib/foundation/Forward.h"

#include <cstddef>
#include <cstdint>
#include <unordered_map>
#include <vector>

namespace ZvXmlLib16 {

namespace detail {

// As CZvException tells it: 0 for none.
struct NodePosition {
    std::uint64_t line = 0;
    std::uint64_t column = 0;
};

} // namespace detail

// What a reader derives from that knows where it is.
class IPositionSource {
public:
    virtual detail::NodePosition GetPosition() const = 0;

protected:
    ~IPositionSource() = default;
};

// Beside the tree, which tells it of each node while the source reads.
class NodePositions {
public:
    // `source` is borrowed, and asked while nodes are added.
    explicit NodePositions(IPositionSource const& source) noexcept : m_source(&source) {}

    void AddElement(CXmlElement const* element);
    void AddAttribute(CXmlElement const* element);
    // In place of the source's, for the attribute of this index.
    void SetAttribute(CXmlElement const* element, std::size_t index, detail::NodePosition const& position);

    // Puts what `move` makes of each position in its place.
    template <class Move>
    void MoveAll(Move move) {
        for (auto& [element, node] : m_nodes) {
            node.position = move(node.position);
            for (detail::NodePosition& attribute : node.attributes)
                attribute = move(attribute);
        }
    }

    detail::NodePosition Find(CXmlElement const& element) const;
    detail::NodePosition Find(CXmlElement const& element, std::size_t attribute) const;

private:
    struct Node {
        detail::NodePosition position;
        std::vector<detail::NodePosition> attributes;
    };

    IPositionSource const* m_source;
    std::unordered_map<CXmlElement const*, Node> m_nodes;
};

// Gives a failure that has no position that of the node, if the document remembers it.
void LocateFailure(CZvException& failure, CXmlElement const& node);
void LocateFailure(CZvException& failure, CXmlAttribute const& node);
// The same for the node of the failure's path, in the document that this one is of.
void LocateFailureByPath(CZvException& failure, CXmlElement const& node);

} // namespace ZvXmlLib16
