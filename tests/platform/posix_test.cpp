// What only POSIX systems have: links, pipes, names of any bytes, and files that change while a run reads
// them.
#include "extract/extraction_run.h"
#include "lists/scanned_tree.h"
#include "output/aligned_text.h"
#include "platform/path_status.h"

#include <algorithm>
#include <csignal>
#include <fcntl.h>
#include <fstream>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace brindlewick::testing {
namespace {

namespace fs = std::filesystem;

TEST(LinksAndPipes, AreLookedAtListedAndOpened) {
    const TemporaryFolder folder;
    folder.write("file", "four");
    folder.write("folder/inside", "");
    fs::create_symlink("file", folder.path() / "fileLink");
    fs::create_symlink("folder", folder.path() / "folderLink");
    fs::create_symlink("nowhere", folder.path() / "deadLink");
    fs::create_symlink("circle", folder.path() / "circle");
    ::mkfifo((folder.path() / "pipe").c_str(), 0600);
    const Status cases[] = {
        {u"fileLink", 32},
        {u"folderLink", 1046},
        {u"folderLink/", 1046},
        {u"pipe", 0},
        {u"deadLink", std::nullopt, FailureNumber::fileNotFound},
        {u"circle", std::nullopt, FailureNumber::deviceIoError},
    };
    for (const Status& expected : cases)
        expectStatus(folder.text() + u"/" + expected.name, expected);
    EXPECT_EQ(listed(folder.text()),
              (Shown{"circle", "deadLink", "file", "fileLink", "folder/", "folderLink/@", "pipe"}));
    EXPECT_EQ(listed(folder.text("folderLink")), Shown{"inside"});
    std::string bytes(3, '\0');
    EXPECT_EQ(InputFile(folder.text("pipe")).readAt(0, bytes), 0U); // does not wait for a writer
}

TEST(Names, OfAnyBytesAreListedAndOpened) {
    const TemporaryFolder folder;
    const Shown names = {" ", "...", "A",  "a",        "a\nb",     "a\\b",
                         "B", "b",   "b.", "\xC3\x84", "\xC3\xA4", "\xFF"};
    for (const std::string& name : names)
        std::ofstream(folder.path() / name) << name;
    EXPECT_EQ(listed(folder.text()), names);
    for (const FolderEntry& entry : listFolder(folder.text()))
        EXPECT_EQ(bytesOf(folder.text() + u"/" + entry.name), nativePath(entry.name).native());
}

TEST(Scan, DoesNotFollowLinks) {
    Tree tree({"a/x.json", "b/y.json", "b/sub/z.json"});
    fs::create_directory_symlink(tree.folder.path(), tree.folder.path() / "a/up");
    fs::create_directory_symlink("../b", tree.folder.path() / "a/side");
    fs::create_symlink("x.json", tree.folder.path() / "a/file.json");
    fs::create_symlink("nowhere", tree.folder.path() / "a/dangling.json");
    EXPECT_EQ(tree.scan({"."}), (Names{"a/file.json", "a/x.json", "b/y.json", "b/sub/z.json"}));
    for (const char* start : {"a/side", "a/side/"}) // listed, but not its subfolders
        EXPECT_EQ(tree.scan({start}), Names{"a/side/y.json"});
}

TEST(Pipes, TakeAnExportAsFastAsTheyAreRead) {
    const TemporaryFolder folder;
    const std::string path = (folder.path() / "pipe").string();
    ASSERT_EQ(::mkfifo(path.c_str(), 0600), 0);
    ResultsTable table;
    table.setColumns(false);
    table.beginFile(u"");
    for (int row = 0; row < 2; ++row) // each is more than a pipe takes at once
        table.appendRow(table.store(std::u16string(300'000, u'x')), false);
    ScriptedUser user;
    const auto outcome = [&] {
        SaveListviewProperlySpaced(user, ResultsListview(table), folder.text("pipe"), nullptr);
        return user.takeTranscript();
    };
    const std::string start = "pointer: hourglass\n";
    const std::string failure =
        "report: Device I/O error in Extract1.SaveListviewProperlySpaced\npointer: standard\nsummary: ";
    EXPECT_EQ(outcome(), start + failure + "Not all rows were written\n"); // nobody reads it

    int reader = ::open(path.c_str(), O_RDONLY | O_NONBLOCK);
    std::string bytes(1 << 20, '\0');
    std::size_t count = 0;
    const auto read = [&] {
        count += static_cast<std::size_t>(std::max<ssize_t>(0, ::read(reader, bytes.data(), bytes.size())));
    };
    user.whenYielding = read;
    EXPECT_EQ(outcome(), start + "pointer: standard\nsummary: 2 rows written; file: " + path + "\n");
    read();
    EXPECT_EQ(count, 3U * 300'003); // with the header

    std::size_t yields = 0;
    user.whenYielding = [&] { // the reader pauses for ever
        if (++yields == 10)
            user.requestStop();
    };
    EXPECT_EQ(outcome(), start + failure + "Stopped: not all rows were written\n");

    std::signal(SIGPIPE, SIG_IGN); // as the program does
    user.whenYielding = [&] { ::close(std::exchange(reader, -1)); };
    EXPECT_EQ(outcome(), start + failure + "Not all rows were written\n");
}

/// A run over a file between two good ones.
class OddFiles : public ::testing::Test {
protected:
    const std::string record = "{\"name\":\"some text\"},\n";
    TemporaryFolder folder;
    ScriptedUser user;
    ResultsTable table;

    /// The number of rows; those of the other files must be there, and nothing is reported.
    std::size_t rowsAround(const std::u16string& path) {
        const std::vector<std::u16string> paths = {folder.write("1.json", record), path,
                                                   folder.write("3.json", record)};
        const std::vector<std::u16string> tags = {u"name"};
        FakeSettings settings;
        ExtractionOptions options(settings);
        options.chooseMode(ExtractionMode::entireLine);
        ExtractionRun(user, options, paths, tags, table).PushButton7_Click();
        EXPECT_EQ(table.cell(table.rowCount() - 1, 0), u"{\"name\":\"some text\"}");
        const std::string transcript = user.takeTranscript();
        EXPECT_EQ(transcript.find("report"), transcript.npos);
        EXPECT_TRUE(transcript.ends_with("\nmessage: Done.\n"));
        return table.rowCount();
    }
};

TEST_F(OddFiles, ArePassedOver) {
    const std::string pipe = (folder.path() / "pipe").string();
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    folder.write("sparse", "");
    fs::resize_file(folder.path() / "sparse", 200'000'000); // takes no memory
    for (const std::u16string& path :
         {folder.text("pipe"), std::u16string(u"/dev/zero"), folder.text("sparse")})
        EXPECT_EQ(rowsAround(path), 2U);
    const int writer = ::open(pipe.c_str(), O_RDWR | O_NONBLOCK);
    ASSERT_EQ(::write(writer, record.data(), record.size()), static_cast<ssize_t>(record.size()));
    EXPECT_EQ(rowsAround(folder.text("pipe")), 2U);
    ::close(writer);
}

TEST_F(OddFiles, ThatChangeWhileTheyAreReadEndWhereTheyEnd) {
    constexpr std::size_t records = 50000;
    std::string bytes = "\xEF\xBB\xBF";
    for (std::size_t left = records; left > 0; --left)
        bytes += record;
    const fs::path file = folder.path() / "long.json";
    const std::function<void()> changes[] = {
        [&] { fs::remove(file); },
        [&] { fs::resize_file(file, bytes.size() / 2); },
        [&] { fs::resize_file(file, 0); },
        [&] { std::ofstream(file, std::ios::app) << record; },
    };
    for (const auto& change : changes) {
        const std::u16string path = folder.write("long.json", bytes);
        std::size_t yields = 0;
        user.whenYielding = [&] {
            if (++yields == 20)
                change();
        };
        const std::size_t rows = rowsAround(path);
        EXPECT_GT(rows, 1000U); // what was read before the change
        EXPECT_LE(rows, records + 3);
    }
}

} // namespace
} // namespace brindlewick::testing
