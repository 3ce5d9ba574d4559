#include "zvxmllib/generated/BoundSchema.h"

#include "zvxmllib/generated/ObjectBuilder.h"
#include "zvxmllib/generated/TypedObject.h"

#include "zvxmllib/binding/GeneratorVersion.h"
#include "zvxmllib/document/XmlElement.h"
#include "zvxmllib/foundation/Exceptions.h"

#include <functional>

namespace ZvXmlLib16::generated {

BoundSchema::BoundSchema(grammar::GrammarRows const& rows, ObjectMaker maker, BoundSchema const* base)
    : m_grammar(rows), m_orders(m_grammar), m_maker(maker), m_base(base) {
    m_elementNames.reserve(rows.elements.count);
    for (grammar::ElementRow const& row : rows.elements) {
        m_isQualified = m_isQualified && *row.ns != '\0';
        m_elementNames.push_back({row.name, &*m_namespaces.emplace(row.ns).first});
    }
    m_attributeNames.reserve(rows.attributes.count);
    for (grammar::AttributeRow const& row : rows.attributes)
        m_attributeNames.push_back({row.name, &*m_namespaces.emplace(row.ns).first});
    SetGeneratorVersion(kLibraryMajorVersion, kLibraryMinorVersion);
}

BoundSchema::~BoundSchema() = default;

DeclaredName const* BoundSchema::FindNameOfAttribute(grammar::AttributeRow const& row) const noexcept {
    auto const& rows = m_grammar.GetRows().attributes;
    std::less<grammar::AttributeRow const*> const isAhead;
    if (rows.count == 0 || isAhead(&row, rows.rows) || !isAhead(&row, rows.rows + rows.count))
        return nullptr;
    return &m_attributeNames[static_cast<std::size_t>(&row - rows.rows)];
}

bool BoundSchema::Extends(BoundSchema const& other) const noexcept {
    return this == &other || (m_base != nullptr && m_base->Extends(other));
}

CSmartPtr<CTypedObject> BoundSchema::MakeObject(grammar::TypeId type, std::uint32_t declaration) const {
    CTypedObject* const made = m_maker == nullptr ? nullptr : m_maker(type, declaration);
    return made != nullptr ? made : new CTypedObject(*this, type, declaration);
}

CSmartPtr<CTypedObject> BoundSchema::Read(CXmlElement& root, CSerializationContext const& ctx,
                                          std::uint32_t element, InputOrder order) const {
    std::uint32_t found = m_grammar.FindElement(root.GetLocalName(), root.GetNamespaceURI());
    if (found == grammar::kNone && order == InputOrder::kAnyWithoutNamespaces &&
        root.GetNamespaceURI().empty())
        found = m_grammar.FindElementByLocalName(root.GetLocalName());
    if (element != grammar::kNone && found != element)
        throw CZvValidationException("The root element is [" + root.GetLocalName() + "], not [" +
                                         m_grammar.GetRows().elements[element].name + "].",
                                     root.GetXPath());
    ObjectBuilder builder(*this, ctx);
    return builder.Build(root, nullptr, order);
}

} // namespace ZvXmlLib16::generated
