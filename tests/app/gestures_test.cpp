// Keys and gestures of the mouse, and what the window shows of itself.
#include "app/window_story.h"

#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QMimeData>
#include <QScreen>
#include <QScrollBar>
#include <QUrl>

namespace brindlewick::testing {
namespace {

struct Gestures : WindowStory {
    Gestures() {
        folder.write("drag.ico", png(16, 16));
        open();
    }
    /// A table of `count` rows: the file's name and {"n":0}, {"n":1} ...
    void runFor(int count) {
        std::string records;
        for (int record = 0; record < count; ++record)
            records += "{\"n\":" + std::to_string(record) + "}\n";
        fill({folder.write("f.json", records)}, {u"n"});
        for (const char* choice : {"Include filename in extraction results",
                                   "Extract entire line containing tag", "Start Extracting"})
            click(choice);
        EXPECT_THAT(person.shown(), ElementsAre(done));
    }
    std::string copied(std::initializer_list<int> numbers) {
        std::string text;
        for (const int number : numbers)
            text += utf8(folder.text("f.json")) + "\t{\"n\":" + std::to_string(number) + "}\r\n";
        return text;
    }
    /// Which of the first six rows are ticked.
    std::string ticks() {
        std::string marks;
        for (int row = 0; row < 6; ++row)
            marks += results()->model()->index(row, 0).data(Qt::CheckStateRole) == Qt::Checked ? 'x' : '-';
        return marks;
    }
    static std::string clipboard() { return QGuiApplication::clipboard()->text().toStdString(); }
    /// Drags the data over the file list and lets go. True when all was accepted.
    bool drop(const QMimeData& data) {
        QWidget* const list = files()->viewport();
        QDragEnterEvent enter({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(list, &enter);
        QDragMoveEvent move({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(list, &move);
        QDropEvent drop({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(list, &drop);
        return enter.isAccepted() && move.isAccepted() && drop.isAccepted();
    }
};

TEST_F(Gestures, ShortcutsPressTheirButtons) {
    person.answers = {"Escape", "Escape"};
    for (const Qt::Key key : {Qt::Key_O, Qt::Key_S, Qt::Key_Return, Qt::Key_Enter})
        press(key, Qt::ControlModifier);
    press(Qt::Key_F1);
    const std::string noFiles = "Brindlewick: No files added. [OK]";
    EXPECT_THAT(person.shown(),
                ElementsAre(addDialog, saveDialog, noFiles, noFiles,
                            "Brindlewick: If you need some extraction features added to this software, "
                            "please email support@brindlewick.example [OK]"));
    press(Qt::Key_Q, Qt::ControlModifier);
    EXPECT_EQ(ended, 1);
    EXPECT_FALSE(window->isVisible());
}

TEST_F(Gestures, DeleteAndDoubleClickTakeTheSelectedRowAndCtrlZGivesItBack) {
    fill({u"a", u"b", u"c"}, {u"x", u"y", u"z"});
    for (RowsView* list : {files(), tags()}) { // nothing is selected yet
        press(Qt::Key_Delete, {}, list);
        EXPECT_EQ(rows(list).size(), 3U);
    }
    click("Delete Selected Tag");
    clickRow(tags(), 1);
    press(Qt::Key_Delete, {}, tags());
    EXPECT_THAT(rows(tags()), ElementsAre("x", "z"));
    clickRow(tags(), 0);
    click("Delete Selected Tag");
    EXPECT_THAT(rows(tags()), ElementsAre("z"));
    clickRow(files(), 0);
    press(Qt::Key_Delete, {}, files());
    EXPECT_THAT(rows(files()), ElementsAre("b", "c"));
    clickRow(files(), 1);
    QTest::mouseDClick(files()->viewport(), Qt::LeftButton, {}, rowCentre(files(), 1));
    EXPECT_THAT(rows(files()), ElementsAre("b"));

    click("Clear the JSON files");
    click("Clear the tags");
    EXPECT_TRUE(rows(files()).empty() && rows(tags()).empty());
    for (const auto& [fileRows, tagRows] :
         std::vector<std::pair<Texts, Texts>>{{{}, {"z"}},
                                              {{"b"}, {"z"}},
                                              {{"b", "c"}, {"z"}},
                                              {{"a", "b", "c"}, {"z"}},
                                              {{"a", "b", "c"}, {"x", "z"}}}) {
        press(Qt::Key_Z, Qt::ControlModifier, files()); // takes back the last change, in whichever list
        EXPECT_EQ(rows(files()), fileRows);
        EXPECT_EQ(rows(tags()), tagRows);
    }
}

TEST_F(Gestures, ADraggedFileTravelsDownTheListAndStaysSelected) {
    fill({u"a", u"b", u"c", u"d"}, {});
    QWidget* const list = files()->viewport();
    QTest::mousePress(list, Qt::LeftButton, {}, rowCentre(files(), 0));
    EXPECT_EQ(list->cursor().shape(), Qt::BitmapCursor);
    for (const int row : {1, 2})
        QTest::mouseMove(list, rowCentre(files(), row));
    QTest::mouseRelease(list, Qt::LeftButton, {}, rowCentre(files(), 2));
    EXPECT_EQ(list->cursor().shape(), Qt::ArrowCursor);
    EXPECT_THAT(rows(files()), ElementsAre("b", "c", "a", "d"));
    press(Qt::Key_Delete, {}, files());
    EXPECT_THAT(rows(files()), ElementsAre("b", "c", "d"));
}

TEST_F(Gestures, ADragScrollsLowOnTheScreenAlone) {
    std::vector<std::u16string> many;
    for (int file = 0; file < 50; ++file)
        many.push_back(QString::number(file).toStdU16String());
    fill(many, {});
    QWidget* const list = files()->viewport();
    const int last = files()->rowAt(list->height() - 1) - 1; // that is wholly seen
    for (const int top : {-400, 400}) {
        window->move(0, top);
        QTest::mousePress(list, Qt::LeftButton, {}, rowCentre(files(), 0));
        QTest::mouseMove(list, rowCentre(files(), last));
        EXPECT_EQ(files()->verticalScrollBar()->value() > 0, top > 0);
        QTest::mouseRelease(list, Qt::LeftButton);
    }
}

TEST_F(Gestures, DroppedFilesAndFoldersAreTakenAndNothingElse) {
    for (const char* name : {"in/a.json", "in/~b.json", "in/sub/c.txt"})
        folder.write(name, "{}");
    QMimeData text;
    text.setText("no file");
    EXPECT_FALSE(drop(text));
    QMimeData page;
    page.setUrls({QUrl("https://example.org/a.json")});
    EXPECT_FALSE(drop(page));
    EXPECT_THAT(rows(files()), IsEmpty());
    QMimeData items;
    for (const char* name : {"gone.json", "in"})
        items.setUrls(items.urls() << QUrl::fromLocalFile(path(name)));
    EXPECT_TRUE(drop(items));
    EXPECT_THAT(rows(files()), ElementsAre(utf8(folder.text("gone.json")), utf8(folder.text("in/a.json")),
                                           utf8(folder.text("in/sub/c.txt"))));
    EXPECT_EQ(status(), "3 files added");
}

TEST_F(Gestures, SpaceAndTheMouseTickRowsAndCtrlCCopiesTheSelectedOnes) {
    runFor(100);
    clickRow(results(), 1);
    press(Qt::Key_Space, {}, results());
    EXPECT_EQ(ticks(), "x-xxxx");
    clickRow(results(), 3, Qt::ShiftModifier);
    press(Qt::Key_Space); // all three get what the last one has not
    EXPECT_EQ(ticks(), "x---xx");
    press(Qt::Key_Space);
    EXPECT_EQ(ticks(), "xxxxxx");
    const QRect first = results()->visualRect(results()->model()->index(0, 0));
    QTest::mouseClick(results()->viewport(), Qt::LeftButton, {}, {first.left() + 10, first.center().y()});
    EXPECT_EQ(ticks(), "-xxxxx");

    clickRow(results(), 4);
    for (const int row : {1, 2})
        clickRow(results(), row, Qt::ControlModifier);
    press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(clipboard(), copied({1, 2, 4}));
    press(Qt::Key_End);
    press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(clipboard(), copied({99}));
    press(Qt::Key_Home);
    press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(clipboard(), copied({0}));
    results()->clearSelection(); // nothing to copy, but Space ticks the row that Tab leads to
    press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(clipboard(), copied({0}));
    press(Qt::Key_Space);
    EXPECT_EQ(ticks(), "xxxxxx");
}

TEST_F(Gestures, TabVisitsEveryControlInReadingOrder) {
    files()->setFocus();
    std::string visited;
    do {
        visited += QApplication::focusWidget()->objectName().toStdString() + ' ';
        press(Qt::Key_Tab);
    } while (QApplication::focusWidget() != files() && visited.size() < 1000);
    EXPECT_EQ(visited,
              "ListView1 PushButton1 PushButton5 PushButton16 PushButton13 PushButton14 ListView3 "
              "PushButton3 PushButton4 PushButton8 PushButton10 Option1 PushButton15 Check1 "
              "PushButton7 PushButton2 ListView2 PushButton6 PushButton12 PushButton11 PushButton9 ");
}

TEST_F(Gestures, ColumnsAreAsWideAsMeantAndTheFirstWindowFitsItsScreen) {
    const QSize screen = window->screen()->availableSize();
    EXPECT_LT(window->width(), screen.width());
    EXPECT_LT(window->height(), screen.height());
    EXPECT_GT(window->width(), 600);
    EXPECT_GT(window->height(), 600);
    const auto widths = [](RowsView* list) {
        list->horizontalHeader()->setStretchLastSection(false); // which hides the last one's own width
        std::vector<int> twips;
        for (int column = 0; column < list->model()->columnCount(); ++column)
            twips.push_back(list->columnWidth(column) * 1440 / list->logicalDpiX());
        list->horizontalHeader()->setStretchLastSection(true);
        return twips;
    };
    const auto about = [](int twips) {
        return ::testing::AllOf(::testing::Ge(twips - 15), ::testing::Le(twips));
    };
    for (RowsView* list : {files(), results(), tags()})
        EXPECT_THAT(widths(list), ElementsAre(about(7000)));
    runFor(1);
    EXPECT_THAT(widths(results()), ElementsAre(about(3500), about(3500)));
}

TEST_F(Gestures, CaptionsAndHintsAreAsMeant) {
    std::string captions;
    for (const char* kind : {"PushButton%1", "Option%1", "Check%1"})
        for (int number = 1; number <= 16; ++number)
            if (const auto* const button = window->findChild<QAbstractButton*>(QString(kind).arg(number)))
                captions += button->text().toStdString() + "|";
    for (const char* frame : {"Frame1", "Frame2"})
        captions += window->findChild<QGroupBox*>(frame)->title().toStdString() + "|";
    captions += window->findChild<QLabel*>("Label1")->text().toStdString();
    EXPECT_EQ(
        captions,
        "Add JSON Files|Help|\nAdd Tag|Load Tags From Text File|Add All JSON Files In Folder|Save Results "
        "As Text File|Start Extracting|Delete Selected Tag|\nClear List|\nClear List|Copy Results To "
        "Clipboard|Save As Comma Delimited|Load Sample/Example Files|\nClear List||Load JSON Files From "
        "Text File|Extract value and tag|Extract value without tag|Extract entire line containing "
        "tag|Extract all|Include filename in extraction results|Extract Options|Include Option|Enter tag "
        "without < or / or > :");
    const QString hint = "Move | line to right and out of window to reveal full names.";
    EXPECT_EQ(files()->toolTip(), "Drag and drop files here. Double-click item to remove it. " + hint);
    EXPECT_EQ(results()->toolTip() + tags()->toolTip(), hint + hint);
}

TEST_F(Gestures, AppendedRowsAppearByThemselvesAndAnIdleWindowDoesNothing) {
    struct TimerCount : QObject {
        int count = 0;
        bool eventFilter(QObject*, QEvent* event) override {
            count += event->type() == QEvent::Timer;
            return false;
        }
    } timers;
    files()->setFocus(); // which has no blinking cursor
    QTest::qWait(100);
    qApp->installEventFilter(&timers);
    QTest::qWait(300);
    EXPECT_EQ(timers.count, 0);
    for (const std::size_t count : {2U, 3U}) {
        while (window->tags().size() < count)
            window->tags().append(u"a");
        EXPECT_TRUE(QTest::qWaitFor([&] { return rows(tags()).size() == count; }));
    }
    window->results().beginFile(u"f.json");
    window->results().appendRow(window->results().store(u"text"), false);
    EXPECT_TRUE(QTest::qWaitFor([&] { return rows(results()).size() == 1; }));
}

TEST_F(Gestures, ThePointerIsAHandOverButtonsAlone) {
    const auto over = [&](const char* name) {
        QTest::mouseMove(window->findChild<QWidget*>(name));
        return window->cursor().shape();
    };
    window->user().setHandPointer(Qt::PointingHandCursor);
    EXPECT_EQ(over("PushButton7"), Qt::PointingHandCursor);
    EXPECT_EQ(over("Frame2"), Qt::ArrowCursor);
    EXPECT_EQ(over("PushButton15"), Qt::PointingHandCursor);
    QTest::mouseMove(window->centralWidget(), {2, 2});
    EXPECT_EQ(window->cursor().shape(), Qt::ArrowCursor);
    EXPECT_EQ(over("PushButton15"), Qt::PointingHandCursor);
    QTest::mouseMove(window.get(), {-5, -5});
    EXPECT_EQ(window->cursor().shape(), Qt::ArrowCursor);
}

} // namespace
} // namespace brindlewick::testing
