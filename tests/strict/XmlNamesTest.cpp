// Names and characters, against the XML parser.
#include "zvxmllib/writers/XmlNames.h"
#include "zvxmllib/document/XmlDocument.h"
#include "zvxmllib/foundation/Exceptions.h"
#include "zvxmllib/foundation/Utf16.h"

#include <gtest/gtest.h>

#include <string>

namespace ZvXmlLib16 {
namespace {

bool Parses(std::string const& text) {
    CXmlDocument document;
    try {
        document.LoadXml(text.c_str());
        return true;
    } catch (CZvException const&) {
        return false;
    }
}

std::string Utf8(char32_t c) {
    std::u16string units;
    if (c < 0x10000) {
        units += static_cast<char16_t>(c);
    } else {
        units += static_cast<char16_t>(0xD800 + ((c - 0x10000) >> 10));
        units += static_cast<char16_t>(0xDC00 + (c & 0x3FF));
    }
    return ConvertUtf16ToUtf8(units);
}

// All of the first plane but the surrogates, in which the classes change, and some beyond.
TEST(XmlNames, AreWhatTheParserTakes) {
    for (char32_t c = 1; c < 0x10010; c += c == 0xD7FF ? 0x801 : 1) {
        std::string const character = Utf8(c);
        if (character.find_first_of("\t\n\r />=&<:") != std::string::npos)
            continue; // ends the name, or a prefix
        EXPECT_EQ(IsXmlName(character), Parses("<" + character + "/>")) << std::hex << std::uint32_t{c};
        EXPECT_EQ(IsXmlName("a" + character), Parses("<a" + character + " b=''/>"))
            << std::hex << std::uint32_t{c};
        bool const isText = FindXmlTextFault(character).kind == XmlTextFault::kNone;
        EXPECT_EQ(isText, Parses("<a>" + character + "</a>")) << std::hex << std::uint32_t{c};
    }
}

TEST(XmlNames, HaveNoBlanksNorMalformedOctets) {
    for (char const* name :
         {"", "a b", "a/><b", "1a", "-a", "\xC3", "a\xFF", "\xC0\x80", "a\xF0\x90\x80\x80"})
        EXPECT_FALSE(IsXmlName(name)) << name;
    EXPECT_TRUE(IsXmlName("p:a"));
    EXPECT_FALSE(IsXmlNCName("p:a"));
    EXPECT_EQ(FindXmlTextFault({"a\0b", 3}).kind, XmlTextFault::kCharacter);
    EXPECT_EQ(FindXmlTextFault("a\x01\xFF").kind, XmlTextFault::kMalformed);
    EXPECT_EQ(FindXmlTextFault("\xEF\xBF\xBE").character, 0xFFFEU);
}

} // namespace
} // namespace ZvXmlLib16
