// A folder of a test's own, gone with the test.
#pragma once

#include <atomic>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <string_view>

namespace brindlewick::testing {

class TemporaryFolder {
public:
    TemporaryFolder() {
        static std::atomic<unsigned> count{0};
        path_ = std::filesystem::temp_directory_path() /
                ("brindlewick-" + std::to_string(std::random_device{}()) + "-" + std::to_string(count++));
        std::filesystem::create_directories(path_);
    }
    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    const std::filesystem::path& path() const { return path_; }
    /// The folder's path, or that of `name` inside it, as the program holds paths.
    std::u16string text(std::string_view name = {}) const {
        return name.empty() ? path_.u16string() : (path_ / name).u16string();
    }
    /// Writes a file byte for byte, making its folders, and gives its path as the program holds it.
    std::u16string write(std::string_view name, std::string_view bytes) const {
        const std::filesystem::path file = path_ / name;
        std::filesystem::create_directories(file.parent_path());
        std::ofstream(file, std::ios::binary).write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        return file.u16string();
    }
    std::string read(std::string_view name) const {
        std::ifstream file(path_ / name, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

private:
    std::filesystem::path path_;
};

} // namespace brindlewick::testing
