#include "benchmarks/peers/Library.h"

#include "orders.h"

namespace peers {

namespace {

class GeneratedProgram final : public Program {
public:
    explicit GeneratedProgram(Form form) : m_form(form) {}

    void Read(std::string const& document) override {
        if (m_form == Form::kXml)
            m_orders = shop::ReadOrdersXml(document);
        else if (m_form == Form::kJson)
            m_orders = shop::ReadOrdersJson(document);
        else
            m_orders =
                shop::ReadOrders(reinterpret_cast<unsigned char const*>(document.data()), document.size());
    }
    std::string Write() override {
        return Written(*m_orders, m_form, ZvXmlLib16::generated::StrictContext());
    }

private:
    Form const m_form;
    CSmartPtr<shop::COrders> m_orders;
};

} // namespace

std::string Rewritten(std::string const& document, Form form) {
    CSmartPtr<shop::COrders> const orders =
        shop::ReadOrders(reinterpret_cast<unsigned char const*>(document.data()), document.size());
    return Written(*orders, form, ZvXmlLib16::generated::StrictContext());
}

std::unique_ptr<Program> Generated(Form form) {
    return std::make_unique<GeneratedProgram>(form);
}

} // namespace peers
