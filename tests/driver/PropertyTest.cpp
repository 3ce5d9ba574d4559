// Properties that are members, beside the same properties by number.
#include "tests/driver/Reading.h"
#include "zvxmllib/foundation/SimpleTypes.h"
#include "zvxmllib/values/dates/DateTime.h"
#include "zvxmllib/values/dates/DateTimeSpan.h"
#include "zvxmllib/values/numbers/BigInteger.h"
#include "zvxmllib/values/numbers/Decimal.h"

#include <optional>

using namespace entries;

namespace {

constexpr auto kCollapse = CWhitespaceUtils::WhitespaceRule_Collapse;

enum class Colour { kBlue, kRed };

// A member of each simple type, and an optional one.
struct Values {
#define ZV_MEMBERS(name, Policy, Name, Value, KIND, slot)                                                    \
    Value v_##name{};                                                                                        \
    std::optional<Value> o_##name;
    ZV_SIMPLE_TYPES(ZV_MEMBERS)
#undef ZV_MEMBERS
};

class Fields : public Probe {
public:
    using Probe::Probe;
    void Init() override {
        Probe::Init();
        values = Values();
        colour.reset();
        part = nullptr;
        number.reset();
        small = 0;
    }

    Values values;
    std::optional<Colour> colour;
    CSmartPtr<Probe> part;
    std::optional<long> number;
    signed char small = 0;
    ZvVariant nillable;

protected:
    ~Fields() override = default;
};

template <class Info>
CElementInfo* Typed(char const* name, CProperty const& property, ItemType type,
                    CPrimitiveRestrictions const& facets = CPrimitiveRestrictions(), bool nillable = false) {
    return new Info(name, "", property, nillable, type, nullptr,
                    type == ItemType_string ? CWhitespaceUtils::WhitespaceRule_Replace : kCollapse, facets,
                    type == ItemType_i4 ? "7" : nullptr);
}

CAttributeInfo* TypedAttribute(char const* name, CProperty const& property, ItemType type) {
    return new CAttributeInfoPrimitive(name, "", property, true, type, nullptr, kCollapse,
                                       CPrimitiveRestrictions(), type == ItemType_i4 ? "7" : nullptr);
}

// An element v and an attribute a of that type, both optional.
struct OrderOfType : Model {
    OrderOfType(ItemType itemType, CProperty const& element, CProperty const& attribute,
                CPrimitiveRestrictions const& facets = CPrimitiveRestrictions()) {
        elements = {Typed<CElementInfoSeqPrimOpt>("v", element, itemType, facets)};
        attributes = {TypedAttribute("a", attribute, itemType)};
        Finish();
    }
};

template <class Call>
std::string TextOrFailure(Call call) {
    try {
        return call();
    } catch (CZvException const& failure) {
        return failure.GetFullMessage();
    }
}

// What is written again in both formats, or the failures.
std::string Outcomes(Model& model, std::string const& xml, bool isStrict) {
    CSerializationContext ctx;
    ctx.SetStrict(isStrict);
    CSmartPtr<Fields> const fields(new Fields(model));
    return TextOrFailure([&] {
        fields->FromXml(xml.c_str(), ctx);
        return fields->ToXml(false, true, EOLType_LF, ctx) +
               TextOrFailure([&] { return fields->ToJson(true, EOLType_LF, ctx); });
    });
}

TEST(Properties, ThatAreMembersReadAndWriteWhatNumbersDo) {
    struct {
        ItemType type;
        CProperty optional;
        CProperty value;
    } const rows[] = {
#define ZV_ROW(name, Policy, Name, Value, KIND, slot)                                                        \
    {ItemType_##name, CProperty(&Fields::values, &Values::o_##name),                                         \
     CProperty(&Fields::values, &Values::v_##name)},
        ZV_SIMPLE_TYPES(ZV_ROW)
#undef ZV_ROW
    };
    char const* const texts[] = {"1",          "1.5",
                                 "-7",         "7",
                                 " 2 ",        "a\tb",
                                 "",           "true",
                                 "0A0B",       "AQI=",
                                 "12:00:00",   "P1D",
                                 "2026-11-24", "2026-11-24T10:00:00.5Z",
                                 "2026-11",    "--11-24",
                                 "2026",       "--11",
                                 "---24",      "99999999999999999999",
                                 "1e400",      "x"};
    CPrimitiveRestrictions facets;
    facets.maxLength = 3;
    for (auto const& row : rows) {
        for (bool const hasFacets : {false, true}) {
            CPrimitiveRestrictions const& used = hasFacets ? facets : CPrimitiveRestrictions();
            OrderOfType byNumber(row.type, 0, 1, used);
            OrderOfType byOptional(row.type, row.optional, row.value, used);
            for (std::string const text : texts) {
                for (std::string const& xml : {"<order a='" + text + "'><v>" + text + "</v></order>",
                                               "<order a='" + text + "'><v b='1'>" + text + "</v></order>"}) {
                    for (bool const isStrict : {false, true})
                        EXPECT_EQ(Outcomes(byOptional, xml, isStrict), Outcomes(byNumber, xml, isStrict))
                            << xml << row.type;
                }
            }
            OrderOfType byValue(row.type, row.value, row.optional, used);
            // A plain member is always there. XML has no text for the character 0.
            if (row.type != ItemType_char) {
                EXPECT_NE(Outcomes(byValue, "<order/>", false).find("<v"), std::string::npos);
            }
            EXPECT_EQ(Outcomes(byOptional, "<order a='1'/>", false).find("<v"), std::string::npos);
        }
    }
}

TEST(Properties, ThatAreMembersMayBeOfOtherKinds) {
    OrderOf part({Prim<CElementInfoSeqPrimMnd>("n", 0)});
    static Model* s_partOfFields = nullptr;
    s_partOfFields = &part;
    OrderOf order({new CElementInfoSeqEnumOpt("colour", "", &Fields::colour, false, ColourToText,
                                              TextToColour, nullptr),
                   new CElementInfoSeqClsOpt(
                       "part", "", &Fields::part, XmlElementType_Element,
                       [](int, char const* name) {
                           CSmartPtr<Probe> const made(new Probe(*s_partOfFields));
                           made->SetElementName(name);
                           return CSmartPtr<CXmlObjectBase>(static_cast<Probe*>(made));
                       },
                       0),
                   Typed<CElementInfoSeqPrimOpt>("number", &Fields::number,
                                                 sizeof(long) == 8 ? ItemType_i8 : ItemType_i4),
                   Typed<CElementInfoSeqPrimMnd>("small", &Fields::small, ItemType_i1),
                   Typed<CElementInfoSeqPrimOpt>("nil", &Fields::nillable, ItemType_i4, {}, true)});
    for (std::string const xml :
         {"<order><colour>red</colour><part><n>1</n></part><number>-5</number><small>-1</small></order>",
          "<order><small>3</small></order>",
          "<order><small>3</small><nil xmlns:AA=\"http://www.w3.org/2001/XMLSchema-instance\" "
          "AA:nil=\"true\"/></order>"}) {
        CSmartPtr<Fields> const fields(new Fields(order));
        fields->FromXml(xml.c_str(), CSerializationContext());
        EXPECT_EQ(Write(*fields), xml);
    }
    EXPECT_THAT(Outcomes(order, "<order><colour>green</colour><small>3</small></order>", false),
                testing::HasSubstr("no colour: green"));
}

// The text of an element with attributes; white space is collapsed where reading passes text.
TEST(Properties, ThatAreMembersHoldSimpleContent) {
    for (bool const isText : {false, true}) {
        Model model;
        model.attributes = {TypedAttribute("a", CProperty(&Fields::values, &Values::o_i4), ItemType_i4)};
        model.Finish();
        model.info = std::make_unique<CParentElementInfo>(
            XmlElementGroupType_Sequence, XmlElementType_Element, "order", "", true, false,
            CProperty(&Fields::values, &Values::v_boolean), ItemType_boolean, nullptr, isText);
        CSmartPtr<Fields> const fields(new Fields(model));
        fields->FromXml("<order a='1'>true</order>", CSerializationContext());
        EXPECT_EQ(Write(*fields), "<order a=\"1\">true</order>");
        EXPECT_EQ(Outcomes(model, "<order> true\n</order>", false).find(">true<") != std::string::npos,
                  isText);
        EXPECT_THAT(Outcomes(model, "<order> true\n</order>", true), testing::HasSubstr(">true<"));
    }
}

TEST(Properties, ThatAreMembersHaveToFit) {
    auto const fault = [](CProperty const& property, ItemType type, bool nillable) {
        return MessageOf<CZvInvalidParamException>([&] {
            std::unique_ptr<CElementInfo> const entry(
                Typed<CElementInfoSeqPrimOpt>("v", property, type, {}, nillable));
        });
    };
    EXPECT_EQ(fault(&Fields::number, ItemType_string, false),
              "The member of [v] does not hold values of its type.");
    EXPECT_EQ(fault(&Fields::number, ItemType_i8, true),
              "The member of the nillable [v] has to be a ZvVariant.");
    EXPECT_EQ(MessageOf<CZvInvalidParamException>(
                  [] { CElementInfoSeqPrimCol const entry("c", "", &Fields::number); }),
              "The member of [c] does not hold values of its type.");

    // A class that leaves AccessProperty out has no numbers.
    class NoNumbers : public Fields {
    public:
        using Fields::Fields;
        void AccessProperty(int index, bool read, ZvVariant& value) override {
            CXmlGeneratedClass::AccessProperty(index, read, value);
        }
    };
    OrderOf order({Prim<CElementInfoSeqPrimOpt>("n", 3)});
    CSmartPtr<NoNumbers> const object(new NoNumbers(order));
    EXPECT_THAT(ReadFailure(*object, "<order><n>1</n></order>"),
                testing::HasSubstr("The class has no property of the number 3."));
}

} // namespace
