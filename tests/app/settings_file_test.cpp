// The settings file: any text comes back, files edited by hand are understood and kept, and neither a second
// window nor a kill damages it.
#include "app/window_story.h"

#include <filesystem>

#ifdef _WIN32
#include <thread>
#include <windows.h>
#else
#include <csignal>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#endif

namespace brindlewick::testing {
namespace {

constexpr const char* fileName = "settings/Tessaly/Brindlewick.ini";

struct Settings : OwnSettings {
    SettingsFile settings;

    std::size_t filesBeside() {
        const std::filesystem::directory_iterator entries(folder.path() / "settings/Tessaly");
        return static_cast<std::size_t>(std::distance(begin(entries), end(entries)));
    }
};

TEST_F(Settings, AnyTextComesBackUnitForUnit) {
    std::u16string everyUnit;
    for (unsigned unit = 0; unit <= 0xFFFF; ++unit)
        everyUnit += {static_cast<char16_t>(unit), u'.'};
    settings.SaveSetting(u"Before", everyUnit);
    settings.SaveSetting(u"Tags", u"");
    settings.SaveSetting(u"After", everyUnit);
    // Line ends, blanks at the ends, quotes, escapes and halves of surrogate pairs.
    const std::u16string texts[] = {u"",
                                    u"\t",
                                    u" x",
                                    u"x ",
                                    u"a,b; c#d=e",
                                    u"\"quoted\"",
                                    u"\"",
                                    u"ends in \\",
                                    u"C:\\new\\u0041",
                                    u"x\n[Brindlewick]\nOption=9",
                                    u"\xD800",
                                    u"\xDC00\xD800",
                                    u"\xD83D\xDE00",
                                    std::u16string(1'000'000, u'"')};
    for (const std::u16string& text : texts) {
        settings.SaveSetting(u"Tags", text);
        EXPECT_TRUE(settings.GetSetting(u"Tags", u"unset") == text) << utf8(text.substr(0, 40));
    }
    for (const std::u16string_view neighbour : {u"Before", u"After"})
        EXPECT_TRUE(settings.GetSetting(neighbour, u"unset") == everyUnit);
    for (const std::u16string_view key : {u"", u"a b", u"a=b", u"[x]", u"a\nb", u"\u00E9"})
        EXPECT_THROW(settings.SaveSetting(key, u"1"), Failure);
}

TEST_F(Settings, FilesEditedByHandAreUnderstoodAndOnlyTheKeysLineChanges) {
    const struct {
        std::string before;
        std::u16string value;
        std::string after;
    } cases[] = {
        {"", u"unset", "[Brindlewick]\nOption=2\n"},
        {"\xEF\xBB\xBF", u"unset", "\xEF\xBB\xBF[Brindlewick]\nOption=2\n"},
        {"\xEF\xBB\xBF[Brindlewick]\nOption=7", u"7", "\xEF\xBB\xBF[Brindlewick]\nOption=2"},
        {"[Brindlewick]\rOption=7\rx=1", u"7", "[Brindlewick]\rOption=2\rx=1"},
        {" [Brindlewick] \r\n\t Option \t= 7 \r\nx=\xFF\r\n", u"7",
         " [Brindlewick] \r\nOption=2\r\nx=\xFF\r\n"},
        {"[Other]\nOption=1\n[Brindlewick]\n;Option=3\n#Option=4\nOption=7\nOption=8\n", u"7",
         "[Other]\nOption=1\n[Brindlewick]\n;Option=3\n#Option=4\nOption=2\nOption=8\n"},
        {"[Brindlewick]\nOptions=7\nNoption=8\nOption\n\n[Other]\nOption=5\n", u"unset",
         "[Brindlewick]\nOptions=7\nNoption=8\nOption\nOption=2\n\n[Other]\nOption=5\n"},
        {"Option=7", u"unset", "Option=7\n[Brindlewick]\nOption=2\n"},
    };
    for (const auto& [before, value, after] : cases) {
        folder.write(fileName, before);
        EXPECT_EQ(stored(u"Option"), utf8(value)) << before;
        settings.SaveSetting(u"Option", u"2");
        EXPECT_EQ(folder.read(fileName), after);
    }
    const std::pair<std::string, std::u16string> values[] = {
        {"C:\\new", u"C:\\new"},
        {"\"  kept  \"", u"  kept  "},
        {"\"a\\u00e9\\uD800\"", u"a\x00E9\xD800"},
        {"\"a\" and \"b\"", u"\"a\" and \"b\""},
        {"\"bad \\q\"", u"\"bad \\q\""},
        {"\"cut \\u12\"", u"\"cut \\u12\""},
        {"\"\\\"", u"\"\\\""},
        {"\xC3\xA9\xFF", u"\x00E9\xFFFD"},
    };
    for (const auto& [written, value] : values) {
        folder.write(fileName, "[Brindlewick]\nOption=" + written);
        EXPECT_EQ(settings.GetSetting(u"Option", u"unset"), value) << written;
    }
}

#ifdef _WIN32
// A file that somebody reads cannot be replaced there.
TEST_F(Settings, WaitForAReaderAndStayWhenTheReaderDoes) {
    settings.SaveSetting(u"Option", u"1");
    const auto read = [&] {
        return ::CreateFileW((folder.path() / fileName).c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr,
                             OPEN_EXISTING, 0, nullptr);
    };
    const HANDLE first = read();
    ASSERT_NE(first, INVALID_HANDLE_VALUE);
    std::thread leaving([&] {
        std::this_thread::sleep_for(std::chrono::milliseconds(100));
        ::CloseHandle(first);
    });
    EXPECT_NO_THROW(settings.SaveSetting(u"Option", u"2"));
    leaving.join();
    const HANDLE second = read();
    EXPECT_THROW(settings.SaveSetting(u"Option", u"3"), Failure);
    ::CloseHandle(second);
    EXPECT_EQ(stored(u"Option"), "2");
    EXPECT_EQ(filesBeside(), 1U);
}
#else
TEST_F(Settings, AWriteThatFailsHalfwayLeavesTheOldFile) {
    settings.SaveSetting(u"Option", u"1");
    const auto previous = std::signal(SIGXFSZ, SIG_IGN);
    rlimit limit{};
    getrlimit(RLIMIT_FSIZE, &limit);
    const rlimit small{4096, limit.rlim_max};
    setrlimit(RLIMIT_FSIZE, &small);
    EXPECT_THROW(settings.SaveSetting(u"Tags", std::u16string(100'000, u'a')), Failure);
    setrlimit(RLIMIT_FSIZE, &limit);
    std::signal(SIGXFSZ, previous);
    EXPECT_EQ(folder.read(fileName), "[Brindlewick]\nOption=1\n");
    EXPECT_EQ(filesBeside(), 1U);
}

/// Another process that saves `key` again and again, each time one character many times over.
pid_t startWriter(std::u16string_view key, int rounds) {
    const pid_t child = fork();
    if (child != 0)
        return child;
    for (int round = 0; round < rounds; ++round)
        SettingsFile().SaveSetting(key, std::u16string(20'000, static_cast<char16_t>(u'a' + round % 26)));
    _exit(0);
}

bool isWhole(const std::string& value) {
    return value == "unset" || (value.size() == 20'000 && value.find_first_not_of(value[0]) == value.npos);
}

TEST_F(Settings, TwoWindowsThatSaveAtOnceLoseNothing) {
    settings.SaveSetting(u"Option", u"3");
    for (const char16_t* key : {u"Tags", u"Snapshot"})
        ASSERT_GT(startWriter(key, 52), 0);
    for (int left = 2; left > 0;) {
        EXPECT_TRUE(isWhole(stored(u"Tags")) && isWhole(stored(u"Snapshot")));
        int status = 0;
        if (waitpid(-1, &status, WNOHANG) > 0) {
            EXPECT_EQ(status, 0);
            --left;
        }
    }
    EXPECT_EQ(stored(u"Tags"), std::string(20'000, 'z'));
    EXPECT_EQ(stored(u"Snapshot"), std::string(20'000, 'z'));
    EXPECT_EQ(stored(u"Option"), "3");
}

TEST_F(Settings, AKillInTheMiddleOfAWriteLeavesAWholeFile) {
    settings.SaveSetting(u"Option", u"3");
    for (int kills = 0; kills < 10; ++kills) {
        const pid_t writer = startWriter(u"Tags", 1'000'000);
        usleep(static_cast<useconds_t>(1000 * kills));
        kill(writer, SIGKILL);
        waitpid(writer, nullptr, 0);
        ASSERT_TRUE(isWhole(stored(u"Tags"))) << kills;
        ASSERT_EQ(stored(u"Option"), "3") << kills;
    }
    settings.SaveSetting(u"Tags", u"after");
    EXPECT_EQ(stored(u"Tags"), "after");
}
#endif

} // namespace
} // namespace brindlewick::testing
