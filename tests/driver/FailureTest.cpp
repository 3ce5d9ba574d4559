// Failures with their classes, paths and chains.
#include "tests/driver/Reading.h"

using namespace entries;

namespace {

CSerializationContext const ctx;

// order, with items of one mandatory number each.
struct Items : Model {
    Items() {
        item.name = "item";
        item.elements = {Prim<CElementInfoSeqPrimMnd>("price", 0)};
        item.Finish();
        elements = {new CElementInfoSeqClsCol("item", "", 0, XmlElementType_Element)};
        init = [this](Probe& probe) { probe.properties[0].SetXmlCollection(new ProbeCol(item, 0, -1)); };
        Finish();
    }
    Model item;
};

TEST(ReadingFailure, CarriesThePathOfTheInnermostElement) {
    Items model;
    CSmartPtr<Probe> const probe(new Probe(model));
    // What has no path gets that of the object's element, and is a plain exception from there on.
    for (auto const& [items, message] :
         {std::pair("<item><price>1</price></item><item><price>x</price></item>",
                    "Failed to process the element.\nPath: /order/item[2]\n"
                    "The value [x] can not be converted to a i4"),
          std::pair("<item/>", "Failed to find the required child element [price].\nPath: /order/item"),
          std::pair("<item><price>1</price></item><item><price "
                    "xmlns:i='http://www.w3.org/2001/XMLSchema-instance' i:nil='1'/></item>",
                    "Invalid use of 'nil' attribute in non-nillable element.\nPath: /order/item[2]/price"),
          std::pair("<item><price>1</price></item><item><price x=''/></item>",
                    "Unexpected Attribute found.\nPath: /order/item[2]/price/@x")})
        EXPECT_EQ(ReadFailure(*probe, ("<order>" + std::string(items) + "</order>").c_str()), message);
    // The outermost level wraps by itself.
    OrderOf single({Prim<CElementInfoSeqPrimMnd>("price", 0)});
    CSmartPtr<Probe> const outer(new Probe(single));
    EXPECT_EQ(ReadFailure<CZvValidationException>(*outer, "<order><price>x</price></order>"),
              Failed("The value [x] can not be converted to a i4"));
}

TEST(ReadingFailure, OfAPropertyIsWrapped) {
    Model model;
    model.elements = {Prim<CElementInfoSeqPrimMnd>("price", 0)};
    model.attributes = {Attribute("a", 1, true)};
    model.Finish();
    CSmartPtr<Probe> const probe(new Probe(model));
    probe->refused = 0;
    EXPECT_EQ(ReadFailure(*probe, "<order><price>1</price></order>"),
              "Failed to set the property value.\nPath: /order/price\nThe property refuses");
    probe->refused = 1;
    try {
        probe->FromXml("<order a='5'/>", ctx);
        ADD_FAILURE();
    } catch (CZvException const& failure) {
        EXPECT_EQ(failure.GetFullMessage(),
                  "Failed to set the property value [5].\nPath: /order/@a\nThe property refuses");
        EXPECT_EQ(failure.GetPath(), "/order/@a");
        EXPECT_NE(dynamic_cast<CZvInvalidParamException const*>(failure.GetInnerException()), nullptr)
            << "the cause keeps its class";
    }
}

// Simple content reaches its property without a step of its own.
TEST(ReadingFailure, OfSimpleContentIsNotWrapped) {
    Model model;
    model.contentIndex = 0;
    model.contentType = ItemType_i4;
    model.Finish();
    CSmartPtr<Probe> const probe(new Probe(model));
    probe->refused = 0;
    EXPECT_EQ(ReadFailure<CZvValidationException>(*probe, "<order>1</order>"),
              Failed("The property refuses"));
    EXPECT_EQ(WriteFailure(*probe), "The property refuses");
}

TEST(ReadingFailure, LeavesWhatWasReadAndNothingOfBefore) {
    OrderOf model({Prim<CElementInfoSeqPrimOpt>("a", 0), Prim<CElementInfoSeqPrimOpt>("b", 1)});
    CSmartPtr<Probe> const probe(new Probe(model));
    probe->FromXml("<order><b>1</b></order>", ctx);
    EXPECT_THROW(probe->FromXml("<order><b>2</b><c></order>", ctx), CZvException);
    EXPECT_EQ(Write(*probe), "<order><b>1</b></order>") << "a text that is no XML touches nothing";
    EXPECT_THROW(probe->FromXml("<order><a>2</a><c/></order>", ctx), CZvException);
    EXPECT_EQ(Write(*probe), "<order><a>2</a></order>");
}

TEST(WritingFailure, OfAPropertyOrAttributeIsWrapped) {
    Model model;
    model.elements = {Prim<CElementInfoSeqPrimOpt>("price", 0)};
    model.attributes = {Attribute("a", 1, false)};
    model.Finish();
    CSmartPtr<Probe> const probe(new Probe(model));
    EXPECT_EQ(WriteFailure(*probe),
              "Failed to convert attributes to XML\nInvalid Type 0 to convert to string");
    probe->properties[1].SetI4(1);
    probe->refused = 0;
    EXPECT_EQ(WriteFailure(*probe), "Failed to get the property value for [price].\nThe property refuses");
    probe->refused = 1;
    EXPECT_EQ(WriteFailure(*probe), "Failed to convert attributes to XML\n"
                                    "Failed to get the property value for [a].\nThe property refuses");
}

TEST(Failure, OfAGroupTypeOutOfRange) {
    OrderOf model(static_cast<XmlElementGroupType>(7), {});
    CSmartPtr<Probe> const probe(new Probe(model));
    EXPECT_EQ(WriteFailure(*probe), "Unknown XML Group Type");
    EXPECT_EQ(ReadFailure<CZvValidationException>(*probe, "<order/>"), Failed("Unknown Group Type"));
}

TEST(Failure, OfAFacetComesOnWritingOnly) {
    CPrimitiveRestrictions small;
    small.maxInclusive = "5";
    OrderOf model({new CElementInfoSeqPrimMnd("a", "", 0, false, ItemType_i4, nullptr,
                                              CWhitespaceUtils::WhitespaceRule_Collapse, small, "9")});
    CSmartPtr<Probe> const probe(new Probe(model));
    EXPECT_NO_THROW(probe->FromXml("<order><a>6</a></order>", ctx));
    EXPECT_EQ(WriteFailure(*probe), "Invalid Value for a [6]");
    // The default is not tested.
    probe->properties[0].SetI4(9);
    EXPECT_EQ(Write(*probe), "<order><a/></order>");
}

TEST(Failure, OfATypeThatHasNoFacets) {
    OrderOf model({new CElementInfoSeqPrimMnd("a", "", 0, false, ItemType_char, nullptr,
                                              CWhitespaceUtils::WhitespaceRule_None, CPrimitiveRestrictions(),
                                              nullptr)});
    EXPECT_EQ(Outcome(model, "<order><a>x</a></order>"),
              "Failed to convert the element [order] to XML\nUnknown type [char].");
}

} // namespace
