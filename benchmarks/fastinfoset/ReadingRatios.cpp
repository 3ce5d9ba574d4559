// Reading Fast Infoset, into the tree and into typed objects: time as medians of ratios, against XML text of
// the same data and a program written by hand for it, and the memory of the tree. "read N" reads an 11 KB
// document of records into typed objects N times, for a count of instructions.
#include "benchmarks/Documents.h"
#include "benchmarks/MemoryInUse.h"
#include "benchmarks/typed/RecordProgram.h"

#include <cstdio>

using namespace ZvXmlLib16;
using namespace bench;

namespace {

constexpr double kMostForTree = 0.5;
constexpr double kMostForObjects = 0.65;

// Values as the suggested encodings have them.
CSerializationContext SuggestedContext() {
    CSerializationContext ctx(RecordContext()); // NOLINT(performance-unnecessary-copy-initialization)
    ctx.GetFIContext().SetSuggestedValues();
    return ctx;
}

template <class Class>
std::string ToFastInfoset(Class& object, CSerializationContext const& ctx) {
    return std::string(TextOf(object.ToFastInfosetStream(FInfoDecl_None, ctx, CompressionType_None)));
}

void LoadTree(std::string const& octets) {
    CXmlDocument document;
    Load(document, octets);
}

void Read(CRecords& records, std::string& octets) {
    records.FromXmlStream(reinterpret_cast<unsigned char*>(octets.data()),
                          static_cast<std::uint32_t>(octets.size()), RecordContext());
}

void ReadNew(std::string& octets) {
    CSmartPtr<CRecords> const records(new CRecords);
    Read(*records, octets);
}

void PrintTreeRow(Document const& document) {
    CSmartPtr<CRootElement> const object = ReadObject(document.text);
    std::string const octets = ToFastInfoset(*object, CSerializationContext::GetDefaultContext());
    std::size_t const before = MemoryInUse();
    CXmlDocument tree;
    Load(tree, octets);
    double const memory =
        static_cast<double>(MemoryInUse() - before) / static_cast<double>(document.text.size());
    double const time = MedianRatio([&] { LoadTree(octets); }, [&] { LoadTree(document.text); });
    std::printf("%-28s %10zu %10zu %8.2f%c %8.2f\n", document.name.c_str(), document.text.size(),
                octets.size(), time, Mark(time, kMostForTree), memory);
    std::fflush(stdout);
}

void PrintObjectsRow(RecordSize const& size) {
    std::string const xml = MakeRecords(size.bytes);
    CSmartPtr<CRecords> const records = ReadRecords(xml);
    std::string text = ToFastInfoset(*records, RecordContext());
    std::string binary = ToFastInfoset(*records, SuggestedContext());
    double const ofText = MedianRatio([&] { ReadNew(text); }, [&] { ReadByHand(xml); });
    double const ofBinary = MedianRatio([&] { ReadNew(binary); }, [&] { ReadByHand(xml); });
    std::printf("typed records, %-13s %10zu %10zu %8.2f%c %10zu %8.2f%c\n", size.name, xml.size(),
                text.size(), ofText, Mark(ofText, kMostForObjects), binary.size(), ofBinary,
                Mark(ofBinary, kMostForObjects));
    std::fflush(stdout);
}

void Repeat(std::string const&, std::string const& xml, int times) {
    CSmartPtr<CRecords> const records = ReadRecords(xml);
    std::string octets = ToFastInfoset(*records, RecordContext());
    for (int i = 0; i < times; ++i)
        Read(*records, octets);
}

void Print() {
    std::printf(
        "tree:   building the tree from Fast Infoset, by the time of building it from XML text (limit %.2f)\n"
        "memory: bytes of that tree for each byte of the XML text\n"
        "'!' is above the limit.\n\n%-28s %10s %10s %8s  %8s\n",
        kMostForTree, "document", "xml", "octets", "tree", "memory");
    for (Document const& document : AllDocuments())
        PrintTreeRow(document);
    std::printf("\nread: reading records into objects from Fast Infoset, by the time of a program by hand "
                "that reads\n"
                "      XML text (limit %.2f): values as text, then under the suggested encodings\n\n"
                "%-28s %10s %10s %8s  %10s %8s\n",
                kMostForObjects, "document", "xml", "octets", "read", "octets", "read");
    for (RecordSize const& size : kRecordSizes)
        PrintObjectsRow(size);
}

} // namespace

int main(int argc, char** argv) {
    return RunRecordProgram(argc, argv, Repeat, Print);
}
