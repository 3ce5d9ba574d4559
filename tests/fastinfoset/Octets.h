// Documents written octet by octet, and what was read of them as text.
#pragma once

#include "zvxmllib/document/XmlAttribute.h"
#include "zvxmllib/document/XmlDocument.h"
#include "zvxmllib/document/XmlElement.h"

#include <cstdint>
#include <cstdio>
#include <string>
#include <string_view>

namespace ZvXmlLib16 {

// "3C 00 'a'": octets in hexadecimal, and text between apostrophes.
inline std::string Octets(std::string_view notation) {
    std::string octets;
    for (std::size_t i = 0; i < notation.size(); ++i) {
        if (notation[i] == '\'') {
            std::size_t const end = notation.find('\'', i + 1);
            octets += notation.substr(i + 1, end - i - 1);
            i = end;
        } else if (notation[i] != ' ') {
            octets += static_cast<char>(std::stoi(std::string(notation.substr(i, 2)), nullptr, 16));
            ++i;
        }
    }
    return octets;
}

inline std::string BigEndian(std::size_t value, std::size_t octets) {
    std::string bytes;
    for (; octets != 0; --octets)
        bytes += static_cast<char>(value >> (8 * (octets - 1)) & 0xFF);
    return bytes;
}

// What stands behind a header without any component.
inline std::string Document(std::string_view content) {
    return Octets("E0 00 00 01 00") + std::string(content);
}

inline void Load(CXmlDocument& document, std::string const& octets) {
    document.LoadXmlStream(reinterpret_cast<unsigned char const*>(octets.data()),
                           static_cast<std::uint32_t>(octets.size()));
}

inline std::string Escaped(std::string_view text) {
    std::string result;
    for (char const c : text) {
        char number[8];
        if (c == '\\')
            result += "\\\\";
        else if (c == '\n')
            result += "\\n";
        else if (c == '\r')
            result += "\\r";
        else if (c == '\t')
            result += "\\t";
        else if (static_cast<unsigned char>(c) < 0x20 || c == 0x7F)
            result += (std::snprintf(number, sizeof number, "\\x%02X;", static_cast<unsigned>(c)), number);
        else
            result += c;
    }
    return result;
}

// A line for each element with its depth, its attributes and its text, as in tests/data/fastinfoset.
inline std::string TreeText(CXmlDocument& document) {
    std::string text;
    int depth = 0;
    for (CXmlElement const* element = document.GetDocumentElement(); element != nullptr;) {
        text +=
            std::to_string(depth) + " {" + element->GetNamespaceURI() + '}' + element->GetLocalName() + '\n';
        for (CXmlAttribute const* attribute : element->GetAttributes())
            text += "A {" + attribute->GetNamespaceURI() + '}' + attribute->GetLocalName() + '=' +
                    Escaped(attribute->GetValue()) + '\n';
        if (!element->GetText().empty())
            text += "T " + Escaped(element->GetText()) + '\n';
        if (element->GetFirstElement() != nullptr) {
            element = element->GetFirstElement();
            ++depth;
            continue;
        }
        while (element != nullptr && element->GetNextSiblingElement() == nullptr) {
            element = element->GetParentElm();
            --depth;
        }
        if (element != nullptr)
            element = element->GetNextSiblingElement();
    }
    return text;
}

inline std::string Tree(std::string const& octets) {
    CXmlDocument document;
    Load(document, octets);
    return TreeText(document);
}

} // namespace ZvXmlLib16
