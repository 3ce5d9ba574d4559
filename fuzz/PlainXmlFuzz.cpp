// XML text by the reader of plain XML and by the parser: either the first declines or the trees are equal;
// and what an application gets, failures included, is what the parser gives.
#include "Fuzz.h"

#include "tests/support/BothReaders.h"

extern "C" int LLVMFuzzerTestOneInput(unsigned char const* data, std::size_t size) {
    std::string_view const xml = TextOf(data, size);
    if (xml.empty())
        return 0;
    bool const isStrict = size % 2 == 0; // one or the other, so that a run takes half the time
    std::optional<std::string> const plain = both_readers::ByPlainReader(xml, isStrict);
    std::string const parsed = both_readers::ByLoad(xml, isStrict, true);
    Require(!plain || *plain == parsed);
    Require(both_readers::ByLoad(xml, isStrict, false) == parsed);
    return 0;
}
