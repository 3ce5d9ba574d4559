// JSON to XML, and the entry points that read JSON into documents and objects.
#include "examples/cap_alert/CapAlert.h"
#include "examples/purchase_order/PurchaseOrder.h"
#include "tests/json/DocumentedExamples.h"
#include "tests/support/Bytes.h"
#include "tests/support/LocalEncoding.h"
#include "tests/support/MessageOf.h"
#include "tests/support/TemporaryFile.h"
#include "tests/support/Vectors.h"
#include "tests/support/WrittenObject.h"
#include "zvxmllib/ZvXmlLib.h"
#include "zvxmllib/streams/ZvZip.h"

#include <gmock/gmock.h>

#include <algorithm>

using namespace ZvXmlLib16;

namespace {

constexpr char kDeclaration[] = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";

std::string Without(std::string text, std::string const& characters) {
    text.erase(std::remove_if(text.begin(), text.end(),
                              [&](char c) { return characters.find(c) != std::string::npos; }),
               text.end());
    return text;
}

CSerializationContext ContextOf(JsonRoundTrip mode, char const* rootName = nullptr) {
    CSerializationContext ctx;
    ctx.GetJsonContext().SetSupportRoundtrip(mode);
    ctx.GetJsonContext().SetRootElementName(rootName);
    return ctx;
}

// Without declaration, line ends and indents.
std::string XmlOfJson(char const* json, CSerializationContext const& ctx = {}) {
    CXmlDocument document(ctx);
    std::string const xml = TextOf(document.LoadJson(json));
    EXPECT_THAT(xml, testing::StartsWith(kDeclaration));
    return Without(xml.substr(sizeof kDeclaration - 1), "\t\n");
}

TEST(JsonToXml, MapsMembersToElementsAttributesAndTexts) {
    for (auto const& row : Vectors("json.txt", "members to elements")) {
        for (JsonRoundTrip const mode : {JsonRoundTrip_NoNamespaces, JsonRoundTrip_Full})
            EXPECT_EQ(XmlOfJson(row[0].c_str(), ContextOf(mode)), row[1]) << row[0];
    }
}

TEST(JsonToXml, GivesNoNameAMeaningWithoutRoundTrip) {
    CSerializationContext const ctx = ContextOf(JsonRoundTrip_None);
    EXPECT_EQ(XmlOfJson(R"({"a":{"@b":1,"#text":2,"c":[{},3]}})", ctx),
              "<a><@b>1</@b><#text>2</#text><c/><c>3</c></a>");
    EXPECT_EQ(MessageOf<CZvValidationException>([&] { XmlOfJson(R"({"a":{"b":"1","":"x"}})", ctx); }),
              "JSON item has an empty Name.\nPath: ..a");
}

TEST(JsonToXml, ReadsTheTextAsTheRootGiven) {
    CSerializationContext ctx = ContextOf(JsonRoundTrip_Full, "r");
    EXPECT_EQ(XmlOfJson("5", ctx), "<r>5</r>");
    EXPECT_EQ(XmlOfJson(R"({"@a":1,"b":2})", ctx), R"(<r a="1"><b>2</b></r>)");
    EXPECT_EQ(XmlOfJson("[]", ctx), "<r/>");
    EXPECT_EQ(XmlOfJson("[{\"a\":1},2]", ctx), "<r><a>1</a></r><r>2</r>");
    EXPECT_EQ(XmlOfJson("null //", ctx), "<r/>");
    EXPECT_EQ(XmlOfJson(" /**/ ", ctx), "<r/>");
    ctx.GetJsonContext().GetAllowComments(false);
    EXPECT_EQ(MessageOf<CZvValidationException>([&] { XmlOfJson("{/**/}", ctx); }),
              "Expected quotation mark character '\"' before Name, found '/' at line 1, position 2."
              "\nPath: .r");
}

TEST(JsonToXml, RefusesWhatHasNoPlaceInXml) {
    for (auto const& row : Vectors("json.txt", "no place in XML"))
        EXPECT_EQ(MessageOf<CZvValidationException>([&] { XmlOfJson(row[0].c_str()); }), row[1]) << row[0];
    for (auto const& row : Vectors("json.txt", "no text in XML"))
        EXPECT_EQ(MessageOf<CZvInvalidStateException>([&] { XmlOfJson(row[0].c_str()); }), row[1]) << row[0];
}

TEST(LoadJson, TakesUtf8AndLocalTextInManyForms) {
    std::string const utf8 = "{\"a\":\"\xC3\xA4\xE2\x82\xAC\"}";
    std::string const xml = std::string(kDeclaration) + "<a>\xC3\xA4\xE2\x82\xAC</a>\n";
    for (unsigned const page : {65001U, 1252U}) {
        LocalEncoding const local(page);
        for (std::string const& mark : {std::string(), std::string("\xEF\xBB\xBF")}) {
            for (CompressionType const type :
                 {CompressionType_None, CompressionType_GZip, CompressionType_ZLib}) {
                CBinaryData bytes = DataOf(mark + utf8 + std::string(100, ' '));
                if (type != CompressionType_None)
                    CZvZip::Compress(bytes, type);
                CXmlDocument document;
                document.LoadXml("<old/>");
                EXPECT_EQ(TextOf(document.LoadJsonStream(bytes.GetData(), bytes.GetLength())), xml);
                EXPECT_EQ(document.GetDocumentElement(), nullptr);
                TemporaryFile const file(TextOf(bytes));
                EXPECT_EQ(TextOf(document.LoadJsonFile(file.Path())), xml);
            }
        }
        CXmlDocument document;
        EXPECT_EQ(TextOf(document.LoadJson(L"{\"a\":\"\u00E4\u20AC\"}")), xml);
        EXPECT_EQ(TextOf(document.LoadJson(u"{\"a\":\"\u00E4\u20AC\"}")), xml);
        EXPECT_EQ(TextOf(document.LoadJson(page == 65001 ? utf8.c_str() : "{\"a\":\"\xE4\x80\"}")), xml);
    }
    LocalEncoding const local(65001);
    CXmlDocument document;
    constexpr unsigned char kDamaged[] = "{\"a\":\"\xC3\"}";
    EXPECT_EQ(TextOf(document.LoadJsonStream(kDamaged, sizeof kDamaged - 1)),
              std::string(kDeclaration) + "<a>\xEF\xBF\xBD</a>\n");
}

TEST(LoadJson, RefusesWhatIsNotThere) {
    CXmlDocument document;
    for (auto const& load : std::initializer_list<std::function<void()>>{
             [&] { document.LoadJson(""); }, [&] { document.LoadJson(L""); }, [&] { document.LoadJson(u""); },
             [&] { document.LoadJson(static_cast<char const*>(nullptr)); },
             [&] { document.LoadJson(static_cast<wchar_t const*>(nullptr)); }})
        EXPECT_EQ(MessageOf<CZvException>(load), "JSON String is empty!");
    EXPECT_EQ(MessageOf<CZvException>([&] { document.LoadJsonStream(nullptr, 0); }), "JSON Stream is empty!");
    for (bool const isAsync : {false, true}) {
        AsyncFromXmlFile(isAsync);
        EXPECT_EQ(MessageOf<CZvException>([&] { document.LoadJsonFile("/nowhere/a"); }),
                  "Failed to open the file [/nowhere/a] Error [0x00000002]");
        EXPECT_EQ(TextOf(document.LoadJsonFile(TemporaryFile("{\"a\":1}").Path())),
                  std::string(kDeclaration) + "<a>1</a>\n");
    }
    AsyncFromXmlFile(false);
}

// Takes note of how it is read.
class ReadObject : public WrittenObject {
public:
    using WrittenObject::FromXmlStream;

    std::string m_tree;
    bool m_ignoresNamespaces = false;
    bool m_throws = false;
    std::string m_failure;

protected:
    CXmlElement* FromXml_Int(CXmlElement* element, CXmlElement* current, CSerializationContext const& ctx,
                             bool) override {
        m_ignoresNamespaces = ctx.GetIgnoreNamespaces();
        if (m_throws)
            throw 5;
        if (!m_failure.empty())
            throw CZvException(m_failure.c_str());
        m_tree = element->GetNamespaceURI() + '|' + element->GetLocalName() + '=' + element->GetText();
        return current;
    }
};

TEST(FromJson, TellsTheXmlInWhichTheFailureArose) {
    CSmartPtr<ReadObject> const object(new ReadObject);
    CSerializationContext const ctx;
    EXPECT_EQ(MessageOf<CZvException>([&] { object->FromJson(R"({"a":1,"b":2})", ctx); }),
              "Error converting JSON to XML:\n" + std::string(kDeclaration) +
                  "<a>1</a>\n<b>2</b>\n\njunk after document element at line 3");
    EXPECT_EQ(MessageOf<CZvException>([&] { object->FromJson("{}", ctx); }),
              "Error converting JSON to XML:\n" + std::string(kDeclaration) + "\nno element found at line 2");
    // Also where the tree was made without the text.
    object->m_failure = "refused";
    EXPECT_EQ(MessageOf<CZvException>([&] { object->FromJson(R"({"a":1})", ctx); }),
              "Error converting JSON to XML:\n" + std::string(kDeclaration) + "<a>1</a>\n\nrefused");
    LocalEncoding const local(1252);
    EXPECT_EQ(MessageOf<CZvException>([&] { object->FromJson("{\"a\":{\"\xE4<\":1}}", ctx); }),
              "Error converting JSON to XML:\n" + std::string(kDeclaration) +
                  "<a>\n\t<\xE4<>1</\xE4<>\n</a>\n\nnot well-formed (invalid token) at line 3");
    // What is no JSON does not come as far.
    EXPECT_EQ(MessageOf<CZvValidationException>([&] { object->FromJson("{\"a\"", ctx); }),
              "Unexpected End of File. Expected Object Name/Value separator character ':' at line 1, "
              "position 4.\nPath: .a");
}

TEST(FromJson, IgnoresNamespacesWhereTheTextHasNoneForTheLengthOfTheCall) {
    CSmartPtr<ReadObject> const object(new ReadObject);
    for (JsonRoundTrip const mode : {JsonRoundTrip_None, JsonRoundTrip_NoNamespaces, JsonRoundTrip_Full}) {
        for (bool const before : {false, true}) {
            CSerializationContext ctx = ContextOf(mode);
            ctx.SetIgnoreNamespaces(before);
            object->m_throws = false;
            object->FromJson("{\"a\":1}", ctx);
            EXPECT_EQ(object->m_ignoresNamespaces, before || mode != JsonRoundTrip_Full);
            EXPECT_EQ(ctx.GetIgnoreNamespaces(), before);
            EXPECT_NE(MessageOf<CZvException>([&] { object->FromJson("{}", ctx); }), "nothing was thrown");
            EXPECT_EQ(ctx.GetIgnoreNamespaces(), before);
            object->m_throws = true;
            EXPECT_THROW(object->FromJson("{\"a\":1}", ctx), int);
            EXPECT_EQ(ctx.GetIgnoreNamespaces(), before);
            // The field itself, not what follows from it.
            ctx.SetSchemaType(SchemaType_NoNamespaces);
            EXPECT_THROW(object->FromJson("{\"a\":1}", ctx), int);
            ctx.SetSchemaType(SchemaType_Namespaces);
            EXPECT_EQ(ctx.GetIgnoreNamespaces(), before);
        }
    }
}

// Read XML bytes in a way of their own.
class ReadsBytes : public ReadObject {
public:
    std::string m_bytes;
    using ReadObject::FromXmlStream;
    void FromXmlStream(unsigned char* const data, std::uint32_t length,
                       CSerializationContext const& ctx) override {
        m_bytes.assign(data, data + length);
        ReadObject::FromXmlStream(data, length, ctx);
    }
};

class ReadsData : public ReadObject {
public:
    std::string m_bytes;
    using ReadObject::FromXmlStream;
    void FromXmlStream(CBinaryData const& data, CSerializationContext const&) override {
        m_bytes = TextOf(data);
    }
};

TEST(FromJson, GivesTheBytesToAClassThatReadsThemItself) {
    CSerializationContext const ctx;
    std::string const xml = std::string(kDeclaration) + "<a xmlns=\"u\">1</a>\n";
    CSmartPtr<ReadsBytes> const bytes(new ReadsBytes);
    bytes->FromJson(R"({"a":{"@xmlns":"u","#text":1}})", ctx);
    EXPECT_EQ(bytes->m_bytes, xml);
    EXPECT_EQ(bytes->m_tree, "u|a=1");
    CSmartPtr<ReadsData> const data(new ReadsData);
    data->FromJson(R"({"a":{"@xmlns":"u","#text":1}})", ctx);
    EXPECT_EQ(data->m_bytes, xml);
    EXPECT_EQ(data->m_tree, "");
}

TEST(FromJson, ReadsTextsBytesAndFiles) {
    LocalEncoding const local(65001);
    CSerializationContext const ctx;
    std::string const json = "{\"a\":\"\xC3\xA4\"}";
    CBinaryData const data = DataOf(json);
    TemporaryFile const file(json);
    for (auto const& read : std::initializer_list<std::function<void(ReadObject&)>>{
             [&](ReadObject& o) { o.FromJson(json.c_str(), ctx); },
             [&](ReadObject& o) { o.FromJson(L"{\"a\":\"\u00E4\"}", ctx); },
             [&](ReadObject& o) { o.FromJson(u"{\"a\":\"\u00E4\"}", ctx); },
             [&](ReadObject& o) { o.FromJsonStream(data, ctx); },
             [&](ReadObject& o) {
                 o.FromJsonStream(const_cast<unsigned char*>(data.GetData()), data.GetLength(), ctx);
             },
             [&](ReadObject& o) { o.FromJsonFile(file.Path(), ctx); }}) {
        CSmartPtr<ReadObject> const object(new ReadObject);
        read(*object);
        EXPECT_EQ(object->m_tree, "|a=\xC3\xA4");
    }
}

// Line feeds in texts are dropped on the way, so they do not count.
template <class Root>
void ExpectSameObjectThroughJson(std::string const& xml, CSerializationContext& ctx) {
    CSmartPtr<Root> const object(new Root);
    object->FromXml(xml.c_str(), ctx);
    std::string const written = Without(object->ToXml(false, false, EOLType_LF, ctx), "\n");
    for (JsonRoundTrip const mode : {JsonRoundTrip_NoNamespaces, JsonRoundTrip_Full}) {
        for (bool const isFormatted : {false, true}) {
            ctx.GetJsonContext().SetSupportRoundtrip(mode);
            CSmartPtr<Root> const copy(new Root);
            copy->FromJson(object->ToJson(isFormatted, EOLType_CRLF, ctx).c_str(), ctx);
            EXPECT_EQ(Without(copy->ToXml(false, false, EOLType_LF, ctx), "\n"), written);
        }
    }
}

TEST(FromJson, GivesTypedObjectsBack) {
    LocalEncoding const local(65001);
    CSerializationContext ctx;
    ctx.SetDefaultNamespaceURI(cap::kNamespace);
    for (char const* name : {"/cap-australia.xml", "/cap-tsunami.xml"}) {
        std::ifstream file(ZV_EXAMPLE_DATA_DIR + std::string(name), std::ios::binary);
        std::string const xml(std::istreambuf_iterator<char>(file), {});
        ASSERT_GT(xml.size(), 1000U);
        ExpectSameObjectThroughJson<cap::CAlert>(xml, ctx);
    }
    ctx.SetDefaultNamespaceURI("urn:example:purchase-order");
    ExpectSameObjectThroughJson<purchase_order::COrder>(
        R"(<order number="7" status="sent" xmlns="urn:example:purchase-order"><customer>A &amp; "B"\</customer>)"
        R"(<item sku="b"><name>C</name><quantity>1</quantity><price>2.00</price></item>)"
        R"(<item sku="d"><name>E</name><quantity>2</quantity><price>0.5</price></item></order>)",
        ctx);
    purchase_order::COrder::CleanUp();
    purchase_order::CItem::CleanUp();
}

TEST(JsonDocumentation, ShowsWhatIsRead) {
    std::string const rootMark = "json root ";
    std::vector<DocumentedBlock> const blocks = BlocksOf("json.md", "From JSON to objects");
    ASSERT_GE(blocks.size(), 6U);
    for (std::size_t i = 0; i + 1 < blocks.size(); i += 2) {
        bool const hasRoot = blocks[i].info.rfind(rootMark, 0) == 0;
        CSerializationContext const ctx =
            hasRoot ? ContextOf(JsonRoundTrip_Full, blocks[i].info.substr(rootMark.size()).c_str())
                    : ContextOf(ModeOf(blocks[i].info));
        EXPECT_EQ(blocks[i + 1].info, "xml");
        EXPECT_EQ(TextOf(CXmlDocument(ctx).LoadJson(blocks[i].text.c_str())),
                  kDeclaration + blocks[i + 1].text);
    }
}

} // namespace
