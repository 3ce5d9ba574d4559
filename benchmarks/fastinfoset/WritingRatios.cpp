// Typed objects to Fast Infoset: size and time, against the XML text of the same objects. "write N" writes an
// 11 KB document N times, for a count of instructions.
#include "benchmarks/typed/RecordProgram.h"

#include <cstdio>

using namespace ZvXmlLib16;
using namespace bench;

namespace {

constexpr double kMostOfSize = 0.5;
constexpr double kMostOfTime = 1;

CBinaryData WriteFastInfoset(CRecords& records, CSerializationContext const& ctx) {
    return records.ToFastInfosetStream(FInfoDecl_None, ctx, CompressionType_None);
}

void PrintRow(std::string const& name, CRecords& records, bool suggested) {
    CSerializationContext ctx(RecordContext());
    if (suggested)
        ctx.GetFIContext().SetSuggestedValues();
    CBinaryData const written = WriteFastInfoset(records, ctx);
    CBinaryData const xml = WriteRecordsAsXml(records);
    CSmartPtr<CRecords> const back(new CRecords);
    back->FromXmlStream(written, ctx);
    Require(WriteRecordsAsXml(*back) == xml, "what comes back is not what was written");
    double const size = static_cast<double>(written.GetLength()) / static_cast<double>(xml.GetLength());
    double const time =
        MedianRatio([&] { WriteFastInfoset(records, ctx); }, [&] { WriteRecordsAsXml(records); });
    // Encodings save space, not time: a text is made of each value first.
    char const mark = suggested ? ' ' : Mark(time, kMostOfTime);
    std::printf("%-18s %8.2f%c %8.2f%c\n", name.c_str(), size, Mark(size, kMostOfSize), time, mark);
    std::fflush(stdout);
}

void Repeat(std::string const&, std::string const& xml, int times) {
    CSmartPtr<CRecords> const records = ReadRecords(xml);
    for (int i = 0; i < times; ++i)
        WriteFastInfoset(*records, RecordContext());
}

void Print() {
    std::printf(
        "size: records as Fast Infoset, by their size as XML text without blanks (limit %.1f)\n"
        "time: writing them, by the time of writing the XML text (limit %.1f without suggested encodings)\n"
        "'!' is above the limit.\n\n%-18s %8s  %8s\n",
        kMostOfSize, kMostOfTime, "document", "size", "time");
    for (auto const& [name, bytes] : kRecordSizes) {
        CSmartPtr<CRecords> const records = ReadRecords(MakeRecords(bytes));
        PrintRow(name, *records, false);
        PrintRow(std::string(name) + ", suggested", *records, true);
    }
}

} // namespace

int main(int argc, char** argv) {
    return RunRecordProgram(argc, argv, Repeat, Print);
}
