#include "benchmarks/typed/RecordProgram.h"

#include <cstdio>
#include <cstdlib>

using namespace ZvXmlLib16;

namespace bench {

CSerializationContext const& RecordContext() {
    static CSerializationContext const context = [] {
        CSerializationContext ctx;
        ctx.SetDefaultNamespaceURI(kRecordNamespace);
        return ctx;
    }();
    return context;
}

CSmartPtr<CRecords> ReadRecords(std::string const& xml) {
    CSmartPtr<CRecords> records(new CRecords);
    records->FromXml(xml.c_str(), RecordContext());
    return records;
}

CBinaryData WriteRecordsAsXml(CRecords& records) {
    return records.ToXmlStream(false, false, XmlEncoding_UTF8, EOLType_LF, RecordContext(),
                               CompressionType_None);
}

std::string_view TextOf(CBinaryData const& data) {
    return std::string_view(reinterpret_cast<char const*>(data.GetData()), data.GetLength());
}

void Require(bool holds, char const* message) {
    if (holds)
        return;
    std::puts(message);
    std::exit(1);
}

int RunRecordProgram(
    int argc, char** argv,
    std::function<void(std::string const& what, std::string const& xml, int times)> const& repeat,
    std::function<void()> const& print) {
    SetGeneratorVersion(kLibraryMajorVersion, kLibraryMinorVersion);
    SetLocalCharEncoding(65001);
    if (argc > 2)
        repeat(argv[1], MakeRecords(11000), std::atoi(argv[2]));
    else
        print();
    return 0;
}

} // namespace bench
