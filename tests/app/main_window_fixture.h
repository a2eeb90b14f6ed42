// Opens main windows for a test, with settings and files in temporary folders.
#pragma once

#include "app/main_window.h"
#include "app/qt_text.h"
#include "support/temporary_folder.h"

#include <QApplication>
#include <QLineEdit>
#include <QMessageBox>
#include <QTimer>
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace brindlewick {

class MainWindow : public ::testing::Test {
protected:
    MainWindow() {
        for (const auto& [key, value] :
             {std::pair(u"Option", u"1"), {u"Check1", u"0"}, {u"Tags", u""}, {u"Snapshot", u""}})
            settings.SaveSetting(key, value);
    }
    /// Opens a window with the settings as they are stored now.
    std::unique_ptr<Form1> open() {
        auto window = std::make_unique<Form1>(folder.text(), [this] { ++ended; });
        window->Form_Load();
        window->show();
        return window;
    }
    /// Accepts every dialog that `action` opens and returns the texts of the message boxes and the object
    /// names of the others. In file dialogs it chooses the file "chosen".
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
            if (auto* const name = dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit")))
                name->setText(toQString(folder.text("chosen")));
            dialog->accept();
        });
        timer.start(5);
        action();
        return messages;
    }

    testing::TemporaryFolder folder;
    SettingsFile settings;
    int ended = 0;
};

} // namespace brindlewick
