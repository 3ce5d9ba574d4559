// CJsonTreeWriter, the short way of JSON into the parsed tree: without the XML text in between.
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

namespace ZvXmlLib16 {

struct XmlName;

// Takes the calls of which CXmlTextWriter makes formatted XML text, and builds the very tree that the parser
// makes of that text, white space included. What needs the parser's judgement it does not take at all: names
// beyond ASCII, declarations below the root, control characters, CDATA sections, all that is ill-formed.
class CJsonTreeWriter final : public CXmlWriter {
public:
    // Fills `document` by the context's JSON options. False, with nothing in it, if the text has to go by way
    // of XML text. Throws what that way throws for what is no JSON.
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
    // Names as they stand in the JSON, with what they mean; documents repeat themselves.
    class Names {
    public:
        struct Entry {
            std::string text;
            XmlName const* name;
            Entry* likelyNext; // the one that followed last time, null at first
        };
        // Null for a name that is not known yet.
        XmlName const* Find(std::string const& text);
        XmlName const* Add(std::string const& text, XmlName const* name);

    private:
        XmlName const* Follow(Entry& entry) noexcept;

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
    XmlName const* NameOf(Names& names, std::string const& text, bool isAttribute);
    // The end of a line if one is due, and the indent of this depth, as text of the current element.
    void AppendBreak(bool isDue, std::size_t depth);

    CXmlDocument& m_doc;
    XmlTree* m_tree;
    std::vector<OpenElement> m_open;
    bool m_hasRoot = false;
    bool m_isRootDue = false; // its name and attributes wait for its declarations
    std::string m_rootName;
    std::vector<std::pair<std::string, std::string>> m_rootAttributes;
    std::map<std::string, std::string, std::less<>> m_prefixes; // to URIs, the default namespace under ""
    Names m_elementNames;
    Names m_attributeNames;
    std::vector<XmlName const*> m_attributes; // of the current start tag
    bool m_isBreakDue = false;                // a child of the current element has ended
    std::string m_breaks{"\n"};               // a line end and indents
};

} // namespace ZvXmlLib16
