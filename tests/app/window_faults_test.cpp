// Broken settings, and closing the window during every long operation.

#include "app/main_window_fixture.h"

#include <QDropEvent>
#include <QMimeData>
#include <QTest>
#include <QUrl>

#include <filesystem>
#include <utility>

namespace brindlewick {
namespace {

using namespace std::string_view_literals;

std::u16string repeated(std::u16string_view text, std::size_t count) {
    std::u16string all;
    for (; count > 0; --count)
        all += text;
    return all;
}

class WindowFaults : public MainWindow {};

TEST_F(WindowFaults, OpensRunsAndClosesWithHostileSettings) {
    const std::u16string tag = u"name||MySeparator12||";
    const struct {
        const char16_t* key;
        std::u16string value;
        std::size_t reports; ///< when it opens
        std::size_t tags;
    } cases[] = {
        {u"Tags", repeated(tag, 1000000), 1, 32768},
        {u"Tags", std::u16string(1 << 20, u'x'), 0, 1},
        {u"Tags", std::u16string(u"a\0b||MySeparator12||\0"sv), 0, 2},
        {u"Tags", u"\xD800||MySeparator12||\xDC00\xD800", 0, 2},
        {u"Check1", u"99999999999999999999", 1, 0},
        {u"Check1", std::u16string(1 << 20, u'9'), 1, 0},
        {u"Check1", std::u16string(1, u'\0'), 1, 0},
        {u"Check1", u"\xDC00", 1, 0},
        {u"Option", std::u16string(1 << 20, u'9'), 0, 0},
        {u"Option", std::u16string(u"\0002"sv), 0, 0},
        {u"Snapshot", std::u16string(u"\0\xD800"sv), 0, 0},
    };
    for (const auto& [key, value, reports, tags] : cases) {
        const std::string name = toQString(std::u16string(key) + u' ' + value.substr(0, 20)).toStdString();
        for (const char16_t* one : {u"Option", u"Check1", u"Tags", u"Snapshot"})
            settings.SaveSetting(one, u"1");
        settings.SaveSetting(u"Tags", u"");
        settings.SaveSetting(key, value);
        std::unique_ptr<Form1> window;
        EXPECT_EQ(messagesOf([&] { window = open(); }).size(), reports) << name;
        EXPECT_EQ(window->tags().size(), tags) << name;
        window->inputFiles().append(folder.write("a.json", "{\"name\":1}\n"));
        const auto run = messagesOf([&] { window->controls().PushButton7->click(); });
        EXPECT_EQ(run.empty() ? "" : run.back(), "Done.") << name;
        const bool tooMany = tags > 32767;
        EXPECT_EQ(messagesOf([&] { window->close(); }).size(), tooMany ? 1U : 0U) << name;
        if (key == std::u16string_view(u"Tags") && !tooMany) {
            window = open();
            EXPECT_EQ(window->tags().size(), tags) << name << ": kept";
        }
    }
}

TEST_F(WindowFaults, ClosesInTheMiddleOfEveryLongOperation) {
    QMimeData dropped;
    dropped.setUrls({QUrl::fromLocalFile(toQString(folder.text("many")))});
    for (int file = 0; file < 300; ++file)
        folder.write("many/" + std::to_string(file) + ".json", "{\"name\":1}\n");
    const struct {
        const char* name;
        std::function<void(Form1&)> start;
    } operations[] = {
        {"run", [](Form1& window) { window.controls().PushButton7->click(); }},
        {"text file", [](Form1& window) { window.controls().PushButton6->click(); }},
        {"comma-delimited file", [](Form1& window) { window.controls().PushButton12->click(); }},
        {"copy", [](Form1& window) { window.controls().PushButton11->click(); }},
        {"scan",
         [&](Form1& window) {
             QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &dropped, Qt::LeftButton, Qt::NoModifier);
             QApplication::sendEvent(window.controls().ListView1->viewport(), &enter);
             QDropEvent drop(QPointF(5, 5), Qt::CopyAction, &dropped, Qt::LeftButton, Qt::NoModifier);
             QApplication::sendEvent(window.controls().ListView1->viewport(), &drop);
         }},
    };
    std::string records = "\xEF\xBB\xBF";
    for (int record = 0; record < 100000; ++record)
        records += "{\"name\":" + std::to_string(record) + "},\n";
    for (const auto& operation : operations) {
        const char* const name = operation.name;
        settings.SaveSetting(u"Tags", u"");
        const auto window = open();
        window->tags().append(u"name");
        window->inputFiles().append(folder.write("a.json", records));
        messagesOf([&] { window->controls().PushButton7->click(); });
        std::filesystem::remove(folder.path() / "chosen");
        ended = 0;
        bool isUnderWay = false;
        const auto closeNow = [&] {
            for (QPushButton* button : window->findChildren<QPushButton*>())
                button->click(); // buttons are ignored during an operation
            window->close();
            EXPECT_EQ(settings.GetSetting(u"Tags", u""), u"name||MySeparator12||") << name;
        };
        window->user().setBeforeDispatch([&] {
            if (window->user().isBusy() && !std::exchange(isUnderWay, true))
                QMetaObject::invokeMethod(window.get(), closeNow, Qt::QueuedConnection);
        });
        QTest::qWait(120); // longer than the maximum pause of `yield`, so that its first call handles events
        messagesOf([&] { operation.start(*window); });
        EXPECT_TRUE(isUnderWay) << name;
        EXPECT_EQ(ended, 1) << name;
        EXPECT_EQ(window->tags().size(), 1U) << name;
    }
}

} // namespace
} // namespace brindlewick
