// What generated classes write, and what untyped elements read, by the usual rules and in a strict context.
#include "tests/strict/Twice.h"
#include "tests/support/QuietWriter.h"
#include "tests/support/TypedCols.h"

using namespace entries;

namespace {

// Written by the usual rules, and strictly; of a failure the cause.
struct Writings {
    std::string usual;
    std::string strict;
};
void ExpectWritings(Probe& probe, Writings const& expected) {
    for (bool const strict : {false, true}) {
        CSerializationContext ctx;
        ctx.SetStrict(strict);
        std::string outcome;
        try {
            outcome = Write(probe, ctx);
        } catch (CZvException const& failure) {
            outcome = failure.GetInnerException()->GetMessage();
        }
        EXPECT_EQ(outcome, strict ? expected.strict : expected.usual);
    }
}

TEST(StrictWriting, WritesNoEmptyTextThatIsReadAsADefault) {
    OrderOf model({new CElementInfoSeqPrimOpt("s", "", 0, false, ItemType_string, nullptr,
                                              CWhitespaceUtils::WhitespaceRule_Preserve,
                                              CPrimitiveRestrictions(), "dd")},
                  [](Probe& probe) { probe.properties[0].SetString(""); });
    ExpectWritings(*CSmartPtr<Probe>(new Probe(model)),
                   {"<order><s/></order>", "The empty value of [s] would be read as its default [dd]."});
}

TEST(StrictWriting, WritesNilOnlyWhereItIsReadAgain) {
    std::string const nil = R"( xmlns:AA="http://www.w3.org/2001/XMLSchema-instance" AA:nil="true"/>)";
    auto const message = [](std::string const& name) {
        return "The Property [" + name + "] is nil, and its element may not be nil";
    };
    for (bool const nillable : {false, true}) {
        OrderOf model({Prim<CElementInfoSeqPrimOpt>("n", 0, nullptr, nillable)},
                      [](Probe& probe) { probe.properties[0].SetNil(ItemType_i4); });
        std::string const written = "<order><n" + nil + "</order>";
        ExpectWritings(*CSmartPtr<Probe>(new Probe(model)), {written, nillable ? written : message("n")});
    }
    Model content;
    content.contentIndex = 0;
    content.contentType = ItemType_i4;
    content.init = [](Probe& probe) { probe.properties[0].SetNil(ItemType_i4); };
    content.Finish();
    ExpectWritings(*CSmartPtr<Probe>(new Probe(content)), {"<order" + nil, message("order")});
    ExpectWritings(*CSmartPtr<NillableProbe>(new NillableProbe(content)), {"<order" + nil, "<order" + nil});
}

TEST(StrictWriting, RefusesAChoiceOfTwo) {
    OrderOf model(XmlElementGroupType_Choice,
                  {Prim<CElementInfoChoicePrimOpt>("x", 0), Prim<CElementInfoChoicePrimOpt>("y", 1),
                   new CElementInfoChoicePrimCol("c", "", 2)},
                  [](Probe& probe) { probe.properties[2].SetXmlCollection(NewCol<Ci4Col>({"c"})); });
    CSmartPtr<Probe> const probe(new Probe(model));
    probe->properties[0].SetI4(1);
    std::string const first = "<order><x>1</x></order>";
    ExpectWritings(*probe, {first, first});
    std::string const two =
        "The Property [x] is already set. Only one element within this class bay be set at a time";
    probe->properties[1].SetI4(2);
    ExpectWritings(*probe, {first, two});
    probe->properties[1].SetInvalid();
    static_cast<Ci4Col*>(probe->properties[2].FindXmlCollection())->Add(3);
    ExpectWritings(*probe, {first, two});
}

Model* s_shape = nullptr;

// Only an element that says its type can be told apart.
CSmartPtr<CXmlObjectBase> MakeShape(CXmlElement* element) {
    if (element->GetAttribute("type", "http://www.w3.org/2001/XMLSchema-instance").empty())
        return {};
    return new Probe(*s_shape);
}

TEST(StrictWriting, SaysTheTypeWhereTheClassIsNotKnownOtherwise) {
    Model shape;
    shape.name = "circle";
    shape.hasBaseClasses = true;
    shape.elements = {Prim<CElementInfoSeqPrimOpt>("r", 0)};
    shape.Finish();
    s_shape = &shape;
    OrderOf model({new CElementInfoSeqAbsClsOpt("circle", "", 0, XmlElementType_Element, MakeShape),
                   new CElementInfoSeqAbsClsCol("circle", "", 1, XmlElementType_Element)},
                  [&](Probe& probe) { probe.properties[1].SetXmlCollection(new ProbeCol(shape, 0, -1)); });
    std::string const usual = "<order><circle/><circle/></order>";
    std::string const type = R"( xmlns:AA="http://www.w3.org/2001/XMLSchema-instance" AA:type="circle")";
    std::string const strict = "<order><circle" + type + "/><circle" + type + "/></order>";
    CSmartPtr<Probe> const probe(new Probe(model));
    probe->properties[0].SetXmlObject(new Probe(shape));
    static_cast<ProbeCol*>(probe->properties[1].FindXmlCollection())->Add();
    ExpectWritings(*probe, {usual, strict});
    EXPECT_EQ(Outcome(model, strict.c_str(), Strict()), strict);
}

TEST(StrictWriting, WritesDatesOfCollectionsAsWhatTheyAre) {
    struct TypesWriter : QuietWriter {
        void WriteElementValue(std::string const&, ItemType type, bool) override { m_type = type; }
        ItemType m_type = ItemType_invalid;
    };
    OrderOf model({new CElementInfoSeqPrimCol("d", "", 0)},
                  [](Probe& probe) { probe.properties[0].SetXmlCollection(NewCol<CdateCol>({"d"})); });
    CSmartPtr<Probe> const probe(new Probe(model));
    static_cast<CdateCol*>(probe->properties[0].FindXmlCollection())->Add(CDateTime(2024, 1, 1));
    for (bool const strict : {false, true}) {
        CSerializationContext ctx;
        ctx.SetStrict(strict);
        TypesWriter writer;
        static_cast<Probe const&>(*probe).ToXml_Int(&writer, false, "", ctx, false);
        EXPECT_EQ(writer.m_type, strict ? ItemType_date : ItemType_datetime);
    }
}

// Facets that the application passed by: a collection by the usual rules, or a value that the table
// restricts.
TEST(StrictWriting, TestsTheTextThatGoesOut) {
    ColSetup setup{"c"};
    setup.facets.pattern = "1|2";
    OrderOf model({new CElementInfoSeqPrimCol("c", "", 0)},
                  [&](Probe& probe) { probe.properties[0].SetXmlCollection(NewCol<Ci4Col>(setup)); });
    CSmartPtr<Probe> const probe(new Probe(model));
    static_cast<Ci4Col*>(probe->properties[0].FindXmlCollection())->Add(3);
    ExpectWritings(*probe, {"<order><c>3</c></order>", "Invalid Value for c [3]."});
}

TEST(StrictUntyped, ReadsTheRootAndNothingElse) {
    std::string const document = R"(<root k="1"><a/><b/></root>)";
    std::string const bytes = document;
    struct Row {
        std::string name;
        std::function<void(CElement&, CSerializationContext const&)> read;
        std::string usual;
    };
    auto* const data = reinterpret_cast<unsigned char*>(const_cast<char*>(bytes.data()));
    for (Row const &row : std::vector<Row>{
             {"stream",
              [&](CElement&element, auto const&ctx) {
                  element.FromXmlStream(data, static_cast<std::uint32_t>(bytes.size()), ctx);
              },
              "<a/>"},
             {"text",
              [&](CElement&element, auto const&ctx) {
                  element.CXmlObjectBase::FromXml(document.c_str(), ctx);
              },
              "<a/>"},
             {"element",
              [&](CElement&element, auto const&ctx) {
                  CXmlDocument parsed(ctx);
                  parsed.LoadXml(document.c_str());
                  element.FromXmlElement(static_cast<CXmlElement const*>(parsed.GetDocumentElement()), ctx);
              },
              "<a/>"},
             {"twice",
              [&](CElement&element, auto const&ctx) {
                  element.FromXmlStream(data, static_cast<std::uint32_t>(bytes.size()), ctx);
                  element.CXmlObjectBase::FromXml(document.c_str(), ctx);
              },
              "<a/>"},
         }) {
        for (bool const strict : {false, true}) {
            CSerializationContext ctx;
            ctx.SetStrict(strict);
            CSmartPtr<CElement> const element(new CElement("e"));
            row.read(*element, ctx);
            EXPECT_EQ(element->ToXml(false, false, EOLType_LF, ctx), strict ? document : row.usual)
                << row.name;
        }
    }
}

// Calls that name no context ask the default one.
TEST(StrictUntyped, AsksTheDefaultContextWhereThereIsNoOther) {
    CSerializationContext& ctx = CSerializationContext::GetDefaultContext();
    for (bool const strict : {false, true}) {
        ctx.SetStrict(strict);
        CSmartPtr<CElement> const element(new CElement("e"));
        element->FromXml("<a k='1'>x&#13;y</a>");
        element->FromXml("<a xmlns:p='urn:p'>p:x&#13;</a>");
        EXPECT_EQ(element->ToXml(false, false, EOLType_LF, ctx),
                  strict ? R"(<a xmlns:p="urn:p">p:x&#xD;</a>)" : R"(<a k="1">p:x</a>)");
        CSmartPtr<CElement> const copy(new CElement(element, "urn:d"));
        EXPECT_EQ(copy->GetText(), strict ? "p:x\r" : "p:x");
        EXPECT_EQ(copy->GetDeclarations().size(), strict ? 1U : 0U);
    }
    ctx.SetStrict(false);
}

TEST(StrictUntyped, ReplacesWhatItHeldAndSaysWhatItDoesNotTake) {
    for (bool const strict : {false, true}) {
        CSerializationContext ctx;
        ctx.SetStrict(strict);
        CSmartPtr<CElement> const element(new CElement("e"));
        element->FromXml("<r><a k='1'><b/></a></r>", ctx);
        element->FromXml("<a k='2'><c/></a>", ctx);
        EXPECT_EQ(element->ToXml(false, false, EOLType_LF, CSerializationContext()),
                  strict ? R"(<a k="2"><c/></a>)" : R"(<c k="1"><b/></c>)");

        CSmartPtr<CElement> const restricted(new CElement("x", ""));
        restricted->SetText("old");
        std::string const message =
            MessageOf<CZvValidationException>([&] { restricted->FromXml("<a xmlns='urn:d'>new</a>", ctx); });
        EXPECT_EQ(message, strict ? "Failed to find the required element from namespace [].\nPath: /a"
                                  : "nothing was thrown");
        EXPECT_EQ(restricted->GetText(), "old");
    }
}

} // namespace
