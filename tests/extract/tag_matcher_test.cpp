#include "extract/tag_matcher.h"

#include "platform/letter_case.h"

#include <gtest/gtest.h>

#include <random>

namespace brindlewick {
namespace {

using Tags = std::vector<std::u16string>;

std::size_t countPlainly(const Tags& tags, std::u16string_view line) {
    std::size_t count = 0;
    for (const std::u16string& tag : tags)
        count += foldedCase(line).find(foldedCase(tag)) != std::u16string::npos ? 1 : 0;
    return count;
}

TEST(TagMatcher, IgnoresLetterCaseAndCountsEveryTag) {
    TagMatcher matcher(Tags{u"NAME", u"name", u"", u"nam", u"\u00C4", u"x"});
    EXPECT_EQ(matcher.countMatches(u"{\"Name\":1}"), 4U);
    EXPECT_EQ(matcher.countMatches(u"{\"\u00E4\":1}"), 2U);
    EXPECT_EQ(matcher.countMatches(u""), 1U);
    EXPECT_EQ(TagMatcher(Tags{}).countMatches(u"abc"), 0U);
}

/// Small alphabets make tags nest and overlap.
Tags randomTags(std::mt19937& random, std::size_t count, std::size_t longest, unsigned alphabet) {
    Tags tags;
    for (std::size_t tag = 0; tag < count; ++tag) {
        std::u16string text(random() % (longest + 1), u' ');
        for (char16_t& unit : text)
            unit = static_cast<char16_t>((random() % 4 == 0 ? u'A' : u'a') + random() % alphabet);
        tags.push_back(text);
    }
    return tags;
}

TEST(TagMatcher, AgreesWithSearchingTagByTag) {
    std::mt19937 random(11);
    for (int round = 0; round < 300; ++round) {
        const Tags tags = randomTags(random, 1 + random() % 40, 1 + random() % 8, 1 + random() % 4);
        TagMatcher matcher(tags);
        for (const std::u16string& line : randomTags(random, 20, 30, 4))
            ASSERT_EQ(matcher.countMatches(line), countPlainly(tags, line));
    }
}

TEST(TagMatcher, AgreesWhereATableWouldBeTooLarge) {
    std::mt19937 random(12);
    Tags tags;
    for (int tag = 0; tag < 12000; ++tag)
        tags.push_back({static_cast<char16_t>(0x4E00 + random() % 6000),
                        static_cast<char16_t>(0x4E00 + random() % 6000)});
    TagMatcher matcher(tags);
    for (int round = 0; round < 20; ++round) {
        std::u16string line;
        for (int unit = 0; unit < 60; ++unit)
            line += random() % 3 == 0 ? tags[random() % tags.size()]
                                      : std::u16string(1, static_cast<char16_t>(0x4E00 + random() % 6000));
        ASSERT_EQ(matcher.countMatches(line), countPlainly(tags, line));
    }
}

TEST(TagMatcher, CountsNestedTagsOnceALine) {
    Tags tags;
    for (std::size_t length = 1; length <= 2000; ++length)
        tags.emplace_back(length, u'a');
    TagMatcher matcher(tags);
    EXPECT_EQ(matcher.countMatches(std::u16string(1000, u'a') + u'b' + std::u16string(1999, u'A')), 1999U);
}

} // namespace
} // namespace brindlewick
