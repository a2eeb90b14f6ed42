// Files and folders: what the program asks the operating system about them. Paths are UTF-16 texts (see
// native_path.h). Failures: pathNotFound when the folder that should hold the file is missing, fileNotFound
// when the file is, permissionDenied when access is refused or a folder is opened as a file, diskFull,
// and deviceIoError for everything else.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace brindlewick {

/// Attribute bits, added up. On Windows they are the file system's own; elsewhere they stand for what is said
/// here.
namespace attribute {
inline constexpr unsigned readOnly = 1; ///< no write permission for the user
inline constexpr unsigned hidden = 2;   ///< the name begins with "."
inline constexpr unsigned system = 4;   ///< Windows alone
inline constexpr unsigned folder = 16;
inline constexpr unsigned file = 32;      ///< a regular file; on Windows one that waits for its back-up
inline constexpr unsigned reparse = 1024; ///< Windows alone: a link or a junction among others
/// A protected system folder, on Windows alone: the whole value.
inline constexpr unsigned protectedFolder = folder + system + hidden;
/// A symbolic link to a folder: the whole value, as Windows' own junctions have.
inline constexpr unsigned linkedFolder = reparse + folder + system + hidden;
} // namespace attribute

/// The length in bytes. Fails when the file cannot be looked at, and with permissionDenied for a folder.
std::uint64_t fileLength(std::u16string_view path);
/// True when the path's modification time can be read: a folder counts too. Never fails.
bool FileExists(std::u16string_view path) noexcept;
/// True for what exists and is not a folder: one look at the status, no access rights asked. Never fails.
bool FileExistsByOpen(std::u16string_view path) noexcept;
/// True when the attributes carry the folder bit; false on any failure.
bool IsFolder(std::u16string_view path) noexcept;
/// The attribute bits of the path. Fails when it cannot be looked at.
unsigned fileAttributes(std::u16string_view path);

/// Existence and attributes from a single look at the status.
struct FileStatus {
    bool exists = false;
    unsigned attributes = 0; ///< 0 when the path does not exist
};
FileStatus fileStatus(std::u16string_view path) noexcept;

/// Looks at one file after another of a folder, without finding the way to the folder each time.
class FilesOfFolder {
public:
    /// `folder` ends in a separator.
    explicit FilesOfFolder(std::u16string_view folder);
    ~FilesOfFolder();
    FilesOfFolder(const FilesOfFolder&) = delete;
    FilesOfFolder& operator=(const FilesOfFolder&) = delete;

    /// What fileStatus(folder + name) gives.
    FileStatus status(std::u16string_view name) const noexcept;

private:
    std::u16string folder_;
    std::intptr_t handle_; ///< -1 where the folder is not held open
};

/// One name of a folder's listing. `isFolder` is the operating system's own answer from the listing where it
/// gives one; a symbolic link is looked at once.
struct FolderEntry {
    std::u16string name;
    bool isFolder = false; ///< a folder, or a symbolic link to one
    /// Of a folder: folder or linkedFolder, on Windows all its bits. 0 for what is none.
    unsigned folderAttributes = 0;
};
/// Everything in the folder but "." and "..", ordered by name without regard to case, then by code unit.
/// Fails with permissionDenied or pathNotFound when the folder cannot be read.
std::vector<FolderEntry> listFolder(std::u16string_view folder);

/// The folder that holds the executable, without a separator at its end.
std::u16string programFolder();

/// A file open for reading bytes.
class InputFile {
public:
    /// Fails when the file cannot be opened; a folder fails with permissionDenied.
    explicit InputFile(std::u16string_view path);
    ~InputFile();
    InputFile(const InputFile&) = delete;
    InputFile& operator=(const InputFile&) = delete;

    /// Reads up to `bytes.size()` bytes, fewer only at the end; gives the count read, 0 at the end.
    std::size_t read(std::span<char> bytes);
    /// The same; of a file that is not on this machine's own disks `meanwhile` is called while its bytes are
    /// long in coming.
    std::size_t read(std::span<char> bytes, const std::function<void()>& meanwhile);
    /// The length in bytes as it was when the file was opened.
    std::uint64_t length() const noexcept { return length_; }

private:
    std::intptr_t handle_;
    bool isFar_ = false; ///< on another machine, or given by a program
    std::uint64_t length_ = 0;
};

/// A file open for writing bytes, unbuffered. Child processes do not inherit it.
class OutputFile {
public:
    /// Creates the file, replacing one of that name.
    explicit OutputFile(std::u16string_view path);
    /// Closes the file; a failure to do so is lost here, so call close() first.
    ~OutputFile();
    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;

    /// Writes all the bytes; when it fails, some of them may be written.
    void write(std::string_view bytes);
    /// To be called once, and nothing after it.
    void close();

private:
    std::intptr_t handle_;
};

} // namespace brindlewick
