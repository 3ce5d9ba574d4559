// CElement, an element that no schema describes.
#include "zvxmllib/collections/Element.h"

#include "zvxmllib/binding/NamespaceRules.h"
#include "zvxmllib/binding/NestingGuard.h"
#include "zvxmllib/collections/Failures.h"
#include "zvxmllib/context/SerializationContext.h"
#include "zvxmllib/document/Failures.h"
#include "zvxmllib/document/XmlAttribute.h"
#include "zvxmllib/document/XmlDocument.h"
#include "zvxmllib/document/XmlElement.h"
#include "zvxmllib/foundation/Exceptions.h"
#include "zvxmllib/foundation/TextOrEmpty.h"
#include "zvxmllib/streams/TextStream.h"
#include "zvxmllib/xml/XmlTextWriter.h"

#include <utility>

namespace ZvXmlLib16 {

namespace {

CInstanceMonitor::Registration s_elementInstances("CElement");

constexpr char kNamespaceDeclaration[] = "xmlns"; // an attribute where namespaces are not processed

bool IsNamespaceToken(std::string_view ns) noexcept {
    return ns == kAnyNamespace || ns == "##other" || ns == "##local" || ns == "##targetNamespace";
}

} // namespace

CElement::CElement(char const* name) : CElement(name, "", kAnyNamespace, "") {}

CElement::CElement(char const* name, char const* namespaceURI) : CInstanceMonitor(s_elementInstances) {
    if (IsNamespaceToken(detail::TextOrEmpty(namespaceURI)))
        FailReservedNamespace(namespaceURI);
    Init(name, namespaceURI, namespaceURI, "");
}

CElement::CElement(char const* name, char const* namespaceURI, char const* allowedNamespaces,
                   char const* targetNamespace)
    : CInstanceMonitor(s_elementInstances) {
    Init(name, namespaceURI, allowedNamespaces, targetNamespace);
}

CElement::CElement(CXmlObjectBase* object, char const* defaultNamespace)
    : CInstanceMonitor(s_elementInstances) {
    if (object == nullptr)
        FailNullElement();
    Init("", "", kAnyNamespace, "");
    CSerializationContext ctx;
    ctx.SetDefaultNamespaceURI(defaultNamespace);
    ctx.SetStrict(CSerializationContext::GetDefaultContext().GetStrict());
    if (*detail::TextOrEmpty(defaultNamespace) != '\0')
        OwnRules().defaultNamespace = defaultNamespace;
    CBinaryData const xml =
        object->ToXmlStream(false, false, XmlEncoding_UTF8, EOLType_LF, ctx, CompressionType_None);
    CXmlDocument document(ctx);
    document.LoadXmlStream(xml.GetData(), xml.GetLength());
    CopyXmlElement(document.GetDocumentElement());
}

CElement::CElement(NamespaceIsTested, detail::SharedText name, detail::SharedText ns, char const* allowed,
                   char const* target)
    : CInstanceMonitor(s_elementInstances), m_name(std::move(name)), m_namespace(std::move(ns)) {
    SetRestrictions(allowed, target);
    PromiseCollections();
}

CElement::CElement(CElement const& other)
    : CElement(NamespaceIsTested(), other.m_name, other.m_namespace, other.AllowedNamespaces(),
               other.TargetNamespace()) {
    CopyContent(other);
}

CElement& CElement::operator=(CElement const& other) {
    if (this == &other)
        return *this;
    // Through a clone, since `other` may be a part of this element.
    CSmartPtr<CElement> const clone(new CElement(other));
    m_name = std::move(clone->m_name);
    m_text = std::move(clone->m_text);
    m_namespace = std::move(clone->m_namespace);
    m_rules = std::move(clone->m_rules);
    m_collectionsHaveNoNamespace = clone->m_collectionsHaveNoNamespace;
    AdoptCollections(std::move(clone->m_attributes), std::move(clone->m_elements));
    return *this;
}

CElement::~CElement() {
    if (m_attributesPromised != nullptr)
        CountMany(*m_attributesPromised, 0, 1);
    if (m_elementsPromised != nullptr)
        CountMany(*m_elementsPromised, 0, 1);
}

void CElement::Init(char const* name, char const* namespaceURI, char const* allowedNamespaces,
                    char const* targetNamespace) {
    if (name == nullptr)
        FailNullElementName();
    if (namespaceURI == nullptr)
        FailNullElementNamespace();
    if (allowedNamespaces == nullptr)
        FailNullNamespaceRestriction();
    if (targetNamespace == nullptr)
        FailNullTargetNamespace();
    TestNamespace(namespaceURI, allowedNamespaces, targetNamespace);
    m_name = name;
    m_namespace = namespaceURI;
    SetRestrictions(allowedNamespaces, targetNamespace);
    m_collectionsHaveNoNamespace = false;
    AdoptCollections(nullptr, nullptr);
}

void CElement::SetRestrictions(char const* allowed, char const* target) {
    if (m_rules == nullptr && *target == '\0' && std::string_view(allowed) == kAnyNamespace)
        return;
    Rules& rules = OwnRules();
    rules.allowedNamespaces = allowed;
    rules.targetNamespace = target;
}

CElement::Rules& CElement::OwnRules() {
    if (m_rules == nullptr)
        m_rules = std::make_unique<Rules>();
    return *m_rules;
}

char const* CElement::AllowedNamespaces() const noexcept {
    return m_rules == nullptr ? kAnyNamespace : m_rules->allowedNamespaces.c_str();
}

char const* CElement::TargetNamespace() const noexcept {
    return m_rules == nullptr ? "" : m_rules->targetNamespace.c_str();
}

void CElement::PromiseCollections() {
    if (m_attributes == nullptr && m_attributesPromised == nullptr) {
        m_attributesPromised = CAttributeCol::s_registration.Record();
        CountMany(*m_attributesPromised, 1, 0);
    }
    if (m_elements == nullptr && m_elementsPromised == nullptr) {
        m_elementsPromised = CElementCol::s_registration.Record();
        CountMany(*m_elementsPromised, 1, 0);
    }
}

// Replaces the present ones; null stands for one that is still to be made.
void CElement::AdoptCollections(CSmartPtr<CAttributeCol> attributes, CSmartPtr<CElementCol> elements) {
    // The promised collection will not be made, so its count is taken back.
    if (attributes != nullptr && m_attributesPromised != nullptr)
        CountMany(*std::exchange(m_attributesPromised, nullptr), -1, 0);
    if (elements != nullptr && m_elementsPromised != nullptr)
        CountMany(*std::exchange(m_elementsPromised, nullptr), -1, 0);
    m_attributes = std::move(attributes);
    m_elements = std::move(elements);
    PromiseCollections();
}

CSmartPtr<CAttributeCol> CElement::GetAttributes() const {
    if (m_attributes == nullptr) {
        m_attributes = new CAttributeCol("", kAnyNamespace, TargetNamespace());
        m_attributes->m_namespace = CollectionNamespace();
        // It counted itself when it was made.
        CountMany(*std::exchange(m_attributesPromised, nullptr), -1, 0);
    }
    return m_attributes;
}

CSmartPtr<CElementCol> CElement::GetChildElements() const {
    if (m_elements == nullptr) {
        m_elements = new CElementCol("", kAnyNamespace, TargetNamespace(), 0, -1);
        if (detail::SharedText ns = CollectionNamespace(); !ns.empty())
            m_elements->m_itemNamespace = std::move(ns);
        CountMany(*std::exchange(m_elementsPromised, nullptr), -1, 0);
    }
    return m_elements;
}

bool CElement::HasAttributes() const noexcept {
    return m_attributes != nullptr && m_attributes->m_count != 0;
}

bool CElement::HasChildElements() const noexcept {
    return m_elements != nullptr && m_elements->m_count != 0;
}

CXmlObjectBase* CElement::GetBase() {
    return this;
}

std::string CElement::GetNamespace() {
    return m_namespace;
}

std::string CElement::GetTargetNamespace() {
    return m_namespace;
}

void CElement::SetName(char const* name) {
    FireOnChangeName(name);
    m_name = detail::TextOrEmpty(name);
}

void CElement::SetText(char const* text) {
    FireOnChangeText(text);
    m_text = detail::TextOrEmpty(text);
    if (m_rules != nullptr)
        m_rules->textPlaces.clear();
}

void CElement::SetNamespace(char const* ns) {
    FireOnChangeNamespace(ns);
    ChangeNamespace(detail::TextOrEmpty(ns));
}

void CElement::ChangeNamespace(detail::SharedText ns) {
    if (ns == m_namespace.Get())
        return;
    if (m_namespace.empty()) {
        m_collectionsHaveNoNamespace = true;
    } else if (!m_collectionsHaveNoNamespace) {
        // The collections keep the namespace that the element was made with.
        GetAttributes();
        GetChildElements();
    }
    m_namespace = std::move(ns);
}

void CElement::SetNamespaceRestrictions(char const* allowedNamespaces, char const* targetNamespace) {
    try {
        TestNamespace(m_namespace.c_str(), allowedNamespaces, targetNamespace);
        if (HasAttributes()) {
            for (CAttribute const* const attribute : *m_attributes)
                TestNamespace(attribute->m_namespace.c_str(), allowedNamespaces, targetNamespace);
        }
        if (HasChildElements()) {
            NestingGuard const level;
            for (CElement* const child : *m_elements)
                child->SetNamespaceRestrictions(allowedNamespaces, targetNamespace);
        }
    } catch (CZvException const& cause) {
        FailNamespaceRestriction(m_namespace, m_name, detail::TextOrEmpty(allowedNamespaces), cause);
    }
}

CSmartPtr<CElement> CElement::Clone() const {
    TestNamespace(m_namespace.c_str(), AllowedNamespaces(), TargetNamespace());
    CSmartPtr<CElement> clone(
        new CElement(NamespaceIsTested(), m_name, m_namespace, AllowedNamespaces(), TargetNamespace()));
    clone->CopyContent(*this);
    return clone;
}

// Text, attributes and children.
void CElement::CopyContent(CElement const& other) {
    CSmartPtr<CAttributeCol> attributes;
    CSmartPtr<CElementCol> elements;
    if (other.m_attributes != nullptr)
        attributes = other.m_attributes->Clone();
    if (other.m_elements != nullptr)
        elements = other.m_elements->Clone();
    m_text = other.m_text;
    m_collectionsHaveNoNamespace = other.m_collectionsHaveNoNamespace;
    if (!other.GetDeclarations().empty())
        OwnRules().declarations = other.GetDeclarations();
    if (!other.GetTextPlaces().empty())
        OwnRules().textPlaces = other.GetTextPlaces();
    AdoptCollections(std::move(attributes), std::move(elements));
}

void CElement::ClearCollections() {
    if (HasAttributes())
        m_attributes->Clear();
    if (HasChildElements())
        m_elements->Clear();
}

void CElement::CopyXmlElement(CXmlElement* element) {
    m_name = element->ShareLocalName();
    ChangeNamespace(element->ShareNamespaceURI());
    m_text.clear();
    element->GetNodeText().AppendTo(m_text);
    ClearCollections();
    KeepDeclarations(*element);
    KeepTextPlaces(*element);
    for (std::size_t i = 0; i < element->GetAttributeCount(); ++i) {
        CXmlAttribute const& attribute = *element->GetAttributeAt(i);
        GetAttributes()->Add(attribute.GetLocalName().c_str(), attribute.GetValue().c_str(),
                             attribute.GetNamespaceURI().c_str());
        if (attribute.GetLocalName() == kNamespaceDeclaration)
            OwnRules().defaultNamespace = attribute.GetValue();
    }
    for (CXmlElement* child = element->GetFirstElement(); child != nullptr;
         child = child->GetNextSiblingElement()) {
        NestingGuard const level;
        CSmartPtr<CElement> const copy(new CElement(child->GetLocalName().c_str()));
        copy->CopyXmlElement(child);
        GetChildElements()->Add(copy);
    }
}

void CElement::FromXml(char const* xml) {
    CSerializationContext const& ctx = CSerializationContext::GetDefaultContext();
    CXmlDocument document(ctx);
    document.LoadXml(xml);
    CXmlElement* const root = document.GetDocumentElement();
    if (ctx.GetStrict())
        ReadRootStrictly(root, ctx, true);
    else
        FromXml_Int(root, root, ctx, false);
}

CXmlElement* CElement::FromXml_Int(CXmlElement*, CXmlElement* current, CSerializationContext const& ctx,
                                   bool) {
    if (current == nullptr)
        return nullptr;
    if (m_rules != nullptr && !IsNamespaceAllowed(current->GetNamespaceURI(), m_rules->allowedNamespaces,
                                                  m_rules->targetNamespace, ctx.GetStrict()))
        return current;
    if (ctx.GetStrict())
        ClearCollections();
    if (current->GetAttributeCount() != 0)
        GetAttributes()->FromXml_Int(current, nullptr, ctx, false);
    if (CXmlElement* const first = current->GetFirstElement()) {
        if (GetChildElements()->FromXml_Int(current, first, ctx, false) != nullptr)
            FailInvalidElement(current->GetLocalName(), current->GetXPath());
    }
    m_text.clear();
    current->GetNodeText().AppendTo(m_text);
    if (ctx.GetStrict())
        KeepDeclarations(*current);
    KeepTextPlaces(*current);
    m_name = current->ShareLocalName();
    ChangeNamespace(current->ShareNamespaceURI());
    return current->GetNextSiblingElement();
}

void CElement::ToXml_Int(CXmlWriter* writer, bool, char const* ns, CSerializationContext const& ctx,
                         bool optionalChoice) const {
    if (m_rules != nullptr && !m_rules->defaultNamespace.empty() && !ctx.GetStrict()) {
        // Only XML text can be spliced in; other formats write the element like any other.
        if (CXmlTextWriter* const textWriter = dynamic_cast<CXmlTextWriter*>(writer)) {
            WriteFragment(*textWriter, ctx, optionalChoice);
            return;
        }
    }
    if (m_rules != nullptr)
        WriteDeclarations(*writer);
    if (!HasAttributes() && m_elements == nullptr && writer->TryWriteTextElement(m_name, m_namespace, m_text, ItemType_string))
        return;
    writer->WriteElementStart(m_name, m_namespace);
    if (m_attributes != nullptr)
        m_attributes->ToXml_Int(writer, false, ns, ctx, false);
    if (!m_text.empty() && HasChildElements())
        writer->BeginMixedContent();
    if (!GetTextPlaces().empty() && HasChildElements() && ctx.GetStrict()) {
        WriteMixedContent(*writer, ns, ctx);
    } else {
        if (m_elements != nullptr)
            m_elements->ToXml_Int(writer, false, ns, ctx, optionalChoice);
        writer->WriteElementValue(m_text, ItemType_string, false);
    }
    writer->WriteElementEnd();
}

// A self-contained document inside the other one: it declares its default namespace and all prefixes that it
// uses.
void CElement::WriteFragment(CXmlTextWriter& writer, CSerializationContext const& ctx,
                             bool optionalChoice) const {
    CTextStream text(XmlEncoding_None);
    CXmlTextWriter fragment(&text);
    fragment.SetEOLType(writer.GetEOLType());
    fragment.SetFormatted(writer.GetFormatted());
    fragment.SetDefaultNamespace(m_rules->defaultNamespace);
    fragment.WriteElementStart(m_name, m_namespace);
    if (HasAttributes()) {
        for (CAttribute const* const attribute : *m_attributes) {
            if (attribute->m_name != kNamespaceDeclaration)
                attribute->ToXml_Int(&fragment, false, m_namespace.c_str(), ctx, false);
        }
    }
    CSerializationContext fragmentCtx;
    fragmentCtx.SetDefaultNamespaceURI(m_rules->defaultNamespace.c_str());
    if (m_elements != nullptr)
        m_elements->ToXml_Int(&fragment, false, m_namespace.c_str(), fragmentCtx, optionalChoice);
    fragment.WriteElementValue(m_text, ItemType_string, false);
    fragment.WriteElementEnd();
    writer.BeginChild();
    writer.WriteRawLine(text.GetText());
}

void CElement::FireOnChangeName(char const*) {}

void CElement::FireOnChangeNamespace(char const*) {}

void CElement::FireOnChangeText(char const*) {}

} // namespace ZvXmlLib16
