// Every test of the window runs inside one QApplication.

#include <QApplication>
#include <QFont>
#include <gtest/gtest.h>

int main(int count, char** words) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
#ifdef Q_OS_WIN
    qputenv("QT_QPA_FONTDIR", qgetenv("TEST_FONTS")); // Wine passes on no variable that begins with "QT_"
#endif
    ::testing::InitGoogleTest(&count, words);
    const QApplication application(count, words);
#ifdef Q_OS_WIN
    // None of these fonts is called Arial, and Qt would take the first one.
    QFont::insertSubstitution("Arial", "Liberation Sans");
    QApplication::setFont(QFont("Arial", QApplication::font().pointSize()));
#endif
    return RUN_ALL_TESTS();
}
