// Namespace URIs that the writers treat in a special way.
#pragma once

namespace ZvXmlLib16 {

inline constexpr char kXmlNamespace[] = "http://www.w3.org/XML/1998/namespace";
inline constexpr char kSchemaInstanceNamespace[] = "http://www.w3.org/2001/XMLSchema-instance";

} // namespace ZvXmlLib16
