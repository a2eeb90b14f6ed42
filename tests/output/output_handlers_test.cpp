// The buttons under the results table: dialogs, questions, pointer and reports.
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
        table.appendRow(table.store(u"unticked"), true);
        table.setChecked(1, false);
    }
    void press(Button button) { (handlers.*button)(); }
};

constexpr const char* aligned = "Filename\tResults \t\r\na.json  \tx       \t\r\n";
constexpr const char* commas = "Filename,Results,\r\na.json,x\r\na.json,unticked\r\n";

struct SaveCase {
    const char* rule;
    Button button;
    const char* there; ///< the file's bytes before, nullptr without a file
    std::deque<bool> answers;
    std::size_t questions;
    const char* expected; ///< the file's bytes after
};

class SaveButton : public OutputButtons, public ::testing::WithParamInterface<SaveCase> {};

TEST_P(SaveButton, AsksAndWrites) {
    const SaveCase& expected = GetParam();
    const std::u16string path = folder.text("out.txt");
    if (expected.there != nullptr)
        folder.write("out.txt", expected.there);
    user.filesToSave = {path};
    user.yesNoAnswers = expected.answers;
    user.whenYielding = [&] { press(clear); }; // ignored, for a file is being written
    press(expected.button);
    EXPECT_EQ(folder.read("out.txt"), expected.expected);
    EXPECT_EQ(user.questions.size(), expected.questions);
    EXPECT_THAT(user.questions, Each(u"Are you sure you wish to overwrite " + path + u" ?"));
    EXPECT_THAT(user.dialogTitles, ElementsAre(u"Save"));
    EXPECT_THAT(user.dialogFilters, ElementsAre(u"Text Files (*.txt)|*.txt|All Files (*.*)|*.*|"));
    EXPECT_EQ(user.pointer(), PointerShape::standard);
    EXPECT_TRUE(user.messages.empty() && user.errors.empty());
}

INSTANTIATE_TEST_SUITE_P(
    Rules, SaveButton,
    ::testing::Values(SaveCase{"AlignedNew", saveAligned, nullptr, {}, 0, aligned},
                      SaveCase{"AlignedYes", saveAligned, "old", {true}, 1, aligned},
                      SaveCase{"AlignedNo", saveAligned, "old", {false}, 1, "old"},
                      SaveCase{"CommasNew", saveCommas, nullptr, {}, 0, commas},
                      SaveCase{"CommasYesYes", saveCommas, "old", {true, true}, 2, commas},
                      SaveCase{"CommasYesNo", saveCommas, "old", {true, false}, 2, "old"},
                      SaveCase{"CommasNo", saveCommas, "old", {false}, 1, "old"}),
    [](const auto& test) { return test.param.rule; });

TEST_F(OutputButtons, DoNothingWhenCancelledOrBusyAndTakeTheHourglassBackAfterAFailure) {
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
    user.setPointer(PointerShape::hourglass);
    for (const Button button : {saveAligned, saveCommas, copy, clear})
        press(button);
    EXPECT_EQ(user.dialogTitles.size(), 4u);
    EXPECT_TRUE(user.messages.empty() && user.clipboardTexts.empty());
    EXPECT_EQ(table.rowCount(), 2u);
}

constexpr std::u16string_view copiedMessage =
    u"Results have been copied to the clipboard.\r\rClick a text area "
    u"where you normally type and press Ctrl+V to "
    u"paste the clipboard.";

TEST_F(OutputButtons, CopyTakesTickedRowsAndClearLeavesTheColumns) {
    press(copy);
    table.setChecked(0, false);
    press(copy);
    press(clear);
    EXPECT_EQ(table.rowCount(), 0u);
    EXPECT_EQ(table.columns().size(), 2u);
    press(copy); // leaves what is on the clipboard
    EXPECT_THAT(user.clipboardTexts, ElementsAre(u"a.json\tx\r\n", u""));
    EXPECT_THAT(user.messages, ElementsAre(copiedMessage, copiedMessage, copiedMessage));
    EXPECT_THAT(user.summaries, ElementsAre(u"1 row copied", u"0 rows copied", u"0 rows copied"));
    EXPECT_THAT(std::vector(user.pointerShapes.begin(), user.pointerShapes.begin() + 2),
                ElementsAre(PointerShape::hourglass, PointerShape::standard));
}

TEST_F(OutputButtons, CopyReportsAClipboardThatCannotBeHadAndGoesOn) {
    struct : FakeUser {
        void setClipboardText(std::u16string_view) override {
            throw Failure(FailureNumber::permissionDenied);
        }
    } locked;
    OutputHandlers(locked, table).PushButton11_Click();
    ASSERT_EQ(locked.errors.size(), 1u);
    EXPECT_TRUE(locked.errors[0].starts_with(
        u"Permission denied\r\nin Corvane2021/08/31.Form1.PushButton11_Click at line "));
    EXPECT_THAT(locked.messages, ElementsAre(copiedMessage));
    EXPECT_THAT(locked.summaries, ElementsAre(u"Nothing was copied"));
    EXPECT_EQ(locked.pointer(), PointerShape::standard);
}

} // namespace
} // namespace brindlewick::testing
