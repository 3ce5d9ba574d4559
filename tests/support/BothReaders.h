// One document by the reader of plain XML and by the XML parser, for the test and the fuzzer that compare
// them.
#pragma once

#include "zvxmllib/context/SerializationContext.h"
#include "zvxmllib/document/PlainXmlReader.h"
#include "zvxmllib/document/PrefixScopes.h"
#include "zvxmllib/document/XmlAttribute.h"
#include "zvxmllib/document/XmlDocument.h"
#include "zvxmllib/document/XmlElement.h"
#include "zvxmllib/foundation/Exceptions.h"

#include <optional>
#include <string>
#include <string_view>

namespace both_readers {

using namespace ZvXmlLib16;

// All that can be asked of a document with that text.
class Description {
public:
    Description(CXmlDocument& document, std::string_view xml) {
        Add(*document.GetDocumentElement());
        // Declared prefixes, and others.
        for (std::size_t at = 0; (at = xml.find("xmlns", at)) != std::string_view::npos;) {
            at += 5;
            bool const hasPrefix = at < xml.size() && xml[at] == ':';
            std::string_view const rest = xml.substr(hasPrefix ? at + 1 : at);
            std::string const prefix(hasPrefix ? rest.substr(0, rest.find_first_of("= \t\r\n")) : "");
            std::string const uri = document.LookupNamespaceFromAlias(prefix.c_str());
            Add({prefix, "->", uri, "->", document.LookupAliasFromNamespace(uri.c_str())});
        }
    }
    std::string const& GetText() const { return m_text; }

private:
    void Add(CXmlElement const& element) {
        Add({"<", element.GetNamespaceURI(), "|", element.GetLocalName()});
        if (detail::PrefixScopes const* const scopes = element.GetScopes()) {
            for (detail::PrefixDeclaration const& declared : scopes->GetDeclared(element))
                Add({*declared.prefix, ":=", *declared.uri});
            Add({element.HasTextAheadOfChild() ? "text, then children" : "no text ahead"});
        }
        for (std::size_t i = 0; i < element.GetAttributeCount(); ++i) {
            CXmlAttribute const& attribute = *element.GetAttributeAt(i);
            Add({attribute.GetNamespaceURI(), "|", attribute.GetLocalName(), "=", attribute.GetValue()});
        }
        Add({"'", element.GetText(), "'"});
        for (CXmlElement const* child = element.GetFirstElement(); child != nullptr;
             child = child->GetNextSiblingElement())
            Add(*child);
        Add({">"});
    }
    void Add(std::initializer_list<std::string_view> parts) {
        for (std::string_view const part : parts)
            m_text += part;
        m_text += '\n';
    }

    std::string m_text;
};

inline CSerializationContext const& Context(bool isStrict) {
    static auto const make = [](bool strict) {
        CSerializationContext ctx;
        ctx.SetStrict(strict);
        return ctx;
    };
    static CSerializationContext const strict = make(true);
    static CSerializationContext const usual = make(false);
    return isStrict ? strict : usual;
}

// By the reader of plain XML; none if it leaves the document to the parser. The text is gone by then, unless
// it is borrowed.
inline std::optional<std::string> ByPlainReader(std::string_view xml, bool isStrict, bool borrows) {
    CXmlDocument document(Context(isStrict));
    std::string text(xml);
    if (!PlainXmlReader::Fill(document, text, borrows))
        return std::nullopt;
    if (!borrows)
        text.assign(text.size(), '#');
    return Description(document, xml).GetText();
}

// Both ways, which agree or are shown both.
inline std::optional<std::string> ByPlainReader(std::string_view xml, bool isStrict) {
    std::optional<std::string> const copied = ByPlainReader(xml, isStrict, false);
    std::optional<std::string> const borrowed = ByPlainReader(xml, isStrict, true);
    return copied == borrowed ? copied : copied.value_or("declined") + borrowed.value_or("declined");
}

inline bool KeepElement(CXmlElement*) {
    return false;
}

// As an application loads it, or by the parser, which alone has callbacks; a failure with all that it tells.
inline std::string ByLoad(std::string_view xml, bool isStrict, bool byParser) {
    CXmlDocument document(byParser ? &KeepElement : nullptr, Context(isStrict));
    try {
        document.LoadXmlStream(reinterpret_cast<unsigned char const*>(xml.data()),
                               static_cast<std::uint32_t>(xml.size()));
    } catch (CZvException const& failure) {
        return failure.GetFullMessage() + ", line " + std::to_string(failure.GetLine()) + ", column " +
               std::to_string(failure.GetColumn());
    }
    return Description(document, xml).GetText();
}

} // namespace both_readers
