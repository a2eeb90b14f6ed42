// What the window remembers, and the optional files beside the program.
#include "app/splash.h"
#include "app/system.h"
#include "app/window_story.h"

#include <QDesktopServices>
#include <QTextBrowser>
#include <filesystem>
#include <fstream>

namespace brindlewick::testing {
namespace {

struct StartUp : WindowStory {};

std::u16string repeated(std::u16string_view text, std::size_t count) {
    std::u16string all;
    while (count-- > 0)
        all += text;
    return all;
}

TEST_F(StartUp, EveryKindOfSettingsOpensAWindowThatRuns) {
    const std::u16string separator = u"||MySeparator12||";
    const std::string overflow = report("Overflow", "Form1.Form_Load");
    const std::string mismatch = report("Type mismatch", "Form1.Form_Load");
    const struct {
        const char* what;
        const char16_t* key;
        std::u16string value;
        int mode;
        std::string columns;
        std::size_t tags;
        Texts reports;
    } cases[] = {
        {"none", u"", u"", 1, "Results", 0, {}},
        {"mode", u"Option", u"3", 3, "Results", 0, {}},
        {"mode", u"Option", u"4", 4, "Results", 0, {}},
        {"digits first", u"Option", u"2abc", 2, "Results", 0, {}},
        {"letters", u"Option", u"abc", 0, "Results", 0, {}},
        {"no such mode", u"Option", u"7", 0, "Results", 0, {}},
        {"a megabyte", u"Option", repeated(u"9", 1 << 20), 0, "Results", 0, {}},
        {"ticked", u"Check1", u"1", 1, "Filename|Results", 0, {}},
        {"no box", u"Check1", u"2", 1, "Results", 0, {}},
        {"no number", u"Check1", u"x", 1, "Results", 0, {mismatch}},
        {"a NUL", u"Check1", std::u16string(1, u'\0'), 1, "Results", 0, {mismatch}},
        {"large", u"Check1", u"99999999999", 1, "Results", 0, {overflow}},
        {"empty pieces", u"Tags", u"a" + separator + separator + u"b" + separator, 1, "Results", 2, {}},
        {"half a pair", u"Tags", u"\xD800" + separator + u"\xDC00", 1, "Results", 2, {}},
        {"too many", u"Tags", repeated(u"name" + separator, 100000), 1, "Results", 32768, {overflow}},
        {"no record", u"Snapshot", std::u16string(u"\0\xD800", 2), 1, "Results", 0, {}},
    };
    for (const auto& [what, key, value, mode_, columns, tagCount, reports] : cases) {
        SCOPED_TRACE(utf8(key) + " " + what);
        std::filesystem::remove_all(folder.path() / "settings");
        if (*key != u'\0')
            SettingsFile().SaveSetting(key, value);
        open();
        EXPECT_EQ(person.shown(), reports);
        EXPECT_EQ(mode(), mode_);
        EXPECT_EQ(headers(results()), columns);
        EXPECT_EQ(headers(files()) + headers(tags()), "JSON File(s)Tag/s");
        EXPECT_EQ(rows(tags()).size(), tagCount);
        if (mode_ == 0) { // kept, for a version that knows more modes
            EXPECT_EQ(stored(u"Option"), utf8(value));
        }
        EXPECT_EQ(window->windowTitle(), "Brindlewick");
        fill({folder.write("a.json", "{\"name\":1}")}, {u"name"});
        click("Start Extracting");
        window->close();
        const bool isTooMany = tagCount > 32767;
        EXPECT_EQ(person.shown(),
                  isTooMany ? Texts({done, report("Overflow", "Form1.Form_QueryUnload")}) : Texts{done});
        EXPECT_EQ(stored(u"Tags").empty(), isTooMany);
    }
}

TEST_F(StartUp, ChoicesAreStoredWhenTheyAreMadeAndTagsWhenTheWindowCloses) {
    open();
    EXPECT_EQ(stored(u"Snapshot"), "") << "no samples";
    const char* const modes[] = {"Extract value and tag", "Extract value without tag",
                                 "Extract entire line containing tag", "Extract all"};
    for (const int choice : {2, 3, 4, 1}) {
        click(modes[choice - 1]);
        EXPECT_EQ(stored(u"Option"), std::to_string(choice));
    }
    for (const char* value : {"1", "0", "1"}) {
        click("Include filename in extraction results");
        EXPECT_EQ(stored(u"Check1"), value);
    }
    fill({}, {u"a", u"", u"b", u"b"});
    EXPECT_EQ(stored(u"Tags"), "unset");
    window->close();
    EXPECT_EQ(ended, 1);
    const std::string separator = "||MySeparator12||";
    EXPECT_EQ(stored(u"Tags"), "a" + separator + separator + "b" + separator + "b" + separator);
    SettingsFile().SaveSetting(u"Option", u"0");
    open();
    EXPECT_THAT(rows(tags()), ElementsAre("a", "b", "b"));
    EXPECT_EQ(headers(results()), "Filename|Results");
    EXPECT_EQ(mode(), 0); // and a run gives values alone
    fill({folder.write("c.json", "{\"a\":1}")}, {});
    click("Start Extracting");
    EXPECT_THAT(rows(results()), ElementsAre(utf8(folder.text("c.json")) + "|1 "));
    EXPECT_THAT(person.shown(), ElementsAre(done));
    click("Clear the tags");
    window->close();
    EXPECT_EQ(stored(u"Tags"), "");
}

TEST_F(StartUp, AStoreThatCannotBeUsedIsReportedAndTheWindowWorks) {
    folder.write("plain", "");
    qputenv(configFolderVariable, path("plain").toUtf8()); // takes no folder
    const auto unwritten = [](const char* routine) { return report("Path not found", routine); };
    open();
    click("Extract all");
    EXPECT_EQ(mode(), 4);
    click("Include filename in extraction results");
    window->close();
    EXPECT_EQ(ended, 1);
    EXPECT_THAT(person.shown(), ElementsAre(unwritten("Form1.Form_Load"), unwritten("Form1.Form_Load"),
                                            unwritten("Form1.Option4_Click"), unwritten("Form1.Check1_Click"),
                                            unwritten("Form1.Form_QueryUnload")));
    folder.makeFolder("odd/Tessaly/Brindlewick.ini");
    qputenv(configFolderVariable, path("odd").toUtf8());
    open();
    EXPECT_EQ(mode(), 1);
    EXPECT_THAT(person.shown(), ::testing::Each(report("Permission denied", "Form1.Form_Load")));
}

TEST_F(StartUp, SamplesAreRecordedOnceAndLoadedWhileTheyAreThere) {
    for (const char* name : {"b.json", "A.json", "gone.json", "sub/c.json"})
        folder.write(std::string("Samples/") + name, "{\"name\":1}");
    QTextBrowser fileManager;
    QDesktopServices::setUrlHandler("file", &fileManager, "setSource");
    open();
    EXPECT_EQ(stored(u"Snapshot").find("json"), std::string::npos) << "scrambled";
    std::filesystem::remove(folder.path() / "Samples" / "gone.json");
    folder.write("Samples/new.json", "{}");
    open();
    for (const char* answer : {"No", "Yes"}) {
        person.answers = {answer};
        click("Load Sample/Example Files");
        EXPECT_EQ(fileManager.source().isEmpty(), answer == std::string("No"));
    }
    QDesktopServices::unsetUrlHandler("file");
    EXPECT_EQ(fileManager.source(), QUrl::fromLocalFile(path("Samples/")));
    EXPECT_THAT(rows(files()),
                ElementsAre(utf8(folder.text("Samples/A.json")), utf8(folder.text("Samples/b.json"))));
    EXPECT_THAT(rows(tags()), ElementsAre("name", "name"));
    EXPECT_EQ(mode(), 2);
    const std::string question =
        "Brindlewick: Would you like this software to open the folder where these sample files are stored "
        "(so that you can view them before working with them)? [Yes,No]";
    EXPECT_THAT(person.shown(), ElementsAre(question, question));
}

TEST_F(StartUp, ASkinIsAppliedWholeOrReportedAndLeft) {
    const std::string red = "QLabel { color: #ff0000 }";
    const struct {
        const char* what;
        std::string skin;
        bool isApplied;
    } cases[] = {
        {"good", red, true},
        {"with a mark", "\xEF\xBB\xBF" + red, true},
        {"not UTF-8", red + " /* \xFF */", false},
        {"binary", std::string("\0\1\2PK\3\4", 7), false},
        {"no style sheet", "{{{ this is ] no sheet", false},
        {"too long", red + std::string(5'000'000, ' '), false},
        {"too large", red + "QPushButton { min-width: 90000px }", false},
    };
    open();
    EXPECT_FALSE(window->controls().Label1->autoFillBackground());
    for (const auto& [what, skin, isApplied] : cases) {
        SCOPED_TRACE(what);
        folder.write("x/o.cjs", skin);
        open();
        const QWidget* const label = window->controls().Label1;
        EXPECT_EQ(label->palette().color(QPalette::WindowText) == Qt::red, isApplied);
        for (const char* name : {"Option4", "Check1", "Frame2", "Label1"}) // have the colour of button faces
            EXPECT_TRUE(window->findChild<QWidget*>(name)->autoFillBackground()) << name;
        EXPECT_LT(window->minimumSizeHint().width(), 1000);
        EXPECT_EQ(person.shown(),
                  isApplied ? Texts{}
                            : Texts{report("Invalid procedure call or argument", "Form1.Form_Load")});
    }
}

TEST_F(StartUp, TheHandPointerIsShownOrItsDamageReported) {
    std::ifstream shipped(HAND_POINTER, std::ios::binary);
    const std::string good{std::istreambuf_iterator<char>(shipped), {}};
    const auto changed = [&](std::size_t at, std::string_view bytes) {
        return std::string(good).replace(at, bytes.size(), bytes);
    };
    const std::string picture = png(32, 32);
    const std::string size{static_cast<char>(picture.size()), '\0', '\0', '\0'};
    const std::string pngInside = changed(14, size).substr(0, 22) + picture;
    for (const std::string& file : {good, pngInside}) {
        folder.write("HAND-M.CUR", file);
        open();
        QTest::mouseMove(window->controls().PushButton7);
        EXPECT_EQ(window->cursor().hotSpot(), QPoint(11, 2));
        EXPECT_EQ(window->cursor().pixmap().size(), QSize(32, 32));
    }
    const std::string damaged[] = {
        "",
        good.substr(0, 60),
        good.substr(0, 22) + std::string(good.size() - 22, 'x'),
        changed(2, "\1"),                // an icon
        changed(4, {"\0", 1}),           // no pictures
        changed(4, "\xFF\xFF"),          // more pictures than bytes
        changed(10, "\x20"),             // a hot spot outside
        changed(14, "\xFF\xFF\xFF\xFF"), // longer than the file
        changed(18, "\xF0\xFF\xFF\xFF"), // beyond the end
        changed(18, {"\0", 1}),          // inside the directory
    };
    for (const std::string& file : damaged) {
        SCOPED_TRACE(&file - damaged);
        folder.write("HAND-M.CUR", file);
        open();
        QTest::mouseMove(window->controls().PushButton7);
        EXPECT_EQ(window->cursor().shape(), Qt::ArrowCursor);
        EXPECT_THAT(person.shown(), ElementsAre(report("Invalid picture", "Form1.Form_Load")));
    }
}

TEST_F(StartUp, TheSplashShowsItsFirstPictureForFourSecondsUntilItIsHidden) {
    open();
    SettingsFile settings;
    std::unique_ptr<Splash> splash;
    double now = 86398; // midnight comes in between
    int looks = 0;
    const auto tick = [&] {
        now += now < 86399.9 ? 0.1 : 0.1 - 86400;
        if (splash->isVisible() && ++looks == 1) {
            EXPECT_EQ(splash->windowTitle(), "Brindlewick");
            EXPECT_EQ(splash->width(), 300);
            auto* const box = splash->findChild<QCheckBox*>();
            EXPECT_EQ(box->text(), "Hide this at next startup");
            EXPECT_TRUE(splash->rect().contains(box->geometry()));
            QTest::mouseClick(box, Qt::LeftButton, {}, {8, box->height() / 2});
        }
        return now;
    };
    const auto secondsShown = [&](bool underDevelopment = false) {
        looks = 0;
        splash = std::make_unique<Splash>(window->user(), settings, folder.text(), tick, underDevelopment);
        splash->SplashShow();
        EXPECT_FALSE(splash->isVisible());
        return looks / 10.0;
    };
    folder.write("Splash/.hidden.png", png(1, 1));
    EXPECT_EQ(secondsShown(), 0);
    folder.write("Splash/b.png", png(1, 1));
    folder.write("Splash/A.png", png(300, 200));
    EXPECT_NEAR(secondsShown(), 4, 0.2);
    EXPECT_EQ(stored(u"ShowAgain"), "1");
    EXPECT_EQ(secondsShown(), 0);
    settings.SaveSetting(u"ShowAgain", u"0");
    EXPECT_NEAR(secondsShown(true), 0.4, 0.2);
    settings.SaveSetting(u"ShowAgain", u"0");
    folder.write("Splash/A.png", "no picture");
    EXPECT_THROW(secondsShown(), Failure);
}

} // namespace
} // namespace brindlewick::testing
