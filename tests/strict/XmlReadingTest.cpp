// The reading of XML text by the usual rules and by the strict ones.
#include "tests/strict/Twice.h"
#include "zvxmllib/document/XmlDocument.h"
#include "zvxmllib/document/XmlElement.h"

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

} // namespace
