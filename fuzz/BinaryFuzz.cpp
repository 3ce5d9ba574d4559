// A text as binary data in both forms, and as a truth value.
#include "Fuzz.h"

extern "C" int LLVMFuzzerTestOneInput(unsigned char const* data, std::size_t size) {
    ReadAsEach(std::string(TextOf(data, size)),
               {ItemType_hexBinary, ItemType_base64Binary, ItemType_boolean});
    return 0;
}
