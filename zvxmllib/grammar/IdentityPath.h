// The paths of selectors and fields (XML Schema Part 1, 3.11.6).
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace ZvXmlLib16::grammar {

// An element or attribute by its name.
struct NameTest {
    bool isAnyName = false;
    bool isAnyNamespace = false;
    std::string name;
    std::string ns;

    bool Matches(std::string_view otherName, std::string_view otherNs) const noexcept {
        return (isAnyName || name == otherName) && (isAnyNamespace || ns == otherNs);
    }
};

// One of the alternatives of a path: child steps, anywhere below with `isDeep`, and an attribute behind them.
struct IdentityPath {
    bool isDeep = false;
    std::vector<NameTest> steps;
    bool hasAttribute = false;
    NameTest attribute;
};

// As IdentityRow writes them; only those of fields end in attributes. Throws CZvInvalidParamException for
// what is none.
std::vector<IdentityPath> ParseIdentityPath(std::string_view text, bool isField);

} // namespace ZvXmlLib16::grammar
