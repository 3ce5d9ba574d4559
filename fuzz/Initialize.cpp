// The state of the process that all fuzzers run in: texts are UTF-8.
#include "zvxmllib/ZvXmlLib.h"

extern "C" int LLVMFuzzerInitialize(int* argumentCount, char*** arguments);

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    ZvXmlLib16::SetGeneratorVersion(ZvXmlLib16::kLibraryMajorVersion, ZvXmlLib16::kLibraryMinorVersion);
    ZvXmlLib16::SetLocalCharEncoding(65001);
    return 0;
}
