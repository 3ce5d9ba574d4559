// The entry points that write JSON, for objects written by hand, untyped elements and typed classes.
#include "tests/json/JsonParser.h"
#include "tests/support/Entries.h"
#include "tests/support/MessageOf.h"
#include "tests/support/Script.h"
#include "tests/support/WrittenObject.h"
#include "zvxmllib/document/XmlDocument.h"
#include "zvxmllib/json/JsonContext.h"

#include <gmock/gmock.h>

using namespace ZvXmlLib16;
using namespace entries;

namespace {

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

TEST(ToJson, WritesUntypedElements) {
    struct {
        char const* xml;
        char const* json;
    } const rows[] = {{"<a>x</a>", R"({"a": "x"})"},
                      // An untyped element always has a text.
                      {"<a/>", R"({"a": ""})"},
                      {"<a b='1'><c>x</c><c/>y</a>", R"({"a": {"@b": "1","c": "x","c": "","#text": "y"}})"},
                      // Its elements are not of a collection of the schema, so they are no array.
                      {"<a><c d='1'/><c d='2'/></a>",
                       R"({"a": {"c": {"@d": "1","#text": ""},"c": {"@d": "2","#text": ""},"#text": ""}})"},
                      {"<a b='&lt;&quot;\\'>5</a>", R"({"a": {"@b": "<\"\\","#text": "5"}})"},
                      {"<p:a xmlns:p='u'/>", R"({"AA:a": {"@xmlns:AA": "u","#text": ""}})"}};
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

TEST(ToJson, WritesAnEmptyChoiceAsNull) {
    Model choice;
    choice.group = XmlElementGroupType_Choice;
    choice.elements = {Prim<CElementInfoChoicePrimOpt>("value", 0)};
    choice.Finish();
    CSmartPtr<Probe> const object(new Probe(choice));
    EXPECT_EQ(object->ToJson(false, EOLType_LF, CSerializationContext()), R"({"order": null})");
    EXPECT_NO_THROW(object->FromJson(R"({"order": null})", CSerializationContext()));
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
