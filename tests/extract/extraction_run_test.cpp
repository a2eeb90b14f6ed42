#include "extract/extraction_run.h"

#include "platform/text_encoding.h"
#include "support/fake_settings.h"
#include "support/fake_user.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

namespace brindlewick {
namespace {

using testing::FakeUser;
using testing::TemporaryFolder;
using Rows = std::vector<std::string>;

class Run : public ::testing::Test {
protected:
    Rows extract(ExtractionMode mode, bool withFilename = false) {
        options.chooseMode(mode);
        options.setIncludeFilename(withFilename);
        ExtractionRun(user, options, paths, tags, table).PushButton7_Click();
        Rows rows;
        for (std::size_t row = 0; row < table.rowCount(); ++row) {
            std::string text = toUtf8(table.cell(row, 0));
            if (table.columns().size() == 2)
                text += "|" + toUtf8(table.cell(row, 1));
            rows.push_back(text);
        }
        return rows;
    }
    void add(std::string_view bytes) {
        paths.push_back(folder.write(std::to_string(paths.size()) + ".json", bytes));
    }

    TemporaryFolder folder;
    FakeUser user;
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
    EXPECT_EQ(user.messages, std::vector<std::u16string>{u"No files added."});
    EXPECT_EQ(table.rowCount(), 1U);
    EXPECT_TRUE(user.pointerShapes.empty());
}

TEST_F(Run, GivesARowForEveryFragmentAndMatchingTag) {
    add(R"({"id":1,"name":"Bo","other":{"Name":"x"}})"
        "\n");
    tags = {u"name", u"NAME", u"zzz"};
    EXPECT_EQ(extract(ExtractionMode::valueAndTag),
              (Rows{"name :Bo ", "name :Bo ", "other Name :x ", "other Name :x "}));
    EXPECT_EQ(extract(ExtractionMode::valueWithoutTag), (Rows{"Bo ", "Bo ", "x ", "x "}));
    EXPECT_EQ(extract(ExtractionMode::none), (Rows{"Bo ", "Bo ", "x ", "x "}));
    EXPECT_EQ(extract(ExtractionMode::entireLine),
              (Rows{R"({"name":"Bo"})", R"({"name":"Bo"})", R"({"other":{"Name":"x"}})",
                    R"({"other":{"Name":"x"}})"}));
    EXPECT_EQ(extract(ExtractionMode::all), (Rows{"id name other Name ", "1 Bo x "}));
    EXPECT_TRUE(user.errors.empty());
    EXPECT_EQ(user.messages.back(), u"Done.");
    EXPECT_EQ(
        user.pointerShapes,
        (std::vector<PointerShape>{PointerShape::hourglass, PointerShape::standard, PointerShape::hourglass,
                                   PointerShape::standard, PointerShape::hourglass, PointerShape::standard,
                                   PointerShape::hourglass, PointerShape::standard, PointerShape::hourglass,
                                   PointerShape::standard}));
}

TEST_F(Run, TakesTheFirstTagsPassOverTheFirstArrayAsBeforeIt) {
    add(R"({"a":1 "b":[2]} )");
    add(R"({"b":1} )");
    tags = {u"b", u"a", u"zzz", u"B"};
    EXPECT_EQ(
        extract(
            ExtractionMode::valueWithoutTag), // none of the second file: after an array a lone value is lost
        (Rows{"1,b 2 ", "1 b 2 ", "1 b 2 "}));
}

TEST_F(Run, PutsTheFileNameInTheFirstColumn) {
    add(R"({"a":"x"} )");
    tags = {u""};
    EXPECT_EQ(extract(ExtractionMode::valueAndTag, true), Rows{toUtf8(paths[0]) + "|a :x "});
    EXPECT_EQ(extract(ExtractionMode::all, true), (Rows{toUtf8(paths[0]) + "|a ", toUtf8(paths[0]) + "|x "}));
}

TEST_F(Run, ReadsTheFlagForEveryRow) {
    add(R"({"a":"x"} )");
    add(R"({"b":"y"} )");
    tags = {u""};
    user.whenYielding = [this] { options.setIncludeFilename(table.rowCount() > 0); };
    EXPECT_EQ(extract(ExtractionMode::valueWithoutTag, true), (Rows{"x |", toUtf8(paths[1]) + "|y "}));
}

TEST_F(Run, GivesTwoRowsAFileInMode4FromItsLastPiece) {
    add(R"({"a":1})" + std::string(65536, ' ') + R"({"b":2} )");
    add("");
    add("no JSON at all");
    tags = {u"anything"};
    EXPECT_EQ(extract(ExtractionMode::all), (Rows{"b ", "2 ", "oJSONatall ", " "}));
}

TEST_F(Run, ReportsAMissingFirstTagOnceInMode4) {
    add(R"({"a":1,"b":2} )");
    add(R"({"c":3} )");
    EXPECT_EQ(extract(ExtractionMode::all), (Rows{"a b ", "1 2 ", "c ", "3 "}));
    ASSERT_EQ(user.errors.size(), 1U);
    EXPECT_TRUE(user.errors[0].starts_with(
        u"Subscript out of range\r\nin Corvane2021/08/31.Form1.PushButton7_Click at line "));
    EXPECT_TRUE(extract(ExtractionMode::entireLine).empty()); // no tag, no pass, no failure
    EXPECT_EQ(user.errors.size(), 1U);
}

TEST_F(Run, ReportsABadFileOnceAndGoesOn) {
    paths = {folder.text("missing.json"), folder.text()};
    add(R"({"a":1} )");
    tags = {u"a"};
    for (const ExtractionMode mode : {ExtractionMode::valueWithoutTag, ExtractionMode::all}) {
        user.errors.clear();
        EXPECT_EQ(extract(mode).back(), "1 ");
        ASSERT_EQ(user.errors.size(), 2U);
        EXPECT_TRUE(user.errors[0].starts_with(u"File not found\r\n"));
        EXPECT_TRUE(user.errors[1].starts_with(u"Permission denied\r\n"));
        EXPECT_EQ(user.messages.back(), u"Done.");
    }
}

TEST_F(Run, ReportsAFragmentThatGrowsTooLargeAndGoesOn) {
    std::string hostile;
    for (int level = 0; level < 50000; ++level)
        hostile += "{x";
    add("\xEF\xBB\xBF{\"a\":\"" + hostile + R"(","b":2} )");
    tags = {u"a", u"b"};
    EXPECT_EQ(extract(ExtractionMode::valueAndTag), Rows{"b :2 "});
    ASSERT_EQ(user.errors.size(), 1U);
    EXPECT_TRUE(user.errors[0].starts_with(u"Out of memory\r\n"));
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
        user.yields = 0;
        extract(ExtractionMode::entireLine);
        EXPECT_GT(user.yields, 10U);
    }
}

TEST_F(Run, ToleratesAListThatShrinksMeanwhile) {
    add(R"({"a":1} )");
    add(R"({"a":2} )");
    tags = {u"a"};
    user.whenYielding = [this] { paths.resize(1); };
    EXPECT_EQ(extract(ExtractionMode::valueWithoutTag), Rows{"1 "});
    ASSERT_EQ(user.errors.size(), 1U);
    EXPECT_TRUE(user.errors[0].starts_with(u"Subscript out of range\r\n"));
}

} // namespace
} // namespace brindlewick
