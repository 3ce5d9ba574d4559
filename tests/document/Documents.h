// Helpers of the document tests.
#pragma once

#include "tests/support/MessageOf.h"
#include "zvxmllib/document/XmlAttribute.h"
#include "zvxmllib/document/XmlDocument.h"
#include "zvxmllib/document/XmlElement.h"

#include <gmock/gmock.h>

#include <string>

namespace ZvXmlLib16 {

// The element at the end of a path of child positions from the root: {1, 0} is the first child of the
// second child.
inline CXmlElement& At(CXmlDocument& document, std::initializer_list<int> positions) {
    CXmlElement* element = document.GetDocumentElement();
    for (int position : positions) {
        element = element->GetFirstElement();
        for (; position > 0; --position)
            element = element->GetNextSiblingElement();
    }
    return *element;
}

inline int CountChildren(CXmlElement const& element) {
    int count = 0;
    for (CXmlElement const* child = element.GetFirstElement(); child != nullptr;
         child = child->GetNextSiblingElement())
        ++count;
    return count;
}

template <class Exception = CZvException, class Action>
std::string MessageOf(Action action) {
    return ::MessageOf<Exception>(action);
}

} // namespace ZvXmlLib16
