// The programs of the comparison. All do the same: they read a document of orders into objects of C++ with
// converted values, and write these.
#pragma once

#include "benchmarks/peers/Orders.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace peers {

class Program {
public:
    Program() = default;
    Program(Program const&) = delete;
    Program& operator=(Program const&) = delete;
    virtual ~Program() = default;

    // Holds what the document has, in place of what it had. Throws for a document that is not one of orders.
    virtual void Read(std::string const& document) = 0;
    // A document of what it holds.
    virtual std::string Write() = 0;
};

// Those that fill the structs.
class StructProgram : public Program {
public:
    Orders const& Get() const { return m_orders; }
    void Set(Orders orders) { m_orders = std::move(orders); }

protected:
    Orders m_orders;
};

enum class Form { kXml, kJson, kFastInfoset };

// The document of orders, XML or Fast Infoset, in the form.
std::string Rewritten(std::string const& document, Form form);

std::unique_ptr<StructProgram> ByHand();       // expat, and a serialiser by hand
std::unique_ptr<Program> Generated(Form form); // classes of zvxml-gen
std::unique_ptr<Program> Tables(Form form);    // a class written by hand for zvxmllib
std::unique_ptr<Program> Gsoap();              // classes of its schema compiler
std::unique_ptr<StructProgram> Pugixml();      // its tree, mapped by hand
std::unique_ptr<StructProgram> LibXml2();      // its tree and its writer
std::unique_ptr<StructProgram> RapidJson();    // its tree and its writer
std::unique_ptr<StructProgram> Nlohmann();     // its tree

} // namespace peers
