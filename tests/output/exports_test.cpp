// The exports of the results table: what they show and ask, step by step, and the texts that they make.
#include "output/aligned_text.h"
#include "output/clipboard_text.h"
#include "output/comma_delimited_text.h"
#include "output/output_handlers.h"
#include "platform/failure.h"
#include "support/failure_of.h"
#include "support/scripted_user.h"
#include "support/temporary_folder.h"

namespace brindlewick::testing {
namespace {

class Exports : public ::testing::Test {
protected:
    TemporaryFolder folder;
    ScriptedUser user;
    ResultsTable table;
    OutputHandlers handlers{user, table};
    const ResultsListview view{table};
    const std::u16string out = folder.text("out.txt");

    Exports() {
        user.folder = folder.text();
        table.setColumns(true);
        add({u"x", u"unchecked"});
        table.setChecked(1, false);
    }
    /// Adds rows of the file; without one, the text is in the first column.
    void add(const std::vector<std::u16string>& texts, std::optional<std::u16string> file = u"a.json") {
        table.beginFile(file.value_or(u""));
        for (const std::u16string& text : texts)
            table.appendRow(table.store(text), file.has_value());
    }
};

constexpr const char* copied =
    "message: Results have been copied to the clipboard.\\r\\rClick a text area where you "
    "normally type and press Ctrl+V to paste the clipboard.\n";

TEST_F(Exports, AlignTheCheckedRows) {
    user.answers = {out, u"", out, u"No", out, u"Yes", folder.text("missing/out.txt")};
    while (!user.answers.empty())
        handlers.PushButton6_Click();
    EXPECT_EQ(user.takeTranscript(),
              R"(save: Save [Text Files (*.txt)|*.txt|All Files (*.*)|*.*|] -> ~/out.txt
pointer: hourglass
pointer: standard
summary: 1 row written
save: Save [Text Files (*.txt)|*.txt|All Files (*.*)|*.*|] -> (cancelled)
save: Save [Text Files (*.txt)|*.txt|All Files (*.*)|*.*|] -> ~/out.txt
question: Are you sure you wish to overwrite ~/out.txt ? -> No
save: Save [Text Files (*.txt)|*.txt|All Files (*.*)|*.*|] -> ~/out.txt
question: Are you sure you wish to overwrite ~/out.txt ? -> Yes
pointer: hourglass
pointer: standard
summary: 1 row written
save: Save [Text Files (*.txt)|*.txt|All Files (*.*)|*.*|] -> ~/missing/out.txt
pointer: hourglass
report: Path not found in Extract1.SaveListviewProperlySpaced
pointer: standard
summary: Not all rows were written
)");
    EXPECT_EQ(folder.read("out.txt"), "Filename\tResults  \t\r\na.json  \tx        \t\r\n");
}

TEST_F(Exports, SeparateAllRowsByCommasAndAskTwice) {
    user.answers = {u"", out, out, u"No", out, u"Yes", u"No"};
    while (!user.answers.empty())
        handlers.PushButton12_Click();
    const std::string commas = "Filename,Results,\r\na.json,x\r\na.json,unchecked\r\n";
    EXPECT_EQ(folder.read("out.txt"), commas);
    folder.write("out.txt", std::string(1000, '#')); // the file is replaced as a whole
    user.answers = {out, u"Yes", u"Yes"};
    handlers.PushButton12_Click();
    EXPECT_EQ(folder.read("out.txt"), commas);
    EXPECT_EQ(user.takeTranscript(),
              R"(save: Save [Text Files (*.txt)|*.txt|All Files (*.*)|*.*|] -> (cancelled)
save: Save [Text Files (*.txt)|*.txt|All Files (*.*)|*.*|] -> ~/out.txt
pointer: hourglass
pointer: standard
summary: 2 rows written
save: Save [Text Files (*.txt)|*.txt|All Files (*.*)|*.*|] -> ~/out.txt
question: Are you sure you wish to overwrite ~/out.txt ? -> No
save: Save [Text Files (*.txt)|*.txt|All Files (*.*)|*.*|] -> ~/out.txt
question: Are you sure you wish to overwrite ~/out.txt ? -> Yes
pointer: hourglass
question: Are you sure you wish to overwrite ~/out.txt ? -> No
pointer: standard
save: Save [Text Files (*.txt)|*.txt|All Files (*.*)|*.*|] -> ~/out.txt
question: Are you sure you wish to overwrite ~/out.txt ? -> Yes
pointer: hourglass
question: Are you sure you wish to overwrite ~/out.txt ? -> Yes
pointer: standard
summary: 2 rows written
)");
}

TEST_F(Exports, CopyTheCheckedRows) {
    handlers.PushButton11_Click();
    table.setChecked(0, false);
    handlers.PushButton11_Click();
    handlers.PushButton9_Click(); // clears the rows, so the clipboard is not changed
    handlers.PushButton11_Click();
    EXPECT_EQ(table.columns().size(), 2u);
    const std::string empty = "pointer: hourglass\nclipboard: \npointer: standard\nsummary: 0 rows copied\n";
    EXPECT_EQ(user.takeTranscript(),
              "pointer: hourglass\nclipboard: a.json\\tx\\r\\n\npointer: standard\nsummary: 1 row copied\n" +
                  std::string(copied) + empty + copied +
                  "pointer: hourglass\npointer: standard\nsummary: 0 rows copied\n" + copied);

    struct : ScriptedUser {
        void setClipboardText(std::u16string_view) override { throw Failure(FailureNumber::deviceIoError); }
    } locked;
    add({u"x"});
    OutputHandlers(locked, table).PushButton11_Click();
    EXPECT_EQ(locked.takeTranscript(),
              "pointer: hourglass\nreport: Device I/O error in Form1.PushButton11_Click\n"
              "pointer: standard\nsummary: Nothing was copied\n" +
                  std::string(copied));
}

TEST_F(Exports, PadWithBlanksAndReplaceWhatTheCharacterSetLacks) {
    add({u" \u20AC\u00E9\u0416", u"a,\"b\"\tc", u"ends in blanks  ", u""}, u"a file.json");
    add({u"no file name, so the first column"}, std::nullopt);
    add({u"z"}, u"");
    SaveListviewProperlySpaced(user, view, out, nullptr);
    EXPECT_EQ(folder.read("out.txt"), "Filename                         \tResults         \t\r\n"
                                      "a.json                           \tx               \t\r\n"
                                      "a file.json                      \t \x80\xE9?            \t\r\n"
                                      "a file.json                      \ta,\"b\"\tc         \t\r\n"
                                      "a file.json                      \tends in blanks  \t\r\n"
                                      "a file.json                      \t                \t\r\n"
                                      "no file name, so the first column\t                \t\r\n"
                                      "                                 \tz               \t\r\n");
    SaveListviewAsCommaDelimToFile(user, view, folder.text("commas"), nullptr);
    EXPECT_EQ(folder.read("commas"),
              "Filename,Results,\r\na.json,x\r\na.json,unchecked\r\na file.json, \x80\xE9?\r\n"
              "a file.json,a,\"b\"\tc\r\na file.json,ends in blanks  \r\na file.json,\r\n"
              "no file name, so the first column,\r\n,z\r\n");
    EXPECT_EQ(clipboardText(user, view).text, u"a.json                           \tx\r\n"
                                              u"a file.json                      \t \u20AC\u00E9\u0416\r\n"
                                              u"a file.json                      \ta,\"b\"\tc\r\n"
                                              u"a file.json                      \tends in blanks\r\n"
                                              u"a file.json                      \t\r\n"
                                              u"no file name, so the first column\t\r\n"
                                              u"                                 \tz\r\n");
    static_cast<void>(user.takeTranscript());
    CopyRowsToClipboard(user, view, {});
    const RowRange ranges[] = {{1, 2}, {6, 6}}; // checked or not
    CopyRowsToClipboard(user, view, ranges);
    EXPECT_EQ(user.takeTranscript(),
              "clipboard: a.json\\tunchecked\\r\\na file.json\\t \u20AC\u00E9\u0416\\r\\n"
              "no file name, so the first column\\t\\r\\n\n");
}

TEST_F(Exports, OfOneColumnOrNoneHaveTheirOwnLines) {
    const struct {
        std::vector<std::u16string> rows;
        bool hasColumn;
        std::string aligned;
        std::string commas;
        std::u16string copy;
    } cases[] = {
        {{u"a ", u"bb"}, true, "Results\t\r\na      \t\r\nbb     \t\r\n", "a ,\r\nbb\r\n", u"a\r\nbb\r\n"},
        {{u"longer than that"},
         true,
         "Results         \t\r\nlonger than that\t\r\n",
         "longer than that\r\n",
         u"longer than that\r\n"},
        {{}, true, "Results\t\r\n", "", u""},
        {{}, false, "\r\n", "", u""},
    };
    for (const auto& one : cases) {
        table.clearAll();
        if (one.hasColumn)
            table.setColumns(false);
        add(one.rows, std::nullopt);
        SaveListviewProperlySpaced(user, view, out, nullptr);
        EXPECT_EQ(folder.read("out.txt"), one.aligned);
        std::filesystem::remove(folder.path() / "out.txt");
        SaveListviewAsCommaDelimToFile(user, view, out, nullptr);
        EXPECT_EQ(folder.read("out.txt"), one.commas);
        EXPECT_EQ(clipboardText(user, view).text, one.copy);
        std::filesystem::remove(folder.path() / "out.txt");
    }
}

TEST_F(Exports, OfManyRowsAreWholeAndShowEveryThousandth) {
    table.clearAll();
    table.setColumns(false);
    std::string expected;
    for (int row = 0; row < 40'000; ++row) {
        const std::string digits = std::to_string(row);
        add({std::u16string(digits.begin(), digits.end())}, std::nullopt);
        expected += digits + (row + 1 < 40'000 ? ",\r\n" : "\r\n");
    }
    user.answers = {out, out, u"Yes"};
    handlers.PushButton12_Click();
    EXPECT_TRUE(folder.read("out.txt") == expected);
    EXPECT_TRUE(user.takeTranscript().starts_with(
        "save: Save [Text Files (*.txt)|*.txt|All Files (*.*)|*.*|] -> ~/out.txt\npointer: hourglass\n"
        "progress: Writing rows, 2 %\nprogress: Writing rows, 5 %\n"));
    handlers.PushButton6_Click();
    handlers.PushButton11_Click();
    const std::string transcript = user.takeTranscript();
    EXPECT_NE(
        transcript.find("progress: Writing rows, 100 %\npointer: standard\nsummary: 40000 rows written\n"),
        transcript.npos);
    EXPECT_NE(transcript.find("progress: Copying rows, 100 %\nclipboard: 0\\r\\n1\\r\\n"), transcript.npos);
}

TEST_F(Exports, CopyNoTextThatIsTooLong) {
    add(std::vector<std::u16string>(200'000, u"y"));
    add({std::u16string(2'000'000, u'x')}); // the last column is not padded
    const std::u16string text = clipboardText(user, view).text;
    EXPECT_EQ(text.size(), 200'001u * 10 + 9 + 2'000'000);
    EXPECT_EQ(text.capacity(), text.size());
    static_cast<void>(user.takeTranscript());
    add({u"y"}, std::u16string(2'000'000, u'x'));
    EXPECT_EQ(failureOf([&] { CopyListviewToClipboard(user, view); }), FailureNumber::outOfMemory);
    EXPECT_EQ(user.takeTranscript(), ""); // fails before it builds anything
}

TEST_F(Exports, ToAFullDiskAreReportedOnce) {
    if (!std::filesystem::exists("/dev/full"))
        GTEST_SKIP() << "no device that is always full";
    // The short rows are written when the file is closed.
    for (const std::size_t length : {1u, 1u << 19}) {
        table.clearRows();
        add(std::vector<std::u16string>(3, std::u16string(length, u'x')));
        user.answers = {u"/dev/full", u"Yes", u"/dev/full", u"Yes", u"Yes"};
        handlers.PushButton6_Click();
        handlers.PushButton12_Click();
        const std::string save = "save: Save [Text Files (*.txt)|*.txt|All Files (*.*)|*.*|] -> /dev/full\n";
        const std::string question = "question: Are you sure you wish to overwrite /dev/full ? -> Yes\n";
        const std::string end = "pointer: standard\nsummary: Not all rows were written\n";
        EXPECT_EQ(user.takeTranscript(),
                  save + question +
                      "pointer: hourglass\nreport: Disk full in Extract1.SaveListviewProperlySpaced\n" + end +
                      save + question + "pointer: hourglass\n" + question +
                      "report: Disk full in Extract1.SaveListviewAsCommaDelimToFile\n" + end);
    }
}

TEST_F(Exports, MayLoseTheirRowsWhileEventsAreHandled) {
    std::size_t yields = 0;
    user.whenYielding = [&] {
        if (++yields == 6) // two columns of two rows are measured first
            table.clearRows();
    };
    SaveListviewProperlySpaced(user, view, out, nullptr);
    EXPECT_EQ(folder.read("out.txt"), "Filename\tResults  \t\r\na.json  \tx        \t\r\n");
    EXPECT_EQ(user.takeTranscript(), "pointer: hourglass\npointer: standard\nsummary: 1 row written\n");
}

TEST_F(Exports, MoveTheirIndicator) {
    struct Indicator : ProgressIndicator {
        explicit Indicator(ScriptedUser& theUser) : user(theUser) {}
        void setValue(int value) override { user.note("value: " + std::to_string(value)); }
        void setCaption(std::u16string_view caption) override { user.note("caption: " + toUtf8(caption)); }
        ScriptedUser& user;
    } indicator(user);
    // The value is set at the end of the aligned text alone, and for checked rows.
    SaveListviewProperlySpaced(user, view, out, &indicator);
    SaveListviewProperlySpaced(user, view, folder.text("missing/out"), &indicator);
    std::filesystem::remove(folder.path() / "out.txt");
    SaveListviewAsCommaDelimToFile(user, view, out, &indicator);
    SaveListviewAsCommaDelimToFile(user, view, folder.text("missing/out"), &indicator);
    EXPECT_EQ(user.takeTranscript(), R"(pointer: hourglass
caption: Writing file: out.txt
value: 50
value: 100
caption: Done.
pointer: standard
summary: 1 row written
pointer: hourglass
caption: Writing file: out
value: 0
caption: Progress Bar
report: Path not found in Extract1.SaveListviewProperlySpaced
value: 50
value: 100
caption: Done.
pointer: standard
summary: Not all rows were written
pointer: hourglass
caption: Writing file: out.txt
value: 50
value: 100
caption: Done.
pointer: standard
summary: 2 rows written
pointer: hourglass
caption: Writing file: out
caption: Progress Bar
report: Path not found in Extract1.SaveListviewAsCommaDelimToFile
value: 50
value: 100
caption: Done.
pointer: standard
summary: Not all rows were written
)");
    add(std::vector<std::u16string>(998, u"x"));
    SaveListviewProperlySpaced(user, view, folder.text("more"), &indicator);
    EXPECT_NE(user.takeTranscript().find(
                  "value: 100\ncaption: Writing file: more (1000)\nvalue: 100\ncaption: Done.\n"),
              std::string::npos);
}

} // namespace
} // namespace brindlewick::testing
