// Typed objects to JSON: time as medians of ratios, against writing XML of the same objects and against a
// serialiser written by hand for one vocabulary. "write N" writes an 11 KB document N times, for a count of
// instructions.
#include "benchmarks/typed/RecordProgram.h"

#include <charconv>
#include <cstdio>

using namespace ZvXmlLib16;
using namespace bench;

namespace {

constexpr double kMostOfXml = 1;
constexpr double kMostOfByHand = 2;

CBinaryData WriteJson(CRecords& records) {
    return records.ToJsonStream(false, XmlEncoding_UTF8, EOLType_LF, RecordContext(), CompressionType_None);
}

void AppendString(std::string& out, std::string const& text) {
    constexpr char kDigits[] = "0123456789ABCDEF";
    out += '"';
    for (char const c : text) {
        unsigned char const byte = static_cast<unsigned char>(c);
        if (c == '"' || c == '\\') {
            out += '\\';
            out += c;
        } else if (byte < 0x20U) {
            out.append("\\u00").append(1, kDigits[byte >> 4U]).append(1, kDigits[byte & 0xFU]);
        } else {
            out += c;
        }
    }
    out += '"';
}

template <class Number>
void AppendNumber(std::string& out, Number number) {
    char digits[32];
    out.append(digits, std::to_chars(digits, digits + sizeof digits, number).ptr);
}

void AppendName(std::string& out, char const* name) {
    out.append("\"").append(name).append("\": ");
}

void AppendField(std::string& out, char const* name, std::string const& value) {
    out += ',';
    AppendName(out, name);
    AppendString(out, value);
}

template <class Number>
void AppendField(std::string& out, char const* name, Number value) {
    out += ',';
    AppendName(out, name);
    AppendNumber(out, value);
}

void AppendRecord(std::string& out, Record const& r) {
    out += '{';
    AppendName(out, "@id");
    AppendNumber(out, r.id);
    AppendField(out, "name", r.name);
    AppendField(out, "city", r.city);
    AppendField(out, "mail", r.mail);
    AppendField(out, "quantity", r.quantity);
    AppendField(out, "stock", r.stock);
    AppendField(out, "price", r.price);
    AppendField(out, "weight", r.weight);
    out += ',';
    AppendName(out, "active");
    out += r.active ? "true" : "false";
    AppendField(out, "rating", static_cast<int>(r.rating));
    AppendField(out, "category", std::string(CategoryToText(r.category)));
    AppendField(out, "note", r.note);
    out += '}';
}

std::string WriteJsonByHand(std::vector<Record> const& records) {
    std::string out = std::string("{\"records\": {\"@xmlns\": \"") + kRecordNamespace + "\",\"record\": [";
    for (Record const& record : records) {
        if (&record != &records.front())
            out += ',';
        AppendRecord(out, record);
    }
    return out += "]}}";
}

void PrintRow(RecordSize const& size) {
    std::string const xml = MakeRecords(size.bytes);
    CSmartPtr<CRecords> const records = ReadRecords(xml);
    std::vector<Record> const byHand = ReadByHand(xml);
    Require(TextOf(WriteJson(*records)) == WriteJsonByHand(byHand), "the two programs do not agree");
    double const ofXml = MedianRatio([&] { WriteJson(*records); }, [&] { WriteRecordsAsXml(*records); });
    double const ofByHand = MedianRatio([&] { WriteJson(*records); }, [&] { WriteJsonByHand(byHand); });
    std::printf("%-8s %8.2f%c %8.2f%c\n", size.name, ofXml, Mark(ofXml, kMostOfXml), ofByHand,
                Mark(ofByHand, kMostOfByHand));
    std::fflush(stdout);
}

void Repeat(std::string const&, std::string const& xml, int times) {
    CSmartPtr<CRecords> const records = ReadRecords(xml);
    for (int i = 0; i < times; ++i)
        WriteJson(*records);
}

void Print() {
    std::printf("xml:     writing records as JSON, by the time of writing them as XML (limit %.1f)\n"
                "by hand: the same, by the time of a serialiser by hand (limit %.1f)\n"
                "'!' is above the limit.\n\n%-8s %8s  %8s\n",
                kMostOfXml, kMostOfByHand, "document", "xml", "by hand");
    for (RecordSize const& size : kRecordSizes)
        PrintRow(size);
}

} // namespace

int main(int argc, char** argv) {
    return RunRecordProgram(argc, argv, Repeat, Print);
}
