#include "app/file_drop.h"

#include "app/qt_text.h"

#include <QDropEvent>
#include <QMimeData>
#include <QSysInfo>
#include <QUrl>
#include <QWidget>
#include <utility>

namespace brindlewick {

namespace {

/// True for a name of this computer.
bool isOwnHost(const QString& host) {
    for (const QString& own : {QString(), QStringLiteral("localhost"), QSysInfo::machineHostName()})
        if (host.compare(own, Qt::CaseInsensitive) == 0)
            return true;
    return false;
}

} // namespace

DroppedFiles filesIn(const QMimeData& data) {
    DroppedFiles files;
    for (QUrl url : data.urls()) {
        if (!url.isLocalFile())
            continue;
        if (isOwnHost(url.host()))
            url.setHost({});
#ifndef Q_OS_WIN
        if (!url.host().isEmpty()) {
            ++files.elsewhere;
            continue;
        }
#endif
        files.paths.push_back(pathOfUrl(url));
    }
    return files;
}

FileDrop::FileDrop(QWidget& window, std::function<void(bool)> highlight,
                   std::function<void(const DroppedFiles&)> drop)
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
    const DroppedFiles files = filesIn(*drag->mimeData());
    drag->setDropAction(files.empty() ? Qt::IgnoreAction : Qt::CopyAction);
    drag->setAccepted(!files.empty());
    highlight_(!files.empty() && event->type() != QEvent::Drop);
    if (!files.empty() && event->type() == QEvent::Drop)
        drop_(files);
    return true;
}

} // namespace brindlewick
