#include "benchmarks/peers/Peers.h"

#include <libxml/parser.h>
#include <libxml/tree.h>
#include <libxml/xmlwriter.h>
#include <stdexcept>

namespace peers {

namespace {

std::string_view View(xmlChar const* text) {
    return text == nullptr ? std::string_view() : reinterpret_cast<char const*>(text);
}

xmlChar const* X(char const* text) {
    return reinterpret_cast<xmlChar const*>(text);
}

std::string_view Attribute(xmlNode const* node, char const* name) {
    for (xmlAttr const* attribute = node->properties; attribute != nullptr; attribute = attribute->next) {
        if (View(attribute->name) == name)
            return attribute->children == nullptr ? std::string_view() : View(attribute->children->content);
    }
    throw std::runtime_error("an attribute is missing");
}

// The text of an element is one node, or several around references.
std::string Text(xmlNode const* node) {
    std::string text;
    for (xmlNode const* child = node->children; child != nullptr; child = child->next)
        text += View(child->content);
    return text;
}

Item ReadItem(xmlNode const* node) {
    Item item;
    item.sku = Attribute(node, "sku");
    for (xmlNode const* child = node->children; child != nullptr; child = child->next) {
        std::string_view const name = View(child->name);
        if (name == "quantity")
            item.quantity = static_cast<int>(ToInteger(Text(child)));
        else if (name == "price")
            item.price = ToDecimal(Text(child));
        else if (name == "note")
            item.note = Text(child);
        else if (name == "tag")
            item.tags.push_back(Text(child));
    }
    return item;
}

Order ReadOrder(xmlNode const* node) {
    Order order;
    order.id = ToInteger(Attribute(node, "id"));
    order.currency = ToCurrency(Attribute(node, "currency"));
    for (xmlNode const* child = node->children; child != nullptr; child = child->next) {
        std::string_view const name = View(child->name);
        if (name == "customer")
            order.customer = Text(child);
        else if (name == "date")
            order.date = ToDate(Text(child));
        else if (name == "express")
            order.express = ToBool(Text(child));
        else if (name == "total")
            order.total = ToDecimal(Text(child));
        else if (name == "item")
            order.items.push_back(ReadItem(child));
    }
    return order;
}

void Add(xmlTextWriter* writer, char const* name, std::string const& text) {
    xmlTextWriterWriteElement(writer, X(name), X(text.c_str()));
}

class LibXml2Program final : public StructProgram {
public:
    void Read(std::string const& document) override {
        std::unique_ptr<xmlDoc, void (*)(xmlDoc*)> const tree(
            xmlReadMemory(document.data(), static_cast<int>(document.size()), nullptr, nullptr,
                          XML_PARSE_HUGE | XML_PARSE_NONET | XML_PARSE_COMPACT),
            &xmlFreeDoc);
        xmlNode const* const root = tree == nullptr ? nullptr : xmlDocGetRootElement(tree.get());
        if (root == nullptr || root->ns == nullptr || View(root->ns->href) != kNamespace)
            throw std::runtime_error("no document of orders");
        m_orders.clear();
        for (xmlNode const* child = root->children; child != nullptr; child = child->next) {
            if (View(child->name) == "order")
                m_orders.push_back(ReadOrder(child));
        }
    }

    std::string Write() override {
        std::unique_ptr<xmlBuffer, void (*)(xmlBuffer*)> const buffer(xmlBufferCreate(), &xmlBufferFree);
        std::unique_ptr<xmlTextWriter, void (*)(xmlTextWriter*)> const owner(
            xmlNewTextWriterMemory(buffer.get(), 0), &xmlFreeTextWriter);
        xmlTextWriter* const writer = owner.get();
        xmlTextWriterStartElement(writer, X("orders"));
        xmlTextWriterWriteAttribute(writer, X("xmlns"), X(kNamespace));
        for (Order const& order : m_orders) {
            xmlTextWriterStartElement(writer, X("order"));
            xmlTextWriterWriteAttribute(writer, X("id"), X(ToText(order.id).c_str()));
            xmlTextWriterWriteAttribute(writer, X("currency"), X(NameOf(order.currency)));
            Add(writer, "customer", order.customer);
            Add(writer, "date", ToText(order.date));
            Add(writer, "express", order.express ? "true" : "false");
            Add(writer, "total", ToText(order.total));
            for (Item const& item : order.items) {
                xmlTextWriterStartElement(writer, X("item"));
                xmlTextWriterWriteAttribute(writer, X("sku"), X(item.sku.c_str()));
                Add(writer, "quantity", ToText(static_cast<long long>(item.quantity)));
                Add(writer, "price", ToText(item.price));
                if (item.note)
                    Add(writer, "note", *item.note);
                for (std::string const& tag : item.tags)
                    Add(writer, "tag", tag);
                xmlTextWriterEndElement(writer);
            }
            xmlTextWriterEndElement(writer);
        }
        xmlTextWriterEndElement(writer);
        xmlTextWriterFlush(writer);
        return std::string(View(xmlBufferContent(buffer.get())));
    }
};

} // namespace

std::unique_ptr<StructProgram> LibXml2() {
    return std::make_unique<LibXml2Program>();
}

} // namespace peers
