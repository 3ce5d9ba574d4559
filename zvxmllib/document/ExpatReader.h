// CExpatReader, which turns the events of the XML parser into the tree.
#pragma once

#include "zvxmllib/document/NodePositions.h"
#include "zvxmllib/foundation/Forward.h"
#include "zvxmllib/foundation/InstanceMonitor.h"

#include <cstddef>
#include <exception>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

struct XML_ParserStruct;

namespace ZvXmlLib16::detail {
class PrefixScopes;
class XmlTree;
} // namespace ZvXmlLib16::detail

namespace ZvXmlLib16 {

// Parses one document. Grammar, well-formedness, entities, attribute and line end normalisation and input
// encodings (UTF-8, UTF-16, ISO-8859-1, US-ASCII) are expat's. Comments, processing instructions, the prolog
// and references to external entities are dropped. Belongs to the thread of the load.
class CExpatReader : public CInstanceMonitor, private IPositionSource {
public:
    // `document` is borrowed and outlives the reader.
    explicit CExpatReader(CXmlDocument& document);
    CExpatReader(CExpatReader const&) = delete;
    CExpatReader& operator=(CExpatReader const&) = delete;
    ~CExpatReader() override;

    void Init();
    // Parses the next chunk of the input; `final` for the last one, which may be empty. Throws CZvException
    // with the parser's message and line, or the exception of the document's callback.
    void Parse(unsigned char const* data, std::size_t length, bool final);

private:
    struct Handlers; // what expat calls

    struct ParserDeleter {
        void operator()(XML_ParserStruct* parser) const noexcept;
    };

    void InitStrict();
    void ParseSlices(char const* data, std::size_t length, bool final);
    void ParseSlice(char const* data, std::size_t length, bool final);
    // The text as local text; the result is valid until the next call.
    std::string_view ToLocal(char const* utf8, std::size_t length);

    CXmlElement const* StartElement(char const* name, char const** attributes);
    std::string_view KeepDefault(char const* value);
    detail::NodePosition GetPosition() const override;
    void LocateAttributes(CXmlElement const& element, std::size_t specified) const;
    void EndElement();
    void DeclareNamespace(char const* prefix, char const* uri);
    // The same two, where prefixes have scopes.
    void StartScope(char const* name, char const** attributes);
    void DeclareInScope(char const* prefix, char const* uri);
    void Text(char const* text, std::size_t length);
    // In place of Text, where nothing may be lost.
    void ExactText(char const* text, std::size_t length);
    void RequireLocal(char const* utf8) const;
    [[noreturn]] void RefuseEntity(std::string_view name) const;
    void Mark(std::string_view mark);

    CXmlDocument& m_doc;
    detail::XmlTree* m_tree = nullptr;
    detail::PrefixScopes* m_scopes = nullptr; // the tree's, null where nothing is strict
    std::unique_ptr<XML_ParserStruct, ParserDeleter> m_parser;
    std::exception_ptr m_failure; // the first that a handler met
    std::string m_local;
    std::size_t m_sliceSize;      // what the parser gets at once
    std::vector<char> m_heldBack; // input behind an unfinished token, less than a slice
    std::unordered_map<char const*, std::string_view>
        m_defaults; // of attributes: the parser's texts, as the tree keeps them
    bool m_splitsNames = true;
    bool m_isLocalUtf8 = true; // texts pass without conversion; settled once for the document
};

} // namespace ZvXmlLib16
