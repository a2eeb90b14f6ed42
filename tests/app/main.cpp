// Every test of the window runs inside one QApplication.

#include <QApplication>
#include <gtest/gtest.h>

int main(int count, char** words) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    ::testing::InitGoogleTest(&count, words);
    const QApplication application(count, words);
    return RUN_ALL_TESTS();
}
