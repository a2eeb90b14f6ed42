// Messages, dialogs, pointer, event handling, progress and clipboard of the main window.
#include "app/window_user.h"

#include "app/message_dialog.h"
#include "app/qt_text.h"
#include "support/temporary_folder.h"

#include <QAbstractButton>
#include <QApplication>
#include <QClipboard>
#include <QDialog>
#include <QDir>
#include <QFileDialog>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QStatusBar>
#include <QTimer>
#include <chrono>
#include <gtest/gtest.h>
#include <stdexcept>

namespace brindlewick {
namespace {

using namespace std::string_literals;
using testing::TemporaryFolder;

class WindowUserTest : public ::testing::Test {
protected:
    WindowUserTest() {
        window.resize(600, 400);
        window.show();
    }
    /// Calls `act` with the next dialog that opens, then closes the dialog if it is still open.
    void withDialog(std::function<void(QDialog&)> act) {
        QTimer::singleShot(0, &window, [this, act = std::move(act)] {
            auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            ASSERT_NE(dialog, nullptr);
            ++dialogs;
            act(*dialog);
            if (dialog->isVisible())
                dialog->reject();
        });
    }
    static void press(QWidget& widget, Qt::Key key) {
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
        QApplication::sendEvent(&widget, &event);
    }

    QMainWindow window;
    WindowUser user{window, *window.statusBar()};
    int dialogs = 0;
};

TEST_F(WindowUserTest, messagesHaveTheirTitleIconAndButtons) {
    user.setApplicationTitle(u"Title & more");
    const struct {
        std::function<void(std::u16string_view)> show;
        QString title;
        QMessageBox::Icon icon;
        QMessageBox::StandardButtons buttons;
    } cases[] = {
        {[&](auto text) { user.showMessage(text); }, "Title & more", QMessageBox::NoIcon, QMessageBox::Ok},
        {[&](auto text) { user.showApplicationError(text); }, "Application Error", QMessageBox::Warning,
         QMessageBox::Ok},
        {[&](auto text) { static_cast<void>(user.askYesNo(text)); }, "Title & more", QMessageBox::NoIcon,
         QMessageBox::Yes | QMessageBox::No}};
    for (const auto& expected : cases) {
        withDialog([&](QDialog& dialog) {
            auto& box = dynamic_cast<QMessageBox&>(dialog);
            EXPECT_EQ(box.windowTitle(), expected.title);
            EXPECT_EQ(box.icon(), expected.icon);
            EXPECT_EQ(box.standardButtons(), expected.buttons);
            EXPECT_EQ(box.textFormat(), Qt::PlainText);
            EXPECT_EQ(box.text(), QString("<b>a</b>\nb\n\nc"));
        });
        expected.show(u"<b>a</b>\r\nb\r\rc");
    }
    EXPECT_EQ(dialogs, 3);
}

TEST_F(WindowUserTest, onlyYesMeansYesInShortAndLongQuestions) {
    const auto click = [](const QString& caption) {
        return [caption](QDialog& dialog) {
            for (auto* button : dialog.findChildren<QPushButton*>())
                if (button->text() == caption)
                    button->click();
        };
    };
    const std::pair<std::function<void(QDialog&)>, bool> answers[] = {
        {click("&Yes"), true},
        {click("&No"), false},
        {[](QDialog& dialog) { press(dialog, Qt::Key_Escape); }, false},
        {[](QDialog& dialog) { dialog.close(); }, false},
    };
    for (const std::u16string& text : {std::u16string(u"Overwrite?"), std::u16string(50'000, u'x')})
        for (const auto& [act, isYes] : answers) {
            withDialog(act);
            EXPECT_EQ(user.askYesNo(text), isYes);
        }
    EXPECT_EQ(dialogs, 8);
}

TEST_F(WindowUserTest, hugeTextsStayOnTheScreen) {
    std::u16string lines;
    for (int i = 0; i < 5000; ++i)
        lines += u"a line\r\n";
    const std::u16string texts[] = {lines, std::u16string(3'000'000, u'W'), u"/" + std::u16string(150, u'p'),
                                    std::u16string(1, u'\0') + std::u16string(2500, 0xD800)};
    for (const std::u16string& text : texts) {
        withDialog([&](QDialog& dialog) {
            EXPECT_LE(dialog.width(), dialog.screen()->availableSize().width());
            EXPECT_LE(dialog.height(), dialog.screen()->availableSize().height());
            auto* view = dialog.findChild<QPlainTextEdit*>();
            ASSERT_NE(view, nullptr);
            EXPECT_TRUE(view->isReadOnly());
        });
        user.showApplicationError(text);
    }
    EXPECT_EQ(dialogs, 4);
}

TEST(ShownLines, everyLineEndIsOneLineFeed) {
    EXPECT_EQ(shownLines(u"a\r\nb\r\rc\n\rd\n\r\r\n<&>"), "a\nb\n\nc\n\nd\n\n\n<&>");
    EXPECT_EQ(shownLines(std::u16string(70000, u'a')).size(), 65537);
}

TEST_F(WindowUserTest, inputBoxShowsThePromptWithoutMarkupAndReturnsTheAnswer) {
    user.setApplicationTitle(u"T");
    withDialog([](QDialog& dialog) {
        auto& box = dynamic_cast<QInputDialog&>(dialog);
        EXPECT_EQ(box.windowTitle(), "T");
        EXPECT_EQ(box.labelText(), "<b>one</b>\n\ntwo");
        EXPECT_EQ(box.findChild<QLabel*>()->textFormat(), Qt::PlainText);
        EXPECT_EQ(box.textValue(), "json");
        box.setTextValue("txt");
        box.accept();
    });
    EXPECT_EQ(user.askText(u"<b>one</b>\r\rtwo", u"json"), u"txt");
    withDialog([](QDialog& dialog) { press(dialog, Qt::Key_Escape); });
    EXPECT_EQ(user.askText(u"p", u"json"), u"");
}

TEST_F(WindowUserTest, fileDialogsReturnWhatWasTypedAndReopenInTheSameFolder) {
    const TemporaryFolder folder;
    folder.write("in/a b.json", "1");
    folder.write("in/c.json", "2");
    const QString inside = QDir::fromNativeSeparators(toQString(folder.text("in")));
    withDialog([&](QDialog& dialog) {
        auto& files = dynamic_cast<QFileDialog&>(dialog);
        EXPECT_EQ(files.windowTitle(), "Add");
        EXPECT_EQ(files.fileMode(), QFileDialog::ExistingFiles);
        files.setDirectory(inside);
        files.findChild<QLineEdit*>()->setText("\"c.json\" \"a b.json\"");
        static_cast<QDialog&>(files).accept();
    });
    EXPECT_EQ(user.chooseFilesToOpen({u"Add", u"All Files (*.json)|*.json|"}),
              folder.text("in") + u"\0c.json\0a b.json"s);
    withDialog([&](QDialog& dialog) {
        auto& files = dynamic_cast<QFileDialog&>(dialog);
        EXPECT_EQ(files.directory().absolutePath(), inside);
        EXPECT_EQ(files.acceptMode(), QFileDialog::AcceptSave);
        EXPECT_TRUE(files.selectedFiles().isEmpty() || files.selectedFiles().front() == inside);
        files.findChild<QLineEdit*>()->setText("c.json");
        static_cast<QDialog&>(files).accept();
        EXPECT_EQ(QApplication::activeModalWidget(), nullptr) << "an existing name asked a question";
    });
    EXPECT_EQ(user.chooseFileToSave({u"Save", u"Text Files (*.txt)|*.txt|"}), folder.text("in/c.json"));
    for (int press = 0; press < 2; ++press) {
        withDialog([](QDialog& dialog) { dialog.reject(); });
        EXPECT_EQ(press == 0 ? user.chooseFileToSave({}) : user.chooseFilesToOpen({}), u"");
    }
}

TEST_F(WindowUserTest, folderBrowserStartsInTheGivenFolderEvenIfItIsMissing) {
    const TemporaryFolder folder;
    folder.write("sub/x", "");
    withDialog([&](QDialog& dialog) {
        auto& files = dynamic_cast<QFileDialog&>(dialog);
        EXPECT_EQ(files.windowTitle(), "Please select folder:");
        EXPECT_EQ(files.directory().absolutePath(), QDir::fromNativeSeparators(toQString(folder.text())));
        files.selectFile("sub");
        static_cast<QDialog&>(files).accept();
    });
    EXPECT_EQ(user.browseForFolder(u"Please select folder:", folder.text()), folder.text("sub"));
    withDialog([](QDialog& dialog) { dialog.reject(); });
    EXPECT_EQ(user.browseForFolder(u"p", folder.text("gone")), u"");
}

TEST_F(WindowUserTest, pointerIsTheWindowsOwnAndNeedsNoRestore) {
    const auto shape = [&] { return window.cursor().shape(); };
    user.setPointer(PointerShape::custom);
    EXPECT_EQ(shape(), Qt::ArrowCursor) << "no hand loaded";
    user.setHandPointer(QCursor(Qt::PointingHandCursor));
    EXPECT_EQ(shape(), Qt::PointingHandCursor) << "a hand loaded while the pointer is custom";
    for (int i = 0; i < 3; ++i)
        user.setPointer(PointerShape::hourglass);
    EXPECT_EQ(shape(), Qt::WaitCursor);
    user.setPointer(PointerShape::standard);
    EXPECT_EQ(shape(), Qt::ArrowCursor);
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST_F(WindowUserTest, yieldHandlesEventsAtIntervalsAndCostsLittleOtherwise) {
    int handled = 0;
    int prepared = 0;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&] { ++handled; });
    timer.start(0);
    user.setBeforeDispatch([&] { ++prepared; });
    const auto begin = std::chrono::steady_clock::now();
    long yields = 0;
    while (std::chrono::steady_clock::now() - begin < std::chrono::milliseconds(400)) {
        user.yield();
        ++yields;
    }
    EXPECT_GE(handled, 4);
    EXPECT_GE(prepared, 4);
    EXPECT_LE(prepared, 51) << "more often than every 8 ms";
    EXPECT_GT(yields, 20'000);
}

TEST_F(WindowUserTest, aFailureBeforeDispatchGoesToTheCallerOfYield) {
    user.setBeforeDispatch([] { throw std::runtime_error("rows"); });
    EXPECT_THROW(user.yield(), std::runtime_error);
    EXPECT_THROW(user.showMessage(u"m"), std::runtime_error);
    user.setBeforeDispatch({});
    EXPECT_NO_THROW(user.yield());
}

TEST_F(WindowUserTest, progressIsShownAtOnceThenAtIntervalsAndEndsWithTheSummary) {
    auto& label = *window.findChild<QLabel*>("progressLabel");
    auto& bar = *window.findChild<QProgressBar*>("progressBar");
    EXPECT_FALSE(bar.isVisible());
    user.showProgress(u"File 1 of 4", 1, 4);
    EXPECT_TRUE(bar.isVisible());
    EXPECT_EQ(label.text(), "File 1 of 4");
    EXPECT_EQ(bar.value() * 4, bar.maximum());
    user.showProgress(u"File 2 of 4", 2, 4);
    EXPECT_EQ(label.text(), "File 1 of 4") << "drawn again without a pause";
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(5);
    while (label.text() != "File 2 of 4" && std::chrono::steady_clock::now() < deadline)
        user.yield();
    EXPECT_EQ(bar.value() * 2, bar.maximum());
    user.endProgress(u"Done,\r\n7 rows");
    EXPECT_FALSE(bar.isVisible());
    EXPECT_EQ(label.text(), "Done,  7 rows");

    user.showProgress(u"?", 5, 0);
    EXPECT_EQ(bar.maximum(), 0) << "unknown total";
    user.endProgress(u"");
    user.showProgress(u"all", ~std::uint64_t{0}, std::uint64_t{1} << 63);
    EXPECT_EQ(bar.value(), bar.maximum()) << "not above the maximum";
    const int width = window.minimumSizeHint().width();
    user.endProgress(std::u16string(100'000, u'W'));
    EXPECT_EQ(window.minimumSizeHint().width(), width) << "a long text must not widen the window";
}

TEST_F(WindowUserTest, clipboardGetsTheExactText) {
    for (const std::u16string& text : {u"a\0b"s, u"\xD800 alone"s, u""s, std::u16string(2'000'000, u'\t')}) {
        user.setClipboardText(text);
        EXPECT_EQ(fromQString(QGuiApplication::clipboard()->text()), text);
    }
}

} // namespace
} // namespace brindlewick
