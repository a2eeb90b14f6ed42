// What is the same on every system.
#include "platform/files.h"

#include "platform/failure.h"
#include "platform/letter_case.h"

#include <algorithm>
#include <utility>

namespace brindlewick {

namespace {

FileStatus statusOrNone(std::u16string_view path) noexcept {
    try {
        return fileStatus(path);
    } catch (...) {
        return {};
    }
}

} // namespace

bool FileExists(std::u16string_view path) noexcept {
    return statusOrNone(path).exists;
}

bool FileExistsByOpen(std::u16string_view path) noexcept {
    const FileStatus status = statusOrNone(path);
    return status.exists && (status.attributes & attribute::folder) == 0;
}

bool IsFolder(std::u16string_view path) noexcept {
    return (statusOrNone(path).attributes & attribute::folder) != 0;
}

FileStatus fileStatus(std::u16string_view path) {
    try {
        return {true, fileAttributes(path)};
    } catch (const Failure&) {
        return {};
    }
}

void sortByName(std::vector<FolderEntry>& entries) {
    struct Named {
        std::u16string folded;
        FolderEntry entry;
    };
    std::vector<Named> named;
    named.reserve(entries.size());
    for (FolderEntry& entry : entries) {
        std::u16string folded = foldedCase(entry.name);
        named.push_back({std::move(folded), std::move(entry)});
    }
    std::sort(named.begin(), named.end(), [](const Named& left, const Named& right) {
        const int order = left.folded.compare(right.folded);
        return order != 0 ? order < 0 : left.entry.name < right.entry.name;
    });
    for (std::size_t at = 0; at < named.size(); ++at)
        entries[at] = std::move(named[at].entry);
}

} // namespace brindlewick
