// What obeys the user's locale, and what must not. Uses locales that are built with the tests.
#include "zvxmllib/foundation/FormatString.h"
#include "zvxmllib/values/binary/Encoder.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <string>

using namespace ZvXmlLib16;

namespace {

TEST(Locale, DoesNotChangeTheDecimalPointOfMessages) {
    ::setenv("LOCPATH", ZV_TEST_LOCALES, 1);
    bool const isGerman = std::setlocale(LC_ALL, "de_DE.UTF-8") != nullptr;
    ::unsetenv("LOCPATH");
    char before[8];
    char after[8];
    std::snprintf(before, sizeof before, "%.2f", 1.25);
    std::string const text = FormatString("%.2f %5.1e %s %g", 1.25, 1.5, "x", 0.5);
    std::snprintf(after, sizeof after, "%.2f", 2.25);
    std::setlocale(LC_ALL, "C");
    ASSERT_TRUE(isGerman);
    EXPECT_STREQ(before, "1,25");
    EXPECT_EQ(text, "1.25 1.5e+00 x 0.5");
    EXPECT_STREQ(after, "2,25") << "the locale is in force again";
}

// The encoding is found once for a process, so each row needs a process of its own.
[[noreturn]] void ExitWithLocalText(char const* locale) {
    ::setenv("LOCPATH", ZV_TEST_LOCALES, 1);
    ::setenv("LC_ALL", locale, 1);
    std::fputs(Utf8ToLocal("\xC3\xA4\xE2\x82\xAC").c_str(), stderr);
    std::_Exit(std::setlocale(LC_ALL, nullptr) == std::string("C") ? 0 : 1);
}

TEST(LocaleDeathTest, DecidesTheLocalEncodingWithoutBeingSet) {
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    EXPECT_EXIT(ExitWithLocalText("de_DE.UTF-8"), testing::ExitedWithCode(0), "^\xC3\xA4\xE2\x82\xAC$");
    EXPECT_EXIT(ExitWithLocalText("de_DE.ISO-8859-1"), testing::ExitedWithCode(0), "^\xE4\\?$");
    EXPECT_EXIT(ExitWithLocalText("C"), testing::ExitedWithCode(0), "^\xC3\xA4\xE2\x82\xAC$");
    EXPECT_EXIT(ExitWithLocalText("no_SUCH"), testing::ExitedWithCode(0), "^\xC3\xA4\xE2\x82\xAC$");
}

} // namespace
