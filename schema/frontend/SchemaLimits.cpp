#include "schema/frontend/SchemaLimits.h"

#include <algorithm>
#include <map>
#include <sstream>

namespace ZvXmlLib16::schema {

namespace {

constexpr std::size_t kMostLevels = 5000;       // of elements, one within the other, through references
constexpr std::size_t kMostDerivations = 200;   // of complex types
constexpr std::size_t kMostSubstitutions = 500; // of elements
constexpr std::size_t kMostParts = 500000;      // elements and attributes of all types and groups

struct Reference {
    char const* attribute;
    char const* element; // that has it; null for any
    Space space;
};

constexpr Reference kReferences[] = {{"base", nullptr, Space::kType},
                                     {"itemType", nullptr, Space::kType},
                                     {"memberTypes", nullptr, Space::kType},
                                     {"type", nullptr, Space::kType},
                                     {"substitutionGroup", nullptr, Space::kElement},
                                     {"ref", "element", Space::kElement},
                                     {"ref", "attribute", Space::kAttribute},
                                     {"ref", "group", Space::kGroup},
                                     {"ref", "attributeGroup", Space::kAttributeGroup}};

class LimitCheck {
public:
    LimitCheck(SchemaSet const& set, Diagnostics& diagnostics) : m_set(set), m_diagnostics(diagnostics) {}

    void CheckAll() {
        for (auto const& [space, definition] : m_set.GetGlobals()) {
            if (space == Space::kIdentity)
                continue;
            Measure(*definition, 0);
            if (m_hasFailed)
                return;
        }
    }

private:
    struct Size {
        std::size_t parts = 1;
        std::size_t derivations = 0;
        std::size_t substitutions = 0;
    };

    void Fail(Definition const& within, OutlineNode const& node, std::string text) {
        if (!m_hasFailed)
            m_diagnostics.Error(within.document->At(node), std::move(text));
        m_hasFailed = true;
    }

    // Each definition once, in the order in which the parser comes to them.
    Size Measure(Definition const& definition, std::size_t level) {
        auto const [known, isNew] = m_sizes.try_emplace(&definition);
        if (!isNew)
            return known->second;
        Size size;
        MeasureNode(definition, *definition.node, level, size);
        m_parts = std::min(m_parts + size.parts, kMostParts + 1);
        if (m_parts > kMostParts)
            Fail(definition, *definition.node,
                 "the types and groups have more than " + std::to_string(kMostParts) +
                     " elements and attributes, with those that they refer to");
        if (size.derivations > kMostDerivations)
            Fail(definition, *definition.node,
                 "types are derived from each other more than " + std::to_string(kMostDerivations) +
                     " times");
        if (size.substitutions > kMostSubstitutions)
            Fail(definition, *definition.node,
                 "elements stand for each other more than " + std::to_string(kMostSubstitutions) + " times");
        return known->second = size;
    }

    void MeasureNode(Definition const& within, OutlineNode const& node, std::size_t level, Size& size) {
        if (level > kMostLevels)
            Fail(within, node,
                 "definitions refer to each other deeper than " + std::to_string(kMostLevels) + " levels");
        if (m_hasFailed || node.ns != kSchemaNamespace)
            return;
        if (node.name == "element" || node.name == "attribute" || node.name == "any" ||
            node.name == "anyAttribute")
            size.parts = std::min(size.parts + 1, kMostParts + 1);
        for (Reference const& reference : kReferences) {
            std::string const* const names = node.Find(reference.attribute);
            if (names == nullptr || (reference.element != nullptr && node.name != reference.element))
                continue;
            std::istringstream words(*names);
            for (std::string word; words >> word;)
                Follow(within, node, reference, word, level, size);
        }
        for (auto const& child : node.children)
            MeasureNode(within, *child, level + 1, size);
    }

    void Follow(Definition const& within, OutlineNode const& node, Reference const& reference,
                std::string const& name, std::size_t level, Size& size) {
        Definition const* target = m_set.Find(reference.space, m_set.Resolve(*within.document, node, name));
        if (target == &within)
            target = within.redefined;
        if (target == nullptr)
            return;
        Size const inner = Measure(*target, level + 1);
        std::string_view const attribute = reference.attribute;
        bool const isDerivation = attribute == "base" && !target->node->IsSchema("simpleType");
        if (isDerivation)
            size.derivations = std::max(size.derivations, inner.derivations + 1);
        if (attribute == "substitutionGroup")
            size.substitutions = std::max(size.substitutions, inner.substitutions + 1);
        if (isDerivation || reference.space == Space::kGroup || reference.space == Space::kAttributeGroup)
            size.parts = std::min(size.parts + inner.parts, kMostParts + 1);
    }

    SchemaSet const& m_set;
    Diagnostics& m_diagnostics;
    std::map<Definition const*, Size> m_sizes; // nothing yet for those in work
    std::size_t m_parts = 0;
    bool m_hasFailed = false;
};

} // namespace

void CheckLimits(SchemaSet const& set, Diagnostics& diagnostics) {
    LimitCheck(set, diagnostics).CheckAll();
}

} // namespace ZvXmlLib16::schema
