// What only POSIX systems have: links, pipes, names of any bytes, special files.
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

TEST(LinksAndPipes, HaveAStatusAreListedAndOpened) {
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
    EXPECT_EQ(failureOf([&] { static_cast<void>(listFolder(folder.text("deadLink"))); }),
              FailureNumber::pathNotFound);

    EXPECT_EQ(InputFile(folder.text("fileLink")).length(), 4U);
    std::string bytes(3, '\0');
    EXPECT_EQ(InputFile(folder.text("pipe")).read(bytes), 0U); // does not wait for a writer
    EXPECT_EQ(failureOf([&] { OutputFile file(folder.text("circle")); }), FailureNumber::deviceIoError);
    EXPECT_EQ(failureOf([&] { InputFile file(folder.text("folderLink")); }), FailureNumber::permissionDenied);
    EXPECT_EQ(failureOf([&] { InputFile file(folder.text("deadLink")); }), FailureNumber::fileNotFound);
}

TEST(ListFolder, GivesNamesOfAnyBytesThatCanBeOpened) {
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

TEST(NativePath, IsTheBytesOfTheText) {
    const std::u16string text{u'/', u'\u00E4', 0xDCFF};
    EXPECT_EQ(nativePath(text).native(), "/\xC3\xA4\xFF");
    EXPECT_EQ(pathText("/\xC3\xA4\xFF"), text);
}

TEST(InputFile, FailsWithDeviceIoErrorWhenReadingFails) {
    if (!fs::exists("/proc/self/mem"))
        GTEST_SKIP() << "no file that opens but cannot be read";
    InputFile unreadable(u"/proc/self/mem"); // nothing is mapped at address 0
    std::string bytes(1, '\0');
    EXPECT_EQ(failureOf([&] { static_cast<void>(unreadable.read(bytes)); }), FailureNumber::deviceIoError);
}

TEST(OutputFile, IsPermissionDeniedWhereNobodyMayCreateFiles) {
    if (!fs::exists("/sys/kernel"))
        GTEST_SKIP() << "no folder that refuses files from everybody";
    EXPECT_EQ(failureOf([&] { OutputFile file(u"/sys/kernel/brindlewick"); }),
              FailureNumber::permissionDenied);
}

TEST(OutputFile, FailsWithDiskFull) {
    if (!fs::exists("/dev/full"))
        GTEST_SKIP() << "no device that is always full";
    OutputFile file(u"/dev/full");
    EXPECT_EQ(failureOf([&] { file.write("x"); }), FailureNumber::diskFull);
}

TEST(RefusedAccess, IsPermissionDenied) {
    if (::geteuid() == 0)
        GTEST_SKIP() << "root may read everything";
    const TemporaryFolder folder;
    const std::u16string file = folder.write("closed/file", "");
    fs::permissions(folder.path() / "closed", fs::perms::none);
    EXPECT_EQ(failureOf([&] { static_cast<void>(listFolder(folder.text("closed"))); }),
              FailureNumber::permissionDenied);
    EXPECT_EQ(failureOf([&] { InputFile opened(file); }), FailureNumber::permissionDenied);
    EXPECT_FALSE(FileExists(file));
    fs::permissions(folder.path() / "closed", fs::perms::owner_all);
}

} // namespace
} // namespace brindlewick
