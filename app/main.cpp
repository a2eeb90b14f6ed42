// Opens the main window.

#include "app/indicator_style.h"
#include "app/main_window.h"
#include "app/system.h"
#include "platform/files.h"
#include "program_identity.h"

#include <QApplication>
#include <QFont>
#include <cstdlib>

int main(int count, char** words) {
    QApplication application(count, words);
    QApplication::setApplicationVersion(QString::fromLatin1(brindlewick::programVersion));
    QGuiApplication::setDesktopFileName(QString::fromLatin1(brindlewick::desktopId));
    QFont font = QApplication::font();
    font.setFamily(QStringLiteral("Arial")); // message boxes included
    QApplication::setFont(font);
    brindlewick::outlineIndicators();

    // Closing ends the process at once, even inside an operation that dispatches events: the operation must
    // not continue without its window. All settings are already saved.
    brindlewick::Form1 window(brindlewick::programFolder(), [] {
        brindlewick::keepClipboard();
        std::_Exit(EXIT_SUCCESS);
    });
    window.Form_Load();
    brindlewick::onEndRequest(window, [&window] { window.close(); });
    // A desktop can save its session without ending it. When it ends, it closes the window after this.
    QObject::connect(&application, &QGuiApplication::commitDataRequest, &window,
                     [&window] { window.saveForSession(); });
    window.show();
    return QApplication::exec();
}
