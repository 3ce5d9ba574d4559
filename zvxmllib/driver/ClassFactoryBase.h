// CClassfactoryBase, the base of generated factories, which finds the type that an xsi:type attribute names.
#pragma once

#include "zvxmllib/foundation/Forward.h"
#include "zvxmllib/platform/Api.h"

#include <string>

namespace ZvXmlLib16 {

// Static helpers for generated factories. Any thread may use them, each on documents of its own.
class ZV_API CClassfactoryBase {
public:
    virtual ~CClassfactoryBase();

protected:
    CClassfactoryBase() = default;
    CClassfactoryBase(CClassfactoryBase const&) = default;
    CClassfactoryBase& operator=(CClassfactoryBase const&) = default;

    // The local part of xsi:type: the text after its first colon. Empty without the attribute. In the
    // documents of strict contexts these two collapse the text and throw CZvValidationException for a prefix
    // that is not declared.
    static std::string GetElementType(CXmlElement* element);
    // The namespace of its prefix, by the last declaration of the prefix in the document; the namespace of
    // the element if there is no prefix or it is not declared. In the documents of strict contexts the scope
    // of the element counts, and without a prefix the default namespace.
    static std::string GetElementTypeNamespaceUri(CXmlElement* element);
};

} // namespace ZvXmlLib16
