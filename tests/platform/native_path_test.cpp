#include "platform/native_path.h"

#include <gtest/gtest.h>

#include <random>

namespace brindlewick {
namespace {

TEST(FileNamePart, IsAfterTheLastSeparatorOfEitherKind) {
    const std::pair<std::u16string_view, std::u16string_view> cases[] = {
        {u"", u""},         {u"a.json", u"a.json"}, {u"/x\\a/b", u"b"},
        {u"/x/a\\b", u"b"}, {u"/x/", u""},          {u"C:a", u"C:a"},
    };
    for (const auto& [path, name] : cases)
        EXPECT_EQ(fileNamePart(path), name);
}

TEST(JoinedPath, HasOneSeparatorBetweenFolderAndName) {
    const std::u16string separator(1, pathSeparator);
    EXPECT_EQ(joinedPath(u"a", u"b"), u"a" + separator + u"b");
    EXPECT_EQ(joinedPath(u"a" + separator, u"b"), u"a" + separator + u"b");
    EXPECT_EQ(joinedPath(separator, u"b"), separator + u"b");
    EXPECT_EQ(withSeparator(joinedPath(u"a", u"")), u"a" + separator);
}

TEST(PathBytes, BecomeTextWithAnEscapeForEachInvalidByte) {
    const std::pair<std::string, std::u16string> cases[] = {
        {"", u""},
        {"/a b/\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80", u"/a b/\u00E4\u20AC\U0001F600"},
        {"a\x80z", {u'a', 0xDC80, u'z'}},
        {"\xFF", {0xDCFF}},
        {"\xE2\x82", {0xDCE2, 0xDC82}},
        {"\xC0\xAF", {0xDCC0, 0xDCAF}},
        {"\xED\xA0\x80", {0xDCED, 0xDCA0, 0xDC80}},
        {"\xF4\x90\x80\x80", {0xDCF4, 0xDC90, 0xDC80, 0xDC80}},
        {"\xF0\x90\x82\x80\x80", {0xD800, 0xDC80, 0xDC80}}, // a pair, then an escape
        {"\xEF\xBF\xBD\xFE", {0xFFFD, 0xDCFE}},
    };
    for (const auto& [bytes, text] : cases) {
        EXPECT_EQ(textFromPathBytes(bytes), text);
        EXPECT_EQ(pathBytes(text), bytes);
    }
}

TEST(PathBytes, ReplaceSurrogatesThatAreNotEscapes) {
    EXPECT_EQ(pathBytes(std::u16string{0xD800, u'/', 0xDC7F, u'/', 0xDD00, u'/', 0xD800, u'a', 0xDC80}),
              "\xEF\xBF\xBD/\xEF\xBF\xBD/\xEF\xBF\xBD/\xEF\xBF\xBD"
              "a\x80");
}

TEST(PathBytes, AreTheSameAfterARoundTrip) {
    // Half of the bytes are at the edges of UTF-8 ranges, so that they occur in every order.
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
