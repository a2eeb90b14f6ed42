// What the window stores, and the optional files next to the program.
#include "app/system.h"
#include "app/window_story.h"

#include <QDesktopServices>
#include <QTextBrowser>
#include <filesystem>
#include <fstream>

namespace brindlewick::testing {
namespace {

struct StartUp : WindowStory {};

TEST_F(StartUp, EveryKindOfSettingsOpensAWindowThatRuns) {
    const std::u16string separator = u"||MySeparator12||";
    const struct {
        const char16_t* key;
        std::u16string value;
        int mode;
        std::string columns;
        std::size_t tags;
        Texts reports;
    } cases[] = {
        {u"", u"", 1, "Results", 0, {}},
        {u"Option", u"3", 3, "Results", 0, {}},
        {u"Option", u"7", 0, "Results", 0, {}},
        {u"Check1", u"1", 1, "Filename|Results", 0, {}},
        {u"Check1", u"x", 1, "Results", 0, {report("Type mismatch", "Form1.Form_Load")}},
        {u"Tags", u"a" + separator + separator + u"b" + separator, 1, "Results", 2, {}},
    };
    for (const auto& [key, value, mode_, columns, tagCount, reports] : cases) {
        SCOPED_TRACE(utf8(key) + " = " + utf8(value));
        std::filesystem::remove_all(folder.path() / "settings");
        if (*key != u'\0')
            SettingsFile().SaveSetting(key, value);
        open();
        EXPECT_EQ(person.shown(), reports);
        EXPECT_EQ(mode(), mode_);
        EXPECT_EQ(headers(results()), columns);
        EXPECT_EQ(rows(tags()).size(), tagCount);
        if (mode_ == 0) { // kept, for a version that knows more modes
            EXPECT_EQ(stored(u"Option"), utf8(value));
        }
        fill({folder.write("a.json", "{\"name\":1}")}, {u"name"});
        click("Start Extracting");
        window->close();
        EXPECT_THAT(person.shown(), ElementsAre(done));
    }
}

TEST_F(StartUp, ChoicesAreStoredWhenTheyAreMadeAndTagsWhenTheWindowCloses) {
    open();
    for (const auto& [choice, key, value] : {std::tuple{"Extract value without tag", u"Option", "2"},
                                             {"Extract entire line containing tag", u"Option", "3"},
                                             {"Extract all", u"Option", "4"},
                                             {"Extract value and tag", u"Option", "1"},
                                             {"Include filename in extraction results", u"Check1", "1"},
                                             {"Include filename in extraction results", u"Check1", "0"}}) {
        click(choice);
        EXPECT_EQ(stored(key), value) << choice;
    }
    fill({}, {u"a", u"", u"b"});
    EXPECT_EQ(stored(u"Tags"), "unset");
    const std::string separator = "||MySeparator12||";
    const std::string threeTags = "a" + separator + separator + "b" + separator;
    window->saveTags(); // the desktop saves its session and goes on
    EXPECT_EQ(stored(u"Tags"), threeTags);
    EXPECT_EQ(ended, 0);
    fill({}, {u"b"});
    window->close();
    EXPECT_EQ(ended, 1);
    EXPECT_EQ(stored(u"Tags"), threeTags + "b" + separator);
    open();
    EXPECT_THAT(rows(tags()), ElementsAre("a", "b", "b"));
    click("Clear the tags");
    window->close();
    EXPECT_EQ(stored(u"Tags"), "");
}

TEST_F(StartUp, AStoreThatCannotBeUsedIsReportedAndTheWindowWorks) {
    folder.write("plain", "");
    qputenv(configFolderVariable, path("plain").toUtf8()); // takes no folder
    const auto unwritten = [](const char* routine) { return report("Path not found", routine); };
    open();
    click("Extract all");
    click("Include filename in extraction results");
    window->saveTags();
    window->close();
    EXPECT_EQ(ended, 1);
    EXPECT_THAT(person.shown(), ElementsAre(unwritten("Form1.Form_Load"), unwritten("Form1.Form_Load"),
                                            unwritten("Form1.Option4_Click"), unwritten("Form1.Check1_Click"),
                                            unwritten("Form1.Form_QueryUnload")));
}

TEST_F(StartUp, SamplesAreRecordedOnceAndLoadedWhileTheyAreThere) {
    for (const char* name : {"b.json", "A.json", "gone.json", "sub/c.json"})
        folder.write(std::string("Samples/") + name, "{\"name\":1}");
    QTextBrowser fileManager;
    QDesktopServices::setUrlHandler("file", &fileManager, "setSource");
    open();
    std::filesystem::remove(folder.path() / "Samples" / "gone.json");
    folder.write("Samples/new.json", "{}");
    open();
    for (const char* answer : {"No", "Enter"}) {
        person.answers = {answer};
        click("Load Sample/Example Files");
        EXPECT_EQ(fileManager.source().isEmpty(), answer == std::string("No"));
    }
    QDesktopServices::unsetUrlHandler("file"); // now nothing opens a folder
    person.answers = {"Yes"};
    click("Load Sample/Example Files");
    EXPECT_EQ(fileManager.source(), QUrl::fromLocalFile(path("Samples/")));
    EXPECT_THAT(rows(files()),
                ElementsAre(utf8(folder.text("Samples/A.json")), utf8(folder.text("Samples/b.json"))));
    EXPECT_THAT(rows(tags()), ElementsAre("name", "name", "name"));
    EXPECT_EQ(mode(), 2);
    const std::string question =
        "Brindlewick: Would you like this software to open the folder where these sample files are stored "
        "(so that you can view them before working with them)? [Yes,No]";
    EXPECT_THAT(person.shown(), ElementsAre(question, question, question));
}

TEST_F(StartUp, ASkinAndAHandPointerAreAppliedOrReported) {
    std::ifstream shipped(HAND_POINTER, std::ios::binary);
    folder.write("HAND-M.CUR", std::string{std::istreambuf_iterator<char>(shipped), {}});
    folder.write("x/o.cjs", "QLabel { color: #ff0000 }");
    open();
    EXPECT_EQ(window->controls().Label1->palette().color(QPalette::WindowText), Qt::red);
    const auto over = [&](const char* name) {
        QTest::mouseMove(window->findChild<QWidget*>(name));
        return window->cursor().shape();
    };
    for (int round = 0; round < 2; ++round) {
        EXPECT_EQ(over("PushButton15"), Qt::BitmapCursor);
        EXPECT_EQ(over("Frame2"), Qt::ArrowCursor);
    }
    folder.write("HAND-M.CUR", "");
    folder.write("x/o.cjs", "{{{ this is ] no sheet");
    open();
    EXPECT_NE(window->controls().Label1->palette().color(QPalette::WindowText), Qt::red);
    EXPECT_EQ(over("PushButton15"), Qt::ArrowCursor);
    EXPECT_THAT(person.shown(), ::testing::UnorderedElementsAre(
                                    report("Invalid picture", "Form1.Form_Load"),
                                    report("Invalid procedure call or argument", "Form1.Form_Load")));
}

} // namespace
} // namespace brindlewick::testing
