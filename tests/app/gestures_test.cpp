// Gestures of mouse and keyboard in the lists, undoing them, and what the window shows of itself.
#include "app/qt_text.h"
#include "app/row_delegate.h"
#include "app/window_story.h"

#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QHelpEvent>
#include <QMimeData>
#include <QScreen>
#include <QStatusBar>
#include <QToolTip>
#include <QUrl>

namespace brindlewick::testing {
namespace {

struct Gestures : WindowStory {
    Gestures() { open(); }
    void undo() { press(Qt::Key_Z, Qt::ControlModifier); }
    void dragFirstFileTo(int row) {
        QWidget* const list = files()->viewport();
        QTest::mousePress(list, Qt::LeftButton, {}, rowCentre(files(), 0));
        for (int over = 1; over <= row; ++over)
            QTest::mouseMove(list, rowCentre(files(), over));
        QTest::mouseRelease(list, Qt::LeftButton, {}, rowCentre(files(), row));
    }
    /// Drags the data over the place and lets go. True when all was accepted.
    static bool drop(QWidget* place, const QMimeData& data) {
        QDragEnterEvent enter({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(place, &enter);
        QDragMoveEvent move({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(place, &move);
        QDropEvent drop({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(place, &drop);
        return enter.isAccepted() && move.isAccepted() && drop.isAccepted();
    }
    /// The text of the tool tip over the file.
    std::string tipOver(int row) {
        QToolTip::hideText();
        const QPoint at = rowCentre(files(), row);
        QHelpEvent pause(QEvent::ToolTip, at, files()->viewport()->mapToGlobal(at));
        QApplication::sendEvent(files()->viewport(), &pause);
        return QToolTip::text().remove(QChar(0x200B)).toStdString();
    }
};

TEST_F(Gestures, DeleteAndDoubleClickTakeTheSelectedRowAndCtrlZGivesItBack) {
    fill({u"a", u"b", u"c"}, {u"x", u"y", u"z"});
    for (RowsView* list : {files(), tags()}) { // nothing is selected yet
        press(Qt::Key_Delete, {}, list);
        EXPECT_EQ(rows(list).size(), 3U);
    }
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
    EXPECT_EQ(status(), "1 file removed; Ctrl+Z brings it back");
    click("Clear the JSON files");
    click("Clear the tags");
    Texts steps; // what each Ctrl+Z gives back, in whichever list
    for (int step = 0; step < 5; ++step) {
        undo();
        steps.push_back(std::to_string(rows(files()).size()) + std::to_string(rows(tags()).size()));
    }
    EXPECT_THAT(steps, ElementsAre("01", "11", "21", "31", "32"));
    EXPECT_THAT(rows(files()), ElementsAre("a", "b", "c"));
}

TEST_F(Gestures, ADraggedFileStaysSelectedAndEachGestureIsUndoneAsOneStep) {
    run(6);
    fill({u"b", u"c", u"d"}, {u"t"});
    const Texts before = rows(files());
    dragFirstFileTo(2);
    const Texts dragged = rows(files());
    EXPECT_THAT(dragged, ElementsAre("b", "c", before[0], "d"));
    click("Clear the results");
    press(Qt::Key_Delete, {}, files());
    EXPECT_THAT(rows(files()), ElementsAre("b", "c", "d"));
    undo();
    EXPECT_EQ(rows(files()), dragged);
    EXPECT_THAT(rows(results()), IsEmpty());
    undo();
    EXPECT_EQ(rows(results()).size(), 6U);
    undo();
    EXPECT_EQ(rows(files()), before);
    QTest::mousePress(files()->viewport(), Qt::RightButton, {}, rowCentre(files(), 0));
    (void)choose(files(), "");
    QTest::mouseMove(files()->viewport(), rowCentre(files(), 1));
    EXPECT_EQ(rows(files()), before) << "the menu takes the release";
    click("Clear the results");
    click("Start Extracting"); // the cleared rows are gone
    undo();
    EXPECT_THAT(rows(tags()), ElementsAre("n")) << "as before the step of \"t\"";
    (void)person.shown();
}

TEST_F(Gestures, FilesAreDroppedAnywhereOrPastedAndShown) {
    for (const char* name : {"in/a.json", "in/~b.json", "in/sub/c.txt"})
        folder.write(name, "{}");
    QMimeData text;
    text.setText("no file");
    QMimeData page;
    page.setUrls({QUrl("https://example.org/a.json")});
    EXPECT_FALSE(drop(files()->viewport(), text) || drop(files()->viewport(), page));
    EXPECT_THAT(rows(files()), IsEmpty());
    auto* const items = new QMimeData;
    items->setUrls({QUrl::fromLocalFile(path("gone.json")), QUrl::fromLocalFile(path("in"))});
    fill(std::vector<std::u16string>(100, u"old"), {});
    const auto expectAdded = [&] {
        EXPECT_EQ(status(), "3 files added");
        Texts added = rows(files());
        added.erase(added.begin(), added.begin() + 100);
        EXPECT_THAT(added, ElementsAre(utf8(folder.text("gone.json")), utf8(folder.text("in/a.json")),
                                       utf8(folder.text("in/sub/c.txt"))));
        EXPECT_TRUE(files()->viewport()->rect().contains(rowCentre(files(), 102)));
        undo();
        EXPECT_EQ(rows(files()).size(), 100U);
        files()->scrollToTop();
    };
    for (QWidget* place :
         {files()->viewport(), results()->viewport(), static_cast<QWidget*>(window->statusBar())}) {
        EXPECT_TRUE(drop(place, *items));
        expectAdded();
    }
    QGuiApplication::clipboard()->setMimeData(items);
    press(Qt::Key_V, Qt::ControlModifier, files());
    expectAdded();
    QGuiApplication::clipboard()->setText("in\r\n" + path("in") + "\r\n" + path("gone.json"));
    EXPECT_EQ(choose(files(), "Paste Files"), "Paste Files");
    EXPECT_EQ(status(), "2 files added"); // what exists
    EXPECT_EQ(choose(files(), "Undo"), "Undo");
}

TEST_F(Gestures, SpaceMouseAndMenuTickRowsAndCtrlCCopiesTheSelectedOnes) {
    EXPECT_EQ(choose(files(), "Remove") + choose(tags(), "Delete Tag") + choose(results(), "Tick All"), "");
    run(6);
    clickRow(results(), 1);
    press(Qt::Key_Space, {}, results());
    EXPECT_EQ(ticks(), "x-xxxx");
    clickRow(results(), 3, Qt::ShiftModifier);
    press(Qt::Key_Space); // all three get what the last one has not
    EXPECT_EQ(ticks(), "x---xx");
    const QRect first = results()->visualRect(results()->model()->index(0, 0));
    QTest::mouseClick(results()->viewport(), Qt::LeftButton, {}, {first.left() + 10, first.center().y()});
    EXPECT_EQ(ticks(), "----xx");
    clickRow(results(), 4);
    for (const int row : {1, 2})
        clickRow(results(), row, Qt::ControlModifier);
    press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(copied(), "n :1 \nn :2 \nn :4 \n");
    for (const auto& [item, marks] : {std::pair{"Tick Only the Selected", "-xx-x-"},
                                      {"Invert Ticks", "x--x-x"},
                                      {"Untick All", "------"},
                                      {"Tick All", "xxxxxx"}}) {
        EXPECT_EQ(choose(results(), item), item);
        EXPECT_EQ(ticks(), marks);
    }
    for (const auto& [key, text] : {std::pair{Qt::Key_End, "n :5 \n"}, {Qt::Key_Home, "n :0 \n"}}) {
        press(key);
        EXPECT_EQ(choose(results(), "Copy"), "Copy");
        EXPECT_EQ(copied(), text);
    }
    clickRow(files(), 0);
    clickRow(tags(), 0);
    EXPECT_EQ(choose(files(), "Copy Path"), "Copy Path");
    EXPECT_EQ(copied(), utf8(folder.text("f.json")));
    EXPECT_EQ(choose(files(), "Remove") + choose(tags(), "Delete Tag"), "RemoveDelete Tag");
    EXPECT_TRUE(rows(files()).empty() && rows(tags()).empty());
}

TEST_F(Gestures, ColumnsAreAsWideAsMeantAndTheFirstWindowFitsItsScreen) {
    const QSize screen = window->screen()->availableSize();
    EXPECT_LT(window->width(), screen.width());
    EXPECT_LT(window->height(), screen.height());
    EXPECT_GT(std::min(window->width(), window->height()), 600);
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
    click("Include filename in extraction results");
    run(1);
    EXPECT_THAT(widths(results()), ElementsAre(about(3500), about(3500)));
}

TEST_F(Gestures, ShortenedPathsKeepTheFileNameAndAToolTipShowsTheWhole) {
    const QFontMetrics metrics(QApplication::font());
    const int room = metrics.horizontalAdvance(QString(24, u'n'));
    const QString folders = "/srv/archive of all harbours/quarterly exports/2023";
    EXPECT_EQ(shortenedPath("/srv/a.json", metrics, room), "/srv/a.json");
    EXPECT_THAT(shortenedPath(folders + "/orders-of-january.json", metrics, room).toStdString(),
                ::testing::MatchesRegex("/.*\u2026.*/orders-of-january\\.json"));
    fill({u"/srv/<b>" + std::u16string(700, u'd') + u"/end.json", u"/a.json"}, {});
    EXPECT_THAT(tipOver(0), ::testing::HasSubstr("&lt;b&gt;" + std::string(700, 'd') + "/end.json"));
    EXPECT_EQ(tipOver(1), files()->toolTip().toStdString());
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

TEST_F(Gestures, DroppedAddressesGiveTheFilesOfThisComputer) {
#ifdef Q_OS_WIN
    GTEST_SKIP() << "Windows has network paths";
#endif
    QMimeData data;
    data.setData("text/uri-list",
                 "file://far.example/a.json\r\nfile://LOCALHOST/%FF%C3%A4%23%3F.json\r\nfile://" +
                     QSysInfo::machineHostName().toUtf8() + "/c.json\r\n");
    EXPECT_TRUE(drop(files()->viewport(), data));
    EXPECT_EQ(window->inputFiles()[0], u"/\xDCFF\u00E4#?.json");
    EXPECT_EQ(pathOfUrl(urlOfPath(window->inputFiles()[0])), window->inputFiles()[0]);
    EXPECT_EQ(window->inputFiles()[1], u"/c.json");
    EXPECT_EQ(status(), "2 files added; 1 file of another computer left out");
}

TEST_F(Gestures, TheStatusBarIsRightWhenADialogOpensAndForgetsWhatIsOver) {
    const auto gone = folder.text("gone.json");
    fill({folder.write("a.json", "{\"n\":1}\n"), gone, folder.write("b.json", "{\"n\":2}\n")}, {u"n"});
    folder.write("old.txt", "");
    const std::string counts = "3 files; 1 tag; 2 rows, 2 ticked";
    Texts texts;
    person.beforeAnswer = [&](QDialog&) { texts.push_back(status()); };
    click("Start Extracting");
    person.answers = {path("old.txt"), "No"};
    click("Save Results As Text File");
    EXPECT_THAT(texts, ElementsAre("Extracting file 2 of 3, 1 row so far: " + utf8(gone),
                                   "2 rows found; 2 files read; 1 file could not be read", counts, counts));
    EXPECT_THAT(person.shown(), ElementsAre(report("File not found", "Form1.PushButton7_Click"), done,
                                            saveDialog, ::testing::StartsWith("Brindlewick: Are you sure")));
    EXPECT_EQ(status(), counts);
    person.answers = {path("new.txt")};
    click("Save Results As Text File");
    EXPECT_EQ(status(), "2 rows written; file: " + utf8(folder.text("new.txt")));
    press(Qt::Key_Home, {}, results());
    press(Qt::Key_Space);
    EXPECT_EQ(status(), "3 files; 1 tag; 2 rows, 1 ticked");
    click("Clear the results");
    EXPECT_EQ(status(), "3 files; 1 tag");
    click("Clear the JSON files");
    click("Clear the tags");
    EXPECT_EQ(status(), "");
    EXPECT_EQ(person.shown().size(), 1U);
}

} // namespace
} // namespace brindlewick::testing
