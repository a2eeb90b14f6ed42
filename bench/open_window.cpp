// Opens the main window, an empty one, or one with a single word in it, and ends as soon as it has been
// painted and is idle.
//
//     open_window main|empty|word
#include "app/main_window.h"
#include "platform/files.h"

#include <QApplication>
#include <QLabel>
#include <QTimer>
#include <cstdlib>
#include <string_view>

namespace {

/// Calls the function after the widget has been painted for the first time and nothing is left to do.
class AfterFirstPaint : public QObject {
public:
    explicit AfterFirstPaint(QWidget& widget) { widget.installEventFilter(this); }

    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Paint)
            QTimer::singleShot(0, [] { std::_Exit(EXIT_SUCCESS); });
        return false;
    }
};

} // namespace

int main(int count, char** words) {
    const QApplication application(count, words);
    if (count == 2 && std::string_view(words[1]) == "main") {
        brindlewick::Form1 window(brindlewick::programFolder(), [] {});
        const AfterFirstPaint after(window);
        window.Form_Load();
        window.show();
        return QApplication::exec();
    }
    QMainWindow window;
    window.resize(800, 600);
    if (count == 2 && std::string_view(words[1]) == "word") // any text makes the toolkit look for fonts
        window.setCentralWidget(new QLabel(QStringLiteral("word")));
    const AfterFirstPaint after(window);
    window.show();
    return QApplication::exec();
}
