// The steps of reading that the members of the element family combine.
#include "zvxmllib/binding/ReadAt.h"
#include "zvxmllib/binding/StrictElement.h"
#include "zvxmllib/collections/Element.h"
#include "zvxmllib/collections/ItemMaker.h"
#include "zvxmllib/context/SerializationContext.h"
#include "zvxmllib/document/XmlAttribute.h"
#include "zvxmllib/document/XmlElement.h"
#include "zvxmllib/driver/ElementInfoBase.h"
#include "zvxmllib/driver/Failures.h"
#include "zvxmllib/driver/NilText.h"
#include "zvxmllib/driver/StrictValues.h"
#include "zvxmllib/driver/UnknownScan.h"
#include "zvxmllib/driver/XmlGeneratedClass.h"
#include "zvxmllib/values/variant/ZvVariant.h"

namespace ZvXmlLib16Data {

// A primitive child has no other attribute than xsi:nil, xsi:type included.
bool CElementInfo::ReadNilAttribute(Ctx const& ctx, CXmlElement& element) const {
    bool isNil = false;
    for (std::size_t i = 0; i < element.GetAttributeCount(); ++i) {
        ZvXmlLib16::CXmlAttribute const& attribute = *element.GetAttributeAt(i);
        if (!attribute.IsNilAttribute()) {
            if (!ctx.GetIgnoreUnknownAttributes())
                FailUnexpectedAttribute(attribute.GetXPath());
            continue;
        }
        std::optional<bool> const value = ParseNil(attribute.GetValue());
        isNil = value.value_or(true);
        if (isNil && !m_nillable)
            FailNilNotAllowed(element.GetXPath());
        if (!value)
            FailNilValue(attribute.GetValue(), attribute.GetXPath());
    }
    return isNil;
}

// Nil reaches the property as a nil value of its type.
template <class Parse>
void CElementInfo::ReadValue(Ctx const& ctx, Object* object, CXmlElement** current, ItemType type,
                             Parse parse) const {
    CXmlElement& element = **current;
    ZvXmlLib16::ReadAt(ctx, element, *element.GetParentElm(),
                       [&] { ReadValueOf(ctx, object, element, type, parse); });
    *current = element.GetNextSiblingElement();
}

template <class Parse>
void CElementInfo::ReadValueOf(Ctx const& ctx, Object* object, CXmlElement& element, ItemType type,
                               Parse parse) const {
    ZvVariant value;
    bool const isNil = ctx.GetStrict() ? ZvXmlLib16::CheckValueElement(ctx, element, m_itemType, m_nillable)
                                       : element.GetAttributeCount() != 0 && ReadNilAttribute(ctx, element);
    if (isNil) {
        value.SetNil(type);
    } else {
        std::string room;
        ZvXmlLib16::detail::NodeText const& text = element.GetNodeText();
        parse(value, text.IsEmpty() ? std::string_view(m_defaultValue) : text.Read(room));
    }
    InvokePropertySet(object, value, element);
}

bool CElementInfo::HoldsValueInMember(Ctx const& ctx) const noexcept {
    return m_property.IsValue() && !ctx.GetStrict();
}

// An entry of a member is not nillable.
void CElementInfo::ReadMember(Ctx const& ctx, Object* object, CXmlElement& element) const {
    if (element.GetAttributeCount() != 0)
        ReadNilAttribute(ctx, element);
    std::string room;
    ZvXmlLib16::detail::NodeText const& text = element.GetNodeText();
    m_property.Parse(object, text.IsEmpty() ? std::string_view(m_defaultValue) : text.Read(room),
                     m_whitespaceRule);
}

void CElementInfo::ElementFromXmlPrim(Ctx const& ctx, Object* object, CXmlElement** current) const {
    CXmlElement& element = **current;
    if (HoldsValueInMember(ctx)) {
        ZvXmlLib16::ReadAt(ctx, element, *element.GetParentElm(), [&] { ReadMember(ctx, object, element); });
        *current = element.GetNextSiblingElement();
        return;
    }
    ReadValue(ctx, object, current, m_itemType, [&](ZvVariant& value, std::string_view text) {
        if (ctx.GetStrict())
            AsStrictValue().Read(value, text, element);
        else
            value.FromText(text, m_itemType, m_whitespaceRule);
    });
}

void CElementInfo::ElementFromXmlEnum(Ctx const& ctx, Object* object, CXmlElement** current) const {
    ReadValue(ctx, object, current, ZvXmlLib16::ItemType_i4, [this](ZvVariant& value, std::string_view text) {
        value.SetI4(m_stringToEnum(std::string(text).c_str()));
    });
}

void CElementInfo::ReadRealChild(Ctx const& ctx, CXmlObjectBase* child, CXmlElement** current,
                                 bool optionalChoice) const {
    if (child == nullptr)
        FailMandatoryProperty(m_name);
    CXmlElement* const element = *current;
    FromXml_Int(child, element, element->GetFirstElement(), ctx, optionalChoice);
    *current = element->GetNextSiblingElement();
}

bool CElementInfo::ReadGroup(Ctx const& ctx, CXmlObjectBase* child, CXmlElement* element,
                             CXmlElement** current) const {
    if (child == nullptr)
        FailMandatoryProperty(m_name);
    CXmlElement* const next = FromXml_Int(child, element, *current, ctx, false);
    bool const hasProgressed = next != *current;
    *current = next;
    return hasProgressed;
}

bool CElementInfo::FindMandatory(Ctx const& ctx, CXmlElement* element, CXmlElement** current) const {
    while (!IsThisElement(ctx, *current)) {
        if (ctx.GetIgnoreMissingMandatoryElements())
            return false;
        if (!ctx.SkipsUnexpectedElements() || *current == nullptr)
            FailRequiredChild(m_name, element->GetXPath());
        *current = (*current)->GetNextSiblingElement();
    }
    return true;
}

CXmlElement* CElementInfo::ReadCollection(Ctx const& ctx, CXmlCollectionBase& collection,
                                          CXmlElement* element, CXmlElement* current, bool isUntyped,
                                          bool isInGroup) const {
    bool const isStrict = ctx.GetStrict();
    if (isUntyped && !m_isWildcard) {
        // With a fixed name the collection takes children of that name and the namespace of the first, in a
        // strict context that of the entry.
        if (isStrict && !IsThisElement(ctx, current))
            return current;
        auto* const elements = dynamic_cast<ZvXmlLib16::CElementCol*>(&collection);
        if (elements != nullptr)
            return elements->FromXmlLockElementName_Int(
                m_name, current == nullptr ? std::string() : current->GetNamespaceURI(), element, current,
                ctx);
    }
    // The collection is not a level of nesting; its items are.
    CXmlObjectBase& items = collection;
    return items.FromXml_Int(element, current, ctx, isStrict && isInGroup);
}

bool CElementInfo::SeqCollectionFromXml(Ctx const& ctx, Object* object, CXmlElement* element,
                                        CXmlElement** current, XmlElementType parentType,
                                        bool isUntyped) const {
    CSmartPtr<CXmlCollectionBase> const collection = GetCollectionProperty(object);
    bool const isInGroup = parentType != XmlElementType_Element;
    *current = ReadCollection(ctx, *collection, element, *current, isUntyped, isInGroup);
    if (isInGroup)
        return collection->IsValidCount(ctx);
    collection->ValidateCount(ctx);
    return true;
}

bool CElementInfo::ChoiceCollectionFromXml(Ctx const& ctx, Object* object, CXmlElement* element,
                                           CXmlElement** current, XmlElementType parentType,
                                           bool isUntyped) const {
    CSmartPtr<CXmlCollectionBase> const collection = GetCollectionProperty(object);
    CXmlElement* const next =
        ReadCollection(ctx, *collection, element, *current, isUntyped, parentType != XmlElementType_Element);
    if (next == *current)
        return false;
    if (parentType != XmlElementType_Element) {
        if (!collection->IsValidCount(ctx)) {
            // The cursor stays, but not what the collection holds.
            if (ZvXmlLib16::UnknownScan* const scan = ZvXmlLib16::UnknownScan::Of(element))
                scan->CountTaking();
            return false;
        }
        *current = next;
        return true;
    }
    *current = next;
    collection->ValidateCount(ctx);
    return true;
}

// Always false, so that the entry is offered the cursor in each round.
bool CElementInfo::AllCollectionFromXml(Ctx const& ctx, Object* object, CXmlElement* element,
                                        CXmlElement** current, bool isUntyped) const {
    CSmartPtr<CXmlCollectionBase> const collection = GetCollectionProperty(object);
    *current = ReadCollection(ctx, *collection, element, *current, isUntyped, false);
    return false;
}

bool CElementInfo::MakeItemOfGroup(Object const* object, CSmartPtr<CXmlObjectBase>& group) const {
    CSmartPtr<CXmlCollectionBase> const collection = GetCollectionProperty(object);
    auto const* const maker = dynamic_cast<ZvXmlLib16::IItemMaker const*>(&*collection);
    group = maker == nullptr ? CSmartPtr<CXmlObjectBase>() : maker->MakeItem();
    return true;
}

bool CElementInfo::ValidateMandatory(bool found, bool checkMandatory) const {
    if (!found && checkMandatory)
        FailMandatoryElement(m_name);
    return found;
}

} // namespace ZvXmlLib16Data
