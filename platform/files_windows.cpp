// Files and folders by the wide Windows calls, with paths of any length.
#include "platform/files.h"

#include "platform/failure.h"
#include "platform/native_path.h"

#include <algorithm>
#include <cstdint>
#include <memory>
#include <utility>

#include <windows.h>

namespace brindlewick {

namespace {

/// Code units. A path of this length needs the "\\?\" form: the limit is 260 with the closing NUL for a file,
/// and 12 fewer for a folder.
constexpr std::size_t longPath = 248;
/// Bytes that one call reads or writes. A call counts in 32 bits.
constexpr std::size_t maxTransfer = std::size_t{1} << 30;
constexpr DWORD diskQuotaExceeded = 1295; // ERROR_DISK_QUOTA_EXCEEDED, which MinGW does not define

/// The failure that an error code of the Windows API means.
FailureNumber failureOf(DWORD error) {
    switch (error) {
    case ERROR_FILE_NOT_FOUND:
    case ERROR_INVALID_NAME:
    case ERROR_FILENAME_EXCED_RANGE:
        return FailureNumber::fileNotFound;
    case ERROR_PATH_NOT_FOUND:
    case ERROR_BAD_PATHNAME:
    case ERROR_INVALID_DRIVE:
    case ERROR_DIRECTORY:
    case ERROR_BAD_NETPATH:
    case ERROR_BAD_NET_NAME:
        return FailureNumber::pathNotFound;
    case ERROR_ACCESS_DENIED:
    case ERROR_NETWORK_ACCESS_DENIED:
    case ERROR_PRIVILEGE_NOT_HELD:
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
    case ERROR_WRITE_PROTECT:
        return FailureNumber::permissionDenied;
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
    case diskQuotaExceeded:
        return FailureNumber::diskFull;
    case ERROR_NOT_ENOUGH_MEMORY:
    case ERROR_OUTOFMEMORY:
        return FailureNumber::outOfMemory;
    default:
        return FailureNumber::deviceIoError;
    }
}

[[noreturn]] void throwLastError() {
    throw Failure(failureOf(::GetLastError()));
}

/// The path with its drive or share, without "/", "." and "..".
std::wstring fullPath(const std::wstring& path) {
    std::wstring full(path.size() + MAX_PATH, L'\0');
    for (;;) {
        const DWORD length =
            ::GetFullPathNameW(path.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr);
        if (length == 0)
            throwLastError();
        const bool fits = length < full.size(); // if not, it is the size needed
        full.resize(length);
        if (fits)
            return full;
    }
}

/// The path as the system calls take it. A NUL would cut it short, to the name of another file.
std::wstring checkedPath(std::u16string_view path) {
    if (path.empty() || path.find(u'\0') != std::u16string_view::npos)
        throw Failure(FailureNumber::fileNotFound);
    std::wstring wide = nativePath(path).native();
    if (wide.size() < longPath)
        return wide;
    wide = fullPath(wide);
    if (wide.starts_with(L"\\\\?\\") || wide.starts_with(L"\\\\.\\"))
        return wide;
    if (wide.starts_with(L"\\\\"))
        return L"\\\\?\\UNC\\" + wide.substr(2);
    return L"\\\\?\\" + wide;
}

unsigned attributesOf(DWORD bits) {
    using namespace attribute;
    static_assert(readOnly == FILE_ATTRIBUTE_READONLY && hidden == FILE_ATTRIBUTE_HIDDEN &&
                  system == FILE_ATTRIBUTE_SYSTEM && folder == FILE_ATTRIBUTE_DIRECTORY &&
                  file == FILE_ATTRIBUTE_ARCHIVE && reparse == FILE_ATTRIBUTE_REPARSE_POINT);
    return static_cast<unsigned>(bits) & (readOnly | hidden | system | folder | file | reparse);
}

/// The status of the path; a link's own.
WIN32_FILE_ATTRIBUTE_DATA statusOf(const std::wstring& path) {
    WIN32_FILE_ATTRIBUTE_DATA status{};
    if (::GetFileAttributesExW(path.c_str(), GetFileExInfoStandard, &status) == 0)
        throwLastError();
    return status;
}

struct CloseHandleOf {
    using pointer = HANDLE;
    void operator()(HANDLE handle) const { ::CloseHandle(handle); }
};
struct CloseSearch {
    using pointer = HANDLE;
    void operator()(HANDLE search) const { ::FindClose(search); }
};

HANDLE handleOf(std::intptr_t handle) {
    return reinterpret_cast<HANDLE>(handle);
}

/// Opens a file and lets other programs read, write and delete it. A folder fails with permissionDenied.
std::unique_ptr<HANDLE, CloseHandleOf> openToRead(const std::wstring& path) {
    const HANDLE file =
        ::CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                      nullptr, OPEN_EXISTING, FILE_FLAG_SEQUENTIAL_SCAN, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        throwLastError();
    return std::unique_ptr<HANDLE, CloseHandleOf>(file);
}

std::uint64_t lengthOf(HANDLE file) {
    LARGE_INTEGER length{};
    if (::GetFileSizeEx(file, &length) == 0)
        throwLastError();
    return static_cast<std::uint64_t>(length.QuadPart);
}

} // namespace

std::uint64_t fileLength(std::u16string_view path) {
    const std::wstring native = checkedPath(path);
    const WIN32_FILE_ATTRIBUTE_DATA status = statusOf(native);
    const unsigned attributes = attributesOf(status.dwFileAttributes);
    if ((attributes & attribute::folder) != 0)
        throw Failure(FailureNumber::permissionDenied);
    if ((attributes & attribute::reparse) != 0) // a link's status lacks the length
        return lengthOf(openToRead(native).get());
    return std::uint64_t{status.nFileSizeHigh} << 32 | status.nFileSizeLow;
}

unsigned fileAttributes(std::u16string_view path) {
    return attributesOf(statusOf(checkedPath(path)).dwFileAttributes);
}

FilesOfFolder::FilesOfFolder(std::u16string_view folder) : folder_(folder), handle_(-1) {}

FilesOfFolder::~FilesOfFolder() = default;

FileStatus FilesOfFolder::status(std::u16string_view name) const {
    return fileStatus(folder_ + std::u16string(name));
}

std::vector<FolderEntry> listFolder(std::u16string_view folder) {
    if (folder.empty())
        throw Failure(FailureNumber::pathNotFound);
    std::u16string everything(folder);
    everything += folder.ends_with(u'\\') || folder.ends_with(u'/') ? u"*" : u"\\*";
    const std::wstring native = checkedPath(everything);
    WIN32_FIND_DATAW found{};
    std::vector<FolderEntry> entries;
    const HANDLE first = ::FindFirstFileExW(native.c_str(), FindExInfoBasic, &found, FindExSearchNameMatch,
                                            nullptr, FIND_FIRST_EX_LARGE_FETCH);
    if (first == INVALID_HANDLE_VALUE) {
        const DWORD error = ::GetLastError();
        if (error == ERROR_FILE_NOT_FOUND && IsFolder(folder)) // an empty root of a drive
            return entries;
        const FailureNumber failure = failureOf(error);
        throw Failure(failure == FailureNumber::fileNotFound ? FailureNumber::pathNotFound : failure);
    }
    const std::unique_ptr<HANDLE, CloseSearch> search(first);
    do {
        const std::wstring_view name = found.cFileName;
        if (name == L"." || name == L"..")
            continue;
        const unsigned attributes = attributesOf(found.dwFileAttributes);
        const bool isFolder = (attributes & attribute::folder) != 0;
        entries.push_back({{name.begin(), name.end()}, isFolder, isFolder ? attributes : 0});
    } while (::FindNextFileW(search.get(), &found) != 0);
    if (::GetLastError() != ERROR_NO_MORE_FILES)
        throwLastError();
    sortByName(entries);
    return entries;
}

std::u16string programFolder() {
    std::wstring name(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length = ::GetModuleFileNameW(nullptr, name.data(), static_cast<DWORD>(name.size()));
        if (length < name.size()) {
            name.resize(length);
            break;
        }
        name.resize(name.size() * 2); // the name was cut
    }
    const std::size_t separator = name.find_last_of(L'\\');
    return pathText(name.substr(0, separator == std::wstring::npos ? 0 : separator));
}

InputFile::InputFile(std::u16string_view path) : handle_(0) {
    std::unique_ptr<HANDLE, CloseHandleOf> file = openToRead(checkedPath(path));
    // Reading from the console or a pipe could block.
    if (::GetFileType(file.get()) != FILE_TYPE_DISK)
        throw Failure(FailureNumber::deviceIoError);
    length_ = lengthOf(file.get());
    handle_ = reinterpret_cast<std::intptr_t>(file.release());
}

InputFile::~InputFile() {
    ::CloseHandle(handleOf(handle_));
}

std::size_t InputFile::readAt(std::uint64_t offset, std::span<char> bytes) const {
    std::size_t count = 0;
    while (count < bytes.size()) {
        const auto wanted = static_cast<DWORD>(std::min(bytes.size() - count, maxTransfer));
        OVERLAPPED place{};
        place.Offset = static_cast<DWORD>((offset + count) & 0xFFFFFFFFU);
        place.OffsetHigh = static_cast<DWORD>((offset + count) >> 32);
        DWORD got = 0;
        if (::ReadFile(handleOf(handle_), bytes.data() + count, wanted, &got, &place) == 0 &&
            ::GetLastError() != ERROR_HANDLE_EOF)
            throwLastError();
        if (got == 0)
            break;
        count += got;
    }
    return count;
}

OutputFile::OutputFile(std::u16string_view path) : handle_(0) {
    const std::wstring native = checkedPath(path);
    const HANDLE file = ::CreateFileW(native.c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr, CREATE_ALWAYS,
                                      FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        throwLastError();
    handle_ = reinterpret_cast<std::intptr_t>(file);
}

OutputFile::~OutputFile() {
    if (handle_ != 0)
        ::CloseHandle(handleOf(handle_));
}

std::size_t OutputFile::write(std::string_view bytes) {
    std::size_t count = 0;
    while (count < bytes.size()) {
        const auto wanted = static_cast<DWORD>(std::min(bytes.size() - count, maxTransfer));
        DWORD written = 0;
        if (::WriteFile(handleOf(handle_), bytes.data() + count, wanted, &written, nullptr) == 0)
            throwLastError();
        if (written == 0)
            throw Failure(FailureNumber::deviceIoError);
        count += written;
    }
    return count;
}

void OutputFile::close() {
    if (::CloseHandle(handleOf(std::exchange(handle_, 0))) == 0)
        throwLastError();
}

} // namespace brindlewick
