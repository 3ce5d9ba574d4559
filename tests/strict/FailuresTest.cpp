// All failures of one reading.
#include "tests/driver/Reading.h"
#include "tests/support/TypedCols.h"

using namespace entries;

namespace {

Model* s_item = nullptr;

CSmartPtr<CXmlObjectBase> MakeItem(int, char const*) {
    return new Probe(*s_item);
}

// An order of a, items with a mandatory n, one item "last", c and z.
struct Orders {
    Orders() {
        item.name = "item";
        item.elements = {Prim<CElementInfoSeqPrimMnd>("n", 0), Prim<CElementInfoSeqPrimOpt>("m", 1)};
        item.Finish();
        s_item = &item;
        order.elements = {Prim<CElementInfoSeqPrimOpt>("a", 0),
                          new CElementInfoSeqClsCol("item", "", 1, XmlElementType_Element),
                          new CElementInfoSeqClsOpt("last", "", 2, XmlElementType_Element, MakeItem, 0),
                          new CElementInfoSeqPrimCol("c", "", 3), Prim<CElementInfoSeqPrimOpt>("z", 4)};
        order.attributes = {Attribute("k", 5, true), Attribute("l", 6, false)};
        order.init = [this](Probe& probe) {
            probe.properties[1].SetXmlCollection(new ProbeCol(item, 0, -1));
            probe.properties[3].SetXmlCollection(NewCol<Ci4Col>({"c"}));
        };
        order.Finish();
    }
    Model item;
    Model order;
};

std::string Thrown(Probe& probe, char const* xml, CSerializationContext const& ctx) {
    try {
        probe.FromXml(xml, ctx);
        return "nothing";
    } catch (CZvException const& failure) {
        return typeid(failure).name() + (": " + failure.GetFullMessage());
    }
}

TEST(Failures, AreAllFoundInOneReading) {
    Orders models;
    CSmartPtr<Probe> const probe(new Probe(models.order));
    CSerializationContext ctx;
    ctx.SetKeepPositions(true);
    ctx.SetFailureLimit(100);
    std::string const message = Thrown(*probe, R"(<order k='x' u='1'>
<a>y</a>
<item><n>1</n></item><item><m>2</m></item><item><n>3</n><w/></item>
<last><n>t</n><m>4</m></last>
<c>1</c><c>q</c><c>3</c>
<z>5</z></order>)",
                                       ctx);
    std::vector<std::string> found;
    for (CReadFailure const& failure : ctx.GetFailures())
        found.push_back(failure.path + ' ' + std::to_string(failure.line) + ':' +
                        std::to_string(failure.column) + ' ' + failure.message.substr(0, 30));
    EXPECT_THAT(found, testing::ElementsAreArray({
                           "/order/@k 1:8 The value [x] can not be conve",
                           "/order/@u 1:14 Unexpected Attribute found.\nPa",
                           "/order 1:1 Failed to find the required At",
                           "/order/a 2:1 The value [y] can not be conve",
                           "/order/item[2] 3:22 Failed to find the required ch",
                           "/order/item[3] 3:43 Failed read all the elements h",
                           "/order/last/n 4:7 The value [t] can not be conve",
                           "/order/c[2] 5:9 The value [q] can not be conve",
                       }));
    // What has not failed has been read.
    EXPECT_EQ(static_cast<Ci4Col*>(probe->properties[3].FindXmlCollection())->GetCount(), 2);
    EXPECT_EQ(probe->properties[4].GetI4(), 5);
    EXPECT_EQ(probe->ObjectAt(2)->properties[1].GetI4(), 4);
    EXPECT_THAT(message, testing::HasSubstr("The value [x] can not be converted to a i4"));
}

// The first failure is the one that reading ends with when nobody collects.
TEST(Failures, EndReadingWithTheFirst) {
    Orders models;
    for (char const* const xml :
         {"<order l='1'><a>x</a><z>y</z></order>", "<order l='1'><item><n>x</n></item><z>y</z></order>",
          "<order l='1'><item/><z>y</z></order>", "<order l='1'><z>1</z><w/></order>",
          "<order><z>y</z></order>", "<order l='1' u='1'><a>x</a></order>", "<order l='1'><c>x</c></order>",
          "<order l='1'/>"}) {
        CSmartPtr<Probe> const probe(new Probe(models.order));
        std::string const expected = Thrown(*probe, xml, CSerializationContext());
        for (std::size_t limit : {1U, 2U, 9U}) {
            for (bool const strict : {false, true}) {
                CSerializationContext ctx;
                ctx.SetFailureLimit(limit);
                ctx.SetStrict(strict);
                EXPECT_EQ(Thrown(*probe, xml, ctx), expected) << xml;
                EXPECT_EQ(ctx.GetFailures().empty(), expected == "nothing");
                EXPECT_LE(ctx.GetFailures().size(), limit);
            }
        }
    }
}

TEST(Failures, OfJsonAreFoundInAnyMode) {
    Orders models;
    for (bool const strict : {false, true}) {
        CSmartPtr<Probe> const probe(new Probe(models.order));
        CSerializationContext ctx;
        ctx.SetFailureLimit(9);
        ctx.SetKeepPositions(true);
        ctx.SetStrict(strict);
        EXPECT_THROW(probe->FromJson(R"({"order": {"@l": 1, "a": "x", "c": [1, "y"], "z": 5}})", ctx),
                     CZvException);
        ASSERT_EQ(ctx.GetFailures().size(), 2u);
        EXPECT_EQ(ctx.GetFailures()[0].column, 26u);
        EXPECT_EQ(ctx.GetFailures()[1].column, 40u);
        EXPECT_EQ(probe->properties[4].GetI4(), 5);
    }
}

TEST(Failures, BelongToTheLastReading) {
    Orders models;
    CSmartPtr<Probe> const probe(new Probe(models.order));
    CSerializationContext ctx;
    ctx.SetFailureLimit(9);
    Thrown(*probe, "<order><a>x</a></order>", ctx);
    EXPECT_EQ(ctx.GetFailures().size(), 2u);
    EXPECT_EQ(ctx.GetFailures()[0].line, 0u);
    probe->FromXml("<order l='1'/>", ctx);
    EXPECT_TRUE(ctx.GetFailures().empty());
}

} // namespace
