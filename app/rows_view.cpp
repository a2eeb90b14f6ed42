#include "app/rows_view.h"

#include "app/row_delegate.h"
#include "app/twips.h"

#include <QEvent>
#include <QHeaderView>
#include <QPainter>
#include <QScrollBar>
#include <QStyleOptionHeader>
#include <algorithm>

namespace brindlewick {

namespace {

constexpr int minCharacters = 10; // of average width

/// Draws a line at the end of the last column too: the divider that makes the column wider.
class DividedHeader : public QHeaderView {
public:
    using QHeaderView::QHeaderView;

protected:
    void initStyleOptionForIndex(QStyleOptionHeader* option, int section) const override {
        QHeaderView::initStyleOptionForIndex(option, section);
        option->position = QStyleOptionHeader::Middle;
    }
};

} // namespace

RowsView::RowsView(QWidget* parent) : QTableView(parent), delegate_(new RowDelegate(*this)) {
    setHorizontalHeader(new DividedHeader(Qt::Horizontal, this));
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
    setItemDelegate(delegate_);
    fitToFont();
}

void RowsView::setModel(QAbstractItemModel* model) {
    QTableView::setModel(model);
    for (const auto signal : {&QAbstractItemModel::rowsInserted, &QAbstractItemModel::rowsRemoved})
        connect(model, signal, this, [this] { showScrollBarsIfNeeded(); });
    connect(model, &QAbstractItemModel::modelReset, this, [this] { showScrollBarsIfNeeded(); });
    showScrollBarsIfNeeded();
}

/// None on an empty list: there is nothing to scroll to.
void RowsView::showScrollBarsIfNeeded() {
    const auto policy = model()->rowCount() > 0 ? Qt::ScrollBarAsNeeded : Qt::ScrollBarAlwaysOff;
    setHorizontalScrollBarPolicy(policy);
    setVerticalScrollBarPolicy(policy);
}

std::optional<std::size_t> RowsView::selectedRow() const {
    const QModelIndex current = currentIndex();
    if (!current.isValid() || !selectionModel()->isSelected(current))
        return std::nullopt;
    return static_cast<std::size_t>(current.row());
}

void RowsView::setColumnWidthInTwips(int column, int twips) {
    const int width = pixelsFromTwips(twips, *this);
    setColumnWidth(column, width);
    wantedWidth_ = std::max(wantedWidth_, columnViewportPosition(column) + width);
    updateGeometry();
}

QSize RowsView::sizeHint() const {
    const int frame = 2 * frameWidth() + verticalScrollBar()->sizeHint().width();
    return {std::max(wantedWidth_ + frame, minimumWidth()), minimumHeight()};
}

void RowsView::setMinRows(int rows) {
    minRows_ = rows;
    fitToFont();
}

void RowsView::setMarkedText(std::u16string_view text) {
    delegate_->setMarkedText(text);
    viewport()->update();
}

void RowsView::paintEvent(QPaintEvent* event) {
    QTableView::paintEvent(event);
    if (model() == nullptr || model()->rowCount() > 0)
        return;
    QPainter painter(viewport());
    painter.setFont(font());
    paintStep(painter, viewport()->rect(), step_, palette());
    if (hasFocus())
        paintFocusFrame(painter, viewport()->rect(), palette());
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
    setMinimumSize(fontMetrics().averageCharWidth() * minCharacters, height * (minRows_ + 1));
}

} // namespace brindlewick
