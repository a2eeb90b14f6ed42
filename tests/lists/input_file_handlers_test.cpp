// The buttons and gestures of the input file list, with a user who answers from a queue.
#include "lists/input_file_handlers.h"

#include "support/fake_settings.h"
#include "support/fake_user.h"
#include "support/own_separator.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace brindlewick {
namespace {

using namespace std::literals;
using testing::own;
using Texts = std::vector<std::u16string>;
using Shapes = std::vector<PointerShape>;

class InputFiles : public ::testing::Test {
protected:
    testing::TemporaryFolder folder;
    testing::FakeUser user;
    testing::FakeSettings settings;
    TextList files;
    InputFileHandlers handlers{user, settings, files};

    std::u16string at(std::string_view name) const { return folder.text(name); }
    void expectOneReport(std::u16string_view description, std::u16string_view location) const {
        ASSERT_EQ(user.errors.size(), 1u);
        EXPECT_TRUE(user.errors[0].starts_with(std::u16string(description) + u"\r\n" +
                                               std::u16string(location) + u" at line "));
    }
};

TEST_F(InputFiles, ChosenFilesAreAppended) {
    user.filesToOpen = {u"C:\\\\x\\\\one.json", own(u"C:/d\0a\\\\b.json\0c.json"s), u"", u"/d/same.json",
                        u"/d/same.json"};
    for (int press = 0; press < 5; ++press)
        handlers.PushButton1_Click();
    EXPECT_EQ(files.texts(), (Texts{u"C:\\\\x\\\\one.json", own(u"C:/d/a\\b.json"), own(u"C:/d/c.json"),
                                    u"/d/same.json", u"/d/same.json"}));
    EXPECT_EQ(user.dialogTitles.front(), u"Add File(s) - Hold Ctrl to select multiple files");
    EXPECT_EQ(user.dialogFilters.front(), u"All Files (*.json)|*.json|");
    EXPECT_TRUE(user.messages.empty());
}

TEST_F(InputFiles, ASelectionOf260UnitsIsTooMuch) {
    user.filesToOpen = {std::u16string(260, u'a'), std::u16string(259, u'a')};
    handlers.PushButton1_Click();
    EXPECT_TRUE(files.empty());
    EXPECT_EQ(user.messages, Texts{u"You've selected too many files to add.\r\rPlease try adding via the "
                                   u"\"Add All\" button."});
    handlers.PushButton1_Click();
    EXPECT_EQ(files.size(), 1u);
}

TEST_F(InputFiles, AFolderIsScannedWithTheExtensionAnswered) {
    folder.write("a.json", "");
    folder.write("b/c/d.json", "");
    folder.write("e.txt", "");
    user.textAnswers = {u"json", u"*"};
    user.folders = {folder.text(), folder.text() + pathSeparator};
    std::vector<bool> busy;
    user.whenYielding = [&] { busy.push_back(user.pointer() == PointerShape::hourglass); };

    handlers.PushButton5_Click();
    EXPECT_EQ(files.texts(), (Texts{at("a.json"), at("b/c/d.json")}));
    EXPECT_EQ(user.prompts,
              (Texts{u"Enter file extension to load:\r\r(* for all files, txt for all txt files, "
                     u"doc for all doc files, etc.)",
                     u"Please select folder:"}));
    EXPECT_EQ(user.proposedAnswers, (Texts{u"json", u""}));
    EXPECT_EQ(user.pointerShapes, (Shapes{PointerShape::hourglass, PointerShape::standard}));
    EXPECT_FALSE(busy.empty());
    EXPECT_EQ(std::count(busy.begin(), busy.end(), false), 0);
    EXPECT_EQ(user.summaries, Texts{u"2 files added"});
    EXPECT_EQ(settings.values.at(u"Extension"), u"json");
    EXPECT_EQ(settings.values.at(u"LastFolder"), folder.text());

    files.clear();
    handlers.PushButton5_Click();
    EXPECT_EQ(files.texts(), (Texts{at("a.json"), at("e.txt"), at("b/c/d.json")}));
    EXPECT_EQ(user.proposedAnswers[2], u"json");
    EXPECT_EQ(user.proposedAnswers[3], folder.text());
    EXPECT_EQ(settings.values.at(u"Extension"), u"*");
}

TEST_F(InputFiles, ACancelledQuestionStopsBeforeTheNext) {
    handlers.PushButton5_Click();
    EXPECT_EQ(user.prompts.size(), 1u);
    EXPECT_TRUE(settings.values.empty());
    user.textAnswers = {u"xml"};
    handlers.PushButton5_Click();
    EXPECT_EQ(settings.values.size(), 1u);
    EXPECT_EQ(settings.values.at(u"Extension"), u"xml");
    EXPECT_TRUE(user.pointerShapes.empty());
    EXPECT_TRUE(files.empty());
}

TEST_F(InputFiles, AScanGoesOnWhenASettingCannotBeSaved) {
    folder.write("a.json", "");
    settings.failureWhenSaving = FailureNumber::diskFull;
    user.textAnswers = {u"json"};
    user.folders = {folder.text()};
    handlers.PushButton5_Click();
    ASSERT_EQ(user.errors.size(), 2u);
    EXPECT_TRUE(
        user.errors[0].starts_with(u"Disk full\r\nin Corvane2021/08/31.Form1.PushButton5_Click at line "));
    EXPECT_EQ(files.texts(), Texts{at("a.json")});
    EXPECT_EQ(user.pointer(), PointerShape::standard);
}

TEST_F(InputFiles, ListFilesAreReadInOrder) {
    const std::u16string one = folder.write("1.txt", "/a\\\\b.json\r\n\r\n");
    folder.write("2.txt", "c\nd");
    user.filesToOpen = {folder.text() + u"\0002.txt\0none.txt\0001.txt"s, u""};
    handlers.PushButton16_Click();
    EXPECT_EQ(files.texts(), (Texts{u"c", u"d", u"/a\\\\b.json", u""}));
    EXPECT_EQ(user.messages,
              (Texts{u"File should look like:\rC:\\test\\1.xml\rC:\\test\\2.xml\retc.", u"File not found"}));
    EXPECT_EQ(user.dialogTitles, Texts{u"Add File(s) - Hold Ctrl to select multiple files"});
    EXPECT_EQ(user.dialogFilters, Texts{u"All Files (*.*)|*.*|"});
    handlers.PushButton16_Click();
    EXPECT_EQ(files.size(), 4u);
}

TEST_F(InputFiles, AListFileThatFailsDoesNotKeepTheNextFromBeingRead) {
    folder.write("sub.txt/x", "");
    folder.write("2.txt", "c");
    user.filesToOpen = {folder.text() + u"\0sub.txt\0002.txt"s};
    handlers.PushButton16_Click();
    EXPECT_EQ(files.texts(), Texts{u"c"});
    expectOneReport(u"Permission denied", u"in Corvane2021/08/31.Form1.PushButton16_Click");
}

TEST_F(InputFiles, ALongSelectionOfListFilesIsNoTrouble) {
    const std::string name(250, 'n');
    folder.write(name, "x");
    user.filesToOpen = {at(name)};
    ASSERT_GE(user.filesToOpen.front().size(), 260u);
    handlers.PushButton16_Click();
    EXPECT_EQ(files.texts(), Texts{u"x"});
}

TEST_F(InputFiles, ADropTakesFoldersAndFilesInItsOrder) {
    folder.write("A/f.json", "");
    folder.write("A/x/f", "");
    folder.write("A/~f", "");
    folder.write("B/f", "");
    handlers.ListView1_OLEDragDrop({u"/none\\\\a.json", at("A"), at("A/~f"), at("B")});
    EXPECT_EQ(files.texts(), (Texts{u"/none\\\\a.json", at("A/f.json"), at("A/x/f"), at("A/~f"),
                                    at("A/f.json"), at("A/x/f"), at("B/f"), at("A/x/f")}));
    EXPECT_EQ(user.pointerShapes, (Shapes{PointerShape::hourglass, PointerShape::standard}));
    EXPECT_EQ(user.summaries, Texts{u"8 files added"});
    // The collection belongs to one drop.
    files.clear();
    handlers.ListView1_OLEDragDrop({at("B")});
    EXPECT_EQ(files.texts(), Texts{at("B/f")});
}

TEST_F(InputFiles, ADropDuringAnOperationLeavesTheHourglass) {
    folder.write("A/f", "");
    user.setPointer(PointerShape::hourglass);
    handlers.ListView1_OLEDragDrop({at("A"), u"/b"});
    EXPECT_EQ(files.texts(), (Texts{at("A/f"), u"/b"}));
    EXPECT_EQ(user.pointerShapes, Shapes{PointerShape::hourglass});
}

TEST_F(InputFiles, RowsAreRemoved) {
    for (const char16_t* name : {u"a", u"b", u"c"})
        files.append(name);
    handlers.ListView1_DblClick(std::nullopt);
    handlers.ListView1_DblClick(1);
    EXPECT_EQ(files.texts(), (Texts{u"a", u"c"}));
    handlers.PushButton14_Click();
    EXPECT_TRUE(files.empty());
    handlers.ListView1_DblClick(0);
    EXPECT_TRUE(user.errors.empty());
    files.append(u"a");
    handlers.ListView1_DblClick(1);
    expectOneReport(u"Subscript out of range", u"in Corvane2021/08/31.Form1.ListView1_DblClick");
}

TEST_F(InputFiles, NothingHappensWhileAnOperationIsUnderWay) {
    files.append(u"a");
    user.setPointer(PointerShape::hourglass);
    user.filesToOpen = {u"/b"};
    user.textAnswers = {u"json"};
    handlers.PushButton1_Click();
    handlers.PushButton5_Click();
    handlers.PushButton16_Click();
    handlers.PushButton14_Click();
    handlers.ListView1_DblClick(0);
    EXPECT_EQ(files.texts(), Texts{u"a"});
    EXPECT_TRUE(user.messages.empty());
    EXPECT_TRUE(user.prompts.empty());
    EXPECT_EQ(user.filesToOpen.size(), 1u);
}

} // namespace
} // namespace brindlewick
