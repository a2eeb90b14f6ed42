// Finding rows in the results, and the window with the whole text of a row.
#include "app/window_story.h"
#include "extract/row_finder.h"
#include "platform/letter_case.h"

#include <QApplication>
#include <QPlainTextEdit>
#include <QSpinBox>
#include <random>

namespace brindlewick::testing {
namespace {

struct Find : WindowStory {
    Find() {
        open();
        window->results().setColumns(true);
        add({u"{\"n\":\"Ash\"}", u"Birch", u"ASH tree", u"Cedar", u"mountain ash"});
        press(Qt::Key_F, Qt::ControlModifier);
    }
    void add(const std::vector<std::u16string>& texts) {
        window->results().beginFile(u"/trees/wood.json");
        for (const std::u16string& text : texts)
            window->results().appendRow(window->results().store(text), true);
        QCoreApplication::processEvents();
    }
    /// Types where the focus is; "<" deletes a character.
    static void type(const char* text) {
        for (; *text != 0; ++text)
            *text == '<' ? QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backspace)
                         : QTest::keyClick(QApplication::focusWidget(), *text);
    }
    template <class Widget>
    Widget* part(const char* name) {
        return window->findChild<Widget*>(name);
    }
    /// The text in the window of a row.
    std::string shown() {
        return part<QWidget>("rowViewer")->isVisible()
                   ? part<QPlainTextEdit>("rowText")->toPlainText().toStdString()
                   : "closed";
    }
    /// True if the text that is being looked for is marked in the cell.
    bool isMarked(int row, int column) {
        const QRect cell = results()->visualRect(results()->model()->index(row, column));
        const QImage before = results()->viewport()->grab(cell).toImage();
        results()->setMarkedText({});
        const bool isChanged = results()->viewport()->grab(cell).toImage() != before;
        results()->setMarkedText(part<QLineEdit>("findText")->text().toStdU16String());
        return isChanged;
    }
    /// What the bar says when the search is at its end.
    std::string count() {
        const auto* const label = part<QLabel>("findCount");
        EXPECT_TRUE(QTest::qWaitFor([&] { return !label->text().endsWith(u'\u2026'); }));
        QCoreApplication::processEvents();
        return label->text().toStdString();
    }
};

TEST_F(Find, AsTheUserTypesAndToTheNextAndPreviousHit) {
    type("aSh");
    EXPECT_EQ(count(), "1 of 3 hits");
    const std::tuple<Qt::Key, Qt::KeyboardModifiers, int, const char*> steps[] = {
        {Qt::Key_F3, {}, 2, "2 of 3 hits"},
        {Qt::Key_Return, {}, 4, "3 of 3 hits"},
        {Qt::Key_F3, {}, 0, "1 of 3 hits"},
        {Qt::Key_F3, Qt::ShiftModifier, 4, "3 of 3 hits"},
        {Qt::Key_Return, Qt::ShiftModifier, 2, "2 of 3 hits"}};
    for (const auto& [key, modifiers, row, text] : steps) {
        press(key, modifiers);
        EXPECT_EQ(count(), text);
        EXPECT_EQ(results()->selectedRow(), row);
    }
    EXPECT_TRUE(isMarked(0, 1) && isMarked(4, 1));
    EXPECT_FALSE(isMarked(0, 0) || isMarked(1, 1));
    type("<<<WOOD.j");
    EXPECT_EQ(count(), "3 of 5 hits"); // the path is shown too
    clickRow(results(), 3);
    EXPECT_EQ(count(), "4 of 5 hits");
}

TEST_F(Find, EscClosesTheBarAndF3OpensItAgainWithItsText) {
    type("cedar");
    EXPECT_EQ(count(), "1 of 1 hit");
    const int height = window->minimumSizeHint().height();
    press(Qt::Key_Escape);
    EXPECT_FALSE(part<QWidget>("findBar")->isVisible());
    QCoreApplication::processEvents();
    EXPECT_LE(height, window->minimumSizeHint().height()); // a small window does not grow
    EXPECT_EQ(QApplication::focusWidget(), results());
    clickRow(results(), 0);
    press(Qt::Key_F3);
    EXPECT_EQ(count(), "1 of 1 hit");
    EXPECT_EQ(results()->selectedRow(), 3);
    type("b"); // replaces the text
    EXPECT_EQ(count(), "1 of 1 hit");
    EXPECT_EQ(results()->selectedRow(), 1);
    press(Qt::Key_Escape, {}, results());
    EXPECT_FALSE(part<QWidget>("findBar")->isVisible());
}

TEST_F(Find, TicksOnlyTheHitsUnlessAnOperationRuns) {
    type("ash");
    EXPECT_EQ(count(), "1 of 3 hits");
    EXPECT_TRUE(inTheMiddleOf("Copy Results To Clipboard", [&] { click("Tick Only These"); }));
    EXPECT_EQ(person.shown().size(), 1U);
    EXPECT_EQ(ticks(), "xxxxx");
    click("Tick Only These");
    EXPECT_EQ(ticks(), "x-x-x");
    press(Qt::Key_F, Qt::ControlModifier);
    type("beech");
    EXPECT_EQ(count(), "No hits");
    click("Tick Only These"); // which would untick all rows
    EXPECT_EQ(ticks(), "x-x-x");
}

TEST_F(Find, FollowsTheRows) {
    type("larch");
    EXPECT_EQ(count(), "No hits");
    add({u"Larch", u"larches"});
    press(Qt::Key_F3);
    EXPECT_EQ(count(), "1 of 2 hits");
    EXPECT_EQ(results()->selectedRow(), 5);
    window->results().clearRows();
    EXPECT_EQ(count(), "No hits");
    add({std::u16string(8'000'000, u'a') + u"Birch", u"birch"});
    type("<<<<<birch");
    EXPECT_EQ(part<QLabel>("findCount")->text(), "Searching\u2026");
    press(Qt::Key_F3); // first hit, then the next
    EXPECT_EQ(count(), "1 of 2 hits");
}

TEST_F(Find, ShowsTheWholeTextOfARow) {
    const auto doubleClick = [&](const QPoint& at) {
        QTest::mouseClick(results()->viewport(), Qt::LeftButton, {}, at);
        QTest::mouseDClick(results()->viewport(), Qt::LeftButton, {}, at);
    };
    clickRow(results(), 2);
    press(Qt::Key_Return);
    EXPECT_EQ(shown(), "ASH tree");
    EXPECT_EQ(part<QLineEdit>("rowPath")->text(), "/trees/wood.json");
    EXPECT_FALSE(part<QSpinBox>("rowPart")->isVisible());
    QTest::keyClick(part<QPlainTextEdit>("rowText"), Qt::Key_Escape);
    EXPECT_EQ(shown(), "closed");
    doubleClick(rowCentre(results(), 4));
    EXPECT_EQ(shown(), "mountain ash");
    QTest::keyClick(part<QWidget>("rowViewer"), Qt::Key_Escape);
    doubleClick(
        {results()->visualRect(results()->model()->index(3, 0)).left() + 10, rowCentre(results(), 3).y()});
    EXPECT_EQ(shown(), "closed"); // on the check box
    clickRow(results(), 1);
    choose(results(), "Show Whole Text");
    EXPECT_EQ(shown(), "Birch");
}

TEST_F(Find, ShowsAHugeTextInParts) {
    // A pair of surrogates and a line end are where parts would begin.
    std::u16string huge(200'000, u'x');
    huge.replace(32767, 2, u"\U0001F333");
    huge.replace(65535, 2, u"\r\n");
    add({huge});
    clickRow(results(), 5);
    press(Qt::Key_Return);
    auto* const number = part<QSpinBox>("rowPart");
    EXPECT_EQ(number->text(), "1 of 7");
    std::string all = shown();
    for (int part = 2; part <= 7; ++part) {
        QTest::keyClick(number, Qt::Key_Up);
        all += shown();
        EXPECT_LT(shown().size(), 40'000U);
    }
    EXPECT_EQ(all, utf8(huge.erase(65535, 1)));
}

TEST(RowFinder, FindsTheSameRowsInSlicesOfAnySize) {
    std::mt19937 random(5);
    for (const std::u16string_view wanted : {u"a", u"aAb", u"abab", u"aabaaab"}) {
        ResultsTable table;
        table.setColumns(true);
        std::vector<std::size_t> hits;
        RowFinder finder(table);
        finder.start(wanted, 0);
        for (std::size_t row = 0; row < 2000; ++row) {
            if (row == 300)
                finder.start(wanted, 200);
            if (row % 7 == 0)
                table.beginFile(row % 21 == 0 ? u"aabaaaB" : u"c");
            std::u16string text(random() % 12, u'b');
            for (char16_t& unit : text)
                unit = u"aAb"[random() % 3];
            table.appendRow(table.store(text), random() % 2 == 0);
            finder.advance(random() % 40);
            const std::u16string cells(std::u16string(table.cell(row, 0)) + u'|' +
                                       std::u16string(table.cell(row, 1)));
            if (foldedCase(cells).find(foldedCase(wanted)) != std::u16string::npos)
                hits.push_back(row);
        }
        while (!finder.isDone())
            finder.advance(1);
        EXPECT_EQ(finder.hitCount(), hits.size());
        for (std::size_t hit = 0; hit < hits.size(); ++hit) {
            ASSERT_EQ(finder.hitFrom(hits[hit] + 1), hits[(hit + 1) % hits.size()]);
            ASSERT_EQ(finder.hitBefore(hits[hit]), hits[(hit + hits.size() - 1) % hits.size()]);
        }
    }
}

} // namespace
} // namespace brindlewick::testing
