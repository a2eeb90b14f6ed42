// The buttons under the results table: dialogs, questions, pointer and error reports.
#include "output/output_handlers.h"

#include "platform/failure.h"
#include "support/fake_user.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>

namespace brindlewick::testing {
namespace {

using ::testing::Each;
using ::testing::ElementsAre;

using Button = void (OutputHandlers::*)();
constexpr Button saveAligned = &OutputHandlers::PushButton6_Click;
constexpr Button saveCommas = &OutputHandlers::PushButton12_Click;
constexpr Button copy = &OutputHandlers::PushButton11_Click;
constexpr Button clear = &OutputHandlers::PushButton9_Click;

struct OutputButtons : ::testing::Test {
    TemporaryFolder folder;
    FakeUser user;
    ResultsTable table;
    OutputHandlers handlers{user, table};

    OutputButtons() {
        table.setColumns(true);
        table.beginFile(u"a.json");
        table.appendRow(table.store(u"x"), true);
        table.appendRow(table.store(u"unchecked"), true);
        table.setChecked(1, false);
    }
    void press(Button button) { (handlers.*button)(); }
};

constexpr const char* aligned = "Filename\tResults  \t\r\na.json  \tx        \t\r\n";
constexpr const char* commas = "Filename,Results,\r\na.json,x\r\na.json,unchecked\r\n";

TEST_F(OutputButtons, AskAndWrite) {
    const std::optional<std::string> noFile;
    const struct {
        Button button;
        std::optional<std::string> there;
        std::deque<bool> answers;
        std::size_t questions;
        std::string expected;
    } cases[] = {
        {saveAligned, noFile, {}, 0, aligned},        {saveAligned, "old", {true}, 1, aligned},
        {saveAligned, "old", {false}, 1, "old"},      {saveCommas, noFile, {}, 0, commas},
        {saveCommas, "old", {true, true}, 2, commas}, {saveCommas, "old", {true, false}, 2, "old"},
        {saveCommas, "old", {false}, 1, "old"},
    };
    user.whenYielding = [&] { EXPECT_TRUE(user.isBusy()); };
    std::size_t questions = 0;
    for (const auto& one : cases) {
        const std::u16string path = folder.text("out.txt");
        std::filesystem::remove(folder.path() / "out.txt");
        if (one.there)
            folder.write("out.txt", *one.there);
        user.filesToSave = {path};
        user.yesNoAnswers = one.answers;
        press(one.button);
        EXPECT_EQ(folder.read("out.txt"), one.expected);
        EXPECT_EQ(user.questions.size(), questions += one.questions);
        EXPECT_THAT(user.questions, Each(u"Are you sure you wish to overwrite " + path + u" ?"));
        EXPECT_EQ(user.pointer(), PointerShape::standard);
        EXPECT_FALSE(user.isBusy());
    }
    EXPECT_THAT(user.dialogTitles, Each(u"Save"));
    EXPECT_THAT(user.dialogFilters, Each(u"Text Files (*.txt)|*.txt|All Files (*.*)|*.*|"));
    EXPECT_TRUE(user.messages.empty() && user.errors.empty());
}

TEST_F(OutputButtons, DoNothingWhenCancelledAndRestoreThePointerAfterAFailure) {
    for (const Button button : {saveAligned, saveCommas})
        press(button);
    EXPECT_EQ(user.dialogTitles.size(), 2u);
    EXPECT_TRUE(user.questions.empty() && user.pointerShapes.empty() && user.summaries.empty());
    for (const Button button : {saveAligned, saveCommas}) {
        user.filesToSave = {folder.text("missing/out.txt")};
        user.pointerShapes.clear();
        press(button);
        EXPECT_THAT(user.pointerShapes, ElementsAre(PointerShape::hourglass, PointerShape::standard));
    }
    EXPECT_EQ(user.errors.size(), 2u);
    EXPECT_FALSE(user.isBusy());
}

constexpr std::u16string_view copiedMessage =
    u"Results have been copied to the clipboard.\r\rClick a text area "
    u"where you normally type and press Ctrl+V to "
    u"paste the clipboard.";

TEST_F(OutputButtons, CopyUsesCheckedRowsAndClearKeepsTheColumns) {
    press(copy);
    table.setChecked(0, false);
    press(copy);
    press(clear);
    EXPECT_EQ(table.rowCount(), 0u);
    EXPECT_EQ(table.columns().size(), 2u);
    press(copy); // does not change the clipboard
    EXPECT_THAT(user.clipboardTexts, ElementsAre(u"a.json\tx\r\n", u""));
    EXPECT_THAT(user.messages, ElementsAre(copiedMessage, copiedMessage, copiedMessage));
    EXPECT_THAT(user.summaries, ElementsAre(u"1 row copied", u"0 rows copied", u"0 rows copied"));
    EXPECT_THAT(std::vector(user.pointerShapes.begin(), user.pointerShapes.begin() + 2),
                ElementsAre(PointerShape::hourglass, PointerShape::standard));
}

TEST_F(OutputButtons, CopyReportsAnUnavailableClipboardAndContinues) {
    struct : FakeUser {
        void setClipboardText(std::u16string_view) override {
            throw Failure(FailureNumber::permissionDenied);
        }
    } locked;
    OutputHandlers(locked, table).PushButton11_Click();
    EXPECT_TRUE(locked.hasOneReport(u"Permission denied", u"Form1.PushButton11_Click"));
    EXPECT_THAT(locked.messages, ElementsAre(copiedMessage));
    EXPECT_THAT(locked.summaries, ElementsAre(u"Nothing was copied"));
    EXPECT_EQ(locked.pointer(), PointerShape::standard);
}

} // namespace
} // namespace brindlewick::testing
