#include "zvxmllib/grammar/IdentityConstraints.h"

#include "zvxmllib/document/XmlElement.h"
#include "zvxmllib/grammar/IdentityPath.h"

#include <algorithm>
#include <map>
#include <unordered_map>
#include <unordered_set>
#include <utility>

namespace ZvXmlLib16::grammar {

struct IdentityPaths::Paths {
    std::vector<IdentityPath> selector;
    std::vector<std::vector<IdentityPath>> fields;
    bool isReferred = false; // by a keyref
};

IdentityPaths::IdentityPaths(GrammarRows const& rows) : m_rows(rows) {
    for (IdentityRow const& row : rows.identities) {
        Paths paths{ParseIdentityPath(row.selector, false), {}, false};
        for (std::uint32_t i = 0; i < row.fields.count; ++i)
            paths.fields.push_back(ParseIdentityPath(rows.texts[row.fields.first + i], true));
        m_paths.push_back(std::move(paths));
    }
    for (IdentityRow const& row : rows.identities) {
        if (row.kind == IdentityKind::kKeyRef && row.refer < m_paths.size())
            m_paths[row.refer].isReferred = true;
    }
}

IdentityPaths::~IdentityPaths() = default;

namespace {

// The keys of one constraint below one element. One that several of its children hand up counts in none of
// them: it does not get further up.
struct KeyTable {
    std::unordered_map<std::string, bool> keys; // true for a conflict
    std::vector<std::string> conflicts;         // each key that was one

    void DropConflicts() {
        for (std::string const& key : conflicts) {
            auto const found = keys.find(key);
            if (found != keys.end() && found->second)
                keys.erase(found);
        }
        conflicts.clear();
    }
    // `other` has no conflicts.
    void Unite(KeyTable& other) {
        if (keys.size() < other.keys.size())
            std::swap(*this, other);
        keys.merge(other.keys);
        for (auto const& [key, isConflict] : other.keys) {
            keys[key] = true;
            conflicts.push_back(key);
        }
        conflicts.insert(conflicts.end(), other.conflicts.begin(), other.conflicts.end());
    }
};

struct FieldValue {
    std::string key;
    std::string text;      // as it is written
    std::size_t nodes = 0; // that it selects
    bool isSet = false;
    bool isNillable = false;
};

std::string JoinKeys(std::vector<FieldValue> const& fields) {
    std::string joined;
    for (FieldValue const& field : fields)
        joined += std::to_string(field.key.size()) + ':' + field.key;
    return joined;
}

// As a message shows them.
std::string ShowKeys(std::vector<FieldValue> const& fields) {
    std::string text;
    for (FieldValue const& field : fields)
        text += (text.empty() ? "" : ", ") + field.text;
    return "[" + text + "]";
}

} // namespace

struct IdentityWalk::State {
    struct Reference {
        CXmlElement const* element;
        std::string key;
        std::string text; // of the key
    };
    // A constraint in force: below the element at this depth.
    struct Scope {
        std::uint32_t identity;
        std::size_t depth;
        std::unordered_set<std::string> keys;
        std::vector<Reference> references;
    };
    // An element that a selector has found.
    struct Target {
        std::size_t scope; // index
        std::size_t depth;
        std::vector<FieldValue> fields;
    };
    struct FieldOf {
        std::size_t target; // index
        std::size_t field;
    };
    struct AttributeField {
        FieldOf place;
        NameTest const* name;
    };
    struct Frame {
        std::vector<FieldOf> fields; // that this element is
        std::map<std::uint32_t, KeyTable> tables;
    };

    explicit State(IdentityPaths const& identityPaths) : paths(identityPaths) {}

    // Whether the innermost element is at the path from the element at `depth`.
    bool IsAt(IdentityPath const& path, std::size_t depth) const noexcept {
        std::size_t const levels = elements.size() - depth;
        if (path.isDeep ? levels < path.steps.size() : levels != path.steps.size())
            return false;
        std::size_t const first = elements.size() - path.steps.size();
        for (std::size_t i = 0; i < path.steps.size(); ++i) {
            if (!path.steps[i].Matches(elements[first + i]->GetLocalName(),
                                       elements[first + i]->GetNamespaceURI()))
                return false;
        }
        return true;
    }
    std::string NameOf(Scope const& scope) const {
        IdentityRow const& row = paths.m_rows.identities[scope.identity];
        char const* const kind = row.kind == IdentityKind::kKey      ? "key ["
                                 : row.kind == IdentityKind::kKeyRef ? "keyref ["
                                                                     : "unique ["; // as it is declared
        return std::string("The ") + kind + row.name + "]";
    }
    std::string NameOf(Scope const& scope, std::size_t field) const {
        Range const fields = paths.m_rows.identities[scope.identity].fields;
        return std::string("field [") + paths.m_rows.texts[fields.first + field] + "]";
    }
    void Select();
    void FindFields();
    void Set(FieldOf const& place, SimpleValue const* value, std::string_view text, bool isNillable);
    void AddNoSimpleType(FieldOf const& place, std::vector<IdentityFault>& faults) const {
        Scope const& scope = scopes[targets[place.target].scope];
        faults.push_back({elements.back(), NameOf(scope) + " has an element without a simple type for its " +
                                               NameOf(scope, place.field) + "."});
    }
    void EndTarget(std::vector<IdentityFault>& faults);
    void EndScopes(std::vector<IdentityFault>& faults);
    void HandUp();

    IdentityPaths const& paths;
    std::vector<CXmlElement const*> elements; // the open ones
    std::vector<Frame> frames;                // those of the open elements, from the first scope on
    std::vector<Scope> scopes;
    std::vector<Target> targets;
    std::vector<AttributeField> attributeFields;
};

void IdentityWalk::State::Select() {
    for (std::size_t i = 0; i < scopes.size(); ++i) {
        auto const& selector = paths.m_paths[scopes[i].identity].selector;
        bool const isSelected = std::any_of(selector.begin(), selector.end(), [&](IdentityPath const& path) {
            return IsAt(path, scopes[i].depth);
        });
        if (isSelected)
            targets.push_back({i, elements.size(),
                               std::vector<FieldValue>(paths.m_paths[scopes[i].identity].fields.size())});
    }
}

void IdentityWalk::State::FindFields() {
    attributeFields.clear();
    for (std::size_t target = 0; target < targets.size(); ++target) {
        auto const& fields = paths.m_paths[scopes[targets[target].scope].identity].fields;
        for (std::size_t field = 0; field < fields.size(); ++field) {
            bool isElement = false;
            for (IdentityPath const& path : fields[field]) {
                if (!IsAt(path, targets[target].depth))
                    continue;
                if (path.hasAttribute)
                    attributeFields.push_back({{target, field}, &path.attribute});
                else if (!std::exchange(isElement, true))
                    frames.back().fields.push_back({target, field});
            }
        }
    }
}

void IdentityWalk::State::Set(FieldOf const& place, SimpleValue const* value, std::string_view text,
                              bool isNillable) {
    Target& target = targets[place.target];
    FieldValue& field = target.fields[place.field];
    field.isNillable = field.isNillable || isNillable;
    if (++field.nodes != 1 || value == nullptr)
        return;
    field.isSet = true;
    field.key = value->key;
    field.text = text;
}

void IdentityWalk::State::EndTarget(std::vector<IdentityFault>& faults) {
    Target const target = std::move(targets.back());
    targets.pop_back();
    Scope& scope = scopes[target.scope];
    IdentityKind const kind = paths.m_rows.identities[scope.identity].kind;
    bool const isKey = kind == IdentityKind::kKey;
    bool isComplete = true;
    for (std::size_t i = 0; i < target.fields.size(); ++i) {
        FieldValue const& field = target.fields[i];
        isComplete = isComplete && field.isSet && field.nodes == 1;
        if (field.nodes > 1)
            faults.push_back(
                {elements.back(), NameOf(scope) + " has several nodes for its " + NameOf(scope, i) + "."});
        else if (isKey && field.isNillable)
            faults.push_back({elements.back(),
                              NameOf(scope) + " has a nillable element for its " + NameOf(scope, i) + "."});
        else if (isKey && field.nodes == 0) // one whose value is at fault has been told
            faults.push_back({elements.back(), NameOf(scope) + " lacks its " + NameOf(scope, i) + "."});
    }
    if (!isComplete)
        return;
    std::string key = JoinKeys(target.fields);
    if (kind == IdentityKind::kKeyRef)
        scope.references.push_back({elements.back(), std::move(key), ShowKeys(target.fields)});
    else if (!scope.keys.insert(std::move(key)).second)
        faults.push_back({elements.back(),
                          NameOf(scope) + " is not unique: " + ShowKeys(target.fields) + " stands twice."});
}

// Those of the innermost element, which ends. Its keys are known by now, so its references can be looked up.
void IdentityWalk::State::EndScopes(std::vector<IdentityFault>& faults) {
    Frame& frame = frames.back();
    std::size_t first = scopes.size();
    while (first != 0 && scopes[first - 1].depth == elements.size())
        --first;
    for (std::size_t i = first; i < scopes.size(); ++i) {
        if (!paths.m_paths[scopes[i].identity].isReferred)
            continue;
        // Its own keys stand above those from below.
        KeyTable& table = frame.tables[scopes[i].identity];
        for (std::string const& key : scopes[i].keys)
            table.keys[key] = false;
    }
    for (std::size_t i = first; i < scopes.size(); ++i) {
        if (scopes[i].references.empty())
            continue;
        KeyTable& table = frame.tables[paths.m_rows.identities[scopes[i].identity].refer];
        table.DropConflicts();
        for (Reference const& reference : scopes[i].references) {
            if (table.keys.count(reference.key) == 0)
                faults.push_back({reference.element,
                                  NameOf(scopes[i]) + " has no key " + reference.text + " to refer to."});
        }
    }
    scopes.resize(first);
}

// The tables of the innermost element become part of its parent's.
void IdentityWalk::State::HandUp() {
    Frame ended = std::move(frames.back());
    frames.pop_back();
    if (frames.empty())
        return;
    for (auto& [identity, table] : ended.tables) {
        table.DropConflicts();
        frames.back().tables[identity].Unite(table);
    }
}

IdentityWalk::IdentityWalk(IdentityPaths const& paths) : m_state(std::make_unique<State>(paths)) {}

IdentityWalk::~IdentityWalk() = default;

bool IdentityWalk::IsActive() const noexcept {
    return !m_state->scopes.empty();
}

bool IdentityWalk::WantsValue() const noexcept {
    return !m_state->frames.empty() && !m_state->frames.back().fields.empty();
}

void IdentityWalk::EnterElement(CXmlElement const& element, Range identities) {
    State& state = *m_state;
    state.elements.push_back(&element);
    if (state.frames.empty() && identities.count == 0)
        return;
    state.frames.emplace_back();
    for (std::uint32_t i = 0; i < identities.count; ++i)
        state.scopes.push_back({identities.first + i, state.elements.size(), {}, {}});
    state.Select();
    state.FindFields();
}

void IdentityWalk::AddAttribute(std::string_view name, std::string_view ns, SimpleValue const* value,
                                std::string_view text) {
    // Several alternatives of a field may select the same attribute.
    State::AttributeField const* last = nullptr;
    for (State::AttributeField const& field : m_state->attributeFields) {
        bool const isSame = last != nullptr && last->place.target == field.place.target &&
                            last->place.field == field.place.field;
        if (isSame || !field.name->Matches(name, ns))
            continue;
        m_state->Set(field.place, value, text, false);
        last = &field;
    }
}

void IdentityWalk::LeaveElement(SimpleValue const* value, std::string_view text, bool hasSimpleType,
                                bool isNillable, std::vector<IdentityFault>& faults) {
    State& state = *m_state;
    if (!state.frames.empty()) {
        for (State::FieldOf const& field : state.frames.back().fields) {
            state.Set(field, value, text, isNillable);
            if (!hasSimpleType)
                state.AddNoSimpleType(field, faults);
        }
        while (!state.targets.empty() && state.targets.back().depth == state.elements.size())
            state.EndTarget(faults);
        state.EndScopes(faults);
        state.HandUp();
        state.attributeFields.clear();
    }
    state.elements.pop_back();
}

} // namespace ZvXmlLib16::grammar
