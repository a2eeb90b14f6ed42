// The splash screen: when it is shown, its layout, and for how long.
#include "app/splash.h"

#include "app/pictures.h"
#include "app/twips.h"
#include "platform/failure.h"
#include "support/failure_of.h"
#include "support/fake_settings.h"
#include "support/fake_user.h"
#include "support/temporary_folder.h"

#include <QApplication>
#include <QCheckBox>
#include <QFrame>
#include <QLabel>
#include <gtest/gtest.h>

namespace brindlewick {
namespace {

using testing::FakeUser;
using testing::TemporaryFolder;

class SplashTest : public ::testing::Test {
protected:
    /// The clock: every call advances it and calls `whileShown` if the splash screen is visible.
    double tick() {
        now += 0.1;
        if (now >= 86400)
            now -= 86400;
        ++ticks;
        if (splash->isVisible() && whileShown)
            whileShown();
        return now;
    }
    void show(bool underDevelopment = false) {
        splash = std::make_unique<Splash>(
            user, settings, folder.text(), [this] { return tick(); }, underDevelopment);
        splash->SplashShow();
    }

    FakeUser user;
    testing::FakeSettings settings;
    TemporaryFolder folder;
    std::unique_ptr<Splash> splash;
    std::function<void()> whileShown;
    double now = 1000;
    int ticks = 0;
};

TEST_F(SplashTest, showsOnlyWhenAllowedAndWithAPicture) {
    const struct {
        std::u16string setting;
        std::string file;
        bool shown;
    } cases[] = {
        {u"0", "Splash/a.png", true},        {u"1", "Splash/a.png", false},
        {u"-3", "Splash/a.png", false},      {u"0", "Splash/sub/a.png", false},
        {u"0", "Splash/.hidden.png", false}, {u"0", "a.png", false},
    };
    for (const auto& one : cases) {
        std::filesystem::remove_all(folder.path() / "Splash");
        folder.write(one.file, testing::png(50, 40));
        settings.values[u"ShowAgain"] = one.setting;
        bool shown = false;
        whileShown = [&] { shown = true; };
        show();
        EXPECT_EQ(shown, one.shown) << one.file;
        EXPECT_FALSE(splash->isVisible());
    }
}

TEST_F(SplashTest, readsNoFileWhenHiddenAndFailsForABadSetting) {
    folder.write("Splash/a.png", "no picture");
    settings.values[u"ShowAgain"] = u"1";
    EXPECT_EQ(testing::failureOf([&] { show(); }), std::nullopt);
    settings.values[u"ShowAgain"] = u"yes";
    EXPECT_EQ(testing::failureOf([&] { show(); }), FailureNumber::typeMismatch);
    settings.values.clear();
    EXPECT_EQ(testing::failureOf([&] { show(); }), FailureNumber::invalidPicture);
}

TEST_F(SplashTest, placesPictureStripBoxAndFrame) {
    folder.write("Splash/b.png", testing::png(10, 10));
    folder.write("Splash/A.png", testing::png(300, 200));
    bool looked = false;
    whileShown = [&] {
        if (std::exchange(looked, true))
            return;
        const auto pixels = [&](int twips) { return pixelsFromTwips(twips, *splash); };
        const int height = 200 + pixels(300);
        EXPECT_EQ(splash->windowTitle(), "Brindlewick");
        EXPECT_EQ(splash->findChild<QLabel*>("Image1")->geometry(), QRect(0, 0, 300, height));
        auto& box = *splash->findChild<QCheckBox*>("Check1");
        EXPECT_EQ(box.text(), "Hide this at next startup");
        EXPECT_EQ(box.y(), height - box.height() - pixels(20));
        EXPECT_FALSE(box.isChecked());
        const int inset = std::max(pixels(10), 1); // visible
        const QPoint ends[] = {{0, 0}, {0, 0}, {300 - inset, 0}, {0, height - inset}};
        for (int i = 0; i < 4; ++i) {
            const QRect line = splash->findChild<QFrame*>(QString("Line%1").arg(i + 1))->geometry();
            EXPECT_EQ(line.topLeft(), ends[i]) << i;
            EXPECT_EQ(i % 2 == 0 ? line.height() : line.width(), pixels(10000)) << i;
        }
        EXPECT_EQ(splash->size(), QSize(300, height));
    };
    show();
    EXPECT_TRUE(looked);
}

TEST_F(SplashTest, isShownForFourSecondsEvenOverMidnight) {
    folder.write("Splash/a.png", testing::png(5, 5));
    const struct {
        double start;
        bool underDevelopment;
        int ticks;
    } cases[] = {{1000, false, 41}, {86398, false, 41}, {86399.9, true, 5}};
    for (const auto& one : cases) {
        now = one.start;
        ticks = 0;
        show(one.underDevelopment);
        EXPECT_NEAR(ticks, one.ticks, 1) << one.start;
    }
}

TEST_F(SplashTest, savesTheCheckBoxAtOnceAndReportsAFailure) {
    folder.write("Splash/a.png", testing::png(5, 5));
    settings.values[u"ShowAgain"] = u"1";
    show();
    auto& box = *splash->findChild<QCheckBox*>("Check1");
    box.click();
    EXPECT_EQ(settings.values[u"ShowAgain"], u"1");
    box.click();
    EXPECT_EQ(settings.values[u"ShowAgain"], u"0");
    settings.failureWhenSaving = FailureNumber::diskFull;
    box.click();
    EXPECT_TRUE(user.hasOneReport(u"Disk full", u"Splash.Check1_Click"));
}

} // namespace
} // namespace brindlewick
