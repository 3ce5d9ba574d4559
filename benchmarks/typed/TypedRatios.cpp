// Typed objects against a program written by hand for one vocabulary: time as medians of ratios, and memory.
// "read N" and "write N" do one half of it N times with an 11 KB document, for a count of instructions, and
// "read-members N" and "write-members N" the same with a class whose tables name members.
#include "benchmarks/MemoryInUse.h"
#include "benchmarks/typed/RecordProgram.h"

#include <cstdio>

using namespace ZvXmlLib16;
using namespace bench;

namespace {

constexpr double kMostForReading = 1.6;
constexpr double kMostForWriting = 2.2;
constexpr double kMostMemory = 6;

// The memory of the objects, plus that of the tree that they are read from, which is freed by then.
double MemoryOfReading(std::string const& xml) {
    std::size_t const before = MemoryInUse();
    CSmartPtr<CRecords> const records = ReadRecords(xml);
    double const objects = static_cast<double>(MemoryInUse() - before);
    std::size_t const beforeTree = MemoryInUse();
    CXmlDocument document;
    document.LoadXml(xml.c_str());
    double const tree = static_cast<double>(MemoryInUse() - beforeTree);
    return (objects + tree) / static_cast<double>(xml.size());
}

void PrintRow(RecordSize const& size, bool areMembers) {
    BindMembers(areMembers);
    std::string const xml = MakeRecords(size.bytes);
    CSmartPtr<CRecords> const records = ReadRecords(xml);
    std::vector<Record> const byHand = ReadByHand(xml);
    Require(TextOf(WriteRecordsAsXml(*records)) == WriteByHand(byHand), "the two programs do not agree");
    double const reading = MedianRatio([&] { ReadRecords(xml); }, [&] { ReadByHand(xml); });
    double const writing = MedianRatio([&] { WriteRecordsAsXml(*records); }, [&] { WriteByHand(byHand); });
    double const memory = MemoryOfReading(xml);
    std::printf("%-8s %-8s %8.2f%c %8.2f%c %8.2f%c\n", size.name, areMembers ? "members" : "numbers", reading,
                Mark(reading, kMostForReading), writing, Mark(writing, kMostForWriting), memory,
                Mark(memory, kMostMemory));
    std::fflush(stdout);
}

void Repeat(std::string const& what, std::string const& xml, int times) {
    BindMembers(what == "read-members" || what == "write-members");
    CSmartPtr<CRecords> const records = ReadRecords(xml);
    for (int i = 0; i < times; ++i) {
        if (what.rfind("read", 0) == 0)
            records->FromXml(xml.c_str(), RecordContext());
        else
            WriteRecordsAsXml(*records);
    }
}

void Print() {
    std::printf("read:   reading records into objects, by the time of a program by hand (limit %.1f)\n"
                "write:  writing them, by the time of a serialiser by hand (limit %.1f)\n"
                "memory: bytes of objects and tree for each byte of the document (limit %.1f)\n"
                "'!' is above the limit.\n\n%-8s %-8s %8s  %8s  %8s\n",
                kMostForReading, kMostForWriting, kMostMemory, "document", "tables", "read", "write",
                "memory");
    for (RecordSize const& size : kRecordSizes) {
        for (bool const areMembers : {false, true})
            PrintRow(size, areMembers);
    }
}

} // namespace

int main(int argc, char** argv) {
    return RunRecordProgram(argc, argv, Repeat, Print);
}
