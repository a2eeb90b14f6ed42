// The clean-up of doubled backslashes, and the separator at a folder's end.
#include "lists/path_cleanup.h"

#include "support/own_separator.h"

#include <gtest/gtest.h>

namespace brindlewick {
namespace {

using testing::own;

struct Case {
    std::u16string path;
    std::u16string expected;
};

class CollapsedBackslashes : public ::testing::TestWithParam<Case> {};

TEST_P(CollapsedBackslashes, AreAsExpected) {
    EXPECT_EQ(CollapseDoubledBackslashes(GetParam().path), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(Inside, CollapsedBackslashes,
                         ::testing::Values(Case{u"", u""}, Case{u"a", u"a"},
                                           Case{uR"(C:\\dir\\a.json)", uR"(C:\dir\a.json)"},
                                           Case{uR"(C:\dir\a.json)", uR"(C:\dir\a.json)"},
                                           Case{uR"(a\\\b)", uR"(a\\b)"}, Case{uR"(a\\\\b)", uR"(a\\b)"},
                                           Case{uR"(a\\\\\b)", uR"(a\\\b)"}, Case{uR"(a\\)", uR"(a\)"},
                                           Case{u"//a//b", u"//a//b"}, Case{uR"(/a\\b)", uR"(/a\b)"}));
INSTANTIATE_TEST_SUITE_P(AtTheStart, CollapsedBackslashes,
                         ::testing::Values(Case{uR"(\dir\a.json)", uR"(\\dir\a.json)"},
                                           Case{uR"(\\server\\x)", uR"(\\server\x)"},
                                           Case{uR"(\\\\\server\x)", uR"(\\server\x)"}, Case{u"\\", u"\\\\"},
                                           Case{uR"(\\\\\)", u"\\\\"}));

TEST(CollapseDoubledBackslashes, TakesALongRunInOnePass) {
    const std::u16string run(4'000'001, u'\\');
    EXPECT_EQ(CollapseDoubledBackslashes(u"a" + run).size(), 1 + 2'000'001u);
    EXPECT_EQ(CollapseDoubledBackslashes(run), u"\\\\");
}

TEST(WithSeparator, DoesNotDoubleIt) {
    for (const auto& [folder, expected] :
         {std::pair{u"/a", u"/a/"}, {u"/a/", u"/a/"}, {u"/", u"/"}, {u"C:/", u"C:/"}})
        EXPECT_EQ(withSeparator(own(folder)), own(expected));
}

} // namespace
} // namespace brindlewick
