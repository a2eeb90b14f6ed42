// Scans past links, refused folders and names that only a POSIX system has.
#include "lists/folder_scanner.h"

#include "lists/scanned_tree.h"

#include <gtest/gtest.h>

#include <unistd.h>

namespace brindlewick {
namespace {

namespace fs = std::filesystem;
using testing::Names;
using testing::Scan;
using testing::Tree;

TEST(Scan, DoesNotFollowLinks) {
    const Tree tree({"a/x.json", "b/y.json"});
    fs::create_directory_symlink(tree.folder.path(), tree.folder.path() / "a/up");
    fs::create_directory_symlink("../b", tree.folder.path() / "a/side");
    fs::create_symlink("x.json", tree.folder.path() / "a/file.json");
    fs::create_symlink("nowhere", tree.folder.path() / "a/dangling.json");
    const Scan scan(tree, {""});
    EXPECT_EQ(scan.folders, (Names{"", "a/", "b/"}));
    EXPECT_EQ(scan.files, (Names{"a/file.json", "a/x.json", "b/y.json"}));
}

TEST(Scan, ListsAStartFolderThatIsALinkWithoutItsSubfolders) {
    const Tree tree({"real/a.json", "real/sub/b.json"});
    fs::create_directory_symlink("real", tree.folder.path() / "link");
    EXPECT_EQ(Scan(tree, {"link"}).files, Names{"link/a.json"});
    EXPECT_EQ(Scan(tree, {"link/"}).files, Names{"link/a.json"});
}

TEST(Scan, DropsAFolderThatCannotBeRead) {
    if (::geteuid() == 0)
        GTEST_SKIP() << "root reads every folder";
    const Tree tree({"a/1", "closed/2", "closed/sub/3", "d/4"});
    fs::permissions(tree.folder.path() / "closed", fs::perms::none);
    EXPECT_EQ(Scan(tree, {""}).folders, (Names{"", "a/", "d/"}));
    EXPECT_EQ(Scan(tree, {"closed"}).folders, Names{});
    fs::permissions(tree.folder.path() / "closed", fs::perms::owner_all);
}

TEST(Scan, EntersNoFolderWithABadName) {
    const Tree tree({"ok/1", "what?/2", "tab\there/3", "bell\a/ok/4", "not\xFFtext/5", "\x7F/6"});
    EXPECT_EQ(Scan(tree, {""}).files, Names{"ok/1"});
}

TEST(Scan, ListsFilesOfAnyName) {
    const Names names{"a\tb", "b.", "not\xFFtext.json", "what?.json"};
    EXPECT_EQ(Scan(Tree(names), {""}).files, names);
}

TEST(GetFilesInFolder, PassesOverALinkThatLeadsNowhere) {
    const Tree tree({"a.json"});
    fs::create_symlink("nowhere", tree.folder.path() / "x.json");
    EXPECT_EQ(GetFilesInFolder(tree.folder.text(), u"*.json"), std::vector<std::u16string>{u"a.json"});
}

} // namespace
} // namespace brindlewick
