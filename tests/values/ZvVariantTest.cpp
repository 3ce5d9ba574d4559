// The states of the value carrier, what it owns and what it shares.
#include "zvxmllib/values/variant/ZvVariant.h"

#include "tests/support/Vectors.h"
#include "tests/values/ReadText.h"
#include "zvxmllib/binding/XmlCollectionBase.h"
#include "zvxmllib/binding/XmlObjectBase.h"
#include "zvxmllib/foundation/Assert.h"
#include "zvxmllib/values/dates/DateTimeSpan.h"
#include "zvxmllib/values/numbers/Decimal.h"

#include <gmock/gmock.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

using namespace ZvXmlLib16;
using zvtest::Failure;

namespace {

int probesAlive = 0;

// A bound object that does nothing but hold a variant and be counted.
class Probe : public CXmlObjectBase {
public:
    Probe() { ++probesAlive; }

    CXmlObjectBase* GetBase() override { return this; }
    std::string GetNamespace() override { return {}; }

    ZvVariant m_value;

protected:
    ~Probe() override { --probesAlive; }
    std::string GetTargetNamespace() override { return {}; }
    void ToXml_Int(CXmlWriter*, bool, char const*, CSerializationContext const&, bool) const override {}
    CXmlElement* FromXml_Int(CXmlElement*, CXmlElement* current, CSerializationContext const&,
                             bool) override {
        return current;
    }
};

class ProbeCollection : public CXmlCollectionBase {
public:
    ProbeCollection() { ++probesAlive; }

    int GetCount() const override { return 0; }
    void Clear() override {}
    void Remove(int) override {}

protected:
    ~ProbeCollection() override { --probesAlive; }
    void ToXml_Int(CXmlWriter*, bool, char const*, CSerializationContext const&, bool) const override {}
    CXmlElement* FromXml_Int(CXmlElement*, CXmlElement* current, CSerializationContext const&,
                             bool) override {
        return current;
    }
};

// One value of each kind that the variant carries.
std::vector<std::pair<ItemType, std::string>> const kValues = [] {
    std::vector<std::pair<ItemType, std::string>> values;
    for (auto const& row : Vectors("conversions.txt", "a value of each type"))
        values.emplace_back(zvtest::TypeNamed(row[0]), row[1]);
    return values;
}();

ZvVariant Make(ItemType type, std::string const& text) {
    ZvVariant value;
    value.FromString(text, type, CWhitespaceUtils::WhitespaceRule_None);
    return value;
}

std::string FailureOf(std::function<void()> const& action) {
    try {
        action();
        return "no failure";
    } catch (CZvException const& failure) {
        return Failure(failure);
    }
}

std::vector<std::string> assertions;

// Collects the texts of failed assertions, and lets the program go on.
class AssertionLog {
public:
    AssertionLog()
        : m_before(SetAssertionHandler(
              [](char const* condition, char const*, int) { assertions.emplace_back(condition); })) {
        assertions.clear();
    }
    ~AssertionLog() { SetAssertionHandler(m_before); }

private:
    AssertionHandler m_before;
};

} // namespace

TEST(ZvVariant, CopiesAndMovesEachKindOfValue) {
    for (auto const& [type, text] : kValues) {
        for (auto const& [oldType, oldText] : kValues) {
            ZvVariant const source = Make(type, text);
            ZvVariant copy = Make(oldType, oldText);
            copy = source;
            EXPECT_EQ(copy.GetTypeAsEnum(), type);
            EXPECT_EQ(copy.ToString(nullptr), text);
            ZvVariant moved = Make(oldType, oldText);
            moved = std::move(copy);
            EXPECT_EQ(moved.GetTypeAsEnum(), type);
            EXPECT_EQ(moved.ToString(nullptr), text);
            EXPECT_EQ(source.ToString(nullptr), text);
        }
        ZvVariant value = Make(type, text);
        ZvVariant const& same = value;
        value = same;
        value = std::move(const_cast<ZvVariant&>(same));
        EXPECT_EQ(value.ToString(nullptr), text) << "assigned to itself";
        ZvVariant constructed(value);
        value.SetI4(1);
        EXPECT_EQ(constructed.ToString(nullptr), text);
        ZvVariant const taken(std::move(constructed));
        EXPECT_EQ(taken.ToString(nullptr), text);
        EXPECT_FALSE(constructed.IsValid()); // NOLINT(bugprone-use-after-move)
        constructed.SetString("usable");
        EXPECT_EQ(constructed.GetString(), "usable");
    }
}

TEST(ZvVariant, NilKeepsTheTypeAndNothingElse) {
    for (auto const& [type, text] : kValues) {
        ZvVariant value = Make(type, text);
        value.SetNil();
        ZvVariant const copy(value);
        for (ZvVariant const* const nil : {&std::as_const(value), &copy}) {
            EXPECT_EQ(nil->GetTypeAsEnum(), type);
            EXPECT_TRUE(nil->IsNil());
            EXPECT_TRUE(nil->IsValid());
            EXPECT_EQ(nil->GetText(), "");
        }
        value.FromString(text, type, CWhitespaceUtils::WhitespaceRule_None);
        EXPECT_FALSE(value.IsNil());
        EXPECT_EQ(value.ToString(nullptr), text);
        value = copy;
        EXPECT_TRUE(value.IsNil());
        ZvVariant const moved(std::move(value));
        EXPECT_TRUE(moved.IsNil());
        EXPECT_EQ(moved.GetTypeAsEnum(), type);
        EXPECT_FALSE(value.IsValid()); // NOLINT(bugprone-use-after-move)
    }
}

TEST(ZvVariant, TextOfANilValueIsThatOfTheEmptyOne) {
    for (auto const& [type, text] :
         std::vector<std::pair<ItemType, std::string>>{{ItemType_hexBinary, ""},
                                                       {ItemType_i4, "0"},
                                                       {ItemType_r8, "0"},
                                                       {ItemType_char, std::string(1, '\0')},
                                                       {ItemType_string, ""},
                                                       {ItemType_boolean, "false"}}) {
        ZvVariant value;
        value.SetNil(type);
        EXPECT_EQ(value.ToString(nullptr), text) << type;
    }
}

TEST(ZvVariant, ANilFlagOfNoTypeStaysUntilAValueOrSetInvalid) {
    ZvVariant nil;
    nil.SetNil();
    EXPECT_TRUE(nil.IsValid());
    nil.Clear();
    EXPECT_TRUE(nil.IsNil());

    ZvVariant value(nil);
    value.SetInvalid();
    EXPECT_FALSE(value.IsValid());
    std::vector<std::function<void(ZvVariant&)>> const setters = {
        [](ZvVariant& v) { v.SetI4(1); },
        [](ZvVariant& v) { v.SetString("a"); },
        [](ZvVariant& v) { v.SetString(std::string("a")); },
        [](ZvVariant& v) { v.SetBase64Binary(CBinaryData("a")); },
        [](ZvVariant& v) { v.SetXmlObject(nullptr); },
        [](ZvVariant& v) { v.SetXmlCollection(nullptr); },
        [](ZvVariant& v) { v.FromString("1", ItemType_ui1, CWhitespaceUtils::WhitespaceRule_None); },
        [](ZvVariant& v) { v = ZvVariant(); },
    };
    for (auto const& set : setters) {
        for (ItemType const type : {ItemType_invalid, ItemType_string, ItemType_hexBinary}) {
            value.SetNil(type);
            set(value);
            EXPECT_FALSE(value.IsNil());
        }
    }
}

TEST(ZvVariant, AFailedReadingLeavesTheValue) {
    for (auto const& [type, text] : kValues) {
        ZvVariant value = Make(type, text);
        EXPECT_THROW(value.FromString("no number", ItemType_i4, CWhitespaceUtils::WhitespaceRule_None),
                     CZvInvalidValueException);
        EXPECT_EQ(value.GetTypeAsEnum(), type);
        EXPECT_EQ(value.ToString(nullptr), text);
    }
    ZvVariant nil;
    nil.SetNil(ItemType_i4);
    EXPECT_THROW(nil.FromString("x", ItemType_boolean, CWhitespaceUtils::WhitespaceRule_None), CZvException);
    EXPECT_TRUE(nil.IsNil());
    EXPECT_EQ(nil.GetTypeAsEnum(), ItemType_i4);
}

TEST(ZvVariant, NamesItsType) {
    ZvVariant value;
    for (auto const& [type, name] :
         {std::pair(ItemType_hexBinary, "hexBinary"), std::pair(ItemType_ui8, "ui8"),
          std::pair(ItemType_char, "char"), std::pair(ItemType_integer, "integer")}) {
        value.SetNil(type);
        EXPECT_EQ(value.GetType(), name);
    }
    for (std::uint32_t const unnamed : {0U, 27U, 28U, 29U}) {
        value.SetNil(static_cast<ItemType>(unnamed));
        EXPECT_EQ(FailureOf([&] { value.GetType(); }), "plain: Invalid Type " + std::to_string(unnamed));
    }
}

TEST(ZvVariant, TypesWithoutATextAreRefusedBothWays) {
    for (auto const& [number, message] : std::vector<std::pair<std::uint32_t, std::string>>{
             {0, "plain: Invalid Type 0 to convert to string"},
             {27, "plain: Invalid Type 27 to convert to string"},
             {28, "plain: Invalid Type 28 to convert to string"},
             {29, "plain: Invalid Type 29 to convert to string"}}) {
        auto const type = static_cast<ItemType>(number);
        ZvVariant value;
        value.SetNil(type);
        EXPECT_EQ(FailureOf([&] { value.ToString(nullptr); }), message);
        EXPECT_EQ(FailureOf([&] { value.FromString("1", type, CWhitespaceUtils::WhitespaceRule_None); }),
                  message);
    }
    ZvVariant object;
    object.SetXmlObject(nullptr);
    EXPECT_EQ(FailureOf([&] { object.ToString(nullptr); }), "plain: Invalid Type 27 to convert to string");
}

TEST(ZvVariant, KeepsTheKindOfDateThatItIsGiven) {
    ZvVariant value;
    value.SetDateTime(CDateTime(2026, 11, 23));
    EXPECT_EQ(value.GetTypeAsEnum(), ItemType_datetime);
    EXPECT_EQ(value.GetDateTime().GetType(), CDateTime::dt_date);
    CDateTime const* const held = value.FindDateTime();
    value.SetTime(CDateTime("2026-11-23T01:02:03"));
    EXPECT_EQ(value.FindDateTime(), held) << "assigned to, not made anew";
    EXPECT_EQ(value.GetTime().GetType(), CDateTime::dt_dateTime);
    value.SetTime(*value.FindDateTime());
    EXPECT_EQ(value.ToString(nullptr), "2026-11-23T01:02:03");
}

TEST(ZvVariant, CopiesOfNumbersAreTheirOwn) {
    ZvVariant number;
    number.SetDecimal(CDecimal("1.25"));
    ZvVariant const copy(number);
    number.SetDecimal(CDecimal("7"));
    EXPECT_EQ(copy.GetDecimal().ToString(), "1.25");
    EXPECT_EQ(copy.ToString("1"), "1.3");
    EXPECT_EQ(copy.ToString(""), "1.25");
    number.SetInteger(number.GetDecimal().ToBigInteger());
    EXPECT_EQ(number.ToString("1"), "7");
    EXPECT_EQ(number.GetInteger().ToString(), "7");
}

TEST(ZvVariant, KeepsTheRoomOfItsStringAndGivesItAway) {
    std::string const text(100, 'a');
    ZvVariant value;
    value.SetString(text);
    char const* const room = value.GetText().data();
    value.SetI4(1);
    value.SetString(std::string(90, 'b').c_str());
    EXPECT_EQ(value.GetText().data(), room);
    value.FromString(text, ItemType_string, CWhitespaceUtils::WhitespaceRule_Collapse);
    EXPECT_EQ(value.GetText().data(), room);
    std::string buffer;
    EXPECT_EQ(value.ToText(nullptr, buffer).data(), room);

    std::string const taken = value.TakeString();
    EXPECT_EQ(taken.data(), room);
    EXPECT_EQ(taken, text);
    EXPECT_EQ(value.GetString(), "");

    std::string given(100, 'c');
    char const* const givenRoom = given.data();
    value.SetString(std::move(given));
    EXPECT_EQ(value.GetText().data(), givenRoom);
    char const* const noText = nullptr;
    value.SetString(noText);
    EXPECT_EQ(value.GetString(), "");
}

TEST(ZvVariant, TakesAValueFromWhatItHolds) {
    ZvVariant value;
    value.SetString("a string that is too long to stand in the object");
    value.SetString(value.GetText());
    EXPECT_EQ(value.GetString(), "a string that is too long to stand in the object");
    value.SetString(value.GetText().c_str() + 2);
    EXPECT_EQ(value.GetString(), "string that is too long to stand in the object");
    value.FromString(value.GetText(), ItemType_string, CWhitespaceUtils::WhitespaceRule_Preserve);
    EXPECT_EQ(value.GetString(), "string that is too long to stand in the object");

    // The variant is the only holder of the object in which the source lives.
    auto const inner = [&]() -> ZvVariant& {
        auto* const probe = new Probe;
        value.SetXmlObject(probe);
        return probe->m_value;
    };
    ZvVariant& copied = inner();
    copied.SetString("inside");
    value = copied;
    EXPECT_EQ(value.GetString(), "inside");
    ZvVariant& moved = inner();
    moved.SetHexBinary(CBinaryData("M"));
    value = std::move(moved);
    EXPECT_EQ(value.ToString(nullptr), "4D");
    ZvVariant& object = inner();
    object.SetXmlObject(new Probe);
    value.SetXmlObject(object.FindXmlObject());
    EXPECT_EQ(probesAlive, 1);
    value.Clear();
    EXPECT_EQ(probesAlive, 0);
}

TEST(ZvVariant, SharesObjectsAndCollectionsByTheirCount) {
    CSmartPtr<CXmlObjectBase> const object(new Probe);
    CSmartPtr<CXmlCollectionBase> const collection(new ProbeCollection);
    auto const countOf = [](CXmlObjectBase* counted) {
        std::int32_t const count = counted->AddRef() - 1;
        counted->Release();
        return count;
    };
    ZvVariant value;
    value.SetXmlObject(object);
    EXPECT_EQ(countOf(object), 2);
    {
        ZvVariant copy(value);
        EXPECT_EQ(countOf(object), 3);
        ZvVariant const moved(std::move(copy));
        EXPECT_EQ(countOf(object), 3);
        EXPECT_EQ(moved.GetXmlObject(), object);
    }
    EXPECT_EQ(countOf(object), 2);
    value.SetXmlObject(object);
    EXPECT_EQ(countOf(object), 2);
    value.SetXmlCollection(collection);
    EXPECT_EQ(countOf(object), 1);
    EXPECT_EQ(countOf(collection), 2);
    EXPECT_EQ(value.GetXmlCollection(), collection);
    EXPECT_EQ(value.GetXmlObject(), static_cast<CXmlObjectBase*>(collection)); // a collection is an object
    ZvVariant copy;
    copy = value;
    EXPECT_EQ(countOf(collection), 3);
    value.SetNil();
    copy.SetInvalid();
    EXPECT_EQ(countOf(collection), 1);
    EXPECT_EQ(value.FindXmlObject(), nullptr);
}

TEST(ZvVariant, ANullObjectIsAValue) {
    ZvVariant value;
    value.SetXmlObject(nullptr);
    ZvVariant const copy(value);
    EXPECT_TRUE(copy.IsValid());
    EXPECT_EQ(copy.GetTypeAsEnum(), ItemType_XmlObjectBase);
    EXPECT_EQ(copy.GetXmlObject(), nullptr);
    value.SetXmlCollection(nullptr);
    EXPECT_EQ(value.GetXmlObject(), nullptr);
    value.SetI8(-1);
    EXPECT_EQ(value.FindXmlObject(), nullptr);
    EXPECT_EQ(value.FindXmlCollection(), nullptr);
    EXPECT_TRUE(value.FindInteger() == nullptr && value.FindDecimal() == nullptr);
    EXPECT_TRUE(value.FindDuration() == nullptr && value.FindDateTime() == nullptr);
}

TEST(ZvVariant, AGetterOfAnotherTypeIsAssertedAndStaysHarmless) {
    AssertionLog const log;
    ZvVariant value;
    value.SetI8(-1);
    EXPECT_EQ(value.GetI4(), -1);
    EXPECT_EQ(value.GetString(), "");
    EXPECT_EQ(value.GetHexBinary().GetLength(), 0U);
    EXPECT_EQ(value.GetXmlObject(), nullptr);
    EXPECT_EQ(value.GetXmlCollection(), nullptr);
    value.SetNil(ItemType_string);
    EXPECT_EQ(value.GetString(), "");
    EXPECT_EQ(value.TakeString(), "");
    value.SetXmlCollection(nullptr);
    EXPECT_EQ(value.GetXmlCollection(), nullptr);
    EXPECT_EQ(value.GetDuration().ToString(), "P");
    value.SetNil(ItemType_decimal);
    EXPECT_EQ(value.GetDecimal().ToString(), "0");
    EXPECT_EQ(value.GetDate().GetType(), CDateTime::dt_yearZero);
#ifndef NDEBUG
    EXPECT_THAT(assertions,
                testing::ElementsAre(
                    "m_type == ItemType_i4", "m_type == ItemType_string && m_pString != 0",
                    "m_type == ItemType_hexBinary", "m_type == ItemType_XmlObjectBase",
                    "m_type == ItemType_XmlCollection && m_pXmlCol != 0",
                    "m_type == ItemType_string && m_pString != 0",
                    "m_type == ItemType_string && m_pString != 0",
                    "m_type == ItemType_XmlCollection && m_pXmlCol != 0", "m_type == ItemType_duration",
                    "m_type == ItemType_decimal && m_pDecimal != 0", "m_type == ItemType_date"));
#endif
}
