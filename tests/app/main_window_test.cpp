// The main window as a user sees and operates it.
#include "app/main_window_fixture.h"
#include "app/qt_text.h"
#include "platform/busy_scope.h"

#include <QApplication>
#include <QDropEvent>
#include <QMimeData>
#include <QTest>
#include <QUrl>
#include <gtest/gtest.h>

namespace brindlewick {
namespace {

TEST_F(MainWindow, HasItsControlsUnderTheirNamesAndCaptions) {
    const auto window = open();
    std::string captions;
    for (const QString name : {"PushButton%1", "Option%1", "Check%1"})
        for (int number = 1; number <= 16; ++number)
            if (const auto* const button = window->findChild<QAbstractButton*>(name.arg(number))) {
                captions += button->text().toStdString() + "|";
                EXPECT_FALSE(button->accessibleName().isEmpty() && button->text().trimmed().isEmpty());
            }
    EXPECT_EQ(captions, "Add JSON Files|Help|\nAdd Tag|Load Tags From Text File|Add All JSON Files In Folder|"
                        "Save Results As Text File|Start Extracting|Delete Selected Tag|\nClear List|"
                        "\nClear List|Copy Results To Clipboard|Save As Comma Delimited|"
                        "Load Sample/Example Files|\nClear List||Load JSON Files From Text File|"
                        "Extract value and tag|Extract value without tag|Extract entire line containing tag|"
                        "Extract all|Include filename in extraction results|");
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

TEST_F(MainWindow, RestoresTheModeThatIsStored) {
    const std::pair<const char16_t*, int> cases[] = {{u"1", 1}, {u"3", 3}, {u"4x", 4}, {u"7", 0}, {u"x", 0}};
    for (const auto& [option, mode] : cases) {
        settings.SaveSetting(u"Option", option);
        const auto window = open();
        const auto options = window->controls().Options;
        for (int number = 1; QRadioButton * button : options)
            EXPECT_EQ(button->isChecked(), number++ == mode) << mode;
        if (mode != 0)
            continue;
        EXPECT_EQ(settings.GetSetting(u"Option", u""), option);
        for (char16_t digit = u'1'; QRadioButton * button : options) {
            button->click();
            EXPECT_EQ(settings.GetSetting(u"Option", u""), std::u16string(1, digit++));
        }
    }
}

TEST_F(MainWindow, RestoresTheBoxTheColumnsAndTheTagsAndSavesThemWhenItCloses) {
    settings.SaveSetting(u"Check1", u"1");
    settings.SaveSetting(u"Tags", u"a||MySeparator12||||MySeparator12||b||MySeparator12||");
    auto window = open();
    EXPECT_EQ(window->results().columns().size(), 2U);
    EXPECT_EQ(window->tags().texts(), (std::vector<std::u16string>{u"a", u"b"}));
    window->controls().Check1->click();
    EXPECT_EQ(settings.GetSetting(u"Check1", u""), u"0");
    EXPECT_EQ(window->results().columns().size(), 2U); // until the next run
    window->close();
    EXPECT_EQ(ended, 1);
    EXPECT_EQ(settings.GetSetting(u"Tags", u""), u"a||MySeparator12||b||MySeparator12||");

    settings.SaveSetting(u"Check1", u"yes"); // not a number: reported, and the tags are restored
    EXPECT_EQ(messagesOf([&] { window = open(); }).size(), 1U);
    EXPECT_EQ(window->tags().size(), 2U);
    for (int tag = 0; tag < 32767; ++tag) // more than a row counter holds
        window->tags().append(u"x");
    EXPECT_EQ(messagesOf([&] { window->close(); }).size(), 1U);
    EXPECT_EQ(settings.GetSetting(u"Tags", u"unset"), u"");
    EXPECT_EQ(ended, 2);
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
    EXPECT_FALSE(window->user().isBusy());
    window->controls().PushButton9->click();
    EXPECT_EQ(model->rowCount(), 0);
    EXPECT_EQ(model->columnCount(), 2);
}

TEST_F(MainWindow, IgnoresButtonsWhileAnOperationIsUnderWay) {
    const auto window = open();
    window->tags().append(u"x");
    window->inputFiles().append(u"y");
    {
        const Guard guard(window->user(), u"");
        const BusyScope busy(window->user(), guard);
        const auto messages = messagesOf([&] {
            for (QPushButton* button : window->findChildren<QPushButton*>())
                button->click();
        });
        EXPECT_EQ(messages.size(), 2U); // "Help" and "?"
        EXPECT_EQ(window->tags().size(), 1U);
        EXPECT_EQ(window->inputFiles().size(), 1U);
    }
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

TEST_F(MainWindow, UndoesAClearWithCtrlZ) {
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
    std::string visited;
    for (int step = 0; step < 30; ++step) {
        visited += QApplication::focusWidget()->objectName().toStdString() + ' ';
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        if (QApplication::focusWidget() == window->controls().ListView1)
            break;
    }
    EXPECT_EQ(visited,
              "ListView1 PushButton1 PushButton5 PushButton16 PushButton13 PushButton14 ListView3 "
              "PushButton3 PushButton4 PushButton8 PushButton10 Option1 PushButton15 Check1 PushButton7 "
              "PushButton2 ListView2 PushButton6 PushButton12 PushButton11 PushButton9 ");
}

TEST(ApplicationTitle, IsTheNameWithoutItsLastWords) {
    EXPECT_EQ(applicationTitle(u"Brindlewick"), u"Brindlewick");
    EXPECT_EQ(applicationTitle(u"Two Words"), u"Two");
    EXPECT_EQ(applicationTitle(u"Abcdefghij Abcdefghij Abcdefghij Abcdefghij Abc"),
              u"Abcdefghij Abcdefghij Abcdefghij");
}

} // namespace
} // namespace brindlewick
