#include "zvxmllib/document/PlainElements.h"

#include "zvxmllib/document/PlainCharacters.h"
#include "zvxmllib/document/XmlDocument.h"
#include "zvxmllib/document/XmlTree.h"

#include <algorithm>
#include <memory>

namespace ZvXmlLib16::detail {

PlainElements::PlainElements(CXmlDocument& document, bool isStrict, Values values)
    : m_doc(document), m_tree(*document.m_tree), m_isBorrowing(values == Values::kBorrowed),
      m_scopes(m_tree.GetNames()) {
    if (isStrict)
        m_prefixScopes = &m_tree.KeepScopes();
}

// All that can go wrong does so before the tree knows of the element: the parser would not have told of it.
bool PlainElements::Start(PlainName& name, char const* place) {
    PlainScopes::Place const outside = m_scopes.GetPlace();
    for (Attribute const& attribute : m_attributes) {
        if (attribute.name->isDeclaration && !Declare(outside, attribute))
            return false;
    }
    XmlName const* const known = m_scopes.FindElementName(name);
    if (known == nullptr || !FindAttributeNames())
        return false;
    m_place = place;
    CXmlElement const* const element = m_tree.AddElement(known);
    for (Attribute const& attribute : m_attributes) {
        if (attribute.known != nullptr)
            AddToTree(attribute);
    }
    if (m_prefixScopes != nullptr)
        m_prefixScopes->AddElement(element);
    m_open.push_back({&name, outside});
    return true;
}

void PlainElements::AddToTree(Attribute const& attribute) {
    m_place = attribute.place;
    if (attribute.keptLength != 0)
        m_tree.AddElementAttribute(attribute.known,
                                   std::string_view(m_values).substr(attribute.kept, attribute.keptLength));
    else if (m_isBorrowing)
        m_tree.AddKeptAttribute(attribute.known, attribute.value);
    else
        m_tree.AddElementAttribute(attribute.known, attribute.value);
}

bool PlainElements::Declare(PlainScopes::Place const& outside, Attribute const& attribute) {
    PlainName const& name = *attribute.name;
    std::string_view const prefix = name.prefixLength == 0 ? std::string_view() : name.GetLocalName();
    std::string_view const uri = attribute.value;
    if (attribute.keptLength != 0 || (uri.empty() && !prefix.empty()) || !IsPlainDeclaration(prefix, uri))
        return false;
    NameTable& names = m_tree.GetNames();
    std::string const* const keptPrefix = names.Keep(prefix);
    std::string const* const keptUri = names.Keep(uri);
    if (!m_scopes.Declare(outside, keptPrefix, keptUri))
        return false;
    m_doc.m_namespaces[*keptPrefix] = std::make_shared<std::string const>(uri);
    if (m_prefixScopes != nullptr)
        m_prefixScopes->Declare(keptPrefix, keptUri);
    return true;
}

// No two attributes have the same name, also by way of different prefixes.
bool PlainElements::FindAttributeNames() {
    for (auto attribute = m_attributes.begin(); attribute != m_attributes.end(); ++attribute) {
        if (attribute->name->isDeclaration)
            continue;
        attribute->known = m_scopes.FindAttributeName(*attribute->name);
        auto const isSame = [attribute](Attribute const& other) { return other.known == attribute->known; };
        if (attribute->known == nullptr || std::any_of(m_attributes.begin(), attribute, isSame))
            return false;
    }
    return true;
}

void PlainElements::End() {
    m_tree.EndElement();
    m_scopes.Return(m_open.back().outside);
    m_open.pop_back();
}

} // namespace ZvXmlLib16::detail
