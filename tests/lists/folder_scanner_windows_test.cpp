// Scans of folders that Windows protects.
#include "lists/folder_rules.h"
#include "lists/folder_scanner.h"

#include "lists/scanned_tree.h"

#include <gtest/gtest.h>

#include <windows.h>

namespace brindlewick {
namespace {

using testing::Names;
using testing::Scan;
using testing::Tree;

struct Protection {
    DWORD attributes;
    Names expected;
};

class ScanOfAFolder : public ::testing::TestWithParam<Protection> {};

TEST_P(ScanOfAFolder, FollowsItsAttributes) {
    const Tree tree({"a/1", "closed/2", "closed/sub/3"});
    ASSERT_NE(::SetFileAttributesW((tree.folder.path() / "closed").c_str(), GetParam().attributes), 0);
    EXPECT_EQ(Scan(tree, {""}).files, GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Attributes, ScanOfAFolder,
    ::testing::Values(Protection{FILE_ATTRIBUTE_HIDDEN, {"a/1", "closed/2", "closed/sub/3"}},
                      Protection{FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM, {"a/1"}}));

TEST(RootFolder, IsADriveWithItsSeparator) {
    for (const std::u16string_view root : {u"C:\\", u"c:/", u"\\"})
        EXPECT_TRUE(isRootFolder(root));
    for (const std::u16string_view other : {u"C:", u"C:\\a", u"C:\\a\\", u"a\\"})
        EXPECT_FALSE(isRootFolder(other));
}

} // namespace
} // namespace brindlewick
