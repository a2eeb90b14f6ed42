#include "platform/text_encoding.h"

#include <gtest/gtest.h>

namespace brindlewick {
namespace {

struct Bytes {
    std::string bytes;
    std::u16string text;
};

class IllFormedUtf8 : public ::testing::TestWithParam<Bytes> {};

TEST_P(IllFormedUtf8, BecomesOneReplacementPerMaximalSubpart) {
    EXPECT_EQ(fromUtf8(GetParam().bytes), GetParam().text);
    EXPECT_EQ(fromUtf8("plain ASCII " + GetParam().bytes + "!"), u"plain ASCII " + GetParam().text + u"!");
}

INSTANTIATE_TEST_SUITE_P(
    Sequences, IllFormedUtf8,
    ::testing::Values(
        Bytes{"\x80", u"\uFFFD"}, Bytes{"\xBF\x80", u"\uFFFD\uFFFD"}, Bytes{"\xC0\xAF", u"\uFFFD\uFFFD"},
        Bytes{"\xC1\xBF", u"\uFFFD\uFFFD"}, Bytes{"\xC2", u"\uFFFD"}, Bytes{"\xE2\x82", u"\uFFFD"},
        Bytes{"\xE0\x9F\xBF", u"\uFFFD\uFFFD\uFFFD"}, Bytes{"\xED\xA0\x80", u"\uFFFD\uFFFD\uFFFD"},
        Bytes{"\xF0\x8F\xBF\xBF", u"\uFFFD\uFFFD\uFFFD\uFFFD"}, Bytes{"\xF0\x9F\x98", u"\uFFFD"},
        Bytes{"\xF0\x9F", u"\uFFFD"}, Bytes{"\xF4\x90\x80\x80", u"\uFFFD\uFFFD\uFFFD\uFFFD"},
        Bytes{"\xF5\x80", u"\uFFFD\uFFFD"}, Bytes{"\xFE\xFF", u"\uFFFD\uFFFD"},
        Bytes{"\xE2\x82\xE2\x82\xAC", u"\uFFFD\u20AC"}, Bytes{"\xC2\xC2\xA9", u"\uFFFD\u00A9"},
        Bytes{"\xF0\x9F\x98\xF0\x9F\x98\x80", u"\uFFFD\U0001F600"}, Bytes{"\xE1\x80\x41", u"\uFFFD\u0041"},
        Bytes{"\xF1\x80\x80\xE1\x80\xC2\x62", u"\uFFFD\uFFFD\uFFFDb"}));

class Utf8 : public ::testing::TestWithParam<Bytes> {};

TEST_P(Utf8, IsReadAndWritten) {
    EXPECT_EQ(fromUtf8(GetParam().bytes), GetParam().text);
    EXPECT_EQ(toUtf8(GetParam().text), GetParam().bytes);
}

INSTANTIATE_TEST_SUITE_P(
    Sequences, Utf8,
    ::testing::Values(
        Bytes{"", u""}, Bytes{"a longer run of plain ASCII\x7F", u"a longer run of plain ASCII\x7F"},
        Bytes{std::string(1, '\0'), std::u16string(1, u'\0')}, Bytes{"\xC2\x80", {0x80}},
        Bytes{"\xDF\xBF", {0x7FF}}, Bytes{"\xE0\xA0\x80", {0x800}}, Bytes{"\xED\x9F\xBF", {0xD7FF}},
        Bytes{"\xEE\x80\x80", {0xE000}}, Bytes{"\xEF\xBB\xBF", {0xFEFF}}, Bytes{"\xEF\xBF\xBF", {0xFFFF}},
        Bytes{"\xF0\x90\x80\x80", {0xD800, 0xDC00}}, Bytes{"\xF4\x8F\xBF\xBF", {0xDBFF, 0xDFFF}}));

TEST(ToUtf8, ReplacesEachLoneSurrogate) {
    EXPECT_EQ(toUtf8(std::u16string{0xD800, u'a', 0xDC00, 0xDBFF, 0xD83D, 0xDE00, 0xD800}),
              "\xEF\xBF\xBD"
              "a\xEF\xBF\xBD\xEF\xBF\xBD\xF0\x9F\x98\x80\xEF\xBF\xBD");
}

TEST(SingleByte, KeepsEveryByteBothWays) {
    std::string all;
    for (int byte = 0; byte < 256; ++byte)
        all.push_back(static_cast<char>(byte));
    std::u16string text = u"kept";
    appendFromSingleByte(all, text);
    std::string bytes = "kept";
    appendAsSingleByte(std::u16string_view(text).substr(4), bytes);
    EXPECT_EQ(bytes, "kept" + all);
    EXPECT_EQ(text.substr(4 + 0x80, 32),
              u"\u20AC\u0081\u201A\u0192\u201E\u2026\u2020\u2021\u02C6\u2030\u0160\u2039\u0152"
              u"\u008D\u017D\u008F\u0090\u2018\u2019\u201C\u201D\u2022\u2013\u2014\u02DC\u2122"
              u"\u0161\u203A\u0153\u009D\u017E\u0178");
}

struct Unit {
    char16_t unit;
    char byte;
    bool isHeld;
};

class SingleByteOf : public ::testing::TestWithParam<Unit> {};

TEST_P(SingleByteOf, IsAQuestionMarkOutsideTheSet) {
    EXPECT_EQ(singleByteOf(GetParam().unit), GetParam().byte);
    EXPECT_EQ(hasSingleByte(GetParam().unit), GetParam().isHeld);
}

INSTANTIATE_TEST_SUITE_P(Units, SingleByteOf,
                         ::testing::Values(Unit{u'\0', '\0', true}, Unit{u'?', '?', true},
                                           Unit{u'\u20AC', '\x80', true}, Unit{u'\u0080', '?', false},
                                           Unit{u'\u0081', '\x81', true}, Unit{u'\u00FF', '\xFF', true},
                                           Unit{u'\u0100', '?', false}, Unit{u'\u4E2D', '?', false},
                                           Unit{0xD83D, '?', false}, Unit{0xFFFF, '?', false}));

} // namespace
} // namespace brindlewick
