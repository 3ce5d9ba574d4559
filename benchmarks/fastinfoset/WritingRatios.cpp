// Typed objects to Fast Infoset: size and time, against the XML text of the same objects. "write N" writes an
// 11 KB document N times, for a count of instructions.
#include "benchmarks/MedianRatio.h"
#include "benchmarks/typed/Record.h"

#include <cstdio>
#include <cstdlib>

using namespace ZvXmlLib16;
using namespace bench;

namespace {

constexpr double kMostOfSize = 0.5;
constexpr double kMostOfTime = 1;

CSerializationContext MakeContext(bool suggested) {
    CSerializationContext ctx;
    ctx.SetDefaultNamespaceURI(kRecordNamespace);
    if (suggested)
        ctx.GetFIContext().SetSuggestedValues();
    return ctx;
}

CBinaryData WriteXml(CRecords& records, CSerializationContext const& ctx) {
    return records.ToXmlStream(false, false, XmlEncoding_UTF8, EOLType_LF, ctx, CompressionType_None);
}

CBinaryData WriteFastInfoset(CRecords& records, CSerializationContext const& ctx) {
    return records.ToFastInfosetStream(FInfoDecl_None, ctx, CompressionType_None);
}

char Mark(double value, double limit) {
    return value <= limit ? ' ' : '!';
}

void PrintRow(char const* name, CRecords& records, bool suggested) {
    CSerializationContext const ctx = MakeContext(suggested);
    CBinaryData const written = WriteFastInfoset(records, ctx);
    CBinaryData const xml = WriteXml(records, ctx);
    CSmartPtr<CRecords> const back(new CRecords);
    back->FromXmlStream(written, ctx);
    if (WriteXml(*back, ctx) != xml) {
        std::puts("what comes back is not what was written");
        std::exit(1);
    }
    double const size = static_cast<double>(written.GetLength()) / static_cast<double>(xml.GetLength());
    double const time = MedianRatio([&] { WriteFastInfoset(records, ctx); }, [&] { WriteXml(records, ctx); });
    // Encodings save space, not time: a text is made of each value first.
    char const mark = suggested ? ' ' : Mark(time, kMostOfTime);
    std::printf("%-18s %8.2f%c %8.2f%c\n", name, size, Mark(size, kMostOfSize), time, mark);
    std::fflush(stdout);
}

void Read(CRecords& records, std::size_t bytes) {
    records.FromXml(MakeRecords(bytes).c_str(), MakeContext(false));
}

void Repeat(int times) {
    CSmartPtr<CRecords> const records(new CRecords);
    Read(*records, 11000);
    CSerializationContext const ctx = MakeContext(false);
    for (int i = 0; i < times; ++i)
        WriteFastInfoset(*records, ctx);
}

} // namespace

int main(int argc, char** argv) {
    SetGeneratorVersion(kLibraryMajorVersion, kLibraryMinorVersion);
    SetLocalCharEncoding(65001);
    if (argc > 2) {
        Repeat(std::atoi(argv[2]));
        return 0;
    }
    std::printf(
        "size: records as Fast Infoset, by their size as XML text without blanks (limit %.1f)\n"
        "time: writing them, by the time of writing the XML text (limit %.1f without suggested encodings)\n"
        "'!' is above the limit.\n\n%-18s %8s  %8s\n",
        kMostOfSize, kMostOfTime, "document", "size", "time");
    for (auto const& [name, bytes] :
         {std::pair("1 MB", std::size_t{1} << 20U), std::pair("50 MB", std::size_t{50} << 20U)}) {
        CSmartPtr<CRecords> const records(new CRecords);
        Read(*records, bytes);
        PrintRow(name, *records, false);
        PrintRow((std::string(name) + ", suggested").c_str(), *records, true);
    }
}
