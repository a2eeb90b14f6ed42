// What Qt does not answer about the operating system, or answers differently.
#pragma once

#include <QString>
#include <functional>
#include <memory>

class QApplication;
class QObject;

namespace brindlewick {

/// The environment variable for the user's configuration folder: XDG_CONFIG_HOME, on Windows LOCALAPPDATA.
extern const char* const configFolderVariable;

/// The folder for programs' settings, with "/" as the separator: the value of that variable if it is an
/// absolute path, else the system's default.
[[nodiscard]] QString configFolder();

/// True on systems where a file cannot be replaced while another program (a virus scanner) reads it, so that
/// replacing it must be tried repeatedly.
extern const bool readersBlockReplacement;

/// Makes the copied text available after the process has ended; to be called last. On Linux, Qt gives the
/// text to the desktop's clipboard manager when the application object is destroyed, so this is done if text
/// was copied. The process ends here if the manager takes longer than one second.
void keepClipboard(std::unique_ptr<QApplication>& application) noexcept;

/// Calls `handler` in the event loop when the system asks the process to end: by SIGTERM, SIGINT or SIGHUP,
/// as long as `owner` exists. SIGPIPE is ignored from now on. On Windows such a request closes the windows,
/// so there is nothing to do. To be called at most once at a time.
void onEndRequest(QObject& owner, std::function<void()> handler);

/// True while a debugger is attached to this process.
[[nodiscard]] bool runsUnderDebugger();

} // namespace brindlewick
