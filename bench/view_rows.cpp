// How fast the results list takes rows and paints, compared with the toolkit's table of items.
//
//     view_rows ROWS
#include "app/controls.h"
#include "app/results_model.h"
#include "app/results_view.h"
#include "extract/results_table.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QImage>
#include <QScrollBar>
#include <QTableWidget>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <vector>

namespace {

using namespace brindlewick;

constexpr int itemRows = 100'000; // of the toolkit's table: enough for a cost per row
constexpr int pages = 21;

double seconds(const QElapsedTimer& timer) {
    return static_cast<double>(timer.nsecsElapsed()) / 1e9;
}

double secondsPerItemRow() {
    QTableWidget table(0, 1);
    QElapsedTimer timer;
    timer.start();
    for (int row = 0; row < itemRows; ++row) {
        table.insertRow(row);
        auto* const item = new QTableWidgetItem(QStringLiteral("a value of some length"));
        item->setCheckState(Qt::Checked);
        table.setItem(row, 0, item);
    }
    return seconds(timer) / itemRows;
}

double paint(QWidget& view) {
    QElapsedTimer timer;
    timer.start();
    view.grab();
    return seconds(timer);
}

} // namespace

int main(int count, char** words) {
    const QApplication application(count, words);
    const long rows = count == 2 ? std::strtol(words[1], nullptr, 10) : 0;
    if (rows <= 0) {
        std::fputs("usage: view_rows ROWS\n", stderr);
        return EXIT_FAILURE;
    }
    ResultsTable table;
    table.setColumns(false);
    ResultsModel model(table);
    ResultsView view(model);
    view.resize(1000, 600);
    view.show();
    QApplication::processEvents();

    QElapsedTimer timer;
    timer.start();
    table.beginFile(u"/data/file.json");
    for (long row = 0; row < rows; ++row) {
        table.appendRow(table.store(u"a value of some length"), false);
        if (row % 10'000 == 0)
            model.catchUp();
    }
    model.catchUp();
    const double perRow = seconds(timer) / static_cast<double>(rows);
    timer.start();
    QApplication::processEvents();
    const double firstPaint = seconds(timer) + paint(view);

    std::vector<double> pageTimes;
    for (int page = 0; page < pages; ++page) {
        QScrollBar& bar = *view.verticalScrollBar();
        timer.start();
        bar.setValue(static_cast<int>(static_cast<double>(bar.maximum()) * page / (pages - 1)));
        pageTimes.push_back(seconds(timer) + paint(view));
    }
    const double perItemRow = secondsPerItemRow();
    std::nth_element(pageTimes.begin(), pageTimes.begin() + pages / 2, pageTimes.end());
    std::printf("row %.9f item-row %.9f first-paint %.6f page %.6f\n", perRow, perItemRow, firstPaint,
                pageTimes[pages / 2]);
    return EXIT_SUCCESS;
}
