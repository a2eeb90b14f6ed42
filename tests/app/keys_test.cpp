// Keys, pasting, stopping, and dialogs that do not keep the window from being closed.
#include "app/system.h"
#include "app/window_story.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QFileDialog>
#include <QToolButton>
#include <csignal>

namespace brindlewick::testing {
namespace {

struct Keys : WindowStory {
    Keys() { open(); }
    const std::string addTag = "Brindlewick: Enter tag to add:  =";
    const std::string noFiles = "Brindlewick: No files added. [OK]";
};

TEST_F(Keys, ShortcutsPressTheirButtonsAndReturnTheFocusedOne) {
    person.answers = {"Escape", "Escape", "a", "b"};
    for (const Qt::Key key : {Qt::Key_O, Qt::Key_S, Qt::Key_Return, Qt::Key_Enter})
        press(key, Qt::ControlModifier);
    press(Qt::Key_F1);
    EXPECT_THAT(person.shown(),
                ElementsAre(addDialog, saveDialog, noFiles, noFiles,
                            "Brindlewick: If you need some extraction features added to this software, "
                            "please email support@brindlewick.example [OK]"));
    window->controls().PushButton3->setFocus();
    press(Qt::Key_Return);
    press(Qt::Key_Enter);
    EXPECT_THAT(person.shown(), ElementsAre(addTag, addTag));
    for (QWidget* focus : std::initializer_list<QWidget*>{files(), tags(), window->controls().Check1,
                                                          window->controls().Options[0]}) {
        focus->setFocus();
        press(Qt::Key_Return);
        EXPECT_THAT(person.shown(), ElementsAre(noFiles));
    }
    press(Qt::Key_Return, {}, results()); // would replace the rows
    EXPECT_THAT(person.shown(), IsEmpty());
    press(Qt::Key_Q, Qt::ControlModifier);
    EXPECT_EQ(ended, 1);
    EXPECT_FALSE(window->isVisible());
}

TEST_F(Keys, TagsAreTypedPastedAndAskedForInTheList) {
    person.answers = {"one", "Escape", "+wo", "Escape"};
    press(Qt::Key_Insert, {}, tags());
    QWidget* const area = tags()->viewport();
    QTest::mouseDClick(area, Qt::LeftButton, {}, {area->width() / 2, area->height() - 3});
    QTest::keyClick(tags(), 't');
    EXPECT_EQ(choose(tags(), "Add Tag"), "Add Tag");
    EXPECT_THAT(person.shown(), ElementsAre(addTag, addTag, addTag + "t", addTag));
    QGuiApplication::clipboard()->setText("three\r\n\r\nfour\n five");
    press(Qt::Key_V, Qt::ControlModifier, tags());
    EXPECT_THAT(rows(tags()), ElementsAre("one", "two", "three", "four", " five"));
    clickRow(tags(), 2);
    press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(copied(), "three");
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_THAT(rows(tags()), ElementsAre("one", "two"));
}

TEST_F(Keys, EscapeStopsAScan) {
    for (const char* name : {"in/a.json", "in/b/c.json"})
        folder.write(name, "{}");
    auto* const stop = window->findChild<QToolButton*>("stopButton");
    EXPECT_FALSE(stop->isVisible());
    person.answers = {"json", path("in")};
    EXPECT_TRUE(inTheMiddleOf("Add All JSON Files In Folder", [&] {
        EXPECT_TRUE(stop->isVisible());
        press(Qt::Key_Escape);
        EXPECT_FALSE(stop->isEnabled());
    }));
    (void)person.shown();
    EXPECT_THAT(rows(files()), ElementsAre(utf8(folder.text("in/a.json"))));
    EXPECT_EQ(status(), "Stopped: 1 file added");
    EXPECT_FALSE(stop->isVisible());
}

TEST_F(Keys, ManyReportsCanBeHiddenFromTheFourthOn) {
    fill(std::vector<std::u16string>(7, u"missing"), {u"n"});
    std::string boxes;
    bool hides = true;
    person.beforeAnswer = [&](QDialog& dialog) {
        auto* const box = dialog.findChild<QCheckBox*>();
        boxes += box != nullptr ? box->isChecked() ? 'x' : '-' : '.';
        if (boxes != "...--" || !std::exchange(hides, false))
            return;
        EXPECT_EQ(box->text(), "Do not show further reports of this operation");
        box->click();
    };
    click("Start Extracting");
    EXPECT_EQ(boxes, "...--.");
    EXPECT_EQ(person.shown().back(), done);
    EXPECT_THAT(status(), ::testing::EndsWith("; 2 reports not shown"));
    boxes.clear();
    click("Start Extracting"); // another operation
    EXPECT_EQ(boxes, "...----.");
    EXPECT_EQ(person.shown().size(), 8U);
}

TEST_F(Keys, TheWindowClosesWhileADialogIsOpenButTakesNoInput) {
    fill({u"missing"}, {u"n"});
    person.beforeAnswer = [&](QDialog& dialog) {
        // The title bar works, but not beside Windows' own file dialogs.
        const bool isModal = pathSeparator == u'\\' && qobject_cast<QFileDialog*>(&dialog) != nullptr;
        EXPECT_EQ(QGuiApplication::modalWindow() != nullptr, isModal);
        clickRow(files(), 0);
        QTest::keyClick(files(), Qt::Key_Delete);
        window->controls().PushButton10->click(); // as assistive tools do
        EXPECT_EQ(rows(files()).size() + rows(tags()).size(), 2U);
        if (dialog.windowTitle() != "Brindlewick")
            window->close();
    };
    click("Start Extracting");
    EXPECT_EQ(ended, 1);
    EXPECT_EQ(stored(u"Tags"), "n||MySeparator12||");
    EXPECT_EQ(person.shown().size(), 2U);
    window->show();
    person.answers = {"Escape"};
    click("Add JSON Files");
    EXPECT_EQ(ended, 2);
    EXPECT_EQ(person.shown().size(), 1U);
}

#ifdef SIGHUP
TEST_F(Keys, ASignalToEndClosesTheWindow) {
    fill({}, {u"n"});
    onEndRequest(*window, [this] { window->close(); });
    std::raise(SIGPIPE); // as writing to a pipe that is no longer read
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
        ended = 0;
        SettingsFile().SaveSetting(u"Tags", u"");
        window->show();
        std::raise(signal);
        EXPECT_TRUE(QTest::qWaitFor([&] { return ended > 0; }));
        EXPECT_EQ(stored(u"Tags"), "n||MySeparator12||");
    }
}
#endif

} // namespace
} // namespace brindlewick::testing
