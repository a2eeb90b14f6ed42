#include "platform/files.h"

#include "platform/native_path.h"
#include "platform/path_status.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace brindlewick {
namespace {

namespace fs = std::filesystem;
using testing::failureOf;
using testing::shown;
using testing::Status;
using Shown = std::vector<std::string>;

/// One of each kind of file and folder that every system has.
class Files : public ::testing::Test {
protected:
    Files() {
        folder.write("file", "four");
        for (const char* name : {".hidden", "fixed", ".both", "folder/inside", ".folder/inside"})
            folder.write(name, "");
        for (const char* name : {"fixed", ".both"})
            fs::permissions(folder.path() / name, fs::perms::owner_read);
        folder.makeFolder("folder/empty");
    }
    std::u16string text(std::u16string_view name) const { return joinedPath(folder.text(), name); }
    testing::TemporaryFolder folder;
};

TEST_F(Files, HaveTheSameStatusInEveryOperation) {
    const Status cases[] = {
        {u"file", 32},
        {u".hidden", 34},
        {u"fixed", 33},
        {u".both", 35},
        {u"folder", 16},
        {u"folder/", 16},
        {u".folder//", 18},
        {u"folder/inside", 32},
        {u"missing", std::nullopt, FailureNumber::fileNotFound},
        {u"missing/file", std::nullopt, FailureNumber::pathNotFound},
        {u"file/below", std::nullopt, FailureNumber::pathNotFound},
        {std::u16string(u"file\0x", 6), std::nullopt, FailureNumber::fileNotFound},
        {std::u16string(300, u'a'), std::nullopt, FailureNumber::fileNotFound},
    };
    for (const Status& expected : cases)
        testing::expectStatus(text(expected.name), expected);
    testing::expectStatus(u"", {u"", std::nullopt, FailureNumber::fileNotFound});
    EXPECT_EQ(fileLength(text(u"file")), 4U);
}

TEST_F(Files, AreListedWithTheirFolders) {
    EXPECT_EQ(shown(listFolder(folder.text())),
              (Shown{".both", ".folder/", ".hidden", "file", "fixed", "folder/"}));
    EXPECT_EQ(shown(listFolder(folder.text("folder"))), (Shown{"empty/", "inside"}));
    EXPECT_EQ(shown(listFolder(folder.text("folder/empty"))), Shown{});
    for (const std::u16string& noFolder :
         {text(u"missing"), text(u"file"), text(u"missing/below"), std::u16string()})
        EXPECT_EQ(failureOf([&] { static_cast<void>(listFolder(noFolder)); }), FailureNumber::pathNotFound);
}

TEST(SortByName, OrdersWithoutCaseAndThenByCodeUnit) {
    const std::vector<std::u16string> ordered = {u"",   u".x", u"A",   u"a", u"A1", u"a_", u"AB", u"Ab",
                                                 u"aB", u"ab", u"abc", u"b", u"Z",  u"Ä",  u"ä"};
    std::vector<FolderEntry> entries;
    for (auto name = ordered.rbegin(); name != ordered.rend(); ++name)
        entries.push_back({*name, *name == u"b", 0});
    sortByName(entries);
    for (std::size_t at = 0; at < ordered.size(); ++at) {
        EXPECT_EQ(entries[at].name, ordered[at]);
        EXPECT_EQ(entries[at].isFolder, ordered[at] == u"b");
    }
}

TEST(ListFolder, OrdersNamesWithoutCaseAndEachCanBeOpened) {
    const testing::TemporaryFolder folder;
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
    for (const FolderEntry& entry : entries)
        EXPECT_EQ(testing::bytesOf(joinedPath(folder.text(), entry.name)), testing::nameBytes(entry.name));
}

TEST_F(Files, AreReadInPartsAndReplacedByteForByte) {
    const std::string bytes("abc\r\n\x1A\0e", 8);
    {
        OutputFile file(folder.write("out", "something longer"));
        file.write(bytes.substr(0, 4));
        file.write("");
        file.write(bytes.substr(4));
        file.close();
    }
    InputFile file(text(u"out"));
    EXPECT_EQ(file.length(), 8U);
    std::string part(5, '\0');
    EXPECT_EQ(file.read(part), 5U);
    EXPECT_EQ(part, bytes.substr(0, 5));
    EXPECT_EQ(file.read(part), 3U);
    EXPECT_EQ(part.substr(0, 3), bytes.substr(5));
    EXPECT_EQ(file.read(part), 0U);
}

TEST_F(Files, FailToOpenWithTheirOwnFailures) {
    const std::pair<std::u16string, FailureNumber> cases[] = {
        {u"missing/file", FailureNumber::pathNotFound},
        {u"file/below", FailureNumber::pathNotFound},
        {u"folder", FailureNumber::permissionDenied},
        {std::u16string(u"file\0", 5), FailureNumber::fileNotFound},
        {std::u16string(5000, u'a'), FailureNumber::fileNotFound},
    };
    for (const auto& one : cases) {
        EXPECT_EQ(failureOf([&] { InputFile file(text(one.first)); }), one.second);
        EXPECT_EQ(failureOf([&] { OutputFile file(text(one.first)); }), one.second);
    }
    EXPECT_EQ(failureOf([&] { InputFile file(text(u"missing")); }), FailureNumber::fileNotFound);
    const auto failure = failureOf([&] { OutputFile file(text(u"fixed")); }); // root may write it
    EXPECT_EQ(failure.value_or(FailureNumber::permissionDenied), FailureNumber::permissionDenied);
}

TEST(ProgramFolder, ContainsThisTest) {
    const std::vector<FolderEntry> entries = listFolder(programFolder());
    EXPECT_NE(programFolder().back(), pathSeparator);
    EXPECT_TRUE(std::any_of(entries.begin(), entries.end(), [](const FolderEntry& entry) {
        return entry.name == u"engine_tests" || entry.name == u"engine_tests.exe";
    }));
}

} // namespace
} // namespace brindlewick
