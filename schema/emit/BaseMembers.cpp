#include "schema/emit/BaseMembers.h"

#include <algorithm>
#include <iterator>

namespace ZvXmlLib16::schema {

namespace {

// Sorted; the build collects them from the headers.
constexpr std::string_view kMembers[] = {
#include "BaseMembers.inc"
};

} // namespace

bool IsBaseMember(std::string_view name) {
    return std::binary_search(std::begin(kMembers), std::end(kMembers), name);
}

} // namespace ZvXmlLib16::schema
