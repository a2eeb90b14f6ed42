// What a run does about changes while it goes on; its rows are in cases/*.cases.
#include "extract/extraction_run.h"

#include "support/fake_settings.h"
#include "support/scripted_user.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace brindlewick {
namespace {

using ::testing::HasSubstr;
using testing::TemporaryFolder;
using Rows = std::vector<std::u16string>;

class Run : public ::testing::Test {
protected:
    Rows extract(ExtractionMode mode) {
        options.chooseMode(mode);
        ExtractionRun(user, options, paths, tags, table).PushButton7_Click();
        Rows rows;
        for (std::size_t row = 0; row < table.rowCount(); ++row)
            rows.emplace_back(table.cell(row, 0));
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

TEST_F(Run, TakesTheModeWhenAPiecesRowsAreMade) {
    // Several pieces, in several stretches; what has been read ahead for the mode before is read again.
    std::string bytes;
    while (bytes.size() < 700000)
        bytes += R"({"a":1,"b":[2,{"c":3}]},)";
    add(bytes);
    tags = {u"c"};
    const Rows wanted = extract(ExtractionMode::all);
    user.whenYielding = [this] { options.chooseMode(ExtractionMode::all); };
    EXPECT_EQ(extract(ExtractionMode::entireLine), wanted);
}

TEST_F(Run, KeepsItsRowsWhenStopped) {
    for (int file = 0; file < 50; ++file)
        add(R"({"a":1} )");
    tags = {u"a"};
    user.whenYielding = [this] {
        if (table.rowCount() == 7)
            user.requestStop();
    };
    EXPECT_EQ(extract(ExtractionMode::valueWithoutTag), Rows(7, u"1 "));
    EXPECT_TRUE(
        user.takeTranscript().ends_with("summary: Stopped: 7 rows found; 7 of 50 files read to the end\n"
                                        "message: Done.\n"));
}

TEST_F(Run, NamesTheFileAtHandAndSumsUp) {
    user.folder = folder.text();
    add(R"({"a":1} )");
    paths.push_back(folder.text("gone.json"));
    add("");
    add(R"({"a":2} )" + std::string(70000, ' '));
    tags = {u"A", u"b"};
    extract(ExtractionMode::valueWithoutTag);
    EXPECT_EQ(user.takeTranscript(),
              R"(pointer: hourglass
progress: Extracting file 1 of 4, 0 rows so far: ~/0.json, 0 %
progress: Extracting file 2 of 4, 1 row so far: ~/gone.json, 25 %
report: File not found in Form1.PushButton7_Click
progress: Extracting file 3 of 4, 1 row so far: ~/2.json, 50 %
progress: Extracting file 4 of 4, 1 row so far: ~/3.json, 75 %
pointer: standard
summary: 2 rows found; 2 files read; 1 file is empty; 1 file could not be read; )"
              R"(1 long file without a UTF-8 mark was read in pieces, which may cut values
message: Done.
)");
    const std::pair<std::vector<std::u16string>, std::string_view> reasons[] = {
        {{}, "there are no tags; 1 file read"},
        {{u"x"}, "the tag does not occur; 1 file read"},
        {{u"x", u"y"}, "none of the 2 tags occurs; 1 file read"},
    };
    paths.clear();
    add(R"({"a":1} )");
    for (const auto& [theTags, reason] : reasons) {
        tags = theTags;
        extract(ExtractionMode::valueWithoutTag);
        EXPECT_THAT(user.takeTranscript(),
                    HasSubstr("summary: No rows found because " + std::string(reason) + "\nmessage"));
    }
    options.selectNone();
    ExtractionRun(user, options, paths, tags, table).PushButton7_Click();
    EXPECT_THAT(user.takeTranscript(),
                HasSubstr("; no mode is chosen, so values were extracted without tags"));
}

} // namespace
} // namespace brindlewick
