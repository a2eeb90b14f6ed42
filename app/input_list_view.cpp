#include "app/input_list_view.h"

#include <QMouseEvent>
#include <QPainter>
#include <utility>

namespace brindlewick {

namespace {

// Of the highlight.
constexpr float veilOpacity = 0.15F;
constexpr int highlightWidth = 3; // pixels

} // namespace

InputListView::InputListView(TextList& list, QWidget* parent) : RowsView(parent), drag_(list) {}

void InputListView::setHighlighted(bool isHighlighted) {
    if (std::exchange(isHighlighted_, isHighlighted) != isHighlighted)
        viewport()->update();
}

void InputListView::endDrag() {
    drag_.ListView1_MouseUp();
    viewport()->unsetCursor();
}

void InputListView::paintEvent(QPaintEvent* event) {
    RowsView::paintEvent(event);
    if (!isHighlighted_)
        return;
    QPainter painter(viewport());
    const QColor colour = palette().color(QPalette::Highlight);
    QColor veil = colour;
    veil.setAlphaF(veilOpacity);
    painter.fillRect(viewport()->rect(), veil);
    painter.setPen(QPen(colour, 2 * highlightWidth));
    painter.drawRect(viewport()->rect());
}

void InputListView::mousePressEvent(QMouseEvent* event) {
    RowsView::mousePressEvent(event);
    drag_.ListView1_MouseDown(); // dragging works with any button
    if (event->button() == Qt::LeftButton && dragPointer_ && indexAt(event->position().toPoint()).isValid())
        viewport()->setCursor(cursorFor(*this, *dragPointer_));
}

void InputListView::mouseMoveEvent(QMouseEvent* event) {
    if (!drag_.isDragging()) {
        RowsView::mouseMoveEvent(event);
        return;
    }
    const QModelIndex under = indexAt(event->position().toPoint());
    const auto rowUnder =
        under.isValid() ? std::optional(static_cast<std::size_t>(under.row())) : std::nullopt;
    const ListDrag::Outcome outcome =
        drag_.ListView1_MouseMove(rowUnder, selectedRow(), event->globalPosition().toPoint().y());
    if (outcome.select)
        setCurrentIndex(model()->index(static_cast<int>(*outcome.select), 0));
    if (outcome.scrollTo)
        scrollTo(model()->index(static_cast<int>(*outcome.scrollTo), 0));
}

void InputListView::mouseReleaseEvent(QMouseEvent* event) {
    endDrag();
    RowsView::mouseReleaseEvent(event);
}

} // namespace brindlewick
