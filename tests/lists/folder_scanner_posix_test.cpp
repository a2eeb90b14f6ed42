// Scans of links, unreadable folders and names that exist only on POSIX systems.
#include "lists/folder_scanner.h"

#include "lists/input_file_handlers.h"
#include "lists/scanned_tree.h"
#include "support/fake_settings.h"

#include <gtest/gtest.h>

#include <unistd.h>

namespace brindlewick {
namespace {

namespace fs = std::filesystem;
using testing::Names;
using testing::Scan;
using testing::Tree;

TEST(Scan, DoesNotFollowLinks) {
    const Tree tree({"a/x.json", "b/y.json", "b/sub/z.json"});
    fs::create_directory_symlink(tree.folder.path(), tree.folder.path() / "a/up");
    fs::create_directory_symlink("../b", tree.folder.path() / "a/side");
    fs::create_symlink("x.json", tree.folder.path() / "a/file.json");
    fs::create_symlink("nowhere", tree.folder.path() / "a/dangling.json");
    EXPECT_EQ(Scan(tree, {""}).files, (Names{"a/file.json", "a/x.json", "b/y.json", "b/sub/z.json"}));
    for (const char* start : {"a/side", "a/side/"}) // listed, but not its subfolders
        EXPECT_EQ(Scan(tree, {start}).files, Names{"a/side/y.json"});
    EXPECT_EQ(GetFilesInFolder(tree.folder.text("a"), u"*.json"),
              (std::vector<std::u16string>{u"file.json", u"x.json"}));
}

TEST(Scan, LeavesOutAFolderThatCannotBeRead) {
    if (::geteuid() == 0)
        GTEST_SKIP() << "root reads every folder";
    const Tree tree({"a/1", "closed/2", "closed/sub/3", "d/4"});
    fs::permissions(tree.folder.path() / "closed", fs::perms::none);
    EXPECT_EQ(Scan(tree, {""}).files, (Names{"a/1", "d/4"}));
    EXPECT_EQ(Scan(tree, {"closed"}).files, Names{});
    fs::permissions(tree.folder.path() / "closed", fs::perms::owner_all);
}

TEST(Scan, EntersNoFolderWithABadNameButListsFilesOfAnyName) {
    const Tree tree({"a\tb", "not\xFF.json", "what?", "t\t/3", "w?/2", "bell\a/ok/4", "n\xFFt/5", "\x7F/6"});
    EXPECT_EQ(Scan(tree, {""}).files, (Names{"a\tb", "not\xFF.json", "what?"}));
}

TEST(ScannedPaths, LoseDoubledBackslashes) {
    testing::TemporaryFolder folder;
    testing::FakeUser user;
    testing::FakeSettings settings;
    TextList files;
    folder.write("b\\\\c/d.json", "");
    user.textAnswers = {u"json"};
    user.folders = {folder.text()};
    InputFileHandlers(user, settings, files).PushButton5_Click();
    EXPECT_EQ(files.texts(), std::vector<std::u16string>{folder.text("b\\c/d.json")});
}

} // namespace
} // namespace brindlewick
