// The driver over the tables of a generated class: writing.
#include "zvxmllib/collections/Attribute.h"
#include "zvxmllib/context/SerializationContext.h"
#include "zvxmllib/driver/AttributeWildcards.h"
#include "zvxmllib/driver/ElementInfo.h"
#include "zvxmllib/driver/Failures.h"
#include "zvxmllib/driver/StrictValues.h"
#include "zvxmllib/driver/XmlGeneratedClass.h"
#include "zvxmllib/foundation/Exceptions.h"
#include "zvxmllib/values/variant/ZvVariant.h"
#include "zvxmllib/writers/XmlWriter.h"

namespace ZvXmlLib16 {

using ZvXmlLib16Data::CAttributeInfo;
using ZvXmlLib16Data::CElementInfo;
using ZvXmlLib16Data::CParentElementInfo;
using namespace ZvXmlLib16Data; // its failures

namespace {

// Writes what precedes the root element, and sets the scope it starts with. An empty alias counts as none.
void WriteProlog(CXmlWriter& writer, CSerializationContext const& ctx) {
    for (std::string const& instruction : ctx.GetProcessingInstructions())
        writer.WriteProcessingInstruction(instruction);
    for (auto const& [ns, alias] : ctx.GetNamespaceAliases().GetEntries()) {
        if (!alias.empty())
            writer.AddNamespaceAlias(alias, ns);
    }
    std::string const defaultNamespace = ctx.GetDefaultNamespaceURI();
    if (!defaultNamespace.empty())
        writer.SetDefaultNamespace(defaultNamespace);
}

} // namespace

void CXmlGeneratedClass::ToXml_Int(CXmlWriter* writer, bool isRoot, char const* ns,
                                   CSerializationContext const& ctx, bool optionalChoice) const {
    try {
        CParentElementInfo const& info = *Mutable().GetClassInfo();
        bool const isElement = info.GetElementType() == XmlElementType_Element;
        if (isElement) {
            if (isRoot)
                WriteProlog(*writer, ctx);
            if (ctx.GetStrict())
                ForEachWildcard(Mutable().GetClassAttributeInfo(), [&](CAttributeInfoAny const& wildcard) {
                    wildcard.WriteDeclarations(this, *writer);
                });
            writer->WriteElementStart(GetElementName(), ns == nullptr ? "" : ns);
            if (isRoot)
                CXmlObjectBase::ToXml_Int(ctx.GetAdditionalRootAttributes()->GetBase(), writer, false, ns,
                                          ctx, optionalChoice);
            AttributesToXml_Int(writer, ctx);
            if (isRoot) {
                std::string const schema = ctx.GetInLineSchema();
                if (!schema.empty())
                    writer->WriteInlineSchema(schema);
            }
        }
        INillable* const nillable = FindNillable(info);
        if (nillable != nullptr && nillable->GetIsNil())
            writer->WriteNilAttribute();
        else
            WriteContent(*writer, ctx, optionalChoice, info);
        if (isElement)
            writer->WriteElementEnd();
    } catch (CZvException const& cause) {
        FailToWriteElement(GetElementName(), cause);
    }
}

void CXmlGeneratedClass::WriteContent(CXmlWriter& writer, CSerializationContext const& ctx,
                                      bool optionalChoice, CParentElementInfo const& info) const {
    CElementInfo** const elements = Mutable().GetClassElementInfo();
    bool const hasText = info.HasSimpleContent();
    if (hasText && *elements != nullptr)
        writer.BeginMixedContent();
    switch (info.GetElementGroupType()) {
    case XmlElementGroupType_Sequence:
        ProcessElementSeqToXml(ctx, elements, &writer);
        break;
    case XmlElementGroupType_Choice:
        ProcessElementChoiceToXml(ctx, elements, &writer, optionalChoice);
        break;
    case XmlElementGroupType_All:
        ProcessElementAllToXml(ctx, elements, &writer);
        break;
    default:
        FailUnknownXmlGroupType();
    }
    if (hasText)
        WriteSimpleContent(writer, ctx, info);
}

void CXmlGeneratedClass::WriteSimpleContent(CXmlWriter& writer, CSerializationContext const& ctx,
                                            CParentElementInfo const& info) const {
    ZvVariant value;
    info.m_primitiveValueProperty.Get(&Mutable(), value);
    std::string const& format = info.GetPrimitiveFormatOverride();
    if (value.IsNil()) {
        if (ctx.GetStrict() && FindNillable(info) == nullptr)
            FailNilToWrite(GetElementName());
        writer.WriteNilAttribute();
    } else if (ctx.GetStrict()) {
        std::string buffer;
        ItemType const type =
            info.GetOutputPrimitiveClassAsTextProperty() ? ItemType_string : info.GetPrimitiveDataType();
        writer.WriteElementValue(ContentOf(info, type).ToText(value, format, buffer), value.GetTypeAsEnum(),
                                 false);
    } else {
        writer.WriteElementValue(value.ToString(format.c_str()), value.GetTypeAsEnum(), false);
    }
}

void CXmlGeneratedClass::AttributesToXml_Int(CXmlWriter* writer, CSerializationContext const& ctx) const {
    try {
        CParentElementInfo const& info = *Mutable().GetClassInfo();
        if (ctx.GetWriteTypeAttribute() && info.GetHasBaseClasses() &&
            (GetElementName() != info.GetElementName() || writer->SaysType()))
            writer->WriteTypeAttribute(info.GetElementNamespace(), info.GetElementName(), ItemType_string);
        ProcessAttributesToXml(ctx, Mutable().GetClassElementInfo(), Mutable().GetClassAttributeInfo(),
                               writer);
    } catch (CZvException const& cause) {
        FailToWriteAttributes(cause);
    }
}

// The attributes of nested groups follow the class's own.
void CXmlGeneratedClass::ProcessAttributesToXml(CSerializationContext const& ctx, CElementInfo** elements,
                                                CAttributeInfo** attributes, CXmlWriter* writer) const {
    for (; *attributes != nullptr; ++attributes)
        (*attributes)->AttributeToXml(ctx, this, writer);
    for (; *elements != nullptr; ++elements)
        (*elements)->PseudoChildAttributeToXml(ctx, this, writer);
}

void CXmlGeneratedClass::ProcessElementSeqToXml(CSerializationContext const& ctx, CElementInfo** elements,
                                                CXmlWriter* writer) const {
    for (; *elements != nullptr; ++elements)
        (*elements)->ElementToXml(ctx, this, writer);
}

// In table order, whatever the order of reading was.
void CXmlGeneratedClass::ProcessElementAllToXml(CSerializationContext const& ctx, CElementInfo** elements,
                                                CXmlWriter* writer) const {
    ProcessElementSeqToXml(ctx, elements, writer);
}

void CXmlGeneratedClass::ProcessElementChoiceToXml(CSerializationContext const& ctx, CElementInfo** elements,
                                                   CXmlWriter* writer, bool optionalChoice) const {
    if (ctx.GetStrict())
        CheckOneChoice();
    for (; *elements != nullptr; ++elements) {
        if ((*elements)->ElementToXml(ctx, this, writer))
            return;
    }
    if (DoesElementContainOptionalElements() || optionalChoice || ctx.GetIgnoreMissingChoice())
        return;
    FailNoChoiceToWrite();
}

} // namespace ZvXmlLib16
