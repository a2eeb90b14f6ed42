// What only Windows has: its attributes, long paths, locked files, pipes, devices.
#include "platform/files.h"

#include "platform/native_path.h"
#include "platform/path_status.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <windows.h>

namespace brindlewick {
namespace {

using testing::expectStatus;
using testing::failureOf;
using testing::shown;
using testing::Status;
using testing::TemporaryFolder;
using Shown = std::vector<std::string>;

class AttributesOfWindows : public ::testing::TestWithParam<unsigned> {};

TEST_P(AttributesOfWindows, AreTheFileSystemsOwn) {
    const TemporaryFolder folder;
    const bool isFolder = (GetParam() & FILE_ATTRIBUTE_DIRECTORY) != 0;
    if (isFolder)
        folder.makeFolder("one");
    else
        folder.write("one", "");
    // Read-only comes last, since Wine stores nothing more about such a file.
    for (const DWORD without : {FILE_ATTRIBUTE_READONLY, 0})
        ASSERT_NE(::SetFileAttributesW((folder.path() / "one").c_str(),
                                       (GetParam() & ~without) | FILE_ATTRIBUTE_NOT_CONTENT_INDEXED),
                  0);
    expectStatus(folder.text("one"), {u"one", GetParam()});
    const FolderEntry entry = listFolder(folder.text()).at(0);
    EXPECT_EQ(entry.isFolder, isFolder);
    EXPECT_EQ(entry.folderAttributes, isFolder ? GetParam() : 0U);
}

INSTANTIATE_TEST_SUITE_P(Bits, AttributesOfWindows,
                         ::testing::Values(33U, 34U, 35U, 36U, 39U, 16U, 18U, 22U));

TEST(NativePath, IsTheTextUnitByUnit) {
    std::u16string text = u"C:\\a/b";
    for (unsigned unit = 1; unit <= 0xFFFF; ++unit) // with lone surrogates, in pairs and in the wrong order
        text += static_cast<char16_t>(unit);
    const std::wstring wide = nativePath(text).native();
    ASSERT_EQ(wide.size(), text.size());
    for (std::size_t at = 0; at < text.size(); ++at)
        ASSERT_EQ(static_cast<char16_t>(wide[at]), text[at]) << at;
    EXPECT_EQ(pathText(nativePath(text)), text);
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
        EXPECT_EQ(shown(listFolder(inside)), Shown{"f"}) << length;
        expectStatus(inside + u"/g/h", {u"", std::nullopt, FailureNumber::pathNotFound});
    }
}

TEST(FileThatIsOpenElsewhere, IsPermissionDeniedWhenItIsNotShared) {
    const TemporaryFolder folder;
    const std::u16string path = folder.write("file", "four");
    const HANDLE other = ::CreateFileW(nativePath(path).c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr,
                                       OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(other, INVALID_HANDLE_VALUE);
    EXPECT_EQ(failureOf([&] { InputFile file(path); }), FailureNumber::permissionDenied);
    EXPECT_EQ(failureOf([&] { OutputFile file(path); }), FailureNumber::permissionDenied);
    EXPECT_EQ(fileLength(path), 4U); // the status needs no access
    ::CloseHandle(other);
    EXPECT_EQ(InputFile(path).length(), 4U);
}

TEST(InputFile, CanBeReadWhileAnotherProgramAppendsToIt) {
    const TemporaryFolder folder;
    const std::u16string path = folder.write("file", "four");
    const HANDLE other = ::CreateFileW(nativePath(path).c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr,
                                       OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(other, INVALID_HANDLE_VALUE);
    EXPECT_EQ(InputFile(path).length(), 4U);
    ::CloseHandle(other);
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

TEST(InputFile, RefusesDevicesThatCouldBlock) {
    EXPECT_EQ(failureOf([] { InputFile file(u"NUL"); }), FailureNumber::deviceIoError);
}

TEST(NameThatWindowsDoesNotAllow, IsNotFound) {
    const TemporaryFolder folder;
    for (const std::u16string_view name : {u"a*b", u"a?b"}) {
        const std::u16string path = folder.text() + u"\\" + std::u16string(name);
        expectStatus(path, {u"", std::nullopt, FailureNumber::fileNotFound});
        EXPECT_EQ(failureOf([&] { static_cast<void>(listFolder(path)); }), FailureNumber::pathNotFound);
        EXPECT_EQ(failureOf([&] { OutputFile file(path); }), FailureNumber::fileNotFound);
    }
}

} // namespace
} // namespace brindlewick
