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
using testing::Status;
using testing::TemporaryFolder;
using Shown = std::vector<std::string>;

class LinkScene {
public:
    LinkScene() {
        folder_.write("file", "four");
        folder_.write("folder/inside", "");
        fs::create_symlink("file", folder_.path() / "fileLink");
        fs::create_symlink("folder", folder_.path() / "folderLink");
        fs::create_symlink("nowhere", folder_.path() / "deadLink");
        fs::create_symlink("circle", folder_.path() / "circle");
        ::mkfifo((folder_.path() / "pipe").c_str(), 0600);
    }
    std::u16string text(std::u16string_view name) const {
        return folder_.text() + u"/" + std::u16string(name);
    }

private:
    TemporaryFolder folder_;
};

class StatusOfALink : public ::testing::TestWithParam<Status> {};

TEST_P(StatusOfALink, IsTheSameHoweverItIsAsked) {
    const LinkScene scene;
    testing::expectStatus(scene.text(GetParam().name), GetParam());
}

INSTANTIATE_TEST_SUITE_P(Paths, StatusOfALink,
                         ::testing::Values(Status{u"fileLink", 32}, Status{u"folderLink", 1046},
                                           Status{u"folderLink/", 1046}, Status{u"folderLink/inside", 32},
                                           Status{u"pipe", 0},
                                           Status{u"deadLink", std::nullopt, FailureNumber::fileNotFound},
                                           Status{u"circle", std::nullopt, FailureNumber::deviceIoError}));

TEST(ListFolder, TellsLinksToFoldersApart) {
    const LinkScene scene;
    const Shown expected = {"circle", "deadLink", "file", "fileLink", "folder/", "folderLink/@", "pipe"};
    EXPECT_EQ(shown(listFolder(scene.text(u""))), expected);
    EXPECT_EQ(shown(listFolder(scene.text(u"folderLink"))), Shown{"inside"});
    EXPECT_EQ(failureOf([&] { listFolder(scene.text(u"deadLink")); }), FailureNumber::pathNotFound);
}

TEST(ListFolder, LetsNamesOfAnyBytesBeOpened) {
    const TemporaryFolder folder;
    const Shown names = {" ", "...", "A",  "a",        "a\nb",     "a\\b",
                         "B", "b",   "b.", "\xC3\x84", "\xC3\xA4", "\xFF"};
    for (const std::string& name : names)
        std::ofstream(folder.path() / name) << name;
    const std::vector<FolderEntry> entries = listFolder(folder.text());
    EXPECT_EQ(shown(entries), names);
    for (const FolderEntry& entry : entries) {
        const std::u16string path = folder.text() + u"/" + entry.name;
        std::string bytes(10, '\0');
        bytes.resize(InputFile(path).read(bytes));
        EXPECT_EQ(bytes, nativePath(entry.name).native());
    }
}

TEST(RefusedAccess, IsPermissionDenied) {
    if (::geteuid() == 0)
        GTEST_SKIP() << "nothing is refused to root";
    const TemporaryFolder folder;
    const std::u16string file = folder.write("closed/file", "");
    const std::u16string closed = folder.text("closed");
    fs::permissions(folder.path() / "closed", fs::perms::none);
    EXPECT_EQ(failureOf([&] { listFolder(closed); }), FailureNumber::permissionDenied);
    EXPECT_EQ(failureOf([&] { InputFile opened(file); }), FailureNumber::permissionDenied);
    EXPECT_FALSE(FileExists(file));
    fs::permissions(folder.path() / "closed", fs::perms::owner_all);
}

TEST(InputFile, DoesNotWaitForAPipeWithoutAWriter) {
    const LinkScene scene;
    std::string bytes(3, '\0');
    EXPECT_EQ(InputFile(scene.text(u"pipe")).read(bytes), 0U);
}

TEST(InputFile, FollowsLinksAndRefusesThoseThatLeadNowhere) {
    const LinkScene scene;
    EXPECT_EQ(InputFile(scene.text(u"fileLink")).length(), 4U);
    EXPECT_EQ(failureOf([&] { InputFile file(scene.text(u"folderLink")); }), FailureNumber::permissionDenied);
    EXPECT_EQ(failureOf([&] { InputFile file(scene.text(u"deadLink")); }), FailureNumber::fileNotFound);
}

} // namespace
} // namespace brindlewick
