// The status bar's texts about the input file list and the tag list.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace brindlewick {

class TextList;

/// What a scan of a folder tree does not list: numbers of folders.
struct LeftOut {
    std::uint64_t byName = 0;        ///< IsBadName
    std::uint64_t unreadable = 0;    ///< missing, or access is denied
    std::uint64_t links = 0;         ///< links to folders
    std::uint64_t systemFolders = 0; ///< hidden system folders
    std::uint64_t longPaths = 0;     ///< only their subfolders are left out
    std::uint64_t elsewhere = 0;     ///< dropped files, not folders, of other computers
};

/// "Scanning, 12 files so far: FOLDER". `doing` is "Scanning" or "Adding".
[[nodiscard]] std::u16string scanProgress(std::u16string_view doing, std::uint64_t files,
                                          std::u16string_view folder);
/// "Reading, 12 lines so far: PATH", of a list file.
[[nodiscard]] std::u16string readingProgress(std::uint64_t lines, std::u16string_view path);
/// "12 files added; 2 folders left out because of their names".
[[nodiscard]] std::u16string scanSummary(std::uint64_t added, const LeftOut& leftOut);
/// "12 files added; 1 line is empty and names no file", for the rows from `before` on.
[[nodiscard]] std::u16string filesAddedText(const TextList& files, std::size_t before);
/// "3 tags added; 1 tag is empty and matches everything", for the rows from `before` on.
[[nodiscard]] std::u16string tagsAddedText(const TextList& tags, std::size_t before);

} // namespace brindlewick
