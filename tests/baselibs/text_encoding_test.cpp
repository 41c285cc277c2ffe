#include "baselibs/TextEncoding.h"

#include <gtest/gtest.h>

namespace {

TEST(TextEncodingTest, Utf16ToUtf8)
{
    struct
    {
        const char* scenario;
        std::u16string utf16;
        const char* utf8;
        bool clean;
    } rows[] = {
        {"ASCII", u"eth0", "eth0", true},
        {"two and three bytes", u"\u00C4\u65E5", "\xC3\x84\xE6\x97\xA5", true},
        {"a surrogate pair is four bytes", u"\U0001F4F7", "\xF0\x9F\x93\xB7", true},
        {"a lone high surrogate", std::u16string(1, char16_t(0xD83D)) + u"x", "?x", false},
        {"a lone low surrogate", u"a" + std::u16string(1, char16_t(0xDCF7)), "a?", false},
    };
    for (const auto& row : rows) {
        std::string utf8;
        EXPECT_EQ(Baselibs::Utf8FromUtf16(row.utf16, utf8), row.clean) << row.scenario;
        EXPECT_EQ(utf8, row.utf8) << row.scenario;
        std::u16string back;
        EXPECT_EQ(Baselibs::Utf16FromUtf8(utf8, back), true) << row.scenario;
        if (row.clean) {
            EXPECT_EQ(back, row.utf16) << row.scenario;
        }
    }
}

TEST(TextEncodingTest, MalformedUtf8AndLatin1)
{
    for (const char* bad : {"\xC0\x80", "\xE6\x97", "\xED\xA0\x80", "\xF4\x90\x80\x80", "\x80", "ok\xFF"}) {
        std::u16string utf16 = u"left over";
        EXPECT_FALSE(Baselibs::Utf16FromUtf8(bad, utf16)) << bad;
        EXPECT_TRUE(utf16.empty());
    }
    EXPECT_EQ(Baselibs::Utf8FromLatin1("{A\xC4\xFF}"), "{A\xC3\x84\xC3\xBF}");
}

} // namespace
