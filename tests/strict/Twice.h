// Rows that are run twice: by the usual rules, and in a strict context.
#pragma once

#include "tests/driver/Reading.h"

#include <functional>

namespace entries {

inline CSerializationContext Strict() {
    CSerializationContext ctx;
    ctx.SetStrict(true);
    return ctx;
}
inline CSerializationContext StrictIgnoring(void (CSerializationContext::*option)(bool)) {
    CSerializationContext ctx = Strict();
    (ctx.*option)(true);
    return ctx;
}

struct TwiceRow {
    std::string xml;
    std::string usual;  // as in ReadRow
    std::string strict; // likewise
};

inline void ExpectTwice(Model& model, std::vector<TwiceRow> const& rows, CSerializationContext ctx = {}) {
    for (TwiceRow const& row : rows) {
        for (bool const strict : {false, true}) {
            ctx.SetStrict(strict);
            std::string const& outcome = strict ? row.strict : row.usual;
            EXPECT_EQ(Outcome(model, row.xml.c_str(), ctx), outcome.empty() ? row.xml : outcome)
                << row.xml << (strict ? " strict" : "");
        }
    }
}

} // namespace entries
