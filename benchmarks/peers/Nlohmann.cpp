#include "benchmarks/peers/Peers.h"

#include <cmath>
#include <nlohmann/json.hpp>

namespace peers {

namespace {

using Json = nlohmann::json;

// It has no decimals: these have two digits, which a double keeps.
Decimal ToDecimal(Json const& value) {
    return {std::llround(value.get<double>() * 100), 2};
}

double FromDecimal(Decimal const& value) {
    return static_cast<double>(value.units) / 100;
}

Item ReadItem(Json const& object) {
    Item item;
    item.sku = object.at("@sku").get<std::string>();
    item.quantity = object.at("quantity").get<int>();
    item.price = ToDecimal(object.at("price"));
    if (auto const note = object.find("note"); note != object.end())
        item.note = note->get<std::string>();
    if (auto const tags = object.find("tag"); tags != object.end())
        item.tags = tags->get<std::vector<std::string>>();
    return item;
}

Order ReadOrder(Json const& object) {
    Order order;
    order.id = object.at("@id").get<long long>();
    order.currency = ToCurrency(object.at("@currency").get_ref<std::string const&>());
    order.customer = object.at("customer").get<std::string>();
    order.date = ToDate(object.at("date").get_ref<std::string const&>());
    order.express = object.at("express").get<bool>();
    order.total = ToDecimal(object.at("total"));
    for (Json const& item : object.at("item"))
        order.items.push_back(ReadItem(item));
    return order;
}

class NlohmannProgram final : public StructProgram {
public:
    void Read(std::string const& document) override {
        Json const tree = Json::parse(document);
        m_orders.clear();
        for (Json const& order : tree.at("orders").at("order"))
            m_orders.push_back(ReadOrder(order));
    }

    std::string Write() override {
        Json orders = Json::array();
        for (Order const& order : m_orders) {
            Json items = Json::array();
            for (Item const& item : order.items) {
                Json object = {
                    {"@sku", item.sku}, {"quantity", item.quantity}, {"price", FromDecimal(item.price)}};
                if (item.note)
                    object["note"] = *item.note;
                if (!item.tags.empty())
                    object["tag"] = item.tags;
                items.push_back(std::move(object));
            }
            orders.push_back({{"@id", order.id},
                              {"@currency", NameOf(order.currency)},
                              {"customer", order.customer},
                              {"date", ToText(order.date)},
                              {"express", order.express},
                              {"total", FromDecimal(order.total)},
                              {"item", std::move(items)}});
        }
        Json root;
        root["orders"] = {{"@xmlns", kNamespace}, {"order", std::move(orders)}};
        return root.dump();
    }
};

} // namespace

std::unique_ptr<StructProgram> Nlohmann() {
    return std::make_unique<NlohmannProgram>();
}

} // namespace peers
