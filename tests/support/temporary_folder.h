// A folder of a test's own, gone with the test.
#pragma once

#include "platform/native_path.h"

#ifdef _WIN32
#include "support/folder_tools_windows.h"
#endif

#include <atomic>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <string_view>

namespace brindlewick::testing {

#ifndef _WIN32
inline const std::filesystem::path& openable(const std::filesystem::path& path) {
    return path;
}
inline void makeFolders(const std::filesystem::path& folder) {
    std::filesystem::create_directories(folder);
}
inline void hideDotName(const std::filesystem::path&) {}
inline void removeTree(const std::filesystem::path& folder) {
    std::error_code ignored;
    std::filesystem::remove_all(folder, ignored);
}
#endif

class TemporaryFolder {
public:
    TemporaryFolder() {
        static std::atomic<unsigned> count{0};
        path_ = std::filesystem::temp_directory_path() /
                ("brindlewick-" + std::to_string(std::random_device{}()) + "-" + std::to_string(count++));
        makeFolders(path_);
    }
    ~TemporaryFolder() { removeTree(path_); }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    const std::filesystem::path& path() const { return path_; }
    /// The folder's path, or that of `name` inside it, as the program holds paths and with its separator. A
    /// name is UTF-8, its parts may be separated by "/" everywhere.
    std::u16string text(std::string_view name = {}) const { return pathText(pathOf(name).make_preferred()); }
    /// Writes a file byte for byte, making its folders, and gives its path as the program holds it. What has
    /// a name that begins with "." is hidden, on Windows too.
    std::u16string write(std::string_view name, std::string_view bytes) const {
        std::filesystem::path file = pathOf(name);
        makeFolders(file.parent_path());
        std::ofstream(openable(file), std::ios::binary)
            .write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        hideDotName(file);
        return pathText(file.make_preferred());
    }
    void makeFolder(std::string_view name) const { makeFolders(pathOf(name)); }
    std::string read(std::string_view name) const {
        std::ifstream file(pathOf(name), std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

private:
    std::filesystem::path pathOf(std::string_view name) const {
        return name.empty() ? path_ : path_ / nativePath(textFromPathBytes(name));
    }

    std::filesystem::path path_;
};

} // namespace brindlewick::testing
