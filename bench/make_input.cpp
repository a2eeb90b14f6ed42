// Makes the inputs of the benchmarks: the same bytes for the same arguments, on every machine.
//
//     make_input KIND COUNT PATH      KIND: records, nested, pretty, long, plain-records, utf16-records (one
//                                     file of about COUNT bytes), array (one array of COUNT bytes), files (a
//                                     folder of COUNT files of 4 KB), tree (a folder of COUNT small files, 50
//                                     to a folder)

#include "generated_json.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <string>

namespace {

using namespace brindlewick::bench;

constexpr std::size_t smallFileLength = 4000; // bytes
constexpr std::size_t filesPerFolder = 50;

bool writeFile(const std::filesystem::path& path, std::string_view bytes) {
    std::ofstream file(path, std::ios::binary);
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    return file.good();
}

bool writeFolder(const std::filesystem::path& folder, std::size_t count, std::size_t length,
                 std::size_t perFolder) {
    for (std::size_t number = 0; number < count; ++number) {
        const std::filesystem::path place = folder / ("folder" + std::to_string(number / perFolder));
        if (number % perFolder == 0)
            std::filesystem::create_directories(place);
        if (!writeFile(place / ("file" + std::to_string(number) + ".json"),
                       generatedJson(Shape::records, length, number)))
            return false;
    }
    return true;
}

std::string withUtf16Mark(const std::string& ascii) {
    std::string bytes = "\xFF\xFE";
    for (const char byte : ascii) {
        bytes.push_back(byte);
        bytes.push_back('\0');
    }
    return bytes;
}

bool make(const std::string& kind, std::size_t count, const std::filesystem::path& path) {
    static const std::string mark = "\xEF\xBB\xBF";
    if (kind == "files")
        return writeFolder(path, count, smallFileLength, count);
    if (kind == "tree")
        return writeFolder(path, count, 1, filesPerFolder);
    if (kind == "array") {
        std::string bytes = mark + '[';
        while (bytes.size() + 2 < count)
            bytes += "1,";
        return writeFile(path, bytes + "1]");
    }
    if (kind == "plain-records")
        return writeFile(path, generatedJson(Shape::records, count));
    if (kind == "utf16-records")
        return writeFile(path, withUtf16Mark(generatedJson(Shape::records, count / 2)));
    for (const auto& [name, shape] : shapeNames)
        if (kind == name)
            return writeFile(path, mark + generatedJson(shape, count));
    return false;
}

} // namespace

int main(int count, char** words) {
    if (count == 4 && make(words[1], std::strtoull(words[2], nullptr, 10), words[3]))
        return EXIT_SUCCESS;
    std::cerr << "usage: make_input KIND COUNT PATH\n";
    return EXIT_FAILURE;
}
