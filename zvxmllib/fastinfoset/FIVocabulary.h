// CFIVocabulary, the tables by which a Fast Infoset document replaces what repeats in it.
#pragma once

#include "zvxmllib/fastinfoset/IndexMap.h"
#include "zvxmllib/platform/Api.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace ZvXmlLib16 {

// What writer and reader of a document know in advance (X.891 calls it an external vocabulary). A template:
// writing or reading a document starts with a copy and does not change it. The writer looks texts up, the
// reader looks indices up, so there is a map and a table of each kind. Each holds at most 1048576 entries;
// further ones are dropped. Belongs to one thread at a time; copied by assignment. Strings are in the local
// encoding.
class ZV_API CFIVocabulary {
public:
    // A qualified name by the indices of its parts, from 1; 0 for none.
    class ZV_API CQNameParts {
    public:
        // By the three indices.
        CQNameParts(std::uint32_t prefixIndex, std::uint32_t namespaceIndex,
                    std::uint32_t localNameIndex) noexcept
            : m_dwPrefixIndex(prefixIndex), m_dwNamespaceIndex(namespaceIndex),
              m_dwLocalNameIndex(localNameIndex) {}

        std::uint32_t m_dwPrefixIndex;    // in the table of prefixes
        std::uint32_t m_dwNamespaceIndex; // in the table of namespace names
        std::uint32_t m_dwLocalNameIndex; // in the table of local names
    };

    // Entry n is the nth from begin.
    class ZV_API CFIStringTable {
    public:
        // Over the texts.
        using const_iterator = std::vector<std::string>::const_iterator;

        CFIStringTable();
        CFIStringTable(CFIStringTable const& other);
        CFIStringTable& operator=(CFIStringTable const& other);
        virtual ~CFIStringTable();

        // In order of their indices.
        const_iterator begin() const noexcept { return m_table.begin(); }
        const_iterator end() const noexcept { return m_table.end(); }

        std::vector<std::string> m_table; // the texts; index 1 is the first
    };

    // Its parts are entries of the tables of prefixes, namespace names and local names.
    class ZV_API CFIQNameTable {
    public:
        // Over the names.
        using const_iterator = std::vector<CQNameParts>::const_iterator;

        CFIQNameTable();
        CFIQNameTable(CFIQNameTable const& other);
        CFIQNameTable& operator=(CFIQNameTable const& other);
        virtual ~CFIQNameTable();

        // In order of their indices.
        const_iterator begin() const noexcept { return m_table.begin(); }
        const_iterator end() const noexcept { return m_table.end(); }

        std::vector<CQNameParts> m_table; // the names; index 1 is the first
    };

    // Holds the prefix "xml" and the XML namespace.
    CFIVocabulary();
    CFIVocabulary(CFIVocabulary const& other) = delete;
    CFIVocabulary& operator=(CFIVocabulary const& other);
    virtual ~CFIVocabulary();

    // Adds a name and those of its parts that are new; does nothing if the name exists. An empty prefix or
    // namespace counts as none.
    void AddElement(std::string const& prefix, std::string const& ns, std::string const& localName);
    void AddAttribute(std::string const& prefix, std::string const& ns, std::string const& localName);

    // These do not look for duplicates: add a text once only, or writer and reader count differently.
    void AddElementValue(std::string const& value);
    void AddAttributeValue(std::string const& value);
    void AddPrefixName(std::string const& prefix);
    void AddNamespaceName(std::string const& ns);
    void AddLocalName(std::string const& localName);

    // The tables, as X.891 calls them.
    CFIQNameTable const& GetAttributeNamesTable() const noexcept { return m_attributeNames; }
    CFIStringTable const& GetAttributeValuesTable() const noexcept { return m_attributeValues; }
    CFIStringTable const& GetCharacterChunksTable() const noexcept { return m_characterChunks; }
    CFIQNameTable const& GetElementNamesTable() const noexcept { return m_elementNames; }
    CFIStringTable const& GetLocalNamesTable() const noexcept { return m_localNames; }
    CFIStringTable const& GetNamespaceNamesTable() const noexcept { return m_namespaceNames; }
    CFIStringTable const& GetPrefixNamesTable() const noexcept { return m_prefixNames; }

    // Prints the maps to standard output: a line for each entry with its text and index, sorted by the bytes
    // of the texts. The parts of a qualified name, local name first, have the byte 1 between them.
    void Dump() const;

private:
    friend class CFastInfosetWriter;

    static void AddValueToMap(std::string_view key, detail::IndexMap& map);
    static void AddValueToVector(std::string const& value, CFIStringTable& table);
    static void AddQNameToVector(std::uint32_t prefix, std::uint32_t ns, std::uint32_t localName,
                                 CFIQNameTable& table);
    void AddQName(detail::IndexMap::QName const& name, detail::IndexMap& map, CFIQNameTable& table);
    // The entry of the text, added if it is missing.
    static std::uint32_t FindOrAdd(std::string_view text, detail::IndexMap& map, CFIStringTable& table);

    detail::IndexMaps m_maps;
    CFIQNameTable m_attributeNames;
    CFIStringTable m_attributeValues;
    CFIQNameTable m_elementNames;
    CFIStringTable m_characterChunks;
    CFIStringTable m_localNames;
    CFIStringTable m_namespaceNames;
    CFIStringTable m_prefixNames;
};

} // namespace ZvXmlLib16
