#include "zvxmllib/driver/BoundProperty.h"

#include "zvxmllib/driver/Failures.h"

namespace ZvXmlLib16Data::detail {

BoundProperty::BoundProperty(CProperty const& property, ZvXmlLib16::ItemType type, bool isNillable,
                             char const* name)
    : m_property(property), m_access(property.IsMember() ? property.m_access(type) : nullptr) {
    if (!property.IsMember())
        return;
    if (m_access == nullptr || (isNillable && m_access != AccessOfVariant()))
        FailMember(name, isNillable);
}

} // namespace ZvXmlLib16Data::detail
