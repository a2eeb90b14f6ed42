// What the tests of files look at.
#pragma once

#include "platform/files.h"
#include "support/failure_of.h"
#include "support/own_separator.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

namespace brindlewick::testing {

using Shown = std::vector<std::string>;

struct Status {
    std::u16string name;
    std::optional<unsigned> attributes; ///< none if the path does not exist
    std::optional<FailureNumber> failure = std::nullopt;
};

/// Checks that every operation on the path agrees with `expected`.
inline void expectStatus(const std::u16string& path, const Status& expected) {
    SCOPED_TRACE(nameBytes(path));
    const unsigned attributes = expected.attributes.value_or(0);
    const bool exists = expected.attributes.has_value();
    const bool isFolder = (attributes & 16) != 0;
    const std::size_t name = path.size() - fileNamePart(path).size();
    for (const FileStatus& status :
         {fileStatus(path), FilesOfFolder(path.substr(0, name)).status(path.substr(name))}) {
        EXPECT_EQ(status.exists, exists);
        EXPECT_EQ(status.attributes, attributes);
    }
    EXPECT_EQ(FileExists(path), exists);
    EXPECT_EQ(FileExistsByOpen(path), exists && !isFolder);
    EXPECT_EQ(IsFolder(path), isFolder);
    EXPECT_EQ(failureOf([&] { EXPECT_EQ(fileAttributes(path), attributes); }), expected.failure);
    const auto reading = isFolder ? FailureNumber::permissionDenied : expected.failure;
    EXPECT_EQ(failureOf([&] { static_cast<void>(fileLength(path)); }), reading);
    EXPECT_EQ(failureOf([&] { InputFile file(path); }), reading);
}

/// The first ten bytes of a file.
inline std::string bytesOf(const std::u16string& path) {
    std::string bytes(10, '\0');
    bytes.resize(InputFile(path).readAt(0, bytes));
    return bytes;
}

/// The names in a folder as bytes, with "/" after a folder and "/@" after a link to one.
inline Shown listed(const std::u16string& folder) {
    Shown names;
    for (const FolderEntry& entry : listFolder(folder)) {
        EXPECT_EQ(entry.isFolder, (entry.folderAttributes & 16) != 0);
        names.push_back(nameBytes(entry.name) + (entry.isFolder ? "/" : "") +
                        ((entry.folderAttributes & 1024) != 0 ? "@" : ""));
    }
    return names;
}

} // namespace brindlewick::testing
