#include "zvxmllib/document/NodePositions.h"

#include "zvxmllib/document/XmlAttribute.h"
#include "zvxmllib/document/XmlDocument.h"
#include "zvxmllib/document/XmlElement.h"
#include "zvxmllib/foundation/Exceptions.h"

namespace ZvXmlLib16 {

// A node in the storage of one that is gone takes its place here, too.
void NodePositions::AddElement(CXmlElement const* element) {
    Node& node = m_nodes[element];
    node.position = m_source->GetPosition();
    node.attributes.clear();
}

void NodePositions::AddAttribute(CXmlElement const* element) {
    m_nodes[element].attributes.push_back(m_source->GetPosition());
}

void NodePositions::SetAttribute(CXmlElement const* element, std::size_t index,
                                 detail::NodePosition const& position) {
    m_nodes[element].attributes[index] = position;
}

detail::NodePosition NodePositions::Find(CXmlElement const& element) const {
    auto const found = m_nodes.find(&element);
    return found == m_nodes.end() ? detail::NodePosition() : found->second.position;
}

detail::NodePosition NodePositions::Find(CXmlElement const& element, std::size_t attribute) const {
    auto const found = m_nodes.find(&element);
    return found == m_nodes.end() || attribute >= found->second.attributes.size()
               ? detail::NodePosition()
               : found->second.attributes[attribute];
}

namespace {

template <class Node>
void Locate(CZvException& failure, Node const& node) {
    if (!failure.HasPosition())
        failure.SetPosition(node.GetLine(), node.GetColumn());
}

} // namespace

void LocateFailure(CZvException& failure, CXmlElement const& node) {
    Locate(failure, node);
}

void LocateFailure(CZvException& failure, CXmlAttribute const& node) {
    Locate(failure, node);
}

void LocateFailureByPath(CZvException& failure, CXmlElement const& node) {
    CXmlElement const& root = *node.GetDocument()->GetDocumentElement();
    if (failure.HasPosition() || failure.GetPath().empty() || root.GetColumn() == 0)
        return;
    std::string const path = failure.GetPath();
    std::size_t const at = path.find("@") == std::string::npos ? std::string::npos : path.rfind('/');
    CXmlElement const* const element = root.FindByPath(std::string_view(path).substr(0, at));
    if (element == nullptr)
        return;
    for (std::size_t i = 0; at != std::string::npos && i < element->GetAttributeCount(); ++i) {
        if (element->GetAttributeAt(i)->GetXPath() == path)
            return Locate(failure, *element->GetAttributeAt(i));
    }
    Locate(failure, *element);
}

} // namespace ZvXmlLib16
