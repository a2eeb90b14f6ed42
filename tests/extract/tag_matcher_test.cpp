#include "extract/tag_matcher.h"

#include "platform/letter_case.h"

#include <gtest/gtest.h>

#include <algorithm>
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

/// The candidates among the lines, put one behind the other.
std::vector<std::uint32_t> candidatesAmong(TagMatcher& matcher, const Tags& lines) {
    std::u16string text;
    std::vector<std::uint32_t> ends;
    for (const std::u16string& line : lines) {
        text += line;
        ends.push_back(static_cast<std::uint32_t>(text.size()));
    }
    std::vector<std::uint32_t> candidates;
    matcher.findCandidates({text, ends}, candidates);
    return candidates;
}

void expectEveryMatchAmongTheCandidates(const Tags& tags, const Tags& lines) {
    TagMatcher matcher(tags);
    const std::vector<std::uint32_t> candidates = candidatesAmong(matcher, lines);
    ASSERT_TRUE(std::is_sorted(candidates.begin(), candidates.end()));
    ASSERT_EQ(std::adjacent_find(candidates.begin(), candidates.end()), candidates.end());
    for (std::uint32_t line = 0; line < lines.size(); ++line) {
        const bool isCandidate = std::binary_search(candidates.begin(), candidates.end(), line);
        ASSERT_TRUE(isCandidate || countPlainly(tags, lines[line]) == 0) << line;
    }
}

TEST(TagMatcher, MissesNoLineOfABatch) {
    std::mt19937 random(13);
    for (int round = 0; round < 300; ++round) {
        const unsigned alphabet = 1 + random() % 4;
        for (const std::size_t count : {1U, 1U, 7U})
            expectEveryMatchAmongTheCandidates(randomTags(random, count, 20, alphabet),
                                               randomTags(random, random() % 60, 50, alphabet + 1));
    }
}

TEST(TagMatcher, MissesNoOtherFormOfALetter) {
    // The Kelvin sign, the long s, both Greek sigmas, the micro sign, and letters beyond U+8000.
    const Tags forms = {u"k",      u"K",      u"\u212A", u"s",      u"S",      u"\u017F",
                        u"\u03C3", u"\u03C2", u"\u03A3", u"\u00B5", u"\u03BC", u"\u13A0",
                        u"\uAB70", u"\u00E9", u"\u00C9", u"\uFFFF"};
    Tags lines;
    for (const std::u16string& first : forms)
        for (const std::u16string& second : forms)
            lines.push_back(u"a" + first + second + std::u16string(20, u'z'));
    for (const std::u16string& line : lines)
        for (const std::size_t length : {1U, 2U}) {
            expectEveryMatchAmongTheCandidates({line.substr(1, length)}, lines);
            expectEveryMatchAmongTheCandidates({line.substr(1, length), u"zq"}, lines);
        }
}

TEST(TagMatcher, LeavesOutLinesWithoutTheTag) {
    TagMatcher one(Tags{u"name"});
    EXPECT_EQ(candidatesAmong(one, {u"{\"nam\":1}", u"{\"Name\":1}", u"{}", u"na", u"me", u"NAME"}),
              (std::vector<std::uint32_t>{1, 5}));
    TagMatcher two(Tags{u"name", u"id"});
    EXPECT_EQ(candidatesAmong(two, {u"{\"nam\":1}", u"{\"Name\":1}", u"{}", u"{\"iD\":1}", u"NAME"}),
              (std::vector<std::uint32_t>{1, 3, 4}));
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
