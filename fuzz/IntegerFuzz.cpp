// A text as a whole number of each fixed width.
#include "Fuzz.h"

extern "C" int LLVMFuzzerTestOneInput(unsigned char const* data, std::size_t size) {
    std::string const text(TextOf(data, size));
    // One parser, which refuses for a narrow type what it refuses for a wide one.
    if (ReadAs(text, ItemType_i8))
        ReadAsEach(text, {ItemType_i4, ItemType_i2, ItemType_i1});
    if (ReadAs(text, ItemType_ui8))
        ReadAsEach(text, {ItemType_ui4, ItemType_ui2, ItemType_ui1});
    return 0;
}
