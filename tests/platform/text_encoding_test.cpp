#include "platform/text_encoding.h"

#include <gtest/gtest.h>

namespace brindlewick {
namespace {

TEST(Utf8, IsReadAndWritten) {
    const std::pair<std::string, std::u16string> cases[] = {
        {"a longer run of plain ASCII\x7F", u"a longer run of plain ASCII\x7F"},
        {std::string(1, '\0'), std::u16string(1, u'\0')},
        {"\xC2\x80\xDF\xBF", {0x80, 0x7FF}},
        {"\xE0\xA0\x80\xED\x9F\xBF", {0x800, 0xD7FF}},
        {"\xEE\x80\x80\xEF\xBB\xBF\xEF\xBF\xBF", {0xE000, 0xFEFF, 0xFFFF}},
        {"\xF0\x90\x80\x80\xF4\x8F\xBF\xBF", {0xD800, 0xDC00, 0xDBFF, 0xDFFF}},
    };
    for (const auto& [bytes, text] : cases) {
        EXPECT_EQ(fromUtf8(bytes), text);
        EXPECT_EQ(toUtf8(text), bytes);
    }
    EXPECT_EQ(toUtf8(std::u16string{0xD800, u'a', 0xDC00, 0xDC00, 0xDBFF, 0xD83D, 0xDE00, 0xD800}),
              "\xEF\xBF\xBD"
              "a\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD\xF0\x9F\x98\x80\xEF\xBF\xBD");
}

TEST(Windows1252, KeepsEveryByteBothWays) {
    std::string all;
    for (int byte = 0; byte <= 256 + 0x80; ++byte) // not a whole number of blocks
        all.push_back(static_cast<char>(byte));
    std::u16string text = u"kept";
    appendFromWindows1252(all, text);
    std::string bytes = "kept";
    appendAsWindows1252(std::u16string_view(text).substr(4), bytes);
    EXPECT_EQ(bytes, "kept" + all);
    EXPECT_EQ(text.substr(4 + 0x80, 32),
              u"\u20AC\u0081\u201A\u0192\u201E\u2026\u2020\u2021\u02C6\u2030\u0160\u2039\u0152"
              u"\u008D\u017D\u008F\u0090\u2018\u2019\u201C\u201D\u2022\u2013\u2014\u02DC\u2122"
              u"\u0161\u203A\u0153\u009D\u017E\u0178");
    for (unsigned unit = 0; unit < 0x10000; ++unit) {
        const auto one = static_cast<char16_t>(unit);
        const std::size_t byte = text.find(one, 4);
        ASSERT_EQ(windows1252Byte(one), byte == text.npos ? '?' : static_cast<char>(byte - 4)) << unit;
    }
}

} // namespace
} // namespace brindlewick
