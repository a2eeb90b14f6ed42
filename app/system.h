// What the window asks the operating system past Qt, since Qt has another answer or none.
#pragma once

#include <QString>

namespace brindlewick {

/// The environment variable that leads to the user's configuration folder: XDG_CONFIG_HOME, on Windows
/// LOCALAPPDATA.
extern const char* const configFolderVariable;

/// The folder below which the user's programs keep their settings, with "/" between its parts: what the
/// variable says if that is an absolute path, else the system's own answer.
QString configFolder();

/// True where a file cannot be replaced while somebody reads it (another window, a virus scanner): whoever
/// replaces one tries for a while.
extern const bool readersKeepFiles;

/// Lets the copied text outlive the process where the system would ask the process for it (Windows).
void keepClipboard() noexcept;

/// True while a debugger follows this program.
bool runsUnderDebugger();

} // namespace brindlewick
