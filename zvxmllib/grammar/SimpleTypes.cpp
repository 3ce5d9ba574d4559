#include "zvxmllib/grammar/SimpleTypes.h"

#include "zvxmllib/foundation/Exceptions.h"
#include "zvxmllib/grammar/SimpleType.h"
#include "zvxmllib/grammar/SimpleTypeTest.h"

#include <algorithm>

namespace ZvXmlLib16::grammar {

SimpleTypes::SimpleTypes(GrammarRows const& rows)
    : m_notations(rows.notations.begin(), rows.notations.end()) {
    std::sort(m_notations.begin(), m_notations.end());
    AddBuiltInTypes(m_types);
    AddTypesOfRows(rows, m_notations, m_types);
    m_quickTests.reserve(m_types.size());
    for (auto const& type : m_types)
        m_quickTests.emplace_back(*type);
}

SimpleTypes::~SimpleTypes() = default;

void SimpleTypes::Check(std::uint32_t type, std::string_view text, INamespaceScope const* scope,
                        SimpleValue* value) const {
    std::string room;
    if (char const* const message = FindFault(type, text, scope, value, room))
        throw CZvInvalidValueException(message);
}

char const* SimpleTypes::FindFault(std::uint32_t type, std::string_view text, INamespaceScope const* scope,
                                   SimpleValue* value, std::string& room) const {
    if (value == nullptr && FitsAtAGlance(type, text))
        return nullptr;
    TestOutput output;
    output.message = &room;
    if (value != nullptr) {
        value->key.clear();
        value->ids.clear();
        value->idrefs.clear();
        value->type = type;
        output.key = &value->key;
        output.value = value;
    }
    SimpleType const* const accepted =
        SimpleTypeTest(scope, m_notations).Accept(*m_types[type], text, output);
    if (accepted == nullptr)
        return room.c_str();
    if (value != nullptr)
        value->type = accepted->id;
    return nullptr;
}

BuiltIn SimpleTypes::GetBuiltIn(std::uint32_t type) const noexcept {
    return m_types[type]->builtIn;
}

Variety SimpleTypes::GetVariety(std::uint32_t type) const noexcept {
    return m_types[type]->variety;
}

bool SimpleTypes::IsDerivedFrom(std::uint32_t type, std::uint32_t base) const noexcept {
    SimpleType const& ancestor = *m_types[base];
    for (SimpleType const* step = m_types[type].get(); step != nullptr; step = step->base) {
        if (step == &ancestor)
            return true;
        if (ancestor.members == nullptr)
            continue;
        auto const& members = ancestor.members->nested;
        if (std::find(members.begin(), members.end(), step) != members.end())
            return true;
    }
    return false;
}

bool SimpleTypes::HasIds(std::uint32_t type) const noexcept {
    return m_types[type]->hasIds;
}

bool SimpleTypes::HasQNames(std::uint32_t type) const noexcept {
    return m_types[type]->hasQNames;
}

std::string_view SimpleTypes::Normalize(std::uint32_t type, std::string_view text, std::string& room) const {
    if (FitsAtAGlance(type, text))
        return text;
    SimpleType const* tested = m_types[type].get();
    if (tested->variety == Variety::kUnion) // by the member that accepts the text
        tested = SimpleTypeTest(nullptr, m_notations).Accept(*tested, text, TestOutput());
    return tested == nullptr ? text : ApplyWhiteSpace(tested->whiteSpace, text, room);
}

} // namespace ZvXmlLib16::grammar
