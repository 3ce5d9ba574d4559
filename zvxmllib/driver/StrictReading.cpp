// The driver over the tables of a generated class: what a strict context tests when it reads.
#include "zvxmllib/binding/ReadAt.h"
#include "zvxmllib/binding/StrictElement.h"
#include "zvxmllib/collections/Element.h"
#include "zvxmllib/context/SerializationContext.h"
#include "zvxmllib/document/HiddenChildren.h"
#include "zvxmllib/document/XmlAttribute.h"
#include "zvxmllib/driver/AttributeWildcards.h"
#include "zvxmllib/driver/ElementInfo.h"
#include "zvxmllib/driver/EntryFlags.h"
#include "zvxmllib/driver/Failures.h"
#include "zvxmllib/driver/KnownElements.h"
#include "zvxmllib/driver/XmlGeneratedClass.h"
#include "zvxmllib/values/text/Whitespace.h"

#include <algorithm>

namespace ZvXmlLib16 {

using ZvXmlLib16Data::CAttributeInfo;
using ZvXmlLib16Data::CElementInfo;
using ZvXmlLib16Data::CParentElementInfo;
using ZvXmlLib16Data::KnownElements;
using namespace ZvXmlLib16Data; // its failures

namespace {

// xsi:type, which has chosen the class, names it.
void CheckType(CSerializationContext const& ctx, CXmlElement const& element, CParentElementInfo const& info) {
    for (std::size_t i = 0; i < element.GetAttributeCount(); ++i) {
        CXmlAttribute const& attribute = *element.GetAttributeAt(i);
        if (!IsTypeAttribute(attribute))
            continue;
        TypeName const type = ReadTypeName(element, attribute);
        bool const isInNamespace = ctx.GetIgnoreNamespaces() || type.ns == info.GetElementNamespace();
        if (type.name != info.GetElementName() || !isInNamespace)
            FailNoSubstitution(element.GetLocalName(), element.GetXPath());
    }
}

// Only white space stands between the children of an element that has no text.
void CheckText(CXmlElement const& element) {
    std::string room;
    std::string_view const text = element.GetNodeText().Read(room);
    if (!std::all_of(text.begin(), text.end(), CWhitespaceUtils::IsWhiteSpace))
        FailText(CWhitespaceUtils::Collapse(std::string(text)), element.GetXPath());
}

} // namespace

// Here, where the classes are known that read a root in ways of their own: generated ones want theirs, and
// untyped elements are the root.
void CXmlObjectBase::ReadRootStrictly(CXmlElement* root, CSerializationContext const& ctx, bool isDocument) {
    if (dynamic_cast<CElement const*>(this) != nullptr) {
        if (FromXml_Int(root, root, ctx, false) == root)
            FailRequiredWildcard(GetNamespace(), root->GetXPath());
        return;
    }
    auto* const generated = dynamic_cast<CXmlGeneratedClass*>(this);
    bool const isElement =
        generated != nullptr && generated->GetClassInfo()->GetElementType() == XmlElementType_Element;
    if (isDocument && isElement && !m_elementName.empty()) {
        std::string const ns = GetTargetNamespace();
        if (root->GetLocalName() != m_elementName ||
            !(ctx.GetIgnoreNamespaces() || root->GetNamespaceURI() == ns))
            FailRootElement(m_elementName, ns, root->GetLocalName(), root->GetNamespaceURI(),
                            root->GetXPath());
    }
    if (CXmlElement const* const unread = FromXml_Int(root, root->GetFirstElement(), ctx, false))
        FailUnreadElement(root->GetLocalName(), unread->GetLocalName(), root->GetXPath());
}

CXmlElement* CXmlGeneratedClass::ReadStrictly(CXmlElement* element, CXmlElement* current,
                                              CSerializationContext const& ctx, bool optionalChoice,
                                              CParentElementInfo const& info) {
    if (info.GetElementType() != XmlElementType_Element)
        return ReadGroupStrictly(element, current, ctx, optionalChoice, info);
    CheckType(ctx, *element, info);
    ProcessAttributesFromXml(ctx, element, info.GetFromXmlFailIfAttributeUnknown());
    if (element->GetAttributeCount() != 0)
        ForEachWildcard(GetClassAttributeInfo(), [&](CAttributeInfoAny const& wildcard) {
            wildcard.KeepDeclarations(this, *element);
        });
    INillable* const nillable = FindNillable(info);
    if (nillable != nullptr && nillable->GetIsNil()) {
        CheckNilElement(*element);
        return current;
    }
    if (!info.HasSimpleContent())
        CheckText(*element);
    else if (element->HasTextAheadOfChild())
        FailPlaceOfText(element->GetLocalName(), element->GetXPath());
    HiddenChildren unknown(*element);
    if (ctx.GetIgnoreUnknownElements() && current != nullptr) {
        KnownElements const known(*this);
        current =
            unknown.HideFrom(current, [&](CXmlElement const& child) { return !known.Accept(ctx, child); });
    }
    return ReadContent(element, current, ctx, optionalChoice, info);
}

// XML Schema gives groups no attributes. Those of the element that the table names are the group's too, and
// it demands them only where it is; all others are none of its business.
CXmlElement* CXmlGeneratedClass::ReadGroupStrictly(CXmlElement* element, CXmlElement* current,
                                                   CSerializationContext const& ctx, bool optionalChoice,
                                                   CParentElementInfo const& info) {
    CAttributeInfo** const entries = GetClassAttributeInfo();
    std::size_t const count = detail::CountEntries(entries);
    detail::EntryFlags found(count);
    for (std::size_t i = 0; count != 0 && i < element->GetAttributeCount(); ++i) {
        CXmlAttribute& attribute = *element->GetAttributeAt(i);
        if (attribute.IsNamespaceAttribute() || attribute.IsNilAttribute())
            continue;
        std::size_t entry = 0;
        ReadAt(ctx, attribute, *element, [&] {
            while (entry < count && !entries[entry]->AttributeFromXml(ctx, this, &attribute))
                ++entry;
        });
        if (entry < count)
            found[entry] = true;
    }
    CXmlElement* const next = ReadContent(element, current, ctx, optionalChoice, info);
    for (std::size_t entry = 0; next != current && entry < count; ++entry)
        entries[entry]->Validate(ctx, found[entry]);
    return next;
}

void CXmlGeneratedClass::CheckOneChoice() const {
    CElementInfo const* selected = nullptr;
    for (CElementInfo* const* entry = Mutable().GetClassElementInfo(); *entry != nullptr; ++entry) {
        if (!(*entry)->HasContent(this))
            continue;
        if (selected != nullptr)
            FailChoiceAlreadySelected(selected->GetElementName());
        selected = *entry;
    }
}

} // namespace ZvXmlLib16
