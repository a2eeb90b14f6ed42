// Checks everything that files.h returns about a path.
#pragma once

#include "platform/files.h"
#include "platform/native_path.h"
#include "support/failure_of.h"
#include "support/own_separator.h"

#include <gtest/gtest.h>

#include <optional>

namespace brindlewick::testing {

struct Status {
    std::u16string name;
    std::optional<unsigned> attributes; ///< none if the path does not exist
    std::optional<FailureNumber> failure = std::nullopt;
};

/// Checks that every operation on the path agrees with `expected`.
inline void expectStatus(const std::u16string& path, const Status& expected) {
    const unsigned attributes = expected.attributes.value_or(0);
    const bool exists = expected.attributes.has_value();
    const bool isFolder = (attributes & 16) != 0;
    const std::size_t name = path.size() - fileNamePart(path).size();
    const FileStatus inFolder = FilesOfFolder(path.substr(0, name)).status(path.substr(name));
    EXPECT_EQ(inFolder.exists, exists);
    EXPECT_EQ(inFolder.attributes, attributes);
    EXPECT_EQ(fileStatus(path).exists, exists);
    EXPECT_EQ(fileStatus(path).attributes, attributes);
    EXPECT_EQ(FileExists(path), exists);
    EXPECT_EQ(FileExistsByOpen(path), exists && !isFolder);
    EXPECT_EQ(IsFolder(path), isFolder);
    EXPECT_EQ(failureOf([&] { EXPECT_EQ(fileAttributes(path), attributes); }), expected.failure);
    EXPECT_EQ(failureOf([&] { static_cast<void>(fileLength(path)); }),
              isFolder ? FailureNumber::permissionDenied : expected.failure);
}

/// The first ten bytes of a file.
inline std::string bytesOf(const std::u16string& path) {
    std::string bytes(10, '\0');
    bytes.resize(InputFile(path).read(bytes));
    return bytes;
}

/// Each name as bytes, with "/" after a folder and "/@" after a link to one.
inline std::vector<std::string> shown(const std::vector<FolderEntry>& entries) {
    std::vector<std::string> names;
    for (const FolderEntry& entry : entries) {
        EXPECT_EQ(entry.isFolder, (entry.folderAttributes & 16) != 0);
        names.push_back(nameBytes(entry.name) + (entry.isFolder ? "/" : "") +
                        ((entry.folderAttributes & 1024) != 0 ? "@" : ""));
    }
    return names;
}

} // namespace brindlewick::testing
