// The start-up picture: when it shows, how its parts lie, and how long it stays.
#include "app/splash.h"

#include "platform/failure.h"
#include "support/fake_user.h"
#include "support/temporary_folder.h"

#include <QApplication>
#include <QBuffer>
#include <QCheckBox>
#include <QFrame>
#include <QImage>
#include <QLabel>
#include <gtest/gtest.h>
#include <map>

namespace brindlewick {
namespace {

using testing::FakeUser;
using testing::TemporaryFolder;

struct MemorySettings : SettingsStore {
    std::map<std::u16string, std::u16string, std::less<>> values;
    bool broken = false;

    std::u16string GetSetting(std::u16string_view key, std::u16string_view defaultText) const override {
        const auto found = values.find(key);
        return found == values.end() ? std::u16string(defaultText) : found->second;
    }
    void SaveSetting(std::u16string_view key, std::u16string_view value) override {
        if (broken)
            throw Failure(FailureNumber::diskFull);
        values.insert_or_assign(std::u16string(key), std::u16string(value));
    }
};

std::string picture(int width, int height) {
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(Qt::blue);
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return buffer.data().toStdString();
}

class SplashTest : public ::testing::Test {
protected:
    /// Each look at the clock moves it on; what the window looks like is asked from in between.
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
    MemorySettings settings;
    TemporaryFolder folder;
    std::unique_ptr<Splash> splash;
    std::function<void()> whileShown;
    double now = 1000;
    int ticks = 0;
};

TEST(ElapsedSinceEntry, passesOverMidnight) {
    struct Case {
        double now, entry, elapsed;
    };
    const Case cases[] = {{10, 10, 0},       {14, 10, 4}, {1, 86399, 2},
                          {0, 86399.5, 0.5}, {0, 0, 0},   {9, 10, 86399}};
    for (const Case& c : cases)
        EXPECT_DOUBLE_EQ(elapsedSinceEntry(c.now, c.entry), c.elapsed) << c.now << " " << c.entry;
}

TEST_F(SplashTest, showsOnlyWhenAllowedAndWithAPicture) {
    struct Case {
        const char* setting;
        std::vector<const char*> files;
        bool shown;
    };
    const Case cases[] = {
        {"0", {"Splash/a.png"}, true},
        {"", {}, false},
        {"1", {"Splash/a.png"}, false},
        {"-3", {"Splash/a.png"}, false},
        {"0", {"Splash/sub/a.png"}, false},
        {"0", {"Splash/.hidden.png"}, false},
        {"0", {"a.png"}, false},
    };
    for (const Case& c : cases) {
        std::filesystem::remove_all(folder.path() / "Splash");
        for (const char* file : c.files)
            folder.write(file, picture(50, 40));
        settings.values.clear();
        if (*c.setting)
            settings.values[u"ShowAgain"] = std::u16string(c.setting, c.setting + std::strlen(c.setting));
        bool shown = false;
        whileShown = [&] { shown = true; };
        show();
        EXPECT_EQ(shown, c.shown) << c.setting << " " << c.files.size();
        EXPECT_FALSE(splash->isVisible());
    }
}

TEST_F(SplashTest, aHiddenSplashLooksAtNoFileAndABadSettingFails) {
    folder.write("Splash/a.png", "no picture");
    settings.values[u"ShowAgain"] = u"1";
    EXPECT_NO_THROW(show());
    settings.values[u"ShowAgain"] = u"yes";
    EXPECT_THROW(show(), Failure);
    settings.values[u"ShowAgain"] = u"0";
    try {
        show();
        ADD_FAILURE();
    } catch (const Failure& failure) {
        EXPECT_EQ(failure.number(), FailureNumber::invalidPicture);
    }
}

TEST_F(SplashTest, placesPictureStripBoxAndFrame) {
    folder.write("Splash/b.png", picture(10, 10));
    folder.write("Splash/A.png", picture(300, 200));
    bool looked = false;
    whileShown = [&] {
        if (std::exchange(looked, true))
            return;
        const auto pixels = [&](int twips) { return qRound(twips * splash->logicalDpiX() / 1440.0); };
        const int height = 200 + pixels(300);
        EXPECT_EQ(splash->windowTitle(), "Brindlewick");
        EXPECT_EQ(splash->findChild<QLabel*>("Image1")->geometry(), QRect(0, 0, 300, height));
        auto& box = *splash->findChild<QCheckBox*>("Check1");
        EXPECT_EQ(box.text(), "Hide this at next startup");
        EXPECT_EQ(box.y(), height - box.height() - pixels(20));
        EXPECT_FALSE(box.isChecked());
        const QPoint ends[] = {{0, 0}, {0, 0}, {300 - pixels(10), 0}, {0, height - pixels(10)}};
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

TEST_F(SplashTest, staysFourSecondsEvenOverMidnight) {
    folder.write("Splash/a.png", picture(5, 5));
    for (const double start : {1000.0, 86398.0}) {
        now = start;
        ticks = 0;
        show();
        EXPECT_NEAR(ticks, 41, 1) << start;
    }
    ticks = 0;
    show(true);
    EXPECT_NEAR(ticks, 5, 1) << "under development";
}

TEST_F(SplashTest, theBoxIsSavedAtOnceAndAFailureIsReported) {
    folder.write("Splash/a.png", picture(5, 5));
    settings.values[u"ShowAgain"] = u"1";
    show();
    auto& box = *splash->findChild<QCheckBox*>("Check1");
    box.click();
    EXPECT_EQ(settings.values[u"ShowAgain"], u"1");
    box.click();
    EXPECT_EQ(settings.values[u"ShowAgain"], u"0");
    settings.broken = true;
    box.click();
    ASSERT_EQ(user.errors.size(), 1u);
    EXPECT_NE(user.errors[0].find(u"in Corvane2021/08/31.Splash.Check1_Click at line "),
              std::u16string::npos);
}

} // namespace
} // namespace brindlewick
