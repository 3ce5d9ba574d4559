// The entry points that write JSON, for objects written by hand, untyped elements and typed classes.
#include "tests/json/JsonParser.h"
#include "tests/support/Bytes.h"
#include "tests/support/Entries.h"
#include "tests/support/LocalEncoding.h"
#include "tests/support/MessageOf.h"
#include "tests/support/Script.h"
#include "tests/support/TemporaryFile.h"
#include "tests/support/WrittenObject.h"
#include "zvxmllib/document/XmlDocument.h"
#include "zvxmllib/json/JsonContext.h"
#include "zvxmllib/streams/AsyncFiles.h"
#include "zvxmllib/streams/ZvZip.h"

#include <gmock/gmock.h>

using namespace ZvXmlLib16;
using namespace entries;

namespace {

CSmartPtr<WrittenObject> Scalar(std::string const& text) {
    return new WrittenObject(Script("(a '" + text + "')"));
}

TEST(ToJson, GivesTheContextsOptionsToTheWriter) {
    CSerializationContext ctx;
    ctx.SetIndentChars("  ");
    CSmartPtr<WrittenObject> const object(new WrittenObject(Script("(a @b=1)")));
    EXPECT_EQ(object->ToJson(true, EOLType_CRLF, ctx), "{\r\n  \"a\": {\r\n    \"@b\": \"1\"\r\n  }\r\n}");
    ctx.GetJsonContext().SetSupportRoundtrip(JsonRoundTrip_None);
    EXPECT_EQ(object->ToJson(false, EOLType_LF, ctx), R"({"a": {"b": "1"}})");
    EXPECT_EQ(MessageOf<CZvException>([&] { object->ToJson(false, static_cast<EOLType>(2), ctx); }),
              "Invalid EOL type.");
}

TEST(ToJson, WritesTheBracesAloneForAnObjectThatWritesNothing) {
    CSmartPtr<WrittenObject> const object(new WrittenObject);
    CSerializationContext const ctx;
    EXPECT_EQ(object->ToJson(false, EOLType_LF, ctx), "{}");
    EXPECT_EQ(object->ToJson(true, EOLType_LF, ctx), "{\n\n}");
}

TEST(ToJsonStream, GivesBytesOfTheEncodingWithoutAMark) {
    LocalEncoding const local(65001);
    CSerializationContext const ctx;
    auto const bytes = [&](XmlEncoding encoding) {
        return TextOf(
            Scalar("\xC3\xA4")->ToJsonStream(false, encoding, EOLType_LF, ctx, CompressionType_None));
    };
    EXPECT_EQ(bytes(XmlEncoding_UTF8), "{\"a\": \"\xC3\xA4\"}");
    std::string const utf16 = Utf16("{\"a\": \"") + std::string("\xE4\0", 2) + Utf16("\"}");
    EXPECT_EQ(bytes(XmlEncoding_UTF16), utf16);
    EXPECT_EQ(bytes(XmlEncoding_UTF16NoDeclaration), utf16);
}

TEST(ToJsonStream, Compresses) {
    CSerializationContext const ctx;
    std::string const text(1000, 'x');
    for (CompressionType const type : {CompressionType_GZip, CompressionType_ZLib}) {
        CBinaryData const data = Scalar(text)->ToJsonStream(false, XmlEncoding_UTF8, EOLType_LF, ctx, type);
        EXPECT_LT(data.GetLength(), 100U);
        CBinaryData decompressed;
        ASSERT_TRUE(CZvZip::TryDecompress(data.GetData(), data.GetLength(), decompressed)) << type;
        EXPECT_EQ(TextOf(decompressed), "{\"a\": \"" + text + "\"}");
    }
}

TEST(ToJsonFile, WritesNoByteOrderMarkInEitherWay) {
    CSerializationContext const ctx;
    TemporaryFile const file;
    CSmartPtr<WrittenObject> const object = Scalar(std::string(10000, 'x'));
    std::string const json = "{\"a\": \"" + std::string(10000, 'x') + "\"}";
    for (bool const isDirect : {false, true}) {
        AsyncToXmlFile(isDirect);
        for (XmlEncoding const encoding : {XmlEncoding_UTF8, XmlEncoding_UTF16}) {
            object->ToJsonFile(file.Path(), false, encoding, EOLType_LF, ctx, CompressionType_None);
            EXPECT_TRUE(file.Content() == (encoding == XmlEncoding_UTF8 ? json : Utf16(json)))
                << isDirect << encoding;
        }
        object->ToJsonFile(file.Path(), false, XmlEncoding_UTF16, EOLType_LF, ctx, CompressionType_GZip);
        EXPECT_THAT(file.Content(), testing::StartsWith("\x1F\x8B")) << isDirect;
        EXPECT_EQ(MessageOf<CZvException>([&] {
                      object->ToJsonFile("/nowhere/a", false, XmlEncoding_UTF8, EOLType_LF, ctx,
                                         CompressionType_None);
                  }),
                  "Failed to write data to the file [/nowhere/a] error [0x00000002]");
        EXPECT_EQ(MessageOf<CZvException>([&] {
                      object->ToJsonFile("/nowhere/a", false, XmlEncoding_UTF8, EOLType_LF, ctx,
                                         CompressionType_ZLib);
                  }),
                  "ZLIB Compression only available for To Stream methods.");
    }
    AsyncToXmlFile(false);
}

TEST(ToJson, WritesUntypedElements) {
    struct {
        char const* xml;
        char const* json;
    } const rows[] = {
        {"<a>x</a>", R"({"a": "x"})"},
        // An untyped element always has a text.
        {"<a/>", R"({"a": ""})"},
        {"<a b='1'><c>x</c><c/>y</a>", R"({"a": {"@b": "1","c": "x","c": "","#text": "y"}})"},
        // Its elements are not of a collection of the schema, so they are no array.
        {"<a><c d='1'/><c d='2'/></a>",
         R"({"a": {"c": {"@d": "1","#text": ""},"c": {"@d": "2","#text": ""},"#text": ""}})"},
        {"<a b='&lt;&quot;\\'>5</a>", R"({"a": {"@b": "<\"\\","#text": "5"}})"},
        {"<p:a xmlns:p='u'/>", R"({"AA:a": {"@xmlns:AA": "u","#text": ""}})"},
    };
    for (auto const& row : rows) {
        CSmartPtr<CElement> const element(new CElement(""));
        element->FromXml(row.xml);
        EXPECT_EQ(element->ToJson(false, EOLType_LF, CSerializationContext()), row.json);
        EXPECT_EQ(FaultOfJson(row.json), "");
    }
}

TEST(ToJson, WrapsAnUnknownNamespaceInTheNamesOfTheElements) {
    Model leaf;
    leaf.name = "leaf";
    leaf.ns = "v";
    leaf.Finish();
    Model tree;
    tree.name = "tree";
    tree.elements = {new CElementInfoSeqClsCol("leaf", "v", 0, XmlElementType_Element)};
    tree.init = [&leaf](Probe& probe) { probe.properties[0].SetXmlCollection(new ProbeCol(leaf, 0, -1)); };
    tree.Finish();
    CSmartPtr<Probe> const object(new Probe(tree));
    static_cast<ProbeCol*>(object->properties[0].FindXmlCollection())->Add();
    CSerializationContext ctx;
    EXPECT_EQ(MessageOf<CZvValidationException>([&] { object->ToJson(false, EOLType_LF, ctx); }),
              "Failed to convert the element [tree] to XML\nFailed to convert the element [leaf] to XML\n"
              "Unknown Namespace: v.");
    ctx.GetNamespaceAliases().Add("p", "v");
    EXPECT_EQ(object->ToJson(false, EOLType_LF, ctx), R"({"tree": {"@xmlns:p": "v","p:leaf": null}})");
}

TEST(ToJson, WritesNilAsNull) {
    Model order;
    order.elements = {Prim<CElementInfoSeqPrimOpt>("value", 0, nullptr, true)};
    order.Finish();
    CSmartPtr<NillableProbe> const object(new NillableProbe(order));
    object->properties[0].SetNil(ItemType_i4);
    CSerializationContext const ctx;
    EXPECT_EQ(object->ToJson(false, EOLType_LF, ctx), R"({"order": {"value": null}})");
    object->SetIsNil(true);
    EXPECT_EQ(object->ToJson(false, EOLType_LF, ctx), R"({"order": null})");
}

} // namespace
