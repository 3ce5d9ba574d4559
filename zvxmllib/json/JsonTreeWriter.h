// CJsonTreeWriter, which builds the parsed tree from JSON without XML text in between.
#pragma once

#include "zvxmllib/document/XmlDocument.h"
#include "zvxmllib/foundation/Forward.h"
#include "zvxmllib/writers/XmlWriter.h"

#include <cstddef>
#include <deque>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace ZvXmlLib16::detail {
struct XmlName;
} // namespace ZvXmlLib16::detail

namespace ZvXmlLib16 {

// Takes the calls from which CXmlTextWriter would make formatted XML text, and builds exactly the tree that
// the parser would make of that text, white space included. It leaves what needs the parser's judgement to
// the parser: names beyond ASCII, declarations below the root, control characters, CDATA sections, anything
// ill-formed.
class CJsonTreeWriter final : public CXmlWriter {
public:
    // Fills `document` by the context's JSON options. Returns false and leaves it empty if the text must go
    // through XML text. Throws the same as that way for invalid JSON.
    static bool Fill(CXmlDocument& document, std::string_view json, CSerializationContext const& ctx);

    void Close() override;
    void WriteComment(std::string const& text) override;
    void WriteProcessingInstruction(std::string const& text) override;
    void WriteInlineSchema(std::string const& text) override;
    void WriteElementStart(std::string const& name, std::string const& ns) override;
    void WriteElementValue(std::string const& text, ItemType type, bool isDefault) override;
    void WriteElementEnd() override;
    void WriteAttribute(std::string const& name, std::string const& ns, std::string const& value,
                        ItemType type) override;
    void WriteTypeAttribute(std::string const& ns, std::string const& typeName, ItemType type) override;
    void WriteNilAttribute() override;

private:
    // The names of the JSON with their meaning, cached because documents repeat them.
    class Names {
    public:
        struct Entry {
            std::string text;
            detail::XmlName const* name;
            Entry* likelyNext; // the one that followed last time, null at first
        };
        // Null for an unknown name.
        detail::XmlName const* Find(std::string const& text);
        detail::XmlName const* Add(std::string const& text, detail::XmlName const* name);

    private:
        detail::XmlName const* Follow(Entry& entry) noexcept;

        std::deque<Entry> m_entries;
        std::map<std::string_view, Entry*> m_byText;
        Entry* m_last = nullptr;
    };
    struct OpenElement {
        bool isStartTagOpen;
        bool hasChildren;
    };

    explicit CJsonTreeWriter(CXmlDocument& document);
    ~CJsonTreeWriter() override;

    void FinishRootStart();
    void Declare(std::string const& attributeName, std::string const& uri);
    void AddAttribute(std::string const& name, std::string const& value);
    detail::XmlName const* NameOf(Names& names, std::string const& text, bool isAttribute);
    // Adds a due line end and the indent of this depth to the text of the current element.
    void AppendBreak(bool isDue, std::size_t depth);

    CXmlDocument& m_doc;
    detail::XmlTree* m_tree;
    std::vector<OpenElement> m_open;
    bool m_hasRoot = false;
    bool m_isRootDue = false; // its name and attributes wait for its declarations
    std::string m_rootName;
    std::vector<std::pair<std::string, std::string>> m_rootAttributes;
    std::map<std::string, std::string, std::less<>> m_prefixes; // to URIs, the default namespace under ""
    Names m_elementNames;
    Names m_attributeNames;
    std::vector<detail::XmlName const*> m_attributes; // of the current start tag
    bool m_isBreakDue = false;                        // a child of the current element has ended
    std::string m_breaks{"\n"};                       // a line end and indents
};

} // namespace ZvXmlLib16
