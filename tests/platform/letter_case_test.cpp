#include "platform/letter_case.h"

#include <gtest/gtest.h>

#include <vector>

namespace brindlewick {
namespace {

TEST(FoldCase, GivesTheLastOfALettersForms) {
    const std::u16string_view letters[] = {
        u"Aa",       u"Zz",     u"Ää",   u"Þþ", u"ẞ\u00DF", u"÷",  u"×",   u"Σςσ", u"\u212AKk", u"\u212BÅå",
        u"\u00B5Μμ", u"ſSs",    u"İIıi", u"Ÿÿ", u"Āā",      u"Žž", u"Ǆǅǆ", u"Жж",  u"Ёё",       u"Աա",
        u"ႠႠⴀ",      u"Ꭰꭰ", u"Ⅷⅷ",   u"Ⓐⓐ", u"Ａａ",    u"@",  u"[",   u"中"};
    for (const std::u16string_view forms : letters)
        for (const char16_t form : forms)
            EXPECT_EQ(foldCase(form), forms.back()) << static_cast<unsigned>(form);
    for (unsigned unit = 0; unit < 0x10000; ++unit) {
        const char16_t folded = foldCase(static_cast<char16_t>(unit));
        ASSERT_EQ(foldCase(folded), folded) << unit;
        ASSERT_TRUE(folded == unit || unit < 0xD800 || unit > 0xDFFF) << unit;
    }
    EXPECT_EQ(foldedCase(u"GRÖSSE \U00010400"), u"grösse \U00010400");
}

TEST(MatchesPattern, TakesStarsAndQuestionMarks) {
    using Pairs = std::vector<std::pair<std::u16string_view, std::u16string_view>>;
    const Pairs matching{
        {u"", u""},          {u"", u"*"},       {u"A.JSON", u"*.json"}, {u".json", u"*.json"},
        {u"README", u"*.*"}, {u"a.b", u"a*.*"}, {u"abc", u"a?c"},       {u"abcabd", u"*abd"},
        {u"aab", u"*a?b"},   {u"aab", u"*ab"},  {u"xaybzc", u"*a*b*c"}, {u"ab", u"ab**"},
        {u"ÄB", u"ä?"},      {u"a[b", u"a[b"}};
    for (const auto& [name, pattern] : matching)
        EXPECT_TRUE(matchesPattern(name, pattern));
    const Pairs others{
        {u"a", u""},          {u"", u"?"},           {u"a.jsonl", u"*.json"}, {u"json", u"*.json"},
        {u"README", u"*.**"}, {u"README", u"*.?*"},  {u"ab", u"a*.*"},        {u"ac", u"a?c"},
        {u"ab", u"*a?b"},     {u"xaybz", u"*a*b*c"}, {u"a.json", u"*.js*n.*"}};
    for (const auto& [name, pattern] : others)
        EXPECT_FALSE(matchesPattern(name, pattern));
    std::u16string pattern;
    for (int star = 0; star < 1000; ++star)
        pattern += u"*a";
    EXPECT_FALSE(matchesPattern(std::u16string(4000, u'a'), pattern + u"b")); // not in exponential time
}

} // namespace
} // namespace brindlewick
