#include "app/system.h"

#include <QApplication>
#include <QByteArray>
#include <QClipboard>
#include <QFile>
#include <QSocketNotifier>
#include <QStandardPaths>
#include <QWindow>

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <unistd.h>
#include <utility>

namespace brindlewick {

namespace {

int requestPipe[2] = {-1, -1}; // a byte for each signal

extern "C" void writeRequest(int) {
    const int error = errno;
    // If the pipe is full, requests are already waiting.
    [[maybe_unused]] const ssize_t written = write(requestPipe[1], "", 1);
    errno = error;
}

void watchSignal(int signal) {
    struct sigaction action {};
    // A signal that is ignored, for example by nohup, is still ignored.
    if (sigaction(signal, nullptr, &action) != 0 || action.sa_handler == SIG_IGN)
        return;
    action = {};
    action.sa_handler = writeRequest;
    action.sa_flags = SA_RESTART;
    sigaction(signal, &action, nullptr);
}

} // namespace

const char* const configFolderVariable = "XDG_CONFIG_HOME";
const bool readersBlockReplacement = false;

QString configFolder() {
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
}

void keepClipboard(std::unique_ptr<QApplication>& application) noexcept {
    if (!QGuiApplication::clipboard()->ownsClipboard())
        return;
    // Qt waits five seconds for a clipboard manager that does not answer.
    std::signal(SIGALRM, [](int) { _exit(EXIT_SUCCESS); });
    alarm(1);
    for (QWindow* window : QGuiApplication::topLevelWindows())
        window->destroy(); // Qt leaves open dialogs on the screen
    application.reset();
}

void onEndRequest(QObject& owner, std::function<void()> handler) {
    if (requestPipe[0] < 0 && pipe2(requestPipe, O_CLOEXEC | O_NONBLOCK) != 0)
        return;
    auto* const notifier = new QSocketNotifier(requestPipe[0], QSocketNotifier::Read, &owner);
    QObject::connect(notifier, &QSocketNotifier::activated, &owner, [handler = std::move(handler)] {
        char requests[16];
        while (read(requestPipe[0], requests, sizeof requests) > 0)
            continue;
        handler();
    });
    for (const int signal : {SIGTERM, SIGINT, SIGHUP})
        watchSignal(signal);
    std::signal(SIGPIPE, SIG_IGN); // writing to a pipe without a reader is a failure, not a request to end
}

bool runsUnderDebugger() {
    // Linux only: the process id of the tracer, 0 for none.
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        return false;
    const QByteArray text = status.readAll();
    const qsizetype at = text.indexOf("\nTracerPid:");
    return at >= 0 && text.mid(at + 11, text.indexOf('\n', at + 1) - at - 11).trimmed() != "0";
}

} // namespace brindlewick
