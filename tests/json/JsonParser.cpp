// An independent judge of what the library writes as JSON.
#include "tests/json/JsonParser.h"

#include <nlohmann/json.hpp>

namespace {

class NameCounter : public nlohmann::json_sax<nlohmann::json> {
public:
    JsonCounts m_counts;

    bool key(std::string& name) override {
        if (name.rfind("@xmlns", 0) == 0 || name == "#text")
            return true;
        ++(name[0] == '@' ? m_counts.attributes : m_counts.elements);
        return true;
    }
    bool null() override { return true; }
    bool boolean(bool) override { return true; }
    bool number_integer(std::int64_t) override { return true; }
    bool number_unsigned(std::uint64_t) override { return true; }
    bool number_float(double, std::string const&) override { return true; }
    bool string(std::string&) override { return true; }
    bool binary(nlohmann::json::binary_t&) override { return true; }
    bool start_object(std::size_t) override { return true; }
    bool end_object() override { return true; }
    bool start_array(std::size_t) override { return true; }
    bool end_array() override { return true; }
    bool parse_error(std::size_t, std::string const&, nlohmann::json::exception const&) override {
        return false;
    }
};

} // namespace

std::string FaultOfJson(std::string const& text) {
    try {
        return nlohmann::json::parse(text).is_object() ? "" : "no object: " + text;
    } catch (nlohmann::json::exception const& fault) {
        return std::string(fault.what()) + " in " + text;
    }
}

JsonCounts CountNames(std::string const& text) {
    NameCounter counter;
    static_cast<void>(nlohmann::json::sax_parse(text, &counter));
    return counter.m_counts;
}
