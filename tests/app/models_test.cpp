// The models of the lists and the table, and the view of the table.
#include "app/qt_text.h"
#include "app/results_model.h"
#include "app/results_view.h"
#include "app/text_list_model.h"

#include <QAbstractItemModelTester>
#include <QTest>
#include <functional>
#include <gtest/gtest.h>

namespace brindlewick {
namespace {

TEST(DisplayText, ShowsTheBeginningOnOneLine) {
    EXPECT_EQ(displayText(u"a\r\nb\tc").toStdString(), "a  b c");
    const QString shown = displayText(std::u16string(100'000'000, u'x'));
    EXPECT_LT(shown.size(), 1000);
    EXPECT_TRUE(shown.endsWith(QChar(0x2026)));
    EXPECT_FALSE(displayText(std::u16string(499, u'x') + u"\U0001F600 and more").at(499).isSurrogate());
}

/// How often the model reports new rows while `append` and then the event loop run.
int batchesOf(QAbstractItemModel& model, const std::function<void()>& append) {
    int batches = 0;
    QObject connection;
    QObject::connect(&model, &QAbstractItemModel::rowsInserted, &connection, [&] { ++batches; });
    append();
    QCoreApplication::processEvents();
    return batches;
}

TEST(TextListModel, ShowsAppendedRowsInOneBatchWhenTheEventLoopContinues) {
    TextList list;
    TextListModel model(list);
    const auto append = [&] {
        for (int row = 0; row < 1000; ++row)
            list.append(u"text");
    };
    for (const int rows : {1000, 2000}) {
        EXPECT_EQ(batchesOf(model, append), 1);
        EXPECT_EQ(model.rowCount(), rows);
    }
    append();
    list.clear(); // before the model has caught up
    EXPECT_EQ(batchesOf(model, append), 1);
    EXPECT_EQ(model.rowCount(), 1000);
}

TEST(ResultsModel, ShowsAppendedRowsInOneBatchWhenTheEventLoopContinues) {
    ResultsTable table;
    ResultsModel model(table);
    table.setColumns(false);
    table.beginFile(u"f");
    const auto append = [&] {
        for (int row = 0; row < 1000; ++row)
            table.appendRow(table.store(u"text"), false);
    };
    for (const int rows : {1000, 2000}) {
        EXPECT_EQ(batchesOf(model, append), 1);
        EXPECT_EQ(model.rowCount(), rows);
    }
    append();
    table.truncateRows(500); // before the model has caught up
    EXPECT_EQ(batchesOf(model, append), 1);
    EXPECT_EQ(model.rowCount(), 1500);
}

TEST(TextListModel, FollowsItsList) {
    TextList list;
    TextListModel model(list);
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal);
    for (const char16_t* text : {u"a", u"b", u"c"})
        list.append(text);
    EXPECT_EQ(model.rowCount(), 0); // not before it catches up
    model.catchUp();
    EXPECT_EQ(model.rowCount(), 3);
    list.append(u"d");
    list.removeAt(1); // the model catches up first
    EXPECT_EQ(model.rowCount(), 3);
    int changes = 0;
    QObject::connect(&model, &QAbstractItemModel::dataChanged, [&] { ++changes; });
    list.exchange(0, 2);
    EXPECT_EQ(changes, 2);
    EXPECT_EQ(model.index(0, 0).data().toString().toStdString(), "d");
    list.clear();
    EXPECT_EQ(model.rowCount(), 0);
}

TEST(ResultsModel, FollowsItsTable) {
    ResultsTable table;
    ResultsModel model(table);
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal);
    table.setColumns(true);
    table.beginFile(u"f.json");
    for (int row = 0; row < 3; ++row)
        table.appendRow(table.store(u"text"), true);
    model.catchUp();
    EXPECT_EQ(model.rowCount(), 3);
    EXPECT_EQ(model.columnCount(), 2);
    EXPECT_EQ(model.headerData(1, Qt::Horizontal, Qt::DisplayRole).toString().toStdString(), "Results");
    EXPECT_EQ(model.index(2, 0).data().toString().toStdString(), "f.json");
    EXPECT_EQ(model.index(2, 0).data(Qt::CheckStateRole).toInt(), Qt::Checked);
    EXPECT_TRUE(model.setData(model.index(1, 0), Qt::Unchecked, Qt::CheckStateRole));
    EXPECT_FALSE(table.isChecked(1));
    table.truncateRows(1);
    EXPECT_EQ(model.rowCount(), 1);
    table.clearAll();
    EXPECT_EQ(model.columnCount(), 0);
}

TEST(ResultsView, TicksAllSelectedRowsWithSpaceAndGoesToTheEnds) {
    ResultsTable table;
    table.setColumns(true);
    table.beginFile(u"f");
    for (int row = 0; row < 100; ++row)
        table.appendRow(table.store(u"text"), true);
    table.setChecked(3, false);
    ResultsModel model(table);
    ResultsView view(model);
    view.setCurrentIndex(model.index(2, 0));
    QTest::keyClick(&view, Qt::Key_Down, Qt::ShiftModifier);
    QTest::keyClick(&view, Qt::Key_Down, Qt::ShiftModifier);
    for (const bool isTicked : {false, true}) {
        QTest::keyClick(&view, Qt::Key_Space); // the current row, 4, was ticked
        for (const std::size_t row : {2U, 3U, 4U})
            EXPECT_EQ(table.isChecked(row), isTicked);
        EXPECT_TRUE(table.isChecked(5));
    }
    QTest::keyClick(&view, Qt::Key_End);
    EXPECT_EQ(view.selectedRow(), 99U);
    QTest::keyClick(&view, Qt::Key_Home);
    EXPECT_EQ(view.selectedRow(), 0U);
    view.clearSelection(); // as after Tab
    QTest::keyClick(&view, Qt::Key_Space);
    EXPECT_FALSE(table.isChecked(0));
}

} // namespace
} // namespace brindlewick
