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

TEST_F(Run, ReadsTheFlagForEveryRow) {
    add(R"({"a":"x"} )");
    add(R"({"b":"y"} )");
    tags = {u""};
    user.whenYielding = [this] { options.setIncludeFilename(table.rowCount() > 0); };
    EXPECT_EQ(extract(ExtractionMode::valueWithoutTag, true), (Rows{u"x ", u"", paths[1], u"y "}));
}

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
    EXPECT_TRUE(user.takeTranscript().ends_with("message: Done.\n"));
}

} // namespace
} // namespace brindlewick
