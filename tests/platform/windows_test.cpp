// What only Windows has: folders that are hidden or protected, long paths, shares, locked files.
#include "lists/folder_rules.h"
#include "lists/scanned_tree.h"
#include "platform/path_status.h"

#include <windows.h>

namespace brindlewick::testing {
namespace {

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
    EXPECT_TRUE(isRootFolder(u"C:\\") && !isRootFolder(u"C:"));
}

TEST(LongPath, IsReadWrittenAndListedOnADriveAndOnAShare) {
    const TemporaryFolder folder;
    const std::u16string onDrive = folder.text();
    // Windows shares every drive with administrators; wine.sh does so under Wine.
    const std::u16string onShare = u"\\\\localhost\\" + onDrive.substr(0, 1) + u"$" + onDrive.substr(2);
    for (const std::u16string& root : {onDrive, onShare}) {
        if (!IsFolder(root))
            GTEST_SKIP() << "the drive is not shared";
        // Around each of the two limits, and well above them.
        for (const std::size_t length : {246u, 247u, 248u, 249u, 259u, 260u, 261u, 2000u}) {
            std::string name;
            while (root.size() + name.size() + 103 < length)
                name += std::string(99, 'd') + "/";
            name += std::string(length - root.size() - name.size() - 3, 'e');
            folder.makeFolder(name);
            const std::u16string inside = root + folder.text(name).substr(onDrive.size());
            const std::u16string path = inside + u"/f";
            ASSERT_EQ(path.size(), length);
            {
                OutputFile file(path);
                EXPECT_EQ(file.write("four"), 4U);
                file.close();
            }
            EXPECT_EQ(fileLength(path), 4U) << length;
            EXPECT_EQ(InputFile(path).length(), 4U) << length;
            EXPECT_TRUE(IsFolder(inside)) << length;
            EXPECT_EQ(listed(inside), Shown{"f"}) << length;
            expectStatus(inside + u"/g/h", {u"", std::nullopt, FailureNumber::pathNotFound});
        }
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

} // namespace
} // namespace brindlewick::testing
