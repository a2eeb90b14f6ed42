// Memory that is refused once, at every place where it is asked for: the operation ends, says so, and the
// next one is none the worse.

#include "extract/extraction_run.h"
#include "lists/input_file_handlers.h"
#include "lists/list_file.h"
#include "output/aligned_text.h"
#include "output/clipboard_text.h"
#include "output/comma_delimited_text.h"
#include "platform/error_report.h"
#include "platform/files.h"
#include "platform/native_path.h"
#include "support/counting_user.h"
#include "support/fake_settings.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <cstddef>
#include <cstdlib>
#include <functional>
#include <limits>
#include <new>

namespace {

/// How many more allocations succeed before one fails; then all do again. Workers allocate too.
std::atomic<std::size_t> allocationsLeft = std::numeric_limits<std::size_t>::max();
std::atomic<bool> wasRefused = false;

void* allocate(std::size_t size) noexcept {
    if (allocationsLeft.fetch_sub(1) == 0) {
        wasRefused = true;
        return nullptr;
    }
    return std::malloc(std::max<std::size_t>(size, 1));
}

void* allocateOrThrow(std::size_t size) {
    if (void* const memory = allocate(size))
        return memory;
    throw std::bad_alloc();
}

} // namespace

// All forms without an alignment: a sanitizer has its own of each, and ends the program when memory of one
// set is given back to the other. The forms with an alignment are a set of their own, and no type here uses
// them.
#define BRINDLEWICK_REPLACE(NEW, DELETE)                                                                     \
    void* NEW(std::size_t size) {                                                                            \
        return allocateOrThrow(size);                                                                        \
    }                                                                                                        \
    void* NEW(std::size_t size, const std::nothrow_t&) noexcept {                                            \
        return allocate(size);                                                                               \
    }                                                                                                        \
    void DELETE(void* memory) noexcept {                                                                     \
        std::free(memory);                                                                                   \
    }                                                                                                        \
    void DELETE(void* memory, std::size_t) noexcept {                                                        \
        std::free(memory);                                                                                   \
    }                                                                                                        \
    void DELETE(void* memory, const std::nothrow_t&) noexcept {                                              \
        std::free(memory);                                                                                   \
    }
BRINDLEWICK_REPLACE(operator new, operator delete)
BRINDLEWICK_REPLACE(operator new[], operator delete[])

namespace brindlewick::testing {
namespace {

class RefusedMemory : public ::testing::Test {
protected:
    TemporaryFolder folder;
    CountingUser user;
    FakeSettings settings;
    const Guard guard{user, u"Tests.RefusedMemory"};

    /// Does `operation` with the first allocation refused, then with the second, and so on, until it needs no
    /// more. Each time it ends, reports at most that, and gives `result` again when it is done once more.
    void refuseEveryAllocation(const std::function<void()>& operation,
                               const std::function<std::string()>& result) {
        operation();
        const std::string whole = result();
        for (std::size_t place = 0; place < 20000; ++place) {
            SCOPED_TRACE(place);
            user.reports = user.reportsOfMemory = 0;
            wasRefused = false;
            allocationsLeft = place;
            operation();
            allocationsLeft = std::numeric_limits<std::size_t>::max();
            EXPECT_EQ(user.reports, user.reportsOfMemory);
            EXPECT_TRUE(user.reports > 0 || wasRefused || result() == whole);
            EXPECT_EQ(user.pointer, PointerShape::standard);
            EXPECT_FALSE(user.isBusy());
            operation();
            EXPECT_EQ(result(), whole);
            if (!wasRefused || HasFailure())
                return;
        }
        FAIL() << "the operation never came to an end";
    }
};

TEST_F(RefusedMemory, EndsARunWithTheRowsOfTheOtherFiles) {
    std::string many = "\xEF\xBB\xBF";
    for (int record = 0; record < 2000; ++record)
        many += "{\"name\":\"some text\",\"id\":1},\n";
    // The list comes last: what a run has seen of one changes the rows that follow.
    const std::string deep = "{\"name\":{\"name\":{\"a b\":1 \"name\":2 \"c\":3 \"d\":4 \"e\":5 \"f\":6 "
                             "\"g\":7 \"h\":8 \"i\":9}}}\n{\"name\":[1,2]}\n";
    const std::vector<std::u16string> paths = {folder.write("a.json", "{\"name\":1}\n"),
                                               folder.write("b.json", many), folder.write("c.json", deep)};
    const std::vector<std::u16string> tags = {u"name", u"id"};
    for (const auto mode : {ExtractionMode::valueAndTag, ExtractionMode::entireLine, ExtractionMode::all}) {
        ExtractionOptions options(settings);
        options.chooseMode(mode);
        ResultsTable table;
        ExtractionRun run(user, options, paths, tags, table);
        refuseEveryAllocation([&] { run.PushButton7_Click(); },
                              [&] { return std::to_string(table.rowCount()); });
        EXPECT_GE(table.rowCount(), 2U);
    }
}

TEST_F(RefusedMemory, EndsAScanAListFileAndALookAtAFile) {
    folder.write("tree/one/a.json", "{}");
    folder.write("tree/two/a long name, which needs memory.json", "{}");
    const std::u16string list =
        folder.write("list.txt", "first path\r\nsecond path\r\nthird path, a long one\r\n");
    const std::vector<std::u16string> dropped = {folder.text("tree")};
    const FilesOfFolder folderTwo(withSeparator(folder.text("tree/two")));
    TextList files;
    InputFileHandlers handlers(user, settings, files);
    bool isMissed = false; // a file that exists, without a report
    refuseEveryAllocation(
        [&] {
            guard([&] { files.clear(); });
            handlers.ListView1_OLEDragDrop(dropped);
            guard([&] { ReadListFile(user, list, files); });
            bool exists = false;
            if (guard([&] { exists = folderTwo.status(u"a long name, which needs memory.json").exists; }))
                isMissed = isMissed || !exists;
        },
        [&] { return std::to_string(files.size()) + (isMissed ? " files, one missed" : " files"); });
    EXPECT_EQ(files.size(), 5U);
}

TEST_F(RefusedMemory, EndsTheOutputs) {
    ResultsTable table;
    table.setColumns(true);
    table.beginFile(u"/data/a file.json");
    for (int row = 0; row < 100; ++row)
        table.appendRow(table.store(u"a text of some length"), true);
    const ResultsListview view(table);
    const std::u16string aligned = folder.text("aligned.txt");
    const std::u16string commas = folder.text("commas.txt");
    refuseEveryAllocation(
        [&] {
            SaveListviewProperlySpaced(user, view, aligned, nullptr);
            SaveListviewAsCommaDelimToFile(user, view, commas, nullptr);
            guard([&] { CopyListviewToClipboard(user, view); });
        },
        [&] { return folder.read("aligned.txt") + folder.read("commas.txt"); });
    EXPECT_GT(folder.read("commas.txt").size(), 3000U);
}

} // namespace
} // namespace brindlewick::testing
