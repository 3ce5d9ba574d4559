// The examples of docs/json.md.
#pragma once

#include "tests/support/DocumentedExamples.h"
#include "zvxmllib/json/JsonContext.h"

#include <gtest/gtest.h>

#include <utility>

inline ZvXmlLib16::JsonRoundTrip ModeOf(std::string const& info) {
    using namespace ZvXmlLib16;
    for (auto const& [name, mode] : {std::pair("json none", JsonRoundTrip_None),
                                     std::pair("json no-namespaces", JsonRoundTrip_NoNamespaces),
                                     std::pair("json full", JsonRoundTrip_Full)}) {
        if (info == name)
            return mode;
    }
    ADD_FAILURE() << "no mode: " << info;
    return JsonRoundTrip_Full;
}
