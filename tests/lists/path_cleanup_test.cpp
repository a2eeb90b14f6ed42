// The clean-up of doubled backslashes.
#include "lists/path_cleanup.h"

#include <gtest/gtest.h>

namespace brindlewick {
namespace {

TEST(CollapseDoubledBackslashes, HalvesThemInsideAndDoublesTheFirst) {
    const std::pair<std::u16string_view, std::u16string_view> cases[] = {
        {u"", u""},
        {uR"(C:\\dir\a.json)", uR"(C:\dir\a.json)"},
        {uR"(a\\\b)", uR"(a\\b)"},
        {uR"(a\\\\b)", uR"(a\\b)"},
        {uR"(a\\\\\b\\)", uR"(a\\\b\)"},
        {uR"(//a//b\\)", uR"(//a//b\)"},
        {uR"(\dir\a.json)", uR"(\\dir\a.json)"},
        {uR"(\\server\\x)", uR"(\\server\x)"},
        {uR"(\\\\\server\x)", uR"(\\server\x)"},
        {u"\\", u"\\\\"},
    };
    for (const auto& [path, expected] : cases)
        EXPECT_EQ(CollapseDoubledBackslashes(path), expected);
    const std::u16string run(4'000'001, u'\\'); // in one pass
    EXPECT_EQ(CollapseDoubledBackslashes(u"a" + run).size(), 1 + 2'000'001u);
    EXPECT_EQ(CollapseDoubledBackslashes(run), u"\\\\");
}

} // namespace
} // namespace brindlewick
