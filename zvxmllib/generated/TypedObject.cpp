#include "zvxmllib/generated/TypedObject.h"

#include "zvxmllib/generated/ItemTypes.h"
#include "zvxmllib/generated/ObjectBuilder.h"

#include "zvxmllib/collections/Element.h"
#include "zvxmllib/context/SerializationContext.h"
#include "zvxmllib/document/XmlElement.h"
#include "zvxmllib/foundation/Exceptions.h"
#include "zvxmllib/foundation/XmlNamespaces.h"
#include "zvxmllib/grammar/LexicalForms.h"
#include "zvxmllib/writers/XmlWriter.h"

#include <algorithm>

namespace ZvXmlLib16::generated {

using namespace grammar;

CTypedObject::CTypedObject(BoundSchema const& schema, TypeId type, std::uint32_t declaration)
    : m_schema(&schema), m_type(type), m_declaration(declaration) {
    if (declaration != kNone)
        SetElementName(Rows().elements[declaration].name);
}

CTypedObject::~CTypedObject() = default;

std::string CTypedObject::GetNamespace() {
    return Namespace();
}

namespace {

std::string const kNoText;

} // namespace

std::string const& CTypedObject::Namespace() const noexcept {
    if (m_declaration != kNone)
        return *m_schema->NameOfElement(m_declaration).ns;
    return m_rare == nullptr ? kNoText : m_rare->ns;
}

void CTypedObject::BecomeEmpty() noexcept {
    m_attributes.clear();
    m_nodes.clear();
    m_text.clear();
    m_rare.reset();
}

void CTypedObject::SetNil(bool isNil) {
    if (isNil && (m_declaration == kNone || !Rows().elements[m_declaration].isNillable))
        throw CZvInvalidStateException("The element [" + GetElementName() + "] is not nillable.");
    m_isNil = isNil;
}

CXmlElement* CTypedObject::FromXml_Int(CXmlElement* element, CXmlElement*, CSerializationContext const& ctx,
                                       bool) {
    ObjectBuilder(*m_schema, ctx).Build(*element, this);
    return nullptr;
}

// The id of the type of its value; kNone without simple content.
std::uint32_t CTypedObject::SimpleTypeId() const noexcept {
    if (!IsComplex(m_type))
        return static_cast<std::uint32_t>(m_type);
    if (m_type == kAnyType)
        return kNone;
    ComplexTypeRow const& row = Rows().complexTypes[ComplexTypeRowOf(m_type)];
    return row.content == Content::kSimple ? row.simpleType : kNone;
}

void CTypedObject::TestValue(std::uint32_t type, std::string_view text, char const* name) const {
    std::string room;
    char const* const fault =
        m_schema->GetGrammar().GetSimpleTypes().FindFault(type, text, nullptr, nullptr, room);
    if (fault != nullptr)
        throw CZvInvalidValueException("[" + std::string(name) + "] " + fault);
}

std::size_t CTypedObject::NextIndex(std::uint32_t declaration, std::size_t from) const noexcept {
    Symbol const symbol = declaration == kNone ? kNone : m_schema->GetGrammar().SymbolOf(declaration);
    while (from < m_nodes.size() && m_nodes[from].symbol != symbol)
        ++from;
    return from;
}

std::size_t CTypedObject::Count(std::uint32_t declaration) const noexcept {
    std::size_t count = 0;
    for (std::size_t i = NextIndex(declaration, 0); i < m_nodes.size(); i = NextIndex(declaration, i + 1))
        ++count;
    return count;
}

CTypedObject::Node const* CTypedObject::Find(std::uint32_t declaration) const noexcept {
    std::size_t const index = NextIndex(declaration, 0);
    return index < m_nodes.size() ? &m_nodes[index] : nullptr;
}

namespace {

std::size_t IndexIn(std::vector<ContentEntry> const& order, Symbol symbol) {
    auto const found = std::find_if(order.begin(), order.end(),
                                    [symbol](ContentEntry const& entry) { return entry.symbol == symbol; });
    return static_cast<std::size_t>(found - order.begin());
}

// The place in the order of the schema of an element of that name that has `earlier` others ahead of it.
std::size_t RankOf(std::vector<ContentEntry> const& order, std::size_t index, std::size_t earlier) {
    if (index == order.size() || earlier == 0 || order[index].laterBehind.empty())
        return 2 * index;
    std::vector<Symbol> const& behind = order[index].laterBehind;
    return 2 * IndexIn(order, behind[std::min(earlier, behind.size()) - 1]) + 1;
}

} // namespace

// Behind the last of that name, of the same repeatable choice, or else of those that the schema has ahead of
// it.
std::size_t CTypedObject::PlaceFor(Symbol symbol) const {
    std::vector<ContentEntry> const& order = m_schema->GetContentOrders().Of(m_type);
    auto const earlierThan = [this, &order](std::size_t place, std::size_t index, Symbol of) {
        if (index == order.size() || order[index].laterBehind.empty())
            return std::size_t{0};
        return static_cast<std::size_t>(std::count_if(m_nodes.begin(),
                                                      m_nodes.begin() + static_cast<std::ptrdiff_t>(place),
                                                      [of](Node const& node) { return node.symbol == of; }));
    };
    std::size_t const own = IndexIn(order, symbol);
    std::size_t const ownRank = RankOf(order, own, earlierThan(m_nodes.size(), own, symbol));
    auto const isAhead = [&](std::size_t place) {
        Symbol const other = m_nodes[place].symbol;
        std::size_t const entry = IndexIn(order, other);
        bool const isSameChoice = own != order.size() && entry != order.size() &&
                                  order[own].choice != kNone && order[entry].choice == order[own].choice;
        return other == symbol || isSameChoice ||
               RankOf(order, entry, earlierThan(place, entry, other)) <= ownRank;
    };
    std::size_t place = m_nodes.size();
    while (place != 0 && !isAhead(place - 1))
        --place;
    return place;
}

void CTypedObject::Insert(std::uint32_t declaration, CSmartPtr<CXmlObjectBase> object,
                          std::string_view text) {
    Symbol const symbol = m_schema->GetGrammar().SymbolOf(declaration);
    std::uint32_t actual = declaration;
    if (object != nullptr)
        actual = static_cast<CTypedObject&>(*object).DeclarationId();
    std::size_t const place = PlaceFor(symbol);
    m_nodes.insert(m_nodes.begin() + static_cast<std::ptrdiff_t>(place),
                   Node{symbol, actual, std::move(object), ValueText(text)});
    if (m_rare == nullptr)
        return;
    for (TextPlace& part : m_rare->textPlaces)
        part.children += part.children > place ? 1U : 0U;
}

void CTypedObject::AppendText(std::uint32_t declaration, std::string text) {
    ElementRow const& row = Rows().elements[declaration];
    if (IsComplex(row.type))
        throw CZvInvalidParamException("The element [" + std::string(row.name) + "] is not a value.");
    TestValue(static_cast<std::uint32_t>(row.type), text, row.name);
    Insert(declaration, {}, text);
}

void CTypedObject::PutText(std::uint32_t declaration, std::string text) {
    std::size_t const index = NextIndex(declaration, 0);
    if (index == m_nodes.size())
        return AppendText(declaration, std::move(text));
    ElementRow const& row = Rows().elements[declaration];
    TestValue(static_cast<std::uint32_t>(row.type), text, row.name);
    m_nodes[index].object = nullptr;
    m_nodes[index].text = ValueText(text);
}

// An object of a member of the substitution group keeps its name; another one takes that of the declaration.
void CTypedObject::AppendObject(std::uint32_t declaration, CTypedObject* object) {
    if (object == nullptr)
        throw CZvInvalidParamException("The element [" + std::string(Rows().elements[declaration].name) +
                                       "] needs an object.");
    // Where the rows of one schema begin with those of the other, both objects go by the larger one.
    if (m_schema->Extends(*object->m_schema))
        object->m_schema = m_schema;
    else if (object->m_schema->Extends(*m_schema))
        m_schema = object->m_schema;
    else
        throw CZvInvalidParamException("The object [" + object->GetElementName() +
                                       "] belongs to another schema.");
    ElementRow const& row = Rows().elements[declaration];
    Grammar const& grammar = m_schema->GetGrammar();
    std::uint32_t const own = object->m_declaration;
    bool const isMember = own != kNone && grammar.Accept(declaration, grammar.SymbolOf(own)) == own;
    if (!isMember && !grammar.IsDerivedFrom(object->m_type, row.type, row.block))
        throw CZvInvalidParamException("The type [" + grammar.NameOfType(object->m_type) +
                                       "] cannot stand for the element [" + row.name + "].");
    if (!isMember) {
        object->m_declaration = declaration;
        object->SetElementName(row.name);
    }
    Insert(declaration, CSmartPtr<CXmlObjectBase>(object), {});
}

void CTypedObject::PutObject(std::uint32_t declaration, CTypedObject* object) {
    CSmartPtr<CTypedObject> const kept(object);
    std::vector<Node> const before = m_nodes;
    std::vector<TextPlace> const placesBefore = TextPlaces();
    DropAll(declaration);
    try {
        AppendObject(declaration, object);
    } catch (CZvException const&) {
        m_nodes = before;
        if (m_rare != nullptr)
            m_rare->textPlaces = placesBefore;
        throw;
    }
}

void CTypedObject::DropAll(std::uint32_t declaration) {
    Symbol const symbol = m_schema->GetGrammar().SymbolOf(declaration);
    if (m_rare != nullptr) {
        std::uint32_t kept = 0;
        auto part = m_rare->textPlaces.begin();
        for (std::uint32_t i = 0; part != m_rare->textPlaces.end(); ++i) {
            for (; part != m_rare->textPlaces.end() && part->children == i; ++part)
                part->children = kept;
            kept += i < m_nodes.size() && m_nodes[i].symbol != symbol ? 1U : 0U;
        }
    }
    m_nodes.erase(std::remove_if(m_nodes.begin(), m_nodes.end(),
                                 [symbol](Node const& node) { return node.symbol == symbol; }),
                  m_nodes.end());
}

CTypedObject& CTypedObject::Obtain(std::uint32_t declaration) {
    Node const* node = Find(declaration);
    if (node == nullptr || node->object == nullptr) {
        CSmartPtr<CTypedObject> const made =
            m_schema->MakeObject(Rows().elements[declaration].type, declaration);
        AppendObject(declaration, made);
        node = Find(declaration);
    }
    return static_cast<CTypedObject&>(*node->object);
}

ValueText const* CTypedObject::FindAttribute(std::uint32_t attribute) const noexcept {
    AttributeRow const& row = Rows().attributes[attribute];
    for (Attribute const& candidate : m_attributes) {
        // A derived type has rows of its own.
        if (candidate.row == &row ||
            (candidate.row != nullptr && std::string_view(candidate.row->name) == row.name &&
             std::string_view(candidate.row->ns) == row.ns))
            return &candidate.value;
    }
    return nullptr;
}

void CTypedObject::DropAttribute(std::uint32_t attribute) {
    ValueText const* const value = FindAttribute(attribute);
    m_attributes.erase(
        std::remove_if(m_attributes.begin(), m_attributes.end(),
                       [value](Attribute const& candidate) { return &candidate.value == value; }),
        m_attributes.end());
}

void CTypedObject::PutAttribute(std::uint32_t attribute, std::string text) {
    AttributeRow const& row = Rows().attributes[attribute];
    TestValue(row.type, text, row.name);
    ValueText const* const value = FindAttribute(attribute);
    if (value != nullptr)
        const_cast<ValueText&>(*value) = ValueText(text);
    else
        m_attributes.push_back({&row, {}, {}, ValueText(text)});
}

void CTypedObject::PutContentText(std::string text) {
    std::uint32_t const type = SimpleTypeId();
    if (type != kNone)
        TestValue(type, text, GetElementName().c_str());
    m_text = std::move(text);
    if (m_rare != nullptr)
        m_rare->textPlaces.clear();
}

std::vector<TextPlace> const& CTypedObject::TextPlaces() const noexcept {
    static std::vector<TextPlace> const s_none;
    return m_rare == nullptr ? s_none : m_rare->textPlaces;
}

CTypedObject::Rare& CTypedObject::OwnRare() {
    if (m_rare == nullptr)
        m_rare = std::make_unique<Rare>();
    return *m_rare;
}

bool CTypedObject::IsMixed() const noexcept {
    return m_type == kAnyType ||
           (IsComplex(m_type) && Rows().complexTypes[ComplexTypeRowOf(m_type)].content == Content::kMixed);
}

std::vector<CTypedObject::Piece> CTypedObject::ContentPieces() const {
    std::vector<Piece> pieces;
    WalkContent(
        IsMixed() ? m_text : std::string_view(), TextPlaces(), m_nodes.size(),
        [&pieces](std::string_view text) {
            pieces.push_back({text, nullptr});
        },
        [&](std::size_t index) {
            pieces.push_back({{}, &m_nodes[index]});
        });
    return pieces;
}

void CTypedObject::AddMixedText(std::string_view text) {
    if (!IsMixed())
        throw CZvInvalidStateException("The element [" + GetElementName() + "] has no mixed content.");
    auto const children = static_cast<std::uint32_t>(m_nodes.size());
    std::vector<TextPlace>& places = OwnRare().textPlaces;
    if (places.empty())
        AddTextPlace(places, children, m_text.size());
    AddTextPlace(places, children, text.size());
    m_text += text;
}

std::string CTypedObject::PrefixUri(std::string_view prefix) const {
    if (prefix == "xml")
        return kXmlNamespace;
    if (m_rare == nullptr)
        return {};
    auto const found = std::find_if(m_rare->prefixes.begin(), m_rare->prefixes.end(),
                                    [prefix](auto const& kept) { return kept.first == prefix; });
    return found == m_rare->prefixes.end() ? std::string() : found->second;
}

void CTypedObject::DeclarePrefix(std::string const& prefix, std::string const& uri) {
    bool const isReserved =
        prefix == "xml" || prefix == "xmlns" || uri == kXmlNamespace || uri == kXmlnsNamespace;
    if (isReserved || uri.empty() || (!prefix.empty() && !grammar::IsNCName(prefix)))
        throw CZvInvalidParamException("The prefix [" + prefix + "] cannot stand for [" + uri + "].");
    std::vector<std::pair<std::string, std::string>>& prefixes = OwnRare().prefixes;
    auto const found = std::find_if(prefixes.begin(), prefixes.end(),
                                    [&prefix](auto const& kept) { return kept.first == prefix; });
    if (found == prefixes.end())
        prefixes.emplace_back(prefix, uri);
    else
        found->second = uri;
}

std::string CTypedObject::TextAt(std::size_t index) const {
    Node const& node = m_nodes[index];
    return node.object == nullptr ? node.text.Get() : static_cast<CTypedObject&>(*node.object).m_text;
}

CTypedObject const* CTypedObject::ChildAt(std::size_t index) const noexcept {
    return dynamic_cast<CTypedObject const*>(static_cast<CXmlObjectBase*>(m_nodes[index].object));
}

std::string CTypedObject::NameAt(std::size_t index) const {
    Node const& node = m_nodes[index];
    if (node.declaration != kNone)
        return Rows().elements[node.declaration].name;
    CTypedObject const* const child = ChildAt(index);
    if (child != nullptr)
        return child->GetElementName();
    auto const* const untyped = dynamic_cast<CElement const*>(static_cast<CXmlObjectBase*>(node.object));
    return untyped == nullptr ? std::string() : untyped->GetName();
}

CTypedObject& CTypedObject::ObjectAt(std::size_t index) const {
    return static_cast<CTypedObject&>(*m_nodes[index].object);
}

std::size_t CTypedObject::IndexOf(std::uint32_t declaration, std::size_t number) const {
    std::size_t index = NextIndex(declaration, 0);
    for (; number != 0 && index < m_nodes.size(); --number)
        index = NextIndex(declaration, index + 1);
    if (index >= m_nodes.size())
        throw CZvInvalidParamException("There are not so many elements [" +
                                       std::string(Rows().elements[declaration].name) + "].");
    return index;
}

std::string CTypedObject::TextOf(std::uint32_t declaration) const {
    std::size_t const index = NextIndex(declaration, 0);
    return index < m_nodes.size() ? TextAt(index) : std::string();
}

std::string CTypedObject::AttributeOf(std::uint32_t attribute) const {
    ValueText const* const value = FindAttribute(attribute);
    return value == nullptr ? Rows().attributes[attribute].value : value->Get();
}

bool CTypedObject::IsNilAt(std::uint32_t declaration) const noexcept {
    CTypedObject const* const object = FindObject(declaration);
    return object != nullptr && object->m_isNil;
}

CTypedObject* CTypedObject::FindObject(std::uint32_t declaration) const noexcept {
    Node const* const node = Find(declaration);
    return node == nullptr ? nullptr : static_cast<CTypedObject*>(static_cast<CXmlObjectBase*>(node->object));
}

CTypedObject const& CTypedObject::Require(std::uint32_t declaration) const {
    CTypedObject const* const object = FindObject(declaration);
    if (object == nullptr)
        throw CZvInvalidStateException("There is no element [" +
                                       std::string(Rows().elements[declaration].name) + "] in [" +
                                       GetElementName() + "].");
    return *object;
}

// A nil value is an object without content.
void CTypedObject::PutNil(std::uint32_t declaration) {
    CSmartPtr<CTypedObject> const nil(
        new CTypedObject(*m_schema, Rows().elements[declaration].type, declaration));
    nil->SetNil(true);
    PutObject(declaration, nil);
}

CTypedObject& CTypedObject::AppendNew(std::uint32_t declaration) {
    CSmartPtr<CTypedObject> const made = m_schema->MakeObject(Rows().elements[declaration].type, declaration);
    AppendObject(declaration, made);
    return *made;
}

void CTypedObject::NameAs(std::uint32_t element) const {
    if (m_declaration == element)
        return;
    if (element >= Rows().elements.count)
        throw CZvInvalidParamException("The object [" + GetElementName() + "] belongs to another schema.");
    ElementRow const& row = Rows().elements[element];
    if (!m_schema->GetGrammar().IsDerivedFrom(m_type, row.type, row.block))
        throw CZvInvalidParamException("The type [" + m_schema->GetGrammar().NameOfType(m_type) +
                                       "] cannot stand for the element [" + row.name + "].");
    auto& self = const_cast<CTypedObject&>(*this); // the name is no part of its value
    self.m_declaration = element;
    self.SetElementName(row.name);
}

} // namespace ZvXmlLib16::generated
