// Files and folders as every system has them.
#include "platform/path_status.h"

#include <algorithm>

namespace brindlewick::testing {
namespace {

namespace fs = std::filesystem;

/// One of everything that a path can name everywhere.
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
    TemporaryFolder folder;
};

TEST_F(Files, HaveOneStatusHoweverItIsAsked) {
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
        expectStatus(text(expected.name), expected);
    expectStatus(u"", {u"", std::nullopt, FailureNumber::fileNotFound});
    EXPECT_EQ(fileLength(text(u"file")), 4U);
}

TEST_F(Files, AreListedWithTheirFoldersInOrder) {
    EXPECT_EQ(listed(folder.text()), (Shown{".both", ".folder/", ".hidden", "file", "fixed", "folder/"}));
    EXPECT_EQ(listed(folder.text("folder/empty")), Shown{});
    for (const std::u16string& noFolder :
         {text(u"missing"), text(u"file"), text(u"missing/below"), std::u16string()})
        EXPECT_EQ(failureOf([&] { static_cast<void>(listFolder(noFolder)); }), FailureNumber::pathNotFound);

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
        folder.write("names/" + name, name);
    EXPECT_EQ(listed(folder.text("names")), names);
    for (const std::string& name : names)
        EXPECT_EQ(bytesOf(folder.text("names/" + name)), name);

    const std::u16string_view ordered[] = {u"",   u".x", u"A",   u"a", u"A1", u"a_", u"AB", u"Ab",
                                           u"aB", u"ab", u"abc", u"b", u"Z",  u"Ä",  u"ä"};
    std::vector<FolderEntry> entries;
    for (const std::u16string_view name : ordered)
        entries.insert(entries.begin(), {std::u16string(name), name == u"b", 0});
    sortByName(entries);
    for (std::size_t at = 0; at < entries.size(); ++at) {
        EXPECT_EQ(entries[at].name, ordered[at]);
        EXPECT_EQ(entries[at].isFolder, ordered[at] == u"b");
    }
}

TEST_F(Files, AreReadInPortionsAndReplacedByteForByte) {
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
    std::string portion(5, '\0');
    EXPECT_EQ(file.read(portion), 5U);
    EXPECT_EQ(portion, bytes.substr(0, 5));
    EXPECT_EQ(file.read(portion), 3U);
    EXPECT_EQ(portion.substr(0, 3), bytes.substr(5));
    EXPECT_EQ(file.read(portion), 0U);
}

TEST_F(Files, ThatCannotBeOpenedFailAtOnce) {
    const std::pair<std::u16string, FailureNumber> cases[] = {
        {u"missing/file", FailureNumber::pathNotFound},
        {u"file/below", FailureNumber::pathNotFound},
        {u"folder", FailureNumber::permissionDenied},
        {std::u16string(u"file\0", 5), FailureNumber::fileNotFound},
        {std::u16string(5000, u'a'), FailureNumber::fileNotFound},
    };
    for (const auto& [name, failure] : cases)
        expectNoFile(text(name), failure, failure);
    EXPECT_EQ(failureOf([&] { InputFile file(text(u"missing")); }), FailureNumber::fileNotFound);
    const auto failure = failureOf([&] { OutputFile file(text(u"fixed")); }); // nothing is refused to root
    EXPECT_EQ(failure.value_or(FailureNumber::permissionDenied), FailureNumber::permissionDenied);
}

TEST(ProgramFolder, HasThisProgram) {
    const Shown names = listed(programFolder());
    EXPECT_NE(programFolder().back(), pathSeparator);
    EXPECT_TRUE(std::count(names.begin(), names.end(), "engine_tests") +
                std::count(names.begin(), names.end(), "engine_tests.exe"));
}

} // namespace
} // namespace brindlewick::testing
