// The namespaces that XML, Namespaces in XML and XML Schema reserve.
#pragma once

#include <string>
#include <string_view>

namespace ZvXmlLib16 {

inline constexpr char kXmlNamespace[] = "http://www.w3.org/XML/1998/namespace";
inline constexpr char kXmlnsNamespace[] = "http://www.w3.org/2000/xmlns/";
inline constexpr char kSchemaInstanceNamespace[] = "http://www.w3.org/2001/XMLSchema-instance";

inline std::string const& SchemaInstanceNamespace() {
    static std::string const uri(kSchemaInstanceNamespace);
    return uri;
}

// Such namespaces are known without a declaration.
inline bool BeginsWithXmlNamespace(std::string_view ns) {
    constexpr std::string_view kXml = kXmlNamespace;
    return ns.substr(0, kXml.size()) == kXml;
}

} // namespace ZvXmlLib16
