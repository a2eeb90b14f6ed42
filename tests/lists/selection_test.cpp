// A dialog's returned text taken apart into paths, and how long it may be.
#include "lists/selection.h"

#include "support/own_separator.h"

#include <gtest/gtest.h>

namespace brindlewick {
namespace {

using namespace std::literals;
using testing::own;

struct Case {
    std::u16string selection;
    std::vector<std::u16string> expected;
};

class PathsOfSelection : public ::testing::TestWithParam<Case> {};

TEST_P(PathsOfSelection, AreAsExpected) {
    std::vector<std::u16string> expected;
    for (const std::u16string& path : GetParam().expected)
        expected.push_back(own(path));
    EXPECT_EQ(pathsOfSelection(own(GetParam().selection)), expected);
}

INSTANTIATE_TEST_SUITE_P(Parts, PathsOfSelection,
                         ::testing::Values(Case{u"", {}}, Case{u"/d/a.json", {u"/d/a.json"}},
                                           Case{uR"(C:\\d\\a.json)", {uR"(C:\\d\\a.json)"}},
                                           Case{u"C:/d\0a.json\0b.json"s, {u"C:/d/a.json", u"C:/d/b.json"}},
                                           Case{u"C:/d\0b\0a\0b"s, {u"C:/d/b", u"C:/d/a", u"C:/d/b"}},
                                           Case{u"C:/\0a.json\0b.json"s, {u"C:/a.json", u"C:/b.json"}},
                                           Case{u"C:/x\\\\y\0a\\\\b\0c"s, {u"C:/x\\y/a\\b", u"C:/x\\y/c"}},
                                           Case{u"C:/d\0"s, {u"C:/d/"}}));

TEST(SelectionFitsBuffer, CountsTheClosingNul) {
    EXPECT_TRUE(selectionFitsBuffer(u""));
    EXPECT_TRUE(selectionFitsBuffer(std::u16string(259, u'a')));
    EXPECT_FALSE(selectionFitsBuffer(std::u16string(260, u'a')));
}

} // namespace
} // namespace brindlewick
