// The reading of XML text by the usual rules and by the strict ones.
#include "tests/strict/Twice.h"
#include "tests/support/LocalEncoding.h"
#include "zvxmllib/collections/Element.h"
#include "zvxmllib/document/XmlDocument.h"
#include "zvxmllib/document/XmlElement.h"
#include "zvxmllib/driver/ClassFactoryBase.h"

#include <gtest/gtest.h>

using namespace entries;

namespace {

std::string TextOf(char const* xml, CSerializationContext const& ctx) {
    try {
        CXmlDocument document(ctx);
        document.LoadXml(xml);
        return document.GetDocumentElement()->GetText();
    } catch (CZvException const& failure) {
        return failure.GetMessage();
    }
}

TEST(StrictXmlReading, LosesNoText) {
    struct Row {
        char const* xml;
        char const* usual;
        char const* strict;
    };
    for (Row const& row : {
             Row{"<!DOCTYPE r [<!ENTITY e SYSTEM 'x'>]>\n<r>a&e;b</r>", "ab",
                 "The entity [e] has not been read at line 2"},
             Row{"<!DOCTYPE r SYSTEM 'x'><r xmlns:p='urn:p'>a&e;b</r>", "ab",
                 "The entity [e] has not been read at line 1"},
             Row{"<!DOCTYPE r [<!ENTITY e SYSTEM 'x'>]><r xmlns='u' xmlns:p='urn:p'>&e;</r>", "",
                 "The entity [e] has not been read at line 1"},
             Row{"<!DOCTYPE r [<!ENTITY e 'x'>]><r>a&e;b</r>", "axb", "axb"},
             Row{"<!DOCTYPE r [<!ENTITY % p SYSTEM 'x'> %p;]><r>a</r>", "a", "a"},
             Row{"<r>a&#13;b\r\nc&#13;</r>", "ab\nc", "a\rb\nc\r"},
         }) {
        EXPECT_EQ(TextOf(row.xml, CSerializationContext()), row.usual) << row.xml;
        EXPECT_EQ(TextOf(row.xml, Strict()), row.strict) << row.xml;
    }
}

// Of one character each: of XML and of JSON; in the second line where there is one.
TEST(StrictXmlReading, RefusesWhatLocalTextCannotHold) {
    std::string const refused = "The character [U+20AC] can not be expressed in the local encoding at line ";
    std::string const euro = "\xE2\x82\xAC";
    std::string const umlaut = "\xC3\xA4";
    struct Row {
        unsigned codePage;
        bool isAsciiOnly;
        std::string text;
        std::string usual;
        std::string strict; // empty for the usual
    };
    for (Row const& row : {
             Row{65001, false, euro, euro, ""},
             Row{28591, false, umlaut, "\xE4", ""},
             Row{28591, false, "a?" + umlaut + euro, "a?\xE4?", refused},
             Row{1252, false, euro, "\x80", ""},
             Row{1252, false, "?\xF0\x9F\x98\x80", "??",
                 "The character [U+1F600] can not be expressed in the local encoding at line "},
             Row{65001, true, euro, euro, refused},
         }) {
        LocalEncoding const local(row.codePage, row.isAsciiOnly);
        std::string const xml = "<?xml version='1.0' encoding='UTF-8'?><r>\n" + row.text + "</r>";
        EXPECT_EQ(TextOf(xml.c_str(), CSerializationContext()), '\n' + row.usual) << row.text;
        EXPECT_EQ(TextOf(xml.c_str(), Strict()), row.strict.empty() ? '\n' + row.usual : row.strict + '2')
            << row.text;
        std::string const json = "{\"r\":\"" + row.text + "\"}";
        CSmartPtr<CElement> const element(new CElement(""));
        std::string outcome;
        try {
            element->FromJsonStream(CBinaryData(json.c_str()), Strict());
            outcome = element->GetText();
        } catch (CZvException const& failure) {
            outcome = failure.GetMessage();
        }
        EXPECT_EQ(outcome, row.strict.empty() ? row.usual : row.strict + '1') << row.text;
    }
    LocalEncoding const local(28591);
    std::string const letter = "\xE4\xB8\x80";
    for (std::string const& xml :
         {"<" + letter + "/>", "<r " + letter + "='1'/>", "<r xmlns:" + letter + "='urn:x'/>"})
        EXPECT_EQ(TextOf(xml.c_str(), Strict()),
                  "The character [U+4E00] can not be expressed in the local encoding at line 1")
            << xml;
    for (std::string const& xml : {"<r a='" + euro + "'/>", "<r xmlns='" + euro + "'/>"})
        EXPECT_EQ(TextOf(xml.c_str(), Strict()), refused + '1') << xml;
}

class Factory : public CClassfactoryBase {
public:
    using CClassfactoryBase::GetElementType;
    using CClassfactoryBase::GetElementTypeNamespaceUri;
};

// Of the root and its children: name@namespace, or the failure.
std::string TypesOf(std::string const& xml, CSerializationContext const& ctx) {
    CXmlDocument document(ctx);
    document.LoadXml(xml.c_str());
    CXmlElement* const root = document.GetDocumentElement();
    std::string types;
    for (CXmlElement* e = root; e != nullptr;
         e = e == root ? e->GetFirstElement() : e->GetNextSiblingElement()) {
        try {
            types += Factory::GetElementType(e) + '@' + Factory::GetElementTypeNamespaceUri(e) + ' ';
        } catch (CZvException const& failure) {
            types += failure.GetFullMessage() + ' ';
        }
    }
    return types;
}

TEST(StrictXmlReading, TakesUrisWithTheSeparatorOfTheUsualReader) {
    char const* const xml = "<q:r xmlns:q='urn:a|b' xmlns='|' q:k='1'><c/><d:c xmlns:d='urn:a'/></q:r>";
    EXPECT_EQ(TextOf(xml, CSerializationContext()), "syntax error at line 1");
    CSerializationContext const ctx = Strict();
    CXmlDocument document(ctx);
    document.LoadXml(xml);
    CXmlElement const& root = *document.GetDocumentElement();
    EXPECT_EQ(root.GetLocalName() + ' ' + root.GetNamespaceURI(), "r urn:a|b");
    EXPECT_EQ(root.GetAttribute("k", "urn:a|b"), "1");
    EXPECT_EQ(root.GetFirstElement()->GetNamespaceURI(), "|");
    EXPECT_EQ(root.GetFirstElement()->GetNextSiblingElement()->GetNamespaceURI(), "urn:a");
}

TEST(StrictXmlReading, LooksUpPrefixesInTheScopeOfTheElement) {
    struct Row {
        char const* xml;
        char const* usual;
        char const* strict;
    };
    for (Row const& row : {
             Row{"<r xmlns:p='urn:1'><a xsi:type='p:T'/><b xmlns:p='urn:2' xsi:type='p:T'/></r>",
                 "@ T@urn:2 T@urn:2 ", "@ T@urn:1 T@urn:2 "},
             Row{"<q:r xmlns:q='urn:q' xmlns='urn:d' xsi:type='T'><q:a xmlns='' xsi:type='T'/></q:r>",
                 "T@urn:q T@urn:q ", "T@urn:d T@ "},
             Row{"<r xsi:type=' T '><a xsi:type='xml:T'/></r>", " T @ T@ ",
                 "T@ T@http://www.w3.org/XML/1998/namespace "},
             Row{"<r xmlns='u'><a xsi:type='zz:T'/><b xmlns:zz='urn:z'/></r>", "@u T@urn:z @u ",
                 "@u Namespace alias [zz] not found\nPath: /r/a/xsi:@type @u "},
         }) {
        std::string xml = row.xml;
        xml.insert(xml.find('>'), " xmlns:xsi='http://www.w3.org/2001/XMLSchema-instance'");
        EXPECT_EQ(TypesOf(xml, CSerializationContext()), row.usual) << row.xml;
        EXPECT_EQ(TypesOf(xml, Strict()), row.strict) << row.xml;
    }
}

} // namespace
