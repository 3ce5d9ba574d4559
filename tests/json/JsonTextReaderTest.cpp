// The JSON parser: events of what is JSON, and the exact failure of what is not.
#include "zvxmllib/json/JsonTextReader.h"
#include "tests/support/LocalEncoding.h"
#include "tests/support/MessageOf.h"
#include "tests/support/Vectors.h"
#include "zvxmllib/foundation/DebugTrace.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <functional>
#include <string>
#include <string_view>

using namespace ZvXmlLib16;
using namespace std::string_literals;

namespace {

constexpr char kValueExpected[] =
    "Expected Value '{', '[', '\"', '0-9', '-', 'true', 'false' or 'null', found '";

// Writes each event down in short form.
class Recorder : public IJsonReaderHandler {
public:
    explicit Recorder(std::string& events) : m_events(events) {}
    void StartDocument() override { m_events += '<'; }
    void EndDocument() override { m_events += '>'; }
    void OnName(std::string const& name) override { m_events += name + ':'; }
    void OnString(std::string const& value) override { m_events += '\'' + value + '\''; }
    void OnNumber(std::string const& text) override { m_events += '#' + text; }
    void StartObject() override { m_events += '{'; }
    void EndObject() override { m_events += '}'; }
    void StartArray() override { m_events += '['; }
    void EndArray() override { m_events += ']'; }
    void OnBool(bool value) override { m_events += value ? 't' : 'f'; }
    void OnNull() override { m_events += 'n'; }

private:
    std::string& m_events;
};

struct Options {
    bool allowsComments = true;
    std::string rootName;
};

std::string EventsOf(std::string_view json, Options const& options = {}) {
    std::string events;
    CJsonTextReader reader(json);
    reader.SetHandler(std::make_unique<Recorder>(events));
    reader.SetAllowComments(options.allowsComments);
    reader.SetRootElementName(options.rootName);
    reader.Parse();
    return events;
}

// The message of a text that is no JSON; its events if it is.
std::string OutcomeOf(std::string_view json, Options const& options = {}) {
    std::string events;
    std::string const message = MessageOf<CZvValidationException>([&] { events = EventsOf(json, options); });
    return events.empty() ? message : events;
}

std::string Repeat(std::string const& text, int times) {
    std::string result;
    for (int i = 0; i < times; ++i)
        result += text;
    return result;
}

TEST(JsonTextReader, SendsTheEventsOfATextInItsOrder) {
    for (auto const& row : Vectors("json.txt", "events"))
        EXPECT_EQ(OutcomeOf(row[0]), row[1]) << row[0];
}

TEST(JsonTextReader, PassesOverCommentsBetweenTokensWhereTheyAreAllowed) {
    std::string const commented = "/**/{//x\n/*a*//***/\"a\"/*\n*/:/*/*/ 1 /* b */,\"b\"://\n[/**/]}";
    EXPECT_EQ(OutcomeOf(commented), "<{a:#1b:[]}>");
    EXPECT_EQ(OutcomeOf("// only"), "<>");
    EXPECT_EQ(OutcomeOf("/* only"), "<>");
    EXPECT_EQ(OutcomeOf("[/* no *\n/ end]"),
              "Unexpected End of File. Expected Array terminator character ']' at line 2, position 6.");
    EXPECT_EQ(OutcomeOf("[/*/]"),
              "Unexpected End of File. Expected Array terminator character ']' at line 1, position 5.");
    // They count for line and position.
    EXPECT_EQ(OutcomeOf("[/* \n ab */ x]"), kValueExpected + "x' at line 2, position 8."s);
    EXPECT_EQ(OutcomeOf("[/**/", {false, ""}), kValueExpected + "/' at line 1, position 2."s);
    EXPECT_EQ(OutcomeOf("[1 /**/]", {false, ""}),
              "Expected Array separator character ',', found '/' at line 1, position 4.");
    // A number does not look behind itself.
    EXPECT_EQ(OutcomeOf("[1/**/]"),
              "Expected Array separator character ',', found '/' at line 1, position 3.");
}

TEST(JsonTextReader, ReadsTheTextAsTheValueOfTheRootGiven) {
    EXPECT_EQ(OutcomeOf("5", {true, "r"}), "<{r:#5}>");
    EXPECT_EQ(OutcomeOf("[{}]", {true, "r"}), "<{r:[{}]}>");
    EXPECT_EQ(OutcomeOf("", {true, "r"}), "<{r:}>");
    EXPECT_EQ(OutcomeOf("[x", {true, "r"}), kValueExpected + "x' at line 1, position 2."s);
    EXPECT_EQ(OutcomeOf("{\"a\":", {true, "r"}),
              "Unexpected End of File. Expected Object Value at line 1, position 5.\nPath: .a.r");
}

TEST(JsonTextReader, TellsWhatIsWrongAndWhere) {
    for (auto const& row : Vectors("json.txt", "failures of reading"))
        EXPECT_EQ(OutcomeOf(row[0]), row[1]) << row[0];
}

TEST(JsonTextReader, GivesThePathOfTheOpenMembersFromTheInsideOut) {
    for (auto const& row : Vectors("json.txt", "paths of failures")) {
        try {
            EventsOf(row[0]);
            ADD_FAILURE() << row[0];
        } catch (CZvValidationException const& failure) {
            EXPECT_EQ(failure.GetPath(), row[1]) << row[0];
        }
    }
}

// A place in the grammar, and what may stand there.
struct State {
    char const* before;
    std::string allowed;
    std::string message; // with the wrong character behind it, if it ends so
    char const* path = "";
    char const* behind = "";
};

// Where a wrong character is shown the message ends with its opening quotation mark.
std::string ExpectedMessage(State const& state, char found) {
    std::size_t const position = std::string(state.before).size() + 1;
    std::string message = state.message;
    if (message.compare(message.size() - 2, 2, " '") == 0)
        message += std::string(1, found) + '\'';
    message += " at line 1, position " + std::to_string(position) + '.';
    return message + (*state.path == '\0' ? "" : "\nPath: "s + state.path);
}

TEST(JsonTextReader, RefusesEveryWrongCharacterInEveryState) {
    std::string const space = " \t\r\n";
    std::string const value = "{[\"ntf-0123456789" + space;
    std::string const digits = "0123456789\n";
    std::string const name = "Expected quotation mark character '\"' before Name, found '";
    std::string const colon = "Expected Object Name/Value separator character ':', found '";
    std::string const member = "Expected Object separator character ',', found '";
    std::string const item = "Expected Array separator character ',', found '";
    std::string const digit = "Expected a digit '0' to '9', found '";
    std::string const exponent = "Unexpected End of File. Expected a digit '0' to '9'";
    for (State const& state :
         {State{"", value, kValueExpected},
          State{"{", "\"}" + space, name},
          State{"{\"a\"", ":" + space, colon, ".a"},
          State{"{\"a\":", value, kValueExpected, ".a"},
          State{"{\"a\":\"\"", ",}" + space, member, ".a"},
          State{"{\"a\":{}", ",}" + space, member},
          State{"{\"a\":1", "0123456789.eE,}" + space, member, ".a"},
          State{"{\"a\":\"\",", "\"" + space, name, ".a"},
          State{"[", "]" + value, kValueExpected},
          State{"[\"\"", ",]" + space, item},
          State{"[0", ".eE,]" + space, item},
          State{"[1", ".eE,]0123456789" + space, item},
          State{"[1.5", "eE,]0123456789" + space, item},
          State{"[1e5", ",]0123456789" + space, item},
          State{"[null", ",]" + space, item},
          State{"[\"\",", value, kValueExpected},
          State{"[\"\\", "\"\\/bfnrtu\n", "Invalid Escape Character '"},
          State{"[\"\\u", "0123456789abcdefABCDEF", "Invalid Escape Character '", "", "000"},
          State{"[\"\\u00a", "0123456789abcdefABCDEF", "Invalid Escape Character '"},
          State{"[-", digits, digit},
          State{"[1.", digits, digit},
          State{"[1e", "+-" + digits, exponent},
          State{"[1e+", digits, exponent},
          State{"[nul", "l", "Expected 'NULL'"},
          State{"[tru", "e", "Expected 'true'"},
          State{"[fals", "e", "Expected 'false'"}}) {
        for (int byte = 0; byte < 256; ++byte) {
            char const c = static_cast<char>(byte);
            std::string const json = state.before + std::string(1, c) + state.behind;
            bool const isAllowed = state.allowed.find(c) != std::string::npos;
            EXPECT_EQ(OutcomeOf(json) == ExpectedMessage(state, c), !isAllowed)
                << state.before << " and " << byte;
        }
    }
}

TEST(JsonTextReader, JoinsSurrogatesAndReplacesLoneOnes) {
    for (auto const& row : Vectors("json.txt", "surrogates: JSON, UTF-8, Windows-1252")) {
        auto const inPage = [&](unsigned page, bool isAsciiOnly) {
            LocalEncoding const local(page, isAsciiOnly);
            return EventsOf(row[0]);
        };
        EXPECT_EQ(inPage(65001, false), "<'" + row[1] + "'>") << row[0];
        EXPECT_EQ(inPage(1252, false), "<'" + row[2] + "'>") << row[0];
        EXPECT_EQ(inPage(1252, true), "<'" + row[1] + "'>") << row[0];
    }
}

TEST(JsonTextReader, BoundsTheDepthAndNothingElse) {
    auto const nested = [](std::string const& open, std::string const& inside, std::string const& close,
                           int depth) { return Repeat(open, depth) + inside + Repeat(close, depth); };
    EXPECT_EQ(OutcomeOf(nested("[", "", "]", 100)), '<' + nested("[", "", "]", 100) + '>');
    EXPECT_EQ(OutcomeOf(nested("[", "", "]", 101)), "JSON exceeded depth limit at line 1, position 101.");
    EXPECT_EQ(OutcomeOf(nested("[", "5", "]", 100)), "JSON exceeded depth limit at line 1, position 101.");
    EXPECT_EQ(OutcomeOf(nested("[", "5", "]", 99)), '<' + nested("[", "#5", "]", 99) + '>');
    EXPECT_THAT(OutcomeOf(nested("{\"a\":\n", "1", "}", 100)),
                testing::StartsWith("JSON exceeded depth limit at line 101, position 1.\nPath: .a.a"));
    EXPECT_EQ(OutcomeOf(Repeat("[", 1000000)), "JSON exceeded depth limit at line 1, position 101.");
    // The root given is no level.
    EXPECT_EQ(OutcomeOf(nested("[", "", "]", 100), {true, "r"}), "<{r:" + nested("[", "", "]", 100) + "}>");

    std::string const comments = Repeat("/**/", 150000) + Repeat("//\n", 150000);
    EXPECT_EQ(OutcomeOf(comments + '[' + comments + "1 " + comments + ']'), "<[#1]>");
    std::string const large(100000000, 'x'); // NOLINT(bugprone-string-constructor)
    std::string const events = EventsOf("\"" + large + "\"");
    EXPECT_EQ(events.size(), large.size() + 4);
    EXPECT_EQ(OutcomeOf("\"" + large),
              "Unexpected End of File. Expected string value at line 1, position 100000001.");
}

std::string s_trace;

TEST(JsonTextReader, TracesEveryEventForAListener) {
    SetDebugTraceSink([](char const* text) { s_trace += text; });
    std::string const events = EventsOf(R"({"a":[1,"x%s",true,false,null,{}]})");
    SetDebugTraceSink(nullptr);
    EXPECT_EQ(events, "<{a:[#1'x%s'tfn{}]}>");
    EXPECT_EQ(s_trace, "StartDocument\nStartObject\nName: a\nStartArray\nNumber: 1\nString: x%s\nBool: true\n"
                       "Bool: false\nNull\nStartObject\nEndObject\nEndArray\nEndObject\nEndDocument\n");
    s_trace.clear();
    EventsOf("[]");
    EXPECT_EQ(s_trace, "");
}

} // namespace
