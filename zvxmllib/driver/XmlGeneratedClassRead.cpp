// The driver over the tables of a generated class: reading.
#include "zvxmllib/binding/ReadAt.h"
#include "zvxmllib/binding/StrictElement.h"
#include "zvxmllib/context/SerializationContext.h"
#include "zvxmllib/document/XmlAttribute.h"
#include "zvxmllib/document/XmlElement.h"
#include "zvxmllib/driver/ElementInfo.h"
#include "zvxmllib/driver/EntryFlags.h"
#include "zvxmllib/driver/Failures.h"
#include "zvxmllib/driver/NilText.h"
#include "zvxmllib/driver/StrictValues.h"
#include "zvxmllib/driver/UnknownScan.h"
#include "zvxmllib/driver/XmlGeneratedClass.h"
#include "zvxmllib/foundation/Exceptions.h"
#include "zvxmllib/values/variant/ZvVariant.h"

#include <optional>

namespace ZvXmlLib16 {

using ZvXmlLib16Data::CAttributeInfo;
using ZvXmlLib16Data::CElementInfo;
using ZvXmlLib16Data::CParentElementInfo;
using namespace ZvXmlLib16Data; // its failures
using detail::CountEntries;
using detail::EntryFlags;

// What the entries of one walk are offered.
struct CXmlGeneratedClass::Reading {
    CXmlGeneratedClass& object;
    CSerializationContext const& ctx;
    CXmlElement* element;
    XmlElementType elementType;
    CElementInfo** elements;
    CXmlElement* current; // the cursor: the next child not yet read
    CXmlElement* const saved = current;
    bool const ignoresUnknown = ctx.SkipsUnexpectedElements();
    UnknownScan* const scan = ignoresUnknown ? UnknownScan::Of(element) : nullptr;
    UnknownScan::Walk const walk{scan};

    bool Offer(CElementInfo& entry) {
        if (scan == nullptr)
            return OfferCursor(entry);
        CXmlElement const* const offered = current;
        bool const answer = OfferCursor(entry);
        scan->EndOffer(current != offered);
        return answer;
    }
    // In a sequence: passes over the children that the entry refuses, where that is allowed. False if it
    // refuses all.
    bool OfferUntilTaken(CElementInfo& entry) {
        if (scan != nullptr && !IsRealElement())
            return OfferWithNotes(entry);
        while (!Offer(entry)) {
            if (!ignoresUnknown || current == nullptr)
                return false;
            current = current->GetNextSiblingElement();
        }
        return true;
    }
    // The same in a group, which will ask again from later children on.
    bool OfferWithNotes(CElementInfo& entry) {
        for (CXmlElement const* first = current;;) {
            current = scan->PassRefused(entry, object, current);
            CXmlElement* const offered = current;
            std::size_t const takings = scan->GetTakings();
            if (Offer(entry))
                return true;
            if (!ignoresUnknown || current == nullptr)
                return false;
            bool const isRepeated =
                current == offered && (entry.RepeatsRefusals() || scan->GetTakings() == takings);
            current = current->GetNextSiblingElement();
            if (isRepeated)
                scan->NoteRefused(entry, object, *first, *offered);
            else
                first = current;
        }
    }
    bool OfferCursor(CElementInfo& entry) {
        if (!entry.UsesClassNamespace())
            return entry.ElementFromXml(ctx, &object, element, &current, "", elementType);
        return entry.ElementFromXml(ctx, &object, element, &current, object.GetNamespace().c_str(),
                                    elementType);
    }
    bool IsRealElement() const { return elementType == XmlElementType_Element; }
    [[noreturn]] void FailUnread() const {
        FailUnreadElement(element->GetLocalName(), current->GetLocalName(), element->GetXPath());
    }
};

CXmlElement* CXmlGeneratedClass::FromXml_Int(CXmlElement* element, CXmlElement* current,
                                             CSerializationContext const& ctx, bool optionalChoice) {
    try {
        Init();
        CParentElementInfo const& info = *GetClassInfo();
        // An object read from a substituted element keeps that element's name.
        if (info.GetElementType() == XmlElementType_Element)
            SetElementName(element->GetLocalName().c_str());
        if (ctx.GetStrict())
            return ReadStrictly(element, current, ctx, optionalChoice, info);
        ProcessAttributesFromXml(ctx, element, info.GetFromXmlFailIfAttributeUnknown());
        INillable* const nillable = FindNillable(info);
        if (nillable != nullptr && nillable->GetIsNil())
            return current;
        return ReadContent(element, current, ctx, optionalChoice, info);
    } catch (CZvException& cause) {
        if (ctx.GetFailureNotes().Takes() && GetClassInfo()->GetElementType() == XmlElementType_Element) {
            LocateFailureByPath(cause, *element);
            LocateFailure(cause, *element);
            if (NoteFailure(ctx, cause, element->GetXPath(), *element))
                return nullptr; // the element ends here
        }
        if (cause.GetPath().empty())
            throw WithPathOfElement(element->GetXPath(), cause);
        // A copy of the base part: the caller sees the innermost element that has a path.
        throw CZvException(cause);
    }
}

CXmlElement* CXmlGeneratedClass::ReadContent(CXmlElement* element, CXmlElement* current,
                                             CSerializationContext const& ctx, bool optionalChoice,
                                             CParentElementInfo const& info) {
    XmlElementType const elementType = info.GetElementType();
    std::optional<UnknownScan> scan;
    if (elementType == XmlElementType_Element && ctx.SkipsUnexpectedElements())
        scan.emplace(*element);
    switch (info.GetElementGroupType()) {
    case XmlElementGroupType_Sequence:
        current = ProcessElementSeqFromXml(ctx, element, current, elementType);
        break;
    case XmlElementGroupType_Choice:
        current = ProcessElementChoiceFromXml(ctx, element, current, elementType, optionalChoice);
        break;
    case XmlElementGroupType_All:
        current = ProcessElementAllFromXml(ctx, element, current, elementType);
        break;
    default:
        FailUnknownGroupType();
    }
    if (info.HasSimpleContent())
        ReadSimpleContent(ctx, *element, info);
    return current;
}

// Only a strict context removes the white space that the type does not allow.
void CXmlGeneratedClass::ReadSimpleContent(CSerializationContext const& ctx, CXmlElement const& element,
                                           CParentElementInfo const& info) {
    ZvVariant value;
    std::string room;
    bool const isText = info.GetOutputPrimitiveClassAsTextProperty();
    bool const isMember = info.m_primitiveValueProperty.IsMember();
    ItemType const type = isText && !isMember ? ItemType_string : info.GetPrimitiveDataType();
    std::string_view const text = element.GetNodeText().Read(room);
    if (ctx.GetStrict())
        ContentOf(info, type).Read(value, text, element);
    else
        value.FromText(text, type,
                       isText && isMember && type != ItemType_string
                           ? CWhitespaceUtils::WhitespaceRule_Collapse
                           : CWhitespaceUtils::WhitespaceRule_None);
    info.m_primitiveValueProperty.Set(this, value);
}

void CXmlGeneratedClass::ReadNilAttribute(CSerializationContext const& ctx, CXmlElement const& element,
                                          CXmlAttribute const& attribute) {
    auto* const nillable = dynamic_cast<INillable*>(this);
    if (nillable == nullptr)
        FailNilNotAllowed(element.GetXPath());
    std::optional<bool> const isNil =
        ctx.GetStrict() ? ParseStrictNil(attribute.GetValueView()) : ParseNil(attribute.GetValueView());
    if (!isNil)
        FailNilValue(attribute.GetValue(), attribute.GetXPath());
    nillable->SetIsNil(*isNil);
}

void CXmlGeneratedClass::ProcessAttributesFromXml(CSerializationContext const& ctx, CXmlElement* element,
                                                  bool failIfUnknown) {
    CAttributeInfo** const entries = GetClassAttributeInfo();
    std::size_t const entryCount = CountEntries(entries);
    EntryFlags found(entryCount);
    for (std::size_t i = 0; i < element->GetAttributeCount(); ++i) {
        CXmlAttribute& attribute = *element->GetAttributeAt(i);
        if (attribute.IsNamespaceAttribute())
            continue;
        std::size_t entry = 0;
        ReadAt(ctx, attribute, *element, [&] {
            if (attribute.IsNilAttribute())
                return ReadNilAttribute(ctx, *element, attribute);
            while (entry < entryCount && !entries[entry]->AttributeFromXml(ctx, this, &attribute))
                ++entry;
            if (entry == entryCount && failIfUnknown && !ctx.GetIgnoreUnknownAttributes())
                FailUnexpectedAttribute(attribute.GetXPath());
        });
        if (entry < entryCount && !attribute.IsNilAttribute())
            found[entry] = true;
    }
    for (std::size_t entry = 0; entry < entryCount; ++entry)
        ReadAt(ctx, *element, *element, [&] { entries[entry]->Validate(ctx, found[entry]); });
}

CXmlElement* CXmlGeneratedClass::ProcessElementSeqFromXml(CSerializationContext const& ctx,
                                                          CXmlElement* element, CXmlElement* current,
                                                          XmlElementType elementType) {
    Reading reading{*this, ctx, element, elementType, GetClassElementInfo(), current};
    std::size_t resume = 0;
    for (;;) {
        for (std::size_t i = resume; reading.elements[i] != nullptr; ++i) {
            if (!reading.OfferUntilTaken(*reading.elements[i]))
                return reading.saved; // the group does not match
            resume = i;
        }
        if (!reading.IsRealElement() || reading.current == nullptr)
            return reading.current;
        if (!reading.ignoresUnknown)
            reading.FailUnread();
        // Continues at the last entry, so that a collection there gets the elements that follow.
        reading.current = reading.current->GetNextSiblingElement();
        if (reading.current == nullptr)
            return nullptr;
    }
}

CXmlElement* CXmlGeneratedClass::ProcessElementChoiceFromXml(CSerializationContext const& ctx,
                                                             CXmlElement* element, CXmlElement* current,
                                                             XmlElementType elementType,
                                                             bool optionalChoice) {
    Reading reading{*this, ctx, element, elementType, GetClassElementInfo(), current};
    bool const skipsUnknown = reading.ignoresUnknown && reading.IsRealElement();
    bool found = false;
    do {
        for (CElementInfo** entry = reading.elements; *entry != nullptr && !found; ++entry)
            found = reading.Offer(**entry);
        if (!found && skipsUnknown && reading.current != nullptr)
            reading.current = reading.current->GetNextSiblingElement();
    } while (!found && skipsUnknown && reading.current != nullptr);
    if (!found && !optionalChoice) {
        if (elementType == XmlElementType_Pseudo && reading.ignoresUnknown)
            reading.current = reading.saved;
        if (reading.IsRealElement() && !DoesElementContainOptionalElements() && !ctx.GetIgnoreMissingChoice())
            FailNoChoiceFound(element->GetLocalName(), element->GetXPath());
    }
    if (reading.IsRealElement() && reading.current != nullptr && !reading.ignoresUnknown)
        reading.FailUnread();
    return reading.current;
}

CXmlElement* CXmlGeneratedClass::ProcessElementAllFromXml(CSerializationContext const& ctx,
                                                          CXmlElement* element, CXmlElement* current,
                                                          XmlElementType elementType) {
    Reading reading{*this, ctx, element, elementType, GetClassElementInfo(), current};
    std::size_t const entryCount = CountEntries(reading.elements);
    EntryFlags found(entryCount);
    bool hasMoved = true;
    while (reading.current != nullptr && hasMoved) {
        CXmlElement const* const before = reading.current;
        for (std::size_t i = 0; i < entryCount; ++i) {
            if (!found[i])
                found[i] = reading.Offer(*reading.elements[i]);
        }
        hasMoved = reading.current != before;
    }
    for (std::size_t i = 0; i < entryCount; ++i) {
        if (!reading.elements[i]->Validate(ctx, this, found[i], reading.IsRealElement()))
            return reading.saved;
    }
    if (reading.IsRealElement() && reading.current != nullptr && !reading.ignoresUnknown)
        reading.FailUnread();
    return reading.current;
}

} // namespace ZvXmlLib16
