// Runs the tests of the window in one QApplication, with settings in a temporary folder.

#include "app/system.h"
#include "support/temporary_folder.h"

#include <QApplication>
#include <gtest/gtest.h>

int main(int count, char** words) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const brindlewick::testing::TemporaryFolder settings;
    qputenv(brindlewick::configFolderVariable, settings.path().string().c_str());
    ::testing::InitGoogleTest(&count, words);
    QApplication application(count, words);
    return RUN_ALL_TESTS();
}
