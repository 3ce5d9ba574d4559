#include "benchmarks/peers/Peers.h"

#include <cstring>
#include <pugixml.hpp>
#include <stdexcept>

namespace peers {

namespace {

class StringWriter final : public pugi::xml_writer {
public:
    void write(void const* data, std::size_t size) override {
        text.append(static_cast<char const*>(data), size);
    }

    std::string text;
};

Item ReadItem(pugi::xml_node node) {
    Item item;
    item.sku = node.attribute("sku").value();
    for (pugi::xml_node const child : node.children()) {
        std::string_view const name = child.name();
        char const* const text = child.child_value();
        if (name == "quantity")
            item.quantity = static_cast<int>(ToInteger(text));
        else if (name == "price")
            item.price = ToDecimal(text);
        else if (name == "note")
            item.note = text;
        else if (name == "tag")
            item.tags.emplace_back(text);
    }
    return item;
}

Order ReadOrder(pugi::xml_node node) {
    Order order;
    order.id = ToInteger(node.attribute("id").value());
    order.currency = ToCurrency(node.attribute("currency").value());
    for (pugi::xml_node const child : node.children()) {
        std::string_view const name = child.name();
        char const* const text = child.child_value();
        if (name == "customer")
            order.customer = text;
        else if (name == "date")
            order.date = ToDate(text);
        else if (name == "express")
            order.express = ToBool(text);
        else if (name == "total")
            order.total = ToDecimal(text);
        else if (name == "item")
            order.items.push_back(ReadItem(child));
    }
    return order;
}

void Add(pugi::xml_node parent, char const* name, std::string const& text) {
    parent.append_child(name).append_child(pugi::node_pcdata).set_value(text.c_str());
}

class PugixmlProgram final : public StructProgram {
public:
    void Read(std::string const& document) override {
        pugi::xml_document tree;
        if (!tree.load_buffer(document.data(), document.size()))
            throw std::runtime_error("not well-formed");
        pugi::xml_node const root = tree.document_element();
        if (std::strcmp(root.attribute("xmlns").value(), kNamespace) != 0)
            throw std::runtime_error("no document of orders");
        m_orders.clear();
        for (pugi::xml_node const order : root.children("order"))
            m_orders.push_back(ReadOrder(order));
    }

    std::string Write() override {
        pugi::xml_document tree;
        pugi::xml_node root = tree.append_child("orders");
        root.append_attribute("xmlns").set_value(kNamespace);
        for (Order const& order : m_orders) {
            pugi::xml_node node = root.append_child("order");
            node.append_attribute("id").set_value(order.id);
            node.append_attribute("currency").set_value(NameOf(order.currency));
            Add(node, "customer", order.customer);
            Add(node, "date", ToText(order.date));
            Add(node, "express", order.express ? "true" : "false");
            Add(node, "total", ToText(order.total));
            for (Item const& item : order.items) {
                pugi::xml_node child = node.append_child("item");
                child.append_attribute("sku").set_value(item.sku.c_str());
                Add(child, "quantity", ToText(static_cast<long long>(item.quantity)));
                Add(child, "price", ToText(item.price));
                if (item.note)
                    Add(child, "note", *item.note);
                for (std::string const& tag : item.tags)
                    Add(child, "tag", tag);
            }
        }
        StringWriter writer;
        tree.save(writer, "", pugi::format_raw | pugi::format_no_declaration, pugi::encoding_utf8);
        return std::move(writer.text);
    }
};

} // namespace

std::unique_ptr<StructProgram> Pugixml() {
    return std::make_unique<PugixmlProgram>();
}

} // namespace peers
