// A temporary folder tree, and one scan of it.
#pragma once

#include "lists/folder_scanner.h"
#include "support/fake_user.h"
#include "support/own_separator.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <functional>
#include <iterator>
#include <sstream>
#include <string>
#include <vector>

namespace brindlewick::testing {

using Names = std::vector<std::string>;

/// The names in a text, separated by blanks.
inline Names names(const std::string& text) {
    std::istringstream words(text);
    return {std::istream_iterator<std::string>(words), {}};
}

/// Names that end in "/" become folders, the others empty files.
class Tree {
public:
    explicit Tree(const Names& names) {
        for (const std::string& name : names) {
            if (name.ends_with('/'))
                folder.makeFolder(name);
            else
                folder.write(name, "");
        }
    }
    /// The path relative to the temporary folder, as bytes.
    std::string below(const std::u16string& path) const {
        return shownPath(path.substr(folder.text().size() + 1));
    }
    TemporaryFolder folder;
};

/// One scan with a walk after each start folder, as for dropped folders.
struct Scan {
    Names folders;
    Names files;
    FakeUser user;

    Scan(const Tree& tree, const Names& starts, std::u16string_view pattern = u"*.*", bool recurse = true,
         const std::function<void()>& whenYielding = {}) {
        user.whenYielding = whenYielding;
        FolderCollection collection(pattern);
        for (const std::string& start : starts) {
            collection.addStartFolder(tree.folder.text(start));
            GetSubDirectories2016(user, collection, recurse);
        }
        for (std::size_t at = 0; at < collection.size(); ++at) {
            folders.push_back(tree.below(collection[at]));
            for (const std::u16string& name : collection.acceptedFiles(at, user))
                files.push_back(tree.below(collection[at] + name));
        }
        EXPECT_TRUE(user.errors.empty());
    }
};

} // namespace brindlewick::testing
