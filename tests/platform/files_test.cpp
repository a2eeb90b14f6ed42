#include "platform/files.h"

#include "platform/failure.h"
#include "platform/native_path.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <fstream>
#include <functional>
#include <optional>

#include <sys/stat.h>
#include <unistd.h>

namespace brindlewick {
namespace {

namespace fs = std::filesystem;
using testing::TemporaryFolder;

std::optional<FailureNumber> failureOf(const std::function<void()>& step) {
    try {
        step();
    } catch (const Failure& failure) {
        return failure.number();
    }
    return std::nullopt;
}

/// One of everything that a path can name.
class Scene {
public:
    Scene() {
        folder_.write("file", "four");
        folder_.write(".hidden", "");
        folder_.write("fixed", "");
        folder_.write(".both", "");
        for (const char* name : {"fixed", ".both"})
            fs::permissions(folder_.path() / name, fs::perms::owner_read);
        folder_.write("folder/inside", "");
        folder_.write(".folder/inside", "");
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

struct Status {
    std::u16string name;
    std::optional<unsigned> attributes; ///< nothing for what does not exist
    std::optional<FailureNumber> failure = std::nullopt;
};

class StatusOfAPath : public ::testing::TestWithParam<Status> {};

TEST_P(StatusOfAPath, IsTheSameHoweverItIsAsked) {
    const Scene scene;
    const std::u16string path = scene.text(GetParam().name);
    const unsigned attributes = GetParam().attributes.value_or(0);
    const bool exists = GetParam().attributes.has_value();
    EXPECT_EQ(fileStatus(path).exists, exists);
    EXPECT_EQ(fileStatus(path).attributes, attributes);
    EXPECT_EQ(FileExists(path), exists);
    EXPECT_EQ(FileExistsByOpen(path), exists && (attributes & 16) == 0);
    EXPECT_EQ(IsFolder(path), (attributes & 16) != 0);
    EXPECT_EQ(failureOf([&] { EXPECT_EQ(fileAttributes(path), attributes); }), GetParam().failure);
    EXPECT_EQ(failureOf([&] { static_cast<void>(fileLength(path)); }), GetParam().failure);
}

INSTANTIATE_TEST_SUITE_P(
    Paths, StatusOfAPath,
    ::testing::Values(Status{u"file", 32}, Status{u".hidden", 34}, Status{u"fixed", 33}, Status{u".both", 35},
                      Status{u"folder", 16}, Status{u"folder/", 16}, Status{u".folder", 18},
                      Status{u".folder//", 18}, Status{u"fileLink", 32}, Status{u"folderLink", 1046},
                      Status{u"folderLink/", 1046}, Status{u"folderLink/inside", 32}, Status{u"pipe", 0},
                      Status{u"deadLink", std::nullopt, FailureNumber::fileNotFound},
                      Status{u"missing", std::nullopt, FailureNumber::fileNotFound},
                      Status{u"missing/file", std::nullopt, FailureNumber::pathNotFound},
                      Status{u"file/below", std::nullopt, FailureNumber::pathNotFound},
                      Status{u"circle", std::nullopt, FailureNumber::deviceIoError},
                      Status{std::u16string(u"file\0x", 6), std::nullopt, FailureNumber::fileNotFound},
                      Status{std::u16string(300, u'a'), std::nullopt, FailureNumber::fileNotFound}));

TEST(FileLength, CountsBytes) {
    const TemporaryFolder folder;
    EXPECT_EQ(fileLength(folder.write("a", "\xE2\x82\xAC\r\n")), 5U);
    EXPECT_EQ(fileLength(folder.write("b", "")), 0U);
}

using Shown = std::vector<std::string>;

/// Each name as bytes, "/" behind a folder and "@" behind a link.
Shown shown(const std::vector<FolderEntry>& entries) {
    Shown names;
    for (const FolderEntry& entry : entries)
        names.push_back(nativePath(entry.name).native() + (entry.isFolder ? "/" : "") +
                        (entry.isSymbolicLink ? "@" : ""));
    return names;
}

TEST(ListFolder, TellsFoldersAndLinksApart) {
    const Scene scene;
    const Shown expected = {".both",     ".folder/", ".hidden", "circle@",      "deadLink@", "file",
                            "fileLink@", "fixed",    "folder/", "folderLink/@", "pipe"};
    EXPECT_EQ(shown(listFolder(scene.text(u""))), expected);
    EXPECT_EQ(shown(listFolder(scene.text(u"folderLink"))), Shown{"inside"});
}

TEST(ListFolder, OrdersOddNamesAndLetsEachBeOpened) {
    const TemporaryFolder folder;
    const Shown names = {
        " ", "...", "A", "a", "a\nb", "a\\b", "B", "b", "\xC3\x84", "\xC3\xA4", "\xF0\x9F\x98\x80", "\xFF"};
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

TEST(ListFolder, FailsWhenThereIsNoFolderToRead) {
    const Scene scene;
    for (const std::u16string_view name : {u"missing", u"file", u"missing/below", u"deadLink"})
        EXPECT_EQ(failureOf([&] { listFolder(scene.text(name)); }), FailureNumber::pathNotFound);
    EXPECT_EQ(failureOf([] { listFolder(u""); }), FailureNumber::pathNotFound);
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

TEST(InputFile, ReadsInPortionsUpToTheEnd) {
    const TemporaryFolder folder;
    InputFile file(folder.write("file", "abcde"));
    EXPECT_EQ(file.length(), 5U);
    std::string bytes(3, '\0');
    EXPECT_EQ(file.read(bytes), 3U);
    EXPECT_EQ(bytes, "abc");
    EXPECT_EQ(file.read(bytes), 2U);
    EXPECT_EQ(bytes, "dec");
    EXPECT_EQ(file.read(bytes), 0U);
}

TEST(InputFile, DoesNotWaitForAPipeWithoutAWriter) {
    const Scene scene;
    std::string bytes(3, '\0');
    EXPECT_EQ(InputFile(scene.text(u"pipe")).read(bytes), 0U);
}

struct Refused {
    std::u16string name;
    FailureNumber number;
};

class FileThatCannotBeOpened : public ::testing::TestWithParam<Refused> {};

TEST_P(FileThatCannotBeOpened, FailsAtOnce) {
    const Scene scene;
    EXPECT_EQ(failureOf([&] { InputFile file(scene.text(GetParam().name)); }), GetParam().number);
}

INSTANTIATE_TEST_SUITE_P(Names, FileThatCannotBeOpened,
                         ::testing::Values(Refused{u"missing", FailureNumber::fileNotFound},
                                           Refused{u"deadLink", FailureNumber::fileNotFound},
                                           Refused{u"missing/file", FailureNumber::pathNotFound},
                                           Refused{u"folder", FailureNumber::permissionDenied},
                                           Refused{u"folderLink", FailureNumber::permissionDenied},
                                           Refused{std::u16string(u"file\0", 5), FailureNumber::fileNotFound},
                                           Refused{std::u16string(5000, u'a'), FailureNumber::fileNotFound}));

TEST(ProgramFolder, HoldsThisTest) {
    const std::u16string folder = programFolder();
    EXPECT_NE(folder.back(), pathSeparator);
    EXPECT_TRUE(FileExistsByOpen(folder + pathSeparator + u"platform_tests"));
}

} // namespace
} // namespace brindlewick
