// The buttons and gestures of the input file list, with a FakeUser that answers from queues.
#include "lists/input_file_handlers.h"

#include "lists/text_lists.h"
#include "platform/busy_scope.h"
#include "support/fake_settings.h"
#include "support/fake_user.h"
#include "support/own_separator.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

namespace brindlewick {
namespace {

using namespace std::literals;
using testing::own;
using testing::Texts;
using Shapes = std::vector<PointerShape>;

class InputFiles : public ::testing::Test {
protected:
    testing::TemporaryFolder folder;
    testing::FakeUser user;
    testing::FakeSettings settings;
    TextList files;
    InputFileHandlers handlers{user, settings, files};

    std::u16string at(std::string_view name) const { return folder.text(name); }
};

TEST_F(InputFiles, ChosenFilesAreAppended) {
    const std::pair<std::u16string, Texts> selections[] = {
        // "/" is replaced by the system's separator
        {u"", {}},
        {u"/d/a.json", {u"/d/a.json"}},
        {uR"(C:\\d\\a.json)", {uR"(C:\\d\\a.json)"}},
        {u"C:/d\0b\0a\0b"s, {u"C:/d/b", u"C:/d/a", u"C:/d/b"}},
        {u"C:/\0a\0b"s, {u"C:/a", u"C:/b"}},
        {u"C:/x\\\\y\0a\\\\b\0c"s, {u"C:/x\\y/a\\b", u"C:/x\\y/c"}},
        {u"C:/d\0"s, {u"C:/d/"}},
        {std::u16string(260, u'a'), {}},
        {std::u16string(259, u'a'), {std::u16string(259, u'a')}},
    };
    Texts expected;
    for (const auto& [selection, paths] : selections) {
        user.filesToOpen = {own(selection)};
        handlers.PushButton1_Click();
        for (const std::u16string& path : paths)
            expected.push_back(own(path));
        EXPECT_EQ(files.texts(), expected);
    }
    EXPECT_EQ(user.dialogTitles.at(0), u"Add File(s) - Hold Ctrl to select multiple files");
    EXPECT_EQ(user.dialogFilters.at(0), u"All Files (*.json)|*.json|");
    EXPECT_EQ(user.messages, Texts{u"You've selected too many files to add.\r\rPlease try adding via the "
                                   u"\"Add All\" button."});
}

TEST_F(InputFiles, AFolderIsScannedWithTheExtensionAnswered) {
    folder.write("a.json", "");
    folder.write("b/c/d.txt", "");
    user.textAnswers = {u"json", u"*", u"xml"};
    user.folders = {folder.text(), folder.text() + pathSeparator};
    user.whenYielding = [&] { EXPECT_EQ(user.pointer(), PointerShape::hourglass); };
    for (int press = 0; press < 4;
         ++press) // the third is cancelled at the folder, the fourth at the extension
        handlers.PushButton5_Click();
    EXPECT_EQ(files.texts(), (Texts{at("a.json"), at("a.json"), at("b/c/d.txt")}));
    EXPECT_EQ(user.prompts.at(0),
              u"Enter file extension to load:\r\r(* for all files, txt for all txt files, "
              u"doc for all doc files, etc.)");
    EXPECT_EQ(user.prompts.at(1), u"Please select folder:");
    EXPECT_EQ(user.proposedAnswers,
              (Texts{u"json", u"", u"json", folder.text(), u"*", folder.text() + pathSeparator, u"xml"}));
    EXPECT_EQ(user.pointerShapes, (Shapes{PointerShape::hourglass, PointerShape::standard,
                                          PointerShape::hourglass, PointerShape::standard}));
    EXPECT_EQ(user.summaries, (Texts{u"1 file added", u"2 files added"}));
    EXPECT_EQ(settings.values.size(), 2u); // "Extension" and "LastFolder", as proposed above
}

TEST_F(InputFiles, AScanGoesOnWhenASettingCannotBeSaved) {
    folder.write("a.json", "");
    settings.failureWhenSaving = FailureNumber::diskFull;
    user.textAnswers = {u"json"};
    user.folders = {folder.text()};
    handlers.PushButton5_Click();
    ASSERT_EQ(user.errors.size(), 2u);
    user.errors.pop_back();
    EXPECT_TRUE(user.hasOneReport(u"Disk full", u"Form1.PushButton5_Click"));
    EXPECT_EQ(files.texts(), Texts{at("a.json")});
    EXPECT_EQ(user.pointer(), PointerShape::standard);
}

TEST_F(InputFiles, ListFilesAreReadInOrderWithoutALimitOnTheSelection) {
    const std::string longName(250, 'n');
    folder.write("1.txt", "/a\\\\b.json\r\n\r\n");
    folder.write(longName, "c\nd");
    folder.write("sub.txt/x", "");
    user.filesToOpen = {folder.text() + u"\0sub.txt\0none.txt\0001.txt"s, at(longName), u""};
    for (int press = 0; press < 3; ++press)
        handlers.PushButton16_Click();
    EXPECT_EQ(files.texts(), (Texts{u"/a\\\\b.json", u"", u"c", u"d"}));
    const std::u16string message = u"File should look like:\rC:\\test\\1.xml\rC:\\test\\2.xml\retc.";
    EXPECT_EQ(user.messages, (Texts{message, u"File not found", message, message}));
    EXPECT_EQ(user.dialogTitles.at(0), u"Add File(s) - Hold Ctrl to select multiple files");
    EXPECT_EQ(user.dialogFilters.at(0), u"All Files (*.*)|*.*|");
    EXPECT_TRUE(user.hasOneReport(u"Permission denied", u"Form1.PushButton16_Click"));
}

TEST_F(InputFiles, ADropAppendsFoldersAndFilesInItsOrder) {
    for (const char* name : {"A/f.json", "A/x/f", "A/~f", "B/f"})
        folder.write(name, "");
    handlers.ListView1_OLEDragDrop({u"/none\\\\a.json", at("A"), at("A/~f"), at("B")});
    EXPECT_EQ(files.texts(), (Texts{u"/none\\\\a.json", at("A/f.json"), at("A/x/f"), at("A/~f"),
                                    at("A/f.json"), at("A/x/f"), at("B/f"), at("A/x/f")}));
    EXPECT_EQ(user.pointerShapes, (Shapes{PointerShape::hourglass, PointerShape::standard}));
    handlers.ListView1_OLEDragDrop({at("A/~f")}); // no scan
    files.clear();
    const Guard guard(user, u"");
    const BusyScope other(user, guard); // during another operation
    handlers.ListView1_OLEDragDrop({at("B"), u"/b"});
    EXPECT_EQ(files.texts(), (Texts{at("B/f"), u"/b"})); // the collection belongs to one drop
    EXPECT_EQ(user.pointerShapes,
              (Shapes{PointerShape::hourglass, PointerShape::standard, PointerShape::hourglass}));
    EXPECT_EQ(user.summaries, (Texts{u"8 files added", u"2 files added"}));
}

TEST_F(InputFiles, RowsAreRemoved) {
    handlers.ListView1_DblClick(0); // of no rows
    files = testing::listOf({u"a", u"b", u"c"});
    handlers.ListView1_DblClick(std::nullopt);
    handlers.ListView1_DblClick(1);
    EXPECT_EQ(files.texts(), (Texts{u"a", u"c"}));
    EXPECT_TRUE(user.errors.empty());
    handlers.ListView1_DblClick(2);
    EXPECT_TRUE(user.hasOneReport(u"Subscript out of range", u"Form1.ListView1_DblClick"));
    handlers.PushButton14_Click();
    EXPECT_TRUE(files.empty());
}

TEST_F(InputFiles, RowsAreNotRemovedDuringAScan) {
    files.append(u"a");
    folder.write("b.json", "");
    user.textAnswers = {u"json"};
    user.folders = {folder.text()};
    user.whenYielding = [&] { handlers.ListView1_DblClick(0); };
    handlers.PushButton5_Click();
    EXPECT_EQ(files.texts(), (Texts{u"a", at("b.json")}));
    EXPECT_FALSE(user.isBusy());
}

} // namespace
} // namespace brindlewick
