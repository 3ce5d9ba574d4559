// Typed objects against a program written by hand for one vocabulary: time as medians of ratios, and memory.
// "read N" and "write N" do one half of it N times with an 11 KB document, for a count of instructions.
#include "benchmarks/MedianRatio.h"
#include "benchmarks/MemoryInUse.h"
#include "benchmarks/typed/Record.h"

#include <cstdio>
#include <cstdlib>

using namespace ZvXmlLib16;
using namespace bench;

namespace {

constexpr double kMostForReading = 1.6;
constexpr double kMostForWriting = 2.2;
constexpr double kMostMemory = 6;

CSerializationContext& Context() {
    static CSerializationContext ctx;
    ctx.SetDefaultNamespaceURI(kRecordNamespace);
    return ctx;
}

void Read(CRecords& records, std::string const& xml) {
    records.FromXml(xml.c_str(), Context());
}

CBinaryData Write(CRecords& records) {
    return records.ToXmlStream(false, false, XmlEncoding_UTF8, EOLType_LF, Context(), CompressionType_None);
}

char Mark(double value, double limit) {
    return value <= limit ? ' ' : '!';
}

// What the objects hold; the tree that they are read from is gone by then, so it comes on top.
double MemoryOfReading(std::string const& xml) {
    std::size_t const before = MemoryInUse();
    CSmartPtr<CRecords> const records(new CRecords);
    Read(*records, xml);
    double const objects = static_cast<double>(MemoryInUse() - before);
    std::size_t const beforeTree = MemoryInUse();
    CXmlDocument document;
    document.LoadXml(xml.c_str());
    double const tree = static_cast<double>(MemoryInUse() - beforeTree);
    return (objects + tree) / static_cast<double>(xml.size());
}

void PrintRow(char const* name, std::size_t bytes) {
    std::string const xml = MakeRecords(bytes);
    CSmartPtr<CRecords> const records(new CRecords);
    Read(*records, xml);
    std::vector<Record> const byHand = ReadByHand(xml);
    CBinaryData const written = Write(*records);
    if (std::string(reinterpret_cast<char const*>(written.GetData()), written.GetLength()) !=
        WriteByHand(byHand)) {
        std::puts("the two programs do not agree");
        std::exit(1);
    }
    double const reading = MedianRatio(
        [&] {
            CSmartPtr<CRecords> const fresh(new CRecords);
            Read(*fresh, xml);
        },
        [&] { ReadByHand(xml); });
    double const writing = MedianRatio([&] { Write(*records); }, [&] { WriteByHand(byHand); });
    double const memory = MemoryOfReading(xml);
    std::printf("%-8s %8.2f%c %8.2f%c %8.2f%c\n", name, reading, Mark(reading, kMostForReading), writing,
                Mark(writing, kMostForWriting), memory, Mark(memory, kMostMemory));
    std::fflush(stdout);
}

void Repeat(std::string const& what, int times) {
    std::string const xml = MakeRecords(11000);
    CSmartPtr<CRecords> const records(new CRecords);
    Read(*records, xml);
    for (int i = 0; i < times; ++i) {
        if (what == "read")
            Read(*records, xml);
        else
            Write(*records);
    }
}

} // namespace

int main(int argc, char** argv) {
    SetGeneratorVersion(kLibraryMajorVersion, kLibraryMinorVersion);
    SetLocalCharEncoding(65001);
    if (argc > 2) {
        Repeat(argv[1], std::atoi(argv[2]));
        return 0;
    }
    std::printf("read:   reading records into objects, by the time of a program by hand (limit %.1f)\n"
                "write:  writing them, by the time of a serialiser by hand (limit %.1f)\n"
                "memory: bytes of objects and tree for each byte of the document (limit %.1f)\n"
                "'!' is above the limit.\n\n%-8s %8s  %8s  %8s\n",
                kMostForReading, kMostForWriting, kMostMemory, "document", "read", "write", "memory");
    PrintRow("1 MB", std::size_t{1} << 20U);
    PrintRow("50 MB", std::size_t{50} << 20U);
}
