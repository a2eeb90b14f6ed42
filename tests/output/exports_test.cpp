// The exports of the results table: what they show and ask, step by step, and the texts that they make.
#include "output/aligned_text.h"
#include "output/clipboard_text.h"
#include "output/comma_delimited_text.h"
#include "output/output_handlers.h"
#include "platform/failure.h"
#include "platform/text.h"
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

TEST_F(Exports, AskAndWrite) {
    folder.write("out.txt", std::string(1000, '#')); // the file is replaced as a whole
    user.answers = {u"", out, u"No", out, u"Yes", folder.text("missing/out.txt")};
    while (!user.answers.empty())
        handlers.PushButton6_Click();
    EXPECT_EQ(folder.read("out.txt"), "Filename\tResults  \t\r\na.json  \tx        \t\r\n");
    user.answers = {u"", out, u"No", out, u"Yes", u"No", out, u"Yes", u"Yes"};
    while (!user.answers.empty())
        handlers.PushButton12_Click();
    EXPECT_EQ(folder.read("out.txt"), "Filename,Results,\r\na.json,x\r\na.json,unchecked\r\n");
    EXPECT_EQ(user.takeTranscript(),
              R"(save: Save [Text Files (*.txt)|*.txt|All Files (*.*)|*.*|] -> (cancelled)
save: Save [Text Files (*.txt)|*.txt|All Files (*.*)|*.*|] -> ~/out.txt
question: Are you sure you wish to overwrite ~/out.txt ? -> No
save: Save [Text Files (*.txt)|*.txt|All Files (*.*)|*.*|] -> ~/out.txt
question: Are you sure you wish to overwrite ~/out.txt ? -> Yes
pointer: hourglass
pointer: standard
summary: 1 row written; 1 row left out because it is not ticked; file: ~/out.txt
save: Save [Text Files (*.txt)|*.txt|All Files (*.*)|*.*|] -> ~/missing/out.txt
pointer: hourglass
report: Path not found in Extract1.SaveListviewProperlySpaced
pointer: standard
summary: Not all rows were written
save: Save [Text Files (*.txt)|*.txt|All Files (*.*)|*.*|] -> (cancelled)
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
summary: 2 rows written; file: ~/out.txt
)");
}

TEST_F(Exports, CopyTheCheckedRows) {
    const std::string copied =
        "message: Results have been copied to the clipboard.\\r\\rClick a text area where you "
        "normally type and press Ctrl+V to paste the clipboard.\n";
    handlers.PushButton11_Click();
    handlers.PushButton9_Click(); // clears the rows, so the clipboard is not changed
    handlers.PushButton11_Click();
    EXPECT_EQ(table.columns().size(), 2u);
    add({u"x"});
    struct : ScriptedUser {
        void setClipboardText(std::u16string_view) override { throw Failure(FailureNumber::deviceIoError); }
    } locked;
    OutputHandlers(locked, table).PushButton11_Click();
    EXPECT_EQ(user.takeTranscript() + locked.takeTranscript(),
              "pointer: hourglass\nclipboard: a.json\\tx\\r\\n\npointer: standard\nsummary: 1 row copied; 1 "
              "row left out because it is not ticked\n" +
                  copied +
                  "pointer: hourglass\npointer: standard\nsummary: No rows copied because there are none\n" +
                  copied +
                  "pointer: hourglass\nreport: Device I/O error in Form1.PushButton11_Click\n"
                  "pointer: standard\nsummary: Nothing was copied\n" +
                  copied);
}

TEST_F(Exports, PadWithBlanksAndReplaceWhatTheCharacterSetLacks) {
    add({u" \u20AC\u0416", u"ends in blank ", u""}, u"a file");
    add({u"no file name"}, std::nullopt);
    SaveListviewProperlySpaced(user, view, out, nullptr);
    EXPECT_EQ(folder.read("out.txt"),
              "Filename    \tResults       \t\r\na.json      \tx             \t\r\n"
              "a file      \t \x80?           \t\r\na file      \tends in blank \t\r\n"
              "a file      \t              \t\r\nno file name\t              \t\r\n");
    SaveListviewAsCommaDelimToFile(user, view, folder.text("commas"), nullptr);
    EXPECT_EQ(folder.read("commas"), "Filename,Results,\r\na.json,x\r\na.json,unchecked\r\na file, \x80?\r\n"
                                     "a file,ends in blank \r\na file,\r\nno file name,\r\n");
    static_cast<void>(user.takeTranscript());
    CopyListviewToClipboard(user, view);
    CopyRowsToClipboard(user, view, {});
    const RowRange ranges[] = {{1, 2}, {5, 5}}; // checked or not
    CopyRowsToClipboard(user, view, ranges);
    EXPECT_EQ(user.takeTranscript(),
              "clipboard: a.json      \\tx\\r\\na file      \\t \u20AC\u0416\\r\\na file      \\tends in "
              "blank\\r\\n"
              "a file      \\t\\r\\nno file name\\t\\r\\n\n"
              "clipboard: a.json\\tunchecked\\r\\na file\\t \u20AC\u0416\\r\\nno file name\\t\\r\\n\n");
}

TEST_F(Exports, OfOneColumnOrNoneHaveTheirOwnLines) {
    const struct {
        std::vector<std::u16string> rows;
        bool hasColumn;
        std::string aligned;
        std::string commas;
        std::u16string copy;
    } cases[] = {{{u"a ", u"more than the header"},
                  true,
                  "Results             \t\r\na                   \t\r\nmore than the header\t\r\n",
                  "a ,\r\nmore than the header\r\n",
                  u"a\r\nmore than the header\r\n"},
                 {{u"a"}, true, "Results\t\r\na      \t\r\n", "a\r\n", u"a\r\n"},
                 {{}, true, "Results\t\r\n", "", u""},
                 {{}, false, "\r\n", "", u""}};
    for (const auto& one : cases) {
        table.clearAll();
        if (one.hasColumn)
            table.setColumns(false);
        add(one.rows, std::nullopt);
        const TemporaryFolder empty;
        SaveListviewProperlySpaced(user, view, empty.text("aligned"), nullptr);
        SaveListviewAsCommaDelimToFile(user, view, empty.text("commas"), nullptr);
        EXPECT_EQ(empty.read("aligned"), one.aligned);
        EXPECT_EQ(empty.read("commas"), one.commas);
        EXPECT_EQ(clipboardText(user, view).text, one.copy);
    }
}

TEST_F(Exports, OfManyRowsAreWholeAndShowEveryThousandth) {
    table.clearAll();
    table.setColumns(false);
    std::string expected;
    for (int row = 1; row <= 40'000; ++row) {
        add({decimalText(row)}, std::nullopt);
        expected += std::to_string(row) + (row < 40'000 ? ",\r\n" : "\r\n");
    }
    SaveListviewAsCommaDelimToFile(user, view, out, nullptr);
    EXPECT_TRUE(folder.read("out.txt") == expected);
    EXPECT_TRUE(user.takeTranscript().starts_with(
        "pointer: hourglass\nprogress: Writing row 1,000 of 40,000: ~/out.txt, 2 %\n"
        "progress: Writing row 2,000 of 40,000: ~/out.txt, 5 %\n"));
    handlers.PushButton11_Click();
    EXPECT_NE(user.takeTranscript().find(
                  "progress: Copying row 40,000 of 40,000, 100 %\nclipboard: 1\\r\\n2\\r\\n"),
              std::string::npos);
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
    for (const std::size_t length : {1u, 1u << 19}) { // a short row is written when the file is closed
        add({2, std::u16string(length, u'x')});
        SaveListviewProperlySpaced(user, view, u"/dev/full", nullptr);
        EXPECT_EQ(user.takeTranscript(),
                  "pointer: hourglass\nreport: Disk full in Extract1.SaveListviewProperlySpaced\n"
                  "pointer: standard\nsummary: Not all rows were written\n");
    }
}

TEST_F(Exports, SayHowManyCharactersTheCharacterSetLacks) {
    table.clearRows();
    // A pair is one character; a question mark and the euro sign are in the set.
    add({u"?\u20AC\u0416?", u"\U0001F600\xDE00", u"\xD83D",
         u"more than a block \u0416" + std::u16string(20, u'\u0416')});
    SaveListviewAsCommaDelimToFile(user, view, out, nullptr);
    EXPECT_EQ(folder.read("out.txt"),
              "Filename,Results,\r\na.json,?\x80??\r\na.json,???\r\na.json,?\r\na.json,more than a block " +
                  std::string(21, '?') + "\r\n");
    EXPECT_EQ(user.takeTranscript(),
              "pointer: hourglass\npointer: standard\n"
              "summary: 4 rows written; 25 characters written as \"?\"; file: ~/out.txt\n");
}

TEST_F(Exports, EndWhereTheyAreStopped) {
    table.setChecked(1, true);
    const auto stopAt = [&](std::size_t yield) {
        user.whenYielding = [&, left = yield]() mutable {
            if (--left == 0)
                user.requestStop();
        };
    };
    const std::string end = "pointer: hourglass\npointer: standard\nsummary: Stopped: ";
    stopAt(4); // two columns of two rows are measured first
    SaveListviewProperlySpaced(user, view, out, nullptr);
    EXPECT_FALSE(std::filesystem::exists(folder.path() / "out.txt"));
    EXPECT_EQ(user.takeTranscript(), end + "no file was written\n");
    stopAt(5);
    SaveListviewProperlySpaced(user, view, out, nullptr);
    EXPECT_EQ(folder.read("out.txt"), "Filename\tResults  \t\r\na.json  \tx        \t\r\n");
    EXPECT_EQ(user.takeTranscript(), end + "1 of 2 rows written; file: ~/out.txt\n");
    for (std::size_t yield = 1; yield <= 6; ++yield) { // of one measured column and two more passes
        stopAt(yield);
        handlers.PushButton11_Click();
        EXPECT_EQ(user.takeTranscript(), end + "nothing was copied\n");
    }
}

} // namespace
} // namespace brindlewick::testing
