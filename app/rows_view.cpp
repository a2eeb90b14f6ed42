#include "app/rows_view.h"

#include <QEvent>
#include <QHeaderView>
#include <QPainter>

namespace brindlewick {

namespace {

constexpr int twipsPerInch = 1440;

} // namespace

RowsView::RowsView(QWidget* parent) : QTableView(parent) {
    setSelectionBehavior(SelectRows);
    setSelectionMode(SingleSelection);
    setEditTriggers(NoEditTriggers);
    setWordWrap(false);
    setShowGrid(false);
    setTabKeyNavigation(false); // Tab goes to the next control
    setCornerButtonEnabled(false);
    setHorizontalScrollMode(ScrollPerPixel);
    setTextElideMode(Qt::ElideRight);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setSectionsClickable(false);
    horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    horizontalHeader()->setStretchLastSection(true);
    fitRowsToFont();
}

void RowsView::setHint(const QString& hint) {
    hint_ = hint;
    setToolTip(hint);
}

std::optional<std::size_t> RowsView::selectedRow() const {
    const QModelIndex current = currentIndex();
    if (!current.isValid() || !selectionModel()->isSelected(current))
        return std::nullopt;
    return static_cast<std::size_t>(current.row());
}

void RowsView::setColumnWidthInTwips(int column, int twips) {
    setColumnWidth(column, twips * logicalDpiX() / twipsPerInch);
}

void RowsView::paintEvent(QPaintEvent* event) {
    QTableView::paintEvent(event);
    if (model() == nullptr || model()->rowCount() > 0)
        return;
    QPainter painter(viewport());
    painter.setPen(palette().color(QPalette::PlaceholderText));
    const int margin = fontMetrics().height();
    painter.drawText(viewport()->rect().adjusted(margin, margin / 2, -margin, -margin / 2),
                     Qt::AlignCenter | Qt::TextWordWrap, hint_);
}

void RowsView::changeEvent(QEvent* event) {
    QTableView::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        fitRowsToFont();
}

void RowsView::fitRowsToFont() {
    const int height = fontMetrics().height() * 3 / 2;
    verticalHeader()->setMinimumSectionSize(height);
    verticalHeader()->setDefaultSectionSize(height);
}

} // namespace brindlewick
