// Files and folders by the POSIX calls.
#include "platform/files.h"

#include "platform/failure.h"
#include "platform/native_path.h"

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <filesystem>
#include <iterator>
#include <memory>
#include <optional>
#include <system_error>
#include <utility>

#include <dirent.h>
#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#ifdef __linux__
#include <sys/vfs.h>
#else
#include <sys/mount.h>
#endif
#include <unistd.h>

namespace brindlewick {

namespace {

/// The failure that an errno means.
FailureNumber failureOf(int error) {
    switch (error) {
    case ENOENT:
    case ENOTDIR:
    case ENAMETOOLONG:
        return FailureNumber::fileNotFound;
    case EACCES:
    case EPERM:
    case EROFS:
    case EISDIR:
        return FailureNumber::permissionDenied;
    case ENOSPC:
#ifdef EDQUOT
    case EDQUOT:
#endif
        return FailureNumber::diskFull;
    case ENOMEM:
        return FailureNumber::outOfMemory;
    default:
        return FailureNumber::deviceIoError;
    }
}

/// Throws the failure for errno after a call on an open file.
[[noreturn]] void throwLastError() {
    throw Failure(failureOf(errno));
}

/// The same after a call on `path`. The errno does not distinguish a missing file from a missing folder.
[[noreturn]] void throwLastError(const std::string& path) {
    const int error = errno;
    std::error_code ignored;
    const std::filesystem::path parent = std::filesystem::path(path).parent_path();
    const bool isFolderMissing = (error == ENOENT || error == ENOTDIR) && !parent.empty() &&
                                 !std::filesystem::is_directory(parent, ignored);
    throw Failure(isFolderMissing ? FailureNumber::pathNotFound : failureOf(error));
}

/// The path as the system calls take it. A NUL would cut it short, to the name of another file.
std::string checkedPath(std::u16string_view path) {
    if (path.find(u'\0') != std::u16string_view::npos)
        throw Failure(FailureNumber::fileNotFound);
    return pathBytes(path);
}

/// The status of what the path leads to, links followed.
struct stat statusOf(const std::string& path) {
    struct stat status {};
    if (::stat(path.c_str(), &status) != 0)
        throwLastError(path);
    return status;
}

bool isLink(const std::string& path) {
    struct stat status {};
    return ::lstat(path.c_str(), &status) == 0 && S_ISLNK(status.st_mode);
}

/// The path without separators at its end. With one, lstat would follow a link, and the name would be empty.
std::string bareText(std::string text) {
    while (text.size() > 1 && text.back() == '/')
        text.pop_back();
    return text;
}

/// The attributes of a name that is not a link to a folder.
unsigned attributesOfName(std::string_view name, const struct stat& status) {
    unsigned attributes = S_ISDIR(status.st_mode) ? attribute::folder : 0;
    if (S_ISREG(status.st_mode))
        attributes |= attribute::file;
    if (name.starts_with('.'))
        attributes |= attribute::hidden;
    if ((status.st_mode & S_IWUSR) == 0)
        attributes |= attribute::readOnly;
    return attributes;
}

unsigned attributesOf(const std::string& path, const struct stat& status) {
    const std::string text = bareText(path);
    if (S_ISDIR(status.st_mode) && isLink(text))
        return attribute::linkedFolder;
    const std::size_t name = text.find_last_of('/') + 1; // 0 without a separator
    return attributesOfName(std::string_view(text).substr(name), status);
}

/// The `folderAttributes` of a FolderEntry. `type` comes from the listing.
unsigned listedFolderAttributes(int folder, const char* name, unsigned char type) {
    if (type == DT_DIR)
        return attribute::folder;
    struct stat status {};
    if ((type != DT_LNK && type != DT_UNKNOWN) || ::fstatat(folder, name, &status, 0) != 0 ||
        !S_ISDIR(status.st_mode))
        return 0;
    if (type == DT_UNKNOWN && ::fstatat(folder, name, &status, AT_SYMLINK_NOFOLLOW) != 0)
        return 0;
    return type == DT_LNK || S_ISLNK(status.st_mode) ? attribute::linkedFolder : attribute::folder;
}

struct CloseFolder {
    void operator()(DIR* folder) const { ::closedir(folder); }
};

/// How a FilesOfFolder opens its folder.
#if defined(O_PATH)
constexpr int folderFlags = O_PATH | O_DIRECTORY | O_CLOEXEC; // needs no right to list the folder
#else
constexpr int folderFlags = O_RDONLY | O_DIRECTORY | O_CLOEXEC;
#endif

/// Does not wait for the other end of a pipe, now or later.
int openFile(std::u16string_view path, int flags) {
    constexpr mode_t readAndWrite = 0666; // the process's mask applies
    const std::string native = checkedPath(path);
    flags |= O_CLOEXEC | O_NOCTTY | O_NONBLOCK;
    for (;;) {
        const int file = ::open(native.c_str(), flags, readAndWrite);
        if (file >= 0)
            return file;
        if (errno == EWOULDBLOCK && (flags & O_NONBLOCK) != 0)
            flags &=
                ~O_NONBLOCK; // a file server has a lease on the file, which it gives back on this request
        else if (errno != EINTR)
            throwLastError(native);
    }
}

} // namespace

std::uint64_t fileLength(std::u16string_view path) {
    const struct stat status = statusOf(checkedPath(path));
    if (S_ISDIR(status.st_mode))
        throw Failure(FailureNumber::permissionDenied);
    return static_cast<std::uint64_t>(status.st_size);
}

unsigned fileAttributes(std::u16string_view path) {
    const std::string native = checkedPath(path);
    return attributesOf(native, statusOf(native));
}

FilesOfFolder::FilesOfFolder(std::u16string_view folder)
    : folder_(folder), handle_(::open(checkedPath(folder).c_str(), folderFlags)) {}

FilesOfFolder::~FilesOfFolder() {
    if (handle_ >= 0)
        ::close(static_cast<int>(handle_));
}

FileStatus FilesOfFolder::status(std::u16string_view name) const {
    if (handle_ >= 0 && name.find(u'\0') == std::u16string_view::npos) {
        const std::string native = pathBytes(name);
        struct stat status {};
        if (::fstatat(static_cast<int>(handle_), native.c_str(), &status, 0) == 0 && !S_ISDIR(status.st_mode))
            return {true, attributesOfName(native, status)};
    }
    return fileStatus(folder_ + std::u16string(name)); // a folder, or not found: rare
}

std::vector<FolderEntry> listFolder(std::u16string_view folder) {
    const std::string native = checkedPath(folder);
    const std::unique_ptr<DIR, CloseFolder> listing(::opendir(native.c_str()));
    if (listing == nullptr) {
        if (errno == ENOENT || errno == ENOTDIR)
            throw Failure(FailureNumber::pathNotFound);
        throwLastError(native);
    }
    std::vector<FolderEntry> entries;
    for (;;) {
        errno = 0; // readdir sets it on failure, and leaves it alone at the end
        const dirent* const found = ::readdir(listing.get());
        if (found == nullptr && errno != 0)
            throwLastError();
        if (found == nullptr)
            break;
        const std::string_view name = found->d_name;
        if (name == "." || name == "..")
            continue;
        const unsigned folderAttributes =
            listedFolderAttributes(::dirfd(listing.get()), found->d_name, found->d_type);
        entries.push_back({textFromPathBytes(name), folderAttributes != 0, folderAttributes});
    }
    sortByName(entries);
    return entries;
}

std::u16string programFolder() {
    std::error_code ignored;
    return pathText(std::filesystem::read_symlink("/proc/self/exe", ignored).parent_path());
}

InputFile::InputFile(std::u16string_view path) : handle_(-1) {
    const int file = openFile(path, O_RDONLY);
    struct stat status {};
    if (::fstat(file, &status) != 0 || S_ISDIR(status.st_mode)) {
        ::close(file);
        throw Failure(FailureNumber::permissionDenied);
    }
    handle_ = file;
    length_ = static_cast<std::uint64_t>(status.st_size);
}

InputFile::~InputFile() {
    ::close(static_cast<int>(handle_));
}

std::size_t InputFile::readAt(std::uint64_t offset, std::span<char> bytes) const {
    std::size_t count = 0;
    while (count < bytes.size()) {
        const int file = static_cast<int>(handle_);
        ssize_t got =
            ::pread(file, bytes.data() + count, bytes.size() - count, static_cast<off_t>(offset + count));
        if (got < 0 && errno == ESPIPE) // a pipe has no offsets: its bytes come in order
            got = ::read(file, bytes.data() + count, bytes.size() - count);
        if (got < 0 && errno == EINTR)
            continue;
        if (got < 0)
            throwLastError();
        if (got == 0)
            break;
        count += static_cast<std::size_t>(got);
    }
    return count;
}

OutputFile::OutputFile(std::u16string_view path) : handle_(openFile(path, O_WRONLY | O_CREAT | O_TRUNC)) {}

OutputFile::~OutputFile() {
    if (handle_ >= 0)
        ::close(static_cast<int>(handle_));
}

std::size_t OutputFile::write(std::string_view bytes) {
    constexpr int maxWait = 50; // ms
    const int file = static_cast<int>(handle_);
    std::size_t count = 0;
    while (count < bytes.size()) {
        const ssize_t written = ::write(file, bytes.data() + count, bytes.size() - count);
        if (written > 0) {
            count += static_cast<std::size_t>(written);
        } else if (written == 0) {
            throw Failure(FailureNumber::deviceIoError);
        } else if (errno == EAGAIN) {
            pollfd reader{.fd = file, .events = POLLOUT, .revents = 0};
            if (count == 0)
                ::poll(&reader, 1, maxWait);
            break;
        } else if (errno != EINTR) {
            throwLastError();
        }
    }
    return count;
}

void OutputFile::close() {
    if (::close(static_cast<int>(std::exchange(handle_, -1))) != 0 && errno != EINTR)
        throwLastError();
}

} // namespace brindlewick
