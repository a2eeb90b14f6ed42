#include "platform/native_path.h"

#include <gtest/gtest.h>

#include <random>

namespace brindlewick {
namespace {

struct Case {
    std::string bytes;
    std::u16string text;
};

class PathBytes : public ::testing::TestWithParam<Case> {};

TEST_P(PathBytes, BecomeTextAndBytesAgain) {
    EXPECT_EQ(textFromPathBytes(GetParam().bytes), GetParam().text);
    EXPECT_EQ(pathText(GetParam().bytes), GetParam().text);
    EXPECT_EQ(nativePath(GetParam().text).native(), GetParam().bytes);
}

INSTANTIATE_TEST_SUITE_P(
    Names, PathBytes,
    ::testing::Values(Case{"", u""}, Case{"/a b/c", u"/a b/c"}, Case{"\xC3\xA4\xE2\x82\xAC", u"\u00E4\u20AC"},
                      Case{"\xF0\x9F\x98\x80", u"\U0001F600"}, Case{"a\x80z", {u'a', 0xDC80, u'z'}},
                      Case{"\xFF", {0xDCFF}}, Case{"\xE2\x82", {0xDCE2, 0xDC82}},
                      Case{"\xC0\xAF", {0xDCC0, 0xDCAF}}, Case{"\xED\xA0\x80", {0xDCED, 0xDCA0, 0xDC80}},
                      Case{"\xF4\x90\x80\x80", {0xDCF4, 0xDC90, 0xDC80, 0xDC80}},
                      Case{"\xF0\x90\x82\x80\x80", {0xD800, 0xDC80, 0xDC80}}, // a pair, then an escape
                      Case{"\xEF\xBF\xBD", u"\uFFFD"}, Case{"\xEF\xBF\xBD\xFE", {0xFFFD, 0xDCFE}}));

struct Lone {
    std::u16string text;
    std::string bytes;
};

class LoneSurrogate : public ::testing::TestWithParam<Lone> {};

TEST_P(LoneSurrogate, OutsideTheEscapesIsReplaced) {
    EXPECT_EQ(nativePath(GetParam().text).native(), GetParam().bytes);
}

INSTANTIATE_TEST_SUITE_P(Texts, LoneSurrogate,
                         ::testing::Values(Lone{{0xD800}, "\xEF\xBF\xBD"}, Lone{{0xDC7F}, "\xEF\xBF\xBD"},
                                           Lone{{0xDD00}, "\xEF\xBF\xBD"},
                                           Lone{{0xD800, u'a', 0xDC80},
                                                "\xEF\xBF\xBD"
                                                "a\x80"}));

TEST(PathBytes, OfEveryKindComeBack) {
    // Lead, continuation and edge bytes stand often enough to meet in every order.
    constexpr std::string_view edges = "\x7F\x80\x82\x8F\x90\x9F\xA0\xBF\xC1\xC2\xE0\xED\xEF\xF0\xF4\xF5\xFF";
    std::mt19937 random(20210831);
    for (int round = 0; round < 100000; ++round) {
        std::string bytes(random() % 12, 'a');
        for (char& byte : bytes)
            byte = random() % 2 == 0 ? edges[random() % edges.size()] : static_cast<char>(1 + random() % 255);
        const std::u16string text = textFromPathBytes(bytes);
        ASSERT_EQ(nativePath(text).native(), bytes) << "round " << round;
    }
}

} // namespace
} // namespace brindlewick
