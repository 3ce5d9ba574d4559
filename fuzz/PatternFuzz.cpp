// A pattern, a line feed, a value. The check ends, and what was compiled before gives the same answer.
#include "zvxmllib/ZvXmlLib.h"

#include <cstdlib>
#include <string>

using namespace ZvXmlLib16;

namespace {

// The message, empty if the value passes.
std::string Check(CPrimitiveRestrictions const& facets, std::string const& value) {
    try {
        CheckPrimitive("n", value, facets);
        return "";
    } catch (CZvException const& failure) {
        return failure.GetFullMessage();
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(unsigned char const* data, std::size_t size) {
    std::string const input(data, data + size);
    std::size_t const end = input.find('\n');
    CPrimitiveRestrictions facets;
    facets.pattern = input.substr(0, end);
    std::string const value = end == std::string::npos ? "" : input.substr(end + 1);
    std::string const first = Check(facets, value);
    if (Check(facets, value) != first || Check(CPrimitiveRestrictions(facets), value) != first)
        std::abort();
    return 0;
}
