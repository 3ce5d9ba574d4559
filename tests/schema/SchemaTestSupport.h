// Schemas of files in a folder of their own, and documents tested by them.
#pragma once

#include "schema/frontend/SchemaReader.h"
#include "zvxmllib/document/XmlDocument.h"
#include "zvxmllib/foundation/Exceptions.h"
#include "zvxmllib/grammar/Grammar.h"
#include "zvxmllib/grammar/Validator.h"

#include <gtest/gtest.h>

#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace schema_test {

using namespace ZvXmlLib16;

class Folder {
public:
    Folder() : m_path(testing::TempDir() + "zvxmllib_schema_" + std::to_string(::getpid())) {
        std::filesystem::create_directories(m_path);
    }
    Folder(Folder const&) = delete;
    Folder& operator=(Folder const&) = delete;
    ~Folder() { std::filesystem::remove_all(m_path); }

    void Write(std::string const& name, std::string const& text) const {
        std::ofstream(Of(name), std::ios::binary) << text;
    }
    std::string Of(std::string const& name) const { return m_path + "/" + name; }
    // Without the name of the folder.
    std::string Shorten(std::string text) const {
        for (std::size_t at = 0; (at = text.find(m_path + "/")) != std::string::npos;)
            text.erase(at, m_path.size() + 1);
        return text;
    }

private:
    std::string m_path;
};

inline std::string SchemaText(std::string const& content, std::string const& attributes = {}) {
    return "<xs:schema xmlns:xs='http://www.w3.org/2001/XMLSchema' " + attributes + ">" + content +
           "</xs:schema>";
}

class Schemas {
public:
    Schemas(Folder const& folder, std::vector<std::string> const& names,
            schema::SchemaFiles const& locations = {}) {
        std::vector<std::string> files;
        for (std::string const& name : names)
            files.push_back(folder.Of(name));
        schema::Diagnostics diagnostics;
        m_schema = schema::ReadSchemas(files, locations, diagnostics);
        for (schema::Diagnostic const& diagnostic : diagnostics.GetSorted())
            m_told += folder.Shorten(schema::Diagnostics::Format(diagnostic)) + "\n";
        if (m_schema != nullptr)
            m_grammar = std::make_unique<grammar::Grammar>(m_schema->GetRows());
    }

    // Borrowed.
    explicit Schemas(schema::Schema const& resolved)
        : m_grammar(std::make_unique<grammar::Grammar>(resolved.GetRows())) {}

    // Errors and warnings, one a line.
    std::string const& Told() const { return m_told; }
    bool AreUsable() const { return m_grammar != nullptr; }

    // What is wrong with the document; empty for a valid one.
    std::string Validate(std::string const& document, bool isLax = false) const {
        CSerializationContext ctx;
        return Test(document, isLax, ctx);
    }
    // All that is wrong, one a line.
    std::string ValidateAll(std::string const& document) const {
        CSerializationContext ctx;
        ctx.SetFailureLimit(100);
        Test(document, false, ctx);
        std::string all;
        for (CReadFailure const& failure : ctx.GetFailures())
            all += failure.message + "\n";
        return all;
    }

private:
    std::string Test(std::string const& text, bool isLax, CSerializationContext& ctx) const {
        if (m_grammar == nullptr)
            return "no schema";
        // The root names the namespaces that tests need most.
        std::string withNamespaces = text;
        std::size_t const end = text.find_first_of(" />");
        withNamespaces.insert(end, " xmlns:xsi='http://www.w3.org/2001/XMLSchema-instance'"
                                   " xmlns:xs='http://www.w3.org/2001/XMLSchema'");
        ctx.SetStrict(true);
        CXmlDocument document(ctx);
        document.LoadXml(withNamespaces.c_str());
        try {
            grammar::Validator(*m_grammar, ctx).ValidateDocument(*document.GetDocumentElement(), isLax);
        } catch (CZvException const& e) {
            return e.GetFullMessage();
        }
        return {};
    }

    std::unique_ptr<schema::Schema> m_schema;
    std::unique_ptr<grammar::Grammar> m_grammar;
    std::string m_told;
};

} // namespace schema_test
