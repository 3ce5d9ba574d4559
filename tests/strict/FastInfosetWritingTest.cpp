// Fast Infoset out: each script by the usual rules and by the strict ones, and what is strict read again.
#include "tests/fastinfoset/Octets.h"
#include "tests/fastinfoset/WrittenOctets.h"
#include "tests/support/MessageOf.h"
#include "tests/support/Script.h"
#include "zvxmllib/collections/Element.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace ZvXmlLib16 {
namespace {

struct WrittenRow {
    std::string script;
    std::string usual;  // octets in hexadecimal behind the header
    std::string strict; // likewise
    std::string tree;   // what a strict reader makes of the strict octets
};

CSerializationContext Context(bool strict) {
    CSerializationContext ctx;
    ctx.SetStrict(strict);
    return ctx;
}

template <class Exception = CZvException>
std::string Written(WrittenObject::Body const& body, CSerializationContext const& ctx) {
    std::string octets;
    std::string const failure = MessageOf<Exception>([&] { octets = FastInfosetOf(body, ctx); });
    return failure == "nothing was thrown" ? octets : failure;
}

std::string TreeOf(std::string const& hex, CSerializationContext const& ctx) {
    CXmlDocument document(ctx);
    std::string const failure = MessageOf<CZvException>([&] { Load(document, Document(Octets(hex))); });
    return failure == "nothing was thrown" ? TreeText(document) : failure;
}

void ExpectWritten(std::vector<WrittenRow> const& rows) {
    for (WrittenRow const& row : rows) {
        Script const script(row.script);
        EXPECT_EQ(Written(script, Context(false)), row.usual) << row.script;
        CSerializationContext const strict = Context(true);
        std::string const octets = Written(script, strict);
        EXPECT_EQ(octets, row.strict) << row.script;
        EXPECT_EQ(TreeOf(octets, strict), row.tree) << row.script;
    }
}

TEST(StrictFastInfosetWriting, DeclaresEachPrefixWhereItIsNeeded) {
    ExpectWritten({
        {"(a)", "38 F0 3C 00 61 FF", "3C 00 61 FF", "0 {}a\n"},
        {"(a @x=1 'hi')", "78 F0 3C 00 61 78 00 78 40 31 F0 91 68 69 FF",
         "7C 00 61 78 00 78 40 31 F0 91 68 69 FF", "0 {}a\nA {}x=1\nT hi\n"},
        {"(u|a)", "38 F0 3F 01 41 41 00 75 00 61 FF", "38 CF 01 41 41 00 75 F0 3F 81 81 00 61 FF",
         "0 {u}a\n"},
        {"(a @u|x=1)", "78 F0 3C 00 61 7B 01 41 41 00 75 00 78 40 31 F0 FF",
         "78 CF 01 41 41 00 75 F0 3C 00 61 7B 81 81 00 78 40 31 F0 FF", "0 {}a\nA {u}x=1\n"},
        // Given aliases stand on the root, and are not declared again.
        {"!p=u (a (u|b) (u|b))", "38 CF 00 70 00 75 F0 3C 00 61 3F 81 81 00 62 F0 01 FF F0",
         "38 CF 00 70 00 75 F0 3C 00 61 3F 81 81 00 62 F0 01 FF F0", "0 {}a\n1 {u}b\n1 {u}b\n"},
        // Each of two siblings needs its own declaration, and the second comes by its index.
        {"(a (u|b) (u|b))", "38 F0 3C 00 61 3F 01 41 41 00 75 00 62 F0 01 FF F0",
         "3C 00 61 38 CF 01 41 41 00 75 F0 3F 81 81 00 62 F0 38 CF 81 81 F0 01 FF F0",
         "0 {}a\n1 {u}b\n1 {u}b\n"},
        // The default namespace, and elements in none.
        {"*d (d|r (n (d|s)))", "38 CD 00 64 F0 3D 81 00 72 3C 00 6E 3D 81 00 73 FF FF",
         "38 CD 00 64 F0 3D 81 00 72 38 CC F0 3C 00 6E 38 CF 01 41 41 81 F0 3F 81 81 00 73 FF FF",
         "0 {d}r\n1 {}n\n2 {d}s\n"},
        {"*d (n)", "38 CD 00 64 F0 3C 00 6E FF", "3C 00 6E FF", "0 {}n\n"},
        {"(a *d (d|b))", "38 F0 3C 00 61 3D 00 64 00 62 FF F0", "3C 00 61 38 CD 00 64 F0 3D 81 00 62 FF F0",
         "0 {}a\n1 {d}b\n"},
        {"(a !p=u @u|x=1)", "78 F0 3C 00 61 7B 00 70 00 75 00 78 40 31 F0 FF",
         "78 CF 00 70 00 75 F0 3C 00 61 7B 81 81 00 78 40 31 F0 FF", "0 {}a\nA {u}x=1\n"},
        {"*d (d|r !p=u (u|s))", "38 CD 00 64 F0 3D 81 00 72 3F 00 70 00 75 00 73 FF F0",
         "38 CD 00 64 CF 00 70 00 75 F0 3D 81 00 72 3F 81 82 00 73 FF F0", "0 {d}r\n1 {u}s\n"},
    });
    // Two meanings of one prefix in one head.
    for (char const* script : {"(a @u|x=1 !AA=v @v|x=1)", "!p=u (u|a !p=v)", "*d (d|a *e ^e|t)"})
        EXPECT_THAT(Written<CZvInvalidParamException>(Script(script), Context(true)),
                    testing::HasSubstr("stands for ["))
            << script;
}

// A value that names a type needs its prefix, and the instance namespace as well.
TEST(StrictFastInfosetWriting, DeclaresThePrefixesOfTypes) {
    for (char const* script : {"(a ^u|t)", "(u|a ^u|t)", "*u (u|a ^u|t)", "(a %)", "!p=u (u|a (u|b ^v|t))"}) {
        std::string const octets = Written(Script(script), Context(true));
        CXmlDocument document;
        Load(document, Document(Octets(octets)));
        CXmlElement const* element = document.GetDocumentElement();
        if (element->GetFirstElement() != nullptr)
            element = element->GetFirstElement();
        std::string const value = element->GetAttributes()[0]->GetValue();
        std::size_t const colon = value.find(':');
        std::string const prefix = colon == std::string::npos ? "" : value.substr(0, colon);
        std::string const ns = document.LookupNamespaceFromAlias(prefix.c_str());
        EXPECT_EQ(ns.empty() ? "" : ns.substr(0, 1),
                  value == "true"                                                 ? ""
                  : std::string_view(script).find("v|") != std::string_view::npos ? "v"
                                                                                  : "u")
            << script;
        EXPECT_EQ(TreeOf(octets, Context(true)), TreeOf(octets, Context(false))) << script;
    }
}

// Each value under an encoding of its type: what is read is what was written.
TEST(StrictFastInfosetWriting, WritesWhatAnEncodingDoesNotGiveBackAsText) {
    struct ValueRow {
        ItemType type;
        char const* value;
        char const* usual; // what comes back, or the failure
    };
    constexpr char const* kNotInAlphabet =
        "Failed to write FastInfoset. Invalid character not found for Restricted Alphabet.";
    for (ValueRow const& row : {
             ValueRow{ItemType_r4, "1.50", "1.5"},
             ValueRow{ItemType_r8, "1e0", "1"},
             ValueRow{ItemType_i4, "007", "7"},
             ValueRow{ItemType_i4, "-12", "-12"},
             ValueRow{ItemType_boolean, "1", "true"},
             ValueRow{ItemType_hexBinary, "0a", "0A"},
             ValueRow{ItemType_base64Binary, "YQ= =", "YQ=="},
             ValueRow{ItemType_datetime, "2024-01-01T00:00:00.5+01:00", kNotInAlphabet},
             ValueRow{ItemType_datetime, "2024-01-01T00:00:00Z", "2024-01-01T00:00:00Z"},
             ValueRow{ItemType_decimal, "1E5", kNotInAlphabet},
             ValueRow{ItemType_ui8, "9223372036854775807", "9223372036854775807"},
         }) {
        for (bool const strict : {false, true}) {
            CSerializationContext ctx = Context(strict);
            ctx.GetFIContext().SetSuggestedValues();
            // The second value is a string that is equal to the first one, the third an attribute.
            ctx.GetFIContext().SetElementMaxAddLength(100);
            ctx.GetFIContext().SetAttributeMaxAddLength(100);
            auto const body = [&](CXmlWriter& w) {
                w.WriteElementStart("a", "");
                w.WriteAttribute("x", "", row.value, row.type);
                w.WriteAttribute("y", "", row.value, ItemType_string);
                for (ItemType const type : {row.type, ItemType_string}) {
                    w.WriteElementStart("b", "");
                    w.WriteElementValue(row.value, type, false);
                    w.WriteElementEnd();
                }
                w.WriteElementEnd();
            };
            std::string const octets = Written(body, ctx);
            std::string const back = strict ? row.value : row.usual;
            if (back == kNotInAlphabet)
                EXPECT_EQ(octets, back) << row.value;
            else
                EXPECT_EQ(TreeOf(octets, ctx), "0 {}a\nA {}x=" + back + "\nA {}y=" + back + "\n1 {}b\nT " +
                                                   back + "\n1 {}b\nT " + back + "\n")
                    << row.value;
        }
    }
}

TEST(StrictFastInfosetWriting, WritesInstructionsAndComments) {
    ExpectWritten({
        {"? ~ (a @x=1 ? (b) ~ )", "78 F0 3C 00 61 78 00 78 40 31 F0 3C 00 62 FF F0",
         "E1 00 70 FF E2 00 63 7C 00 61 78 00 78 40 31 F0 E1 80 FF 3C 00 62 F0 E2 00 63 FF",
         "0 {}a\nA {}x=1\n1 {}b\n"},
    });
    auto const instruction = [](char const* text) {
        return Written<CZvInvalidParamException>(
            [text](CXmlWriter& w) {
                w.WriteProcessingInstruction(text);
                w.WriteElementStart("a", "");
                w.WriteElementEnd();
            },
            Context(true));
    };
    EXPECT_EQ(instruction("<?p q r?>"), "E1 00 70 02 71 20 72 3C 00 61 FF");
    EXPECT_EQ(instruction("no instruction"), "Invalid Processing Instruction [no instruction].");
}

// Every fault that a writer can be asked for: the usual octets, and why the strict ones are refused.
TEST(StrictFastInfosetWriting, RefusesWhatNoDocumentCanHave) {
    struct FaultRow {
        char const* what;
        WrittenObject::Body body;
        char const* message;
    };
    auto const element = [](char const* name) {
        return [name](CXmlWriter& w) {
            w.WriteElementStart(name, "");
            w.WriteElementEnd();
        };
    };
    auto const value = [](std::string const& text) {
        return [text](CXmlWriter& w) {
            w.WriteElementStart("n", "");
            w.WriteElementValue(text, ItemType_string, false);
            w.WriteElementEnd();
        };
    };
    for (FaultRow const& row : {
             FaultRow{"", element("a b"), "Invalid Element Name [a b]."},
             FaultRow{"", element("a/><b"), "Invalid Element Name [a/><b]."},
             FaultRow{"", element("p:a"), "Invalid Element Name [p:a]."},
             FaultRow{"", value("x\x01y"), "The character [U+0001] of [n] can not be expressed in XML."},
             FaultRow{"", value(std::string("x\0y", 3)),
                      "The character [U+0000] of [n] can not be expressed in XML."},
             FaultRow{"", value("\xEF\xBF\xBE"),
                      "The character [U+FFFE] of [n] can not be expressed in XML."},
             FaultRow{"", value("\xFF"), "The text of [n] is not valid in the local encoding."},
             FaultRow{"(a @'b c'=1)", {}, "Invalid Attribute Name [b c]."},
             FaultRow{"(a @xmlns=urn)", {}, "Invalid Attribute Name [xmlns]."},
             FaultRow{"(a @k=1 @k=2)", {}, "The Attribute [k] is already written."},
             FaultRow{"(a @u|k=1 @k=2 @v|k=3 @u|k=4)", {}, "The Attribute [k] is already written."},
             FaultRow{"(a @a= @b= @c= @d= @e= @f= @g= @h= @i= @j= @k= @l= @m= @n= @o= @p= @q= @r= @b=)",
                      {},
                      "The Attribute [b] is already written."},
             FaultRow{"(a @a= @b= @c= @d= @e= @f= @g= @h= @i= @j= @k= @l= @m= @n= @o= @p= @q= @r= @q=)",
                      {},
                      "The Attribute [q] is already written."},
             FaultRow{"(a @k='\x02')", {}, "The character [U+0002] of [k] can not be expressed in XML."},
             FaultRow{"(u|a ^u|'b c')", {}, "Invalid Element Name [b c]."},
             FaultRow{"!1p=u (a)", {}, "Invalid Namespace alias [1p]."},
             FaultRow{"!xml=u (a)", {}, "Invalid Namespace alias [xml]."},
             FaultRow{"!xmlns=u (a)", {}, "Invalid Namespace alias [xmlns]."},
             FaultRow{"!p=http://www.w3.org/XML/1998/namespace (a)", {}, "Invalid Namespace alias [p]."},
             FaultRow{"!p=u !p=v (a)", {}, "The Namespace alias [p] stands for [u] and for [v]."},
             FaultRow{"(a @http://www.w3.org/2000/xmlns/|b=u)",
                      {},
                      "Invalid Namespace [http://www.w3.org/2000/xmlns/]."},
             FaultRow{"*http://www.w3.org/XML/1998/namespace (a)",
                      {},
                      "Invalid Namespace [http://www.w3.org/XML/1998/namespace]."},
             FaultRow{"(a) (b)", {}, "The document has a root element, [b] is a second one."},
             FaultRow{"?", {}, "The document has no root element."},
             FaultRow{"(a $)", {}, "The inline schema can not be written inside a start tag."},
             FaultRow{"", [](CXmlWriter& w) { w.WriteComment("x--y"); }, "Invalid Comment [x--y]."},
             FaultRow{"", [](CXmlWriter& w) { w.WriteProcessingInstruction("<?a b?><evil/>"); },
                      "Invalid Processing Instruction [<?a b?><evil/>]."},
             FaultRow{"", [](CXmlWriter& w) { w.WriteProcessingInstruction("<?XML version='1.0'?>"); },
                      "Invalid Processing Instruction [<?XML version='1.0'?>]."},
         }) {
        WrittenObject::Body const body = row.body ? row.body : WrittenObject::Body(Script(row.what));
        for (bool const strict : {false, true}) {
            std::string message = "written";
            try {
                FastInfosetOf(body, Context(strict));
            } catch (CZvException const& e) {
                message = e.GetMessage();
            }
            EXPECT_EQ(message, strict ? row.message : "written") << row.what << row.message;
        }
    }
}

// Nobody has given these documents an alias.
TEST(StrictFastInfosetWriting, KeepsRealDocuments) {
    CSerializationContext const strict = Context(true);
    int count = 0;
    for (auto const& entry : std::filesystem::directory_iterator(ZV_EXAMPLE_DATA_DIR)) {
        if (entry.path().extension() == ".md")
            continue;
        CXmlDocument original;
        original.Load(entry.path().c_str());
        CSmartPtr<CElement> const element(new CElement(""));
        std::ifstream stream(entry.path(), std::ios::binary);
        std::string const xml{std::istreambuf_iterator<char>(stream), {}};
        element->FromXml(xml.c_str());
        for (CompressionType const compression : {CompressionType_None, CompressionType_GZip}) {
            CXmlDocument document(strict);
            Load(document, TextOf(element->ToFastInfosetStream(FInfoDecl_None, strict, compression)));
            EXPECT_EQ(TreeText(document), TreeText(original)) << entry.path();
        }
        ++count;
    }
    EXPECT_GE(count, 6);
}

// An untyped object that stands for a whole document.
class CWholeDocument : public CElement {
public:
    CWholeDocument(CXmlDocument const& document, CSerializationContext const& ctx) : CElement("") {
        CXmlElement* const root = document.GetDocumentElement();
        FromXml_Int(root, root, ctx, false);
    }

protected:
    ~CWholeDocument() override = default;
};

// Whatever a strict reader takes can be written, and is the same when it is read again.
TEST(StrictFastInfosetWriting, GivesBackWhateverWasRead) {
    CSerializationContext const strict = Context(true);
    std::string const sample =
        Octets("E0 00 00 01 20 0098 00 01 'le' 00 00 'r' 00 00 'i' E1 00 't' 00 'd'"
               "78 CF 00 'p' 00 'u' CD 00 'd' F0 3F 81 81 80 7B 81 81 80 80 78 00 'k' 41 'on' F0"
               "92 00 'two' A0 38 CC F0 3C 00 'b' 95 20 AC F0 88 00 12 3D 82 00 'c' 8C 0E 01 00 "
               "00 00 07 F0 40 00 80 FF F0 E2 00 'c' F0");
    int taken = 0;
    for (std::size_t at = 4; at < sample.size(); ++at) {
        for (int change = 0; change < 256; ++change) {
            std::string octets = sample;
            octets[at] = static_cast<char>(octets[at] ^ change);
            CXmlDocument document(strict);
            if (MessageOf<CZvException>([&] { Load(document, octets); }) != "nothing was thrown")
                continue;
            ++taken;
            CSmartPtr<CElement> const element(new CWholeDocument(document, strict));
            std::string const again =
                TextOf(element->ToFastInfosetStream(FInfoDecl_None, strict, CompressionType_None));
            CXmlDocument copy(strict);
            Load(copy, again);
            ASSERT_EQ(TreeText(copy), TreeText(document)) << at << ' ' << change;
        }
    }
    EXPECT_GT(taken, 2000);
}

} // namespace
} // namespace ZvXmlLib16
