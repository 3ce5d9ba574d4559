#include "zvxmllib/fastinfoset/FIVocabulary.h"

#include "zvxmllib/foundation/XmlNamespaces.h"

#include <algorithm>
#include <cstdio>
#include <utility>

namespace ZvXmlLib16 {

namespace {

using detail::IndexMap;

void DumpMap(char const* title, IndexMap const& map) {
    std::vector<std::pair<std::string, std::uint32_t>> entries;
    for (std::uint32_t index = 1; index <= map.GetCount(); ++index)
        entries.emplace_back(map.GetText(index), index);
    std::sort(entries.begin(), entries.end());
    std::printf("\n%s\n", title);
    for (auto const& [text, index] : entries)
        std::printf("%s, %u\n", text.c_str(), static_cast<unsigned>(index));
}

} // namespace

CFIVocabulary::CFIStringTable::CFIStringTable() = default;
CFIVocabulary::CFIStringTable::CFIStringTable(CFIStringTable const& other) = default;
CFIVocabulary::CFIStringTable&
CFIVocabulary::CFIStringTable::operator=(CFIStringTable const& other) = default;
CFIVocabulary::CFIStringTable::~CFIStringTable() = default;

CFIVocabulary::CFIQNameTable::CFIQNameTable() = default;
CFIVocabulary::CFIQNameTable::CFIQNameTable(CFIQNameTable const& other) = default;
CFIVocabulary::CFIQNameTable& CFIVocabulary::CFIQNameTable::operator=(CFIQNameTable const& other) = default;
CFIVocabulary::CFIQNameTable::~CFIQNameTable() = default;

CFIVocabulary::CFIVocabulary() {
    AddValueToVector("xml", m_prefixNames); // the maps come with theirs
    AddValueToVector(kXmlNamespace, m_namespaceNames);
}

CFIVocabulary& CFIVocabulary::operator=(CFIVocabulary const& other) = default;
CFIVocabulary::~CFIVocabulary() = default;

void CFIVocabulary::AddElement(std::string const& prefix, std::string const& ns,
                               std::string const& localName) {
    AddQName({localName, ns, prefix}, m_maps.elementNames, m_elementNames);
}

void CFIVocabulary::AddAttribute(std::string const& prefix, std::string const& ns,
                                 std::string const& localName) {
    AddQName({localName, ns, prefix}, m_maps.attributeNames, m_attributeNames);
}

void CFIVocabulary::AddElementValue(std::string const& value) {
    AddValueToMap(value, m_maps.characterChunks);
    AddValueToVector(value, m_characterChunks);
}

void CFIVocabulary::AddAttributeValue(std::string const& value) {
    AddValueToMap(value, m_maps.attributeValues);
    AddValueToVector(value, m_attributeValues);
}

void CFIVocabulary::AddPrefixName(std::string const& prefix) {
    AddValueToMap(prefix, m_maps.prefixNames);
    AddValueToVector(prefix, m_prefixNames);
}

void CFIVocabulary::AddNamespaceName(std::string const& ns) {
    AddValueToMap(ns, m_maps.namespaceNames);
    AddValueToVector(ns, m_namespaceNames);
}

void CFIVocabulary::AddLocalName(std::string const& localName) {
    AddValueToMap(localName, m_maps.localNames);
    AddValueToVector(localName, m_localNames);
}

void CFIVocabulary::Dump() const {
    std::printf("\n** Dumping FI Tables **\n");
    DumpMap("Attr Names", m_maps.attributeNames);
    DumpMap("Attr Values", m_maps.attributeValues);
    DumpMap("Character Chunks", m_maps.characterChunks);
    DumpMap("Element Names", m_maps.elementNames);
    DumpMap("Local Names", m_maps.localNames);
    DumpMap("Namespace Names", m_maps.namespaceNames);
    DumpMap("Prefix Names", m_maps.prefixNames);
}

void CFIVocabulary::AddValueToMap(std::string_view key, IndexMap& map) {
    std::uint64_t const hash = IndexMap::Hash(key);
    if (map.Find(key, hash) == 0)
        map.Add(key, hash);
}

void CFIVocabulary::AddValueToVector(std::string const& value, CFIStringTable& table) {
    if (table.m_table.size() < IndexMap::kMostEntries)
        table.m_table.push_back(value);
}

void CFIVocabulary::AddQNameToVector(std::uint32_t prefix, std::uint32_t ns, std::uint32_t localName,
                                     CFIQNameTable& table) {
    if (table.m_table.size() < IndexMap::kMostEntries)
        table.m_table.emplace_back(prefix, ns, localName);
}

void CFIVocabulary::AddQName(IndexMap::QName const& name, IndexMap& map, CFIQNameTable& table) {
    std::uint64_t const hash = IndexMap::Hash(name);
    if (map.Find(name, hash) != 0)
        return;
    std::uint32_t const prefix =
        name.prefix.empty() ? 0 : FindOrAdd(name.prefix, m_maps.prefixNames, m_prefixNames);
    std::uint32_t const ns = name.namespaceName.empty()
                                 ? 0
                                 : FindOrAdd(name.namespaceName, m_maps.namespaceNames, m_namespaceNames);
    std::uint32_t const localName = FindOrAdd(name.localName, m_maps.localNames, m_localNames);
    map.Add(name, hash);
    AddQNameToVector(prefix, ns, localName, table);
}

// The new entry is the last of the table, whatever has been added twice before.
std::uint32_t CFIVocabulary::FindOrAdd(std::string_view text, IndexMap& map, CFIStringTable& table) {
    std::uint64_t const hash = IndexMap::Hash(text);
    if (std::uint32_t const index = map.Find(text, hash))
        return index;
    map.Add(text, hash);
    AddValueToVector(std::string(text), table);
    return static_cast<std::uint32_t>(table.m_table.size());
}

} // namespace ZvXmlLib16
