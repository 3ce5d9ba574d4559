// One open element of a writer and its scope of namespace aliases.
#include "zvxmllib/writers/XmlWriter.h"

#include <optional>
#include <string_view>

namespace ZvXmlLib16 {

namespace {

constexpr std::uint64_t kLetters = 26;
constexpr std::size_t kShortestAlias = 2;
constexpr std::size_t kLongestAlias = 12; // longer ones are never reached, and their numbers would not fit

// The position of an alias in the order AA, AB, ... ZZ, AAA, ...; none for other texts.
std::optional<std::uint64_t> NumberOfAlias(std::string_view alias) {
    if (alias.size() < kShortestAlias || alias.size() > kLongestAlias)
        return std::nullopt;
    std::uint64_t number = 0;
    for (char const c : alias) {
        if (c < 'A' || c > 'Z')
            return std::nullopt;
        number = number * kLetters + static_cast<std::uint64_t>(c - 'A');
    }
    std::uint64_t aliasesOfLength = kLetters * kLetters;
    for (std::size_t length = kShortestAlias; length < alias.size(); ++length) {
        number += aliasesOfLength;
        aliasesOfLength *= kLetters;
    }
    return number;
}

std::string AliasOfNumber(std::uint64_t number) {
    std::size_t length = kShortestAlias;
    std::uint64_t aliasesOfLength = kLetters * kLetters;
    while (number >= aliasesOfLength) {
        number -= aliasesOfLength;
        aliasesOfLength *= kLetters;
        ++length;
    }
    std::string alias(length, 'A');
    for (std::size_t i = length; i > 0; --i, number /= kLetters)
        alias[i - 1] = static_cast<char>('A' + number % kLetters);
    return alias;
}

} // namespace

CXmlWriter::CXmlWriterContext::CXmlWriterContext() = default;
CXmlWriter::CXmlWriterContext::~CXmlWriterContext() = default;

void CXmlWriter::CXmlWriterContext::Reset(CXmlWriterContext* parent) {
    m_childCount = 0;
    m_startTagOpen = true;
    m_depth = parent == nullptr ? 0 : parent->m_depth + 1;
    m_parent = parent;
    m_hasAttributes = false;
    m_arrayOpen = false;
    m_collectionState = CollectionState_None;
    m_childrenSayType = false;
    m_scope = parent == nullptr ? nullptr : parent->m_scope;
}

void CXmlWriter::CXmlWriterContext::MakeOwnScope() {
    if (m_scope == this)
        return;
    m_outerScope = m_scope;
    m_scope = this;
    while (!m_ownMap.empty())
        m_spareEntries.push_back(m_ownMap.extract(m_ownMap.begin()));
    m_lastAlias = nullptr;
    m_givenAliases.clear();
    m_nextAlias = 0;
    m_ownDefaultNamespace.clear();
    if (m_outerScope != nullptr) {
        m_nextAlias = m_outerScope->m_nextAlias;
        m_ownDefaultNamespace = m_outerScope->m_ownDefaultNamespace;
    }
}

void CXmlWriter::CXmlWriterContext::SetDefaultNamespace(std::string const& ns) {
    MakeOwnScope();
    m_ownDefaultNamespace = ns;
}

void CXmlWriter::CXmlWriterContext::SetNamespaceMapValue(std::string const& ns, std::string const& alias) {
    MakeOwnScope();
    EnterGiven(ns, alias);
}

void CXmlWriter::CXmlWriterContext::EnterGiven(std::string const& ns, std::string const& alias) {
    if (std::optional<std::uint64_t> const number = NumberOfAlias(alias))
        m_givenAliases.insert(*number);
    Enter(ns, alias);
}

void CXmlWriter::CXmlWriterContext::Enter(std::string const& ns, std::string const& alias) {
    m_lastAlias = nullptr;
    if (m_spareEntries.empty()) {
        m_ownMap.insert_or_assign(ns, alias);
        return;
    }
    NamespaceMap::node_type entry = std::move(m_spareEntries.back());
    m_spareEntries.pop_back();
    entry.key() = ns;
    entry.mapped() = alias;
    NamespaceMap::insert_return_type inserted = m_ownMap.insert(std::move(entry));
    if (!inserted.inserted) {
        inserted.position->second = alias;
        m_spareEntries.push_back(std::move(inserted.node));
    }
}

std::string const* CXmlWriter::CXmlWriterContext::LookUpAlias(std::string const& ns) const {
    for (CXmlWriterContext const* scope = this; scope != nullptr; scope = scope->m_outerScope) {
        NamespaceMap::const_iterator const found = scope->m_ownMap.find(ns);
        if (found == scope->m_ownMap.end())
            continue;
        if (found->second.empty())
            return nullptr;
        m_lastAlias = &*found;
        return &found->second;
    }
    return nullptr;
}

bool CXmlWriter::CXmlWriterContext::IsGivenAlias(std::uint64_t number) const {
    for (CXmlWriterContext const* scope = this; scope != nullptr; scope = scope->m_outerScope) {
        if (scope->m_givenAliases.count(number) != 0)
            return true;
    }
    return false;
}

std::string const& CXmlWriter::GenerateAlias(CXmlWriterContext& context, std::string const& ns) {
    context.MakeOwnScope();
    while (context.IsGivenAlias(context.m_nextAlias))
        ++context.m_nextAlias;
    std::string const alias = AliasOfNumber(context.m_nextAlias++);
    context.Enter(ns, alias);
    return *context.FindAlias(ns);
}

} // namespace ZvXmlLib16
