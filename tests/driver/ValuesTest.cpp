// Collections of values inside a class: in a sequence, a choice, an all group and nested groups.
#include "tests/driver/Reading.h"
#include "tests/support/TypedCols.h"
#include "zvxmllib/writers/XmlWriter.h"

using namespace entries;

namespace {

ColSetup Setup(char const* name, int minOccurs, int maxOccurs, char const* maxInclusive = "") {
    ColSetup setup;
    setup.name = name;
    setup.minOccurs = minOccurs;
    setup.maxOccurs = maxOccurs;
    setup.facets.maxInclusive = maxInclusive;
    return setup;
}

// A repeating element of an enumeration, as generated code has it: its values are i4.
class ColourCol : public Ci4Col {
public:
    using Ci4Col::Ci4Col;

protected:
    void AddFromString(std::string value) override { Add(TextToColour(value.c_str())); }
    void ToXml_Int(CXmlWriter* writer, bool, char const*, CSerializationContext const& context,
                   bool) const override {
        ValidateCount(context);
        for (std::int32_t const colour : *this) {
            writer->WriteElementStart(GetElementName(), m_namespace);
            writer->WriteElementValue(ColourToText(colour), ItemType_string, false);
            writer->WriteElementEnd();
        }
    }
};

// Numbers up to 10, one to three of them; dates, none to two; colours, any number.
void Fill(Probe& probe) {
    probe.properties[0].SetXmlCollection(NewCol<Ci4Col>(Setup("n", 1, 3, "10")));
    probe.properties[1].SetXmlCollection(NewCol<CdateCol>(Setup("d", 0, 2)));
    probe.properties[2].SetXmlCollection(NewCol<ColourCol>(Setup("c", 0, -1)));
}

struct SequenceOfValues : OrderOf {
    SequenceOfValues()
        : OrderOf({new CElementInfoSeqPrimCol("n", "", 0), new CElementInfoSeqPrimCol("d", "", 1),
                   new CElementInfoSeqEnumCol("c", "", 2), Prim<CElementInfoSeqPrimOpt>("z", 3)},
                  Fill) {}
};

struct ChoiceOfValues : OrderOf {
    ChoiceOfValues()
        : OrderOf(XmlElementGroupType_Choice,
                  {new CElementInfoChoicePrimCol("n", "", 0), new CElementInfoChoicePrimCol("d", "", 1),
                   new CElementInfoChoiceEnumCol("c", "", 2)},
                  Fill) {}
};

struct AllOfValues : OrderOf {
    AllOfValues()
        : OrderOf(XmlElementGroupType_All,
                  {new CElementInfoAllPrimCol("n", "", 0), new CElementInfoAllPrimCol("d", "", 1),
                   new CElementInfoAllCol("c", "", 2), Prim<CElementInfoAllPrimOpt>("z", 3)},
                  Fill) {}
};

// The children of the order, and the children that are written again, or the failure.
void ExpectChildren(Model& model, std::vector<ReadRow> rows,
                    CSerializationContext const& context = plainContext) {
    for (ReadRow& row : rows) {
        bool const isChildren = !row.outcome.empty() && row.outcome.find('\n') == std::string::npos;
        row.xml = "<order>" + row.xml + "</order>";
        if (isChildren)
            row.outcome = "<order>" + row.outcome + "</order>";
    }
    ExpectOutcomes(model, rows, context);
}

constexpr char kTooFew[] = "The Minimum number of [n] elements allowed in this collection is 1";
constexpr char kTooMany[] = "The Maximum number of [n] elements allowed in this collection is 3";

TEST(Values, InASequence) {
    SequenceOfValues model;
    ExpectChildren(
        model, {{"<n>1</n><n>2</n><d>2026-11-23</d><d>2026-11-24Z</d><c>red</c><c>blue</c><z>3</z>", ""},
                {"<n a='1'> 10 <x/></n><z>3</z>", "<n>10</n><z>3</z>"}, // nothing but the text is looked at
                {"<d>2026-11-23</d>", Failed(kTooFew)},
                {"<n>1</n><n>2</n><n>3</n><n>4</n>", Failed(kTooMany)},
                {"<n>1</n><d>2026-11-23</d><n>2</n>", Unread("n")},
                {"<n>11</n>", Failed("Invalid Value for n [11]")},
                {"<n>1</n><n/>", Failed("The value [] can not be converted to a i4")},
                {"<n>1</n><d>2026-11</d>", Failed("Dates added to this collection must be of type dt_date")},
                {"<n>1</n><c>green</c>", Failed("no colour: green")}});
    ExpectChildren(model, {{"<n>1</n><n>2</n><n>3</n><n>4</n>", ""}, {"<z>3</z>", ""}},
                   Ignoring(&CSerializationContext::SetIgnoreInvalidCollectionCounts));
    ExpectChildren(model, {{"<x/><n>1</n><x/><z>3</z>", Failed(kTooFew)}},
                   Ignoring(&CSerializationContext::SetIgnoreUnknownElements));

    CSmartPtr<Probe> const probe(new Probe(model));
    EXPECT_EQ(WriteFailure(*probe), kTooFew);
}

Model* s_group = nullptr;

// Between an a and a z that both may be absent.
TEST(Values, InNestedGroupsTestTheirCounts) {
    SequenceOfValues sequence;
    ChoiceOfValues choice;
    AllOfValues all;
    for (Model* const group :
         {static_cast<Model*>(&sequence), static_cast<Model*>(&choice), static_cast<Model*>(&all)}) {
        s_group = group;
        group->info = std::make_unique<CParentElementInfo>(group->group, XmlElementType_Pseudo, "", "", false,
                                                           false, -1, ItemType_invalid, nullptr, false);
        OrderOf order(
            {Prim<CElementInfoSeqPrimOpt>("a", 0),
             new CElementInfoSeqClsOpt(
                 "group", "", 1, XmlElementType_Pseudo,
                 [](int, char const*) { return CSmartPtr<CXmlObjectBase>(new Probe(*s_group)); }, 0),
             Prim<CElementInfoSeqPrimOpt>("y", 2)});
        SCOPED_TRACE(group->group);
        // All the groups give back what is too many, as if nothing had stood there.
        ExpectChildren(order,
                       {{"<a>1</a><n>1</n><n>2</n><y>3</y>", ""},
                        {"<a>1</a><y>3</y>", ""},
                        {"<a>1</a><n>1</n><n>2</n><n>3</n><n>4</n>", Unread("n")},
                        {"<a>1</a><n>1</n><n>2</n><d>2026-11-23</d>", group == &choice ? Unread("d") : ""},
                        {"<a>1</a><n>11</n>", Failed("Invalid Value for n [11]")}});
    }
}

} // namespace
