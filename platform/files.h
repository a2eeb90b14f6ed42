// Files and folders. Paths are UTF-16 texts (see native_path.h). Failures: pathNotFound when the file's
// folder is missing, fileNotFound when the file is, permissionDenied when access is refused or a folder is
// opened as a file, diskFull, outOfMemory, and deviceIoError for everything else. Unless noexcept, every
// operation may throw std::bad_alloc.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace brindlewick {

/// Attribute bits. On Windows they come from the file system; elsewhere they mean what the comments say.
namespace attribute {
inline constexpr unsigned readOnly = 1; ///< no write permission for the user
inline constexpr unsigned hidden = 2;   ///< the name begins with "."
inline constexpr unsigned system = 4;   ///< Windows alone
inline constexpr unsigned folder = 16;
inline constexpr unsigned file = 32;      ///< a regular file; on Windows one that is not backed up yet
inline constexpr unsigned reparse = 1024; ///< Windows alone: a link, a junction and the like
/// All the attributes of a protected system folder, on Windows alone.
inline constexpr unsigned protectedFolder = folder + system + hidden;
/// All the attributes of a symbolic link to a folder, and of a junction on Windows.
inline constexpr unsigned linkedFolder = reparse + folder + system + hidden;
} // namespace attribute

/// The length in bytes. Fails when the status cannot be read, and with permissionDenied for a folder.
[[nodiscard]] std::uint64_t fileLength(std::u16string_view path);
/// True when the path's status can be read: a folder counts too. False on any failure.
[[nodiscard]] bool FileExists(std::u16string_view path) noexcept;
/// True when the path exists and is not a folder; needs no access rights to the file. False on any failure.
[[nodiscard]] bool FileExistsByOpen(std::u16string_view path) noexcept;
/// True when the attributes have the folder bit. False on any failure.
[[nodiscard]] bool IsFolder(std::u16string_view path) noexcept;
/// The attribute bits of the path. Fails when its status cannot be read.
[[nodiscard]] unsigned fileAttributes(std::u16string_view path);

struct FileStatus {
    bool exists = false;
    unsigned attributes = 0; ///< 0 when the path does not exist
};
/// Existence and attributes at once. A path whose status cannot be read does not exist.
[[nodiscard]] FileStatus fileStatus(std::u16string_view path);

/// Reads the status of many files in one folder, without looking up the folder each time.
class FilesOfFolder {
public:
    /// `folder` ends in a separator.
    explicit FilesOfFolder(std::u16string_view folder);
    ~FilesOfFolder();
    FilesOfFolder(const FilesOfFolder&) = delete;
    FilesOfFolder& operator=(const FilesOfFolder&) = delete;

    /// What fileStatus(folder + name) gives.
    [[nodiscard]] FileStatus status(std::u16string_view name) const;

private:
    std::u16string folder_;
    std::intptr_t handle_; ///< -1 if the folder is not open
};

/// One name in a folder.
struct FolderEntry {
    std::u16string name;
    bool isFolder = false; ///< a folder, or a symbolic link to one
    /// For a folder: attribute::folder or linkedFolder, on Windows all its bits. Otherwise 0.
    unsigned folderAttributes = 0;
};
/// Everything in the folder but "." and "..", ordered as sortByName does. Fails with permissionDenied or
/// pathNotFound when the folder cannot be read.
[[nodiscard]] std::vector<FolderEntry> listFolder(std::u16string_view folder);
/// Orders by name without regard to case, then by code unit. n log n comparisons; folds each name once.
void sortByName(std::vector<FolderEntry>& entries);

/// The folder of the executable, without a separator at its end.
[[nodiscard]] std::u16string programFolder();

/// A file open for reading bytes.
class InputFile {
public:
    /// Fails when the file cannot be opened; a folder fails with permissionDenied.
    explicit InputFile(std::u16string_view path);
    ~InputFile();
    InputFile(const InputFile&) = delete;
    InputFile& operator=(const InputFile&) = delete;

    /// Reads up to `bytes.size()` bytes from the byte `offset` on, fewer only at the file's end; returns the
    /// count read. Several threads may read at a time.
    [[nodiscard]] std::size_t readAt(std::uint64_t offset, std::span<char> bytes) const;
    /// The length in bytes when the file was opened.
    [[nodiscard]] std::uint64_t length() const noexcept { return length_; }

private:
    std::intptr_t handle_;
    std::uint64_t length_ = 0;
};

/// A file open for writing bytes, unbuffered. Child processes do not inherit it.
class OutputFile {
public:
    /// Creates the file, or empties an existing one. A pipe that nobody reads fails with deviceIoError.
    explicit OutputFile(std::u16string_view path);
    /// Closes the file. A failure is lost here, so call close() first.
    ~OutputFile();
    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;

    /// Writes bytes from the first on and returns how many: all of them, unless the reader of a pipe or the
    /// like takes no more for the moment. If it takes none at all, this waits at most 50 ms. On failure, some
    /// of the bytes may be written.
    [[nodiscard]] std::size_t write(std::string_view bytes);
    /// Closes the file. Call it once, as the last operation.
    void close();

private:
    std::intptr_t handle_;
};

} // namespace brindlewick
