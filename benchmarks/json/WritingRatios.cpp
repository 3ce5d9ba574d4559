// Typed objects to JSON: time as medians of ratios, against writing XML of the same objects and against a
// serialiser written by hand for one vocabulary. "write N" writes an 11 KB document N times, for a count of
// instructions.
#include "benchmarks/MedianRatio.h"
#include "benchmarks/typed/Record.h"

#include <charconv>
#include <cstdio>
#include <cstdlib>

using namespace ZvXmlLib16;
using namespace bench;

namespace {

constexpr double kMostOfXml = 1;
constexpr double kMostOfByHand = 2;

CSerializationContext& Context() {
    static CSerializationContext ctx;
    ctx.SetDefaultNamespaceURI(kRecordNamespace);
    return ctx;
}

CBinaryData WriteXml(CRecords& records) {
    return records.ToXmlStream(false, false, XmlEncoding_UTF8, EOLType_LF, Context(), CompressionType_None);
}

CBinaryData WriteJson(CRecords& records) {
    return records.ToJsonStream(false, XmlEncoding_UTF8, EOLType_LF, Context(), CompressionType_None);
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

char Mark(double value, double limit) {
    return value <= limit ? ' ' : '!';
}

void PrintRow(char const* name, std::size_t bytes) {
    std::string const xml = MakeRecords(bytes);
    CSmartPtr<CRecords> const records(new CRecords);
    records->FromXml(xml.c_str(), Context());
    std::vector<Record> const byHand = ReadByHand(xml);
    CBinaryData const written = WriteJson(*records);
    if (std::string(reinterpret_cast<char const*>(written.GetData()), written.GetLength()) !=
        WriteJsonByHand(byHand)) {
        std::puts("the two programs do not agree");
        std::exit(1);
    }
    double const ofXml = MedianRatio([&] { WriteJson(*records); }, [&] { WriteXml(*records); });
    double const ofByHand = MedianRatio([&] { WriteJson(*records); }, [&] { WriteJsonByHand(byHand); });
    std::printf("%-8s %8.2f%c %8.2f%c\n", name, ofXml, Mark(ofXml, kMostOfXml), ofByHand,
                Mark(ofByHand, kMostOfByHand));
    std::fflush(stdout);
}

void Repeat(int times) {
    CSmartPtr<CRecords> const records(new CRecords);
    records->FromXml(MakeRecords(11000).c_str(), Context());
    for (int i = 0; i < times; ++i)
        WriteJson(*records);
}

} // namespace

int main(int argc, char** argv) {
    SetGeneratorVersion(kLibraryMajorVersion, kLibraryMinorVersion);
    SetLocalCharEncoding(65001);
    if (argc > 2) {
        Repeat(std::atoi(argv[2]));
        return 0;
    }
    std::printf("xml:     writing records as JSON, by the time of writing them as XML (limit %.1f)\n"
                "by hand: the same, by the time of a serialiser by hand (limit %.1f)\n"
                "'!' is above the limit.\n\n%-8s %8s  %8s\n",
                kMostOfXml, kMostOfByHand, "document", "xml", "by hand");
    PrintRow("1 MB", std::size_t{1} << 20U);
    PrintRow("50 MB", std::size_t{50} << 20U);
}
