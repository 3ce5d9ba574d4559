// The collections of values, all 25 of them by one table: texts both ways, facets, events, failures.
#include "tests/support/LocalEncoding.h"
#include "tests/support/MessageOf.h"
#include "tests/support/QuietWriter.h"
#include "tests/support/Slots.h"
#include "tests/support/TypedCols.h"
#include "zvxmllib/context/SerializationContext.h"
#include "zvxmllib/document/XmlDocument.h"
#include "zvxmllib/document/XmlElement.h"

#include <gmock/gmock.h>

#include <functional>
#include <vector>

using namespace ZvXmlLib16;
using testing::ElementsAre;

namespace {

CSerializationContext const ctx;

// Writes down what a collection writes: each element with the type of its value.
class Record : public QuietWriter {
public:
    void WriteElementStart(std::string const& name, std::string const& ns) override {
        text += ns + ':' + name;
    }
    void WriteElementValue(std::string const& value, ItemType type, bool isDefault) override {
        text += '=' + value + '#' + std::to_string(type) + (isDefault ? "default" : "");
    }
    void WriteElementEnd() override { text += ' '; }

    std::string text;
};

// What the library does with a collection that a bound object holds.
class Access : public CXmlObjectBase {
public:
    static std::string Write(CXmlObjectBase const& collection, CSerializationContext const& context = ctx) {
        Record record;
        ToXml_Int(&collection, &record, false, "", context, false);
        return record.text;
    }

    // Reads the children of an element; the name of the first that is left over, "-" for none.
    static std::string Read(CXmlObjectBase& collection, std::string const& children,
                            CSerializationContext const& context = ctx) {
        CXmlDocument document(context);
        document.LoadXml(("<r>" + children + "</r>").c_str());
        CXmlElement* const root = document.GetDocumentElement();
        CXmlElement const* const left = FromXml_Int(&collection, root, root->GetFirstElement(), context);
        return left == nullptr ? "-" : left->GetLocalName();
    }

    static void ReadTexts(CXmlObjectBase& collection, std::vector<std::string> const& texts) {
        for (std::string const& text : texts)
            Read(collection, "<v>" + text + "</v>");
    }
};

// The events as digits, each with the index that it is about, and the count at its time.
class Log : public IEventSink {
public:
    std::vector<std::string> events;
    std::function<void(void*)> added = [](void*) {};

    void OnEvent(CXmlObjectBase* sender, MsgType type, void* data) override {
        std::string const count = std::to_string(static_cast<CXmlCollectionBase&>(*sender).GetCount());
        std::string index;
        if (type == MsgCollectionRemove || type == MsgCollectionRemoveComplete)
            index = data == nullptr ? "null" : std::to_string(*static_cast<int*>(data));
        if (type == MsgCollectionAdd || type == MsgCollectionAddComplete)
            added(data);
        events.push_back(std::to_string(type) + ':' + index + '/' + count);
    }
};

// A class made of a member of the family, which writes down what is asked of it.
template <class Col>
class Derived : public Col {
public:
    using Col::Col;

    std::string calls;

    void Remove(int index) override {
        calls += "R" + std::to_string(index);
        Col::Remove(index);
    }

protected:
    void AddFromString(std::string value) override {
        calls += "A[" + value + "]";
        Col::AddFromString(std::move(value));
    }
};

template <class Col>
using ValueOf = decltype(std::declval<Col&>().Item(0));

template <class Col>
CSmartPtr<Col> Filled(std::vector<std::string> const& texts, ColSetup const& setup = {}) {
    CSmartPtr<Col> collection(NewCol<Col>(setup));
    Access::ReadTexts(*collection, texts);
    return collection;
}

// `before` and `after` are two values that differ.
template <class Col>
void ExpectEventsOfAdding(std::string const& before, std::string const& after) {
    CSmartPtr<Col> const collection = Filled<Col>({before, after});
    ValueOf<Col> const value = collection->Item(1);
    Log log;
    std::vector<void*> addresses;
    log.added = [&](void* data) {
        EXPECT_TRUE(*static_cast<ValueOf<Col>*>(data) == value);
        addresses.push_back(data);
    };
    collection->AddEventListener(&log);
    collection->AddAt(0, value);
    EXPECT_THAT(log.events, ElementsAre("1:/2", "2:/3", "0:/3"));
    EXPECT_EQ(addresses.front(), addresses.back());
    EXPECT_TRUE(collection->Item(0) == value && !(collection->Item(1) == value));
    log.events.clear();
    collection->Add(value);
    collection->AddAt(4, value);
    EXPECT_THAT(log.events, ElementsAre("1:/3", "2:/4", "0:/4", "1:/4", "2:/5", "0:/5"));
    EXPECT_EQ(collection->end() - collection->begin(), 5);
    EXPECT_TRUE(*(collection->end() - 1) == value);
    log.events.clear();
    Access::ReadTexts(*collection, {after});
    EXPECT_THAT(log.events, ElementsAre("1:/5", "2:/6", "0:/6"));
}

template <class Col>
void ExpectEventsOfRemoving(std::string const& before, std::string const& after) {
    CSmartPtr<Col> collection = Filled<Col>({before, before, after});
    ValueOf<Col> const last = collection->Item(2);
    Log log;
    collection->AddEventListener(&log);
    collection->Remove(1);
    EXPECT_THAT(log.events, ElementsAre("3:1/3", "4:1/2", "0:/2"));
    EXPECT_TRUE(collection->Item(1) == last) << "what was behind it has moved up";
    log.events.clear();
    collection->Clear();
    EXPECT_THAT(log.events, ElementsAre("3:0/2", "4:0/1", "0:/1", "3:0/1", "4:0/0", "0:/0"));
    log.events.clear();
    collection->Clear();
    EXPECT_THAT(log.events, ElementsAre());
    Access::ReadTexts(*collection, {after});
    log.events.clear();
    collection = nullptr;
    EXPECT_THAT(log.events, ElementsAre()) << "its end is told to nobody";
}

template <class Col>
void ExpectEvents(std::string const& before, std::string const& after) {
    ExpectEventsOfAdding<Col>(before, after);
    ExpectEventsOfRemoving<Col>(before, after);
}

template <class Col>
void ExpectIndexFailures(std::string const& text) {
    CSmartPtr<Col> const collection(NewCol<Col>({}));
    auto const read = [&](int index) {
        return MessageOf<CZvInvalidParamException>([&] { collection->Item(index); });
    };
    EXPECT_EQ(read(0), "Index 0 is out of range, use 0 - 0");
    Access::ReadTexts(*collection, {text});
    EXPECT_EQ(read(-1), "Index -1 is out of range, use 0 - 1");
    EXPECT_EQ(read(1), "Index 1 is out of range, use 0 - 1");
    Log log;
    collection->AddEventListener(&log);
    for (int const index : {-1, 1})
        EXPECT_EQ(MessageOf<CZvInvalidParamException>([&] { collection->Remove(index); }),
                  "Index " + std::to_string(index) + " is out of range, use 0 - 1");
    for (int const index : {-1, 2})
        EXPECT_EQ(MessageOf<CZvInvalidParamException>([&] { collection->AddAt(index, collection->Item(0)); }),
                  "Index out of range");
    EXPECT_THAT(log.events, ElementsAre("3:null/1", "3:1/1", "1:/1", "1:/1"))
        << "told before it is looked at";
    EXPECT_EQ(collection->GetCount(), 1);
}

template <class Col>
void ExpectReplacedOperations(std::string const& text) {
    CSmartPtr<Derived<Col>> const derived = Filled<Derived<Col>>({text, text});
    std::string const printed = Access::Write(*derived);
    derived->Clear();
    EXPECT_EQ(derived->calls, "A[" + text + "]A[" + text + "]R0R0");
    EXPECT_EQ(derived->GetCount(), 0);
    EXPECT_EQ(printed, Access::Write(*Filled<Col>({text, text}))) << "the short way writes the same";
}

struct Row {
    char const* className;
    ItemType type;
    std::string text; // and another one
    std::string other;
    std::string printed;
    std::string garbage;                                   // no value of the type, empty if all texts are
    std::function<void(CPrimitiveRestrictions&)> restrict; // admits the text, and not the other
    std::string refused;                                   // as the message shows the other
    std::function<CXmlTypeCollection*(ColSetup const&)> make;
    void (*expectEvents)(std::string const&, std::string const&);
    void (*expectIndexFailures)(std::string const&);
    void (*expectReplacedOperations)(std::string const&);
};

template <class Col>
Row RowOf(char const* className, ItemType type, std::string text, std::string printed, std::string other,
          std::string refused, std::function<void(CPrimitiveRestrictions&)> restrict, std::string garbage) {
    return {className,
            type,
            std::move(text),
            std::move(other),
            std::move(printed),
            std::move(garbage),
            std::move(restrict),
            std::move(refused),
            NewCol<Col>,
            ExpectEvents<Col>,
            ExpectIndexFailures<Col>,
            ExpectReplacedOperations<Col>};
}

// Facets in the order in which they are looked at, one for each class.
std::function<void(CPrimitiveRestrictions&)> Bound(std::string CPrimitiveRestrictions::*facet,
                                                   char const* bound) {
    return [=](CPrimitiveRestrictions& facets) { facets.*facet = bound; };
}
std::function<void(CPrimitiveRestrictions&)> Limit(std::int32_t CPrimitiveRestrictions::*facet,
                                                   std::int32_t limit) {
    return [=](CPrimitiveRestrictions& facets) { facets.*facet = limit; };
}

#define ZV_ROW(type, ...) RowOf<C##type##Col>("C" #type "Col", ItemType_##type, __VA_ARGS__)
std::vector<Row> const& Rows() {
    using R = CPrimitiveRestrictions;
    static std::vector<Row> const rows = {
        ZV_ROW(hexBinary, "00fF", "00FF", "ab", "AB].", Limit(&R::length, 2), "0"),
        ZV_ROW(base64Binary, "TWF\nu", "TWFu", "TWE=", "TWE=].", Limit(&R::minLength, 3), ""),
        ZV_ROW(i1, " -128 ", "-128", "+7", "7]", Bound(&R::maxInclusive, "6"), "128"),
        ZV_ROW(i2, "-32768", "-32768", "7", "7]", Bound(&R::maxExclusive, "7"), "32768"),
        ZV_ROW(i4, "10", "10", "11", "11]", Bound(&R::maxInclusive, "10"), "x"),
        ZV_ROW(i8, "-9223372036854775808", "-9223372036854775808", "7", "7].", Bound(&R::maxExclusive, "0"),
               "1 2"),
        ZV_ROW(ui1, "255", "255", "7", "7]", Bound(&R::minInclusive, "8"), "-1"),
        ZV_ROW(ui2, "65535", "65535", "7", "7]", Bound(&R::minInclusive, "8"), "70000"),
        ZV_ROW(ui4, "7", "7", "4294967295", "-1]", Limit(&R::totalDigits, 9), "4294967296"),
        ZV_ROW(ui8, "7", "7", "18446744073709551615", "18446744073709551615].", Limit(&R::totalDigits, 19),
               "-"),
        ZV_ROW(r4, "0.10000001", "0.1", "-INF", "-inf]", Bound(&R::minInclusive, "0"), "inf"),
        ZV_ROW(r8, "1234567890.12345678", "1234567890.123457", "1e999", "inf]",
               Bound(&R::maxInclusive, "1e300"), "1,5"),
        ZV_ROW(duration, "P1Y2M3DT4H5M6.70S", "P1Y2M3DT4H5M6.7S", "P1D", "P1D].",
               Bound(&R::minExclusive, "P1D"), "P"),
        ZV_ROW(yearMonth, "2026-11Z", "2026-11Z", "2026-10Z", "2026-10Z].",
               Bound(&R::minInclusive, "2026-11Z"), "2026-13"),
        ZV_ROW(monthDay, "--11-23", "--11-23", "--02-01", "--02-01].", Bound(&R::minInclusive, "--03-01"),
               "--02-31"),
        ZV_ROW(year, "2026+01:00", "2026", "1999", "1999]", Bound(&R::minInclusive, "2000"), "20x6"),
        ZV_ROW(month, "--07", "--07", "--12", "12]", Bound(&R::maxInclusive, "--11"), "--13"),
        ZV_ROW(day, "---07Z", "---07", "---31", "31]", Bound(&R::maxExclusive, "---31"), "---32"),
        ZV_ROW(date, "2026-11-23-05:00", "2026-11-23-05:00", "2027-01-01", "2027-01-01].",
               Bound(&R::maxExclusive, "2027-01-01"), "2026-02-30"),
        ZV_ROW(datetime, "2026-11-23T01:02:03.50Z", "2026-11-23T01:02:03.5Z", "2026-11-24T00:00:00Z",
               "2026-11-24T00:00:00Z].", Bound(&R::maxInclusive, "2026-11-23T23:59:59Z"), "2026-11-23"),
        ZV_ROW(time, "00:00:00", "00:00:00", "12:00:01", "12:00:01].", Bound(&R::maxInclusive, "12:00:00"),
               "24:61:00"),
        ZV_ROW(string, " a \n string that is longer than its object",
               "a string that is longer than its object", "b", "b].", Limit(&R::minLength, 2), ""),
        ZV_ROW(boolean, "TRUE", "true", "0", "", {}, "yes"),
        ZV_ROW(decimal, "+12345678901234567890.50", "12345678901234567890.5", "-0.25", "-0.25].",
               Limit(&R::fractionDigits, 1), "1x"),
        ZV_ROW(integer, "-00123456789012345678901234567890", "-123456789012345678901234567890", "7", "7].",
               Bound(&R::maxInclusive, "-1"), "1x")};
    return rows;
}

bool IsDate(ItemType type) {
    return type == ItemType_yearMonth || type == ItemType_monthDay || type == ItemType_date ||
           type == ItemType_datetime || type == ItemType_time;
}

class TypedCollection : public testing::TestWithParam<Row> {};

TEST_P(TypedCollection, WritesWhatItReads) {
    Row const& row = GetParam();
    CSmartPtr<CXmlTypeCollection> const collection(row.make({"v", "u"}));
    EXPECT_EQ(Access::Write(*collection), "");
    EXPECT_EQ(Access::Read(*collection, "<v xmlns='u' a='1'><v/><![CDATA[" + row.text + "]]></v>"), "-");
    EXPECT_EQ(Access::Read(*collection, "<v xmlns='w'/>"), "v");
    EXPECT_EQ(Access::Read(*collection, "<u:v xmlns:u='u'>" + row.other + "</u:v><w/><v xmlns='u'/>"), "w");
    ASSERT_EQ(collection->GetCount(), 2);
    // The date family shares its writing, type included.
    ItemType const type = IsDate(row.type) ? ItemType_datetime : row.type;
    EXPECT_THAT(Access::Write(*collection),
                testing::StartsWith("u:v=" + row.printed + "#" + std::to_string(type) + " u:v="));
}

TEST_P(TypedCollection, HoldsNothingThatItsTypeForbids) {
    Row const& row = GetParam();
    ColSetup setup;
    if (row.restrict)
        row.restrict(setup.facets);
    CSmartPtr<CXmlTypeCollection> const collection(row.make(setup));
    Access::ReadTexts(*collection, {row.text});
    Log log;
    collection->AddEventListener(&log);
    if (!row.garbage.empty()) {
        EXPECT_NE(MessageOf<CZvException>([&] { Access::ReadTexts(*collection, {row.garbage}); }),
                  "nothing was thrown");
    }
    EXPECT_THAT(log.events, ElementsAre()) << "a text is read before anybody is told";
    auto const readOther = [&] {
        return MessageOf<CZvException>([&] { Access::ReadTexts(*collection, {row.other}); });
    };
    if (!row.restrict) {
        EXPECT_EQ(readOther(), "nothing was thrown");
        return;
    }
    EXPECT_EQ(readOther(), "Invalid Value for v [" + row.refused);
    EXPECT_EQ(log.events.size(), IsDate(row.type) ? 0U : 1U) << "dates are looked at first";
    collection->RemoveEventListener(&log);
    EXPECT_EQ(readOther(), "Invalid Value for v [" + row.refused) << "without a listener";
    EXPECT_EQ(collection->GetCount(), 1);
}

TEST_P(TypedCollection, TellsEachChangeBeforeAndAfter) {
    GetParam().expectEvents(GetParam().other, GetParam().text);
}

TEST_P(TypedCollection, RefusesPlacesThatItDoesNotHave) {
    GetParam().expectIndexFailures(GetParam().text);
}

TEST_P(TypedCollection, CallsWhatADerivedClassReplaces) {
    GetParam().expectReplacedOperations(GetParam().text);
}

TEST_P(TypedCollection, IsCountedUnderItsName) {
    CSmartPtr<CXmlTypeCollection> const collection(GetParam().make({}));
    EXPECT_THAT(CInstanceMonitor::DumpState(),
                testing::HasSubstr("--> " + std::string(GetParam().className) + " = 1/"));
}

INSTANTIATE_TEST_SUITE_P(Each, TypedCollection, testing::ValuesIn(Rows()),
                         [](auto const& instance) { return std::string(instance.param.className); });

template <class Col>
std::string WrittenBy(char const* format, char const* text) {
    ColSetup setup;
    setup.format = format;
    return Access::Write(*Filled<Col>({text}, setup));
}

TEST(TypedCollections, WriteByTheirFormat) {
    EXPECT_EQ(WrittenBy<Cr4Col>("%06.2f", "1.5"), ":v=001.50#11 ");
    EXPECT_EQ(WrittenBy<Cr8Col>("%06.2f", "-2.345"), ":v=-02.35#12 ");
    EXPECT_EQ(WrittenBy<Ci4Col>("%06.2f", "7"), ":v=7#5 ");
    EXPECT_EQ(WrittenBy<CdecimalCol>("2", "12345678901234567890.125"), ":v=12345678901234567890.13#25 ");
    EXPECT_EQ(WrittenBy<Cr8Col>("", "0.1"), ":v=0.1#12 ");
    EXPECT_EQ(WrittenBy<CdecimalCol>("", "0.125"), ":v=0.125#25 ");
}

TEST(TypedCollections, KeepStringsAsTheirRuleAndTheDocumentLeaveThem) {
    ColSetup setup;
    setup.rule = CWhitespaceUtils::WhitespaceRule_Preserve;
    CSmartPtr<CstringCol> const collection(NewCol<CstringCol>(setup));
    CSerializationContext keeping;
    keeping.SetStripCDATA(false);
    Access::Read(*collection, "<v> a <![CDATA[b]]> </v>", keeping);
    EXPECT_EQ(collection->Item(0), " a <![CDATA[b]]> ");
    collection->Add("c");
    *collection->begin() = "changed in place";
    EXPECT_EQ(Access::Write(*collection), ":v=changed in place#23 :v=c#23 ");
}

// Facets are shared by collections that have the same.
TEST(TypedCollections, KeepTheirOwnFacets) {
    struct Refusal {
        ColSetup setup;
        char const* refused;
    };
    std::vector<Refusal> rows(5);
    rows[0].setup.facets.pattern = "[^a]*";
    rows[0].refused = "a";
    rows[1].setup.facets.pattern = "[^b]*";
    rows[1].refused = "b";
    rows[2].setup.facets.minLength = 1;
    rows[2].refused = "";
    rows[3].setup.facets.maxLength = 2;
    rows[3].refused = "ccc";
    rows[4].setup.facets.maxLength = 3;
    rows[4].refused = "dddd";
    for (int round = 0; round < 3; ++round) {
        for (Refusal const& row : rows) {
            CSmartPtr<CstringCol> const collection(NewCol<CstringCol>(row.setup));
            EXPECT_THROW(collection->Add(row.refused), CZvException) << row.refused;
            EXPECT_NO_THROW(collection->Add("x")) << row.refused;
        }
        for (int other = 0; other < 20; ++other) { // more than are remembered
            ColSetup setup;
            setup.facets.length = other;
            CSmartPtr<CstringCol> const collection(NewCol<CstringCol>(setup));
            EXPECT_NO_THROW(collection->Add(std::string(static_cast<std::size_t>(other), 'x')));
            EXPECT_THROW(collection->Add(std::string(static_cast<std::size_t>(other) + 1, 'x')),
                         CZvException);
        }
    }
    // Bounds of one text, as a number and as a date.
    ColSetup year;
    year.facets.minInclusive = "2000";
    CSmartPtr<Ci4Col> const numbers(NewCol<Ci4Col>(year));
    CSmartPtr<CyearCol> const years(NewCol<CyearCol>(year));
    Access::ReadTexts(*numbers, {"2000"});
    Access::ReadTexts(*years, {"2000Z"});
    EXPECT_ANY_THROW(Access::ReadTexts(*numbers, {"1999"}));
    EXPECT_ANY_THROW(Access::ReadTexts(*years, {"1999Z"}));
}

TEST(TypedCollections, AreStrictEachForItself) {
    LocalEncoding const local(65001);
    ColSetup setup;
    setup.facets.maxLength = 1; // character, or byte
    CSmartPtr<CstringCol> const strict(NewCol<CstringCol>(setup));
    strict->SetStrict(true);
    CSmartPtr<CstringCol> const usual(NewCol<CstringCol>(setup));
    EXPECT_NO_THROW(strict->Add("\xC3\xA4"));
    EXPECT_THROW(usual->Add("\xC3\xA4"), CZvException);
    strict->SetStrict(false);
    EXPECT_THROW(strict->Add("\xC3\xA4"), CZvException);
}

TEST(TypedCollections, TakeTheirOwnValuesAgain) {
    CSmartPtr<CintegerCol> const numbers(NewCol<CintegerCol>({}));
    numbers->Add(CBigInteger(std::string(100, '7').c_str()));
    for (int i = 0; i < 8; ++i)
        numbers->AddAt(0, *numbers->begin());
    EXPECT_EQ(numbers->Item(0).ToString(), std::string(100, '7'));
    EXPECT_EQ(numbers->Item(8), numbers->Item(0));
}

// Quadratic clearing of these would take minutes.
TEST(TypedCollections, ClearAtOnceWhatNobodyListensTo) {
    CSmartPtr<CdateCol> const dates(NewCol<CdateCol>({}));
    CSmartPtr<Ci4Col> const numbers(NewCol<Ci4Col>({}));
    CDateTime const day(2026, 11, 23);
    for (int i = 0; i < 1000000; ++i) {
        dates->Add(day);
        numbers->Add(i);
    }
    dates->Clear();
    numbers->Clear();
    EXPECT_EQ(dates->GetCount() + numbers->GetCount(), 0);
}

template <class Col>
void ExpectKind(CDateTime const& fitting, std::vector<CDateTime> const& others, char const* kind) {
    CSmartPtr<Col> const collection(NewCol<Col>({}));
    Log log;
    collection->AddEventListener(&log);
    for (CDateTime const& other : others) {
        EXPECT_EQ(MessageOf<CZvInvalidParamException>([&] { collection->AddAt(9, other); }),
                  std::string("Dates added to this collection must be of type ") + kind);
    }
    EXPECT_THAT(log.events, ElementsAre());
    collection->Add(fitting);
    EXPECT_EQ(collection->GetCount(), 1);
}

TEST(DateCollections, TakeOneKindOfDate) {
    CDateTime date, dateTime, time, monthDay, yearMonth, year;
    date.ParseXSDDate("2026-11-23");
    dateTime.ParseXSDDateTime("2026-11-23T01:02:03");
    time.ParseXSDTime("01:02:03");
    monthDay.ParseXSDDate("--11-23");
    yearMonth.ParseXSDDate("2026-11");
    year.ParseXSDDate("2026");
    ExpectKind<CdateCol>(date, {dateTime, time, monthDay, yearMonth, year, CDateTime()}, "dt_date");
    ExpectKind<CdatetimeCol>(dateTime, {date, time}, "dt_dateTime");
    ExpectKind<CtimeCol>(time, {date, dateTime}, "dt_time");
    ExpectKind<CmonthDayCol>(monthDay, {date, yearMonth}, "dt_gMonthDay");
    ExpectKind<CyearMonthCol>(yearMonth, {date, monthDay, year}, "dt_gYearMonth");
    // The text decides the kind of what is read.
    CSmartPtr<CdateCol> const dates(NewCol<CdateCol>({}));
    EXPECT_EQ(MessageOf<CZvInvalidParamException>([&] { Access::ReadTexts(*dates, {"2026-11"}); }),
              "Dates added to this collection must be of type dt_date");
}

// A collection of dates whose own operations are all replaced.
class Calls : public CdateCol {
public:
    using CdateCol::CdateCol;
    using CdateCol::ItemToString;

    std::string calls;

    void Add(CDateTime const& value) override {
        calls += 'A';
        CdateCol::Add(value);
    }
    void AddAt(int index, CDateTime const& value) override {
        calls += 'I';
        CdateCol::AddAt(index, value);
    }

protected:
    std::string ItemToString(CDateTime const& value) override {
        return "on " + CdateCol::ItemToString(value);
    }
};

TEST(DateCollections, CallTheirVirtualOperations) {
    CSmartPtr<Calls> const dates = Filled<Calls>({"2026-11-23"});
    EXPECT_EQ(dates->calls, "AI");
    EXPECT_EQ(Access::Write(*dates), ":v=on 2026-11-23#20 ");
}

class Slots : public CdateCol {
public:
    using CdateCol::AddFromString;
    using CdateCol::ItemToString;
};

TEST(TypedCollections, KeepTheOrderOfTheirOperations) {
    std::size_t const last = SlotOf(&CXmlCollectionBase::IsValidCount);
    EXPECT_EQ(SlotOf(&Slots::AddFromString), last + 1);
    EXPECT_EQ(SlotOf<void (CdatetimeBaseCol::*)(CDateTime const&)>(&CdatetimeBaseCol::Add), last + 2);
    EXPECT_EQ(SlotOf<void (CdatetimeBaseCol::*)(int, CDateTime const&)>(&CdatetimeBaseCol::AddAt), last + 3);
    EXPECT_EQ(SlotOf(&CdatetimeBaseCol::Item), last + 4);
    EXPECT_EQ(SlotOf(&Slots::ItemToString), last + 5);
}

} // namespace
