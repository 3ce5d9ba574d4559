#include "zvxmllib/fastinfoset/ReadVocabulary.h"

#include "zvxmllib/document/XmlTree.h"
#include "zvxmllib/fastinfoset/FastInfosetContext.h"
#include "zvxmllib/foundation/XmlNamespaces.h"

#include <algorithm>

namespace ZvXmlLib16 {

namespace {

// The template may change or end before the tree does.
template <class Entry>
void Copy(CFIVocabulary::CFIStringTable const& source, detail::XmlTree& tree,
          ReadVocabulary::Table<Entry>& target) {
    target.entries.clear();
    target.entries.reserve(source.m_table.size());
    for (std::string const& text : source)
        target.entries.push_back(Entry{tree.KeepText(text)});
}

void Copy(CFIVocabulary::CFIQNameTable const& source, ReadVocabulary::QNames& target) {
    target.entries.reserve(source.m_table.size());
    for (CFIVocabulary::CQNameParts const& parts : source)
        target.entries.push_back(
            {parts.m_dwPrefixIndex, parts.m_dwNamespaceIndex, parts.m_dwLocalNameIndex, nullptr});
}

} // namespace

std::string ElementText(std::string_view text) {
    std::string result(text.substr(0, text.find('\0')));
    result.erase(std::remove(result.begin(), result.end(), '\r'), result.end());
    return result;
}

ReadVocabulary::ReadVocabulary() {
    prefixNames.entries.push_back({"xml"});
    namespaceNames.entries.push_back({kXmlNamespace});
}

ReadVocabulary::ReadVocabulary(CFastInfosetContext const& context, detail::XmlTree& tree) : ReadVocabulary() {
    if (!context.GetUseGeneratedVocabulary())
        return;
    CFIVocabulary const& vocabulary = *context.GetVocabulary();
    Copy(vocabulary.GetPrefixNamesTable(), tree, prefixNames);
    Copy(vocabulary.GetNamespaceNamesTable(), tree, namespaceNames);
    Copy(vocabulary.GetLocalNamesTable(), tree, localNames);
    Copy(vocabulary.GetElementNamesTable(), elementNames);
    Copy(vocabulary.GetAttributeNamesTable(), attributeNames);
    Copy(vocabulary.GetAttributeValuesTable(), tree, attributeValues);
    for (std::string const& text : vocabulary.GetCharacterChunksTable())
        characterChunks.entries.push_back(tree.KeepText(ElementText(text)));
}

} // namespace ZvXmlLib16
