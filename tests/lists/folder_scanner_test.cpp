// Scans of folder trees, as a drop makes them: order, exclusions, and folders that occur more than once.
#include "lists/folder_rules.h"
#include "lists/folder_scanner.h"
#include "lists/scanned_tree.h"
#include "support/own_separator.h"

namespace brindlewick::testing {
namespace {

namespace fs = std::filesystem;

TEST(Scan, ListsTheFilesOfATree) {
    const char* const twoTrees = "A/f A/x/f A/x/y/f B/f B/z/f";
    const struct {
        const char* tree;
        Names starts;
        const char* files;
    } cases[] = {
        {"README b.json A.json c", {"."}, "A.json b.json c README"},
        {"z a/q a/b/c/n b/p b/a/n a/z/m b/c", {"."}, "z a/q b/c b/p a/z/m b/a/n a/b/c/n"},
        {"~a.json a~.json ~dir/b.json .c.json .dir/d.json", {"."}, "a~.json .dir/d.json ~dir/b.json"},
        {"ok/\xE6\x97\xA5 100\xE2\x82\xAC/2 \xE6\x97\xA5/3 \xC3\xA9/4", {"."}, "ok/\xE6\x97\xA5 \xC3\xA9/4"},
        // Each folder dropped starts a walk over the whole collection, so the subfolders of those before it
        // are appended again: a folder once for every ancestor in the collection.
        {twoTrees, {"A", "B"}, "A/f A/x/f A/x/y/f A/f A/x/f A/x/y/f B/f A/x/f A/x/y/f B/z/f A/x/y/f"},
        {twoTrees, {"B", "B/"}, "B/f B/z/f B/f B/z/f B/f B/z/f B/z/f"},
        {twoTrees, {"A/x", "A"}, "A/x/f A/x/y/f A/x/f A/x/y/f A/f A/x/y/f A/x/f A/x/y/f"},
    };
    for (const auto& one : cases)
        EXPECT_EQ(Tree(names(one.tree)).scan(one.starts), names(one.files));
}

TEST(Scan, EntersAProtectedFolderThatIsARootAlone) {
    EXPECT_TRUE(isRootFolder(own(u"/")) && !isRootFolder(own(u"/a")));
    for (const unsigned attributes : {22u, 1046u})
        for (const bool isRoot : {false, true})
            EXPECT_EQ(attributesAllowEntering(attributes, isRoot), isRoot);
}

TEST(Scan, DoesNotEnterAPathOf260CodeUnits) {
    for (const std::size_t length : {259u, 260u}) {
        Tree tree({});
        const std::string name(length - tree.folder.text().size() - 2, 'd');
        tree.folder.write(name + "/own.json", "");
        tree.folder.write(name + "/sub/deeper.json", "");
        Names expected{name + "/own.json"};
        if (length < 260)
            expected.push_back(name + "/sub/deeper.json");
        for (const std::string& start : {std::string("."), name})
            EXPECT_EQ(tree.scan({start}), expected);
    }
}

TEST(Scan, LeavesOutAFolderRemovedMeanwhile) {
    Tree tree({"a/1", "b/2", "b/c/3", "d/4"});
    tree.user.whenYielding = [&] { fs::remove_all(tree.folder.path() / "b"); };
    EXPECT_EQ(tree.scan({"."}), (Names{"a/1", "d/4"}));
}

} // namespace
} // namespace brindlewick::testing
