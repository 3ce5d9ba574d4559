// CClassfactoryBase, what generated factories derive from: the type that an xsi:type attribute names.
#pragma once

#include "zvxmllib/foundation/Forward.h"
#include "zvxmllib/platform/Api.h"

#include <string>

namespace ZvXmlLib16 {

class ZV_API CClassfactoryBase {
public:
    virtual ~CClassfactoryBase();

protected:
    CClassfactoryBase() = default;
    CClassfactoryBase(CClassfactoryBase const&) = default;
    CClassfactoryBase& operator=(CClassfactoryBase const&) = default;

    // The local part of xsi:type: what stands behind its first colon. Empty without the attribute.
    static std::string GetElementType(CXmlElement* element);
    // The namespace of its prefix, by the last declaration of the prefix in the document; the namespace of
    // the element where there is no prefix or nobody declared it.
    static std::string GetElementTypeNamespaceUri(CXmlElement* element);
};

} // namespace ZvXmlLib16
