// Typed collections with few words, for tests: what is not told is unbounded, without facets, collapsed.
#pragma once

#include "zvxmllib/collections/TypedCollections.h"

struct ColSetup {
    char const* name = "v";
    char const* ns = "";
    int minOccurs = 0;
    int maxOccurs = -1;
    ZvXmlLib16::CPrimitiveRestrictions facets = {};
    ZvXmlLib16::CWhitespaceUtils::WhitespaceRule rule = ZvXmlLib16::CWhitespaceUtils::WhitespaceRule_Collapse;
    char const* format = nullptr;
};

template <class Col>
Col* NewCol(ColSetup const& setup) {
    ZvXmlLib16::CPrimitiveRestrictions const& facets = setup.facets;
    return new Col(setup.name, setup.ns, setup.minOccurs, setup.maxOccurs, facets.pattern.c_str(),
                   facets.minLength, facets.maxLength, facets.minInclusive.c_str(),
                   facets.maxInclusive.c_str(), facets.minExclusive.c_str(), facets.maxExclusive.c_str(),
                   facets.length, facets.totalDigits, facets.fractionDigits, setup.rule, setup.format);
}
