// Scans of real folder trees: order, exclusions, and folders that occur more than once.
#include "lists/folder_scanner.h"

#include "lists/scanned_tree.h"

#include <gtest/gtest.h>

namespace brindlewick {
namespace {

namespace fs = std::filesystem;
using testing::names;
using testing::Names;
using testing::Scan;
using testing::Tree;

TEST(Scan, ListsTheFilesOfATree) {
    const char* const twoTrees = "A/f A/x/f A/x/y/f B/f B/z/f";
    const struct {
        const char* tree;
        Names starts;
        std::u16string pattern;
        const char* files;
        bool recurse = true;
    } cases[] = {
        {"", {""}, u"*.*", ""},
        {"a.json", {"none", "a.json"}, u"*.*", ""}, // no folders
        {"README b.json A.json c", {""}, u"*.*", "A.json b.json c README"},
        {"z.json a/q.json a/b/c/n.json b/p.JSON b/a/n.json a/z/m.json b/c.jsonx b/json",
         {""},
         u"*.json",
         "z.json a/q.json b/p.JSON a/z/m.json b/a/n.json a/b/c/n.json"},
        {"a/1 a/b/2 c/3", {""}, u"*.*", "a/1 c/3", false},
        {"~a.json a~.json ~dir/b.json .c.json .dir/d.json", {""}, u"*.*", "a~.json .dir/d.json ~dir/b.json"},
        {"ok/\xE6\x97\xA5 100\xE2\x82\xAC/2 \xE6\x97\xA5/3 \xC3\xA9/4",
         {""},
         u"*.*",
         "ok/\xE6\x97\xA5 \xC3\xA9/4"},
        // A second walk starts from the whole collection, so the subfolders of the first folder are appended
        // again: a folder once for every ancestor in the collection.
        {twoTrees, {"A", "B"}, u"*.*", "A/f A/x/f A/x/y/f B/f A/x/f A/x/y/f B/z/f A/x/y/f"},
        {twoTrees, {"B", "B/"}, u"*.*", "B/f B/z/f B/f B/z/f B/z/f"},
        {twoTrees, {"A/x", "A"}, u"*.*", "A/x/f A/x/y/f A/f A/x/y/f A/x/f A/x/y/f"},
    };
    for (const auto& one : cases)
        EXPECT_EQ(Scan(Tree(names(one.tree)), one.starts, one.pattern, one.recurse).files, names(one.files));
}

TEST(Scan, ListsAHiddenFileThatIsReadOnly) {
    const Tree tree({".a.json", ".b.json"});
    fs::permissions(tree.folder.path() / ".b.json", fs::perms::owner_read);
    EXPECT_EQ(Scan(tree, {""}).files, Names{".b.json"});
}

TEST(Scan, DoesNotEnterAPathOf260CodeUnits) {
    for (const std::size_t length : {259u, 260u}) {
        const Tree tree({});
        const std::string name(length - tree.folder.text().size() - 2, 'd');
        tree.folder.write(name + "/own.json", "");
        tree.folder.write(name + "/sub/deeper.json", "");
        Names expected{name + "/own.json"};
        if (length < 260)
            expected.push_back(name + "/sub/deeper.json");
        for (const std::string& start : {std::string(), name})
            EXPECT_EQ(Scan(tree, {start}).files, expected);
    }
}

TEST(Scan, YieldsAndLeavesOutAFolderRemovedMeanwhile) {
    const Tree tree({"a/1", "b/2", "b/c/3", "d/4"});
    const Scan whole(tree, {""});
    EXPECT_EQ(whole.user.yields, 5u + 4u + 4u); // folders, subfolders, files
    EXPECT_EQ(whole.user.progressTexts.at(0),
              u"Scanning " + tree.folder.text() + pathSeparator + u": 0 files");
    EXPECT_EQ(whole.user.progressTexts.at(2),
              u"Scanning " + tree.folder.text("b") + pathSeparator + u": 1 file");
    const Scan scan(tree, {""}, u"*.*", true,
                    [&] { static_cast<void>(fs::remove_all(tree.folder.path() / "b")); });
    EXPECT_EQ(scan.files, (Names{"a/1", "d/4"}));
}

TEST(GetFilesInFolder, ListsExistingFilesThatMatch) {
    const Tree tree(names("b.json A.json ~c.json .d.json e.txt sub.json/f.json"));
    const std::vector<std::u16string> expected{u".d.json", u"A.json", u"b.json", u"~c.json"};
    EXPECT_EQ(GetFilesInFolder(tree.folder.text(), u"*.json"), expected);
    EXPECT_EQ(GetFilesInFolder(tree.folder.text() + u"/", u"*.JSON"), expected);
    for (const char* noFolder : {"none", "e.txt"})
        EXPECT_TRUE(GetFilesInFolder(tree.folder.text(noFolder), u"*.*").empty());
}

} // namespace
} // namespace brindlewick
