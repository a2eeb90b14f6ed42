// Counts and candidates against a search for one tag after another.
#include "extract/tag_matcher.h"

#include "platform/letter_case.h"

#include <gtest/gtest.h>

#include <random>

namespace brindlewick {
namespace {

using Texts = std::vector<std::u16string>;

void expectTheMatchesOfAPlainSearch(const Texts& tags, const Texts& lines) {
    const TagMatcher matcher(tags);
    std::u16string text;
    std::vector<std::uint32_t> ends;
    Texts folded;
    for (const std::u16string& line : lines) {
        text += line;
        ends.push_back(static_cast<std::uint32_t>(text.size()));
        folded.push_back(foldedCase(line));
    }
    std::vector<std::size_t> matches(lines.size());
    for (const std::u16string& tag : tags) {
        const std::u16string foldedTag = foldedCase(tag);
        for (std::size_t line = 0; line < lines.size(); ++line)
            matches[line] += folded[line].find(foldedTag) != std::u16string::npos ? 1 : 0;
    }

    TagMatcher::Scratch scratch;
    const std::vector<std::uint32_t> candidates = matcher.findCandidates({text, ends}, scratch);
    auto candidate = candidates.begin();
    for (std::size_t line = 0; line < lines.size(); ++line) {
        ASSERT_EQ(matcher.countMatches(lines[line], scratch), matches[line]) << line;
        const bool isCandidate = candidate != candidates.end() && *candidate == line;
        candidate += isCandidate ? 1 : 0;
        ASSERT_TRUE(isCandidate || matches[line] == 0) << line;
    }
    ASSERT_EQ(candidate, candidates.end()); // in order, none twice
}

/// Small alphabets make tags nest and overlap.
Texts randomTexts(std::mt19937& random, std::size_t count, std::size_t longest, unsigned letters,
                  char16_t first = u'a') {
    Texts texts(count);
    for (std::u16string& text : texts)
        for (std::size_t length = random() % (longest + 1); length > 0; --length)
            text += static_cast<char16_t>((random() % 4 == 0 ? first - 32 : first) + random() % letters);
    return texts;
}

TEST(TagMatcher, FindsWhatAPlainSearchFinds) {
    std::mt19937 random(11);
    for (int round = 0; round < 200 && !HasFatalFailure(); ++round) {
        const std::size_t count = round % 2 == 0 ? 1 : 1 + random() % 40;
        const unsigned letters = 1 + random() % 4;
        expectTheMatchesOfAPlainSearch(randomTexts(random, count, 1 + random() % 20, letters),
                                       randomTexts(random, random() % 60, 50, letters + 1));
    }
    // So many tags of so many letters that a table of them would be too large.
    expectTheMatchesOfAPlainSearch(randomTexts(random, 12000, 2, 6000, 0x4E00),
                                   randomTexts(random, 20, 60, 6000, 0x4E00));
    Texts nested;
    for (std::size_t length = 1; length <= 500; ++length)
        nested.emplace_back(length, u'a');
    expectTheMatchesOfAPlainSearch(nested, {std::u16string(300, u'a') + u'b' + std::u16string(499, u'A')});
}

TEST(TagMatcher, KnowsEveryFormOfALetter) {
    // The Kelvin sign, the long s, both Greek sigmas, the micro sign, and letters beyond U+8000.
    const std::u16string_view forms =
        u"kK\u212AsS\u017F\u03C3\u03C2\u03A3\u00B5\u03BC\u13A0\uAB70\u00E9\u00C9\uFFFF";
    Texts lines;
    for (const char16_t first : forms)
        for (const char16_t second : forms)
            lines.push_back(std::u16string{u'a', first, second} + std::u16string(20, u'z'));
    for (const std::u16string& line : lines) {
        expectTheMatchesOfAPlainSearch({line.substr(1, 2)}, lines);
        expectTheMatchesOfAPlainSearch({line.substr(1, 1), u"zq"}, lines);
    }
}

} // namespace
} // namespace brindlewick
