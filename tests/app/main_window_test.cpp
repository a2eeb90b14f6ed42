#include "app/application_title.h"
#include "app/main_window.h"
#include "app/qt_text.h"
#include "support/temporary_folder.h"

#include <QApplication>
#include <QDropEvent>
#include <QMessageBox>
#include <QMimeData>
#include <QSet>
#include <QTest>
#include <QTimer>
#include <QUrl>
#include <gtest/gtest.h>

namespace brindlewick {
namespace {

using testing::TemporaryFolder;

class MainWindow : public ::testing::Test {
protected:
    MainWindow() {
        for (const char16_t* key : {u"Option", u"Check1", u"Tags", u"Snapshot"})
            settings.SaveSetting(key, u"");
        settings.SaveSetting(u"Option", u"1");
        settings.SaveSetting(u"Check1", u"0");
    }
    /// A window as it opens with what is stored now.
    std::unique_ptr<Form1> open() {
        auto window = std::make_unique<Form1>(folder.text(), [this] { ++ended; });
        window->Form_Load();
        window->show();
        return window;
    }
    /// Presses OK (or Yes) in every message box that `action` opens, and keeps their texts.
    std::vector<std::string> messagesOf(const std::function<void()>& action) {
        std::vector<std::string> messages;
        QTimer timer;
        QObject::connect(&timer, &QTimer::timeout, [&] {
            auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            if (dialog == nullptr)
                return;
            if (auto* const box = qobject_cast<QMessageBox*>(dialog))
                messages.push_back(box->text().toStdString());
            else
                messages.push_back(dialog->objectName().toStdString());
            dialog->accept();
        });
        timer.start(5);
        action();
        return messages;
    }

    TemporaryFolder folder;
    SettingsFile settings;
    int ended = 0;
};

TEST_F(MainWindow, HasItsControlsUnderTheirNamesAndCaptions) {
    const auto window = open();
    const std::pair<const char*, const char*> buttons[] = {
        {"PushButton1", "Add JSON Files"},
        {"PushButton2", "Help"},
        {"PushButton3", "\nAdd Tag"},
        {"PushButton4", "Load Tags From Text File"},
        {"PushButton5", "Add All JSON Files In Folder"},
        {"PushButton6", "Save Results As Text File"},
        {"PushButton7", "Start Extracting"},
        {"PushButton8", "Delete Selected Tag"},
        {"PushButton9", "\nClear List"},
        {"PushButton10", "\nClear List"},
        {"PushButton11", "Copy Results To Clipboard"},
        {"PushButton12", "Save As Comma Delimited"},
        {"PushButton13", "Load Sample/Example Files"},
        {"PushButton14", "\nClear List"},
        {"PushButton15", ""},
        {"PushButton16", "Load JSON Files From Text File"},
        {"Option1", "Extract value and tag"},
        {"Option2", "Extract value without tag"},
        {"Option3", "Extract entire line containing tag"},
        {"Option4", "Extract all"},
        {"Check1", "Include filename in extraction results"},
    };
    for (const auto& [name, caption] : buttons) {
        const auto* const button = window->findChild<QAbstractButton*>(name);
        ASSERT_NE(button, nullptr) << name;
        EXPECT_EQ(button->text().toStdString(), caption);
        EXPECT_FALSE(button->accessibleName().isEmpty() && button->text().trimmed().isEmpty()) << name;
    }
    EXPECT_EQ(window->findChild<QGroupBox*>("Frame1")->title().toStdString(), "Extract Options");
    EXPECT_EQ(window->findChild<QGroupBox*>("Frame2")->title().toStdString(), "Include Option");
    EXPECT_EQ(window->findChild<QLabel*>("Label1")->text().toStdString(), "Enter tag without < or / or > :");
    EXPECT_TRUE(window->findChild<QLineEdit*>("Text1x")->isHidden());
    EXPECT_EQ(window->windowTitle().toStdString(), "Brindlewick");
    EXPECT_EQ(
        window->controls().ListView1->toolTip().toStdString(),
        "Drag and drop files here. Double-click item to remove it. Move | line to right and out of window "
        "to reveal full names.");
    EXPECT_EQ(window->controls().ListView3->model()->headerData(0, Qt::Horizontal).toString().toStdString(),
              "Tag/s");
}

struct Restored {
    const char16_t* option;
    int mode; ///< 0 for none
};

TEST_F(MainWindow, RestoresTheModeThatIsStored) {
    for (const auto& [option, mode] : {Restored{u"1", 1}, {u"3", 3}, {u"4x", 4}, {u"7", 0}, {u"x", 0}}) {
        settings.SaveSetting(u"Option", option);
        const auto window = open();
        const auto options = window->controls().options();
        for (int at = 1; at <= 4; ++at)
            EXPECT_EQ(options[static_cast<std::size_t>(at - 1)]->isChecked(), at == mode) << at;
        if (mode == 0) {
            EXPECT_EQ(settings.GetSetting(u"Option", u""), option);
            options[2]->click();
            EXPECT_EQ(settings.GetSetting(u"Option", u""), u"3");
        }
    }
}

TEST_F(MainWindow, RestoresTheBoxTheColumnsAndTheTags) {
    settings.SaveSetting(u"Check1", u"1");
    settings.SaveSetting(u"Tags", u"a||MySeparator12||||MySeparator12||b||MySeparator12||");
    const auto window = open();
    EXPECT_TRUE(window->controls().Check1->isChecked());
    EXPECT_EQ(window->results().columns().size(), 2U);
    EXPECT_EQ(window->tags().texts(), (std::vector<std::u16string>{u"a", u"b"}));
    window->controls().Check1->click();
    EXPECT_EQ(settings.GetSetting(u"Check1", u""), u"0");
    EXPECT_EQ(window->results().columns().size(), 2U); // until the next run
}

TEST_F(MainWindow, ReportsAStoredBoxThatIsNoNumberAndGoesOn) {
    settings.SaveSetting(u"Check1", u"yes");
    settings.SaveSetting(u"Tags", u"a||MySeparator12||");
    std::unique_ptr<Form1> window;
    EXPECT_EQ(messagesOf([&] { window = open(); }).size(), 1U);
    EXPECT_EQ(window->tags().size(), 1U);
}

TEST_F(MainWindow, SavesTheTagsWhenItClosesAndEndsTheProcess) {
    const auto window = open();
    window->tags().append(u"x");
    window->tags().append(u"x");
    window->close();
    EXPECT_EQ(ended, 1);
    EXPECT_EQ(settings.GetSetting(u"Tags", u""), u"x||MySeparator12||x||MySeparator12||");
}

TEST_F(MainWindow, SavesNoTagsWhenThereAreTooManyToCount) {
    const auto window = open();
    for (int tag = 0; tag < 32768; ++tag)
        window->tags().append(u"x");
    EXPECT_EQ(messagesOf([&] { window->close(); }).size(), 1U);
    EXPECT_EQ(settings.GetSetting(u"Tags", u"unset"), u"");
    EXPECT_EQ(ended, 1);
}

TEST_F(MainWindow, RunsFromItsButtonOnARealFile) {
    const auto window = open();
    window->inputFiles().append(folder.write("a.json", R"({"id":1,"name":"Bo"} )"));
    window->tags().append(u"NAME");
    window->controls().Check1->click();
    const auto messages =
        messagesOf([&] { QTest::mouseClick(window->controls().PushButton7, Qt::LeftButton); });
    EXPECT_EQ(messages, std::vector<std::string>{"Done."});
    auto* const model = window->controls().ListView2->model();
    ASSERT_EQ(model->rowCount(), 1);
    ASSERT_EQ(model->columnCount(), 2);
    EXPECT_EQ(model->index(0, 1).data().toString().toStdString(), "name :Bo ");
    EXPECT_EQ(window->user().pointer(), PointerShape::standard);
    window->controls().PushButton9->click();
    EXPECT_EQ(model->rowCount(), 0);
    EXPECT_EQ(model->columnCount(), 2);
}

TEST_F(MainWindow, IgnoresButtonsWhileAnOperationIsUnderWay) {
    const auto window = open();
    window->tags().append(u"x");
    window->inputFiles().append(u"y");
    window->user().setPointer(PointerShape::hourglass);
    for (QPushButton* button : window->findChildren<QPushButton*>())
        button->click(); // a dialog would never return here
    EXPECT_EQ(window->tags().size(), 1U);
    EXPECT_EQ(window->inputFiles().size(), 1U);
    window->user().setPointer(PointerShape::standard);
    window->controls().PushButton10->click();
    EXPECT_EQ(window->tags().size(), 0U);
}

TEST_F(MainWindow, RemovesEntriesByKeyButtonAndDoubleClick) {
    const auto window = open();
    for (const char16_t* text : {u"a", u"b", u"c"}) {
        window->inputFiles().append(text);
        window->tags().append(text);
    }
    window->user().yield();
    QTest::qWait(50);
    Controls& controls = window->controls();
    const QPoint second = controls.ListView1->visualRect(controls.ListView1->model()->index(1, 0)).center();
    QTest::mouseClick(controls.ListView1->viewport(), Qt::LeftButton, {}, second);
    QTest::mouseDClick(controls.ListView1->viewport(), Qt::LeftButton, {}, second);
    EXPECT_EQ(window->inputFiles().texts(), (std::vector<std::u16string>{u"a", u"c"}));
    controls.ListView3->setCurrentIndex(controls.ListView3->model()->index(0, 0));
    QTest::keyClick(controls.ListView3, Qt::Key_Delete);
    EXPECT_EQ(window->tags().texts(), (std::vector<std::u16string>{u"b", u"c"}));
    controls.ListView3->clearSelection();
    controls.ListView3->setCurrentIndex({});
    controls.PushButton8->click();
    EXPECT_EQ(window->tags().size(), 2U);
}

TEST_F(MainWindow, GivesBackWithCtrlZWhatAClearTook) {
    const auto window = open();
    QApplication::setActiveWindow(window.get());
    window->tags().append(u"x");
    window->inputFiles().append(u"y");
    window->controls().PushButton10->click();
    window->controls().PushButton14->click();
    window->controls().ListView3->setFocus();
    QTest::keyClick(window.get(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(window->tags().size(), 1U);
    EXPECT_EQ(window->inputFiles().size(), 0U);
    QTest::keyClick(window.get(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(window->inputFiles().size(), 1U);
}

TEST_F(MainWindow, TakesDroppedFilesAndNothingElse) {
    const auto window = open();
    QMimeData files;
    files.setUrls({QUrl::fromLocalFile("/no/such//file.json"), QUrl::fromLocalFile("/b.json")});
    QMimeData text;
    text.setText("no file");
    for (const auto& [data, accepted] : {std::pair(&text, false), {&files, true}}) {
        QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(window->controls().ListView1->viewport(), &enter);
        EXPECT_EQ(enter.isAccepted(), accepted);
        QDropEvent drop(QPointF(5, 5), Qt::CopyAction, data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(window->controls().ListView1->viewport(), &drop);
    }
    EXPECT_EQ(window->inputFiles().size(), 2U);
}

TEST_F(MainWindow, VisitsEveryControlWithTheTabKeyInReadingOrder) {
    const auto window = open();
    QApplication::setActiveWindow(window.get());
    window->controls().ListView1->setFocus();
    ASSERT_NE(QApplication::focusWidget(), nullptr);
    std::vector<std::string> visited;
    for (int step = 0; step < 30; ++step) {
        visited.push_back(QApplication::focusWidget()->objectName().toStdString());
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        if (QApplication::focusWidget() == window->controls().ListView1)
            break;
    }
    EXPECT_EQ(visited, (std::vector<std::string>{
                           "ListView1",    "PushButton1", "PushButton5",  "PushButton16", "PushButton13",
                           "PushButton14", "ListView3",   "PushButton3",  "PushButton4",  "PushButton8",
                           "PushButton10", "Option1",     "PushButton15", "Check1",       "PushButton7",
                           "PushButton2",  "ListView2",   "PushButton6",  "PushButton12", "PushButton11",
                           "PushButton9"}));
}

TEST(ApplicationTitle, LosesItsLastWordsAndKeepsASingleOne) {
    EXPECT_EQ(applicationTitle(u"Brindlewick"), u"Brindlewick");
    EXPECT_EQ(applicationTitle(u"Two Words"), u"Two");
    EXPECT_EQ(applicationTitle(u"Abcdefghij Abcdefghij Abcdefghij Abcdefghij Abc"),
              u"Abcdefghij Abcdefghij Abcdefghij");
}

} // namespace
} // namespace brindlewick
