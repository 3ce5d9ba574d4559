// CElement: its text between its children.
#include "zvxmllib/collections/Element.h"
#include "zvxmllib/document/XmlElement.h"
#include "zvxmllib/foundation/TextOrEmpty.h"
#include "zvxmllib/writers/XmlWriter.h"

#include <limits>
#include <string_view>

namespace ZvXmlLib16 {

std::vector<TextPlace> const& CElement::GetTextPlaces() const noexcept {
    static std::vector<TextPlace> const s_none;
    return m_rules == nullptr ? s_none : m_rules->textPlaces;
}

void CElement::AddText(char const* text) {
    std::string_view const added = detail::TextOrEmpty(text);
    if (added.empty())
        return;
    std::string const whole = m_text + std::string(added);
    FireOnChangeText(whole.c_str());
    auto const children = static_cast<std::uint32_t>(HasChildElements() ? m_elements->GetCount() : 0);
    std::vector<TextPlace>& places = OwnRules().textPlaces;
    if (places.empty())
        AddTextPlace(places, children, m_text.size());
    AddTextPlace(places, children, added.size());
    m_text = whole;
}

void CElement::KeepTextPlaces(CXmlElement const& element) {
    std::vector<TextPlace> places = element.GetTextPlaces();
    if (!places.empty() || m_rules != nullptr)
        OwnRules().textPlaces = std::move(places);
}

// Each part of the text where it belongs.
void CElement::WriteMixedContent(CXmlWriter& writer, char const* ns, CSerializationContext const& ctx) const {
    m_elements->ValidateCount(ctx);
    auto child = m_elements->begin();
    WalkContent(
        m_text, m_rules->textPlaces, static_cast<std::size_t>(m_elements->GetCount()),
        [&writer](std::string_view part) {
            writer.WriteElementValue(std::string(part), ItemType_string, false);
        },
        [&](std::size_t) {
            CElement* const element = *child;
            CXmlObjectBase::ToXml_Int(element, &writer, false, ns, ctx, false);
            ++child;
        });
}

} // namespace ZvXmlLib16
