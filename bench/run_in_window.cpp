// Runs the extraction from the main window and by itself, in turn, and prints how long each took.
//
//     run_in_window MODE TAG FILE
#include "app/main_window.h"
#include "extract/extraction_run.h"
#include "platform/native_path.h"
#include "unattended.h"

#include <QApplication>
#include <QDialog>
#include <QElapsedTimer>
#include <QTimer>
#include <cstdio>
#include <cstdlib>
#include <optional>

namespace {

using namespace brindlewick;

constexpr int rounds = 5;

double inWindow(Form1& window) {
    QElapsedTimer timer;
    double seconds = 0;
    QTimer whenAsked; // a message box is up: that is "Done."
    QObject::connect(&whenAsked, &QTimer::timeout, [&] {
        for (QWidget* const widget : QApplication::topLevelWidgets()) {
            auto* const box = qobject_cast<QDialog*>(widget);
            if (box == nullptr || !box->isVisible())
                continue;
            seconds = static_cast<double>(timer.nsecsElapsed()) / 1e9;
            box->accept();
        }
    });
    whenAsked.start(1);
    timer.start();
    window.controls().PushButton7->click();
    return seconds;
}

double byItself(ExtractionMode mode, const std::u16string& tag, const std::u16string& file) {
    UnattendedUser user;
    ForgetfulSettings settings;
    ExtractionOptions options(settings);
    options.chooseMode(mode);
    ResultsTable table;
    const std::vector<std::u16string> files = {file};
    const std::vector<std::u16string> tags = {tag};
    ExtractionRun run(user, options, files, tags, table);
    QElapsedTimer timer;
    timer.start();
    run.PushButton7_Click();
    return static_cast<double>(timer.nsecsElapsed()) / 1e9;
}

} // namespace

int main(int count, char** words) {
    const QApplication application(count, words);
    const auto mode = static_cast<ExtractionMode>(count == 4 ? std::atoi(words[1]) : 0);
    const std::optional<std::size_t> place = placeOf(mode);
    if (!place) {
        std::fputs("usage: run_in_window MODE TAG FILE\n", stderr);
        return EXIT_FAILURE;
    }
    const std::u16string tag = textFromPathBytes(words[2]);
    const std::u16string file = textFromPathBytes(words[3]);
    Form1 window(u"/nowhere", [] {});
    window.Form_Load();
    window.show();
    window.inputFiles().clear();
    window.tags().clear();
    window.inputFiles().append(file);
    window.tags().append(tag);
    window.controls().Options[*place]->click();
    for (int round = 0; round < rounds; ++round)
        std::printf("window %.6f alone %.6f\n", inWindow(window), byItself(mode, tag, file));
    return EXIT_SUCCESS;
}
