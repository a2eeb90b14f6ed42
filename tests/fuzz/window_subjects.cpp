// Files that the window reads: settings, the pointer, the skin.
#include "app/appearance.h"
#include "app/cursor_picture.h"
#include "app/settings_text.h"
#include "fuzz/fuzz_driver.h"
#include "platform/failure.h"

#include <QApplication>
#include <QCheckBox>
#include <QImage>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>
#include <iterator>

namespace brindlewick::fuzz {

namespace {

/// The input is the file, and its last bytes are the value that is saved.
const Subject settings("settings", [](std::string_view input) {
    static constexpr std::u16string_view keys[] = {u"Option", u"Tags", u"Check1", u"Snapshot", u"LastFolder"};
    const std::u16string value =
        unitsOf(input.substr(input.size() - std::min<std::size_t>(input.size(), 24)));
    const std::u16string_view key = keys[input.size() % std::size(keys)];
    const std::string changed = textWithSetting(input, key, value);
    check(settingInText(changed, key) == value, "what was saved is read");
    for (const std::u16string_view other : keys)
        check(other == key || settingInText(changed, other) == settingInText(input, other),
              "other keys stay as they are");
    check(textWithSetting(changed, key, value) == changed, "saving the same again changes nothing");
});

const Subject pointer("pointer", [](std::string_view input) {
    try {
        const CursorPicture cursor =
            cursorPictureFromBytes(QByteArray(input.data(), static_cast<qsizetype>(input.size())));
        check(!cursor.image.isNull() && cursor.image.width() <= 256 && cursor.image.height() <= 256,
              "a picture has a usual size");
        check(cursor.image.rect().contains(cursor.hotSpot), "the hot spot is inside");
    } catch (const Failure& failure) {
        check(failure.number() == FailureNumber::invalidPicture, "anything else is no picture");
    }
});

/// One for the whole process; never deleted, since libFuzzer ends the process without a return to main.
void startApplication() {
    static int count = 1;
    static char name[] = "fuzz_driver";
    static char* arguments[] = {name, nullptr};
    qInstallMessageHandler(
        [](QtMsgType, const QMessageLogContext&, const QString&) {}); // one for each bad line
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static const auto* const application = new QApplication(count, arguments);
    (void)application;
}

const Subject skin("skin", [](std::string_view input) {
    startApplication();
    const std::u16string file = newFile("x/o.cjs", input);
    QWidget window;
    QVBoxLayout layout(&window);
    layout.addWidget(new QPushButton(QStringLiteral("Start")));
    layout.addWidget(new QCheckBox(QStringLiteral("Include")));
    layout.addWidget(new QListWidget);
    try {
        ApplySkin(window, file.substr(0, file.size() - 8));
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
});

} // namespace

} // namespace brindlewick::fuzz
