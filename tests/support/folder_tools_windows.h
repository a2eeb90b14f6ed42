// What a test does to folders itself, without the program's code, where the standard library stops at 260
// code units and at files that are read-only.
#pragma once

#include <filesystem>
#include <string>

#include <windows.h>

namespace brindlewick::testing {

/// The path in a form that the standard library can open, whatever its length. It must be absolute.
inline std::filesystem::path openable(std::filesystem::path path) {
    return L"\\\\?\\" + path.make_preferred().native();
}

/// Hides a file or folder whose name begins with ".", as it is hidden elsewhere.
inline void hideDotName(const std::filesystem::path& path) {
    if (path.filename().native().starts_with(L'.'))
        ::SetFileAttributesW(openable(path).c_str(), FILE_ATTRIBUTE_HIDDEN);
}

/// Makes the folder and those above it.
inline void makeFolders(const std::filesystem::path& folder) {
    std::filesystem::path made;
    for (const std::filesystem::path& part : folder) {
        made /= part;
        if (!part.empty() && !(made == made.root_path() || made == made.root_name()) &&
            ::CreateDirectoryW(openable(made).c_str(), nullptr) != 0)
            hideDotName(made);
    }
}

inline void removeTree(const std::filesystem::path& folder) {
    const std::wstring start = openable(folder).native() + L"\\";
    WIN32_FIND_DATAW found{};
    const HANDLE search = ::FindFirstFileW((start + L"*").c_str(), &found);
    while (search != INVALID_HANDLE_VALUE) {
        const std::wstring name = found.cFileName;
        ::SetFileAttributesW((start + name).c_str(), FILE_ATTRIBUTE_NORMAL);
        if ((found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0)
            ::DeleteFileW((start + name).c_str());
        else if (name != L"." && name != L"..")
            removeTree(folder / name);
        if (::FindNextFileW(search, &found) == 0)
            break;
    }
    ::FindClose(search);
    ::RemoveDirectoryW(openable(folder).c_str());
}

} // namespace brindlewick::testing
