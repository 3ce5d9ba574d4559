// The walks of the driver: sequence, choice and all group, nested groups, and the cursor.
#include "tests/driver/Reading.h"
#include "tests/support/TypedCols.h"

using namespace entries;

namespace {

void AddLine(Model& model) {
    model.name = "line";
    model.elements = {Prim<CElementInfoSeqPrimMnd>("n", 0)};
    model.Finish();
}

struct SequenceOfThree : OrderOf {
    SequenceOfThree()
        : OrderOf({Prim<CElementInfoSeqPrimMnd>("a", 0), Prim<CElementInfoSeqPrimOpt>("b", 1),
                   Enum<CElementInfoSeqEnumMnd>("c", 2)}) {}
};

TEST(Sequence, TakesItsChildrenInOrder) {
    SequenceOfThree model;
    ExpectOutcomes(model, {{"<order><a>1</a><b>2</b><c>red</c></order>", ""},
                           {"<order><a>1</a><c>blue</c></order>", ""},
                           {"<order><b>2</b><a>1</a><c>red</c></order>", Missing("a")},
                           {"<order><a>1</a><b>2</b></order>", Missing("c")},
                           {"<order/>", Missing("a")},
                           {"<order><a>1</a><c>red</c><x/></order>", Unread("x")},
                           {"<order><a>1</a><b>2</b><b>3</b><c>red</c></order>", Missing("c")}});
}

TEST(Sequence, SkipsUnknownElementsWhenAllowed) {
    SequenceOfThree model;
    CSerializationContext const ctx = Ignoring(&CSerializationContext::SetIgnoreUnknownElements);
    ExpectOutcomes(
        model,
        {
            {"<order><x/><a>1</a><x/><x/><c>red</c></order>", "<order><a>1</a><c>red</c></order>"},
            {"<order><a>1</a><c>red</c><x/></order>", "<order><a>1</a><c>red</c></order>"},
            // The walk goes on at the last entry, which is mandatory and was read already.
            {"<order><a>1</a><c>red</c><x/><x/></order>", Missing("c")},
            {"<order><a>1</a><c>red</c><x/><c>blue</c></order>", "<order><a>1</a><c>blue</c></order>"},
            {"<order><b>2</b><a>1</a></order>", Missing("c")},
        },
        ctx);
}

// A group that cannot match, since "c" is missing, is begun at each child all the same, and fails at a bad
// one.
TEST(Sequence, ReadsTheBeginningOfAGroupBehindUnknownElements) {
    static Model group;
    group.type = XmlElementType_Pseudo;
    group.elements = {Prim<CElementInfoSeqPrimOpt>("b", 0), Prim<CElementInfoSeqPrimMnd>("c", 1)};
    group.Finish();
    auto const make = [](int, char const*) {
        return CSmartPtr<CXmlObjectBase>(static_cast<CXmlObjectBase*>(new Probe(group)));
    };
    OrderOf model({new CElementInfoSeqClsOpt("g", "", 0, XmlElementType_Pseudo, make, 0)});
    ExpectOutcomes(
        model,
        {{"<order><x/><b>1</b></order>", "<order/>"},
         {"<order><x/><b>red</b></order>",
          "Failed to process the element.\nPath: /order\nThe value [red] can not be converted to a i4"}},
        Ignoring(&CSerializationContext::SetIgnoreUnknownElements));
}

TEST(Sequence, LetsMandatoryElementsBeAbsentWhenAllowed) {
    SequenceOfThree model;
    CSerializationContext const ctx = Ignoring(&CSerializationContext::SetIgnoreMissingMandatoryElements);
    CSmartPtr<Probe> const probe(new Probe(model));
    probe->FromXml("<order><b>2</b></order>", ctx);
    EXPECT_FALSE(probe->properties[0].IsValid());
    EXPECT_EQ(probe->properties[1].GetI4(), 2);
    EXPECT_FALSE(probe->properties[2].IsValid());
    EXPECT_EQ(Outcome(model, "<order><x/></order>", ctx), Unread("x"));
}

struct ChoiceOfTwo : Model {
    ChoiceOfTwo() {
        group = XmlElementGroupType_Choice;
        AddLine(line);
        elements = {new CElementInfoChoicePrimCol("none", "", 0),
                    new CElementInfoChoiceClsCol("line", "", 1, XmlElementType_Element)};
        init = [this](Probe& probe) {
            probe.properties[0].SetXmlCollection(NewCol<CstringCol>({"none", "", 1}));
            probe.properties[1].SetXmlCollection(new ProbeCol(line, 1, 2));
        };
        Finish();
    }
    Model line;
};

TEST(Choice, TakesOneMemberOnly) {
    ChoiceOfTwo model;
    std::string const nothing = "No child elements within the element [order] were populated. The element "
                                "represents a choice, so one "
                                "and only one element should be populated. The element contained no sutable "
                                "child elements\nPath: /order";
    ExpectOutcomes(model,
                   {{"<order><line><n>1</n></line><line><n>2</n></line></order>", ""},
                    {"<order><none/></order>", ""},
                    {"<order/>", nothing},
                    {"<order><x/></order>", nothing},
                    {"<order><none/><line><n>1</n></line></order>", Unread("line")},
                    {"<order><line><n>1</n></line><line><n>2</n></line><line><n>3</n></line></order>",
                     Failed("The Maximum number of [line] elements allowed in this collection is 2")}});
    ExpectOutcomes(
        model,
        {{"<order><x/><x/><none/><x/></order>", "<order><none/></order>"}, {"<order><x/></order>", nothing}},
        Ignoring(&CSerializationContext::SetIgnoreUnknownElements));
    CSmartPtr<Probe> const probe(new Probe(model));
    EXPECT_NO_THROW(probe->FromXml("<order/>", Ignoring(&CSerializationContext::SetIgnoreMissingChoice)));
    EXPECT_EQ(Write(*probe, Ignoring(&CSerializationContext::SetIgnoreMissingChoice)), "<order/>");
}

TEST(All, TakesItsChildrenInAnyOrder) {
    OrderOf model(XmlElementGroupType_All,
                  {Prim<CElementInfoAllPrimMnd>("a", 0), Prim<CElementInfoAllPrimOpt>("b", 1),
                   Enum<CElementInfoAllEnumOpt>("c", 2)});
    char const* const ordered = "<order><a>1</a><b>2</b><c>red</c></order>";
    std::string const missing = Failed("Failed to find the mandatory element [a].");
    ExpectOutcomes(model, {{ordered, ""},
                           {"<order><c>red</c><b>2</b><a>1</a></order>", ordered},
                           {"<order><b>2</b><a>1</a></order>", "<order><a>1</a><b>2</b></order>"},
                           {"<order><b>2</b></order>", missing},
                           {"<order><a>1</a><b>2</b><a>3</a></order>", Unread("a")},
                           {"<order><a>1</a><x/><b>2</b></order>", Unread("x")}});
    // Nothing skips an unknown element: what stands behind it stays unread.
    ExpectOutcomes(model,
                   {{"<order><a>1</a><x/><b>2</b></order>", "<order><a>1</a></order>"},
                    {"<order><x/><a>1</a></order>", missing}},
                   Ignoring(&CSerializationContext::SetIgnoreUnknownElements));
}

// a, then a group of b, then a group of c, then a group of d, each inside the one before.
struct NestedThreeDeep : Model {
    NestedThreeDeep(bool isMandatory) {
        Link(*this, "a", &first, isMandatory);
        Link(first, "b", &second, isMandatory);
        Link(second, "c", &third, isMandatory);
        Link(third, "d", nullptr, false);
    }
    static void Link(Model& model, char const* element, Model* nested, bool isMandatory) {
        model.failsForUnknownAttributes = false;
        model.elements = {Prim<CElementInfoSeqPrimMnd>(element, 0)};
        if (nested != nullptr) {
            nested->type = XmlElementType_Pseudo;
            nested->name = "";
            model.elements.push_back(
                new CElementInfoSeqClsMnd("group", "", 1, XmlElementType_Pseudo, nullptr, 0, isMandatory));
            model.init = [nested](Probe& probe) { probe.properties[1].SetXmlObject(new Probe(*nested)); };
        }
        model.attributes = {Attribute((std::string("of_") + element).c_str(), 2, true)};
        model.Finish();
    }
    Model first, second, third;
};

TEST(NestedGroup, ReadsFromTheSameCursor) {
    NestedThreeDeep mandatory(true);
    ExpectOutcomes(mandatory, {{"<order><a>1</a><b>2</b><c>3</c><d>4</d></order>", ""},
                               {"<order><a>1</a><b>2</b><c>3</c></order>", Missing("group")},
                               {"<order><a>1</a></order>", Missing("group")},
                               {"<order><a>1</a><b>2</b><c>3</c><d>4</d><e/></order>", Unread("e")}});
    NestedThreeDeep optional(false);
    CSmartPtr<Probe> const probe(new Probe(optional));
    probe->FromXml("<order><a>1</a></order>", CSerializationContext());
    EXPECT_EQ(probe->properties[0].GetI4(), 1);
    EXPECT_FALSE(probe->ObjectAt(1)->properties[0].IsValid());
}

TEST(NestedGroup, PutsItsAttributesOnTheEnclosingElement) {
    NestedThreeDeep model(true);
    ExpectOutcomes(model,
                   {{"<order of_d=\"8\" of_c=\"7\" of_a=\"6\"><a>1</a><b>2</b><c>3</c><d>4</d></order>",
                     "<order of_a=\"6\" of_c=\"7\" of_d=\"8\"><a>1</a><b>2</b><c>3</c><d>4</d></order>"}});
}

TEST(NestedGroup, RepeatsInACollection) {
    Model pair;
    pair.type = XmlElementType_Pseudo;
    pair.name = "pair";
    pair.elements = {Prim<CElementInfoSeqPrimMnd>("k", 0), Prim<CElementInfoSeqPrimOpt>("v", 1)};
    pair.Finish();
    OrderOf model({new CElementInfoSeqClsCol("pair", "", 0, XmlElementType_Pseudo),
                   Prim<CElementInfoSeqPrimMnd>("end", 1)},
                  [&pair](Probe& probe) { probe.properties[0].SetXmlCollection(new ProbeCol(pair, 1, -1)); });
    ExpectOutcomes(model,
                   {{"<order><k>1</k><v>2</v><k>3</k><k>4</k><v>5</v><end>6</end></order>", ""},
                    {"<order><end>6</end></order>",
                     Failed("The Minimum number of [pair] elements allowed in this collection is 1")}});
}

TEST(Driver, FindsOneEntryByName) {
    SequenceOfThree model;
    CSmartPtr<Probe> const probe(new Probe(model));
    CXmlDocument document;
    document.LoadXml("<r><b/><x/></r>");
    CSerializationContext const ctx;
    CXmlElement* const first = document.GetDocumentElement()->GetFirstElement();
    EXPECT_TRUE(probe->IsElementInList(ctx, first));
    EXPECT_FALSE(probe->IsElementInList(ctx, first->GetNextSiblingElement()));
}

} // namespace
