// JSON text to XML bytes and to typed objects: time as medians of ratios, against parsers that do nothing
// with what they read, and against an expat program written by hand over the XML of the same data. "read N"
// reads an 11 KB document N times, for a count of instructions.
#include "benchmarks/typed/RecordProgram.h"

#include <cstdio>
#include <cstdlib>

#include <nlohmann/json.hpp>
#if __has_include(<rapidjson/reader.h>)
#include <rapidjson/reader.h>
#endif

using namespace ZvXmlLib16;
using namespace bench;

namespace {

constexpr double kMostOfParser = 1 / 0.6; // of the time of a pass without any use of it
constexpr double kMostOfByHand = 0.85;

void Convert(std::string const& json) {
    CXmlDocument document(RecordContext());
    document.LoadJson(json.c_str());
}

void Read(CRecords& records, std::string const& json) {
    records.FromJson(json.c_str(), RecordContext());
}

// Takes every event, and keeps nothing.
class Events : public nlohmann::json_sax<nlohmann::json> {
public:
    bool null() override { return Count(); }
    bool boolean(bool) override { return Count(); }
    bool number_integer(number_integer_t) override { return Count(); }
    bool number_unsigned(number_unsigned_t) override { return Count(); }
    bool number_float(number_float_t, string_t const&) override { return Count(); }
    bool string(string_t&) override { return Count(); }
    bool binary(binary_t&) override { return Count(); }
    bool start_object(std::size_t) override { return Count(); }
    bool key(string_t&) override { return Count(); }
    bool end_object() override { return Count(); }
    bool start_array(std::size_t) override { return Count(); }
    bool end_array() override { return Count(); }
    bool parse_error(std::size_t, std::string const&, nlohmann::detail::exception const&) override {
        return false;
    }

private:
    bool Count() { return ++m_events != 0; }

    std::size_t m_events = 0;
};

void ParseByNlohmann(std::string const& json) {
    Events events;
    if (!nlohmann::json::sax_parse(json, &events))
        std::abort();
}

#if __has_include(<rapidjson/reader.h>)
void ParseByRapidJson(std::string const& json) {
    struct Handler : rapidjson::BaseReaderHandler<> {
        bool Default() { return ++events != 0; }
        std::size_t events = 0;
    } handler;
    rapidjson::Reader reader;
    rapidjson::StringStream stream(json.c_str());
    if (!reader.Parse(stream, handler))
        std::abort();
}
#endif

std::string WriteJson(CRecords& records, bool isFormatted) {
    return records.ToJson(isFormatted, EOLType_LF, RecordContext());
}

void PrintRow(char const* name, std::size_t bytes, bool isFormatted) {
    std::string const xml = MakeRecords(bytes);
    std::string const json = WriteJson(*ReadRecords(xml), isFormatted);
    CSmartPtr<CRecords> const back(new CRecords);
    Read(*back, json);
    Require(WriteJson(*back, isFormatted) == json, "the objects read are not those written");
    double const ofNlohmann = MedianRatio([&] { Convert(json); }, [&] { ParseByNlohmann(json); });
    double const ofByHand = MedianRatio(
        [&] {
            CSmartPtr<CRecords> const fresh(new CRecords);
            Read(*fresh, json);
        },
        [&] { ReadByHand(xml); });
    std::printf("%-16s %8.2f%c %8.2f%c", name, ofNlohmann, Mark(ofNlohmann, kMostOfParser), ofByHand,
                Mark(ofByHand, kMostOfByHand));
#if __has_include(<rapidjson/reader.h>)
    double const ofRapidJson = MedianRatio([&] { Convert(json); }, [&] { ParseByRapidJson(json); });
    std::printf(" %8.2f%c", ofRapidJson, Mark(ofRapidJson, kMostOfParser));
#endif
    std::puts("");
    std::fflush(stdout);
}

void Repeat(std::string const&, std::string const& xml, int times) {
    CSmartPtr<CRecords> const records = ReadRecords(xml);
    std::string const json = WriteJson(*records, false);
    for (int i = 0; i < times; ++i)
        Read(*records, json);
}

void Print() {
    std::printf("nlohmann: records as JSON to XML bytes, by the time in which nlohmann/json parses them\n"
                "          without any use of it (limit %.2f)\n"
                "by hand:  the same to objects, by the time of an expat program by hand over the records\n"
                "          as XML (limit %.2f)\n"
                "rapid:    as nlohmann, by the time of RapidJSON, where it is installed\n"
                "'!' is above the limit.\n\n%-16s %8s  %8s  %8s\n",
                kMostOfParser, kMostOfByHand, "document", "nlohmann", "by hand", "rapid");
    for (auto const& [name, bytes] : kRecordSizes)
        PrintRow(name, bytes, false);
    PrintRow("1 MB, formatted", kRecordSizes[0].bytes, true);
}

} // namespace

int main(int argc, char** argv) {
    return RunRecordProgram(argc, argv, Repeat, Print);
}
