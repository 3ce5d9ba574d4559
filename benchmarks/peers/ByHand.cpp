#include "benchmarks/peers/Peers.h"

#include <cstring>
#include <expat.h>
#include <stdexcept>

namespace peers {

namespace {

// Fills the structs from the parser's events.
class Reader {
public:
    explicit Reader(Orders& orders) : m_orders(orders), m_parser(XML_ParserCreateNS("UTF-8", '|')) {
        XML_SetUserData(m_parser, this);
        XML_SetElementHandler(m_parser, &Start, &End);
        XML_SetCharacterDataHandler(m_parser, &Text);
    }
    Reader(Reader const&) = delete;
    Reader& operator=(Reader const&) = delete;
    ~Reader() { XML_ParserFree(m_parser); }

    void Read(std::string const& xml) {
        if (XML_Parse(m_parser, xml.data(), static_cast<int>(xml.size()), 1) == XML_STATUS_ERROR)
            throw std::runtime_error(XML_ErrorString(XML_GetErrorCode(m_parser)));
        if (m_hasFailed)
            throw std::runtime_error("no document of orders");
    }

private:
    static std::string_view LocalName(char const* name) {
        constexpr std::size_t kLength = sizeof kNamespace - 1;
        return std::strncmp(name, kNamespace, kLength) == 0 && name[kLength] == '|' ? name + kLength + 1 : "";
    }
    static char const* Find(char const** attributes, char const* name) {
        for (; *attributes != nullptr; attributes += 2) {
            if (std::strcmp(*attributes, name) == 0)
                return attributes[1];
        }
        throw std::runtime_error(std::string("no ") + name);
    }
    // No exception passes through the parser.
    template <class Call>
    void Try(Call call) {
        if (m_hasFailed)
            return;
        try {
            call();
        } catch (std::exception const&) {
            m_hasFailed = true;
            XML_StopParser(m_parser, XML_FALSE);
        }
    }
    static void XMLCALL Start(void* user, char const* name, char const** attributes) {
        auto& self = *static_cast<Reader*>(user);
        self.m_text.clear();
        self.Try([&] {
            std::string_view const local = LocalName(name);
            if (local == "order") {
                Order& order = self.m_orders.emplace_back();
                order.id = ToInteger(Find(attributes, "id"));
                order.currency = ToCurrency(Find(attributes, "currency"));
            } else if (local == "item") {
                self.m_orders.back().items.emplace_back().sku = Find(attributes, "sku");
            }
        });
    }
    static void XMLCALL End(void* user, char const* name) {
        auto& self = *static_cast<Reader*>(user);
        self.Try([&] { self.Take(LocalName(name)); });
    }
    void Take(std::string_view name) {
        if (m_orders.empty() || name == "orders" || name == "order" || name == "item")
            return;
        Order& order = m_orders.back();
        if (name == "customer")
            order.customer = m_text;
        else if (name == "date")
            order.date = ToDate(m_text);
        else if (name == "express")
            order.express = ToBool(m_text);
        else if (name == "total")
            order.total = ToDecimal(m_text);
        else if (name == "quantity")
            order.items.back().quantity = static_cast<int>(ToInteger(m_text));
        else if (name == "price")
            order.items.back().price = ToDecimal(m_text);
        else if (name == "note")
            order.items.back().note = m_text;
        else if (name == "tag")
            order.items.back().tags.push_back(m_text);
        else
            throw std::runtime_error("unknown element");
    }
    static void XMLCALL Text(void* user, char const* text, int length) {
        static_cast<Reader*>(user)->m_text.append(text, static_cast<std::size_t>(length));
    }

    Orders& m_orders;
    XML_Parser m_parser;
    std::string m_text;
    bool m_hasFailed = false;
};

void Escape(std::string& out, std::string const& text) {
    for (char const c : text) {
        switch (c) {
        case '<':
            out += "&lt;";
            break;
        case '>':
            out += "&gt;";
            break;
        case '&':
            out += "&amp;";
            break;
        case '"':
            out += "&quot;";
            break;
        default:
            out += c;
        }
    }
}

template <class Value>
void Element(std::string& out, char const* name, Value const& value) {
    ((out += '<') += name) += '>';
    if constexpr (std::is_same_v<Value, std::string>)
        Escape(out, value);
    else
        Append(out, value);
    ((out += "</") += name) += '>';
}

class HandProgram final : public StructProgram {
public:
    void Read(std::string const& document) override {
        m_orders.clear();
        Reader(m_orders).Read(document);
    }

    std::string Write() override {
        std::string out = "<orders xmlns=\"urn:example:orders\">";
        for (Order const& order : m_orders) {
            Append(out += "<order id=\"", order.id);
            ((out += "\" currency=\"") += NameOf(order.currency)) += "\">";
            Element(out, "customer", order.customer);
            Element(out, "date", order.date);
            out += order.express ? "<express>true</express>" : "<express>false</express>";
            Element(out, "total", order.total);
            for (Item const& item : order.items) {
                Escape(out += "<item sku=\"", item.sku);
                out += "\">";
                Element(out, "quantity", static_cast<long long>(item.quantity));
                Element(out, "price", item.price);
                if (item.note)
                    Element(out, "note", *item.note);
                for (std::string const& tag : item.tags)
                    Element(out, "tag", tag);
                out += "</item>";
            }
            out += "</order>";
        }
        return out += "</orders>";
    }
};

} // namespace

std::unique_ptr<StructProgram> ByHand() {
    return std::make_unique<HandProgram>();
}

} // namespace peers
