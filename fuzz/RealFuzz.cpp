// A text as floating point, and as an exact number of any size.
#include "Fuzz.h"

extern "C" int LLVMFuzzerTestOneInput(unsigned char const* data, std::size_t size) {
    std::string const text(TextOf(data, size));
    ReadAsEach(text, {ItemType_decimal, ItemType_integer});
    if (ReadAs(text, ItemType_r8))
        ReadAs(text, ItemType_r4); // by the parser of r8
    return 0;
}
