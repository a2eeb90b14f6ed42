#include "lists/folder_scanner.h"

#include "lists/folder_rules.h"
#include "platform/error_report.h"
#include "platform/files.h"
#include "platform/letter_case.h"
#include "platform/native_path.h"

#include <string>
#include <utility>

namespace brindlewick {

namespace {

/// True for failures that a scan ignores: the folder is missing, or access is denied.
bool isIgnored(FailureNumber number) noexcept {
    return number == FailureNumber::permissionDenied || number == FailureNumber::pathNotFound;
}

} // namespace

void GetSubDirectories2016(UserInterface& user, FolderCollection& folders, bool recurse) {
    const Guard guard(user, u"AddFolder.GetSubDirectories2016", u"MerrowTitle2021/08/31");
    using Order = FolderCollection::Order;

    // Removes unreadable folders from a level and returns the level below.
    const auto examineLevel = [&](Order& level) {
        Order below;
        std::size_t kept = 0;
        for (const auto id : level) {
            if (user.isStopRequested())
                break;
            bool isReadable = true;
            guard([&] { isReadable = folders.examine(id, below, user); });
            if (isReadable)
                level[kept++] = id;
        }
        level.resize(kept);
        return below;
    };

    Order level = examineLevel(folders.order_);
    while (!level.empty()) {
        Order below;
        if (recurse)
            below = examineLevel(level);
        // A subfolder that must not be entered is not listed either, unlike a start folder. A subfolder whose
        // path is too long is listed: its own files can be opened.
        std::erase_if(level, [&](auto id) { return !folders.isEntered(id); });
        guard([&] { folders.order_.insert(folders.order_.end(), level.begin(), level.end()); });
        level = std::move(below);
    }
    folders.walkIsStopped_ = user.isStopRequested();
}

std::vector<std::u16string> GetFilesInFolder(std::u16string_view folder, std::u16string_view pattern) {
    const std::u16string prefix = withSeparator(folder);
    std::vector<std::u16string> names;
    std::vector<FolderEntry> entries;
    try {
        entries = listFolder(prefix);
    } catch (const Failure& failure) {
        if (!isIgnored(failure.number()))
            throw;
    }
    for (FolderEntry& entry : entries)
        if (!entry.isFolder && matchesPattern(entry.name, pattern) && FileExistsByOpen(prefix + entry.name))
            names.push_back(std::move(entry.name));
    return names;
}

void FolderCollection::addStartFolder(std::u16string_view folder) {
    std::u16string path = withSeparator(folder);
    if (const auto known = idOfPath_.find(path); known != idOfPath_.end()) {
        order_.push_back(known->second);
        return;
    }
    const bool isRoot = isRootFolder(path);
    // With a final separator the system would give the attributes of a link's target, not of the link.
    std::u16string_view bare = path;
    if (!isRoot)
        bare.remove_suffix(1);
    const unsigned attributes = fileStatus(bare).attributes;
    const FolderId id = idOf(std::move(path), attributes);
    folders_[id].isRoot = isRoot;
    order_.push_back(id);
}

const std::vector<std::u16string>& FolderCollection::acceptedFiles(std::size_t position,
                                                                   UserInterface& user) {
    Folder& folder = folders_[order_[position]];
    if (!folder.isListed)
        list(folder);
    if (folder.failure && !isIgnored(*folder.failure))
        throw Failure(*folder.failure);
    if (!folder.filesAreChecked) {
        const FilesOfFolder files(folder.path);
        std::erase_if(folder.fileNames, [&](const std::u16string& name) {
            user.yield();
            return isStopped(user) || !isAcceptedFile(files.status(name));
        });
        folder.filesAreChecked = true;
    }
    return folder.fileNames;
}

FolderCollection::FolderId FolderCollection::idOf(std::u16string path, unsigned attributes) {
    if (const auto known = idOfPath_.find(path); known != idOfPath_.end())
        return known->second;
    if (attributes == attribute::linkedFolder)
        ++leftOut_.links;
    else if (attributes == attribute::protectedFolder)
        ++leftOut_.systemFolders;
    else if (path.size() >= folderPathLimit)
        ++leftOut_.longPaths;
    const auto id = static_cast<FolderId>(folders_.size());
    folders_.push_back({});
    folders_.back().path = std::move(path);
    folders_.back().attributes = attributes;
    idOfPath_.emplace(folders_.back().path, id);
    return id;
}

bool FolderCollection::isEntered(FolderId id) const {
    const Folder& folder = folders_[id];
    return (folder.attributes & attribute::folder) != 0 &&
           attributesAllowEntering(folder.attributes, folder.isRoot);
}

/// Appends the folder's subfolders to `below`; false when the folder cannot be read.
bool FolderCollection::examine(FolderId id, Order& below, UserInterface& user) {
    Folder& folder = folders_[id];
    user.showProgress(scanProgress(u"Scanning", fileNamesFound_, folder.path), 0, 0);
    user.yield();
    if (!isEntered(id) || folder.path.size() >= folderPathLimit)
        return true;
    if (!folder.isListed)
        list(folder);
    for (const FolderId subfolder : folder.subfolders) {
        below.push_back(subfolder);
        user.yield();
    }
    return !folder.failure || !isIgnored(*folder.failure);
}

/// Lists the folder. A failure is stored: the walk may ignore it, and `acceptedFiles` reports it otherwise.
void FolderCollection::list(Folder& folder) {
    std::vector<FolderEntry> entries;
    std::optional<FailureNumber> listingFailure;
    try {
        entries = listFolder(folder.path);
    } catch (const Failure& failure) {
        listingFailure = failure.number();
        leftOut_.unreadable += isIgnored(failure.number()) ? 1 : 0;
    }
    Order subfolders;
    std::vector<std::u16string> fileNames;
    for (FolderEntry& entry : entries) {
        if (entry.isFolder) {
            if (isAcceptedFolderName(entry.name))
                subfolders.push_back(idOf(withSeparator(folder.path + entry.name), entry.folderAttributes));
            else
                ++leftOut_.byName;
        } else if (!isTemporaryCopy(entry.name) && matchesPattern(entry.name, filePattern_)) {
            fileNames.push_back(std::move(entry.name));
        }
    }
    fileNamesFound_ += fileNames.size();
    folder.subfolders = std::move(subfolders);
    folder.fileNames = std::move(fileNames);
    folder.failure = listingFailure;
    folder.isListed = true;
}

} // namespace brindlewick
