// The members of choice and all groups that hold objects, and the options that widen what is accepted.
#include "tests/driver/Reading.h"
#include "zvxmllib/driver/ClassFactoryBase.h"

using namespace entries;

namespace {

// The class of all objects here: an element "part" with one number, or a group of it.
Model* s_part = nullptr;

CSmartPtr<CXmlObjectBase> MakePart(int, char const* name) {
    CSmartPtr<Probe> const part(new Probe(*s_part));
    part->SetElementName(name);
    return static_cast<Probe*>(part);
}

// Knows elements that hold the attribute "known".
CSmartPtr<CXmlObjectBase> MakeKnown(CXmlElement* element) {
    return element->GetAttribute("known", "").empty() ? CSmartPtr<CXmlObjectBase>() : MakePart(0, "part");
}

struct Part : Model {
    explicit Part(XmlElementType elementType) {
        type = elementType;
        name = "part";
        failsForUnknownAttributes = false;
        elements = {Prim<CElementInfoSeqPrimMnd>("n", 0)};
        Finish();
        s_part = this;
    }
};

std::string const kMissingPart = Failed("Failed to find the mandatory element [part].");

TEST(ChoiceMembers, MakeTheirObjectsForWhatTheyTake) {
    Part const part(XmlElementType_Element);
    OrderOf classes(XmlElementGroupType_Choice,
                    {new CElementInfoChoiceClsOpt("part", "", 0, XmlElementType_Element, MakePart, 0),
                     new CElementInfoChoiceAbsClsOpt("other", "", 1, XmlElementType_Element, MakeKnown),
                     new CElementInfoChoiceUntpdOpt("AnyElement", "", 2, "##any", "")});
    ExpectOutcomes(classes, {{"<order><part><n>1</n></part></order>", ""},
                             {"<order><other known='1'><n>2</n></other></order>",
                              "<order><other><n>2</n></other></order>"},
                             // The factory has nothing for it, so the wildcard gets it.
                             {"<order><other><x/></other></order>", ""},
                             {"<order/>", ""},
                             {"<order><part><n>1</n></part><part><n>2</n></part></order>", Unread("part")}});
}

TEST(ChoiceMembers, TakeBackWhatReadNothing) {
    Part const part(XmlElementType_Pseudo);
    OrderOf group(XmlElementGroupType_Choice,
                  {new CElementInfoChoiceClsOpt("part", "", 0, XmlElementType_Pseudo, MakePart, 0),
                   new CElementInfoChoiceUntpdOpt("note", "", 1, "##any", ""),
                   Prim<CElementInfoChoicePrimOpt>("m", 2)});
    ExpectOutcomes(group, {{"<order><n>1</n></order>", ""}, {"<order><note>t</note></order>", ""}});
    CSmartPtr<Probe> const probe(new Probe(group));
    probe->FromXml("<order><m>2</m></order>", plainContext);
    EXPECT_EQ(probe->ObjectAt(0), nullptr);
    EXPECT_EQ(probe->properties[1].FindXmlObject(), nullptr);
    EXPECT_EQ(Write(*probe), "<order><m>2</m></order>");
}

TEST(AllMembers, TakeObjectsInAnyOrder) {
    Part const part(XmlElementType_Element);
    auto const fill = [](Probe& probe) { probe.properties[0].SetXmlObject(new Probe(*s_part)); };
    OrderOf classes(XmlElementGroupType_All,
                    {new CElementInfoAllClsMnd("part", "", 0, XmlElementType_Element, nullptr, 0, true),
                     new CElementInfoAllClsOpt("more", "", 1, XmlElementType_Element, MakePart, 0),
                     new CElementInfoAllAbsClsOpt("other", "", 2, XmlElementType_Element, MakeKnown),
                     new CElementInfoAllUntpdOpt("note", "", 3, "##any", "")},
                    fill);
    ExpectOutcomes(
        classes,
        {{"<order><note>t</note><other known='1'><n>3</n></other><more><n>2</n></more><part><n>1</n></part>"
          "</order>",
          "<order><part><n>1</n></part><more><n>2</n></more><other><n>3</n></other><note>t</note></order>"},
         {"<order><part><n>1</n></part></order>", ""},
         {"<order><note/></order>", kMissingPart},
         {"<order><part><n>1</n></part><other/></order>", Unread("other")}});
    OrderOf sequence({new CElementInfoSeqClsMnd("part", "", 0, XmlElementType_Element, nullptr, 0, true),
                      Prim<CElementInfoSeqPrimOpt>("behind", 1)},
                     fill);
    ExpectOutcomes(sequence, {{"<order><part><n>1</n></part><behind>2</behind></order>", ""}});
    // Content that is not mandatory lets a real element be absent.
    OrderOf lax(XmlElementGroupType_All,
                {new CElementInfoAllClsMnd("part", "", 0, XmlElementType_Element, nullptr, 0, false)}, fill);
    CSmartPtr<Probe> const probe(new Probe(lax));
    EXPECT_NO_THROW(probe->FromXml("<order/>", plainContext));
}

TEST(AllMembers, DemandWhatIsMandatory) {
    Part const part(XmlElementType_Element);
    OrderOf abstract(XmlElementGroupType_All,
                     {new CElementInfoAllAbsClsMnd("part", "", 0, XmlElementType_Element, MakeKnown, 0)});
    ExpectOutcomes(abstract, {{"<order/>", kMissingPart},
                              {"<order><part/></order>", kMissingPart},
                              {"<order><part known='1'><n>1</n></part></order>",
                               "<order><part><n>1</n></part></order>"}});
    OrderOf untyped(XmlElementGroupType_All, {new CElementInfoAllUntpdMnd("part", "", 0, "##any", "")},
                    [](Probe& probe) { probe.properties[0].SetXmlObject(new CElement("part")); });
    ExpectOutcomes(untyped, {{"<order/>", kMissingPart}, {"<order><part><x/></part></order>", ""}});
    OrderOf enumeration(XmlElementGroupType_All, {Enum<CElementInfoAllEnumMnd>("part", 0)});
    ExpectOutcomes(enumeration,
                   {{"<order><other/></order>", kMissingPart}, {"<order><part>red</part></order>", ""}});
}

TEST(AllMembers, ReadGroupsAndCollections) {
    Part const part(XmlElementType_Pseudo);
    OrderOf group(
        XmlElementGroupType_All,
        {new CElementInfoAllClsOpt("part", "", 0, XmlElementType_Pseudo, MakePart, 0),
         new CElementInfoAllUntpdCol("note", "", 1)},
        [](Probe& probe) { probe.properties[1].SetXmlCollection(new CElementCol("", "##any", "", 0, -1)); });
    ExpectOutcomes(group, {{"<order><note>1</note><n>5</n><note>2</note></order>",
                            "<order><n>5</n><note>1</note><note>2</note></order>"},
                           {"<order><note>1</note><x/></order>", Unread("x")}});

    Part const item(XmlElementType_Element);
    OrderOf counted(XmlElementGroupType_All,
                    {new CElementInfoAllClsCol("part", "", 0, XmlElementType_Element)},
                    [](Probe& probe) { probe.properties[0].SetXmlCollection(new ProbeCol(*s_part, 1, 2)); });
    ExpectOutcomes(
        counted,
        {{"<order><part><n>1</n></part></order>", ""},
         {"<order/>", Failed("The Minimum number of [part] elements allowed in this collection is 1")}});
    CSmartPtr<Probe> const probe(new Probe(counted));
    CSerializationContext const lax = Ignoring(&CSerializationContext::SetIgnoreInvalidCollectionCounts);
    EXPECT_NO_THROW(probe->FromXml("<order/>", lax));
    EXPECT_EQ(Write(*probe, lax), "<order/>");
    EXPECT_THROW(Write(*probe), CZvValidationException);
}

CSmartPtr<CXmlObjectBase> MakeAnyPart(CXmlElement*) {
    return MakePart(0, "part");
}

TEST(AllMembers, ReadEachKindOfGroup) {
    Part const part(XmlElementType_Pseudo);
    for (CElementInfo* const entry : std::initializer_list<CElementInfo*>{
             new CElementInfoAllClsMnd("part", "", 0, XmlElementType_Pseudo, nullptr, 0, true),
             new CElementInfoAllAbsClsMnd("part", "", 0, XmlElementType_Pseudo, MakeAnyPart, 0),
             new CElementInfoAllAbsClsOpt("part", "", 0, XmlElementType_Pseudo, MakeAnyPart)}) {
        bool const isOptional = dynamic_cast<CElementInfoAllAbsClsOpt*>(entry) != nullptr;
        OrderOf group(XmlElementGroupType_All, {Prim<CElementInfoAllPrimOpt>("m", 1), entry},
                      [](Probe& probe) { probe.properties[0].SetXmlObject(new Probe(*s_part)); });
        EXPECT_EQ(Outcome(group, "<order><n>5</n><m>1</m></order>"), "<order><m>1</m><n>5</n></order>");
        EXPECT_EQ(Outcome(group, "<order><x/></order>"), isOptional ? Unread("x") : kMissingPart);
        CSmartPtr<Probe> const probe(new Probe(group));
        EXPECT_EQ(ReadFailure<CZvValidationException>(*probe, "<order><m>1</m></order>"),
                  isOptional ? "nothing was thrown" : kMissingPart);
        EXPECT_EQ(probe->properties[1].GetI4(), 1);
    }
}

// In a group the members of a sequence leave to others what is not theirs.
TEST(SequenceMembers, InAGroupMayBeAbsentWithIt) {
    Part const part(XmlElementType_Element);
    static Model* s_pseudo = nullptr;
    for (CElementInfo* const entry : std::initializer_list<CElementInfo*>{
             new CElementInfoSeqClsMnd("part", "", 0, XmlElementType_Element, nullptr, 0, true),
             new CElementInfoSeqAbsClsMnd("part", "", 0, XmlElementType_Element, MakeAnyPart),
             new CElementInfoSeqUntpdMnd("part", "", 0, "##any", "")}) {
        Model inner;
        inner.type = XmlElementType_Pseudo;
        inner.failsForUnknownAttributes = false;
        inner.elements = {entry};
        bool const isUntyped = dynamic_cast<CElementInfoSeqUntpdMnd*>(entry) != nullptr;
        inner.init = [isUntyped](Probe& probe) {
            if (isUntyped)
                probe.properties[0].SetXmlObject(new CElement("part"));
            else
                probe.properties[0].SetXmlObject(new Probe(*s_part));
        };
        inner.Finish();
        s_pseudo = &inner;
        CElementInfo::ClassFactory const makeGroup = [](int, char const*) {
            return CSmartPtr<CXmlObjectBase>(static_cast<CXmlObjectBase*>(new Probe(*s_pseudo)));
        };
        OrderOf group(XmlElementGroupType_Sequence,
                      {new CElementInfoSeqClsOpt("group", "", 0, XmlElementType_Pseudo, makeGroup, 0),
                       Prim<CElementInfoSeqPrimOpt>("z", 1)});
        ExpectOutcomes(
            group, {{"<order><part><n>1</n></part><z>2</z></order>", ""}, {"<order><z>2</z></order>", ""}});
    }
}

TEST(GroupCollections, PutTheirAttributesOnTheElementAroundThem) {
    Part part(XmlElementType_Pseudo);
    delete std::exchange(part.attributes[0], Attribute("x", 1, true));
    part.attributes.push_back(nullptr);
    auto const pseudo = XmlElementType_Pseudo;
    for (auto const& [type, entry] : std::initializer_list<std::pair<XmlElementGroupType, CElementInfo*>>{
             {XmlElementGroupType_Sequence, new CElementInfoSeqClsCol("part", "", 0, pseudo)},
             {XmlElementGroupType_Sequence, new CElementInfoSeqAbsClsCol("part", "", 0, pseudo)},
             {XmlElementGroupType_Choice, new CElementInfoChoiceClsCol("part", "", 0, pseudo)},
             {XmlElementGroupType_Choice, new CElementInfoChoiceAbsClsCol("part", "", 0, pseudo)},
             {XmlElementGroupType_All, new CElementInfoAllClsCol("part", "", 0, pseudo)},
             {XmlElementGroupType_All, new CElementInfoAllAbsClsCol("part", "", 0, pseudo)}}) {
        Model order;
        order.group = type;
        order.failsForUnknownAttributes = false;
        order.elements = {entry};
        order.init = [](Probe& probe) { probe.properties[0].SetXmlCollection(new ProbeCol(*s_part, 0, 1)); };
        order.Finish();
        EXPECT_EQ(Outcome(order, "<order x=\"5\"><n>1</n></order>"), "<order x=\"5\"><n>1</n></order>")
            << type;
    }
}

TEST(Options, LetNamespacesPass) {
    Model model;
    model.ns = "u";
    model.elements = {Prim<CElementInfoSeqPrimMnd>("a", 0, nullptr, false, "u")};
    model.Finish();
    EXPECT_EQ(Outcome(model, "<order><a xmlns='v'>1</a></order>"), Missing("a"));
    EXPECT_EQ(Outcome(model, "<order><a xmlns='v'>1</a></order>",
                      Ignoring(&CSerializationContext::SetIgnoreNamespaces)),
              "<AA:order xmlns:AA=\"u\"><AA:a>1</AA:a></AA:order>");
    CSerializationContext noNamespaces;
    noNamespaces.SetSchemaType(SchemaType_NoNamespaces);
    CSmartPtr<Probe> const probe(new Probe(model));
    EXPECT_NO_THROW(probe->FromXml("<order><a>1</a></order>", noNamespaces));
}

TEST(Options, WriteWhatTheContextAddsToTheRoot) {
    Model model;
    model.ns = "u";
    model.attributes = {Attribute("a", 0, true)};
    model.Finish();
    CSerializationContext full;
    full.GetProcessingInstructions().push_back("<?first?>");
    full.GetProcessingInstructions().push_back("<?second?>");
    full.GetNamespaceAliases().Add("p", "v");
    full.GetNamespaceAliases().Add("", "ignored");
    full.SetDefaultNamespaceURI("u");
    full.GetAdditionalRootAttributes()->Add("extra", "1", "v");
    full.SetInLineSchema("schema='s'");
    CSmartPtr<Probe> const probe(new Probe(model));
    probe->properties[0].SetI4(2);
    EXPECT_EQ(
        Write(*probe, full),
        "<?first?>\n\n<?second?>\n\n<order xmlns=\"u\" xmlns:p=\"v\" p:extra=\"1\" a=\"2\" \nschema='s'\n/>");
}

TEST(Tables, ThatNameAWrongPropertySaySo) {
    Model wildcard;
    wildcard.attributes = {new CAttributeInfoAny("any", "", 0, true, "##any", "", nullptr)};
    wildcard.init = [](Probe& probe) {
        probe.properties[0].SetXmlCollection(new CElementCol("", "##any", "", 0, -1));
    };
    wildcard.Finish();
    CSmartPtr<Probe> const probe(new Probe(wildcard));
    EXPECT_EQ(ReadFailure<CZvValidationException>(*probe, "<order x=''/>"),
              Failed("Serialization Data Error : The collection should be a CAttributeCol, it was not!"));
    probe->properties[0].SetInvalid();
    EXPECT_EQ(WriteFailure(*probe),
              "Failed to convert attributes to XML\nThe Property [any] has no collection");
    for (XmlElementType const type : {XmlElementType_Element, XmlElementType_Pseudo}) {
        OrderOf mandatory({new CElementInfoSeqClsMnd("part", "", 0, type, nullptr, 0, true)});
        EXPECT_EQ(Outcome(mandatory, "<order><part/></order>"),
                  Failed("The Property [part] is mandatory, it may not be NULL"));
    }
    OrderOf empty({new CElementInfoSeqCol("part", "", 0)});
    CSmartPtr<Probe> const without(new Probe(empty));
    EXPECT_EQ(WriteFailure(*without), "The Property [part] has no collection");
}

} // namespace
