#include "zvxmllib/generated/ObjectBuilder.h"

#include "zvxmllib/collections/Element.h"
#include "zvxmllib/document/XmlAttribute.h"

#include <utility>

namespace ZvXmlLib16::generated {

using namespace grammar;

CSmartPtr<CTypedObject> ObjectBuilder::Build(CXmlElement& root, CTypedObject* target, InputOrder order) {
    m_target = target;
    Validator validator(m_schema.GetGrammar(), m_ctx, this);
    if (order != InputOrder::kAsWritten)
        validator.TakeAnyOrder(m_schema.GetContentOrders(), order == InputOrder::kAnyWithoutNamespaces);
    validator.ValidateDocument(root);
    return m_root;
}

// A value without anything beside it needs no object.
bool ObjectBuilder::IsPlainValue(CXmlElement const& element, Assessment const& assessment) const {
    return !IsComplex(assessment.type) && !assessment.isNil && !m_frames.empty() &&
           assessment.declaration != kNone && element.GetAttributeCount() == 0 &&
           !m_schema.GetGrammar().GetSimpleTypes().HasQNames(static_cast<std::uint32_t>(assessment.type));
}

void ObjectBuilder::OnElement(CXmlElement& element, Assessment const& assessment) {
    m_element = &element;
    if (IsPlainValue(element, assessment)) {
        m_frames.push_back({nullptr, assessment});
        return;
    }
    CSmartPtr<CTypedObject> object;
    if (m_frames.empty() && m_target != nullptr)
        object = m_target;
    else
        object = m_schema.MakeObject(assessment.type, assessment.declaration);
    object->m_type = assessment.type;
    object->m_declaration = assessment.declaration;
    object->m_isNil = assessment.isNil;
    object->m_schema = &m_schema; // of which that of a class made before is a part
    object->BecomeEmpty();
    CTypedObject* const raw = object;
    if (raw == m_target || assessment.declaration == kNone)
        raw->SetElementName(element.GetLocalName().c_str());
    if (assessment.declaration == kNone && !element.GetNamespaceURI().empty())
        raw->OwnRare().ns = element.GetNamespaceURI();
    MakeRoom(element, *raw);
    if (m_frames.empty())
        m_root = object;
    else
        AddNode(assessment, CSmartPtr<CXmlObjectBase>(raw), {});
    m_frames.push_back({raw, assessment});
}

// Exactly for what follows.
void ObjectBuilder::MakeRoom(CXmlElement const& element, CTypedObject& object) {
    std::size_t children = 0;
    for (CXmlElement const* child = element.GetFirstElement(); child != nullptr;
         child = child->GetNextSiblingElement())
        ++children;
    object.m_nodes.reserve(children);
    object.m_attributes.reserve(element.GetAttributeCount());
}

void ObjectBuilder::OnPlainValue(std::uint32_t declaration, std::uint32_t particleDeclaration,
                                 std::string_view text) {
    Outer().m_nodes.push_back(
        {m_schema.GetGrammar().SymbolOf(particleDeclaration), declaration, {}, ValueText(text)});
}

CTypedObject& ObjectBuilder::Outer() {
    return *m_frames.back().object;
}

void ObjectBuilder::AddNode(Assessment const& assessment, CSmartPtr<CXmlObjectBase> object,
                            std::string_view text) {
    Symbol const symbol = assessment.particleDeclaration == kNone
                              ? kNone
                              : m_schema.GetGrammar().SymbolOf(assessment.particleDeclaration);
    Outer().m_nodes.push_back({symbol, assessment.declaration, std::move(object), ValueText(text)});
}

void ObjectBuilder::OnAttribute(CXmlAttribute& attribute, AttributeRow const* row) {
    CTypedObject& object = Outer();
    std::string room;
    SimpleTypes const& types = m_schema.GetGrammar().GetSimpleTypes();
    std::string_view const value = row == nullptr
                                       ? attribute.GetValueView()
                                       : types.Normalize(row->type, attribute.GetValueView(), room);
    bool const hasNames = row == nullptr || m_schema.GetGrammar().GetSimpleTypes().HasQNames(row->type);
    if (hasNames)
        KeepPrefixes(value);
    if (row != nullptr)
        object.m_attributes.push_back({row, {}, {}, ValueText(value)});
    else
        object.m_attributes.push_back(
            {nullptr, attribute.GetLocalName(), attribute.GetNamespaceURI(), ValueText(value)});
}

void ObjectBuilder::OnValue(std::string_view text, std::uint32_t type) {
    std::string room;
    text = m_schema.GetGrammar().GetSimpleTypes().Normalize(type, text, room);
    Frame const& frame = m_frames.back();
    if (frame.object != nullptr) {
        frame.object->m_text = text;
        if (m_schema.GetGrammar().GetSimpleTypes().HasQNames(type))
            KeepPrefixes(text);
        return;
    }
    Assessment const assessment = frame.assessment;
    m_frames.pop_back();
    AddNode(assessment, {}, text);
    m_frames.push_back({nullptr, assessment});
}

void ObjectBuilder::OnText(CXmlElement& element, std::string_view text) {
    Outer().m_text = text;
    std::vector<TextPlace> places = element.GetTextPlaces();
    if (!places.empty())
        Outer().OwnRare().textPlaces = std::move(places);
}

void ObjectBuilder::OnElementEnd() {
    m_frames.pop_back();
}

void ObjectBuilder::OnSkipped(CXmlElement& element) {
    CSmartPtr<CElement> const untyped(new CElement(element.GetLocalName().c_str()));
    untyped->FromXmlElement(&element, m_ctx);
    AddNode({}, CSmartPtr<CXmlObjectBase>(untyped->GetBase()), {});
}

// What stands before the colons of a text that may hold qualified names, as far as it is declared.
void ObjectBuilder::KeepPrefixes(std::string_view text) {
    constexpr std::string_view kBreaks = " \t\r\n";
    CTypedObject& object = Outer();
    while (!text.empty()) {
        std::size_t const end = std::min(text.find_first_of(kBreaks), text.size());
        std::string_view const word = text.substr(0, end);
        std::size_t const colon = word.find(':');
        std::string const prefix(colon == std::string_view::npos ? std::string_view()
                                                                 : word.substr(0, colon));
        std::string const ns =
            prefix == "xml" ? std::string() : m_element->LookupNamespaceFromAlias(prefix.c_str());
        if (!ns.empty())
            object.DeclarePrefix(prefix, ns);
        text.remove_prefix(std::min(end + 1, text.size()));
    }
}

} // namespace ZvXmlLib16::generated
