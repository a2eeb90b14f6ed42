#include "extract/fragment_walker.h"

#include "platform/failure.h"
#include "platform/text_encoding.h"

#include <gtest/gtest.h>

namespace brindlewick {
namespace {

using Cleaning = void (*)(std::u16string_view, std::u16string&);

TEST(Cleanings, RemoveTheirCharactersAndThenOuterBlanks) {
    const std::u16string_view text = u" {\" [a] ,b} { \" ]";
    const std::pair<Cleaning, std::u16string> cases[] = {
        {appendKeyCleaning, u"a ,b}"},
        {appendLevelCleaning, u"a ,b}"},
        {appendValueCleaning, u"[a] ,b   ]"},
        {appendLooseValueCleaning, u"[a ,b"},
    };
    for (const auto& [clean, expected] : cases) {
        std::u16string target = u"kept ";
        clean(text, target);
        EXPECT_EQ(target, u"kept " + expected);
    }
}

struct Case {
    std::u16string line;
    std::string keyText;
    std::string valueText;
    std::string keyTextAfterArray;
    std::string valueTextAfterArray;
};

class WalkedLine : public ::testing::TestWithParam<Case> {};

TEST_P(WalkedLine, GivesItsTexts) {
    const Case& expected = GetParam();
    FragmentWalker walker;
    walker.walk(expected.line);
    EXPECT_EQ(toUtf8(walker.keyText()), expected.keyText);
    EXPECT_EQ(toUtf8(walker.valueText()), expected.valueText);

    FragmentWalker after;
    after.walk(u"[]");
    EXPECT_TRUE(after.arraySeen());
    after.clearTexts();
    after.walk(expected.line);
    EXPECT_EQ(toUtf8(after.keyText()), expected.keyTextAfterArray);
    EXPECT_EQ(toUtf8(after.valueText()), expected.valueTextAfterArray);
}

INSTANTIATE_TEST_SUITE_P(
    Shapes, WalkedLine,
    ::testing::Values(Case{u"{\"a\":1}", "a ", "1 ", "a ", ""}, Case{u"{\"b\":\"x\"}", "b ", "x ", "b ", ""},
                      Case{u"{}", "", " ", "", " "}, Case{u"{\"a\":}", "a ", " ", "a ", ""},
                      Case{u"{\"a\":{\"b\":2}}", "a b ", "2 ", "a b ", ""},
                      Case{u"{\"a\":1,\"b\":2}", "a ", "1,b 2 ", "a ", "1 b "},
                      Case{u"{\"a\":\"x,y\"}", "a ", "x,y ", "a ", "x y "},
                      Case{u"{\"a\":[1,2]}", "a ", "1 2 ", "a ", "1 2 "},
                      Case{u"{\"a\":[]}", "a ", " ", "a ", " "},
                      Case{u"{\"a\":[{\"b\":[3,4]}]}", "a b ", "b 3 4 ", "a b ", "b 3 4 "},
                      Case{u"[{\"a\":1},\"b\"]", "a ", "a 1 b ", "a ", "a 1 b "},
                      Case{u"[1,2]", "", "1 2 ", "", "1 2 "}, Case{u"{\"a,b\":1}", "", "a b 1 ", "", "a b "},
                      Case{u"{\"{{a\":1}", "a ", "1 ", "a ", ""},
                      Case{u"{\"[a]\":\"[x]\"}", "[a] ", "[x ", "[a] ", ""},
                      Case{u"{\"a\":\"p{q{r\"}", "a pqr} pqr} ", "pqr ", "a pqr} pqr} ", ""},
                      Case{u"{\"a\":\"  \"}", "a ", " ", "a ", ""}));

TEST(FragmentWalker, RefusesATextThatGrowsAsTheSquareOfTheLine) {
    std::u16string line = u"{\"a\":\"";
    for (int level = 0; level < 50000; ++level)
        line += u"{x";
    FragmentWalker walker;
    try {
        walker.walk(line + u"\"}");
        FAIL() << "2,500,000,000 code units were built";
    } catch (const Failure& failure) {
        EXPECT_EQ(failure.number(), FailureNumber::outOfMemory);
    }
    EXPECT_EQ(walker.keyText(), u"a ");
}

} // namespace
} // namespace brindlewick
