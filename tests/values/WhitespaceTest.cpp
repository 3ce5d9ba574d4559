// The whiteSpace facet.
#include "zvxmllib/values/text/Whitespace.h"

#include <gtest/gtest.h>

#include <string>

using namespace ZvXmlLib16;

namespace {

TEST(Whitespace, IsTreatedByTheRule) {
    struct Row {
        std::string text;
        std::string preserved;
        std::string replaced;
        std::string collapsed;
    };
    for (Row const& row :
         {Row{"", "", "", ""}, Row{"plain", "plain", "plain", "plain"},
          Row{"a b c", "a b c", "a b c", "a b c"}, Row{"  a  b ", "  a  b ", "  a  b ", "a b"},
          Row{" ", " ", " ", ""}, Row{"a ", "a ", "a ", "a"}, Row{"\t\r\n ", "\t\n ", "   ", ""},
          Row{"\r\r\n", "\n\n", "  ", ""}, Row{"a\n\rb", "a\n\nb", "a  b", "a b"},
          Row{"a\tb", "a\tb", "a b", "a b"}, Row{"a\r", "a\n", "a ", "a"},
          Row{"\v\xA0", "\v\xA0", "\v\xA0", "\v\xA0"},
          // A NUL ends the text where something was changed.
          Row{std::string("a\0b", 3), std::string("a\0b", 3), std::string("a\0b", 3), std::string("a\0b", 3)},
          Row{std::string("\ra\0b", 4), "\na", " a", "a"}}) {
        EXPECT_EQ(CWhitespaceUtils::ApplyRule(CWhitespaceUtils::WhitespaceRule_None, row.text), row.text);
        EXPECT_EQ(CWhitespaceUtils::ApplyRule(CWhitespaceUtils::WhitespaceRule_Preserve, row.text),
                  row.preserved);
        EXPECT_EQ(CWhitespaceUtils::ApplyRule(CWhitespaceUtils::WhitespaceRule_Replace, row.text),
                  row.replaced);
        EXPECT_EQ(CWhitespaceUtils::ApplyRule(CWhitespaceUtils::WhitespaceRule_Collapse, row.text),
                  row.collapsed);
    }
}

TEST(Whitespace, IsPreservedInThatManyBytes) {
    EXPECT_EQ(CWhitespaceUtils::Preserve("a\r\nb\r", 3), "a\n");
    EXPECT_EQ(CWhitespaceUtils::Preserve("abc", 0), "");
}

} // namespace
