#include "zvxmllib/grammar/Validator.h"

#include "zvxmllib/document/XmlAttribute.h"
#include "zvxmllib/foundation/Exceptions.h"
#include "zvxmllib/foundation/XmlNamespaces.h"
#include "zvxmllib/grammar/LexicalForms.h"

#include <algorithm>
#include <exception>
#include <optional>

namespace ZvXmlLib16::grammar {

namespace {

constexpr unsigned kMostElementsDeep = 1000;
constexpr std::string_view kWhiteSpace = " \t\r\n";

bool IsBlank(std::string_view text) noexcept {
    return text.find_first_not_of(kWhiteSpace) == std::string_view::npos;
}

// type, nil, schemaLocation and noNamespaceSchemaLocation: any element may have them.
bool IsInstanceAttribute(CXmlAttribute const& attribute) noexcept {
    if (attribute.GetNamespaceURI() != kSchemaInstanceNamespace)
        return false;
    std::string const& name = attribute.GetLocalName();
    return name == "type" || name == "nil" || name == "schemaLocation" || name == "noNamespaceSchemaLocation";
}

CXmlAttribute const* FindInstanceAttribute(CXmlElement const& element, std::string_view name) noexcept {
    for (std::size_t i = 0; i < element.GetAttributeCount(); ++i) {
        CXmlAttribute const& attribute = *element.GetAttributeAt(i);
        if (attribute.GetLocalName() == name && attribute.GetNamespaceURI() == kSchemaInstanceNamespace)
            return &attribute;
    }
    return nullptr;
}

} // namespace

// The namespaces in scope at an element.
class Validator::Scope : public INamespaceScope {
public:
    explicit Scope(CXmlElement const& element) noexcept : m_element(element) {}

    bool FindNamespace(std::string_view prefix, std::string& ns) const override {
        if (prefix == "xml") {
            ns = "http://www.w3.org/XML/1998/namespace";
            return true;
        }
        ns = m_element.LookupNamespaceFromAlias(std::string(prefix).c_str());
        return prefix.empty() || !ns.empty();
    }

private:
    CXmlElement const& m_element;
};

// Validates the children as the walk places them.
class Validator::ChildContent : public IContentReceiver {
public:
    ChildContent(Validator& validator, Children const& children) noexcept
        : m_validator(validator), m_children(children) {}

    void OnElement(std::size_t child, std::uint32_t particle, std::uint32_t declaration) override {
        CXmlElement& element = *m_children.elements[child];
        std::uint32_t const declared = m_validator.m_grammar.GetRows().particles[particle].first;
        if (!m_validator.TakePlainValue(element, declaration, declared))
            m_validator.ValidateElement(element, declaration, ProcessContents::kStrict, declared);
    }
    void OnWildcard(std::size_t child, std::uint32_t particle) override {
        GrammarRows const& rows = m_validator.m_grammar.GetRows();
        ProcessContents const process = rows.wildcards[rows.particles[particle].first].processContents;
        m_validator.ValidateElement(*m_children.elements[child], kNone, process, kNone);
    }
    void OnGroupBegin(std::uint32_t) override {}
    void OnGroupEnd(std::uint32_t) override {}

private:
    Validator& m_validator;
    Children const& m_children;
};

Validator::Validator(Grammar const& grammar, CSerializationContext const& ctx, IAssessmentReceiver* receiver)
    : m_grammar(grammar), m_ctx(ctx), m_receiver(receiver), m_symbols(grammar),
      m_hasIdentities(grammar.GetRows().identities.count != 0), m_identities(grammar.GetIdentityPaths()) {}

Validator::~Validator() = default;

void Validator::ValidateDocument(CXmlElement& root, bool isLax) {
    m_ctx.GetFailureNotes().Begin();
    ValidateElement(root, kNone, isLax ? ProcessContents::kLax : ProcessContents::kStrict, kNone);
    CheckReferences();
    m_ctx.GetFailureNotes().ThrowFirst();
}

template <class Node>
void Validator::Fail(Node const& node, std::string message) {
    CZvValidationException failure(std::move(message), node.GetXPath());
    failure.SetPosition(node.GetLine(), node.GetColumn());
    detail::FailureNotes& notes = m_ctx.GetFailureNotes();
    CReadFailure note{failure.GetPath(), failure.GetLine(), failure.GetColumn(), failure.GetFullMessage()};
    if (!notes.Takes() || !notes.Note(std::move(note), std::make_exception_ptr(failure)))
        throw failure;
}

std::string_view Validator::TextOf(CXmlElement const& element) {
    return element.GetNodeText().Read(m_room);
}

void Validator::ValidateElement(CXmlElement& element, std::uint32_t declaration, ProcessContents process,
                                std::uint32_t particleDeclaration) {
    if (process == ProcessContents::kSkip) {
        if (m_receiver != nullptr)
            m_receiver->OnSkipped(element);
        return;
    }
    if (m_depth == kMostElementsDeep)
        throw CZvValidationException("Elements nest deeper than " + std::to_string(kMostElementsDeep) +
                                         " levels.",
                                     element.GetXPath());
    if (declaration == kNone)
        declaration = m_grammar.FindElement(m_symbols.NameOf(element).symbol);
    if (declaration == kNone && m_ignoresNamespaces && element.GetNamespaceURI().empty())
        declaration = m_grammar.FindElementByLocalName(element.GetLocalName());
    Target target{declaration, kAnyType, process, false, particleDeclaration};
    ++m_depth;
    if (m_hasIdentities) {
        Range const identities =
            declaration == kNone ? Range{} : m_grammar.GetRows().elements[declaration].identities;
        m_identities.EnterElement(element, identities);
    }
    bool const hasType = FindType(element, target);
    if (m_receiver != nullptr)
        m_receiver->OnElement(element, {declaration, target.type, target.isNil, particleDeclaration});
    if (hasType)
        ValidateContent(element, target);
    else
        LeaveElement(target, nullptr);
    if (m_receiver != nullptr)
        m_receiver->OnElementEnd();
    --m_depth;
}

// By far the most frequent elements, for which nothing but their value is to be tested.
bool Validator::TakePlainValue(CXmlElement const& element, std::uint32_t declaration,
                               std::uint32_t particleDeclaration) {
    ElementRow const& row = m_grammar.GetRows().elements[declaration];
    bool const isPlain = !IsComplex(row.type) && row.constraint == ValueConstraint::kNoValue &&
                         !row.isAbstract && row.identities.count == 0 && element.GetAttributeCount() == 0 &&
                         element.GetFirstElement() == nullptr && m_depth != kMostElementsDeep &&
                         !m_identities.IsActive();
    if (!isPlain)
        return false;
    std::string_view const text = TextOf(element);
    if (!m_grammar.GetSimpleTypes().FitsAtAGlance(static_cast<std::uint32_t>(row.type), text))
        return false;
    if (m_receiver != nullptr)
        m_receiver->OnPlainValue(declaration, particleDeclaration, text);
    return true;
}

// False if the element cannot be validated further.
bool Validator::FindType(CXmlElement& element, Target& target) {
    ElementRow const* const row =
        target.declaration == kNone ? nullptr : &m_grammar.GetRows().elements[target.declaration];
    if (row != nullptr)
        target.type = row->type;
    if (row != nullptr && row->isAbstract) {
        Fail(element, "The element " + Quote(row->name) + " is abstract.");
        return false;
    }
    bool hasType = row != nullptr;
    CXmlAttribute const* nil = nullptr;
    if (element.GetAttributeCount() != 0) {
        nil = FindInstanceAttribute(element, "nil");
        CXmlAttribute const* const type = FindInstanceAttribute(element, "type");
        if (type != nullptr) {
            if (!FindNamedType(element, Trim(type->GetValueView()), target))
                return false;
            hasType = true;
        }
    }
    if (!hasType && target.process == ProcessContents::kStrict) {
        Fail(element, "There is no declaration of the element " + Quote(element.GetLocalName()) + ".");
        return false;
    }
    if (nil != nullptr && row != nullptr && !ReadNil(element, target, Trim(nil->GetValueView())))
        return false;
    bool const isAbstract = IsComplex(target.type) && target.type != kAnyType &&
                            m_grammar.GetRows().complexTypes[ComplexTypeRowOf(target.type)].isAbstract;
    if (isAbstract)
        Fail(element, "The type " + Quote(m_grammar.NameOfType(target.type)) + " is abstract.");
    return !isAbstract;
}

// xsi:type.
bool Validator::FindNamedType(CXmlElement& element, std::string_view text, Target& target) {
    std::size_t const colon = text.find(':');
    std::string_view const prefix =
        colon == std::string_view::npos ? std::string_view() : text.substr(0, colon);
    std::string_view const local = colon == std::string_view::npos ? text : text.substr(colon + 1);
    std::string ns;
    TypeId type = kAnyType;
    if (!Scope(element).FindNamespace(prefix, ns) || !m_grammar.FindType(local, ns, type)) {
        Fail(element, "There is no type " + Quote(text) + ".");
        return false;
    }
    if (target.declaration != kNone) {
        ElementRow const& row = m_grammar.GetRows().elements[target.declaration];
        std::uint8_t blocked = row.block;
        if (IsComplex(row.type) && row.type != kAnyType)
            blocked = static_cast<std::uint8_t>(
                blocked | m_grammar.GetRows().complexTypes[ComplexTypeRowOf(row.type)].block);
        if (!m_grammar.IsDerivedFrom(type, row.type, blocked)) {
            Fail(element, "The type " + Quote(text) + " cannot stand for the type " +
                              Quote(m_grammar.NameOfType(row.type)) + ".");
            return false;
        }
    }
    target.type = type;
    return true;
}

bool Validator::ReadNil(CXmlElement& element, Target& target, std::string_view text) {
    ElementRow const& row = m_grammar.GetRows().elements[target.declaration];
    bool const isTrue = text == "true" || text == "1";
    if (!row.isNillable) {
        Fail(element, "The element " + Quote(row.name) + " is not nillable.");
    } else if (!isTrue && text != "false" && text != "0") {
        Fail(element, "The value " + Quote(text) + " of xsi:nil is not a valid boolean.");
    } else if (isTrue && row.constraint == ValueConstraint::kFixed) {
        Fail(element, "The element " + Quote(row.name) + " has a fixed value and cannot be nil.");
    } else {
        target.isNil = isTrue;
        return true;
    }
    return false;
}

void Validator::ValidateContent(CXmlElement& element, Target const& target) {
    GrammarRows const& rows = m_grammar.GetRows();
    ComplexTypeRow const* const complex = IsComplex(target.type) && target.type != kAnyType
                                              ? &rows.complexTypes[ComplexTypeRowOf(target.type)]
                                              : nullptr;
    if (element.GetAttributeCount() != 0 || (complex != nullptr && complex->attributes.count != 0))
        ValidateAttributes(element, target.type);
    if (target.isNil)
        ValidateNilContent(element, target);
    else if (!IsComplex(target.type))
        ValidateSimpleContent(element, target, static_cast<std::uint32_t>(target.type));
    else if (complex != nullptr && complex->content == Content::kSimple)
        ValidateSimpleContent(element, target, complex->simpleType);
    else
        ValidateComplexContent(element, target, complex);
}

void Validator::ValidateAttributes(CXmlElement& element, TypeId type) {
    GrammarRows const& rows = m_grammar.GetRows();
    Range uses;
    std::uint32_t wildcard = kNone;
    bool const isAny = type == kAnyType;
    if (IsComplex(type) && !isAny) {
        uses = rows.complexTypes[ComplexTypeRowOf(type)].attributes;
        wildcard = rows.complexTypes[ComplexTypeRowOf(type)].attributeWildcard;
    }
    m_isSeen.assign(uses.count, false);
    m_idAttributes = 0;
    for (std::size_t i = 0; i < element.GetAttributeCount(); ++i) {
        CXmlAttribute& attribute = *element.GetAttributeAt(i);
        if (IsInstanceAttribute(attribute)) {
            if (attribute.GetLocalName() != "type" && attribute.GetLocalName() != "nil")
                ReceiveUndeclared(attribute); // where schemas lie
            continue;
        }
        if (isAny) {
            std::uint32_t const global =
                m_grammar.FindAttribute(attribute.GetLocalName(), attribute.GetNamespaceURI());
            if (global != kNone)
                ValidateAttributeValue(element, attribute, rows.attributes[global]);
            else
                ReceiveUndeclared(attribute);
        } else {
            ValidateAttribute(element, attribute, uses, wildcard);
        }
    }
    AddDefaultAttributes(element, uses);
}

void Validator::ValidateAttribute(CXmlElement& element, CXmlAttribute& attribute, Range uses,
                                  std::uint32_t wildcard) {
    GrammarRows const& rows = m_grammar.GetRows();
    std::string const& name = attribute.GetLocalName();
    std::string const& ns = attribute.GetNamespaceURI();
    for (std::uint32_t i = 0; i < uses.count; ++i) {
        AttributeRow const& row = rows.attributes[uses.first + i];
        if (name != row.name || (ns != row.ns && !(m_ignoresNamespaces && ns.empty())))
            continue;
        m_isSeen[i] = true;
        return ValidateAttributeValue(element, attribute, row);
    }
    // Without its namespace it says nothing.
    if (m_ignoresNamespaces && ns.empty() &&
        (name == "schemaLocation" || name == "noNamespaceSchemaLocation"))
        return;
    if (wildcard == kNone || !m_grammar.Allows(rows.wildcards[wildcard], ns))
        return Fail(attribute, "The attribute " + Quote(name) + " is not allowed here.");
    ProcessContents const process = rows.wildcards[wildcard].processContents;
    if (process == ProcessContents::kSkip)
        return ReceiveUndeclared(attribute);
    std::uint32_t const global = m_grammar.FindAttribute(name, ns);
    if (global != kNone)
        ValidateAttributeValue(element, attribute, rows.attributes[global]);
    else if (process == ProcessContents::kStrict)
        Fail(attribute, "There is no declaration of the attribute " + Quote(name) + ".");
    else
        ReceiveUndeclared(attribute);
}

void Validator::ReceiveUndeclared(CXmlAttribute& attribute) {
    if (m_receiver != nullptr)
        m_receiver->OnAttribute(attribute, nullptr);
}

void Validator::ValidateAttributeValue(CXmlElement& element, CXmlAttribute& attribute,
                                       AttributeRow const& row) {
    SimpleTypes const& types = m_grammar.GetSimpleTypes();
    if (m_receiver != nullptr)
        m_receiver->OnAttribute(attribute, &row);
    bool const isFixed = row.constraint == ValueConstraint::kFixed;
    bool const needsValue = isFixed || types.HasIds(row.type) || m_identities.IsActive();
    Scope const scope(element);
    if (needsValue)
        m_value = {};
    char const* const fault = types.FindFault(row.type, attribute.GetValueView(), &scope,
                                              needsValue ? &m_value : nullptr, m_message);
    if (fault != nullptr) {
        if (m_identities.IsActive())
            m_identities.AddAttribute(row.name, row.ns, nullptr, {});
        return Fail(attribute, fault);
    }
    if (!needsValue)
        return;
    if (types.GetBuiltIn(row.type) == BuiltIn::kID && ++m_idAttributes > 1)
        Fail(attribute,
             "The element " + Quote(element.GetLocalName()) + " has several attributes of type ID.");
    if (isFixed && !IsEqual(element, row.type, m_value, row.value))
        Fail(attribute,
             "The attribute " + Quote(row.name) + " has the fixed value " + Quote(row.value) + ".");
    NoteIds(element, m_value);
    if (m_identities.IsActive())
        m_identities.AddAttribute(row.name, row.ns, &m_value, attribute.GetValueView());
}

// Tests for required ones, too.
void Validator::AddDefaultAttributes(CXmlElement& element, Range uses) {
    for (std::uint32_t i = 0; i < uses.count; ++i) {
        AttributeRow const& row = m_grammar.GetRows().attributes[uses.first + i];
        if (m_isSeen[i])
            continue;
        if (row.isRequired)
            Fail(element, "The attribute " + Quote(row.name) + " is missing.");
        if (row.constraint == ValueConstraint::kNoValue)
            continue;
        if (m_receiver != nullptr)
            m_receiver->OnDefaultAttribute(row);
        if (m_identities.IsActive()) {
            m_value = {};
            if (m_grammar.GetSimpleTypes().FindFault(row.type, row.value, nullptr, &m_value, m_message) ==
                nullptr)
                m_identities.AddAttribute(row.name, row.ns, &m_value, row.value);
        }
    }
}

bool Validator::IsEqual(CXmlElement&, std::uint32_t type, SimpleValue const& value, char const* fixed) {
    SimpleValue expected;
    std::string room;
    return m_grammar.GetSimpleTypes().FindFault(type, fixed, nullptr, &expected, room) == nullptr &&
           expected.key == value.key;
}

void Validator::NoteIds(CXmlElement& element, SimpleValue const& value) {
    for (std::string const& id : value.ids) {
        if (!m_ids.emplace(id, &element).second)
            Fail(element, "The ID " + Quote(id) + " stands twice in the document.");
    }
    for (std::string const& reference : value.idrefs)
        m_idReferences.emplace_back(reference, &element);
}

void Validator::CheckReferences() {
    for (auto const& [reference, element] : m_idReferences) {
        if (m_ids.count(reference) == 0)
            Fail(*element, "There is no ID " + Quote(reference) + " in the document.");
    }
}

void Validator::LeaveElement(Target const& target, SimpleValue const* value, bool hasSimpleType,
                             std::string_view text) {
    if (!m_hasIdentities)
        return;
    std::vector<IdentityFault> faults;
    bool const isNillable =
        target.declaration != kNone && m_grammar.GetRows().elements[target.declaration].isNillable;
    m_identities.LeaveElement(value, text, hasSimpleType, isNillable, faults);
    for (IdentityFault& fault : faults)
        Fail(*fault.element, std::move(fault.message));
}

bool Validator::HasSimpleType(TypeId type) const noexcept {
    return !IsComplex(type) ||
           (type != kAnyType &&
            m_grammar.GetRows().complexTypes[ComplexTypeRowOf(type)].content == Content::kSimple);
}

void Validator::ValidateNilContent(CXmlElement& element, Target const& target) {
    if (element.GetFirstElement() != nullptr || !element.GetNodeText().IsEmpty())
        Fail(element, "The element " + Quote(element.GetLocalName()) + " is nil, but has content.");
    LeaveElement(target, nullptr, HasSimpleType(target.type));
}

void Validator::ValidateSimpleContent(CXmlElement& element, Target const& target, std::uint32_t type) {
    ElementRow const* const row =
        target.declaration == kNone ? nullptr : &m_grammar.GetRows().elements[target.declaration];
    SimpleTypes const& types = m_grammar.GetSimpleTypes();
    if (element.GetFirstElement() != nullptr) {
        Fail(*element.GetFirstElement(), "The element " + Quote(element.GetFirstElement()->GetLocalName()) +
                                             " is not expected here; expected is a value.");
        return LeaveElement(target, nullptr);
    }
    std::string_view text = TextOf(element);
    bool const isConstrained = row != nullptr && row->constraint != ValueConstraint::kNoValue;
    bool const isDefault = isConstrained && text.empty();
    if (isDefault)
        text = row->value;
    bool const isFixed = isConstrained && row->constraint == ValueConstraint::kFixed && !isDefault;
    bool const needsValue = isFixed || types.HasIds(type) || m_identities.WantsValue();
    if (m_receiver != nullptr)
        m_receiver->OnValue(text, type);
    Scope const scope(element);
    SimpleValue value;
    char const* const fault =
        types.FindFault(type, text, isDefault ? nullptr : &scope, needsValue ? &value : nullptr, m_message);
    if (fault != nullptr) {
        Fail(element, fault);
        return LeaveElement(target, nullptr);
    }
    if (isFixed && !IsEqual(element, type, value, row->value))
        Fail(element, "The element " + Quote(row->name) + " has the fixed value " + Quote(row->value) + ".");
    if (needsValue)
        NoteIds(element, value);
    LeaveElement(target, needsValue ? &value : nullptr, true, Trim(text));
}

void Validator::ValidateComplexContent(CXmlElement& element, Target const& target,
                                       ComplexTypeRow const* type) {
    Content const kind = type == nullptr ? Content::kMixed : type->content;
    if (kind == Content::kElementOnly && !IsBlank(TextOf(element)))
        Fail(element, "The element " + Quote(element.GetLocalName()) + " may hold no text.");
    if (kind == Content::kEmpty && !element.GetNodeText().IsEmpty())
        Fail(element, "The element " + Quote(element.GetLocalName()) + " is to be empty.");
    if (type == nullptr) {
        // anyType: whatever has a declaration is tested by it.
        for (CXmlElement* child = element.GetFirstElement(); child != nullptr;
             child = child->GetNextSiblingElement())
            ValidateElement(*child, kNone, ProcessContents::kLax, kNone);
    } else {
        ValidateChildren(element, target.type, type->particle);
    }
    if (kind == Content::kMixed && m_receiver != nullptr)
        m_receiver->OnText(element, TextOf(element));
    if (target.declaration != kNone) {
        ElementRow const& row = m_grammar.GetRows().elements[target.declaration];
        if (row.constraint == ValueConstraint::kFixed)
            CheckFixedText(element, row, TextOf(element));
    }
    LeaveElement(target, nullptr, false);
}

void Validator::ValidateChildren(CXmlElement& element, TypeId type, std::uint32_t particle) {
    while (m_children.size() < m_depth)
        m_children.emplace_back();
    Children& children = m_children[m_depth - 1];
    children.elements.clear();
    children.names.clear();
    for (CXmlElement* child = element.GetFirstElement(); child != nullptr;
         child = child->GetNextSiblingElement()) {
        children.elements.push_back(child);
        children.names.push_back(m_symbols.NameOf(*child));
    }
    if (m_ignoresNamespaces)
        AddNamespaces(children, type);
    if (m_orders != nullptr)
        SortUnlessFit(children, type, particle);
    ChildContent content(*this, children);
    ContentWalk walk(m_grammar, content, children.room);
    ContentFault fault;
    if (!walk.Walk(particle, children.names.data(), children.names.size(), fault))
        Fail(fault.child < children.elements.size() ? *children.elements[fault.child] : element,
             std::move(fault.message));
}

// To names that the content can only have with a namespace.
void Validator::AddNamespaces(Children& children, TypeId type) const {
    for (ElementName& name : children.names) {
        if (!name.ns.empty())
            continue;
        for (ContentEntry const& entry : m_orders->Of(type)) {
            std::uint32_t const element =
                entry.declaration == kNone ? kNone : m_grammar.AcceptLocalName(entry.declaration, name.name);
            if (element == kNone)
                continue;
            name.symbol = m_grammar.SymbolOf(element);
            name.ns = m_grammar.GetRows().elements[element].ns;
            break;
        }
    }
}

void Validator::SortUnlessFit(Children& children, TypeId type, std::uint32_t particle) const {
    NoContentReceiver receiver;
    ContentFault fault;
    if (ContentWalk(m_grammar, receiver, children.room)
            .Walk(particle, children.names.data(), children.names.size(), fault))
        return;
    std::vector<ContentEntry> const& entries = m_orders->Of(type);
    std::vector<std::pair<std::size_t, std::size_t>> ranks; // rank, index
    for (std::size_t i = 0; i < children.names.size(); ++i) {
        Symbol const symbol = children.names[i].symbol;
        auto const entry = std::find_if(entries.begin(), entries.end(), [&](ContentEntry const& candidate) {
            return candidate.symbol == kNone ? symbol == kNone
                                             : m_grammar.Accept(candidate.declaration, symbol) != kNone;
        });
        ranks.emplace_back(static_cast<std::size_t>(entry - entries.begin()), i);
    }
    std::sort(ranks.begin(), ranks.end());
    Children sorted;
    for (auto const& [rank, index] : ranks) {
        sorted.elements.push_back(children.elements[index]);
        sorted.names.push_back(children.names[index]);
    }
    children = std::move(sorted);
}

// Of mixed content.
void Validator::CheckFixedText(CXmlElement& element, ElementRow const& row, std::string_view text) {
    bool const isEmpty = element.GetFirstElement() == nullptr && text.empty();
    if (!isEmpty && (element.GetFirstElement() != nullptr || text != row.value))
        Fail(element, "The element " + Quote(row.name) + " has the fixed value " + Quote(row.value) + ".");
}

} // namespace ZvXmlLib16::grammar
