// The buttons and gestures of the two lists: what they show and ask, step by step, and the list that they
// leave.
#include "lists/input_file_handlers.h"
#include "lists/list_drag.h"
#include "lists/list_summaries.h"
#include "lists/tag_handlers.h"
#include "platform/busy_scope.h"
#include "support/failure_of.h"
#include "support/fake_settings.h"
#include "support/scripted_user.h"
#include "support/temporary_folder.h"

namespace brindlewick::testing {
namespace {

using namespace std::literals;
using Row = std::optional<std::size_t>;
using Texts = std::vector<std::u16string>;
constexpr Row none = std::nullopt;

TextList listOf(const Texts& texts) {
    TextList list;
    for (const std::u16string& text : texts)
        list.append(text);
    return list;
}

class Lists : public ::testing::Test {
protected:
    TemporaryFolder folder;
    ScriptedUser user;
    FakeSettings settings;
    TextList files;
    TextList tags;
    InputFileHandlers fileHandlers{user, settings, files};
    TagHandlers tagHandlers{user, tags};

    Lists() { user.folder = folder.text(); }
    /// The transcript, and under it the texts of the lists.
    template <class... List>
    std::string outcome(const List&... lists) {
        std::string all = user.takeTranscript();
        for (const TextList* list : {&lists...}) {
            all += "|";
            for (const std::u16string& text : *list)
                all += user.shown(text) + "|";
        }
        return all;
    }
};

TEST_F(Lists, TakeChosenFilesUpToALimit) {
    const std::string longest(259, 'a');
    user.answers = {folder.text() + u"\0b.json\0a.json"s, u"", std::u16string(260, u'a'),
                    std::u16string(259, u'a')};
    while (!user.answers.empty())
        fileHandlers.PushButton1_Click();
    const std::string open =
        "open: Add File(s) - Hold Ctrl to select multiple files [All Files (*.json)|*.json|] -> ";
    EXPECT_EQ(outcome(files), open + "~\\0b.json\\0a.json\nsummary: 2 files added\n" + open +
                                  "(cancelled)\n" + open + longest + "a\n" +
                                  "message: You've selected too many files to add.\\r\\rPlease try adding "
                                  "via the \"Add All\" button.\n" +
                                  open + longest + "\nsummary: 1 file added\n|~/b.json|~/a.json|" + longest +
                                  "|");
}

TEST_F(Lists, TakeTheFilesOfAFolderThoughASettingCannotBeSaved) {
    folder.write("a.json", "");
    for (const char* name : {"b/d.txt", "b/e"})
        folder.write(name, "");
    user.answers = {u"json", folder.text()};
    settings.failureWhenSaving = FailureNumber::diskFull;
    fileHandlers.PushButton5_Click();
    settings.failureWhenSaving.reset();
    user.answers = {u"*", folder.text("b"), u"xml", u"", u""};
    user.whenYielding = [&] { EXPECT_TRUE(user.isBusy()); };
    while (!user.answers.empty())
        fileHandlers.PushButton5_Click();
    EXPECT_EQ(
        outcome(files),
        R"(ask: Enter file extension to load:\r\r(* for all files, txt for all txt files, doc for all doc files, etc.) [json] -> json
report: Disk full in Form1.PushButton5_Click
folder: Please select folder: [] -> ~
report: Disk full in Form1.PushButton5_Click
pointer: hourglass
progress: Scanning, 0 files so far: ~/
progress: Scanning, 1 file so far: ~/b/
progress: Adding, 1 file so far: ~/
progress: Adding, 1 file so far: ~/b/
pointer: standard
summary: 1 file added
ask: Enter file extension to load:\r\r(* for all files, txt for all txt files, doc for all doc files, etc.) [json] -> *
folder: Please select folder: [] -> ~/b
pointer: hourglass
progress: Scanning, 0 files so far: ~/b/
progress: Adding, 2 files so far: ~/b/
pointer: standard
summary: 2 files added
ask: Enter file extension to load:\r\r(* for all files, txt for all txt files, doc for all doc files, etc.) [*] -> xml
folder: Please select folder: [~/b] -> (cancelled)
ask: Enter file extension to load:\r\r(* for all files, txt for all txt files, doc for all doc files, etc.) [xml] -> (cancelled)
|~/a.json|~/b/d.txt|~/b/e|)");
}

TEST_F(Lists, TakeTheLinesOfListFilesInOrder) {
    const std::string longName(250, 'n'); // the limit of a selection does not apply
    folder.write("1.txt", "/a\\\\b.json\r\n\r\n");
    folder.write(longName, "c\nd");
    folder.write("sub.txt/x", "");
    user.answers = {folder.text() + u"\0sub.txt\0none.txt\0001.txt"s, folder.text(longName), u""};
    fileHandlers.PushButton16_Click();
    tagHandlers.PushButton4_Click();
    tagHandlers.PushButton4_Click();
    EXPECT_EQ(outcome(files), R"(message: File should look like:\rC:\test\1.xml\rC:\test\2.xml\retc.
open: Add File(s) - Hold Ctrl to select multiple files [All Files (*.*)|*.*|] -> ~\0sub.txt\0none.txt\01.txt
pointer: hourglass
report: Permission denied in Form1.PushButton16_Click
message: File not found
progress: Reading, 2 lines so far: ~/1.txt, 100 %
pointer: standard
summary: 2 files added; 1 line is empty and names no file
open: Load List(s) - Hold Ctrl to select multiple list files [Text Files (*.txt)|*.txt|All Files (*.*)|*.*|] -> ~/)" +
                                  longName + "\npointer: hourglass\nprogress: Reading, 1 line so far: ~/" +
                                  longName + R"(, 100 %
pointer: standard
summary: 2 tags added
open: Load List(s) - Hold Ctrl to select multiple list files [Text Files (*.txt)|*.txt|All Files (*.*)|*.*|] -> (cancelled)
|/a\\b.json||)");
    EXPECT_EQ(outcome(tags), "|c|d|");
}

TEST_F(Lists, TakeWhatIsDroppedInItsOrder) {
    for (const char* name : {"A/f.json", "A/x/f", "A/~f", "A/\xE2\x82\xAC/f", "B/f"})
        folder.write(name, "");
    fileHandlers.ListView1_OLEDragDrop({u"none\\\\a.json", folder.text("A"), folder.text("A/~f")});
    fileHandlers.ListView1_OLEDragDrop({folder.text("A/~f")}); // no scan
    const Guard guard(user, u"");
    BusyScope other(user, guard); // a drop is accepted during another operation
    fileHandlers.ListView1_OLEDragDrop({folder.text("B"), u"b"});
    user.note(user.isBusy() ? "still busy" : "not busy");
    other.end([]() -> std::u16string { throw Failure(FailureNumber::outOfMemory); });
    EXPECT_FALSE(user.isBusy());
    EXPECT_EQ(outcome(files), R"(pointer: hourglass
progress: Scanning, 0 files so far: ~/A/
progress: Scanning, 1 file so far: ~/A/x/
progress: Adding, 1 file so far: ~/A/
progress: Adding, 2 files so far: ~/A/x/
pointer: standard
summary: 4 files added; 1 folder left out because of its name
pointer: hourglass
pointer: standard
summary: 1 file added
pointer: hourglass
progress: Scanning, 0 files so far: ~/B/
progress: Adding, 1 file so far: ~/B/
still busy
pointer: standard
report: Out of memory in 
|none\\a.json|~/A/f.json|~/A/x/f|~/A/~f|~/A/~f|~/B/f|b|)");
}

TEST(ListSummaries, SayWhatWasLeftOutAndWhatEmptyTagsDo) {
    EXPECT_EQ(scanSummary(0, {}), u"No files added");
    EXPECT_EQ(scanSummary(1'234'567, {.byName = 1, .unreadable = 1, .links = 1, .systemFolders = 1}),
              u"1,234,567 files added; 1 folder left out because of its name; 1 folder left out because it "
              u"cannot be read; 1 link to a folder not followed; 1 system folder left out");
    EXPECT_EQ(scanSummary(1, {.byName = 2, .longPaths = 1'000}),
              u"1 file added; 2 folders left out because of their names; 1,000 folders with long paths not "
              u"searched for folders");
    EXPECT_EQ(tagsAddedText(listOf({u"", u"a", u""}), 1),
              u"2 tags added; 1 tag is empty and matches everything");
    EXPECT_EQ(tagsAddedText(listOf({u"", u""}), 0), u"2 tags added; 2 tags are empty and match everything");
}

TEST_F(Lists, ExchangeADraggedTextAndScroll) {
    const struct {
        Row under;
        Row selected;
        int screenRow;
        const char* texts; ///< afterwards, of a list a b c c
        Row select;
        Row scrollTo;
    } cases[] = {{1, 0, 320, "|b|a|c|c|", 1, none},       {2, 1, -5, "|a|c|b|c|", 2, 1},
                 {2, 3, 320, "|a|b|c|c|", none, none},    {1, 4, 304, "|a|b|c|c|", none, 0},
                 {1, none, 364, "|a|b|c|c|", none, none}, {1, none, 365, "|a|b|c|c|", none, 2}};
    for (const auto& one : cases) {
        TextList list = listOf({u"a", u"b", u"c", u"c"});
        ListDrag drag(list);
        drag.ListView1_MouseDown();
        const ListDrag::Outcome moved = drag.ListView1_MouseMove(one.under, one.selected, one.screenRow);
        EXPECT_EQ(moved.select, one.select);
        EXPECT_EQ(moved.scrollTo, one.scrollTo);
        EXPECT_EQ(outcome(list), one.texts);
    }
}

TEST_F(Lists, JoinTagsForTheSettingAndRestoreNonEmptyPieces) {
    const std::u16string mark = u"||MySeparator12||";
    EXPECT_EQ(tagsToSetting(listOf({u"a", u"", u" b"})), u"a" + mark + mark + u" b" + mark);
    for (const std::u16string& stored :
         {u"a" + mark + mark + u" b " + mark, mark + u"a|" + mark + u"||myseparator12||"})
        appendTagsFromSetting(stored, tags);
    EXPECT_EQ(outcome(tags), "|a| b |a||||myseparator12|||");
    EXPECT_EQ(failureOf([] { static_cast<void>(tagsToSetting(listOf(Texts(32768, u"t")))); }),
              FailureNumber::overflow);
}

} // namespace
} // namespace brindlewick::testing
