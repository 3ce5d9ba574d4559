#include "benchmarks/peers/Peers.h"

#include "gsoap_ordersH.h"
#include "ns1.nsmap"

#include <algorithm>
#include <cstring>
#include <stdexcept>

namespace peers {

namespace {

// Its classes have dates and decimals as texts: the values stand beside them.
struct Values {
    Date date;
    Decimal total;
    std::vector<Decimal> prices;
};

class GsoapProgram final : public Program {
public:
    GsoapProgram() : m_soap(soap_new1(SOAP_C_UTFSTRING | SOAP_XML_TREE | SOAP_IO_BUFFER)) {
        m_soap->user = this;
        m_soap->frecv = [](soap* self, char* buffer, std::size_t size) {
            auto& program = *static_cast<GsoapProgram*>(self->user);
            std::size_t const count = std::min(size, program.m_input.size());
            std::memcpy(buffer, program.m_input.data(), count);
            program.m_input.remove_prefix(count);
            return count;
        };
        m_soap->fsend = [](soap* self, char const* text, std::size_t size) {
            static_cast<GsoapProgram*>(self->user)->m_output.append(text, size);
            return static_cast<int>(SOAP_OK);
        };
    }
    ~GsoapProgram() override {
        soap_destroy(m_soap);
        soap_end(m_soap);
        soap_free(m_soap);
    }

    void Read(std::string const& document) override {
        soap_destroy(m_soap);
        soap_end(m_soap);
        m_input = document;
        m_orders = soap_new__ns1__orders(m_soap);
        if (soap_read__ns1__orders(m_soap, m_orders) != SOAP_OK)
            throw std::runtime_error("no document of orders");
        m_values.clear();
        for (ns1__Order const* order : m_orders->order) {
            Values& values = m_values.emplace_back();
            values.date = ToDate(order->date);
            values.total = ToDecimal(order->total);
            for (ns1__Item const* item : order->item)
                values.prices.push_back(ToDecimal(item->price));
        }
    }

    std::string Write() override {
        for (std::size_t i = 0; i < m_values.size(); ++i) {
            ns1__Order& order = *m_orders->order[i];
            order.date = ToText(m_values[i].date);
            order.total = ToText(m_values[i].total);
            for (std::size_t k = 0; k < order.item.size(); ++k)
                order.item[k]->price = ToText(m_values[i].prices[k]);
        }
        m_output.clear();
        if (soap_write__ns1__orders(m_soap, m_orders) != SOAP_OK)
            throw std::runtime_error("writing failed");
        return std::move(m_output);
    }

private:
    soap* const m_soap;
    _ns1__orders* m_orders = nullptr;
    std::vector<Values> m_values;
    std::string_view m_input;
    std::string m_output;
};

} // namespace

std::unique_ptr<Program> Gsoap() {
    return std::make_unique<GsoapProgram>();
}

} // namespace peers
