// The scan of a folder tree: its folders, breadth first, and the files in them.
#pragma once

#include "lists/list_summaries.h"
#include "platform/failure.h"
#include "platform/user_interface.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace brindlewick {

/// The names, without the folder, of the files in a folder that match a pattern, in the order of the listing;
/// none when the folder is missing or access is denied. Fails with deviceIoError when the listing cannot be
/// completed.
[[nodiscard]] std::vector<std::u16string> GetFilesInFolder(std::u16string_view folder,
                                                           std::u16string_view pattern);

/// An ordered collection of folder paths, each with a final separator. A folder may occur several times, but
/// it is listed once and the status of each of its files is read once. One listing gives both subfolders and
/// files; only file names that match the pattern are kept.
class FolderCollection {
public:
    explicit FolderCollection(std::u16string_view filePattern) : filePattern_(filePattern) {}
    FolderCollection(const FolderCollection&) = delete;
    FolderCollection& operator=(const FolderCollection&) = delete;

    /// Appends a folder, given with or without a final separator. Reads its attributes unless a listing has
    /// given them.
    void addStartFolder(std::u16string_view folder);

    /// True when the user has asked to stop after the walk. A stop during the walk ends the walk alone: the
    /// files of the folders found until then are still listed.
    [[nodiscard]] bool isStopped(const UserInterface& user) const noexcept {
        return user.isStopRequested() && !walkIsStopped_;
    }

    [[nodiscard]] std::size_t size() const noexcept { return order_.size(); }
    /// The path of the folder at `position`, counted from 0.
    [[nodiscard]] const std::u16string& operator[](std::size_t position) const {
        return folders_[order_[position]].path;
    }

    /// The names, without the folder, of the files to list from the folder at `position`, in the order of the
    /// listing. Valid as long as the collection. Fails with deviceIoError when the listing could not be
    /// completed. Yields once per file whose status it reads. When the user stops it, the other names of the
    /// folder are dropped.
    [[nodiscard]] const std::vector<std::u16string>& acceptedFiles(std::size_t position, UserInterface& user);

    /// What the walks so far have left out. Each folder counts once.
    [[nodiscard]] const LeftOut& leftOut() const noexcept { return leftOut_; }

private:
    friend void GetSubDirectories2016(UserInterface& user, FolderCollection& folders, bool recurse);

    using FolderId = std::uint32_t; ///< index in folders_
    using Order = std::vector<FolderId>;

    struct Folder {
        std::u16string path;
        unsigned attributes = 0;
        bool isRoot = false;
        bool isListed = false;
        bool filesAreChecked = false;
        std::optional<FailureNumber> failure; ///< of the listing
        Order subfolders;
        std::vector<std::u16string> fileNames;
    };

    FolderId idOf(std::u16string path, unsigned attributes);
    bool isEntered(FolderId id) const;
    bool examine(FolderId id, Order& below, UserInterface& user);
    void list(Folder& folder);

    std::u16string filePattern_;
    std::deque<Folder> folders_; ///< its elements never move: idOfPath_ refers to their paths
    std::unordered_map<std::u16string_view, FolderId> idOfPath_; ///< every folder in folders_
    Order order_;
    std::uint64_t fileNamesFound_ = 0;
    bool walkIsStopped_ = false;
    LeftOut leftOut_;
};

/// Walks the folders of the collection, breadth first: appends their accepted subfolders in order, then (with
/// `recurse`) the subfolders of these, and so on. A second walk includes the folders that the first one
/// appended, so their subfolders are appended again. Folders that are missing or deny access are removed from
/// the collection without a report; links to folders are not followed. Yields once per folder and once per
/// subfolder. When the user stops it, the folders that were found are
/// in the collection. Reports its own failures. Not recursive; linear in the resulting collection.
void GetSubDirectories2016(UserInterface& user, FolderCollection& folders, bool recurse);

} // namespace brindlewick
