// What a run does about changes while it goes on; its rows are in cases/*.cases.
#include "extract/extraction_run.h"

#include "support/fake_settings.h"
#include "support/scripted_user.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

namespace brindlewick {
namespace {

using testing::TemporaryFolder;
using Rows = std::vector<std::u16string>;

class Run : public ::testing::Test {
protected:
    Rows extract(ExtractionMode mode, bool withFilename = false) {
        options.chooseMode(mode);
        options.setIncludeFilename(withFilename);
        ExtractionRun(user, options, paths, tags, table).PushButton7_Click();
        Rows rows;
        for (std::size_t row = 0; row < table.rowCount(); ++row)
            for (std::size_t column = 0; column < table.columns().size(); ++column)
                rows.emplace_back(table.cell(row, column));
        return rows;
    }
    void add(std::string_view bytes) {
        paths.push_back(folder.write(std::to_string(paths.size()) + ".json", bytes));
    }

    TemporaryFolder folder;
    testing::ScriptedUser user;
    testing::FakeSettings settings;
    ExtractionOptions options{settings};
    std::vector<std::u16string> paths;
    std::vector<std::u16string> tags;
    ResultsTable table;
};

TEST_F(Run, WithoutFilesLeavesTheTableAsItWas) {
    table.setColumns(true);
    table.beginFile(u"f");
    table.appendRow(table.store(u"old"), true);
    extract(ExtractionMode::all);
    EXPECT_EQ(user.takeTranscript(), "message: No files added.\n");
    EXPECT_EQ(table.rowCount(), 1U);
}

TEST_F(Run, ReadsTheFlagForEveryRow) {
    add(R"({"a":"x"} )");
    add(R"({"b":"y"} )");
    tags = {u""};
    user.whenYielding = [this] { options.setIncludeFilename(table.rowCount() > 0); };
    EXPECT_EQ(extract(ExtractionMode::valueWithoutTag, true), (Rows{u"x ", u"", paths[1], u"y "}));
}

TEST_F(Run, LetsEventsThroughInsideALongFragment) {
    std::string list = "\xEF\xBB\xBF[";
    std::string object = "\xEF\xBB\xBF{";
    for (int value = 0; value < 400000; ++value) {
        list += "1,";
        object += "k" + std::to_string(value) + ":1 ";
    }
    tags = {u"no such tag"};
    for (const std::string& fragment : {list + "1]\n", object + "}\n"}) {
        paths.clear();
        add(fragment);
        std::size_t yields = 0;
        user.whenYielding = [&] { ++yields; };
        extract(ExtractionMode::entireLine);
        EXPECT_GT(yields, 10U);
    }
}

TEST_F(Run, ToleratesAListThatShrinksMeanwhile) {
    add(R"({"a":1} )");
    add(R"({"a":2} )");
    tags = {u"a"};
    user.whenYielding = [this] { paths.resize(1); };
    EXPECT_EQ(extract(ExtractionMode::valueWithoutTag), Rows{u"1 "});
    EXPECT_EQ(user.takeTranscript(), R"(pointer: hourglass
progress: Extracting: file 1 of 2, 0 rows, 0 %
report: Subscript out of range in Form1.PushButton7_Click
progress: Extracting: file 2 of 2, 1 rows, 50 %
pointer: standard
summary: 1 rows found
message: Done.
)");
}

} // namespace
} // namespace brindlewick
