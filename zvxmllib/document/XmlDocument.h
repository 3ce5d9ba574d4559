// CXmlDocument, the owner of the parsed tree: loads input, recognises its form, and builds the tree.
#pragma once

#include "zvxmllib/foundation/Enumerations.h"
#include "zvxmllib/foundation/Forward.h"
#include "zvxmllib/foundation/InstanceMonitor.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>

namespace ZvXmlLib16::detail {
class ChunkedFile;
class PlainElements;
class XmlTree;
} // namespace ZvXmlLib16::detail

namespace ZvXmlLib16 {

// Takes a file, a text or bytes, and owns the tree made of it. May be loaded any number of times; each load
// drops the previous tree. Every load throws CZvException for input that cannot be read or parsed; the
// document then holds what was built so far and can only be loaded again. Document and tree belong to one
// thread.
//
// With a callback, a document of any length is read in little memory: it is called at the end of each
// element, children before parents, and an element for which it returns true is removed from the tree; the
// root stays. Fast Infoset is read whole, without a call. Exceptions of the callback reach the caller of the
// load. Contexts are borrowed and must outlive the document.
class ZV_API CXmlDocument : public CInstanceMonitor {
public:
    // Sees an element at its end; returns true to take it out of the tree.
    using ElementCallback = bool (*)(CXmlElement* element);

    CXmlDocument();
    // Without a context by the default one, without a callback the whole tree.
    explicit CXmlDocument(CSerializationContext const& context);
    explicit CXmlDocument(ElementCallback callback);
    CXmlDocument(ElementCallback callback, CSerializationContext const& context);
    CXmlDocument(CXmlDocument const&) = delete;
    CXmlDocument& operator=(CXmlDocument const&) = delete;
    ~CXmlDocument() override;

    // XML text or Fast Infoset (X.891), optionally in gzip or zlib form; recognised by its content. Files of
    // 4 GiB and more are refused. With AsyncFromXmlFile on, plain XML text of any size; in
    // a strict context the other forms as well, which are read whole then.
    void Load(char const* fileName);
    // XML text: its declaration, or else UTF-8, says what its bytes mean. Throws for an empty text.
    void LoadXml(char const* text);
    // UTF-16 text.
    void LoadXml(wchar_t const* text);
    void LoadXml(char16_t const* text);
    // Like Load. Throws for no bytes.
    void LoadXmlStream(unsigned char const* data, std::uint32_t length);

    // The XML document that a JSON text stands for, by the JSON options of the context: UTF-8, with its
    // declaration. The tree stays empty. Files and bytes are UTF-8, in gzip or zlib form too. Throws for an
    // empty text, for no bytes, and CZvValidationException for what is no JSON.
    CBinaryData LoadJsonFile(char const* fileName);
    CBinaryData LoadJson(char const* text);
    CBinaryData LoadJson(wchar_t const* text);
    CBinaryData LoadJson(char16_t const* text);
    CBinaryData LoadJsonStream(unsigned char const* data, std::uint32_t length);
    // Loads the document that LoadJson gives, mostly without making it. Nodes have the positions of their
    // values in the JSON, or none where a usual context needs the XML text in between. Throws like LoadJson
    // and LoadXml.
    void ReadJson(char const* text);
    // Of LoadJsonStream.
    void ReadJsonStream(unsigned char const* data, std::uint32_t length);
    // True if the bytes, in gzip or zlib form or not, begin as a JSON text with an object, an array, a string
    // or a comment, which no XML document does.
    static bool IsJson(unsigned char const* data, std::uint32_t length);

    // The context that it was made with. Borrowed.
    CSerializationContext const& GetContext() const noexcept { return *m_pContext; }
    // The root, null while the document is empty.
    CXmlElement* GetDocumentElement() const noexcept;

    // The smallest of all prefixes declared for this namespace anywhere in the document. Empty for the
    // default namespace and for none.
    std::string LookupAliasFromNamespace(char const* namespaceURI) const;
    // The namespace last declared for this prefix, empty if there is none. The empty prefix is the default
    // namespace.
    std::string LookupNamespaceFromAlias(char const* alias) const;

protected:
    // Drops the tree. Called at the start of each load and by the destructor.
    virtual void Cleanup();

private:
    friend class CXmlObjectBase;
    friend class CExpatReader;
    friend class CFastInfosetReader;
    friend class JsonInput;
    friend class PlainJsonReader;
    friend class PlainXmlReader;
    friend class detail::PlainElements;

    // The whole file. With `toEnd`, also one that has no size, such as a pipe, which is empty otherwise.
    static std::unique_ptr<unsigned char[]> ReadFile(char const* fileName, std::size_t& length, bool toEnd);
    void LoadOverlapped(char const* fileName);
    void ParseOverlapped(detail::ChunkedFile& file);
    static bool IsNoText(unsigned char const* data, std::size_t length) noexcept;
    // Defined by the format.
    static bool IsFastInfoset(unsigned char const* data, std::size_t length) noexcept;
    void Parse(unsigned char const* data, std::size_t length);
    // False, with nothing done, for input in another form. Defined by the format.
    bool ParseFastInfoset(unsigned char const* data, std::size_t length);
    void ParseText(unsigned char const* data, std::size_t length);
    // Local text; UTF-8 in a strict context.
    void ParseJson(std::string_view json);
    // Promises that the bytes of the next load outlive the tree, so that texts may stay in them.
    void BorrowInput() noexcept { m_borrowsInput = true; }
    void MakeTree();
    // After a reader of plain text: the tree that it has filled, or none, as if there had not been one.
    // Returns `isRead`.
    bool EndPlainReading(bool isRead) noexcept;
    void EndElement();

    std::unique_ptr<detail::XmlTree> m_tree;
    // Prefix to URI, without scopes: the last declaration of a prefix stays. Prefixes may share a string.
    std::map<std::string, std::shared_ptr<std::string const>, std::less<>> m_namespaces;
    SchemaType m_schemaType;
    ElementCallback m_pfnElementCallback;
    CSerializationContext const* m_pContext;
    bool m_borrowsInput = false;
    std::string m_json; // which the tree borrows, if it was made of it
};

} // namespace ZvXmlLib16
