// Opens the main window.

#include "app/indicator_style.h"
#include "app/main_window.h"
#include "app/system.h"
#include "platform/files.h"
#include "program_identity.h"

#include <QApplication>
#include <QFont>
#include <QTimer>
#include <cstdlib>
#include <memory>

namespace {

void saveTagsAfterChanges(brindlewick::Form1& window) {
    auto* const pause = new QTimer(&window);
    pause->setSingleShot(true);
    pause->setInterval(1000); // ms
    const auto start = [pause] { pause->start(); };
    const QAbstractItemModel* const tags = window.controls().ListView3->model();
    QObject::connect(tags, &QAbstractItemModel::rowsInserted, pause, start);
    QObject::connect(tags, &QAbstractItemModel::rowsRemoved, pause, start);
    QObject::connect(tags, &QAbstractItemModel::modelReset, pause, start);
    QObject::connect(pause, &QTimer::timeout, &window, [&window] { window.saveTags(); });
}

} // namespace

int main(int count, char** words) {
    auto application = std::make_unique<QApplication>(count, words);
    QApplication::setApplicationVersion(QString::fromLatin1(brindlewick::programVersion));
    QGuiApplication::setDesktopFileName(QString::fromLatin1(brindlewick::desktopId));
    QFont font = QApplication::font();
    font.setFamily(QStringLiteral("Arial")); // message boxes included
    QApplication::setFont(font);
    brindlewick::outlineIndicators();

    // Closing ends the process at once, even inside an operation that dispatches events: the operation must
    // not continue without its window. All settings are already saved.
    brindlewick::Form1 window(brindlewick::programFolder(), [&application] {
        brindlewick::keepClipboard(application);
        std::_Exit(EXIT_SUCCESS);
    });
    window.Form_Load();
    brindlewick::onEndRequest(window, [&window] { window.close(); });
    // A desktop can save its session without ending it. When it ends, it closes the window after this.
    QObject::connect(application.get(), &QGuiApplication::commitDataRequest, &window,
                     [&window] { window.saveTags(); });
    // Wayland has no such request: Qt ends the process when the desktop has gone.
    if (QGuiApplication::platformName().startsWith(QStringLiteral("wayland")))
        saveTagsAfterChanges(window);
    window.show();
    return QApplication::exec();
}
