#include "platform/native_path.h"

#include "platform/path_bytes.h"

#include <gtest/gtest.h>

#include <random>

namespace brindlewick {
namespace {

struct Case {
    std::u16string_view path;
    std::u16string_view name;
};

class FileNamePart : public ::testing::TestWithParam<Case> {};

TEST_P(FileNamePart, FollowsTheLastSeparatorOfEitherKind) {
    EXPECT_EQ(fileNamePart(GetParam().path), GetParam().name);
}

INSTANTIATE_TEST_SUITE_P(Paths, FileNamePart,
                         ::testing::Values(Case{u"", u""}, Case{u"a.json", u"a.json"},
                                           Case{u"/x/a.json", u"a.json"}, Case{u"C:\\x\\a.json", u"a.json"},
                                           Case{u"/x\\a/b", u"b"}, Case{u"/x/a\\b", u"b"}, Case{u"/x/", u""},
                                           Case{u"C:a", u"C:a"}));

class TextOfPathBytes : public ::testing::TestWithParam<testing::PathBytes> {};

TEST_P(TextOfPathBytes, IsTheSameOnEveryPlatformBothWays) {
    EXPECT_EQ(textFromPathBytes(GetParam().bytes), GetParam().text);
    EXPECT_EQ(pathBytes(GetParam().text), GetParam().bytes);
}

INSTANTIATE_TEST_SUITE_P(Names, TextOfPathBytes, ::testing::ValuesIn(testing::pathBytes));

struct Lone {
    std::u16string text;
    std::string bytes;
};

class LoneSurrogate : public ::testing::TestWithParam<Lone> {};

TEST_P(LoneSurrogate, OutsideTheEscapesIsReplaced) {
    EXPECT_EQ(pathBytes(GetParam().text), GetParam().bytes);
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
        ASSERT_EQ(pathBytes(text), bytes) << "round " << round;
    }
}

} // namespace
} // namespace brindlewick
