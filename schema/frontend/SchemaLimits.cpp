#include "schema/frontend/SchemaLimits.h"

#include <algorithm>
#include <map>
#include <sstream>
#include <utility>
#include <vector>

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
            Measure(*definition);
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

    // What an element refers to.
    struct Link {
        Definition const* target;
        Reference const* reference;
    };
    // A definition in work: its elements that are still to come, and the references of the last one.
    struct Work {
        Definition const* definition;
        std::vector<std::pair<OutlineNode const*, std::size_t>> pending; // with their levels
        std::vector<Link> links;
        std::size_t nextLink = 0;
        std::size_t level = 0; // of the last element
        Size size{};
    };

    // Each definition once, in the order in which the parser comes to them. A loop: chains of definitions can
    // be long.
    void Measure(Definition const& first) {
        std::vector<Work> stack;
        auto const begin = [&](Definition const& definition, std::size_t level) {
            if (m_sizes.try_emplace(&definition).second)
                stack.push_back({&definition, {{definition.node, level}}, {}});
        };
        begin(first, 0);
        while (!stack.empty() && !m_hasFailed) {
            Work& work = stack.back();
            if (work.nextLink < work.links.size()) {
                Link const link = work.links[work.nextLink];
                auto const known = m_sizes.find(link.target);
                if (known == m_sizes.end()) {
                    begin(*link.target, work.level + 1);
                } else {
                    AddReferred(link, known->second, work.size);
                    ++work.nextLink;
                }
            } else if (!work.pending.empty()) {
                MeasureNode(work);
            } else {
                CheckSize(*work.definition, work.size);
                m_sizes[work.definition] = work.size;
                stack.pop_back();
            }
        }
    }

    // The next element of the definition.
    void MeasureNode(Work& work) {
        auto const [node, level] = work.pending.back();
        work.pending.pop_back();
        work.links.clear();
        work.nextLink = 0;
        work.level = level;
        if (level > kMostLevels)
            return FailTooDeep(*work.definition, *node);
        if (node->ns != kSchemaNamespace)
            return;
        if (node->name == "element" || node->name == "attribute" || node->name == "any" ||
            node->name == "anyAttribute")
            work.size.parts = std::min(work.size.parts + 1, kMostParts + 1);
        work.links = LinksOf(*work.definition, *node);
        for (auto child = node->children.rbegin(); child != node->children.rend(); ++child)
            work.pending.emplace_back(child->get(), level + 1);
    }

    void FailTooDeep(Definition const& within, OutlineNode const& node) {
        Fail(within, node,
             "definitions refer to each other deeper than " + std::to_string(kMostLevels) + " levels");
    }

    void CheckSize(Definition const& definition, Size const& size) {
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
    }

    std::vector<Link> LinksOf(Definition const& within, OutlineNode const& node) const {
        std::vector<Link> links;
        for (Reference const& reference : kReferences) {
            std::string const* const names = node.Find(reference.attribute);
            if (names == nullptr || (reference.element != nullptr && node.name != reference.element))
                continue;
            std::istringstream words(*names);
            for (std::string word; words >> word;) {
                Definition const* target =
                    m_set.Find(reference.space, m_set.Resolve(*within.document, node, word));
                if (target == &within)
                    target = within.redefined;
                if (target != nullptr)
                    links.push_back({target, &reference});
            }
        }
        return links;
    }

    void AddReferred(Link const& link, Size const& inner, Size& size) {
        std::string_view const attribute = link.reference->attribute;
        Space const space = link.reference->space;
        bool const isDerivation = attribute == "base" && !link.target->node->IsSchema("simpleType");
        if (isDerivation)
            size.derivations = std::max(size.derivations, inner.derivations + 1);
        if (attribute == "substitutionGroup")
            size.substitutions = std::max(size.substitutions, inner.substitutions + 1);
        if (isDerivation || space == Space::kGroup || space == Space::kAttributeGroup)
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
