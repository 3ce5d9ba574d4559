// Shared by the programs that measure records.
#pragma once

#include "benchmarks/MedianRatio.h"
#include "benchmarks/typed/Record.h"

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

namespace bench {

struct RecordSize {
    char const* name;
    std::size_t bytes; // of their XML text
};

inline constexpr RecordSize kRecordSizes[] = {{"1 MB", std::size_t{1} << 20U},
                                              {"50 MB", std::size_t{50} << 20U}};

// The library's own options, and the namespace of the records.
ZvXmlLib16::CSerializationContext const& RecordContext();

CSmartPtr<CRecords> ReadRecords(std::string const& xml);
// Compact, UTF-8.
ZvXmlLib16::CBinaryData WriteRecordsAsXml(CRecords& records);

std::string_view TextOf(ZvXmlLib16::CBinaryData const& data);

// Ends the program with the message unless `holds`.
void Require(bool holds, char const* message);

// Runs `repeat(what, xml, times)` with an 11 KB document for the arguments "WHAT TIMES", so that its
// instructions can be counted, and `print` without arguments.
int RunRecordProgram(
    int argc, char** argv,
    std::function<void(std::string const& what, std::string const& xml, int times)> const& repeat,
    std::function<void()> const& print);

} // namespace bench
