// The splash screen: a picture shown for a few seconds, with a check box that hides it from the next start
// on. Nothing calls `SplashShow` yet; a call before the main window is shown would switch the splash screen
// on.
#pragma once

#include "app/system.h"
#include "platform/settings_store.h"
#include "platform/user_interface.h"

#include <QWidget>
#include <functional>
#include <string>

class QCheckBox;
class QFrame;
class QLabel;

namespace brindlewick {

/// The seconds from `entry` to `now`. Both are seconds since midnight; at most one midnight is between them.
[[nodiscard]] double elapsedSinceEntry(double now, double entry) noexcept;

/// The local time of day in seconds since midnight, with fractions.
[[nodiscard]] double secondsSinceMidnight();

class Splash : public QWidget {
public:
    /// `clock` returns the seconds since midnight. `underDevelopment` shortens the wait.
    Splash(UserInterface& user, SettingsStore& settings, std::u16string programFolder,
           std::function<double()> clock = &secondsSinceMidnight,
           bool underDevelopment = runsUnderDebugger());

    /// Shows the first picture of the "Splash" folder for 4 seconds (0.4 under development), unless the
    /// setting "ShowAgain" is not 0 or there is no picture. Fails with invalidPicture when the picture cannot
    /// be loaded, with typeMismatch when the setting is not a number.
    void SplashShow();

private:
    void placeControls(const QImage& picture);
    void Check1_Click();
    void Pause(double seconds);

    UserInterface& user_;
    SettingsStore& settings_;
    std::u16string programFolder_;
    std::function<double()> clock_;
    bool underDevelopment_;
    QLabel* Image1_;
    QCheckBox* Check1_;
    QFrame* Lines_[4];
};

} // namespace brindlewick
