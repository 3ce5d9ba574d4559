// What generated classes read by the usual rules and in a strict context.
#include "tests/strict/Twice.h"
#include "tests/support/TypedCols.h"
#include "zvxmllib/collections/ItemMaker.h"

using namespace entries;

namespace {

std::string const kXsi = R"( xmlns:xsi="http://www.w3.org/2001/XMLSchema-instance")";
std::string const kXs = R"( xmlns:xs="http://www.w3.org/2001/XMLSchema")";

std::string At(std::string const& message, std::string const& path) {
    return message + "\nPath: " + path;
}
std::string Element(std::string const& content, std::string const& attributes = "") {
    return "<order" + attributes + (content.empty() ? "/>" : ">" + content + "</order>");
}
// With the instance namespace, which the writer leaves out again.
std::string Xsi(std::string const& content) {
    return Element(content, kXsi + kXs);
}
std::string ValueUnread(char const* child) {
    return At("Failed read all the elements held within the element [n]. The unexpected element [" +
                  std::string(child) + "] remains un processed",
              "/order/n");
}
std::string const kNotNillable = "Invalid use of 'nil' attribute in non-nillable element.";

TEST(StrictReading, WantsTheRootOfTheClass) {
    Model model;
    model.ns = "urn:t";
    model.Finish();
    std::string const mine = R"(<AA:order xmlns:AA="urn:t"/>)";
    std::string const expected = "Expected the root element [order] of namespace [urn:t], found [";
    ExpectTwice(model, {
                           {"<order xmlns='urn:t'/>", mine, mine},
                           {"<zzz xmlns='urn:else'/>", R"(<AA:zzz xmlns:AA="urn:t"/>)",
                            At(expected + "zzz] of namespace [urn:else].", "/zzz")},
                           {"<order/>", mine, At(expected + "order] of namespace [].", "/order")},
                       });
    EXPECT_EQ(Outcome(model, "<order/>", StrictIgnoring(&CSerializationContext::SetIgnoreNamespaces)), mine);
    CSmartPtr<Probe> const probe(new Probe(model));
    CSmartPtr<CElement> const other(new CElement("zzz", "urn:else"));
    probe->FromXmlElement(other, Strict()); // an element may have any name
    EXPECT_EQ(Write(*probe), R"(<AA:zzz xmlns:AA="urn:t"/>)");
}

TEST(StrictReading, LosesNoTextAndNoChild) {
    OrderOf model({Prim<CElementInfoSeqPrimOpt>("n", 0)});
    std::string const one = Element("<n>1</n>");
    std::string const text = At("Unexpected text [hello there] found.", "/order");
    ExpectTwice(model, {
                           {"<order>\n <n>1</n>\t</order>", one, one},
                           {"<order>hello <n>1</n>there\n</order>", one, text},
                           {"<order><![CDATA[hello there]]><n>1</n></order>", one, text},
                           {"<order><n>1<x/></n></order>", one, ValueUnread("x")},
                       });
    OrderOf values({new CElementInfoSeqPrimCol("n", "", 0)},
                   [](Probe& probe) { probe.properties[0].SetXmlCollection(NewCol<Ci4Col>({"n"})); });
    ExpectTwice(values,
                {
                    {"<order><n>1<x/></n></order>", one, ValueUnread("x")},
                    {Xsi("<n xsi:nil='true'>1</n>"), one, At(kNotNillable, "/order/n")},
                    {"<order><n z='1'>1</n></order>", one, At("Unexpected Attribute found.", "/order/n/@z")},
                    {Xsi("<n xsi:type='xs:short'>1</n>"), one, one},
                });
}

TEST(StrictReading, RefusesTextWhoseOwnPlaceItWouldLose) {
    Model model;
    model.elements = {Prim<CElementInfoSeqPrimOpt>("b", 0)};
    model.contentIndex = 1;
    model.contentType = ItemType_string;
    model.Finish();
    std::string const lost = At("The place of the text in [order] would be lost.", "/order");
    std::string const joined = "<order><b>2</b>one  three</order>";
    ExpectTwice(model, {
                           {"<order>one <b>2</b> three</order>", joined, lost},
                           {"<order>one<b>2</b></order>", "<order><b>2</b>one</order>", lost},
                           {"<order><b>2</b>three</order>", "", ""},
                           {"<order>one</order>", "", ""},
                       });
}

TEST(StrictReading, GivesValueElementsTheAttributesOfXmlSchema) {
    OrderOf model({Prim<CElementInfoSeqPrimOpt>("n", 0), Prim<CElementInfoSeqPrimOpt>("m", 1, nullptr, true),
                   Enum<CElementInfoSeqEnumOpt>("e", 2)});
    std::string const one = Element("<n>1</n>");
    auto const unexpected = [](std::string const& attribute) {
        return At("Unexpected Attribute found.", "/order/" + attribute);
    };
    std::string const noSubstitution =
        At("Failed to find a suitable substitution element for [n].", "/order/n");
    std::string const nil =
        R"(<order><m xmlns:AA="http://www.w3.org/2001/XMLSchema-instance" AA:nil="true"/></order>)";
    ExpectTwice(model,
                {
                    {Xsi("<n xsi:schemaLocation='a b'>1</n>"), unexpected("n/xsi:@schemaLocation"), one},
                    {Xsi("<n xsi:type='xs:int'>1</n>"), unexpected("n/xsi:@type"), one},
                    {Xsi("<n xsi:type=' xs:byte '>1</n>"), unexpected("n/xsi:@type"), one},
                    {Xsi("<n xsi:type='xs:long'>1</n>"), unexpected("n/xsi:@type"), noSubstitution},
                    {Xsi("<n xsi:type='xs:date'>1</n>"), unexpected("n/xsi:@type"), noSubstitution},
                    {Xsi("<n xsi:type='mine'>1</n>"), unexpected("n/xsi:@type"), one},
                    {Xsi("<n xsi:type='q:T'>1</n>"), unexpected("n/xsi:@type"),
                     At("Namespace alias [q] not found", "/order/n/xsi:@type")},
                    {Xsi("<e xsi:type='xs:string'>red</e>"), unexpected("e/xsi:@type"),
                     At("Failed to find a suitable substitution element for [e].", "/order/e")},
                    {"<order><n xml:lang='en'>1</n></order>", unexpected("n/@lang"), unexpected("n/@lang")},
                    {Xsi("<n xsi:nil='false'>1</n>"), one, At(kNotNillable, "/order/n")},
                    {Xsi("<m xsi:nil='true'/>"), nil, nil},
                    {Xsi("<m xsi:nil=' 1 '/>"),
                     At("Unexpected Value [ 1 ] for 'nil' Attribute found.", "/order/m/xsi:@nil"), nil},
                    {Xsi("<m xsi:nil='TRUE'/>"), nil,
                     At("Unexpected Value [TRUE] for 'nil' Attribute found.", "/order/m/xsi:@nil")},
                    {Xsi("<m xsi:nil='true'>7</m>"), nil,
                     At("Unexpected content found in the nil element [m].", "/order/m")},
                    {Xsi("<m xsi:nil='true'> </m>"), nil,
                     At("Unexpected content found in the nil element [m].", "/order/m")},
                });
}

TEST(StrictReading, TakesNilAndTypeOfAClassSeriously) {
    Model model;
    model.elements = {Prim<CElementInfoSeqPrimOpt>("n", 0)};
    model.Finish();
    auto const outcome = [&](std::string const& attributes, std::string const& content, bool strict) {
        CSmartPtr<NillableProbe> const probe(new NillableProbe(model));
        CSerializationContext ctx;
        ctx.SetStrict(strict);
        try {
            probe->FromXml(Element(content, kXsi + attributes).c_str(), ctx);
            return probe->GetIsNil() ? std::string("nil") : Write(*probe);
        } catch (CZvException const& failure) {
            return failure.GetFullMessage();
        }
    };
    struct Row {
        char const* attributes;
        char const* content;
        std::string usual;
        std::string strict;
    };
    std::string const content = At("Unexpected content found in the nil element [order].", "/order");
    std::string const noSubstitution =
        At("Failed to find a suitable substitution element for [order].", "/order");
    for (Row const& row : {
             Row{" xsi:nil='true'", "", "nil", "nil"},
             Row{" xsi:nil=' true'", "",
                 At("Unexpected Value [ true] for 'nil' Attribute found.", "/order/xsi:@nil"), "nil"},
             Row{" xsi:nil='true'", " ", "nil", content},
             Row{" xsi:nil='true'", "<n>1</n>", "nil", content},
             Row{" xsi:type='order'", "<n>1</n>", Element("<n>1</n>"), Element("<n>1</n>")},
             Row{" xsi:type='Other'", "<n>1</n>", Element("<n>1</n>"), noSubstitution},
             Row{" xmlns:p='urn:p' xsi:type='p:order'", "", Element(""), noSubstitution},
         }) {
        EXPECT_EQ(outcome(row.attributes, row.content, false), row.usual) << row.attributes;
        EXPECT_EQ(outcome(row.attributes, row.content, true), row.strict) << row.attributes;
    }
}

TEST(StrictReading, TestsFacetsAtTheirPlace) {
    CPrimitiveRestrictions facets;
    facets.maxInclusive = "10";
    CPrimitiveRestrictions words;
    words.pattern = "true|false";
    constexpr auto kCollapse = CWhitespaceUtils::WhitespaceRule_Collapse;
    Model model;
    model.elements = {
        new CElementInfoSeqPrimOpt("n", "", 0, false, ItemType_i4, "", kCollapse, facets, ""),
        new CElementInfoSeqPrimOpt("b", "", 1, false, ItemType_boolean, "", kCollapse, words, ""),
        new CElementInfoSeqPrimCol("c", "", 2)};
    model.attributes = {
        new CAttributeInfoPrimitive("k", "urn:k", 3, true, ItemType_i4, nullptr, kCollapse, facets, nullptr)};
    model.init = [&](Probe& probe) {
        ColSetup setup{"c"};
        setup.facets = facets;
        probe.properties[2].SetXmlCollection(NewCol<Ci4Col>(setup));
    };
    model.Finish();
    std::string const written = "Failed to convert the element [order] to XML\n";
    ExpectTwice(model,
                {
                    {Element("<n>10</n><b>true</b><c>1</c>"), "", ""},
                    {Element("<n>11</n>"), written + "Invalid Value for n [11]",
                     At("Invalid Value for n [11]", "/order/n")},
                    {Element("<b>1</b>"), Element("<b>true</b>"), At("Invalid Value for b [1].", "/order/b")},
                    {Element("<c>1</c><c>11</c>"), Failed("Invalid Value for c [11]"),
                     At("Invalid Value for c [11]", "/order/c[2]")},
                    {"<order xmlns:k='urn:k' k:k='11'/>",
                     written + "Failed to convert attributes to XML\nInvalid Value for k [11]",
                     At("Invalid Value for k [11]", "/order/k:@k")},
                });
    CSerializationContext const ignoring = Ignoring(&CSerializationContext::SetIgnoreNamespaces);
    ExpectTwice(model,
                {{"<order k='1'/>", At("Unexpected Attribute found.", "/order/@k"),
                  R"(<order xmlns:AA="urn:k" AA:k="1"/>)"}},
                ignoring);
}

// Of groups: the tables that they are made by.
Model* s_group = nullptr;

CSmartPtr<CXmlObjectBase> MakeGroup(int, char const*) {
    return new Probe(*s_group);
}

struct Group : Model {
    explicit Group(std::vector<CElementInfo*> entries,
                   XmlElementGroupType groupType = XmlElementGroupType_Sequence,
                   std::function<void(Probe&)> initial = {}) {
        type = XmlElementType_Pseudo;
        group = groupType;
        name = "";
        elements = std::move(entries);
        init = std::move(initial);
    }
    Group& Use() {
        Finish();
        s_group = this;
        return *this;
    }
};

template <class Info>
CElementInfo* GroupEntry(int index) {
    return new Info("group", "", index, XmlElementType_Pseudo, MakeGroup, 0);
}

TEST(StrictReading, DemandsOfGroupsTheirOwnAttributesWhereTheyAre) {
    Group group({Prim<CElementInfoSeqPrimMnd>("a", 0)});
    group.attributes = {Attribute("g", 1, false)};
    group.Use();
    Model model;
    model.elements = {GroupEntry<CElementInfoSeqClsOpt>(0), Prim<CElementInfoSeqPrimOpt>("z", 1)};
    model.attributes = {Attribute("k", 2, true), Attribute("g", 3, true)};
    model.Finish();
    std::string const missing = Failed("Failed to find the required Attribute [g].");
    std::string const twice = R"(<order g="1" g="1"><a>1</a></order>)";
    std::string const refused =
        "Failed to convert the element [order] to XML\nFailed to convert attributes to XML\n"
        "Failed to convert attributes to XML\nThe Attribute [g] is already written.";
    ExpectTwice(model,
                {
                    {Element("<a>1</a>", " g='1'"), twice, refused},
                    {Element("<z>1</z>"), missing, Element("<z>1</z>")},
                    {Element("<a>1</a>"), missing, missing},
                    {Element("<z>1</z>", " k=\"1\""), At("Unexpected Attribute found.", "/order/@k"), ""},
                    {Element("<z>1</z>", kXsi + " xsi:nil='false'"), At(kNotNillable, "/order"),
                     At(kNotNillable, "/order")},
                });
}

TEST(StrictReading, EndsCollectionsOfValuesWithTheirGroup) {
    Group group({new CElementInfoSeqPrimCol("a", "", 0), Prim<CElementInfoSeqPrimOpt>("b", 1)},
                XmlElementGroupType_Sequence, [](Probe& probe) {
                    probe.properties[0].SetXmlCollection(NewCol<Ci4Col>({"a", "", 2, 2}));
                });
    group.Use();
    OrderOf model({new CElementInfoSeqClsCol("group", "", 0, XmlElementType_Pseudo)},
                  [&](Probe& probe) { probe.properties[0].SetXmlCollection(new ProbeCol(group, 0, -1)); });
    std::string const four = Element("<a>1</a><a>2</a><a>3</a><a>4</a><b>5</b>");
    ExpectTwice(model, {{four, Unread("a"), ""}, {Element("<a>1</a>"), Unread("a"), Unread("a")}});
}

TEST(StrictReading, PassesOverUnknownElementsAlone) {
    CSerializationContext const ctx = Ignoring(&CSerializationContext::SetIgnoreUnknownElements);
    auto const prims = [] {
        return std::vector<CElementInfo*>{
            Prim<CElementInfoSeqPrimOpt>("a", 0), Prim<CElementInfoSeqPrimOpt>("b", 1),
            Prim<CElementInfoSeqPrimOpt>("c", 2), Prim<CElementInfoSeqPrimOpt>("d", 3)};
    };
    std::string const all = "<a>1</a><b>2</b><c>3</c><d>4</d>";
    OrderOf sequence(prims());
    ExpectTwice(sequence,
                {
                    {Element("<a>1</a><zzz/><b>2</b><c>3</c><d>4</d><zzz/>"), Element("<a>1</a><d>4</d>"),
                     Element(all)},
                    {Element("<a>1</a><d>2</d><d>3</d>"), Element("<a>1</a><d>2</d>"), Unread("d")},
                    {Element("<z/><z/>"), Element(""), Element("")},
                    {Element("<a xmlns='urn:o'>1</a>"), Element(""), Element("")},
                },
                ctx);
    OrderOf each(XmlElementGroupType_All,
                 {Prim<CElementInfoAllPrimOpt>("x", 0), Prim<CElementInfoAllPrimOpt>("y", 1)});
    ExpectTwice(each, {{Element("<x>1</x><z/><y>2</y>"), Element("<x>1</x>"), Element("<x>1</x><y>2</y>")}},
                ctx);
    OrderOf choice(XmlElementGroupType_Choice,
                   {Prim<CElementInfoChoicePrimOpt>("x", 0), Prim<CElementInfoChoicePrimOpt>("y", 1)});
    ExpectTwice(choice,
                {{Element("<x>1</x><y>2</y>"), Element("<x>1</x>"), Unread("y")},
                 {Element("<z/><x>1</x><z/>"), Element("<x>1</x>"), Element("<x>1</x>")}},
                ctx);

    Group group({Prim<CElementInfoSeqPrimMnd>("p", 0), Prim<CElementInfoSeqPrimMnd>("q", 1)});
    group.Use();
    OrderOf nested({Prim<CElementInfoSeqPrimOpt>("a", 0), GroupEntry<CElementInfoSeqClsOpt>(1)});
    std::string const inGroup = Element("<a>1</a><p>2</p><q>3</q>");
    ExpectTwice(nested,
                {{Element("<z/><a>1</a><z/><p>2</p><z/><q>3</q><z/>"), Element("<p>2</p><q>3</q>"), inGroup}},
                ctx);
    EXPECT_EQ(Outcome(nested, Element("<p>2</p><z/><q>3</q><a>1</a>").c_str(),
                      StrictIgnoring(&CSerializationContext::SetIgnoreUnknownElements)),
              Unread("a"));

    // A collection of groups says what they know, or all is known.
    class Telling : public ProbeCol, public IItemMaker {
    public:
        explicit Telling(Model& items) : ProbeCol(items, 0, -1), m_items(items) {}
        CSmartPtr<CXmlObjectBase> MakeItem() const override { return new Probe(m_items); }

    private:
        Model& m_items;
    };
    bool tells = true;
    OrderOf many({new CElementInfoSeqClsCol("group", "", 0, XmlElementType_Pseudo)}, [&](Probe& probe) {
        probe.properties[0].SetXmlCollection(tells ? new Telling(group) : new ProbeCol(group, 0, -1));
    });
    std::string const twoGroups = Element("<p>1</p><z/><q>2</q><z/><p>3</p><q>4</q>");
    CSerializationContext strict = ctx;
    strict.SetStrict(true);
    EXPECT_EQ(Outcome(many, twoGroups.c_str(), strict), Element("<p>1</p><q>2</q><p>3</p><q>4</q>"));
    tells = false;
    EXPECT_EQ(Outcome(many, twoGroups.c_str(), strict), Unread("p"));
}

// What is hidden for the time of reading is there again afterwards.
TEST(StrictReading, LeavesTheDocumentAsItWas) {
    OrderOf model({Prim<CElementInfoSeqPrimOpt>("a", 0)});
    CSerializationContext const ctx = StrictIgnoring(&CSerializationContext::SetIgnoreUnknownElements);
    CXmlDocument document(ctx);
    document.LoadXml("<order><x/><y/><a>1</a><z/></order>");
    CXmlElement const* const root = document.GetDocumentElement();
    CSmartPtr<Probe> const probe(new Probe(model));
    probe->FromXmlElement(root, ctx);
    EXPECT_EQ(Write(*probe), Element("<a>1</a>"));
    std::string names;
    for (CXmlElement const* child = root->GetFirstElement(); child != nullptr;
         child = child->GetNextSiblingElement())
        names += child->GetLocalName();
    EXPECT_EQ(names, "xyaz");
}

CElementInfo* Untyped(char const* name, char const* allowed) {
    return new CElementInfoSeqUntpdOpt(name, "urn:t", 0, allowed, "urn:t");
}

TEST(StrictReading, KeepsToTheNamespacesOfWildcards) {
    OrderOf other({Untyped("AnyElement", "##other")});
    std::string const foreign = R"(<order><AA:x xmlns:AA="urn:o"/></order>)";
    std::string const declared = R"(<order><x xmlns="urn:o"/></order>)";
    ExpectTwice(other, {
                           {"<order><x xmlns='urn:o'/></order>", foreign, declared},
                           {"<order><x/></order>", "", Unread("x")},
                       });
    OrderOf listed({Untyped("AnyElement", "urn:o ##local")});
    ExpectTwice(listed,
                {{"<order><x xmlns='urn:o'/></order>", foreign, declared}, {"<order><x/></order>", "", ""}});
    OrderOf named({Untyped("n", "##any")});
    std::string const foreignN = R"(<order><AA:n xmlns:AA="urn:o"/></order>)";
    std::string const ownN = R"(<order><AA:n xmlns:AA="urn:t"/></order>)";
    std::string const declaredN = R"(<order><n xmlns="urn:t"/></order>)";
    ExpectTwice(named, {
                           {"<order><n xmlns='urn:o'/></order>", foreignN, Unread("n")},
                           {"<order><n xmlns='urn:t'/></order>", ownN, declaredN},
                       });
    // Of a collection, its bounds too.
    OrderOf some({new CElementInfoSeqUntpdCol("AnyElement", "", 0), Prim<CElementInfoSeqPrimOpt>("b", 1)},
                 [](Probe& probe) {
                     probe.properties[0].SetXmlCollection(new CElementCol("", "##other", "urn:t", 1, 2));
                 });
    std::string const one = R"(<o:x xmlns:o="urn:o"/>)";
    std::string const oneAgain = R"(<AA:x xmlns:AA="urn:o"/>)";
    ExpectTwice(some,
                {
                    {Element(one + "<b>1</b>"), Element(oneAgain + "<b>1</b>"), Element(one + "<b>1</b>")},
                    {Element(one + one + one), Element(oneAgain + oneAgain + oneAgain), Unread("x")},
                    {Element("<b>1</b>"), Element("<b>1</b>"),
                     Failed("The Minimum number of [] elements allowed in this collection is 1")},
                });
    Model attributes;
    attributes.attributes = {new CAttributeInfoAny("any", "", 0, true, "##other", "urn:t", "")};
    attributes.init = [](Probe& probe) {
        probe.properties[0].SetXmlCollection(new CAttributeCol("", "##any", ""));
    };
    attributes.Finish();
    ExpectTwice(attributes,
                {{R"(<order misspelt="1"/>)", "", At("Unexpected Attribute found.", "/order/@misspelt")}});
}

} // namespace
