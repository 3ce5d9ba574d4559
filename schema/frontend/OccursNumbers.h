// Large numbers of minOccurs and maxOccurs made small.
#pragma once

#include "schema/frontend/SchemaSet.h"

#include <map>
#include <string>

namespace ZvXmlLib16::schema {

// The parser unrolls repeated groups, so a large number costs it time and memory without bound. Its rules
// only compare the numbers with each other: so the large ones of a set are replaced by others of the same
// order. A document keeps its length, and the places in it stay.
class OccursNumbers {
public:
    explicit OccursNumbers(SchemaSet const& set);

    // Of a document in an encoding that has ASCII as it is; others are left as they are.
    std::string Shorten(std::string const& document) const;

private:
    std::map<std::string, std::string> m_replacements; // by digits without zeros in front
};

} // namespace ZvXmlLib16::schema
