// What a test does to folders beside the program: nothing here needs more than the standard library.
#pragma once

#include <filesystem>

namespace brindlewick::testing {

/// The path in a form that the standard library can open, whatever its length.
inline std::filesystem::path openable(const std::filesystem::path& path) {
    return path;
}

/// Makes the folder and those above it.
inline void makeFolders(const std::filesystem::path& folder) {
    std::filesystem::create_directories(folder);
}

/// Hides a file or folder whose name begins with ".": the name is enough here.
inline void hideDotName(const std::filesystem::path&) {}

inline void removeTree(const std::filesystem::path& folder) {
    std::error_code ignored;
    std::filesystem::remove_all(folder, ignored);
}

} // namespace brindlewick::testing
