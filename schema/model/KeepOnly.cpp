#include "schema/model/KeepOnly.h"

#include <algorithm>
#include <utility>

namespace ZvXmlLib16::schema {

using namespace grammar;

namespace {

// The rows of one kind that are kept, and their new numbers.
class Kept {
public:
    explicit Kept(std::size_t count) : m_isKept(count, false) {}

    // False if it was there already.
    bool Add(std::uint32_t row) {
        bool const isNew = !m_isKept[row];
        m_isKept[row] = true;
        return isNew;
    }
    void Add(Range const& range) {
        for (std::uint32_t row = range.first; row < range.first + range.count; ++row)
            m_isKept[row] = true;
    }
    bool Has(std::uint32_t row) const { return m_isKept[row]; }

    // Drops the others.
    template <class Row>
    void Shrink(std::vector<Row>& rows) const {
        std::size_t end = 0;
        for (std::size_t row = 0; row < rows.size(); ++row) {
            if (!m_isKept[row])
                continue;
            if (end != row)
                rows[end] = std::move(rows[row]);
            ++end;
        }
        rows.erase(rows.begin() + static_cast<std::ptrdiff_t>(end), rows.end());
    }
    void Number() {
        m_numbers.clear();
        std::uint32_t next = 0;
        for (bool const isKept : m_isKept) {
            m_numbers.push_back(next);
            next += isKept ? 1 : 0;
        }
    }
    // kNone stays.
    void Renew(std::uint32_t& row) const {
        if (row != kNone)
            row = m_numbers[row];
    }
    std::uint32_t NumberOf(std::uint32_t row) const { return m_numbers[row]; }
    void Renew(Range& range) const { range.first = range.count == 0 ? 0 : m_numbers[range.first]; }

private:
    std::vector<bool> m_isKept;
    std::vector<std::uint32_t> m_numbers;
};

enum class Answer : std::uint8_t { kUnknown, kYes, kNo };

class Selection {
public:
    explicit Selection(Schema& schema)
        : m_schema(schema), m_simpleTypes(schema.simpleTypes.size()), m_facets(schema.facets.size()),
          m_complexTypes(schema.complexTypes.size()), m_elements(schema.elements.size()),
          m_attributes(schema.attributes.size()), m_wildcards(schema.wildcards.size()),
          m_particles(schema.particles.size()), m_identities(schema.identities.size()),
          m_indexes(schema.indexes.size()), m_texts(schema.texts.size()) {}

    void AddElement(std::uint32_t row) {
        if (m_elements.Add(row))
            m_newElements.push_back(row);
    }
    void AddType(TypeId type) {
        if (!IsComplex(type))
            AddSimpleType(static_cast<std::uint32_t>(type));
        else if (type != kAnyType && m_complexTypes.Add(ComplexTypeRowOf(type)))
            m_newTypes.push_back(ComplexTypeRowOf(type));
    }
    void AddDocument(std::uint32_t row) {
        std::vector<std::uint32_t>& documents = *m_schema.documentElements;
        if (std::find(documents.begin(), documents.end(), row) != documents.end())
            return;
        documents.push_back(row);
        AddElement(row);
    }
    // Rows of other sets keep their numbers.
    void AddForeign() {
        RowCounts const counts = m_schema.CountForeign();
        for (std::uint32_t row = 0; row < counts.elements; ++row)
            AddElement(row);
        for (std::uint32_t row = 0; row < counts.complexTypes; ++row)
            AddType(ComplexTypeId(row));
        for (std::uint32_t row = 0; row < counts.simpleTypes; ++row)
            AddSimpleType(kBuiltInCount + row);
    }
    void AddWhatTheyNeed() {
        AddAttributes(m_schema.globalAttributes);
        do {
            while (!m_newElements.empty() || !m_newTypes.empty()) {
                if (!m_newElements.empty())
                    TakeElement(Pop(m_newElements));
                else
                    TakeType(Pop(m_newTypes));
            }
            AddStandIns();
        } while (!m_newElements.empty() || !m_newTypes.empty());
    }
    void DropTheOthers() {
        for (Kept* const kept : {&m_simpleTypes, &m_facets, &m_complexTypes, &m_elements, &m_attributes,
                                 &m_wildcards, &m_particles, &m_identities, &m_indexes, &m_texts})
            kept->Number();
        RenewReferences();
        ShrinkBoth(m_simpleTypes, m_schema.simpleTypes, m_schema.simpleTypeSources);
        ShrinkBoth(m_facets, m_schema.facets, m_schema.facetSources);
        ShrinkBoth(m_complexTypes, m_schema.complexTypes, m_schema.complexTypeSources);
        ShrinkBoth(m_elements, m_schema.elements, m_schema.elementSources);
        ShrinkBoth(m_attributes, m_schema.attributes, m_schema.attributeSources);
        ShrinkBoth(m_particles, m_schema.particles, m_schema.particleSources);
        m_wildcards.Shrink(m_schema.wildcards);
        m_identities.Shrink(m_schema.identities);
        m_indexes.Shrink(m_schema.indexes);
        m_texts.Shrink(m_schema.texts);
    }

private:
    static std::uint32_t Pop(std::vector<std::uint32_t>& rows) {
        std::uint32_t const row = rows.back();
        rows.pop_back();
        return row;
    }
    template <class Row, class RowSource>
    static void ShrinkBoth(Kept const& kept, std::vector<Row>& rows, std::vector<RowSource>& sources) {
        kept.Shrink(rows);
        kept.Shrink(sources);
    }

    void AddSimpleType(std::uint32_t type) {
        std::vector<std::uint32_t> pending{type};
        while (!pending.empty()) {
            std::uint32_t const id = Pop(pending);
            if (id == kNone || id < kBuiltInCount || !m_simpleTypes.Add(id - kBuiltInCount))
                continue;
            SimpleTypeRow const& row = m_schema.simpleTypes[id - kBuiltInCount];
            pending.push_back(row.base);
            pending.push_back(row.item);
            m_facets.Add(row.facets);
            m_indexes.Add(row.members);
            for (std::uint32_t i = row.members.first; i < row.members.first + row.members.count; ++i)
                pending.push_back(m_schema.indexes[i]);
        }
    }
    void AddAttributes(Range const& range) {
        m_attributes.Add(range);
        for (std::uint32_t row = range.first; row < range.first + range.count; ++row)
            AddSimpleType(m_schema.attributes[row].type);
    }
    void AddWildcard(std::uint32_t row) {
        if (row != kNone && m_wildcards.Add(row))
            m_texts.Add(m_schema.wildcards[row].namespaces);
    }
    void AddIdentity(std::uint32_t row) {
        if (row == kNone || !m_identities.Add(row))
            return;
        m_texts.Add(m_schema.identities[row].fields);
        AddIdentity(m_schema.identities[row].refer);
    }
    void TakeElement(std::uint32_t row) {
        ElementRow const& element = m_schema.elements[row];
        AddType(element.type);
        for (std::uint32_t i = 0; i < element.identities.count; ++i)
            AddIdentity(element.identities.first + i);
    }
    void TakeType(std::uint32_t row) {
        ComplexTypeRow const& type = m_schema.complexTypes[row];
        AddType(type.base);
        AddAttributes(type.attributes);
        AddWildcard(type.attributeWildcard);
        if (type.content == Content::kSimple)
            AddSimpleType(type.simpleType);
        else if (type.particle != kNone && m_particles.Add(type.particle))
            AddParticle(type.particle);
    }
    void AddParticle(std::uint32_t particle) {
        std::vector<std::uint32_t> pending{particle};
        while (!pending.empty()) {
            ParticleRow const& row = m_schema.particles[Pop(pending)];
            if (row.kind == ParticleKind::kElement) {
                AddElement(row.first);
                m_used.push_back(row.first);
            } else if (row.kind == ParticleKind::kWildcard) {
                AddWildcard(row.first);
            } else {
                for (std::uint32_t child = row.first; child < row.first + row.count; ++child) {
                    if (m_particles.Add(child))
                        pending.push_back(child);
                }
            }
        }
    }
    // What can stand where kept declarations are: members of substitution groups, and types derived from
    // abstract ones.
    void AddStandIns() {
        std::vector<Answer> isMember(m_schema.elements.size(), Answer::kUnknown);
        std::vector<Answer> isDerived(m_schema.complexTypes.size(), Answer::kUnknown);
        auto const openType = [&](std::uint32_t row) {
            ElementRow const& element = m_schema.elements[row];
            if (IsComplex(element.type) && element.type != kAnyType && !element.isAbstract &&
                m_schema.complexTypes[ComplexTypeRowOf(element.type)].isAbstract)
                isDerived[ComplexTypeRowOf(element.type)] = Answer::kYes;
        };
        for (std::uint32_t const row : *m_schema.documentElements)
            openType(row);
        for (std::uint32_t const row : m_used) {
            isMember[row] = Answer::kYes;
            openType(row);
        }
        auto const headOf = [this](std::uint32_t row) { return m_schema.elements[row].head; };
        auto const baseOf = [this](std::uint32_t row) {
            TypeId const base = m_schema.complexTypes[row].base;
            return IsComplex(base) && base != kAnyType ? ComplexTypeRowOf(base) : kNone;
        };
        for (std::uint32_t row = 0; row < m_schema.elements.size(); ++row) {
            if (LeadsToYes(row, headOf, isMember))
                AddElement(row);
        }
        for (std::uint32_t row = 0; row < m_schema.complexTypes.size(); ++row) {
            if (LeadsToYes(row, baseOf, isDerived) && *m_schema.complexTypes[row].name != '\0')
                AddType(ComplexTypeId(row));
        }
    }
    // Whether the row, or one that `next` leads to from it, is a yes. Notes what it finds out.
    template <class Next>
    static bool LeadsToYes(std::uint32_t row, Next next, std::vector<Answer>& answers) {
        std::vector<std::uint32_t> path;
        while (row != kNone && answers[row] == Answer::kUnknown) {
            answers[row] = Answer::kNo; // a circle ends here
            path.push_back(row);
            row = next(row);
        }
        bool const isYes = row != kNone && answers[row] == Answer::kYes;
        for (std::uint32_t const passed : path)
            answers[passed] = isYes ? Answer::kYes : Answer::kNo;
        return isYes;
    }

    void RenewSimple(std::uint32_t& id) const {
        if (id == kNone || id < kBuiltInCount)
            return;
        id -= kBuiltInCount;
        m_simpleTypes.Renew(id);
        id += kBuiltInCount;
    }
    void Renew(TypeId& type) const {
        if (type == kAnyType)
            return;
        std::uint32_t row = IsComplex(type) ? ComplexTypeRowOf(type) : static_cast<std::uint32_t>(type);
        if (IsComplex(type)) {
            m_complexTypes.Renew(row);
            type = ComplexTypeId(row);
        } else {
            RenewSimple(row);
            type = static_cast<TypeId>(row);
        }
    }
    // Of rows that will be dropped they come to mean nothing.
    void RenewReferences() {
        for (std::uint32_t i = 0; i < m_schema.simpleTypes.size(); ++i) {
            SimpleTypeRow& row = m_schema.simpleTypes[i];
            RenewSimple(row.base);
            RenewSimple(row.item);
            m_indexes.Renew(row.members);
            m_facets.Renew(row.facets);
        }
        for (std::uint32_t& index : m_schema.indexes)
            RenewSimple(index);
        for (ComplexTypeRow& row : m_schema.complexTypes) {
            Renew(row.base);
            if (row.content == Content::kSimple)
                RenewSimple(row.simpleType);
            m_particles.Renew(row.particle);
            m_attributes.Renew(row.attributes);
            m_wildcards.Renew(row.attributeWildcard);
        }
        for (ElementRow& row : m_schema.elements) {
            Renew(row.type);
            if (row.head != kNone && !m_elements.Has(row.head))
                row.head = kNone;
            m_elements.Renew(row.head);
            m_identities.Renew(row.identities);
        }
        for (AttributeRow& row : m_schema.attributes)
            RenewSimple(row.type);
        for (ParticleRow& row : m_schema.particles) {
            if (row.kind == ParticleKind::kElement)
                m_elements.Renew(row.first);
            else if (row.kind == ParticleKind::kWildcard)
                m_wildcards.Renew(row.first);
            else
                row.first = row.count == 0 ? 0 : m_particles.NumberOf(row.first);
        }
        for (WildcardRow& row : m_schema.wildcards)
            m_texts.Renew(row.namespaces);
        for (IdentityRow& row : m_schema.identities) {
            m_identities.Renew(row.refer);
            m_texts.Renew(row.fields);
        }
        m_attributes.Renew(m_schema.globalAttributes);
        RenewGlobals();
    }
    void RenewGlobals() {
        std::vector<std::uint32_t> elements;
        for (std::uint32_t row : m_schema.globalElements) {
            if (!m_elements.Has(row))
                continue;
            m_elements.Renew(row);
            elements.push_back(row);
        }
        m_schema.globalElements = std::move(elements);
        std::vector<TypeId> types;
        for (TypeId type : m_schema.globalTypes) {
            if (IsComplex(type) ? !m_complexTypes.Has(ComplexTypeRowOf(type))
                                : !m_simpleTypes.Has(static_cast<std::uint32_t>(type) - kBuiltInCount))
                continue;
            Renew(type);
            types.push_back(type);
        }
        m_schema.globalTypes = std::move(types);
        for (std::uint32_t& row : *m_schema.documentElements)
            m_elements.Renew(row);
    }

    Schema& m_schema;
    Kept m_simpleTypes;
    Kept m_facets;
    Kept m_complexTypes;
    Kept m_elements;
    Kept m_attributes;
    Kept m_wildcards;
    Kept m_particles;
    Kept m_identities;
    Kept m_indexes;
    Kept m_texts;
    std::vector<std::uint32_t> m_newElements;
    std::vector<std::uint32_t> m_newTypes;
    std::vector<std::uint32_t> m_used; // elements of particles
};

bool IsNamed(std::string const& wanted, char const* name, char const* ns) {
    return wanted == name || wanted == "{" + std::string(ns) + "}" + name;
}

} // namespace

std::string KeepOnly(Schema& schema, std::vector<std::string> const& names) {
    Selection selection(schema);
    schema.documentElements.emplace();
    for (std::string const& wanted : names) {
        bool isFound = false;
        for (std::uint32_t const row : schema.globalElements) {
            if (!IsNamed(wanted, schema.elements[row].name, schema.elements[row].ns))
                continue;
            isFound = true;
            selection.AddDocument(row);
        }
        for (TypeId const type : schema.globalTypes) {
            bool const isNamed =
                IsComplex(type)
                    ? IsNamed(wanted, schema.complexTypes[ComplexTypeRowOf(type)].name,
                              schema.complexTypes[ComplexTypeRowOf(type)].ns)
                    : IsNamed(wanted, schema.simpleTypes[static_cast<std::size_t>(type) - kBuiltInCount].name,
                              schema.simpleTypes[static_cast<std::size_t>(type) - kBuiltInCount].ns);
            if (!isNamed)
                continue;
            isFound = true;
            selection.AddType(type);
        }
        if (!isFound)
            return wanted;
    }
    selection.AddForeign();
    selection.AddWhatTheyNeed();
    selection.DropTheOthers();
    return {};
}

} // namespace ZvXmlLib16::schema
