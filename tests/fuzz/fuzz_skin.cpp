// Feeds the window with skins: each is taken or refused, and the window can still be drawn.
#include "app/appearance.h"
#include "fuzz/fuzz_driver.h"
#include "platform/failure.h"
#include "support/temporary_folder.h"

#include <QApplication>
#include <QCheckBox>
#include <QImage>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace brindlewick::fuzz {

namespace {

/// One for the whole process; never ended, since libFuzzer leaves without a word.
void startApplication() {
    static int count = 1;
    static char name[] = "fuzz_skin";
    static char* words[] = {name, nullptr};
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static const auto* const application = new QApplication(count, words);
    (void)application;
}

} // namespace

std::string makeInput(Random& random) {
    if (random.below(200) == 0)
        return hostile({"a", "{", "}", "a{", "color:", ";", "(", ")", "url(", "\"", "/*", "*/", "a,", ":",
                        "#", "@", "\\"},
                       random);
    std::string bytes(random.oneOf({"", "", "\xEF\xBB\xBF"}));
    for (std::size_t rules = random.below(6); rules > 0; --rules) {
        bytes += random.oneOf({"QPushButton", "QWidget", "*", "QCheckBox::indicator:checked", "#Frame2",
                               "QLabel, QGroupBox", "QListWidget::item:hover", "QPushButton:!enabled",
                               "QScrollBar:vertical", "/* a */"});
        bytes += random.oneOf({" {", "{", ""});
        for (std::size_t left = random.below(4); left > 0; --left)
            bytes += random.oneOf(
                {"color: red;",
                 "background: qlineargradient(x1:0, y1:0, x2:0, y2:1, stop:0 #fff, stop:1 rgb(1,2,3));",
                 "border: 1px solid #123456;", "border-image: url(skin:a.png) 3 3 3 3 stretch;",
                 "padding: -1e9px 3em;", "font: bold 99999px \"x\";", "width: 2147483648px;",
                 "image: url(skin:../../x);", "margin:;", "min-height: 100000000px;", "border-radius: 5px;",
                 "qproperty-text: \"x\";", "opacity: nan;"});
        bytes += random.oneOf({"}", "}\n", ""});
    }
    bend(bytes, 4, random);
    return bytes;
}

void runOn(std::string_view input) {
    startApplication();
    static const testing::TemporaryFolder folder;
    folder.write("x/o.cjs", input);
    QWidget window;
    QVBoxLayout layout(&window);
    layout.addWidget(new QPushButton(QStringLiteral("Start")));
    layout.addWidget(new QCheckBox(QStringLiteral("Include")));
    layout.addWidget(new QListWidget);
    try {
        ApplySkin(window, folder.text());
        check(window.styleSheet().size() <= static_cast<qsizetype>(input.size()),
              "the skin is the file's text");
    } catch (const Failure& failure) {
        check(failure.number() == FailureNumber::invalidProcedureCall, "a skin is taken or refused");
        check(window.styleSheet().isEmpty(), "a refused skin changes nothing");
    }
    const QSize needed = window.minimumSizeHint().expandedTo(window.minimumSize());
    check(needed.boundedTo({4096, 4096}) == needed, "the window asks for no more than a screen");
    QImage picture(200, 200, QImage::Format_ARGB32);
    window.resize(picture.size());
    window.render(&picture);
}

} // namespace brindlewick::fuzz
