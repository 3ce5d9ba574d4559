// An independent judge of what the library writes as JSON.
#include "tests/json/JsonParser.h"

#include <nlohmann/json.hpp>

std::string FaultOfJson(std::string const& text) {
    try {
        return nlohmann::json::parse(text).is_object() ? "" : "no object: " + text;
    } catch (nlohmann::json::exception const& fault) {
        return std::string(fault.what()) + " in " + text;
    }
}
