#include "app/input_list_view.h"

#include "app/qt_text.h"

#include <QDir>
#include <QDragEnterEvent>
#include <QDragMoveEvent>
#include <QDropEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QUrl>
#include <utility>

namespace brindlewick {

namespace {

std::vector<std::u16string> localFiles(const QMimeData* data) {
    std::vector<std::u16string> paths;
    for (const QUrl& url : data->urls())
        if (url.isLocalFile())
            paths.push_back(fromQString(QDir::toNativeSeparators(url.toLocalFile())));
    return paths;
}

void acceptFiles(QDropEvent* event) {
    if (localFiles(event->mimeData()).empty()) {
        event->setDropAction(Qt::IgnoreAction);
        event->ignore();
    } else {
        event->setDropAction(Qt::CopyAction);
        event->accept();
    }
}

} // namespace

InputListView::InputListView(TextList& list, QWidget* parent) : RowsView(parent), drag_(list) {
    setAcceptDrops(true);
    viewport()->setAcceptDrops(true);
}

void InputListView::setDropHandler(std::function<void(const std::vector<std::u16string>&)> handler) {
    dropHandler_ = std::move(handler);
}

void InputListView::dragEnterEvent(QDragEnterEvent* event) {
    acceptFiles(event);
}

void InputListView::dragMoveEvent(QDragMoveEvent* event) {
    acceptFiles(event);
}

void InputListView::dropEvent(QDropEvent* event) {
    acceptFiles(event);
    if (event->isAccepted() && dropHandler_)
        dropHandler_(localFiles(event->mimeData()));
}

void InputListView::mousePressEvent(QMouseEvent* event) {
    RowsView::mousePressEvent(event);
    drag_.ListView1_MouseDown(); // dragging works with any button
    if (event->button() == Qt::LeftButton && dragPointer_ && indexAt(event->position().toPoint()).isValid())
        viewport()->setCursor(*dragPointer_);
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
    drag_.ListView1_MouseUp();
    viewport()->unsetCursor();
    RowsView::mouseReleaseEvent(event);
}

} // namespace brindlewick
