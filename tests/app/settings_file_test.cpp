// The settings file: files edited by hand are understood and kept, and neither a second window nor a kill
// damages it.
#include "app/window_story.h"

#ifndef _WIN32
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
};

TEST_F(Settings, OfAFileEditedByHandOnlyTheKeysLineChanges) {
    for (const auto& [before, value, after] :
         {std::tuple{"\xEF\xBB\xBF [Brindlewick] \r\n\t Option \t= 7 \r\nx=\xFF\r\n", "7",
                     "\xEF\xBB\xBF [Brindlewick] \r\nOption=2\r\nx=\xFF\r\n"},
          {"[Brindlewick]\nOptions=7\n;Option=8\n\n[Other]\nOption=5\n", "unset",
           "[Brindlewick]\nOptions=7\n;Option=8\nOption=2\n\n[Other]\nOption=5\n"}}) {
        folder.write(fileName, before);
        EXPECT_EQ(stored(u"Option"), value) << before;
        settings.SaveSetting(u"Option", u"2");
        EXPECT_EQ(folder.read(fileName), after);
    }
}

#ifndef _WIN32
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

TEST_F(Settings, TwoWindowsThatSaveAtOnceAndAKillLoseNothing) {
    settings.SaveSetting(u"Option", u"3");
    for (const char16_t* key : {u"Tags", u"Snapshot"})
        ASSERT_GT(startWriter(key, 52), 0);
    for (int writer = 0; writer < 2; ++writer) {
        int outcome = 1;
        EXPECT_GT(waitpid(-1, &outcome, 0), 0);
        EXPECT_EQ(outcome, 0);
    }
    EXPECT_EQ(stored(u"Tags"), std::string(20'000, 'z'));
    EXPECT_EQ(stored(u"Snapshot"), std::string(20'000, 'z'));
    for (int kills = 0; kills < 10; ++kills) {
        const pid_t writer = startWriter(u"Tags", 1'000'000);
        usleep(static_cast<useconds_t>(1000 * kills));
        kill(writer, SIGKILL);
        waitpid(writer, nullptr, 0);
        const std::string whole = stored(u"Tags");
        ASSERT_EQ(whole, std::string(20'000, whole[0])) << kills;
        ASSERT_EQ(stored(u"Option"), "3") << kills;
    }
    settings.SaveSetting(u"Tags", u"after");
    EXPECT_EQ(stored(u"Tags"), "after");
}
#endif

} // namespace
} // namespace brindlewick::testing
