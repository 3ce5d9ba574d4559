// The minimum cost of reading XML text: the parser with namespaces and handlers that do nothing.
#include "benchmarks/ExpatBaseline.h"

#include <expat.h>

#include <cstdlib>
#include <iostream>
#include <memory>

namespace bench {

namespace {

void OnStart(void*, char const*, char const**) {}
void OnEnd(void*, char const*) {}
void OnText(void*, char const*, int) {}

struct FreeParser {
    void operator()(XML_Parser parser) const noexcept { XML_ParserFree(parser); }
};

} // namespace

void ParseOnly(std::string const& text) {
    std::unique_ptr<XML_ParserStruct, FreeParser> const parser(XML_ParserCreateNS(nullptr, '|'));
    XML_SetElementHandler(parser.get(), &OnStart, &OnEnd);
    XML_SetCharacterDataHandler(parser.get(), &OnText);
    if (XML_Parse(parser.get(), text.data(), static_cast<int>(text.size()), XML_TRUE) != XML_STATUS_OK) {
        std::cerr << XML_ErrorString(XML_GetErrorCode(parser.get())) << '\n';
        std::exit(1);
    }
}

} // namespace bench
