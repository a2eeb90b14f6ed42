// Scans of real folder trees: the order, what is passed over, and folders that come up more than once.
#include "lists/folder_scanner.h"

#include "lists/scanned_tree.h"

#include <gtest/gtest.h>

namespace brindlewick {
namespace {

namespace fs = std::filesystem;
using testing::Names;
using testing::Scan;
using testing::Tree;

struct FileCase {
    std::string rule;
    Names tree;
    std::u16string pattern;
    Names expected;
};

class ScannedFiles : public ::testing::TestWithParam<FileCase> {};

TEST_P(ScannedFiles, AreAsExpected) {
    EXPECT_EQ(Scan(Tree(GetParam().tree), {""}, GetParam().pattern).files, GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Rules, ScannedFiles,
    ::testing::Values(
        FileCase{"EmptyFolder", {}, u"*.*", {}},
        FileCase{"OwnFilesAlone", {"b.json", "A.json"}, u"*.*", {"A.json", "b.json"}},
        FileCase{"BreadthFirstGroupedByParent",
                 {"z.json", "a/q.json", "a/b/c/deep.json", "b/p.json", "b/a/n.json", "a/z/m.json"},
                 u"*.json",
                 {"z.json", "a/q.json", "b/p.json", "a/z/m.json", "b/a/n.json", "a/b/c/deep.json"}},
        FileCase{"Pattern",
                 {"a.json", "b.JSON", "c.jsonx", "json", "d.txt", "x/e.json"},
                 u"*.json",
                 {"a.json", "b.JSON", "x/e.json"}},
        FileCase{"EveryName", {"README", "a.json", "b"}, u"*.*", {"a.json", "b", "README"}},
        FileCase{
            "TildeFiles", {"~report.json", "a~.json", "~dir/b.json"}, u"*.*", {"a~.json", "~dir/b.json"}},
        FileCase{"HiddenFiles", {".hidden.json", ".folder/a.json"}, u"*.*", {".folder/a.json"}},
        FileCase{"BadFolderNames",
                 {"ok/1", "100\xE2\x82\xAC/2", "\xE6\x97\xA5/3", "\xC3\xA9/4"},
                 u"*.*",
                 {"ok/1", "\xC3\xA9/4"}},
        FileCase{"BadNamesOfFilesAreFine", {"\xE6\x97\xA5.json"}, u"*.*", {"\xE6\x97\xA5.json"}}),
    [](const auto& one) { return one.param.rule; });

TEST(Scan, ListsAHiddenFileThatIsReadOnly) {
    const Tree tree({".a.json", ".b.json"});
    fs::permissions(tree.folder.path() / ".b.json", fs::perms::owner_read);
    EXPECT_EQ(Scan(tree, {""}).files, Names{".b.json"});
}

TEST(Scan, StopsWalkingAt260CodeUnits) {
    for (const std::size_t length : {259u, 260u}) {
        const Tree tree({});
        const std::string name(length - tree.folder.text().size() - 2, 'd');
        tree.folder.write(name + "/own.json", "");
        tree.folder.write(name + "/sub/deeper.json", "");
        const Names own{name + "/own.json"};
        const Names both{name + "/own.json", name + "/sub/deeper.json"};
        EXPECT_EQ(Scan(tree, {""}).files, length < 260 ? both : own);
        EXPECT_EQ(Scan(tree, {name}).files, length < 260 ? both : own);
    }
}

TEST(Scan, WithoutRecursionTakesTheFirstLevelAlone) {
    const Tree tree({"a/1", "a/b/2", "c/3"});
    EXPECT_EQ(Scan(tree, {""}, u"*.*", false).folders, (Names{"", "a/", "c/"}));
}

TEST(Scan, PassesOverStartsThatAreNoFolders) {
    const Tree tree({"a.json"});
    EXPECT_EQ(Scan(tree, {"none", "a.json"}).files, Names{});
}

// A second walk takes the whole collection as its start: the subfolders of the first folder come once more,
// a folder at depth d as often as it has ancestors in the collection.
TEST(Scan, WalksEarlierFoldersAgainWithEveryLaterOne) {
    const Tree tree({"A/f", "A/x/f", "A/x/y/f", "B/f", "B/z/f"});
    EXPECT_EQ(Scan(tree, {"A", "B"}).folders,
              (Names{"A/", "A/x/", "A/x/y/", "B/", "A/x/", "A/x/y/", "B/z/", "A/x/y/"}));
    EXPECT_EQ(Scan(tree, {"B", "B"}).files, (Names{"B/f", "B/z/f", "B/f", "B/z/f", "B/z/f"}));
    EXPECT_EQ(Scan(tree, {"A/x", "A"}).folders, (Names{"A/x/", "A/x/y/", "A/", "A/x/y/", "A/x/", "A/x/y/"}));
}

TEST(Scan, DropsAFolderThatGoesWhileItRuns) {
    const Tree tree({"a/1", "b/2", "b/c/3", "d/4"});
    const Scan scan(tree, {""}, u"*.*", true,
                    [&] { static_cast<void>(fs::remove_all(tree.folder.path() / "b")); });
    EXPECT_EQ(scan.files, (Names{"a/1", "d/4"}));
}

TEST(Scan, LetsEventsBeHandledPerFolderAndSubfolder) {
    const Tree tree({"a/", "b/", "b/c/"});
    const Scan scan(tree, {""});
    EXPECT_EQ(scan.user.yields, 4u + 3u);
    ASSERT_FALSE(scan.user.progressTexts.empty());
    EXPECT_EQ(scan.user.progressTexts.front(),
              u"Scanning " + tree.folder.text() + pathSeparator + u": 0 files");
}

TEST(Scan, FindsOneFolderBeyondTheLimitInADeepTree) {
    std::string deep;
    for (int level = 0; level < 400; ++level)
        deep += "d/";
    const Tree tree({deep});
    const std::size_t start = tree.folder.text().size() + 1;
    // Every path below 260 code units is walked; the last of those folders shows the first one beyond.
    EXPECT_EQ(Scan(tree, {""}).folders.size(), 1 + (259 - start) / 2 + 1);
}

TEST(GetFilesInFolder, ListsExistingFilesThatMatch) {
    const Tree tree({"b.json", "A.json", "~c.json", ".d.json", "e.txt", "sub.json/f.json"});
    const std::vector<std::u16string> expected{u".d.json", u"A.json", u"b.json", u"~c.json"};
    EXPECT_EQ(GetFilesInFolder(tree.folder.text(), u"*.json"), expected);
    EXPECT_EQ(GetFilesInFolder(tree.folder.text() + u"/", u"*.JSON"), expected);
    EXPECT_EQ(GetFilesInFolder(tree.folder.text("none"), u"*.*"), std::vector<std::u16string>{});
    EXPECT_EQ(GetFilesInFolder(tree.folder.text("e.txt"), u"*.*"), std::vector<std::u16string>{});
}

TEST(FileCountText, KnowsOne) {
    EXPECT_EQ(fileCountText(0), u"0 files");
    EXPECT_EQ(fileCountText(1), u"1 file");
    EXPECT_EQ(fileCountText(100'000), u"100000 files");
}

} // namespace
} // namespace brindlewick
