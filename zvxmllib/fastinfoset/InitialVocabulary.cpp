// CFastInfosetReader: the vocabulary that a document brings along, where it is taken in.
//
//   000 x a e p u  n c u v t o s s   external vocabulary, alphabets, algorithms, prefixes, namespace names;
//   local
//                                    names, other NCNames, other URIs, attribute values, chunks, other
//                                    strings, surrogates of element names and of attribute names; what is
//                                    there follows
#include "zvxmllib/document/XmlTree.h"
#include "zvxmllib/fastinfoset/FInfoDeclarations.h"
#include "zvxmllib/fastinfoset/FastInfosetContext.h"
#include "zvxmllib/fastinfoset/FastInfosetReader.h"
#include "zvxmllib/fastinfoset/InfosetChecks.h"

namespace ZvXmlLib16 {

// Values under alphabets and algorithms of the document fail where they stand, so their tables are read over,
// as are those that the tree needs nothing of.
void CFastInfosetReader::TakeInitialVocabulary() {
    unsigned const high = m_in.ReadOctet();
    unsigned const tables = high << 8 | m_in.ReadOctet();
    if ((tables & 0xE000) != 0)
        FailDocumentItem();
    if ((tables & 0x1000) != 0)
        TakeExternalVocabulary();
    ReadVocabulary& v = *m_vocabulary;
    auto const takeItems = [&](unsigned table, auto take) {
        if ((tables & table) == 0)
            return;
        for (std::uint32_t left = m_in.ReadSequenceLength(); left != 0; --left)
            take();
    };
    takeItems(0x0800, [&] { SkipOctetString(); });
    takeItems(0x0400, [&] { SkipOctetString(); });
    takeItems(0x0200, [&] { TakeNamePart(v.prefixNames); });
    takeItems(0x0100, [&] { TakeNamePart(v.namespaceNames); });
    takeItems(0x0080, [&] { TakeNamePart(v.localNames); });
    takeItems(0x0040, [&] { SkipOctetString(); });
    takeItems(0x0020, [&] { SkipOctetString(); });
    takeItems(0x0010, [&] { TakeText(v.attributeValues); });
    takeItems(0x0008, [&] { TakeText(v.characterChunks); });
    takeItems(0x0004, [&] { SkipEncodedString(); });
    takeItems(0x0002, [&] { TakeNameSurrogate(v.elementNames); });
    takeItems(0x0001, [&] { TakeNameSurrogate(v.attributeNames); });
}

// The only one that is known is that of the context.
void CFastInfosetReader::TakeExternalVocabulary() {
    std::string_view const octets = m_in.ReadOctets(m_in.ReadLength2(m_in.ReadOctet()));
    InfosetChecks::RequireText(octets);
    std::string const uri(DecodeUtf8(octets));
    std::string const known = m_context.GetExternalVocabularyURI();
    if (!m_context.GetUseGeneratedVocabulary() || uri != (known.empty() ? kDefaultVocabularyUri : known))
        FailExternalVocabulary(uri);
    *m_vocabulary = ReadVocabulary(m_context, *m_tree);
}

void CFastInfosetReader::TakeNamePart(NameParts& table) {
    std::uint8_t const octet = m_in.ReadOctet();
    if (octet >= 0x80)
        FailDocumentItem();
    AddNamePart(table, m_in.ReadOctets(m_in.ReadLength2(octet)));
}

void CFastInfosetReader::TakeText(Strings& table) {
    table.entries.push_back(Decode(ReadEncodedString5(m_in.ReadOctet())));
}

// 000000 p n: the indices of prefix and namespace, as far as they are there, and of the local name.
void CFastInfosetReader::TakeNameSurrogate(QNames& table) {
    std::uint8_t const parts = m_in.ReadOctet();
    if (parts > 0x03)
        FailDocumentItem();
    if (parts == 0x02)
        FailPrefixWithoutNamespace();
    ReadVocabulary::QName entry{};
    if ((parts & 0x02) != 0)
        entry.prefix = m_in.ReadInteger2(m_in.ReadOctet());
    if ((parts & 0x01) != 0)
        entry.namespaceName = m_in.ReadInteger2(m_in.ReadOctet());
    entry.localName = m_in.ReadInteger2(m_in.ReadOctet());
    table.entries.push_back(entry);
}

} // namespace ZvXmlLib16
