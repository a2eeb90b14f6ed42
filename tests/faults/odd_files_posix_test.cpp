// Files that are no files, and files that change while they are read: the run ends, says what went wrong, and
// keeps the rows of all others.

#include "extract/extraction_run.h"
#include "support/fake_settings.h"
#include "support/fake_user.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <functional>
#include <sys/stat.h>
#include <unistd.h>

namespace brindlewick {
namespace {

using testing::FakeSettings;
using testing::FakeUser;
using testing::TemporaryFolder;

const std::string record = "{\"name\":\"some text\"},\n";
constexpr std::size_t recordsOfALongFile = 50000;

class OddFiles : public ::testing::Test {
protected:
    /// Runs over `path` between two good files.
    void runAround(const std::u16string& path) {
        const std::vector<std::u16string> paths = {folder.write("before.json", record), path,
                                                   folder.write("after.json", record)};
        const std::vector<std::u16string> tags = {u"name"};
        FakeSettings settings;
        ExtractionOptions options(settings);
        options.chooseMode(ExtractionMode::entireLine);
        ExtractionRun run(user, options, paths, tags, table);
        run.PushButton7_Click();
        ASSERT_GE(table.rowCount(), 2U);
        EXPECT_EQ(table.cell(0, 0), u"{\"name\":\"some text\"}");
        EXPECT_EQ(table.cell(table.rowCount() - 1, 0), u"{\"name\":\"some text\"}");
        EXPECT_EQ(user.messages, std::vector<std::u16string>{u"Done."});
    }
    std::string path(const char* name) const { return (folder.path() / name).string(); }

    TemporaryFolder folder;
    FakeUser user;
    ResultsTable table;
};

TEST_F(OddFiles, APipeIsPassedOver) {
    ASSERT_EQ(::mkfifo(path("pipe").c_str(), 0600), 0);
    runAround(folder.text("pipe"));
    EXPECT_EQ(table.rowCount(), 2U);
    EXPECT_TRUE(user.errors.empty());
}

TEST_F(OddFiles, APipeThatSomebodyHasWrittenToIsPassedOver) {
    ASSERT_EQ(::mkfifo(path("pipe").c_str(), 0600), 0);
    const int writer = ::open(path("pipe").c_str(), O_RDWR | O_NONBLOCK);
    ASSERT_EQ(::write(writer, record.data(), record.size()), static_cast<ssize_t>(record.size()));
    runAround(folder.text("pipe"));
    ::close(writer);
    EXPECT_EQ(table.rowCount(), 2U);
}

TEST_F(OddFiles, ADeviceThatNeverEndsIsPassedOver) {
    runAround(u"/dev/zero");
    EXPECT_EQ(table.rowCount(), 2U);
}

TEST_F(OddFiles, WhatIsNoReadableFileGivesOneReport) {
    std::filesystem::create_directory(folder.path() / "folder");
    std::filesystem::create_symlink("loop", folder.path() / "loop");
    for (const auto& [name, report] :
         {std::pair("folder", u"Permission denied"), std::pair("missing", u"File not found"),
          std::pair("no folder/file", u"Path not found"), std::pair("loop", u"Device I/O error")}) {
        user = FakeUser();
        runAround(folder.text(name));
        EXPECT_EQ(table.rowCount(), 2U) << name;
        ASSERT_EQ(user.errors.size(), 1U) << name;
        EXPECT_TRUE(user.errors[0].starts_with(report)) << name;
    }
}

TEST_F(OddFiles, AFileThatChangesWhileItIsReadEndsWhereItEnds) {
    std::string bytes = "\xEF\xBB\xBF";
    for (std::size_t left = recordsOfALongFile; left > 0; --left)
        bytes += record;
    const std::function<void()> changes[] = {
        [&] { std::filesystem::remove(folder.path() / "long.json"); },
        [&] { std::filesystem::resize_file(folder.path() / "long.json", bytes.size() / 2); },
        [&] { std::filesystem::resize_file(folder.path() / "long.json", 0); },
        [&] { std::ofstream(folder.path() / "long.json", std::ios::app) << record; },
    };
    for (const auto& change : changes) {
        user = FakeUser();
        const std::u16string longFile = folder.write("long.json", bytes);
        std::size_t yields = 0;
        user.whenYielding = [&] {
            if (++yields == 20)
                change();
        };
        runAround(longFile);
        EXPECT_TRUE(user.errors.empty());
        EXPECT_GT(table.rowCount(), 1000U); // what was read before the change
        EXPECT_LE(table.rowCount(), recordsOfALongFile + 3);
    }
}

TEST_F(OddFiles, ASparseFileTakesNoMemory) {
    folder.write("sparse.json", "");
    std::filesystem::resize_file(folder.path() / "sparse.json", 200'000'000);
    runAround(folder.text("sparse.json"));
    EXPECT_EQ(table.rowCount(), 2U);
}

} // namespace
} // namespace brindlewick
