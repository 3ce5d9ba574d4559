// Patterns and names that schemas state, by the tool's verdict on documents.
#include "ToolRun.h"

#include <gtest/gtest.h>

namespace {

std::string SchemaText(std::string const& content) {
    return "<xs:schema xmlns:xs='http://www.w3.org/2001/XMLSchema' xmlns:p='urn:p'>" + content +
           "</xs:schema>";
}

// What the parser of schemas refuses though it is right, takes too long over, or knows nothing of.
TEST(ToolValidate, UsesPatternsThatTheParserOfSchemasCannotCopeWith) {
    struct Row {
        std::string pattern;
        std::string text;
        int exitCode;
    };
    for (Row const& row :
         {Row{"[-]", "-", 0}, Row{"[-]", "a", 1}, Row{"[^-]", "a", 0}, Row{"[a-c-e]+", "a-e", 0},
          Row{"\\p{IsHighSurrogates}", "a", 1}, Row{"\\P{IsHighSurrogates}", "a", 0},
          Row{"&#xE9;{66000,99999}|[-]&amp;", "-&amp;", 0}, Row{"a{99999999}", "a", 3},
          Row{"((((a{9999}){9999}){9999}){9999}){9999}", "a", 3}, Row{"[[]", "[", 3}}) {
        ScratchDirectory const directory;
        directory.Write("s.xsd",
                        SchemaText("<xs:element name='e'><xs:simpleType><xs:restriction base='xs:string'>"
                                   "<xs:pattern id='i' value=\"" +
                                   row.pattern + "\"/></xs:restriction></xs:simpleType></xs:element>"));
        directory.Write("d.xml", "<e>" + row.text + "</e>");
        EXPECT_EQ(directory.Run("validate --schema s.xsd d.xml").exitCode, row.exitCode) << row.pattern;
    }
}

// Their prefixes are those of the schema, which a document need not have.
TEST(ToolValidate, ComparesNamesThatSchemasState) {
    std::string const names = "<xs:union memberTypes='xs:int xs:QName xs:string'/>";
    struct Row {
        std::string type;
        std::string valid;
        std::string invalid;
    };
    for (Row const& row : {Row{"<xs:simpleType>" + names + "</xs:simpleType>", "q:a", "p:a"},
                           Row{"<xs:simpleType><xs:list><xs:simpleType>" + names +
                                   "</xs:simpleType></xs:list></xs:simpleType>",
                               " q:a ", "q:a q:a"},
                           Row{"<xs:complexType><xs:simpleContent><xs:extension "
                               "base='xs:QName'/></xs:simpleContent></xs:complexType>",
                               "q:a", "p:a"}}) {
        ScratchDirectory const directory;
        directory.Write("s.xsd",
                        SchemaText("<xs:element name='e' fixed='p:a'>" + row.type + "</xs:element>"));
        std::string const start = "<e xmlns:q='urn:p' xmlns:p='urn:other'>";
        directory.Write("valid.xml", start + row.valid + "</e>");
        directory.Write("invalid.xml", start + row.invalid + "</e>");
        EXPECT_EQ(directory.Run("validate --schema s.xsd valid.xml").exitCode, 0) << row.type;
        EXPECT_EQ(directory.Run("validate --schema s.xsd invalid.xml").exitCode, 1) << row.type;
    }
}

// Other programs read it: each line begins with the name of the document.
TEST(ToolValidate, TellsVerdictsByFile) {
    ScratchDirectory const directory;
    directory.Write("s.xsd", SchemaText("<xs:element name='e' type='xs:int'/>"));
    directory.Write("good.xml", "<e>1</e>");
    directory.Write("bad.xml", "<e>\n x</e>");
    directory.Write("cut.xml", "<e>");
    ToolResult const result = directory.Run("validate --schema s.xsd good.xml bad.xml none.xml cut.xml");
    EXPECT_EQ(result.out, "good.xml: valid\n");
    EXPECT_EQ(result.err, "bad.xml:1:1: /e: The value [x] is not a valid int.\n"
                          "none.xml: No such file or directory\n"
                          "cut.xml:1:4: no element found at line 1\n");
    EXPECT_EQ(result.exitCode, 1);
}

} // namespace
