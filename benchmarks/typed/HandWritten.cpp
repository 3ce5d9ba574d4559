// The yardstick: the records by hand.
#include "benchmarks/typed/Record.h"

#include <charconv>
#include <cstring>
#include <initializer_list>
#include <stdexcept>
#include <string_view>

#include <expat.h>

namespace bench {

namespace {

constexpr char const* kCategories[] = {"tool", "toy", "food"};

template <class Number>
void ToNumber(std::string_view text, Number& number) {
    if (std::from_chars(text.data(), text.data() + text.size(), number).ec != std::errc())
        throw std::runtime_error("not a number");
}

// Expat's name for an element of this namespace.
bool IsCalled(char const* name, std::string_view local) {
    constexpr std::size_t kPrefix = sizeof kRecordNamespace; // with the separator in place of the NUL
    return std::strncmp(name, kRecordNamespace, kPrefix - 1) == 0 && name[kPrefix - 1] == '|' &&
           local == name + kPrefix;
}

class Reader {
public:
    std::vector<Record> Read(std::string const& xml) {
        XML_Parser parser = XML_ParserCreateNS(nullptr, '|');
        XML_SetUserData(parser, this);
        XML_SetElementHandler(
            parser,
            [](void* self, char const* name, char const** attributes) {
                static_cast<Reader*>(self)->Start(name, attributes);
            },
            [](void* self, char const*) { static_cast<Reader*>(self)->End(); });
        XML_SetCharacterDataHandler(parser, [](void* self, char const* text, int length) {
            static_cast<Reader*>(self)->m_text.append(text, static_cast<std::size_t>(length));
        });
        XML_Status const status = XML_Parse(parser, xml.data(), static_cast<int>(xml.size()), 1);
        XML_ParserFree(parser);
        if (status != XML_STATUS_OK)
            throw std::runtime_error("ill-formed");
        return std::move(m_records);
    }

private:
    static constexpr char const* kFields[] = {"name",   "city",   "mail",   "quantity", "stock", "price",
                                              "weight", "active", "rating", "category", "note"};

    void Start(char const* name, char const** attributes) {
        ++m_depth;
        if (m_depth == 2 && IsCalled(name, "record")) {
            m_records.emplace_back();
            m_field = 0;
            ToNumber(attributes[1], m_records.back().id);
        } else if (m_depth == 3) {
            // The fields stand in order.
            if (m_field == std::size(kFields) || !IsCalled(name, kFields[m_field]))
                throw std::runtime_error("unexpected element");
        }
        m_text.clear();
    }

    void End() {
        if (m_depth-- == 3)
            Store();
        m_text.clear();
    }

    void Store() {
        Record& r = m_records.back();
        switch (m_field++) {
        case 0:
            r.name = m_text;
            break;
        case 1:
            r.city = m_text;
            break;
        case 2:
            r.mail = m_text;
            break;
        case 3:
            ToNumber(m_text, r.quantity);
            break;
        case 4:
            ToNumber(m_text, r.stock);
            break;
        case 5:
            ToNumber(m_text, r.price);
            break;
        case 6:
            ToNumber(m_text, r.weight);
            break;
        case 7:
            r.active = m_text == "true";
            break;
        case 8:
            ToNumber(m_text, r.rating);
            break;
        case 9:
            r.category = static_cast<Category>(TextToCategory(m_text.c_str()));
            break;
        default:
            r.note = m_text;
        }
    }

    std::vector<Record> m_records;
    std::string m_text;
    int m_depth = 0;
    std::size_t m_field = 0;
};

void AppendEscaped(std::string& out, std::string const& text) {
    for (char const c : text) {
        switch (c) {
        case '&':
            out += "&amp;";
            break;
        case '<':
            out += "&lt;";
            break;
        case '>':
            out += "&gt;";
            break;
        default:
            out += c;
        }
    }
}

template <class Number>
void AppendNumber(std::string& out, Number number) {
    char digits[32];
    out.append(digits, std::to_chars(digits, digits + sizeof digits, number).ptr);
}

void AppendField(std::string& out, char const* name, std::string const& value) {
    out.append("<").append(name).append(">");
    AppendEscaped(out, value);
    out.append("</").append(name).append(">");
}

template <class Number>
void AppendField(std::string& out, char const* name, Number value) {
    out.append("<").append(name).append(">");
    AppendNumber(out, value);
    out.append("</").append(name).append(">");
}

void AppendRecord(std::string& out, Record const& r) {
    out += "<record id=\"";
    AppendNumber(out, r.id);
    out += "\">";
    AppendField(out, "name", r.name);
    AppendField(out, "city", r.city);
    AppendField(out, "mail", r.mail);
    AppendField(out, "quantity", r.quantity);
    AppendField(out, "stock", r.stock);
    AppendField(out, "price", r.price);
    AppendField(out, "weight", r.weight);
    AppendField(out, "active", std::string(r.active ? "true" : "false"));
    AppendField(out, "rating", static_cast<int>(r.rating));
    AppendField(out, "category", std::string(kCategories[r.category]));
    AppendField(out, "note", r.note);
    out += "</record>";
}

} // namespace

char const* CategoryToText(int category) {
    return kCategories[category];
}

int TextToCategory(char const* text) {
    for (int i = 0; i < 3; ++i) {
        if (std::strcmp(text, kCategories[i]) == 0)
            return i;
    }
    throw ZvXmlLib16::CZvInvalidValueException("unknown category");
}

std::vector<Record> ReadByHand(std::string const& xml) {
    return Reader().Read(xml);
}

std::string WriteByHand(std::vector<Record> const& records) {
    std::string out = std::string("<records xmlns=\"") + kRecordNamespace + "\">";
    for (Record const& record : records)
        AppendRecord(out, record);
    return out += "</records>";
}

std::string MakeRecords(std::size_t bytes) {
    std::string xml;
    auto const add = [&](std::initializer_list<std::string_view> parts) {
        for (std::string_view const part : parts)
            xml += part;
    };
    add({"<?xml version=\"1.0\"?>\n<records xmlns=\"", kRecordNamespace, "\">\n"});
    for (int i = 0; xml.size() < bytes; ++i) {
        std::string const n = std::to_string(i);
        add({"  <record id=\"", n, "\">\n"});
        add({"    <name>Person number ", n, "</name>\n"});
        add({"    <city>", i % 2 == 0 ? "Amsterdam" : "Bruxelles-Ville", "</city>\n"});
        add({"    <mail>person", n, "@example.org</mail>\n"});
        add({"    <quantity>", std::to_string(i % 1000), "</quantity>\n"});
        add({"    <stock>", std::to_string(1000000007LL * i), "</stock>\n"});
        add({"    <price>", std::to_string(i % 500), ".25</price>\n"});
        add({"    <weight>0.125</weight>\n"});
        add({"    <active>", i % 3 == 0 ? "true" : "false", "</active>\n"});
        add({"    <rating>", std::to_string(i % 10), "</rating>\n"});
        add({"    <category>", kCategories[i % 3], "</category>\n"});
        add({"    <note>Some text &amp; more of it, record ", n, "</note>\n"});
        add({"  </record>\n"});
    }
    return xml += "</records>\n";
}

} // namespace bench
