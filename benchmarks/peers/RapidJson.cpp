#include "benchmarks/peers/Peers.h"

#include <rapidjson/document.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>
#include <stdexcept>

namespace peers {

namespace {

using Value = rapidjson::Value;

std::string_view View(Value const& value) {
    return {value.GetString(), value.GetStringLength()};
}

Item ReadItem(Value const& object) {
    Item item;
    for (auto const& member : object.GetObject()) {
        std::string_view const name = View(member.name);
        if (name == "@sku")
            item.sku = View(member.value);
        else if (name == "quantity")
            item.quantity = static_cast<int>(ToInteger(View(member.value)));
        else if (name == "price")
            item.price = ToDecimal(View(member.value));
        else if (name == "note")
            item.note = View(member.value);
        else if (name == "tag" && member.value.IsString()) // several times, as lax JSON has it
            item.tags.emplace_back(View(member.value));
        else if (name == "tag")
            for (Value const& tag : member.value.GetArray())
                item.tags.emplace_back(View(tag));
    }
    return item;
}

Order ReadOrder(Value const& object) {
    Order order;
    for (auto const& member : object.GetObject()) {
        std::string_view const name = View(member.name);
        if (name == "@id")
            order.id = ToInteger(View(member.value));
        else if (name == "@currency")
            order.currency = ToCurrency(View(member.value));
        else if (name == "customer")
            order.customer = View(member.value);
        else if (name == "date")
            order.date = ToDate(View(member.value));
        else if (name == "express")
            order.express = member.value.GetBool();
        else if (name == "total")
            order.total = ToDecimal(View(member.value));
        else if (name == "item")
            for (Value const& item : member.value.GetArray())
                order.items.push_back(ReadItem(item));
    }
    return order;
}

using Writer = rapidjson::Writer<rapidjson::StringBuffer>;

void Add(Writer& writer, char const* name, std::string const& text) {
    writer.Key(name);
    writer.String(text.data(), static_cast<rapidjson::SizeType>(text.size()));
}

void AddNumber(Writer& writer, char const* name, std::string const& text) {
    writer.Key(name);
    writer.RawValue(text.data(), text.size(), rapidjson::kNumberType);
}

void WriteItem(Writer& writer, Item const& item) {
    writer.StartObject();
    Add(writer, "@sku", item.sku);
    writer.Key("quantity");
    writer.Int(item.quantity);
    AddNumber(writer, "price", ToText(item.price));
    if (item.note)
        Add(writer, "note", *item.note);
    if (!item.tags.empty()) {
        writer.Key("tag");
        writer.StartArray();
        for (std::string const& tag : item.tags)
            writer.String(tag.data(), static_cast<rapidjson::SizeType>(tag.size()));
        writer.EndArray();
    }
    writer.EndObject();
}

class RapidJsonProgram final : public StructProgram {
public:
    void Read(std::string const& document) override {
        rapidjson::Document tree;
        // Numbers as texts, since decimals are exact.
        tree.Parse<rapidjson::kParseNumbersAsStringsFlag>(document.data(), document.size());
        if (tree.HasParseError() || !tree.IsObject() || !tree.HasMember("orders"))
            throw std::runtime_error("no document of orders");
        m_orders.clear();
        for (Value const& order : tree["orders"]["order"].GetArray())
            m_orders.push_back(ReadOrder(order));
    }

    std::string Write() override {
        rapidjson::StringBuffer buffer;
        Writer writer(buffer);
        writer.StartObject();
        writer.Key("orders");
        writer.StartObject();
        Add(writer, "@xmlns", kNamespace);
        writer.Key("order");
        writer.StartArray();
        for (Order const& order : m_orders) {
            writer.StartObject();
            writer.Key("@id");
            writer.Int64(order.id);
            Add(writer, "@currency", NameOf(order.currency));
            Add(writer, "customer", order.customer);
            Add(writer, "date", ToText(order.date));
            writer.Key("express");
            writer.Bool(order.express);
            AddNumber(writer, "total", ToText(order.total));
            writer.Key("item");
            writer.StartArray();
            for (Item const& item : order.items)
                WriteItem(writer, item);
            writer.EndArray();
            writer.EndObject();
        }
        writer.EndArray();
        writer.EndObject();
        writer.EndObject();
        return std::string(buffer.GetString(), buffer.GetSize());
    }
};

} // namespace

std::unique_ptr<StructProgram> RapidJson() {
    return std::make_unique<RapidJsonProgram>();
}

} // namespace peers
