// A temporary folder tree, and scans of it.
#pragma once

#include "lists/input_file_handlers.h"
#include "support/fake_settings.h"
#include "support/own_separator.h"
#include "support/scripted_user.h"
#include "support/temporary_folder.h"

#include <sstream>

namespace brindlewick::testing {

using Names = std::vector<std::string>;

/// The names in a text, separated by blanks.
inline Names names(const std::string& text) {
    std::istringstream words(text);
    return {std::istream_iterator<std::string>(words), {}};
}

struct Tree {
    TemporaryFolder folder;
    ScriptedUser user;

    explicit Tree(const Names& files) {
        for (const std::string& name : files)
            folder.write(name, "");
    }
    /// The files that a drop of the folders lists, relative to the tree and as bytes. "." is the tree itself.
    Names scan(const Names& starts) {
        FakeSettings settings;
        TextList files;
        std::vector<std::u16string> items;
        for (const std::string& start : starts)
            items.push_back(folder.text(start == "." ? "" : start));
        InputFileHandlers(user, settings, files).ListView1_OLEDragDrop(items);
        EXPECT_EQ(user.takeTranscript().find("report"), std::string::npos);
        Names listed;
        for (const std::u16string& path : files)
            listed.push_back(shownPath(path.substr(folder.text().size() + 1)));
        return listed;
    }
};

} // namespace brindlewick::testing
