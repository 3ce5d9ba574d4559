// A pattern matched by the library of regular expressions itself, compiled once.
#pragma once

#include <memory>
#include <string>

namespace bench {

class BarePattern {
public:
    explicit BarePattern(char const* expression); // whole, with its anchors
    BarePattern(BarePattern const&) = delete;
    BarePattern& operator=(BarePattern const&) = delete;
    ~BarePattern();

    // By machine code, where the library makes it. It looks whether the subject is UTF-8.
    bool Matches(std::string const& subject) const;

private:
    struct Compiled;
    std::unique_ptr<Compiled> m_compiled;
};

} // namespace bench
