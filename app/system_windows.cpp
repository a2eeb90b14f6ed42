#include "app/system.h"

#include <QApplication>
#include <QDir>
#include <QStandardPaths>

#include <windows.h>

#include <ole2.h>

namespace brindlewick {

const char* const configFolderVariable = "LOCALAPPDATA";
const bool readersBlockReplacement = true;

QString configFolder() {
    // Qt asks the shell, which ignores the environment variable.
    const QString named = QDir::fromNativeSeparators(qEnvironmentVariable(configFolderVariable));
    return QDir::isAbsolutePath(named)
               ? named
               : QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
}

void keepClipboard(std::unique_ptr<QApplication>&) noexcept {
    // Qt provides the text only when it is pasted.
    ::OleFlushClipboard();
}

void onEndRequest(QObject&, std::function<void()>) {}

bool runsUnderDebugger() {
    return ::IsDebuggerPresent() != 0;
}

} // namespace brindlewick
