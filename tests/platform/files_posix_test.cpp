// Links, pipes, odd names and refused access: what the files of a POSIX system have besides.
#include "platform/files.h"

#include "platform/native_path.h"
#include "platform/path_status.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

namespace brindlewick {
namespace {

namespace fs = std::filesystem;
using testing::failureOf;
using testing::shown;
using testing::TemporaryFolder;
using Shown = std::vector<std::string>;

TEST(LinksAndPipes, AreLookedAtListedAndOpened) {
    const TemporaryFolder folder;
    folder.write("file", "four");
    folder.write("folder/inside", "");
    fs::create_symlink("file", folder.path() / "fileLink");
    fs::create_symlink("folder", folder.path() / "folderLink");
    fs::create_symlink("nowhere", folder.path() / "deadLink");
    fs::create_symlink("circle", folder.path() / "circle");
    ::mkfifo((folder.path() / "pipe").c_str(), 0600);
    const testing::Status cases[] = {
        {u"fileLink", 32},
        {u"folderLink", 1046},
        {u"folderLink/", 1046},
        {u"folderLink/inside", 32},
        {u"pipe", 0},
        {u"deadLink", std::nullopt, FailureNumber::fileNotFound},
        {u"circle", std::nullopt, FailureNumber::deviceIoError},
    };
    for (const testing::Status& expected : cases)
        testing::expectStatus(folder.text() + u"/" + expected.name, expected);

    const Shown all = {"circle", "deadLink", "file", "fileLink", "folder/", "folderLink/@", "pipe"};
    EXPECT_EQ(shown(listFolder(folder.text())), all);
    EXPECT_EQ(shown(listFolder(folder.text("folderLink"))), Shown{"inside"});
    EXPECT_EQ(failureOf([&] { listFolder(folder.text("deadLink")); }), FailureNumber::pathNotFound);

    EXPECT_EQ(InputFile(folder.text("fileLink")).length(), 4U);
    std::string bytes(3, '\0');
    EXPECT_EQ(InputFile(folder.text("pipe")).read(bytes), 0U); // without waiting for somebody who writes
    EXPECT_EQ(failureOf([&] { InputFile file(folder.text("folderLink")); }), FailureNumber::permissionDenied);
    EXPECT_EQ(failureOf([&] { InputFile file(folder.text("deadLink")); }), FailureNumber::fileNotFound);
}

TEST(ListFolder, LetsNamesOfAnyBytesBeOpened) {
    const TemporaryFolder folder;
    const Shown names = {" ", "...", "A",  "a",        "a\nb",     "a\\b",
                         "B", "b",   "b.", "\xC3\x84", "\xC3\xA4", "\xFF"};
    for (const std::string& name : names)
        std::ofstream(folder.path() / name) << name;
    const std::vector<FolderEntry> entries = listFolder(folder.text());
    EXPECT_EQ(shown(entries), names);
    for (const FolderEntry& entry : entries)
        EXPECT_EQ(testing::bytesOf(folder.text() + u"/" + entry.name), nativePath(entry.name).native());
}

TEST(RefusedAccess, IsPermissionDenied) {
    if (::geteuid() == 0)
        GTEST_SKIP() << "nothing is refused to root";
    const TemporaryFolder folder;
    const std::u16string file = folder.write("closed/file", "");
    fs::permissions(folder.path() / "closed", fs::perms::none);
    EXPECT_EQ(failureOf([&] { listFolder(folder.text("closed")); }), FailureNumber::permissionDenied);
    EXPECT_EQ(failureOf([&] { InputFile opened(file); }), FailureNumber::permissionDenied);
    EXPECT_FALSE(FileExists(file));
    fs::permissions(folder.path() / "closed", fs::perms::owner_all);
}

} // namespace
} // namespace brindlewick
