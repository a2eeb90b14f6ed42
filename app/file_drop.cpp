#include "app/file_drop.h"

#include "app/qt_text.h"

#include <QDir>
#include <QDropEvent>
#include <QMimeData>
#include <QUrl>
#include <QWidget>
#include <utility>

namespace brindlewick {

std::vector<std::u16string> localFiles(const QMimeData& data) {
    std::vector<std::u16string> paths;
    for (const QUrl& url : data.urls())
        if (url.isLocalFile())
            paths.push_back(fromQString(QDir::toNativeSeparators(url.toLocalFile())));
    return paths;
}

FileDrop::FileDrop(QWidget& window, std::function<void(bool)> highlight,
                   std::function<void(const std::vector<std::u16string>&)> drop)
    : QObject(&window), highlight_(std::move(highlight)), drop_(std::move(drop)) {
    window.setAcceptDrops(true);
    window.installEventFilter(this);
}

bool FileDrop::eventFilter(QObject*, QEvent* event) {
    switch (event->type()) {
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::Drop:
        break;
    case QEvent::DragLeave:
        highlight_(false);
        return true;
    default:
        return false;
    }
    auto* const drag = static_cast<QDropEvent*>(event);
    const std::vector<std::u16string> paths = localFiles(*drag->mimeData());
    drag->setDropAction(paths.empty() ? Qt::IgnoreAction : Qt::CopyAction);
    drag->setAccepted(!paths.empty());
    highlight_(!paths.empty() && event->type() != QEvent::Drop);
    if (!paths.empty() && event->type() == QEvent::Drop)
        drop_(paths);
    return true;
}

} // namespace brindlewick
