// JSON text by the reader of plain JSON and by way of XML text, usual and strict: either the first declines
// or the trees are equal.
#include "Fuzz.h"

#include "tests/support/BothReaders.h"
#include "zvxmllib/json/JsonContext.h"
#include "zvxmllib/json/PlainJsonReader.h"

namespace {

CSerializationContext Options(std::size_t choice) {
    static constexpr JsonRoundTrip kModes[] = {JsonRoundTrip_Full, JsonRoundTrip_None};
    CSerializationContext ctx;
    ctx.GetJsonContext().SetSupportRoundtrip(kModes[choice % 2]);
    if (choice / 2 % 2 != 0)
        ctx.GetJsonContext().SetRootElementName("r");
    ctx.SetStrict(choice / 4 % 2 != 0);
    return ctx;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(unsigned char const* data, std::size_t size) {
    static CSerializationContext const kOptions[] = {Options(0), Options(1), Options(2), Options(3),
                                                     Options(4), Options(5), Options(6), Options(7)};
    std::string const json(TextOf(data, size));
    CSerializationContext const& ctx = kOptions[size % 8]; // texts change their length often
    CXmlDocument plain(ctx);
    if (!PlainJsonReader::Fill(plain, json, ctx))
        return 0;
    CXmlDocument parsed(ctx);
    CBinaryData const xml = parsed.LoadJson(json.c_str());
    parsed.LoadXmlStream(xml.GetData(), xml.GetLength());
    std::string_view const text(reinterpret_cast<char const*>(xml.GetData()), xml.GetLength());
    Require(both_readers::Description(plain, text).GetText() ==
            both_readers::Description(parsed, text).GetText());
    return 0;
}
