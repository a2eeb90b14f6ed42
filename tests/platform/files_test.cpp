#include "platform/files.h"

#include "platform/native_path.h"
#include "platform/path_status.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace brindlewick {
namespace {

namespace fs = std::filesystem;
using testing::expectStatus;
using testing::failureOf;
using testing::shown;
using testing::Status;
using testing::TemporaryFolder;
using Shown = std::vector<std::string>;

/// One of everything that a path can name everywhere.
class Scene {
public:
    Scene() {
        folder_.write("file", "four");
        for (const char* name : {".hidden", "fixed", ".both", "folder/inside", ".folder/inside"})
            folder_.write(name, "");
        for (const char* name : {"fixed", ".both"})
            fs::permissions(folder_.path() / name, fs::perms::owner_read);
    }
    std::u16string text(std::u16string_view name) const {
        return folder_.text() + pathSeparator + std::u16string(name);
    }

private:
    TemporaryFolder folder_;
};

class StatusOfAPath : public ::testing::TestWithParam<Status> {};

TEST_P(StatusOfAPath, IsTheSameHoweverItIsAsked) {
    const Scene scene;
    expectStatus(scene.text(GetParam().name), GetParam());
}

INSTANTIATE_TEST_SUITE_P(
    Paths, StatusOfAPath,
    ::testing::Values(Status{u"file", 32}, Status{u".hidden", 34}, Status{u"fixed", 33}, Status{u".both", 35},
                      Status{u"folder", 16}, Status{u"folder/", 16}, Status{u".folder", 18},
                      Status{u".folder//", 18}, Status{u"folder/inside", 32},
                      Status{u"missing", std::nullopt, FailureNumber::fileNotFound},
                      Status{u"missing/file", std::nullopt, FailureNumber::pathNotFound},
                      Status{u"file/below", std::nullopt, FailureNumber::pathNotFound},
                      Status{std::u16string(u"file\0x", 6), std::nullopt, FailureNumber::fileNotFound},
                      Status{std::u16string(300, u'a'), std::nullopt, FailureNumber::fileNotFound}));

TEST(StatusOfNothing, IsTheEmptyPath) {
    expectStatus(u"", {u"", std::nullopt, FailureNumber::fileNotFound});
}

TEST(FileLength, CountsBytes) {
    const TemporaryFolder folder;
    EXPECT_EQ(fileLength(folder.write("a", "\xE2\x82\xAC\r\n")), 5U);
    EXPECT_EQ(fileLength(folder.write("b", "")), 0U);
}

TEST(ListFolder, TellsFoldersFromFiles) {
    const Scene scene;
    const Shown expected = {".both", ".folder/", ".hidden", "file", "fixed", "folder/"};
    EXPECT_EQ(shown(listFolder(scene.text(u""))), expected);
    EXPECT_EQ(shown(listFolder(scene.text(u"folder"))), Shown{"inside"});
}

TEST(ListFolder, OrdersNamesWithoutCaseAndLetsEachBeOpened) {
    const TemporaryFolder folder;
    const Shown names = {" a",
                         "...b",
                         "[",
                         "A1",
                         "a2",
                         "B1",
                         "b2",
                         "\xC3\x84_1",
                         "\xC3\xA4_2",
                         "\xE6\x97\xA5",
                         "\xF0\x9F\x98\x80"};
    for (const std::string& name : names)
        folder.write(name, name);
    const std::vector<FolderEntry> entries = listFolder(folder.text());
    EXPECT_EQ(shown(entries), names);
    for (const FolderEntry& entry : entries) {
        std::string bytes(10, '\0');
        bytes.resize(InputFile(folder.text() + pathSeparator + entry.name).read(bytes));
        EXPECT_EQ(bytes, testing::nameBytes(entry.name));
    }
}

TEST(ListFolder, IsEmptyForAnEmptyFolder) {
    const TemporaryFolder folder;
    EXPECT_EQ(shown(listFolder(folder.text())), Shown{});
}

TEST(ListFolder, FailsWhenThereIsNoFolderToRead) {
    const Scene scene;
    for (const std::u16string_view name : {u"missing", u"file", u"missing/below"})
        EXPECT_EQ(failureOf([&] { listFolder(scene.text(name)); }), FailureNumber::pathNotFound);
    EXPECT_EQ(failureOf([] { listFolder(u""); }), FailureNumber::pathNotFound);
}

TEST(InputFile, ReadsInPortionsUpToTheEnd) {
    const TemporaryFolder folder;
    InputFile file(folder.write("file", "abc\r\n\x1A"
                                        "de"));
    EXPECT_EQ(file.length(), 8U);
    std::string bytes(5, '\0');
    EXPECT_EQ(file.read(bytes), 5U);
    EXPECT_EQ(bytes, "abc\r\n");
    EXPECT_EQ(file.read(bytes), 3U);
    EXPECT_EQ(bytes.substr(0, 3), "\x1A"
                                  "de");
    EXPECT_EQ(file.read(bytes), 0U);
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
                                           Refused{u"missing/file", FailureNumber::pathNotFound},
                                           Refused{u"folder", FailureNumber::permissionDenied},
                                           Refused{std::u16string(u"file\0", 5), FailureNumber::fileNotFound},
                                           Refused{std::u16string(5000, u'a'), FailureNumber::fileNotFound}));

TEST(OutputFile, ReplacesWhatIsThereByteForByte) {
    const TemporaryFolder folder;
    OutputFile file(folder.write("out", "something longer"));
    file.write("a\r\n");
    file.write("");
    file.write({"b\n\0\x1A", 4});
    file.close();
    EXPECT_EQ(folder.read("out"), std::string("a\r\nb\n\0\x1A", 7));
}

TEST(OutputFile, DoesNotReplaceAFileThatIsReadOnly) {
    const Scene scene;
    const auto openFixed = [&] { OutputFile file(scene.text(u"fixed")); };
    if (!failureOf(openFixed))
        GTEST_SKIP() << "nothing is refused to root";
    EXPECT_EQ(failureOf(openFixed), FailureNumber::permissionDenied);
}

TEST(ProgramFolder, HoldsThisTest) {
    const std::u16string folder = programFolder();
    EXPECT_NE(folder.back(), pathSeparator);
    const std::vector<FolderEntry> entries = listFolder(folder);
    EXPECT_TRUE(std::any_of(entries.begin(), entries.end(), [](const FolderEntry& entry) {
        return !entry.isFolder && (entry.name == u"platform_tests" || entry.name == u"platform_tests.exe");
    }));
}

} // namespace
} // namespace brindlewick
