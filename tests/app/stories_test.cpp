// From files and tags to rows, saved files and the clipboard, as a person goes.
#include "app/window_story.h"

#include <QPushButton>
#include <fstream>
#include <sstream>

namespace brindlewick::testing {
namespace {

struct Stories : WindowStory {
    /// A saved file, with "|" for a tab and without the CR of each line end, which must be there.
    std::string saved() {
        QString text = QString::fromStdString(folder.read("saved.txt"));
        EXPECT_EQ(text.count("\r\n"), text.count('\n'));
        return text.remove('\r').replace('\t', '|').toStdString();
    }
    void save(const char* button, std::deque<QString> answers = {}) {
        person.answers = std::move(answers);
        person.answers.push_front(path("saved.txt"));
        click(button);
    }

    const std::string question =
        "Brindlewick: Are you sure you wish to overwrite " + utf8(folder.text("saved.txt")) + " ? [Yes,No]";
};

const std::string copiedMessage =
    "Brindlewick: Results have been copied to the clipboard.\n\nClick a text area where you normally type "
    "and press Ctrl+V to paste the clipboard. [OK]";

TEST_F(Stories, TheFourModesGiveTheRowsOfTheManual) {
    std::ifstream file(MANUAL);
    const std::string manual{std::istreambuf_iterator<char>(file), {}};
    const std::size_t example = manual.find("\n    {\n");
    folder.write("zoo.json", manual.substr(example, manual.find("\n| ", example) - example));
    open();
    person.answers = {path("zoo.json"), "name"};
    click("Add JSON Files");
    click("Add Tag");
    EXPECT_THAT(person.shown(), ElementsAre(addDialog, "Brindlewick: Enter tag to add:  ="));
    for (const char* caption : {"Extract value and tag", "Extract value without tag",
                                "Extract entire line containing tag", "Extract all"}) {
        Texts told;
        const std::size_t row = manual.find(std::string("\n| ") + caption + " |") + 1;
        std::istringstream cells(manual.substr(row, manual.find('\n', row) - row));
        for (std::string text; std::getline(std::getline(cells, text, '`'), text, '`');)
            told.push_back(text);
        EXPECT_EQ(told.size(), 2U) << caption;
        click(caption);
        click("Start Extracting");
        EXPECT_EQ(rows(results()), told) << caption;
    }
    EXPECT_THAT(person.shown(), ElementsAre(done, done, done, done));
}

TEST_F(Stories, ToolTipsOfTheModesShowTrueRows) {
    open();
    fill({folder.write("bo.json", "{\"name\":\"Bo\",\"age\":7}")}, {u"name"});
    for (QRadioButton* option : window->controls().Options) {
        click(option->text().toStdString());
        click("Start Extracting");
        for (std::string told; const std::string& row : rows(results()))
            EXPECT_THAT(
                option->toolTip().toStdString(),
                ::testing::HasSubstr(told += '\n' + QString::fromStdString(row).trimmed().toStdString()));
        EXPECT_THAT(person.shown(), ElementsAre(done));
    }
}

TEST_F(Stories, ResultsAreSavedAndCopiedToTheCharacter) {
    const std::u16string file = folder.write("zoo.json", "{\"name\":\"Bo\"}\n{\"name\":\"Pebble\"}\n");
    const std::string name = utf8(file);
    const std::string blanks(name.size() - 8, ' ');
    open();
    fill({file}, {u"name"});
    click("Extract value without tag");
    click("Start Extracting");
    EXPECT_EQ(headers(results()), "Results");
    save("Save Results As Text File");
    EXPECT_EQ(saved(), "Results|\nBo     |\nPebble |\n");
    save("Save As Comma Delimited", {"Yes", "Yes"});
    EXPECT_EQ(saved(), "Bo ,\nPebble \n");
    click("Copy Results To Clipboard");
    EXPECT_EQ(copied(), "Bo\nPebble\n");
    click("Include filename in extraction results");
    EXPECT_EQ(headers(results()), "Results") << "before the next run";
    click("Start Extracting");
    EXPECT_EQ(headers(results()), "Filename|Results");
    press(Qt::Key_Home, {}, results());
    press(Qt::Key_Space); // without a tick, the first row is in the comma-delimited file alone
    save("Save Results As Text File", {"Yes"});
    EXPECT_EQ(saved(), "Filename" + blanks + "|Results|\n" + name + "|Pebble |\n");
    save("Save As Comma Delimited", {"Yes", "Yes"});
    EXPECT_EQ(saved(), "Filename,Results,\n" + name + ",Bo \n" + name + ",Pebble \n");
    click("Copy Results To Clipboard");
    EXPECT_EQ(copied(), name + "|Pebble\n");
    EXPECT_THAT(person.shown(),
                ElementsAre(done, saveDialog, saveDialog, question, question, copiedMessage, done, saveDialog,
                            question, saveDialog, question, question, copiedMessage));

    click("Clear the results");
    EXPECT_THAT(rows(results()), IsEmpty());
    EXPECT_EQ(headers(results()), "Filename|Results");
    const std::string before = saved();
    save("Save Results As Text File", {"Enter"}); // means No
    save("Save As Comma Delimited", {"Escape"});
    save("Save As Comma Delimited", {"Yes", "No"});
    EXPECT_EQ(saved(), before);
    EXPECT_THAT(person.shown(),
                ElementsAre(saveDialog, question, saveDialog, question, saveDialog, question, question));
}

TEST_F(Stories, FilesAndTagsComeFromDialogsFoldersAndListFiles) {
    for (const char* name : {"in/a b.json", "in/c.json", "in/sub/d.json", "in/e.txt"})
        folder.write(name, "{}");
    folder.write("files.txt", "one.json\ntwo.json");
    folder.write("tags.txt", "name\r\n\r\n <id>\r\n");
    const auto in = [&](const char* name) { return utf8(folder.text(name)); };
    open();
    person.answers = {path("in/c.json")};
    click("Add JSON Files");
    person.answers = {"\"c.json\" \"a b.json\""}; // in the folder of the last choice
    click("Add JSON Files");
    EXPECT_THAT(rows(files()), ElementsAre(in("in/c.json"), in("in/c.json"), in("in/a b.json")));
    click("Clear the JSON files");
    person.answers = {"json", path("in")};
    click("Add All JSON Files In Folder");
    EXPECT_THAT(rows(files()), ElementsAre(in("in/a b.json"), in("in/c.json"), in("in/sub/d.json")));
    EXPECT_EQ(stored(u"Extension") + stored(u"LastFolder"), "json" + in("in"));
    click("Clear the JSON files");
    person.answers = {path("files.txt"), path("tags.txt"), "a/<b>", "Escape"};
    click("Load JSON Files From Text File");
    click("Load Tags From Text File");
    click("Add Tag");
    click("Add Tag");
    EXPECT_THAT(rows(files()), ElementsAre("one.json", "two.json"));
    EXPECT_THAT(rows(tags()), ElementsAre("name", "", " <id>", "a/<b>"));
    const std::string prompt =
        "Brindlewick: Enter file extension to load:\n\n(* for all files, txt for all txt "
        "files, doc for all doc files, etc.) =json";
    EXPECT_THAT(
        person.shown(),
        ElementsAre(addDialog, addDialog, prompt, "Please select folder:: All Files (*)",
                    "Brindlewick: File should look like:\nC:\\test\\1.xml\nC:\\test\\2.xml\netc. [OK]",
                    "Add File(s) - Hold Ctrl to select multiple files: All Files (*.*) (*)",
                    "Load List(s) - Hold Ctrl to select multiple list files: Text Files (*.txt) (*.txt), "
                    "All Files (*.*) (*)",
                    "Brindlewick: Enter tag to add:  =", "Brindlewick: Enter tag to add:  ="));
}

TEST_F(Stories, WhileBusyEverythingWaitsButHelpAndAClosingWindowKeepsItsTags) {
    folder.write("many/a.json", "{\"name\":1}");
    open();
    fill({folder.text("many/a.json")}, {u"name"});
    click("Start Extracting");
    EXPECT_THAT(person.shown(), ElementsAre(done));
    const struct {
        const char* button;
        std::deque<QString> answers;
    } operations[] = {{"Start Extracting", {}},
                      {"Save Results As Text File", {path("1.txt")}},
                      {"Save As Comma Delimited", {path("2.txt")}},
                      {"Copy Results To Clipboard", {}},
                      {"Add All JSON Files In Folder", {"json", path("many")}}};
    int closings = 0;
    for (const auto& operation : operations) { // no structured binding: Clang 14 cannot capture one
        const char* const button = operation.button;
        person.answers = operation.answers;
        window->show();
        SettingsFile().SaveSetting(u"Tags", u"");
        const auto disturb = [&] {
            (void)person.shown();
            for (auto* other : window->findChildren<QPushButton*>())
                QTest::mouseClick(other, Qt::LeftButton);
            for (RowsView* list : {files(), tags()}) {
                clickRow(list, 0);
                press(Qt::Key_Delete, {}, list);
            }
            press(Qt::Key_Z, Qt::ControlModifier);
            EXPECT_EQ(person.shown().size(), 2U) << button << ": help and what the modes are";
            press(Qt::Key_Q, Qt::ControlModifier);
            EXPECT_EQ(ended, ++closings) << button;
            EXPECT_EQ(stored(u"Tags"), "name||MySeparator12||") << button;
        };
        EXPECT_TRUE(inTheMiddleOf(button, disturb)) << button;
        EXPECT_EQ(rows(files()).size(), button == operations[4].button ? 2U : 1U) << button;
        EXPECT_EQ(rows(tags()).size(), 1U) << button;
        EXPECT_FALSE(window->isVisible()) << button;
        (void)person.shown();
    }
}

} // namespace
} // namespace brindlewick::testing
