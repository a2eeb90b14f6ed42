// The answers of Windows.
#include "app/system.h"

#include <QDir>
#include <QStandardPaths>

#include <windows.h>

#include <ole2.h>

namespace brindlewick {

const char* const configFolderVariable = "LOCALAPPDATA";
const bool readersKeepFiles = true;

QString configFolder() {
    // Qt asks the shell alone, which knows nothing of a variable that was set for one program.
    const QString named = QDir::fromNativeSeparators(qEnvironmentVariable(configFolderVariable));
    return QDir::isAbsolutePath(named)
               ? named
               : QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
}

void keepClipboard() noexcept {
    // Qt has only promised the text, and renders it when somebody pastes.
    ::OleFlushClipboard();
}

bool runsUnderDebugger() {
    return ::IsDebuggerPresent() != 0;
}

} // namespace brindlewick
