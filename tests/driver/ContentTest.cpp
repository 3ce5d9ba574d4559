// What stands in an element: attributes, simple content, nil, defaults, objects, wildcards.
#include "tests/driver/Reading.h"
#include "zvxmllib/driver/ClassFactoryBase.h"

using namespace entries;

namespace {

std::vector<Model*> s_models; // by class id

CSmartPtr<CXmlObjectBase> MakeById(int classId, char const* name) {
    CSmartPtr<Probe> const probe(new Probe(*s_models[static_cast<std::size_t>(classId)]));
    probe->SetElementName(name);
    return static_cast<Probe*>(probe);
}

class Factory : public CClassfactoryBase {
public:
    // "u" types by their names: small and large.
    static CSmartPtr<CXmlObjectBase> Make(CXmlElement* element) {
        if (GetElementTypeNamespaceUri(element) != "u")
            return {};
        std::string const type = GetElementType(element);
        if (type == "small")
            return MakeById(0, "shape");
        return type == "large" ? MakeById(1, "shape") : CSmartPtr<CXmlObjectBase>();
    }
    using CClassfactoryBase::GetElementType;
    using CClassfactoryBase::GetElementTypeNamespaceUri;
};

constexpr char kInstance[] = "xmlns:i=\"http://www.w3.org/2001/XMLSchema-instance\"";

CSerializationContext InstanceContext() {
    CSerializationContext ctx;
    ctx.GetNamespaceAliases().Add("i", "http://www.w3.org/2001/XMLSchema-instance");
    return ctx;
}

std::string Order(std::string const& inside) {
    return std::string("<order ") + kInstance + inside;
}

TEST(Attributes, AreTakenByTheFirstEntryThatFits) {
    Model model;
    model.attributes = {Attribute("a", 0, false), Attribute("b", 1, true, "5"),
                        new CAttributeInfoEnum("c", "", 2, true, ColourToText, TextToColour, "red")};
    model.Finish();
    // In another namespace an enumeration entry takes it when namespaces are ignored, a primitive one does
    // not.
    char const* const foreign = "<order a='1' p:b='2' p:c='blue' xmlns:p='v'/>";
    ExpectOutcomes(model, {{"<order a=\"1\"/>", ""},
                           {"<order a=\"1\" b=\"5\" c=\"red\"/>", ""},
                           {"<order/>", Failed("Failed to find the required Attribute [a].")},
                           {"<order a='1' z=''/>", "Unexpected Attribute found.\nPath: /order/@z"},
                           {foreign, "Unexpected Attribute found.\nPath: /order/p:@b"},
                           // What belongs to the instance as such is never unknown.
                           {Order(" i:schemaLocation='u s' i:noNamespaceSchemaLocation='s' i:type='t' "
                                  "xmlns:q='q' a='1'/>"),
                            "<order a=\"1\"/>"}});
    EXPECT_EQ(Outcome(model, "<order a='1' b='5' c='red'/>",
                      Ignoring(&CSerializationContext::SetNoOptionalAttributeDefaultOutput)),
              "<order a=\"1\"/>");
    CSerializationContext ctx = Ignoring(&CSerializationContext::SetIgnoreUnknownAttributes);
    EXPECT_EQ(Outcome(model, "<order a='1' z=''/>", ctx), "<order a=\"1\"/>");
    ctx.SetIgnoreNamespaces(true);
    EXPECT_EQ(Outcome(model, foreign, ctx), "<order a=\"1\" c=\"blue\"/>");
}

// More than there is room for in place.
TEST(Attributes, AreFoundAmongMany) {
    Model model;
    for (int i = 0; i < 70; ++i)
        model.attributes.push_back(Attribute(("a" + std::to_string(i)).c_str(), 0, i != 69));
    model.Finish();
    CSmartPtr<Probe> const probe(new Probe(model));
    probe->FromXml("<order a69='2'/>", CSerializationContext());
    EXPECT_EQ(probe->properties[0].GetI4(), 2);
    EXPECT_EQ(Outcome(model, "<order a68='1'/>"), Failed("Failed to find the required Attribute [a69]."));
}

TEST(Attributes, OfAWildcardGoToACollection) {
    struct Case {
        char const* allowed;
        char const* taken;
    };
    for (Case const& row : {Case{"##any", "nuv"}, Case{"##other", "nv"}, Case{"##local", "n"},
                            Case{"##targetNamespace", "u"}, Case{"v", "nv"}, Case{"v u", "nuv"}}) {
        Model model;
        model.ns = "u";
        model.failsForUnknownAttributes = false;
        model.attributes = {new CAttributeInfoAny("any", "", 0, true, row.allowed, "u", nullptr)};
        model.init = [](Probe& probe) {
            probe.properties[0].SetXmlCollection(new CAttributeCol("", "##any", ""));
        };
        model.Finish();
        CSmartPtr<Probe> const probe(new Probe(model));
        probe->FromXml("<order xmlns:u='u' xmlns:v='v' n='1' u:u='2' v:v='3'/>", CSerializationContext());
        std::string taken;
        auto* const attributes = dynamic_cast<CAttributeCol*>(probe->properties[0].FindXmlObject());
        for (CAttribute* attribute : *attributes)
            taken += attribute->GetName();
        EXPECT_EQ(taken, row.taken) << row.allowed;
    }
}

TEST(Content, OfAPrimitiveTypeStandsBehindTheElements) {
    Model model;
    model.contentIndex = 1;
    model.contentType = ItemType_i4;
    model.elements = {Prim<CElementInfoSeqPrimOpt>("a", 0)};
    model.Finish();
    ExpectOutcomes(model, {{"<order>42</order>", ""},
                           {"<order><a>1</a>42</order>", ""},
                           {"<order>x</order>", Failed("The value [x] can not be converted to a i4")}});
    CSmartPtr<Probe> const nil(new Probe(model));
    nil->properties[1].SetNil(ItemType_i4);
    EXPECT_EQ(Write(*nil, InstanceContext()), Order(" i:nil=\"true\"/>"));
    Model text;
    text.contentIndex = 0;
    text.contentType = ItemType_i4;
    text.contentAsText = true;
    text.Finish();
    EXPECT_EQ(Outcome(text, "<order> not parsed </order>"), "<order> not parsed </order>");
}

TEST(Defaults, StandForEmptyElements) {
    OrderOf model({Prim<CElementInfoSeqPrimMnd>("a", 0, "7"), Enum<CElementInfoSeqEnumOpt>("b", 1, "red")});
    CSmartPtr<Probe> const probe(new Probe(model));
    probe->FromXml("<order><a/><b/></order>", CSerializationContext());
    EXPECT_EQ(probe->properties[0].GetI4(), 7);
    EXPECT_EQ(probe->properties[1].GetI4(), 1);
    EXPECT_EQ(Write(*probe), "<order><a/><b/></order>");
    EXPECT_EQ(Write(*probe, Ignoring(&CSerializationContext::SetWriteDefaultElementValues)),
              "<order><a>7</a><b>red</b></order>");
}

TEST(Nil, OfAPrimitiveElementSurvives) {
    OrderOf model(
        {Prim<CElementInfoSeqPrimMnd>("a", 0, nullptr, true), Enum<CElementInfoSeqEnumOpt>("b", 1)});
    CSerializationContext ctx = InstanceContext();
    std::string const nil = Order("><a i:nil=\"true\"/></order>");
    ExpectOutcomes(
        model,
        {{nil, ""},
         {Order("><a i:nil='1'>5</a></order>"), nil},
         {Order("><a>1</a><b i:nil='FALSE'>red</b></order>"), Order("><a>1</a><b>red</b></order>")},
         {Order("><a>1</a><b i:nil='true'/></order>"),
          "Invalid use of 'nil' attribute in non-nillable element.\nPath: /order/b"},
         {Order("><a i:nil='none'/></order>"),
          "Unexpected Value [none] for 'nil' Attribute found.\nPath: /order/a/i:@nil"},
         {Order("><a i:type='x'>1</a></order>"), "Unexpected Attribute found.\nPath: /order/a/i:@type"}},
        ctx);
    ctx.SetIgnoreUnknownAttributes(true);
    EXPECT_EQ(Outcome(model, Order("><a x='' i:nil='1'/></order>").c_str(), ctx), nil);
}

TEST(Nil, OfAClassLeavesItsContentOut) {
    Model model;
    model.elements = {Prim<CElementInfoSeqPrimMnd>("a", 0)};
    model.attributes = {Attribute("x", 1, true)};
    model.Finish();
    CSerializationContext const ctx = InstanceContext();
    std::string const nil = Order(" x=\"3\" i:nil=\"true\"/>");
    CSmartPtr<NillableProbe> const probe(new NillableProbe(model));
    probe->FromXml(Order(" i:nil='TRUE' x='3'><a>1</a></order>").c_str(), ctx);
    EXPECT_TRUE(probe->GetIsNil());
    EXPECT_FALSE(probe->properties[0].IsValid());
    EXPECT_EQ(Write(*probe, ctx), nil);
    EXPECT_EQ(ReadFailure(*probe, Order(" i:nil='2'/>").c_str(), ctx),
              "Unexpected Value [2] for 'nil' Attribute found.\nPath: /order/i:@nil");
    EXPECT_EQ(Outcome(model, nil.c_str(), ctx),
              "Invalid use of 'nil' attribute in non-nillable element.\nPath: /order");
}

struct Shapes {
    Shapes() {
        for (Model* model : {&small, &large}) {
            model->type = XmlElementType_Element;
            model->ns = "u";
            model->hasBaseClasses = true;
        }
        small.name = "small";
        small.elements = {Prim<CElementInfoSeqPrimMnd>("s", 0)};
        large.name = "large";
        large.elements = {Prim<CElementInfoSeqPrimMnd>("l", 0)};
        small.Finish();
        large.Finish();
        s_models = {&small, &large};
    }
    Model small, large;
};

TEST(AbstractElements, AreMadeByWhatTheirTypeAttributeNames) {
    Shapes const shapes;
    CSerializationContext ctx = InstanceContext();
    ctx.GetNamespaceAliases().Add("u", "u");
    std::string const start = std::string("<order ") + kInstance + " xmlns:u=\"u\">";
    for (bool isMandatory : {true, false}) {
        auto const type = XmlElementType_Element;
        OrderOf model({isMandatory ? static_cast<CElementInfo*>(
                                         new CElementInfoSeqAbsClsMnd("shape", "u", 0, type, Factory::Make))
                                   : new CElementInfoSeqAbsClsOpt("shape", "u", 0, type, Factory::Make)});
        for (char const* shape : {"<u:shape  i:type=\"u:small\"><s>1</s></u:shape></order>",
                                  "<u:shape  i:type=\"u:large\"><l>1</l></u:shape></order>"}) {
            std::string xml = start + shape;
            std::string written = xml;
            written.erase(written.find("  i:type") + 1, 1); // one blank where nothing is declared
            EXPECT_EQ(Outcome(model, xml.c_str(), ctx), written);
        }
        std::string const unknown = start + "<u:shape i:type='u:round'/></order>";
        EXPECT_EQ(Outcome(model, unknown.c_str(), ctx),
                  isMandatory ? "Failed to find a suitable substitution element for [shape].\nPath: /order"
                              : Unread("shape"));
    }
}

TEST(AbstractElements, FallBackToTheNamespaceOfTheElement) {
    CXmlDocument document;
    document.LoadXml("<e xmlns='d' xmlns:i='http://www.w3.org/2001/XMLSchema-instance' xmlns:p='u'>"
                     "<a/><a i:type='t'/><a i:type='p:t:x'/><a i:type='q:t'/></e>");
    std::string types;
    for (CXmlElement* a = document.GetDocumentElement()->GetFirstElement(); a != nullptr;
         a = a->GetNextSiblingElement())
        types += Factory::GetElementType(a) + "@" + Factory::GetElementTypeNamespaceUri(a) + " ";
    EXPECT_EQ(types, "@d t@d t:x@u t@d ");
}

TEST(ClassElements, AreMadeByTheirFactoryWhenTheyStandThere) {
    Shapes shapes;
    Model model;
    model.ns = "u";
    model.elements = {new CElementInfoSeqClsOpt("first", "u", 0, XmlElementType_Element, MakeById, 0),
                      new CElementInfoSeqClsMnd("large", "u", 1, XmlElementType_Element, MakeById, 1, true)};
    model.init = [&shapes](Probe& probe) { probe.properties[1].SetXmlObject(new Probe(shapes.large)); };
    model.Finish();
    CSerializationContext ctx;
    ctx.SetDefaultNamespaceURI("u");
    ctx.SetWriteTypeAttribute(false);
    char const* const both =
        "<order xmlns=\"u\"><first><s xmlns=''>1</s></first><large><l xmlns=''>2</l></large></order>";
    EXPECT_EQ(Outcome(model, both, ctx),
              "<order xmlns=\"u\"><first><s>1</s></first><large><l>2</l></large></order>");
    EXPECT_EQ(Outcome(model, "<order xmlns='u'><large><l xmlns=''>2</l></large></order>", ctx),
              "<order xmlns=\"u\"><large><l>2</l></large></order>");
    EXPECT_EQ(
        Outcome(model, "<order xmlns='u'><first><s xmlns=''>x</s></first></order>", ctx),
        "Failed to process the element.\nPath: /order/first\nThe value [x] can not be converted to a i4");
}

TEST(Wildcards, OptionalOnesTakeOneElement) {
    OrderOf any({new CElementInfoSeqUntpdOpt("AnyElement", "", 0, "##any", ""),
                 Prim<CElementInfoSeqPrimOpt>("z", 1)});
    ExpectOutcomes(any, {{"<order><x q=\"1\"><y/>t</x><z>1</z></order>", ""}, {"<order/>", ""}});
    OrderOf named({new CElementInfoSeqUntpdOpt("note", "", 0, "##any", "")});
    ExpectOutcomes(named,
                   {{"<order><note>t</note></order>", ""}, {"<order><other/></order>", Unread("other")}});
}

TEST(Wildcards, MandatoryOnesSayWhatIsMissing) {
    OrderOf model({new CElementInfoSeqUntpdMnd("AnyElement", "v", 0, "v", "v")},
                  [](Probe& probe) { probe.properties[0].SetXmlObject(new CElement("x", "v", "v w", "v")); });
    ExpectOutcomes(model, {{"<order><e xmlns='v'/></order>", "<order><AA:e xmlns:AA=\"v\"/></order>"},
                           {"<order><e xmlns='w2'/></order>",
                            "Failed to find the required element from namespace [v].\nPath: /order"},
                           {"<order/>", Missing("AnyElement")}});
    OrderOf named({new CElementInfoSeqUntpdMnd("note", "", 0, "##any", "")},
                  [](Probe& probe) { probe.properties[0].SetXmlObject(new CElement("note")); });
    EXPECT_EQ(Outcome(named, "<order><other/></order>"),
              "Failed to find the required element from namespace [].\nPath: /order");
}

} // namespace
