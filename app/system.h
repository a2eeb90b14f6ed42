// What Qt does not answer about the operating system, or answers differently.
#pragma once

#include <QString>

namespace brindlewick {

/// The environment variable for the user's configuration folder: XDG_CONFIG_HOME, on Windows LOCALAPPDATA.
extern const char* const configFolderVariable;

/// The folder for programs' settings, with "/" as the separator: the value of that variable if it is an
/// absolute path, else the system's default.
[[nodiscard]] QString configFolder();

/// True on systems where a file cannot be replaced while another program (a virus scanner) reads it, so that
/// replacing it must be tried repeatedly.
extern const bool readersBlockReplacement;

/// Makes the copied text available after the process has ended. On Windows the process would else have to
/// provide it.
void keepClipboard() noexcept;

/// True while a debugger is attached to this process.
[[nodiscard]] bool runsUnderDebugger();

} // namespace brindlewick
