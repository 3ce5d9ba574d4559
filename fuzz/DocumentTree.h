// Documents compared: as they are, and as far as XML text and JSON keep them.
#pragma once

#include "WholeDocument.h"

#include <algorithm>

enum class Kept { All, ByXml, ByJson };

inline bool IsDropped(char c, Kept kept) {
    return (c == '\r' && kept != Kept::All) || (c == '\n' && kept == Kept::ByJson);
}

inline std::string TextAsKept(std::string text, Kept kept) {
    auto const isDropped = [kept](char c) { return IsDropped(c, kept); };
    text.erase(std::remove_if(text.begin(), text.end(), isDropped), text.end());
    return text;
}

// In both texts the tab of an attribute becomes a blank.
inline std::string AttributeAsKept(std::string text, Kept kept) {
    if (kept != Kept::All)
        std::replace(text.begin(), text.end(), '\t', ' ');
    return TextAsKept(std::move(text), kept);
}

// The text beside child elements comes back from JSON with the white space of formatted XML.
inline std::string TextAsKept(CElement const& element, Kept kept) {
    std::string text = TextAsKept(element.GetText(), kept);
    if (kept == Kept::ByJson && element.HasChildElements())
        text.erase(std::remove_if(text.begin(), text.end(), &CWhitespaceUtils::IsWhiteSpace), text.end());
    return text;
}

// Equal trees have equal ones.
inline std::string TreeOf(CElement& element, Kept kept) {
    std::string tree = '{' + element.GetNamespace() + '}' + element.GetName();
    if (element.HasAttributes()) {
        CSmartPtr<CAttributeCol> const attributes = element.GetAttributes();
        for (CAttribute* const attribute : *attributes) {
            tree += "\n@{" + attribute->GetNamespace() + '}' + attribute->GetName() + '=';
            tree += AttributeAsKept(attribute->GetValue(), kept);
        }
    }
    tree += "\n'" + TextAsKept(element, kept) + "'\n(";
    if (element.HasChildElements()) {
        CSmartPtr<CElementCol> const children = element.GetChildElements();
        for (CElement* const child : *children)
            tree += TreeOf(*child, kept);
    }
    return tree + ")\n";
}

// Looks for what documents hold that is not for every format, and gives their namespaces aliases.
class DocumentTraits {
public:
    explicit DocumentTraits(CElement& root) { Visit(root, 1); }

    // Texts that pass for markup, and attributes that pass for declarations.
    bool HasRawParts() const { return m_hasRawParts; }
    // Namespaces are written as they are.
    bool FitsXml() const { return !m_hasRawParts && m_isPlain; }
    // JSON has a limit of 100 levels, of which the document is one.
    bool FitsJson() const { return FitsXml() && m_depth < 99; }
    CSerializationContext const& Context() const { return m_context; }

private:
    void Visit(CElement& element, int depth) {
        m_depth = std::max(m_depth, depth);
        AddText(element.GetText());
        AddNamespace(element.GetNamespace());
        if (element.HasAttributes()) {
            CSmartPtr<CAttributeCol> const attributes = element.GetAttributes();
            for (CAttribute* const attribute : *attributes) {
                AddNamespace(attribute->GetNamespace());
                m_hasRawParts |= attribute->GetName() == "xmlns";
            }
        }
        if (element.HasChildElements()) {
            CSmartPtr<CElementCol> const children = element.GetChildElements();
            for (CElement* const child : *children)
                Visit(*child, depth + 1);
        }
    }

    void AddText(std::string_view text) { m_hasRawParts |= text.substr(0, 9) == "<![CDATA["; }

    // The declarations of namespaces that begin with that of XML itself are left out.
    void AddNamespace(std::string const& uri) {
        constexpr std::string_view kXmlNamespace = "http://www.w3.org/XML/1998/namespace";
        if (uri.empty() || m_context.GetNamespaceAliases().DoesNamespaceExist(uri.c_str()))
            return;
        bool const isXml = uri == kXmlNamespace;
        std::string const alias = "n" + std::to_string(m_context.GetNamespaceAliases().GetNamespaceCount());
        m_context.GetNamespaceAliases().Add(isXml ? "xml" : alias.c_str(), uri.c_str());
        if (!isXml && uri.compare(0, kXmlNamespace.size(), kXmlNamespace) == 0)
            m_isPlain = false;
        for (char const c : uri)
            m_isPlain = m_isPlain && std::string_view("\"\\&<").find(c) == std::string_view::npos &&
                        static_cast<unsigned char>(c) >= ' ';
    }

    CSerializationContext m_context;
    int m_depth = 0;
    bool m_hasRawParts = false;
    bool m_isPlain = true;
};
