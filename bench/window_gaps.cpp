// Does everything that takes long in the main window, and prints the longest time in which the window
// answered no event: wall time, and that time without the waiting for a free processor (on Linux).
//
//     window_gaps TAG PATH...      PATH: a file or folder, as dropped on the window
#include "app/main_window.h"
#include "lists/list_file.h"
#include "output/aligned_text.h"
#include "output/comma_delimited_text.h"
#include "platform/native_path.h"
#include "unattended.h"

#include <QApplication>
#include <QDialog>
#include <QLineEdit>
#include <QShortcut>
#include <QTemporaryDir>
#include <QTimer>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>

namespace {

using namespace brindlewick;
using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;
using Milliseconds = std::chrono::duration<double, std::milli>;

constexpr auto timeToSettle = 300ms; // views lay out their rows after an operation

/// A timer of a millisecond, and the longest times between two of its events. It closes message boxes.
class Heartbeat {
public:
    Heartbeat() {
        QObject::connect(&timer_, &QTimer::timeout, [this] {
            beat();
            for (QWidget* const widget : QApplication::topLevelWidgets())
                if (auto* const box = qobject_cast<QDialog*>(widget); box != nullptr && box->isVisible())
                    box->accept();
        });
        timer_.start(1ms);
    }

    template <class Action>
    void measure(const char* name, Action&& action) {
        wait(timeToSettle);
        longest_ = longestOwn_ = {};
        const Clock::time_point begin = Clock::now();
        beat();
        action();
        const Milliseconds duration = Clock::now() - begin;
        wait(timeToSettle);
        std::printf("%-44s %8.1f ms, %7.1f ms own (%.0f ms in all)\n", name, longest_.count(),
                    longestOwn_.count(), duration.count());
        std::fflush(stdout);
    }

private:
    void beat() {
        const Clock::time_point now = Clock::now();
        const Milliseconds delayed = delay();
        const Milliseconds gap = now - last_;
        longest_ = std::max(longest_, gap);
        longestOwn_ = std::max(longestOwn_, gap - (delayed - lastDelay_));
        last_ = now;
        lastDelay_ = delayed;
    }
    void wait(std::chrono::milliseconds duration) {
        const Clock::time_point end = Clock::now() + duration;
        beat();
        while (Clock::now() < end)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 10);
        beat(); // the last event may have taken long
    }
    /// How long the window's thread has waited for a free processor.
    static Milliseconds delay() {
        std::ifstream file("/proc/thread-self/schedstat");
        std::chrono::nanoseconds::rep running = 0;
        std::chrono::nanoseconds::rep waiting = 0;
        file >> running >> waiting;
        return std::chrono::nanoseconds(waiting);
    }

    QTimer timer_;
    Clock::time_point last_ = Clock::now();
    Milliseconds lastDelay_ = delay();
    Milliseconds longest_{};
    Milliseconds longestOwn_{};
};

void writeListFile(const std::string& path, const TextList& files) {
    std::ofstream list(path, std::ios::binary);
    for (int copy = 0; copy < 50; ++copy)
        for (const std::u16string& file : files)
            list << pathBytes(file) << "\r\n";
}

} // namespace

int main(int count, char** words) {
    if (count < 3) {
        std::fputs("usage: window_gaps TAG PATH...\n", stderr);
        return EXIT_FAILURE;
    }
    const QApplication application(count, words);
    const QTemporaryDir folder;
    const std::string saved = folder.filePath(QStringLiteral("saved")).toStdString();
    const std::u16string savedPath = textFromPathBytes(saved);
    std::vector<std::u16string> paths;
    for (int word = 2; word < count; ++word)
        paths.push_back(textFromPathBytes(words[word]));

    Form1 window(u"/nowhere", [] {});
    window.Form_Load();
    window.show();
    window.inputFiles().clear();
    window.tags().clear();
    window.tags().append(textFromPathBytes(words[1]));
    const Controls& c = window.controls();
    ForgetfulSettings settings;
    InputFileHandlers files(window.user(), settings, window.inputFiles());
    auto& rows = static_cast<ResultsModel&>(*c.ListView2->model());
    const auto shortcut = [&window](const QKeySequence& keys) {
        for (QShortcut* const one : window.findChildren<QShortcut*>())
            if (one->key() == keys)
                QMetaObject::invokeMethod(one, "activated");
    };
    const auto undo = [&] { shortcut(QKeySequence::Undo); };

    Heartbeat heart;
    heart.measure("drop", [&] { files.ListView1_OLEDragDrop(paths, 0); });
    heart.measure("clear files", [&] { c.PushButton14->click(); });
    heart.measure("undo", undo);
    heart.measure("remove the first file", [&] {
        c.ListView1->selectRow(0);
        files.ListView1_DblClick(0);
    });
    heart.measure("undo", undo);
    std::printf("%zu files\n", window.inputFiles().size());
    for (const ExtractionMode mode : {ExtractionMode::all, ExtractionMode::valueAndTag,
                                      ExtractionMode::valueWithoutTag, ExtractionMode::entireLine}) {
        c.option(mode).click();
        c.Check1->setChecked(mode == ExtractionMode::entireLine);
        heart.measure(("run " + std::to_string(static_cast<int>(mode))).c_str(),
                      [&] { c.PushButton7->click(); });
    }
    std::printf("%zu rows\n", window.results().rowCount());
    const ResultsListview table(window.results());
    heart.measure("save aligned",
                  [&] { SaveListviewProperlySpaced(window.user(), table, savedPath, nullptr); });
    heart.measure("save comma-delimited",
                  [&] { SaveListviewAsCommaDelimToFile(window.user(), table, savedPath + u"2", nullptr); });
    heart.measure("copy", [&] { c.PushButton11->click(); });
    heart.measure("select all", [&] { c.ListView2->selectAll(); });
    heart.measure("copy the selected", [&] {
        OutputHandlers(window.user(), window.results()).ListView2_Copy(c.ListView2->selectedRanges());
    });
    heart.measure("tick none", [&] { rows.setChecked(0, rows.rowCount() - 1, false); });
    heart.measure("invert ticks", [&] { rows.invertChecked(); });
    heart.measure("find", [&] {
        shortcut(QKeySequence::Find);
        window.findChild<QLineEdit*>(QStringLiteral("findText"))->setText(QStringLiteral("a"));
    });
    heart.measure("next hit", [&] { shortcut(Qt::Key_F3); });
    heart.measure("tick the hits",
                  [&] { window.findChild<QPushButton*>(QStringLiteral("checkOnlyHits"))->click(); });
    heart.measure("last row", [&] { c.ListView2->scrollToBottom(); });
    heart.measure("clear results", [&] { c.PushButton9->click(); });
    heart.measure("undo", undo);
    heart.measure("clear results", [&] { c.PushButton9->click(); });
    heart.measure("run again", [&] { c.PushButton7->click(); });
    writeListFile(saved, window.inputFiles());
    heart.measure("load a list file", [&] { ReadListFile(window.user(), savedPath, window.inputFiles()); });
    std::printf("%zu files\n", window.inputFiles().size());
    heart.measure("undo", undo);
    heart.measure("end", [&] { window.close(); });
    return EXIT_SUCCESS;
}
