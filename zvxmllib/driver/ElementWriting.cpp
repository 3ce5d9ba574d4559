// The steps of writing that the members of the element family combine.
#include "zvxmllib/binding/NestingGuard.h"
#include "zvxmllib/binding/XmlCollectionBase.h"
#include "zvxmllib/context/SerializationContext.h"
#include "zvxmllib/driver/ElementInfoBase.h"
#include "zvxmllib/driver/Failures.h"
#include "zvxmllib/driver/StrictValues.h"
#include "zvxmllib/driver/XmlGeneratedClass.h"
#include "zvxmllib/values/variant/ZvVariant.h"
#include "zvxmllib/writers/XmlWriter.h"

namespace ZvXmlLib16Data {

inline void CElementInfo::WriteText(CXmlWriter* writer, std::string const& text, ItemType type,
                                    bool isDefault) const {
    if (!isDefault && writer->TryWriteTextElement(m_name, m_namespace, text, type))
        return;
    writer->WriteElementStart(m_name, m_namespace);
    writer->WriteElementValue(text, type, isDefault);
    writer->WriteElementEnd();
}

// Except in a strict context, a nil value is written even if the entry is not nillable. A value that equals
// the default is not tested against the facets: the writer decides whether its text is written.
template <class ToText>
bool CElementInfo::WriteProperty(Ctx const& ctx, Object const* object, CXmlWriter* writer,
                                 ToText toText) const {
    auto& [value, buffer] = writer->GetValueRoom();
    value.SetInvalid();
    ReadProperty(object, value);
    if (value.IsNil()) {
        if (ctx.GetStrict() && !m_nillable)
            FailNilToWrite(m_name);
        writer->WriteElementStart(m_name, m_namespace);
        writer->WriteNilAttribute();
        writer->WriteElementEnd();
        return true;
    }
    if (!value.IsValid())
        return false;
    std::string const& text = toText(value, buffer);
    if (text.empty() && !m_defaultValue.empty() && ctx.GetStrict())
        FailEmptyOverDefault(m_name, m_defaultValue);
    bool const isDefault = !m_defaultValue.empty() && text == m_defaultValue;
    if (m_needsCheck && !isDefault) {
        if (ctx.GetStrict())
            AsStrictValue().Check(value, text);
        else
            CheckRestriction(value);
    }
    WriteText(writer, text, m_hasRestrictions ? value.GetTypeAsEnum() : ZvXmlLib16::ItemType_string,
              isDefault);
    return true;
}

// Of an entry whose values need no check.
bool CElementInfo::WriteMember(Object const* object, CXmlWriter* writer) const {
    std::string const* const text = m_property.ToText(object, m_formatOverride, writer->GetValueRoom().text);
    if (text != nullptr)
        WriteText(writer, *text, m_itemType, !m_defaultValue.empty() && *text == m_defaultValue);
    return text != nullptr;
}

bool CElementInfo::ElementToXmlPrim(Ctx const& ctx, Object const* object, CXmlWriter* writer) const {
    if (!m_needsCheck && HoldsValueInMember(ctx))
        return WriteMember(object, writer);
    return WriteProperty(
        ctx, object, writer, [ this, &ctx ](ZvVariant const& value, std::string& buffer) -> auto& {
            return ctx.GetStrict() ? AsStrictValue().ToText(value, m_formatOverride, buffer)
                                   : value.ToText(m_formatOverride.c_str(), buffer);
        });
}

bool CElementInfo::ElementToXmlEnum(Ctx const& ctx, Object const* object, CXmlWriter* writer,
                                    EnumToString enumToString) const {
    return WriteProperty(
        ctx, object, writer, [enumToString](ZvVariant const& value, std::string& buffer) -> auto& {
            char const* const text = enumToString(value.GetI4());
            return buffer = text == nullptr ? "" : text;
        });
}

detail::StrictValue CElementInfo::AsStrictValue() const noexcept {
    return {m_name, m_itemType, m_whitespaceRule, m_restrictions};
}

// The tag comes from the child's own element name, so that a derived element keeps its name.
bool CElementInfo::ElementToXmlCls(Ctx const& ctx, Object const* object, CXmlWriter* writer,
                                   bool optionalChoice) const {
    CSmartPtr<CXmlObjectBase> const child = GetObjectProperty(object);
    if (child == nullptr)
        return false;
    ZvXmlLib16::NestingGuard const level;
    CXmlObjectBase const& constChild = *child;
    constChild.ToXml_Int(writer, false, m_namespace.c_str(), ctx, optionalChoice);
    return true;
}

bool CElementInfo::ElementToXmlCol(Ctx const& ctx, Object const* object, CXmlWriter* writer) const {
    CSmartPtr<CXmlCollectionBase> const collection = GetCollectionProperty(object);
    if (collection->GetCount() < 1)
        return false;
    bool const isArray = !ctx.GetStrict() || !HoldsGroups(); // items of groups have names of their own
    if (isArray)
        writer->SetCollectionState(ZvXmlLib16::CollectionState_Announced);
    CXmlObjectBase const& items = *collection->GetBase();
    items.ToXml_Int(writer, false, m_namespace.c_str(), ctx, false);
    if (isArray)
        writer->SetCollectionState(ZvXmlLib16::CollectionState_Ended);
    return true;
}

bool CElementInfo::ElementToXmlColOfValidCount(Ctx const& ctx, Object const* object,
                                               CXmlWriter* writer) const {
    if (!ctx.GetIgnoreInvalidCollectionCounts())
        GetCollectionProperty(object)->ValidateCount(ctx);
    return ElementToXmlCol(ctx, object, writer);
}

void CElementInfo::SetTypesWanted(Ctx const& ctx, CXmlWriter* writer, bool wanted) {
    if (ctx.GetStrict())
        writer->SetChildrenSayType(wanted);
}

bool CElementInfo::Mandatory(bool written) const {
    if (!written)
        FailMandatoryProperty(m_name);
    return true;
}

void CElementInfo::ObjectAttributesToXml(Ctx const& ctx, Object const* object, CXmlWriter* writer,
                                         XmlElementType elementType) const {
    if (elementType != XmlElementType_Pseudo)
        return;
    CSmartPtr<CXmlObjectBase> const child = GetObjectProperty(object);
    if (child != nullptr)
        AttributesToXml_Int(child, writer, ctx);
}

void CElementInfo::CollectionAttributesToXml(Ctx const& ctx, Object const* object, CXmlWriter* writer,
                                             XmlElementType elementType) const {
    if (elementType != XmlElementType_Pseudo)
        return;
    CSmartPtr<CXmlCollectionBase> const collection = GetCollectionProperty(object);
    CXmlObjectBase const& items = *collection;
    items.AttributesToXml_Int(writer, ctx);
}

} // namespace ZvXmlLib16Data
