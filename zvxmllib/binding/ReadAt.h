// Reading of one node, with its place told in a failure, and the failure passed over where a context wants
// that.
#pragma once

#include "zvxmllib/context/SerializationContext.h"
#include "zvxmllib/document/NodePositions.h"
#include "zvxmllib/document/XmlAttribute.h"
#include "zvxmllib/document/XmlElement.h"
#include "zvxmllib/foundation/Exceptions.h"

namespace ZvXmlLib16 {

// The failure of an object that is read from `element`, as its reading throws it: with a path.
CZvException FailureOfElement(CXmlElement const& element, CZvException const& cause);

// Notes the failure of a value or attribute, which is in what `owner` is read from, or of `owner` itself.
// True if reading goes on without it. False, with nothing noted, where the context does not want that.
bool NoteFailure(CSerializationContext const& ctx, CZvException const& failure, std::string path,
                 CXmlElement const& owner);

// Calls `read`, whose failures concern the node in `owner`.
template <class Node, class Read>
void ReadAt(CSerializationContext const& ctx, Node const& node, CXmlElement const& owner, Read read) {
    try {
        read();
    } catch (CZvException& failure) {
        LocateFailure(failure, node);
        if (!ctx.GetFailureNotes().Takes() || !NoteFailure(ctx, failure, node.GetXPath(), owner))
            throw;
    }
}

} // namespace ZvXmlLib16
