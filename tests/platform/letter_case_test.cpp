#include "platform/letter_case.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace brindlewick {
namespace {

class SameLetter : public ::testing::TestWithParam<std::u16string_view> {};

TEST_P(SameLetter, FoldsToTheLastOfItsForms) {
    for (const char16_t form : GetParam())
        EXPECT_EQ(foldCase(form), GetParam().back()) << static_cast<unsigned>(form);
}

INSTANTIATE_TEST_SUITE_P(Letters, SameLetter,
                         ::testing::Values(u"Aa", u"Zz", u"Ää", u"Þþ", u"ß", u"ẞ\u00DF", u"÷", u"×", u"Σςσ",
                                           u"\u212AKk", u"\u212BÅå", u"\u00B5Μμ", u"ſSs", u"İIıi", u"Ÿÿ",
                                           u"Āā", u"Žž", u"Ǆǅǆ", u"Жж", u"Ёё", u"Աա", u"ႠႠⴀ", u"Ꭰꭰ",
                                           u"Ⅷⅷ", u"Ⓐⓐ", u"Ａａ", u"@", u"[", u"中"));

TEST(FoldCase, LeavesSurrogatesAloneAndFoldsOnceForAll) {
    for (unsigned unit = 0; unit < 0x10000; ++unit) {
        const char16_t folded = foldCase(static_cast<char16_t>(unit));
        if (unit >= 0xD800 && unit <= 0xDFFF) {
            ASSERT_EQ(folded, unit);
        }
        ASSERT_EQ(foldCase(folded), folded) << unit;
        ASSERT_EQ(foldCaseTable()[unit], folded);
    }
    EXPECT_EQ(foldedCase(u"GRÖSSE \U00010400"), u"grösse \U00010400");
}

TEST(LessByName, OrdersWithoutCaseAndThenByCodeUnit) {
    const std::vector<std::u16string> ordered = {u"",   u".x", u"A",   u"a", u"A1", u"a_", u"AB", u"Ab",
                                                 u"aB", u"ab", u"abc", u"b", u"Z",  u"Ä",  u"ä"};
    std::vector<std::u16string> names(ordered.rbegin(), ordered.rend());
    std::sort(names.begin(), names.end(), lessByName);
    EXPECT_EQ(names, ordered);
    EXPECT_FALSE(lessByName(u"ab", u"ab"));
}

struct Case {
    std::u16string_view name;
    std::u16string_view pattern;
    bool matches;
};

class Pattern : public ::testing::TestWithParam<Case> {};

TEST_P(Pattern, IsMatched) {
    EXPECT_EQ(matchesPattern(GetParam().name, GetParam().pattern), GetParam().matches);
}

INSTANTIATE_TEST_SUITE_P(Patterns, Pattern,
                         ::testing::Values(Case{u"", u"", true}, Case{u"a", u"", false},
                                           Case{u"", u"*", true}, Case{u"", u"?", false},
                                           Case{u"a.json", u"*.json", true}, Case{u"A.JSON", u"*.json", true},
                                           Case{u"a.jsonl", u"*.json", false},
                                           Case{u".json", u"*.json", true}, Case{u"json", u"*.json", false},
                                           Case{u"README", u"*.*", true}, Case{u"", u"*.*", true},
                                           Case{u"README", u"*.**", false}, Case{u"README", u"*.?*", false},
                                           Case{u"a.b", u"a*.*", true}, Case{u"ab", u"a*.*", false},
                                           Case{u"abc", u"a?c", true}, Case{u"ac", u"a?c", false},
                                           Case{u"abcabd", u"*abd", true}, Case{u"aab", u"*a?b", true},
                                           Case{u"ab", u"*a?b", false}, Case{u"aab", u"*ab", true},
                                           Case{u"xaybzc", u"*a*b*c", true}, Case{u"xaybz", u"*a*b*c", false},
                                           Case{u"ab", u"ab**", true}, Case{u"ÄB", u"ä?", true},
                                           Case{u"a[b", u"a[b", true}, Case{u"a.json", u"*.js*n.*", false}));

TEST(Pattern, OfManyStarsEndsInTime) {
    std::u16string pattern;
    for (int star = 0; star < 1000; ++star)
        pattern += u"*a";
    EXPECT_FALSE(matchesPattern(std::u16string(4000, u'a'), pattern + u"b"));
}

} // namespace
} // namespace brindlewick
