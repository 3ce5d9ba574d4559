#include "zvxmllib/driver/StrictValues.h"

#include "zvxmllib/document/XmlAttribute.h"
#include "zvxmllib/document/XmlElement.h"
#include "zvxmllib/driver/Failures.h"
#include "zvxmllib/driver/ParentElementInfo.h"
#include "zvxmllib/foundation/Exceptions.h"
#include "zvxmllib/values/facets/FacetCheck.h"
#include "zvxmllib/values/text/RuledText.h"
#include "zvxmllib/values/variant/StrictText.h"

namespace ZvXmlLib16Data {

using ZvXmlLib16::CWhitespaceUtils;
using ZvXmlLib16::CXmlAttribute;
using ZvXmlLib16::CXmlElement;
using ZvXmlLib16::ZvVariant;

template <class Place>
void detail::StrictValue::ReadAt(ZvVariant& value, std::string_view text, Place const& place) const {
    ZvXmlLib16::detail::RuledText const ruled(ZvXmlLib16::detail::StrictRule(rule, type), text);
    ZvXmlLib16::detail::StrictFromText(value, ruled.Get(), type);
    try {
        Check(value, ruled.Get());
    } catch (CZvException const& failure) {
        FailFacetOfRead(failure, place.GetXPath());
    }
}

void detail::StrictValue::Read(ZvVariant& value, std::string_view text, CXmlElement const& place) const {
    ReadAt(value, text, place);
}

void detail::StrictValue::Read(ZvVariant& value, std::string_view text, CXmlAttribute const& place) const {
    ReadAt(value, text, place);
}

std::string const& detail::StrictValue::ToText(ZvVariant const& value, std::string const& format,
                                               std::string& buffer) const {
    return ZvXmlLib16::detail::ToStrictText(name.c_str(), value, type, format.c_str(), buffer);
}

void detail::StrictValue::Check(ZvVariant const& value, std::string_view text) const {
    if (!restrictions.HasFacets())
        return;
    ZvXmlLib16::FacetCheck const check{name.c_str(), restrictions,
                                       ZvXmlLib16::detail::FacetRules::kXmlSchema};
    if (type != ZvXmlLib16::ItemType_char) // it has no facets but the pattern
        check.Check(value, type);
    check.CheckText(text);
}

detail::StrictValue ContentOf(CParentElementInfo const& info, ZvXmlLib16::ItemType type) noexcept {
    static ZvXmlLib16::CPrimitiveRestrictions const s_none;
    return {info.GetElementName(), type, CWhitespaceUtils::WhitespaceRule_None, s_none};
}

} // namespace ZvXmlLib16Data
