#include "app/rows_view.h"

#include "app/twips.h"

#include <QEvent>
#include <QHeaderView>
#include <QPainter>

namespace brindlewick {

namespace {

constexpr float hintOpacity = 0.6F;
constexpr int minCharacters = 16; // of average width
constexpr int minRows = 4;

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
    fitToFont();
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
    setColumnWidth(column, pixelsFromTwips(twips, *this));
}

void RowsView::paintEvent(QPaintEvent* event) {
    QTableView::paintEvent(event);
    if (model() == nullptr || model()->rowCount() > 0)
        return;
    QPainter painter(viewport());
    // Not QPalette::PlaceholderText: some dark desktop themes do not set it.
    QColor faint = palette().color(QPalette::Text);
    faint.setAlphaF(hintOpacity);
    painter.setPen(faint);
    const int margin = fontMetrics().height();
    const QRect room = viewport()->rect().adjusted(margin, margin / 2, -margin, -margin / 2);
    const int height = painter.boundingRect(room, Qt::AlignHCenter | Qt::TextWordWrap, hint_).height();
    // If the hint does not fit, show its beginning.
    const Qt::Alignment vertical = height > room.height() ? Qt::AlignTop : Qt::AlignVCenter;
    painter.drawText(room, static_cast<int>(Qt::AlignHCenter | vertical) | Qt::TextWordWrap, hint_);
}

void RowsView::changeEvent(QEvent* event) {
    QTableView::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        fitToFont();
}

/// Home and End go to the first and the last row, as in a list. QTableView would move within the row.
QModelIndex RowsView::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) {
    if (action == MoveHome || action == MoveEnd)
        modifiers |= Qt::ControlModifier;
    return QTableView::moveCursor(action, modifiers);
}

void RowsView::fitToFont() {
    const int height = fontMetrics().height() * 3 / 2;
    verticalHeader()->setMinimumSectionSize(height);
    verticalHeader()->setDefaultSectionSize(height);
    setMinimumSize(fontMetrics().averageCharWidth() * minCharacters, height * (minRows + 1));
}

} // namespace brindlewick
