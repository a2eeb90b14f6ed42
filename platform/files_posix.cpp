// Files and folders through the POSIX calls. A path is looked at as often as its answer needs, once for a
// file.
#include "platform/files.h"

#include "platform/folder_order.h"
#include "platform/native_path.h"
#include "platform/system_failure_posix.h"

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <iterator>
#include <memory>
#include <optional>
#include <utility>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#ifdef __linux__
#include <sys/vfs.h>
#else
#include <sys/mount.h>
#endif
#include <unistd.h>

namespace brindlewick {

namespace {

/// The path as the system calls take it; a NUL inside would cut it short and name another file.
std::string checkedPath(std::u16string_view path) {
    if (path.find(u'\0') != std::u16string_view::npos)
        throw Failure(FailureNumber::fileNotFound);
    return pathBytes(path);
}

/// Follows links; false, with errno set, when the path cannot be looked at.
bool look(const std::string& path, struct stat& status) {
    return ::stat(path.c_str(), &status) == 0;
}

bool isLink(const std::string& path) {
    struct stat status {};
    return ::lstat(path.c_str(), &status) == 0 && S_ISLNK(status.st_mode);
}

/// True for a file system of another machine, and for one that a program makes up as it goes.
bool isFarFileSystem(int file) {
    struct statfs system {};
    if (::fstatfs(file, &system) != 0)
        return false;
#ifdef __linux__
    // From statfs(2): FUSE, NFS, SMB, CIFS, SMB2, 9P, CEPH, CODA, AFS, AFS of another kind.
    static constexpr std::uint32_t far[] = {0x65735546, 0x6969,     0x517B,     0xFF534D42, 0xFE534D42,
                                            0x01021997, 0x00C36400, 0x73757245, 0x5346414F, 0x6B414653};
    return std::find(std::begin(far), std::end(far), static_cast<std::uint32_t>(system.f_type)) !=
           std::end(far);
#else
    return (system.f_flags & MNT_LOCAL) == 0;
#endif
}

/// Asks once for many files in a row on one device.
bool isOnFarDevice(int file, dev_t device) {
    static thread_local std::optional<std::pair<dev_t, bool>> last;
    if (!last || last->first != device)
        last = {device, isFarFileSystem(file)};
    return last->second;
}

/// The path without separators at its end: behind one, the system would look at a link's target and the name
/// is empty.
std::string bareText(std::string text) {
    while (text.size() > 1 && text.back() == '/')
        text.pop_back();
    return text;
}

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
    return attributesOfName(std::string_view(text).substr(text.find_last_of('/') + 1),
                            status); // 0 without one
}

/// A folder's attributes as a listing tells them, 0 for what is none. `type` is the listing's own answer.
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

} // namespace

std::uint64_t fileLength(std::u16string_view path) {
    const std::string native = checkedPath(path);
    struct stat status {};
    if (!look(native, status))
        throwSystemFailure(errno, native);
    if (S_ISDIR(status.st_mode))
        throw Failure(FailureNumber::permissionDenied);
    return static_cast<std::uint64_t>(status.st_size);
}

unsigned fileAttributes(std::u16string_view path) {
    const std::string native = checkedPath(path);
    struct stat status {};
    if (!look(native, status))
        throwSystemFailure(errno, native);
    return attributesOf(native, status);
}

FileStatus fileStatus(std::u16string_view path) noexcept {
    try {
        const std::string native = checkedPath(path);
        struct stat status {};
        if (!look(native, status))
            return {};
        return {true, attributesOf(native, status)};
    } catch (...) {
        return {};
    }
}

#if defined(O_PATH)
constexpr int onlyToLookInside = O_PATH | O_DIRECTORY | O_CLOEXEC; // asks for no right to list the folder
#else
constexpr int onlyToLookInside = O_RDONLY | O_DIRECTORY | O_CLOEXEC;
#endif

FilesOfFolder::FilesOfFolder(std::u16string_view folder)
    : folder_(folder), handle_(::open(checkedPath(folder).c_str(), onlyToLookInside)) {}

FilesOfFolder::~FilesOfFolder() {
    if (handle_ >= 0)
        ::close(static_cast<int>(handle_));
}

FileStatus FilesOfFolder::status(std::u16string_view name) const noexcept {
    try {
        const std::string native = checkedPath(name);
        struct stat status {};
        const bool isFound =
            handle_ >= 0 && ::fstatat(static_cast<int>(handle_), native.c_str(), &status, 0) == 0;
        if (isFound && !S_ISDIR(status.st_mode))
            return {true, attributesOfName(native, status)};
    } catch (...) {
        return {};
    }
    return fileStatus(folder_ + std::u16string(name)); // the long way, for what is rare
}

std::vector<FolderEntry> listFolder(std::u16string_view folder) {
    const std::string native = checkedPath(folder);
    const std::unique_ptr<DIR, CloseFolder> listing(::opendir(native.c_str()));
    if (listing == nullptr) {
        if (errno == ENOENT || errno == ENOTDIR)
            throw Failure(FailureNumber::pathNotFound);
        throwSystemFailure(errno, native);
    }
    std::vector<FolderEntry> entries;
    for (;;) {
        errno = 0; // readdir tells its end from its failure by nothing else
        const dirent* const found = ::readdir(listing.get());
        if (found == nullptr && errno != 0)
            throwSystemFailure(errno);
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
    const std::string native = checkedPath(path);
    // Without waiting: opening a pipe that nobody writes to must not hang.
    int file = -1;
    do
        file = ::open(native.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    while (file < 0 && errno == EINTR);
    if (file < 0)
        throwSystemFailure(errno, native);
    struct stat status {};
    if (::fstat(file, &status) != 0 || S_ISDIR(status.st_mode)) {
        ::close(file);
        throw Failure(FailureNumber::permissionDenied);
    }
    handle_ = file;
    length_ = static_cast<std::uint64_t>(status.st_size);
    isFar_ = isOnFarDevice(file, status.st_dev);
}

InputFile::~InputFile() {
    ::close(static_cast<int>(handle_));
}

std::size_t InputFile::read(std::span<char> bytes) {
    std::size_t count = 0;
    while (count < bytes.size()) {
        const ssize_t got = ::read(static_cast<int>(handle_), bytes.data() + count, bytes.size() - count);
        if (got < 0 && errno == EINTR)
            continue;
        if (got < 0)
            throwSystemFailure(errno);
        if (got == 0)
            break;
        count += static_cast<std::size_t>(got);
    }
    return count;
}

OutputFile::OutputFile(std::u16string_view path) : handle_(-1) {
    constexpr mode_t everybody = 0666; // less what the user's mask takes away
    const std::string native = checkedPath(path);
    int file = -1;
    do
        file = ::open(native.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, everybody);
    while (file < 0 && errno == EINTR);
    if (file < 0)
        throwSystemFailure(errno, native);
    handle_ = file;
}

OutputFile::~OutputFile() {
    if (handle_ >= 0)
        ::close(static_cast<int>(handle_));
}

void OutputFile::write(std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = ::write(static_cast<int>(handle_), bytes.data(), bytes.size());
        if (written > 0)
            bytes.remove_prefix(static_cast<std::size_t>(written));
        else if (written == 0 || errno != EINTR)
            throwSystemFailure(written == 0 ? EIO : errno);
    }
}

void OutputFile::close() {
    if (::close(static_cast<int>(std::exchange(handle_, -1))) != 0 && errno != EINTR)
        throwSystemFailure(errno);
}

} // namespace brindlewick
