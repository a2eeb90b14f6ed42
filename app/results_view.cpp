#include "app/results_view.h"

#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QStyle>
#include <algorithm>

namespace brindlewick {

ResultsView::ResultsView(ResultsModel& model, QWidget* parent) : RowsView(parent), results_(model) {
    setModel(&model);
    setSelectionMode(ExtendedSelection);
}

std::vector<RowRange> ResultsView::selectedRanges() const {
    std::vector<RowRange> ranges;
    for (const QItemSelectionRange& range : selectionModel()->selection())
        ranges.push_back({static_cast<std::size_t>(range.top()), static_cast<std::size_t>(range.bottom())});
    std::sort(ranges.begin(), ranges.end(),
              [](const RowRange& a, const RowRange& b) { return a.first < b.first; });
    return ranges;
}

void ResultsView::setWidthsInTwips(const QList<int>& twips) {
    for (int column = 0; column < static_cast<int>(twips.size()); ++column)
        setColumnWidthInTwips(column, twips[column]);
}

void ResultsView::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Space && event->modifiers() == Qt::NoModifier)
        toggleSelected();
    else if (event->matches(QKeySequence::Copy) && copyHandler_)
        copyHandler_();
    else if ((event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) &&
             (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier)
        showWholeText();
    else
        RowsView::keyPressEvent(event);
}

/// Two fast clicks on a check box only tick and untick it.
void ResultsView::mouseDoubleClickEvent(QMouseEvent* event) {
    RowsView::mouseDoubleClickEvent(event);
    const QPoint position = event->position().toPoint();
    const QModelIndex index = indexAt(position);
    if (event->button() == Qt::LeftButton && index.isValid() && !checkBoxOf(index).contains(position))
        showWholeText();
}

void ResultsView::showWholeText() {
    if (const QModelIndex current = currentIndex(); current.isValid() && showTextHandler_)
        showTextHandler_(static_cast<std::size_t>(current.row()));
}

QRect ResultsView::checkBoxOf(const QModelIndex& index) const {
    if (index.column() != 0)
        return {};
    QStyleOptionViewItem option;
    initViewItemOption(&option);
    option.rect = visualRect(index);
    option.features |= QStyleOptionViewItem::HasCheckIndicator;
    return style()->subElementRect(QStyle::SE_ItemViewItemCheckIndicator, &option, this);
}

/// Ticks all selected rows if the current row is not ticked, else unticks them. After Tab the current row may
/// not be selected yet: it is selected first.
void ResultsView::toggleSelected() {
    const QModelIndex current = currentIndex();
    if (!current.isValid())
        return;
    if (!selectionModel()->isSelected(current))
        selectRow(current.row());
    const bool checked = current.siblingAtColumn(0).data(Qt::CheckStateRole).toInt() != Qt::Checked;
    for (const auto& [first, last] : selectedRanges())
        results_.setChecked(static_cast<int>(first), static_cast<int>(last), checked);
}

} // namespace brindlewick
