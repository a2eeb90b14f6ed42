// What a subject of the fuzz driver is: a name, and a function that checks what must be true for any input.
#pragma once

#include "support/temporary_folder.h"

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>

namespace brindlewick::fuzz {

/// Ends the program with `message` and the input at hand when `holds` is false.
void check(bool holds, const char* message);

/// Adds itself to the driver's subjects. Define one for each subject, as a constant of its source file.
struct Subject {
    Subject(const char* name, void (*checkInput)(std::string_view input));
};

/// The bytes as UTF-16 code units, low byte first: any units, halves of surrogate pairs among them. An odd
/// last byte is left out.
inline std::u16string unitsOf(std::string_view bytes) {
    std::u16string units;
    for (std::size_t at = 0; at + 1 < bytes.size(); at += 2)
        units.push_back(static_cast<char16_t>(static_cast<unsigned char>(bytes[at]) |
                                              (static_cast<unsigned char>(bytes[at + 1]) << 8)));
    return units;
}

/// Makes a file in a folder that is removed at the end. A file that is there is removed first: on some file
/// systems that takes a hundredth of the time of writing over it.
inline std::u16string newFile(const std::string& name, std::string_view bytes) {
    static const testing::TemporaryFolder folder;
    std::filesystem::remove(folder.path() / name);
    return folder.write(name, bytes);
}

} // namespace brindlewick::fuzz
