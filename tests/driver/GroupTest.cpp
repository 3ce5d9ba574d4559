// Groups nested in a sequence: where the cursor goes, with unknown elements before, between and behind.
#include "tests/driver/Reading.h"
#include "tests/support/TypedCols.h"
#include "tests/support/Vectors.h"

using namespace entries;

namespace {

CSerializationContext const ctx;

Model* s_group = nullptr;

CSmartPtr<CXmlObjectBase> MakeGroup(int, char const*) {
    return new Probe(*s_group);
}

struct Group : Model {
    Group(XmlElementGroupType groupType, std::vector<CElementInfo*> entries) {
        type = XmlElementType_Pseudo;
        group = groupType;
        name = "";
        failsForUnknownAttributes = false;
        elements = std::move(entries);
        Finish();
        s_group = this;
    }
};

enum class Kind { kMandatory, kLax, kOptional };

// An element of a, then a group, then perhaps z.
struct Order : Model {
    explicit Order(Kind kind) {
        failsForUnknownAttributes = false;
        CElementInfo* const entry = kind == Kind::kOptional
                                        ? static_cast<CElementInfo*>(new CElementInfoSeqClsOpt(
                                              "group", "", 1, XmlElementType_Pseudo, MakeGroup, 0))
                                        : new CElementInfoSeqClsMnd("group", "", 1, XmlElementType_Pseudo,
                                                                    nullptr, 0, kind == Kind::kMandatory);
        elements = {Prim<CElementInfoSeqPrimOpt>("a", 0), entry, Prim<CElementInfoSeqPrimOpt>("z", 2)};
        if (kind != Kind::kOptional)
            init = [](Probe& probe) { probe.properties[1].SetXmlObject(new Probe(*s_group)); };
        Finish();
    }
};

// Short forms: an element for each letter, x for one that nobody knows.
std::string Elements(std::string const& letters) {
    std::string xml = "<order>";
    for (char const letter : letters)
        xml += std::string("<") + letter + '>' + (letter == 'l' ? "red" : "1") + "</" + letter + '>';
    return xml + "</order>";
}

// What stands in the properties afterwards, in table order, or of the failure what it starts with.
std::string Outcome(Model& model, std::string const& letters, CSerializationContext const& context) {
    CSmartPtr<Probe> const probe(new Probe(model));
    try {
        probe->FromXml(Elements(letters).c_str(), context);
    } catch (CZvException const& failure) {
        std::string const text = failure.GetFullMessage();
        for (char const* element : {"i", "k", "m", "x"}) {
            if (text == Unread(element))
                return std::string("unread ") + element;
        }
        EXPECT_EQ(text, Missing("group"));
        return "missing";
    }
    std::string held;
    auto const look = [&held](Probe const& object, Model const& tables) {
        for (std::size_t i = 0; tables.elements[i] != nullptr; ++i) {
            if (object.properties[i].GetTypeAsEnum() == ItemType_i4)
                held += std::to_string(i);
        }
    };
    look(*probe, model);
    if (Probe const* const group = probe->ObjectAt(1)) {
        held += '(';
        look(*group, *s_group);
        held += ')';
    }
    return held;
}

void ExpectOutcomes(std::string const& section, CSerializationContext const& context) {
    Order mandatory(Kind::kMandatory), lax(Kind::kLax), optional(Kind::kOptional);
    for (auto const& row :
         Vectors("groups.txt", section + ": elements, outcome if mandatory, if lax, if optional")) {
        EXPECT_EQ(Outcome(mandatory, row[0], context), row[1]) << row[0];
        EXPECT_EQ(Outcome(lax, row[0], context), row[2]) << row[0];
        EXPECT_EQ(Outcome(optional, row[0], context), row[3]) << row[0];
    }
}

CSerializationContext SkippingUnknown() {
    return Ignoring(&CSerializationContext::SetIgnoreUnknownElements);
}

TEST(GroupInASequence, OfASequence) {
    Group const group(XmlElementGroupType_Sequence,
                      {Prim<CElementInfoSeqPrimMnd>("k", 0), Enum<CElementInfoSeqEnumOpt>("l", 1),
                       Prim<CElementInfoSeqPrimOpt>("m", 2)});
    ExpectOutcomes("groups of a sequence", ctx);
    ExpectOutcomes("groups of a sequence, unknown elements skipped", SkippingUnknown());
}

// Which does not look for its element, unlike a mandatory primitive; the group's own driver skips for it.
TEST(GroupInASequence, OfAnEnumeration) {
    Group const group(XmlElementGroupType_Sequence, {Enum<CElementInfoSeqEnumMnd>("l", 0)});
    ExpectOutcomes("groups of an enumeration", ctx);
    ExpectOutcomes("groups of an enumeration, unknown elements skipped", SkippingUnknown());
}

TEST(GroupInASequence, OfAChoice) {
    Group const group(XmlElementGroupType_Choice,
                      {Prim<CElementInfoChoicePrimOpt>("k", 0), Prim<CElementInfoChoicePrimOpt>("m", 1)});
    ExpectOutcomes("groups of a choice", ctx);
    ExpectOutcomes("groups of a choice, unknown elements skipped", SkippingUnknown());
}

TEST(GroupInASequence, OfAnAllGroup) {
    Group const group(XmlElementGroupType_All,
                      {Prim<CElementInfoAllPrimMnd>("k", 0), Prim<CElementInfoAllPrimOpt>("m", 1)});
    ExpectOutcomes("groups of an all group", ctx);
    ExpectOutcomes("groups of an all group, unknown elements skipped", SkippingUnknown());
}

// A group is given the element around it, so that it sees all of its attributes.
TEST(NestedGroup, SeesTheAttributesOfTheElementAroundIt) {
    Group group(XmlElementGroupType_Sequence, {Prim<CElementInfoSeqPrimOpt>("k", 0)});
    Order order(Kind::kLax);
    order.attributes = {Attribute("mine", 3, true), nullptr};
    EXPECT_EQ(entries::Outcome(order, "<order mine='1'><k>2</k></order>"),
              "<order mine=\"1\"><k>2</k></order>");

    CSmartPtr<NillableProbe> const nillable(new NillableProbe(order));
    EXPECT_EQ(ReadFailure(*nillable, "<order xmlns:i='http://www.w3.org/2001/XMLSchema-instance' "
                                     "i:nil='false'><k>2</k></order>"),
              "Invalid use of 'nil' attribute in non-nillable element.\nPath: /order");

    Group required(XmlElementGroupType_Sequence, {});
    required.attributes = {Attribute("its", 3, false), nullptr};
    EXPECT_EQ(entries::Outcome(order, "<order/>"), Failed("Failed to find the required Attribute [its]."));

    Model strict;
    strict.type = XmlElementType_Pseudo;
    strict.Finish();
    s_group = &strict;
    EXPECT_EQ(entries::Outcome(order, "<order mine='1'/>"),
              "Unexpected Attribute found.\nPath: /order/@mine");
}

TEST(NestedGroup, AddsLinksUnderItsOwnName) {
    Group group(XmlElementGroupType_Sequence, {Prim<CElementInfoSeqPrimMnd>("k", 0)});
    group.attributes = {Attribute("its", 1, false), nullptr};
    Order order(Kind::kLax);
    CSmartPtr<Probe> const probe(new Probe(order));
    EXPECT_EQ(WriteFailure(*probe),
              "Failed to convert attributes to XML\nFailed to convert attributes to XML\n"
              "Invalid Type 0 to convert to string");
    probe->FromXml("<order its='1'><k>2</k></order>", ctx);
    probe->ObjectAt(1)->properties[0].SetInvalid();
    EXPECT_EQ(WriteFailure(*probe), "Failed to convert the element [] to XML\n"
                                    "The Property [k] is mandatory, it may not be NULL");
    // As a root it has neither a tag nor what belongs to one.
    CSerializationContext full;
    full.GetProcessingInstructions().push_back("<?pi?>");
    full.GetAdditionalRootAttributes()->Add("extra", "1", "");
    probe->ObjectAt(1)->properties[0].SetI4(2);
    EXPECT_EQ(Write(*probe->ObjectAt(1), full), "<k>2</k>");
}

// A choice inside a choice may be empty, one inside a sequence may not.
TEST(NestedChoice, MayBeEmptyInAChoice) {
    Model leaf;
    leaf.name = "leaf";
    leaf.Finish();
    Model inner;
    inner.name = "inner";
    inner.group = XmlElementGroupType_Choice;
    inner.elements = {new CElementInfoChoiceClsCol("leaf", "", 0, XmlElementType_Element)};
    inner.init = [&leaf](Probe& probe) { probe.properties[0].SetXmlCollection(new ProbeCol(leaf, 1, -1)); };
    inner.Finish();
    s_group = &inner;
    OrderOf choice(XmlElementGroupType_Choice,
                   {new CElementInfoChoiceClsOpt("inner", "", 0, XmlElementType_Element, MakeGroup, 0)});
    EXPECT_EQ(entries::Outcome(choice, "<order><inner/></order>"), "<order><inner/></order>");
    OrderOf sequence({new CElementInfoSeqClsOpt("inner", "", 0, XmlElementType_Element, MakeGroup, 0)});
    EXPECT_EQ(entries::Outcome(sequence, "<order><inner/></order>"),
              "No child elements within the element [inner] were populated. The element represents a choice, "
              "so one and only one element should be populated. The element contained no sutable child "
              "elements\nPath: /order/inner");
    CSmartPtr<Probe> const probe(new Probe(sequence));
    probe->properties[0].SetXmlObject(new Probe(inner));
    EXPECT_EQ(WriteFailure(*probe), "Failed to convert the element [inner] to XML\n"
                                    "This element is a choice, and as such must have at one (and only one) "
                                    "valid item, currently there are none set");
}

TEST(NestedChoice, MayBeEmptyForACollectionThatMayBe) {
    Model leaf;
    leaf.name = "leaf";
    leaf.Finish();
    for (int const minOccurs : {0, 1}) {
        for (bool const isBare : {false, true}) {
            OrderOf choice(XmlElementGroupType_Choice,
                           {isBare ? new CElementInfoChoiceCol("leaf", "", 0)
                                   : new CElementInfoChoiceClsCol("leaf", "", 0, XmlElementType_Element)},
                           [&leaf, minOccurs](Probe& probe) {
                               probe.properties[0].SetXmlCollection(new ProbeCol(leaf, minOccurs, -1));
                           });
            CSmartPtr<Probe> const probe(new Probe(choice));
            // Of entries for a collection as such the bounds are not looked at.
            EXPECT_EQ(probe->DoesElementContainOptionalElements(), minOccurs == 0 && !isBare);
            EXPECT_EQ(entries::Outcome(choice, "<order><leaf/></order>"), "<order><leaf/></order>");
        }
    }
}

} // namespace
