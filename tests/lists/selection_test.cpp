// A dialog's returned text taken apart into paths, and how long it may be.
#include "lists/selection.h"

#include <gtest/gtest.h>

namespace brindlewick {
namespace {

using namespace std::literals;

struct Case {
    std::u16string selection;
    std::vector<std::u16string> expected;
};

class PathsOfSelection : public ::testing::TestWithParam<Case> {};

TEST_P(PathsOfSelection, AreAsExpected) {
    EXPECT_EQ(pathsOfSelection(GetParam().selection), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(Parts, PathsOfSelection,
                         ::testing::Values(Case{u"", {}}, Case{u"/d/a.json", {u"/d/a.json"}},
                                           Case{uR"(C:\\d\\a.json)", {uR"(C:\\d\\a.json)"}},
                                           Case{u"/d\0a.json\0b.json"s, {u"/d/a.json", u"/d/b.json"}},
                                           Case{u"/d\0b\0a\0b"s, {u"/d/b", u"/d/a", u"/d/b"}},
                                           Case{u"/\0a.json\0b.json"s, {u"/a.json", u"/b.json"}},
                                           Case{u"/x\\\\y\0a\\\\b\0c"s, {u"/x\\y/a\\b", u"/x\\y/c"}},
                                           Case{u"/d\0"s, {u"/d/"}}));

TEST(SelectionFitsBuffer, CountsTheClosingNul) {
    EXPECT_TRUE(selectionFitsBuffer(u""));
    EXPECT_TRUE(selectionFitsBuffer(std::u16string(259, u'a')));
    EXPECT_FALSE(selectionFitsBuffer(std::u16string(260, u'a')));
}

} // namespace
} // namespace brindlewick
