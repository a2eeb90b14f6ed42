#include "app/window_story.h"

#include "app/qt_text.h"
#include "app/system.h"

#include <QApplication>
#include <QClipboard>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QInputDialog>
#include <QMenu>
#include <QMessageBox>
#include <QRegularExpression>
#include <QTimer>

namespace brindlewick::testing {

std::string utf8(std::u16string_view text) {
    return toQString(text).toStdString();
}

OwnSettings::OwnSettings() {
    qputenv(configFolderVariable, path("settings").toUtf8());
}

std::string OwnSettings::stored(std::u16string_view key) {
    return utf8(SettingsFile().GetSetting(key, u"unset"));
}

QString OwnSettings::path(const char* name) const {
    return toQString(folder.text(name));
}

ScriptedPerson::ScriptedPerson() {
    qApp->installEventFilter(this);
}

ScriptedPerson::~ScriptedPerson() {
    EXPECT_TRUE(answers.empty()) << "never asked for: " << answers.front().toStdString();
    EXPECT_THAT(shown_, IsEmpty());
}

bool ScriptedPerson::eventFilter(QObject* object, QEvent* event) {
    if (auto* const dialog = qobject_cast<QDialog*>(object); dialog && event->type() == QEvent::Show)
        QTimer::singleShot(0, dialog, [this, dialog] { answer(*dialog); });
    return false;
}

void ScriptedPerson::note(const QDialog& dialog, const QStringList& buttons) {
    QString line = dialog.windowTitle();
    if (const auto* const browser = qobject_cast<const QFileDialog*>(&dialog)) {
        line += ": " + browser->nameFilters().join(", ");
    } else if (const auto* const input = qobject_cast<const QInputDialog*>(&dialog)) {
        EXPECT_EQ(input->findChild<QLabel*>()->textFormat(), Qt::PlainText);
        line += ": " + input->labelText() + " =" + input->textValue();
    } else if (const auto* const box = qobject_cast<const QMessageBox*>(&dialog)) {
        EXPECT_EQ(box->textFormat(), Qt::PlainText);
        line += (box->icon() == QMessageBox::Warning ? " (!): " : ": ") + box->text();
        line += " [" + buttons.join(u',') + "]";
    }
    static const QRegularExpression lineNumber("at line \\d+");
    shown_.push_back(line.replace(lineNumber, "at line N").toStdString());
}

void ScriptedPerson::answer(QDialog& dialog) {
    QStringList captions;
    for (const auto* box : dialog.findChildren<QDialogButtonBox*>())
        for (const QAbstractButton* button : box->buttons())
            captions += button->text().remove(u'&');
    note(dialog, captions);
    if (beforeAnswer)
        beforeAnswer(dialog);
    if (captions == QStringList{"OK"}) {
        QTest::keyClick(&dialog, Qt::Key_Enter);
        return;
    }
    QString answer = "Escape";
    if (answers.empty())
        ADD_FAILURE() << "nobody answers " << shown_.back();
    else
        answer = answers.front(), answers.pop_front();
    if (answer == "Escape" || answer == "Enter") {
        QTest::keyClick(&dialog, answer == "Escape" ? Qt::Key_Escape : Qt::Key_Enter);
    } else if (answer.startsWith('+')) {
        QTest::keyClicks(dialog.focusWidget(), answer.mid(1));
        QTest::keyClick(dialog.focusWidget(), Qt::Key_Enter);
    } else if (auto* const field = dialog.findChild<QLineEdit*>()) {
        auto* const browser = qobject_cast<QFileDialog*>(&dialog);
        const QFileInfo target(answer);
        if (browser && browser->fileMode() != QFileDialog::Directory && target.dir().exists())
            browser->setDirectory(target.isAbsolute() ? target.dir() : browser->directory());
        field->setText(answer);
        dialog.accept();
    } else {
        for (QAbstractButton* button : dialog.findChildren<QAbstractButton*>())
            if (button->text().remove(u'&') == answer)
                QTest::mouseClick(button, Qt::LeftButton);
    }
    if (dialog.isVisible()) {
        ADD_FAILURE() << shown_.back() << " does not take " << answer.toStdString();
        dialog.reject();
    }
}

void WindowStory::open() {
    testers.clear();
    window.reset();
    window = std::make_unique<Form1>(folder.text(), [this] { ++ended; });
    window->Form_Load();
    for (RowsView* list : {files(), results(), tags()})
        testers.push_back(std::make_unique<QAbstractItemModelTester>(
            list->model(), QAbstractItemModelTester::FailureReportingMode::Fatal));
    window->show();
    window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
}

void WindowStory::fill(const std::vector<std::u16string>& inputs, const std::vector<std::u16string>& words) {
    for (const std::u16string& input : inputs)
        window->inputFiles().append(input);
    for (const std::u16string& word : words)
        window->tags().append(word);
    QCoreApplication::processEvents();
}

void WindowStory::run(int count) {
    std::string records;
    for (int record = 0; record < count; ++record)
        records += "{\"n\":" + std::to_string(record) + "}\n";
    fill({folder.write("f.json", records)}, {u"n"});
    click("Start Extracting");
    EXPECT_THAT(person.shown(), ElementsAre(done));
}

void WindowStory::click(const std::string& caption) {
    for (auto* button : window->findChildren<QAbstractButton*>())
        if (button->text().trimmed().toStdString() == caption ||
            button->accessibleName().toStdString() == caption) {
            QTest::mouseClick(button, Qt::LeftButton, {}, QPoint(10, button->height() / 2));
            return;
        }
    FAIL() << "no button " << caption;
}

void WindowStory::press(Qt::Key key, Qt::KeyboardModifiers modifiers, RowsView* list) {
    window->activateWindow(); // a closed dialog leaves none active on a platform without windows
    ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    if (list != nullptr)
        list->setFocus();
    QWidget* const focus = QApplication::focusWidget();
    QTest::keyClick(focus != nullptr ? focus : window.get(), key, modifiers);
}

void WindowStory::clickRow(RowsView* list, int row, Qt::KeyboardModifiers modifiers) {
    QTest::mouseClick(list->viewport(), Qt::LeftButton, modifiers, rowCentre(list, row));
}

QPoint WindowStory::rowCentre(const RowsView* list, int row) {
    return list->visualRect(list->model()->index(row, 0)).center();
}

std::string WindowStory::choose(RowsView* list, const char* item) {
    QContextMenuEvent open(QContextMenuEvent::Keyboard, {}, {}, {});
    QApplication::sendEvent(list, &open);
    auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    for (QAction* action : menu != nullptr ? menu->actions() : QList<QAction*>())
        if (action->text().section('\t', 0, 0) == item && action->isEnabled()) {
            menu->setActiveAction(action);
            QTest::keyClick(menu, Qt::Key_Return); // closes the menu, which deletes itself
            QCoreApplication::processEvents();     // in which the item does its work
            return item;
        }
    delete menu;
    return {};
}

bool WindowStory::inTheMiddleOf(const char* button, const std::function<void()>& meanwhile) {
    bool isReached = false;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&] {
        if (window->cursor().shape() == Qt::WaitCursor && !std::exchange(isReached, true))
            meanwhile();
    });
    timer.start(0);
    QTest::qWait(120); // longer than events ever have to wait, so that the first yield handles them
    click(button);
    return isReached;
}

Texts WindowStory::rows(const RowsView* list) {
    QCoreApplication::processEvents(); // in which appended rows are shown
    Texts texts;
    const QAbstractItemModel& model = *list->model();
    for (int row = 0; row < model.rowCount(); ++row) {
        texts.emplace_back(model.index(row, 0).data().toString().toStdString());
        for (int column = 1; column < model.columnCount(); ++column)
            texts.back() += "|" + model.index(row, column).data().toString().toStdString();
    }
    return texts;
}

std::string WindowStory::headers(const RowsView* list) {
    QStringList captions;
    for (int column = 0; column < list->model()->columnCount(); ++column)
        captions += list->model()->headerData(column, Qt::Horizontal).toString();
    return captions.join(u'|').toStdString();
}

std::string WindowStory::status() {
    return window->findChild<QLabel*>("progressLabel")->text().toStdString();
}

std::string WindowStory::ticks() {
    std::string marks;
    for (std::size_t row = 0; row < window->results().rowCount(); ++row)
        marks += window->results().isChecked(row) ? 'x' : '-';
    return marks;
}

std::string WindowStory::copied() {
    return QGuiApplication::clipboard()->text().remove('\r').replace('\t', '|').toStdString();
}

int WindowStory::mode() {
    for (const int option : {1, 2, 3, 4})
        if (window->findChild<QRadioButton*>(QString("Option%1").arg(option))->isChecked())
            return option;
    return 0;
}

std::string WindowStory::report(const std::string& description, const std::string& routine) {
    return "Application Error (!): " + description + "\nin Corvane2021/08/31." + routine +
           " at line N\n\nPlease email screenshot of this message to support@brindlewick.example [OK]";
}

} // namespace brindlewick::testing
