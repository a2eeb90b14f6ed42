// What only Windows has: its attributes, long paths, locked files, pipes, devices.
#include "lists/folder_rules.h"
#include "lists/scanned_tree.h"
#include "platform/path_status.h"

#include <windows.h>

namespace brindlewick::testing {
namespace {

TEST(Attributes, AreTheFileSystemsOwn) {
    for (const DWORD attributes : {33U, 34U, 35U, 36U, 39U, 16U, 18U, 22U}) {
        const TemporaryFolder folder;
        const bool isFolder = (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
        if (isFolder)
            folder.makeFolder("one");
        else
            folder.write("one", "");
        // Read-only comes last, since Wine stores nothing more about such a file.
        for (const DWORD without : {FILE_ATTRIBUTE_READONLY, 0})
            ASSERT_NE(::SetFileAttributesW((folder.path() / "one").c_str(),
                                           (attributes & ~without) | FILE_ATTRIBUTE_NOT_CONTENT_INDEXED),
                      0);
        expectStatus(folder.text("one"), {u"one", attributes});
        const FolderEntry entry = listFolder(folder.text()).at(0);
        EXPECT_EQ(entry.isFolder, isFolder);
        EXPECT_EQ(entry.folderAttributes, isFolder ? attributes : 0U);
    }
}

TEST(Scan, EntersAHiddenFolderButNoProtectedOne) {
    const std::pair<DWORD, Names> cases[] = {
        {FILE_ATTRIBUTE_HIDDEN, {"a/1", "closed/2", "closed/sub/3"}},
        {FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM, {"a/1"}},
    };
    for (const auto& [attributes, expected] : cases) {
        Tree tree({"a/1", "closed/2", "closed/sub/3"});
        ASSERT_NE(::SetFileAttributesW((tree.folder.path() / "closed").c_str(), attributes), 0);
        EXPECT_EQ(tree.scan({"."}), expected);
    }
    for (const std::u16string_view root : {u"C:\\", u"c:/", u"\\"})
        EXPECT_TRUE(isRootFolder(root));
    for (const std::u16string_view other : {u"C:", u"C:\\a", u"C:\\a\\", u"a\\"})
        EXPECT_FALSE(isRootFolder(other));
}

TEST(NativePath, IsTheTextUnitByUnit) {
    std::u16string text = u"C:\\a/b";
    for (unsigned unit = 1; unit <= 0xFFFF; ++unit) // with lone surrogates, in pairs and in the wrong order
        text += static_cast<char16_t>(unit);
    const std::wstring wide = nativePath(text).native();
    EXPECT_TRUE(std::u16string(wide.begin(), wide.end()) == text);
    EXPECT_TRUE(pathText(nativePath(text)) == text);
    EXPECT_EQ(pathSeparator, u'\\');
}

TEST(LongPath, IsReadWrittenAndListed) {
    const TemporaryFolder folder;
    // Around each of the two limits, and well above them.
    for (const std::size_t length : {246u, 247u, 248u, 249u, 259u, 260u, 261u, 2000u}) {
        std::string name;
        while (folder.text().size() + name.size() + 103 < length)
            name += std::string(99, 'd') + "/";
        name += std::string(length - folder.text().size() - name.size() - 3, 'e');
        folder.makeFolder(name);
        const std::u16string inside = folder.text(name);
        const std::u16string path = inside + u"/f";
        ASSERT_EQ(path.size(), length);
        {
            OutputFile file(path);
            file.write("four");
            file.close();
        }
        EXPECT_EQ(fileLength(path), 4U) << length;
        EXPECT_EQ(InputFile(path).length(), 4U) << length;
        EXPECT_TRUE(IsFolder(inside)) << length;
        EXPECT_EQ(listed(inside), Shown{"f"}) << length;
        expectStatus(inside + u"/g/h", {u"", std::nullopt, FailureNumber::pathNotFound});
    }
}

TEST(FileThatIsOpenElsewhere, IsReadIfItIsShared) {
    const TemporaryFolder folder;
    const std::u16string path = folder.write("file", "four");
    for (const DWORD sharing : {DWORD{FILE_SHARE_READ}, DWORD{0}}) {
        const HANDLE other = ::CreateFileW(nativePath(path).c_str(), GENERIC_READ | GENERIC_WRITE, sharing,
                                           nullptr, OPEN_EXISTING, 0, nullptr);
        ASSERT_NE(other, INVALID_HANDLE_VALUE);
        EXPECT_EQ(failureOf([&] { InputFile file(path); }),
                  sharing != 0 ? std::nullopt : std::optional(FailureNumber::permissionDenied));
        EXPECT_EQ(failureOf([&] { OutputFile file(path); }), FailureNumber::permissionDenied);
        EXPECT_EQ(fileLength(path), 4U); // the status needs no access
        ::CloseHandle(other);
    }
    EXPECT_EQ(InputFile(path).length(), 4U);
}

TEST(OutputFile, FailsToWriteToAPipeThatNobodyReads) {
    const std::u16string name = u"\\\\.\\pipe\\" + TemporaryFolder().path().filename().u16string();
    const HANDLE reader = ::CreateNamedPipeW(nativePath(name).c_str(), PIPE_ACCESS_INBOUND, PIPE_TYPE_BYTE, 1,
                                             4096, 4096, 0, nullptr);
    ASSERT_NE(reader, INVALID_HANDLE_VALUE);
    OutputFile file(name);
    file.write("read");
    ::CloseHandle(reader);
    EXPECT_EQ(failureOf([&] { file.write("not read"); }), FailureNumber::deviceIoError);
    EXPECT_EQ(failureOf([&] { file.close(); }), std::nullopt);
}

TEST(NamesThatWindowsReserves, AreNotFound) {
    EXPECT_EQ(failureOf([] { InputFile file(u"NUL"); }), FailureNumber::deviceIoError); // it could block
    const TemporaryFolder folder;
    for (const std::u16string_view name : {u"a*b", u"a?b"}) {
        const std::u16string path = folder.text() + u"\\" + std::u16string(name);
        expectStatus(path, {u"", std::nullopt, FailureNumber::fileNotFound});
        EXPECT_EQ(failureOf([&] { static_cast<void>(listFolder(path)); }), FailureNumber::pathNotFound);
        EXPECT_EQ(failureOf([&] { OutputFile file(path); }), FailureNumber::fileNotFound);
    }
}

} // namespace
} // namespace brindlewick::testing
