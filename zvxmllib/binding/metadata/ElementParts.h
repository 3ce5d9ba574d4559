// What members of the element family hold beyond the base.
#pragma once

#include "zvxmllib/binding/XmlObjectBase.h" // its smart pointers release one
#include "zvxmllib/binding/metadata/ElementInfoBase.h"

#include <string>

namespace ZvXmlLib16Data {

// A generated class, or a model group where the element type is Pseudo.
struct ClassPart {
    XmlElementType elementType;
    ClassFactory factory;
    int classId;

    bool IsGroup() const noexcept { return elementType == XmlElementType_Pseudo; }
    CSmartPtr<CXmlObjectBase> Make(std::string const& name) const { return factory(classId, name.c_str()); }
};

// An abstract class, found by what the element names.
struct AbstractClassPart {
    XmlElementType elementType;
    ElementFactory factory;

    bool IsGroup() const noexcept { return elementType == XmlElementType_Pseudo; }
};

// An untyped element or a wildcard, with its namespace rule.
struct UntypedPart {
    UntypedPart(char const* allowed, char const* target)
        : allowedNamespaces(allowed == nullptr ? "" : allowed),
          targetNamespace(target == nullptr ? "" : target) {}

    std::string allowedNamespaces;
    std::string targetNamespace;
};

} // namespace ZvXmlLib16Data
