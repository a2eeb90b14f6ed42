// Keys, menus, pasting, undoing, stopping, and dialogs that do not keep the window from being closed.
#include "app/system.h"
#include "app/window_story.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QMenu>
#include <QMessageBox>
#include <QMimeData>
#include <QPushButton>
#include <QStatusBar>
#include <QToolButton>
#include <QUrl>
#include <csignal>
#include <fstream>

namespace brindlewick::testing {
namespace {

using ::testing::HasSubstr;

struct Keys : WindowStory {
    Keys() { open(); }
    void doubleClickBelow(RowsView* list) {
        QWidget* const area = list->viewport();
        QTest::mouseDClick(area, Qt::LeftButton, {}, {area->width() / 2, area->height() - 3});
    }
    void undo() { press(Qt::Key_Z, Qt::ControlModifier); }
    void paste(RowsView* list, const QString& text) {
        QGuiApplication::clipboard()->setText(text);
        press(Qt::Key_V, Qt::ControlModifier, list);
    }
    static std::string copied() { return QGuiApplication::clipboard()->text().toStdString(); }
    /// Opens a list's menu by a key, on the row, and chooses an item. Empty if it cannot be chosen.
    std::string choose(RowsView* list, const char* item) {
        QContextMenuEvent open(QContextMenuEvent::Keyboard, {}, {}, {});
        QApplication::sendEvent(list, &open);
        auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        std::string chosen;
        for (QAction* action : menu != nullptr ? menu->actions() : QList<QAction*>())
            if (action->text().section('\t', 0, 0) == item && action->isEnabled())
                chosen = item, action->trigger();
        delete menu;
        return chosen;
    }
    /// Makes a table of six rows.
    void run() {
        fill({folder.write("f.json", "{\"n\":0}\n{\"n\":1}\n{\"n\":2}\n{\"n\":3}\n{\"n\":4}\n{\"n\":5}\n")},
             {u"n"});
        click("Start Extracting");
        EXPECT_THAT(person.shown(), ElementsAre(done));
    }
    std::string ticks() {
        std::string marks;
        for (std::size_t row = 0; row < window->results().rowCount(); ++row)
            marks += window->results().isChecked(row) ? 'x' : '-';
        return marks;
    }
    const std::string addTag = "Brindlewick: Enter tag to add:  =";
};

TEST_F(Keys, ReturnPressesTheFocusedButtonAndElsewhereStartsTheRun) {
    const std::string noFiles = "Brindlewick: No files added. [OK]";
    for (QWidget* focus : std::initializer_list<QWidget*>{files(), tags(), window->controls().Check1,
                                                          window->controls().Options[0]}) {
        focus->setFocus();
        press(Qt::Key_Return);
        press(Qt::Key_Enter, Qt::KeypadModifier);
        EXPECT_THAT(person.shown(), ElementsAre(noFiles, noFiles));
    }
    window->controls().PushButton3->setFocus();
    person.answers = {"a", "b"};
    press(Qt::Key_Return);
    press(Qt::Key_Enter);
    EXPECT_THAT(person.shown(), ElementsAre(addTag, addTag));
    press(Qt::Key_Return, {}, results()); // would replace the rows
    EXPECT_THAT(person.shown(), IsEmpty());
}

TEST_F(Keys, TagsAreTypedPastedAndAskedForInTheList) {
    person.answers = {"one", "Escape"};
    press(Qt::Key_Insert, {}, tags());
    doubleClickBelow(tags());
    EXPECT_THAT(person.shown(), ElementsAre(addTag, addTag));
    for (const QString& typed : {QString("+wo"), QString("Escape")}) {
        person.answers = {typed};
        QTest::keyClick(tags(), 't');
        EXPECT_THAT(person.shown(), ElementsAre(addTag + "t"));
    }
    paste(tags(), "three\r\n\r\nfour\n five");
    EXPECT_THAT(rows(tags()), ElementsAre("one", "two", "three", "four", " five"));
    clickRow(tags(), 2);
    press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(copied(), "three");
    undo();
    EXPECT_THAT(rows(tags()), ElementsAre("one", "two"));
}

TEST_F(Keys, CopiedFilesArePastedAndDropsAreTakenAnywhereInTheWindow) {
    std::vector<std::u16string> many(100, u"old");
    fill(many, {});
    const auto mimeData = [&](const char* name) {
        auto* const data = new QMimeData;
        data->setUrls({QUrl::fromLocalFile(path(name))});
        return data;
    };
    QGuiApplication::clipboard()->setMimeData(mimeData("a.json"));
    press(Qt::Key_V, Qt::ControlModifier, files());
    EXPECT_EQ(rows(files()).back(), utf8(folder.text("a.json")));
    EXPECT_TRUE(files()->viewport()->rect().contains(rowCentre(files(), 100)));
    paste(files(), "no file");
    const std::unique_ptr<QMimeData> data(mimeData("b.json"));
    for (QWidget* place : std::initializer_list<QWidget*>{results()->viewport(), window->statusBar()}) {
        files()->scrollToTop();
        const QImage before = files()->grab().toImage();
        QDragEnterEvent enter({5, 5}, Qt::CopyAction, data.get(), Qt::LeftButton, {});
        QApplication::sendEvent(place, &enter);
        EXPECT_TRUE(enter.isAccepted());
        EXPECT_NE(files()->grab().toImage(), before) << "no highlight";
        QDropEvent drop({5, 5}, Qt::CopyAction, data.get(), Qt::LeftButton, {});
        QApplication::sendEvent(place, &drop);
        EXPECT_EQ(rows(files()).back(), utf8(folder.text("b.json")));
        EXPECT_TRUE(files()->viewport()->rect().contains(rowCentre(files(), 101)));
        undo();
        EXPECT_EQ(rows(files()).size(), 101U);
        files()->scrollToTop();
        EXPECT_EQ(files()->grab().toImage(), before);
    }
}

TEST_F(Keys, MenusWorkOnTheSelectedRows) {
    EXPECT_EQ(choose(files(), "Remove") + choose(tags(), "Delete Tag") + choose(results(), "Tick All"), "");
    run();
    clickRow(files(), 0);
    clickRow(tags(), 0);
    EXPECT_EQ(choose(files(), "Copy Path"), "Copy Path");
    EXPECT_EQ(copied(), utf8(folder.text("f.json")));
    EXPECT_NE(choose(files(), "Remove") + choose(tags(), "Delete Tag"), "");
    EXPECT_TRUE(rows(files()).empty() && rows(tags()).empty());
    person.answers = {"a"};
    EXPECT_EQ(choose(tags(), "Add Tag"), "Add Tag");
    EXPECT_THAT(person.shown(), ElementsAre(addTag));

    clickRow(results(), 1);
    clickRow(results(), 3, Qt::ControlModifier);
    for (const auto& [item, marks] : {std::pair{"Tick Only the Selected", "-x-x--"},
                                      {"Invert Ticks", "x-x-xx"},
                                      {"Untick All", "------"},
                                      {"Tick All", "xxxxxx"}}) {
        EXPECT_EQ(choose(results(), item), item);
        EXPECT_EQ(ticks(), marks);
    }
    EXPECT_EQ(choose(results(), "Copy"), "Copy");
    EXPECT_EQ(copied(), "n :1 \r\nn :3 \r\n");
}

TEST_F(Keys, ARightClickDoesNotDragTheRow) {
    fill({u"a", u"b"}, {});
    QTest::mousePress(files()->viewport(), Qt::RightButton, {}, rowCentre(files(), 0));
    (void)choose(files(), "");
    QTest::mouseMove(files()->viewport(), rowCentre(files(), 1));
    EXPECT_THAT(rows(files()), ElementsAre("a", "b"));
}

TEST_F(Keys, EachGestureIsUndoneAsOneStep) {
    run();
    fill({u"a", u"b"}, {u"t"});
    const Texts before = rows(files());
    QTest::mousePress(files()->viewport(), Qt::LeftButton, {}, rowCentre(files(), 0));
    for (const int row : {1, 2})
        QTest::mouseMove(files()->viewport(), rowCentre(files(), row));
    QTest::mouseRelease(files()->viewport(), Qt::LeftButton);
    click("Clear the results");
    doubleClickBelow(files()); // removes the dragged file, which is selected
    EXPECT_THAT(rows(files()), ElementsAre("a", "b"));
    undo();
    EXPECT_EQ(rows(files()).size(), 3U);
    EXPECT_THAT(rows(results()), IsEmpty());
    undo();
    EXPECT_EQ(rows(results()).size(), 6U);
    EXPECT_NE(rows(files()), before);
    undo();
    EXPECT_EQ(rows(files()), before);
    click("Clear the results");
    click("Start Extracting"); // the cleared rows are gone
    undo();
    EXPECT_THAT(rows(tags()), ElementsAre("n")) << "as before the step of \"t\"";
    (void)person.shown();
    SettingsFile().SaveSetting(u"Tags", u"stored||MySeparator12||");
    open();
    undo();
    EXPECT_THAT(rows(tags()), ElementsAre("stored"));
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
    EXPECT_THAT(status(), ::testing::EndsWith(", 2 reports not shown"));
    boxes.clear();
    window->inputFiles().removeAt(6);
    click("Start Extracting"); // another operation
    EXPECT_EQ(boxes, "...---.");
    EXPECT_THAT(status(), ::testing::Not(HasSubstr("not shown")));
    (void)person.shown();
}

TEST_F(Keys, TheWindowClosesWhileADialogIsOpenButTakesNoInput) {
    fill({u"missing"}, {u"n"});
    person.beforeAnswer = [&](QDialog& dialog) {
        EXPECT_EQ(QGuiApplication::modalWindow(), nullptr); // the title bar works
        clickRow(files(), 0);
        QTest::keyClick(files(), Qt::Key_Delete);
        window->controls().PushButton10->click(); // as assistive tools do
        EXPECT_EQ(rows(files()).size() + rows(tags()).size(), 2U);
        if (dialog.windowTitle() == "Application Error")
            window->close();
    };
    click("Start Extracting");
    EXPECT_EQ(ended, 1);
    EXPECT_EQ(stored(u"Tags"), "n||MySeparator12||");
    EXPECT_EQ(person.shown().size(), 2U);
}

TEST_F(Keys, NoIsTheAnswerOfEnterBeforeAFileIsOverwritten) {
    folder.write("out.txt", "old");
    folder.write("Samples/a.json", "{}");
    person.answers = {path("out.txt"), "Enter", "Enter"};
    click("Save Results As Text File");
    EXPECT_EQ(folder.read("out.txt"), "old");
    EXPECT_EQ(person.shown().size(), 2U);
    person.beforeAnswer = [](QDialog& dialog) {
        EXPECT_EQ(static_cast<QMessageBox&>(dialog).defaultButton()->text().remove('&'), "Yes");
    };
    person.answers = {"No"};
    click("Load Sample/Example Files");
    EXPECT_EQ(person.shown().size(), 1U);
}

TEST_F(Keys, TabGoesToTheModeThatIsChosen) {
    for (const int chosen : {3, 7, 1}) { // 7: none
        SettingsFile().SaveSetting(u"Option", QString::number(chosen).toStdU16String());
        open();
        window->controls().PushButton10->setFocus();
        press(Qt::Key_Tab);
        EXPECT_EQ(QApplication::focusWidget()->objectName(), chosen == 3 ? "Option3" : "Option1");
    }
}

TEST_F(Keys, TheReadmeListsTheKeysOfTheToolTips) {
    std::ifstream file(README);
    const std::string readme{std::istreambuf_iterator<char>(file), {}};
    std::size_t keys = 0;
    for (const auto* button : window->findChildren<QAbstractButton*>()) {
        const QString key = button->toolTip().section('(', 1).section(')', 0, 0);
        if (key.isEmpty())
            continue;
        ++keys;
        EXPECT_NE(readme.find("`" + key.toStdString() + "`"), std::string::npos) << key.toStdString();
    }
    EXPECT_EQ(keys, 10U);
}

#ifdef SIGHUP
TEST_F(Keys, ASignalToEndClosesTheWindow) {
    fill({}, {u"n"});
    onEndRequest(*window, [this] { window->close(); });
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
