// The folders below a start folder, level by level, and the files in them.
#pragma once

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

/// The bare names of the files in a folder that match a pattern, in the order of the listing. A folder that
/// is missing or cannot be read has none; fails with deviceIoError when the listing breaks off.
std::vector<std::u16string> GetFilesInFolder(std::u16string_view folder, std::u16string_view pattern);

/// An ordered collection of folder paths, each ending in a separator. A folder may stand in it several times;
/// however often it does, it is listed once and each of its files is looked at once. The listing that finds a
/// folder's subfolders also yields its files: only names that match the pattern are remembered.
class FolderCollection {
public:
    explicit FolderCollection(std::u16string_view filePattern) : filePattern_(filePattern) {}
    FolderCollection(const FolderCollection&) = delete;
    FolderCollection& operator=(const FolderCollection&) = delete;

    /// Appends a folder, with or without a separator at its end. A folder that no listing has shown yet is
    /// looked at once.
    void addStartFolder(std::u16string_view folder);

    std::size_t size() const noexcept { return order_.size(); }
    const std::u16string& operator[](std::size_t position) const { return folders_[order_[position]].path; }

    /// The bare names of the files to list from the folder at `position`, in the order of the listing. Valid
    /// until the collection goes. Fails with deviceIoError when the folder's listing broke off.
    const std::vector<std::u16string>& acceptedFiles(std::size_t position, UserInterface& user);

private:
    friend void GetSubDirectories2016(UserInterface& user, FolderCollection& folders, bool recurse);

    using FolderId = std::uint32_t; ///< place in folders_
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
    bool isFollowed(FolderId id) const;
    bool examine(FolderId id, Order& below, UserInterface& user);
    void list(Folder& folder);

    std::u16string filePattern_;
    std::deque<Folder> folders_; ///< never moved: idOfPath_ looks into the paths
    std::unordered_map<std::u16string_view, FolderId> idOfPath_; ///< every folder in folders_
    Order order_;
    std::uint64_t fileNamesFound_ = 0;
};

/// Walks the folders of the collection: appends their accepted subfolders, all of them in order, then (with
/// `recurse`) those of the subfolders, and so on, breadth first. Folders already in the collection are walked
/// again like any other, so a second walk appends the subfolders of the first one's folders once more. A
/// folder that cannot be read is dropped without a word; links to folders are not followed. Lets events be
/// handled once per folder and once per subfolder. Reports its own failures. No recursion; linear in the
/// resulting collection.
void GetSubDirectories2016(UserInterface& user, FolderCollection& folders, bool recurse);

/// "1 file", "1000 files".
std::u16string fileCountText(std::uint64_t count);

} // namespace brindlewick
