// The check of a pattern that was compiled before, by the time of the bare library: medians of ratios.
#include "benchmarks/MedianRatio.h"
#include "benchmarks/values/BarePattern.h"

#include "zvxmllib/ZvXmlLib.h"

#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

using namespace ZvXmlLib16;

namespace {

constexpr double kMost = 1.5;

// `expression` is what `pattern` is translated into. Every value matches.
void PrintRow(char const* name, char const* pattern, char const* expression,
              std::vector<std::string> const& values) {
    CPrimitiveRestrictions facets;
    facets.pattern = pattern;
    bench::BarePattern const bare(expression);
    std::size_t matches = 0;
    auto const check = [&] {
        for (std::string const& value : values)
            CheckPrimitive("n", value, facets);
    };
    auto const match = [&] {
        for (std::string const& value : values)
            matches += bare.Matches(value) ? 1U : 0U;
    };
    match();
    if (matches != values.size()) {
        std::printf("%s: no match\n", name);
        std::exit(1);
    }
    double const ratio = bench::MedianRatio(check, match);
    std::printf("%-16s %8.2f%c\n", name, ratio, bench::Mark(ratio, kMost));
    std::fflush(stdout);
}

} // namespace

int main() {
    std::printf("Values checked against a pattern, by the time of the library of regular expressions alone "
                "(limit %.1f).\n'!' is above the limit.\n\n",
                kMost);
    PrintRow("postal code", R"([A-Z]{1,2}\d[A-Z\d]? \d[A-Z]{2})", R"(^([A-Z]{1,2}\d[A-Z\d]? \d[A-Z]{2})$)",
             {"SW1A 1AA", "M1 1AE", "CR2 6XH", "DN55 1PT"});
    PrintRow("identifier", R"([A-Z]{3}-\d{4,12}(-[a-z0-9]+)*)", R"(^([A-Z]{3}-\d{4,12}(-[a-z0-9]+)*)$)",
             {"ABC-1234", "XYZ-123456789012-ab-cd9", "QQQ-00000-zzzzzzzzzzzz"});
    PrintRow("name", R"(\i\c*)", R"(^(([^\W\d]|:)(\w|\.|-|:)*)$)", {"a", "shipTo", "urn:line-item.1"});
    PrintRow("words, 2 KB", R"(\w+( \w+)*)", R"(^(\w+( \w+)*)$)",
             {std::string(600, 'a') + ' ' + std::string(800, 'b') + ' ' + std::string(600, 'c')});
}
