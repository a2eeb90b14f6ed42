// Files and folders as every system has them.
#include "platform/path_status.h"

namespace brindlewick::testing {
namespace {

namespace fs = std::filesystem;

TEST(Files, HaveOneStatusHoweverTheyAreAskedAndAreListed) {
    const TemporaryFolder folder;
    folder.write("file", "four");
    for (const char* name : {".hidden", "fixed", ".both", "folder/inside", ".folder/inside"})
        folder.write(name, "");
    for (const char* name : {"fixed", ".both"})
        fs::permissions(folder.path() / name, fs::perms::owner_read);
    folder.makeFolder("folder/empty");
    const auto text = [&](std::u16string_view name) { return joinedPath(folder.text(), name); };
    const std::u16string tooLong(5000, u'a');
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
        {tooLong, std::nullopt, FailureNumber::fileNotFound},
    };
    for (const Status& expected : cases)
        expectStatus(text(expected.name), expected);
    expectStatus(u"", {u"", std::nullopt, FailureNumber::fileNotFound});

    EXPECT_EQ(listed(folder.text()), (Shown{".both", ".folder/", ".hidden", "file", "fixed", "folder/"}));
    EXPECT_EQ(listed(folder.text("folder/empty")), Shown{});
    for (const std::u16string& noFolder :
         {text(u"missing"), text(u"file"), text(u"missing/below"), std::u16string()})
        EXPECT_EQ(failureOf([&] { static_cast<void>(listFolder(noFolder)); }), FailureNumber::pathNotFound);
}

TEST(Files, AreListedWithoutRegardToCaseAndOpenedByAnyName) {
    const TemporaryFolder folder;
    const Shown names = {" a", "A1", "a2", "B1", "\xC3\x84_1", "\xC3\xA4_2", "\xE6\x97\xA5"};
    for (const std::string& name : names)
        folder.write(name, name);
    EXPECT_EQ(listed(folder.text()), names);
    for (const std::string& name : names)
        EXPECT_EQ(bytesOf(folder.text(name)), name);
}

} // namespace
} // namespace brindlewick::testing
