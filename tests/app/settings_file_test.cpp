// The settings file: restores any text, reads files edited by hand, reports the right failures.
#include "app/settings_file.h"

#include "app/settings_text.h"
#include "app/system.h"
#include "support/failure_of.h"
#include "support/temporary_folder.h"

#include <QByteArray>
#include <QtGlobal>
#include <csignal>
#include <gtest/gtest.h>
#ifdef __unix__
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#endif

namespace brindlewick {
namespace {

using namespace std::string_literals;
using testing::TemporaryFolder;

constexpr const char* fileName = "Tessaly/Brindlewick.ini";

class SettingsFileTest : public ::testing::Test {
protected:
    SettingsFileTest() { useFolder(folder.path()); }
    ~SettingsFileTest() override { qputenv(configFolderVariable, before); }
    static void useFolder(const std::filesystem::path& path) {
        qputenv(configFolderVariable, QByteArray::fromStdString(path.string()));
    }
    static std::optional<FailureNumber> failureOfSaving() {
        return testing::failureOf([] { SettingsFile().SaveSetting(u"Option", u"2"); });
    }
    static std::optional<FailureNumber> failureOfReading() {
        return testing::failureOf([] { static_cast<void>(SettingsFile().GetSetting(u"Option", u"1")); });
    }

    const QByteArray before = qgetenv(configFolderVariable);
    TemporaryFolder folder;
};

TEST_F(SettingsFileTest, restoresAnyText) {
    std::u16string everyUnit;
    for (unsigned unit = 0; unit <= 0xFFFF; ++unit)
        everyUnit += {static_cast<char16_t>(unit), u'.'};
    const std::u16string texts[] = {u"",
                                    u"  blanks around\t",
                                    u"\t",
                                    u" x",
                                    u"x ",
                                    u"a||MySeparator12||b||MySeparator12||",
                                    u"a,b, c;d#e=f",
                                    u"@Invalid()",
                                    u"\"quoted\"",
                                    u"\"",
                                    u"ends in \\",
                                    u"C:\\new\\table\\u0041",
                                    u"\\\"",
                                    u"[Brindlewick]",
                                    u"x\n[Brindlewick]\nOption=9",
                                    u"a\rb\r\nc\0d"s,
                                    u"\xD800",
                                    u"\xDC00\xD800",
                                    u"\xDCFF/\xDC80",
                                    u"\xD83D\xDE00",
                                    u"\xFEFF\xFFFE",
                                    u"\x0085",
                                    std::u16string(1'000'000, u'"'),
                                    everyUnit};
    for (const std::u16string& text : texts)
        for (const std::u16string_view key : {u"First", u"Second", u"Tags"}) {
            SettingsFile().SaveSetting(key, text);
            EXPECT_TRUE(SettingsFile().GetSetting(key, u"default") == text)
                << ::testing::PrintToString(text.substr(0, 40));
        }
    SettingsFile().SaveSetting(u"Second", u"");
    for (const std::u16string_view neighbour : {u"First", u"Tags"})
        EXPECT_TRUE(SettingsFile().GetSetting(neighbour, u"default") == everyUnit);
}

TEST_F(SettingsFileTest, returnsTheDefaultForMissingKeysAndAcceptsLettersAndDigitsInKeys) {
    EXPECT_EQ(SettingsFile().GetSetting(u"Option", u"1"), u"1") << "no file, no folder";
    SettingsFile().SaveSetting(u"Option", u"");
    EXPECT_EQ(SettingsFile().GetSetting(u"Option", u"1"), u"") << "an empty value is a value";
    EXPECT_EQ(SettingsFile().GetSetting(u"Check1", u"0"), u"0");
    for (const std::u16string_view key : {u"", u"a b", u"a=b", u"[x]", u"a\nb", u"\u00E9"})
        EXPECT_THROW(SettingsFile().SaveSetting(key, u"1"), Failure);
    EXPECT_EQ(folder.read(fileName), "[Brindlewick]\nOption=\n");
}

TEST_F(SettingsFileTest, readsFilesEditedByHand) {
    const std::pair<std::string, std::u16string> cases[] = {
        {"[Brindlewick]\nOption=7", u"7"},
        {"[Brindlewick]\rOption=7\rCheck1=1", u"7"},
        {"\xEF\xBB\xBF[Brindlewick]\nOption=7\n", u"7"},
        {"  [Brindlewick]  \n\t Option \t= 7 \n", u"7"},
        {"; note\n[Other]\nOption=1\n[Brindlewick]\n;Option=2\n#Option=3\nOption=7\n", u"7"},
        {"[Brindlewick]\n[Other]\nOption=1\n[Brindlewick]\nOption=7\n", u"7"},
        {"[Brindlewick]\nOption=7\nOption=8\n", u"7"},
        {"[Brindlewick]\nOption=C:\\new\\table\n", u"C:\\new\\table"},
        {"[Brindlewick]\nOption=\"  kept  \"\n", u"  kept  "},
        {"[Brindlewick]\nOption=\"a\\u00e9\\uD800\"\n", u"a\x00E9\xD800"},
        {"[Brindlewick]\nOption=\"a\" and \"b\"\n", u"\"a\" and \"b\""},
        {"[Brindlewick]\nOption=\"bad \\q escape\"\n", u"\"bad \\q escape\""},
        {"[Brindlewick]\nOption=\"cut \\u12\"\n", u"\"cut \\u12\""},
        {"[Brindlewick]\nOption=\"\\\"\n", u"\"\\\""},
        {"[Brindlewick]\nOption=\xC3\xA9\xFF\n", u"\x00E9\xFFFD"},
        {"Option=7\n", u"default"},
        {"[Brindlewick]\nOptions=7\nNoption=8\nOption\n", u"default"},
        {"", u"default"},
        {std::string("\0\0\xFF\xFE", 4), u"default"},
    };
    for (const auto& [bytes, expected] : cases) {
        folder.write(fileName, bytes);
        EXPECT_EQ(SettingsFile().GetSetting(u"Option", u"default"), expected) << bytes.substr(0, 60);
        SettingsFile().SaveSetting(u"Option", u"2");
        EXPECT_EQ(SettingsFile().GetSetting(u"Option", u"default"), u"2") << bytes.substr(0, 60);
    }
}

TEST(SettingsText, changesTheLineOfTheKeyAlone) {
    const std::pair<std::string, std::string> cases[] = {
        {"[Brindlewick]", "[Brindlewick]\nOption=2\n"},
        {"\xEF\xBB\xBF", "\xEF\xBB\xBF[Brindlewick]\nOption=2\n"},
        {"[Other]\na=1", "[Other]\na=1\n[Brindlewick]\nOption=2\n"},
        {"; c\r\n[Brindlewick]\r\n Option = 1 \r\nx=\xFF\r\n",
         "; c\r\n[Brindlewick]\r\nOption=2\r\nx=\xFF\r\n"},
        {"[Brindlewick]\na=1\n\n[Other]\nOption=5\n", "[Brindlewick]\na=1\nOption=2\n\n[Other]\nOption=5\n"},
    };
    for (const auto& [before, after] : cases)
        EXPECT_EQ(textWithSetting(before, u"Option", u"2"), after);
}

TEST_F(SettingsFileTest, reportsTheReasonOfAFailure) {
    folder.write("file", "");
    folder.write("c1/Tessaly", "");
    folder.makeFolder("c2/Tessaly/Brindlewick.ini");
    const struct {
        const char* configFolder;
        std::optional<FailureNumber> reading;
        std::optional<FailureNumber> saving;
    } cases[] = {
        {"new/deep", {}, {}}, // missing folders are created
        {"file", {}, FailureNumber::pathNotFound},
        {"c1", {}, FailureNumber::pathNotFound},
        {"c2", FailureNumber::permissionDenied, FailureNumber::permissionDenied},
#ifdef __unix__
        {"/proc/self", {}, FailureNumber::pathNotFound}, // no files can be created there
#endif
    };
    for (const auto& one : cases) {
        useFolder(folder.path() / one.configFolder);
        EXPECT_EQ(failureOfReading(), one.reading) << one.configFolder;
        EXPECT_EQ(failureOfSaving(), one.saving) << one.configFolder;
    }
}

#ifdef __unix__
TEST_F(SettingsFileTest, reportsMissingPermissions) {
    if (geteuid() == 0)
        GTEST_SKIP() << "root may read and write every file";
    SettingsFile().SaveSetting(u"Option", u"1");
    std::filesystem::permissions(folder.path() / "Tessaly",
                                 std::filesystem::perms::owner_read | std::filesystem::perms::owner_exec);
    EXPECT_EQ(failureOfSaving(), FailureNumber::permissionDenied);
    std::filesystem::permissions(folder.path() / "Tessaly", std::filesystem::perms::owner_all);
    std::filesystem::permissions(folder.path() / fileName, std::filesystem::perms::none);
    EXPECT_EQ(failureOfReading(), FailureNumber::permissionDenied);
}

TEST_F(SettingsFileTest, keepsTheOldFileWhenAWriteFailsHalfway) {
    SettingsFile().SaveSetting(u"Option", u"1");
    const std::string old = folder.read(fileName);
    const auto previous = std::signal(SIGXFSZ, SIG_IGN);
    rlimit limit{};
    getrlimit(RLIMIT_FSIZE, &limit);
    const rlimit small{4096, limit.rlim_max};
    setrlimit(RLIMIT_FSIZE, &small);
    const auto failure =
        testing::failureOf([] { SettingsFile().SaveSetting(u"Tags", std::u16string(100'000, u'a')); });
    setrlimit(RLIMIT_FSIZE, &limit);
    std::signal(SIGXFSZ, previous);
    EXPECT_EQ(failure, FailureNumber::deviceIoError);
    EXPECT_EQ(folder.read(fileName), old);
    const auto entries = std::filesystem::directory_iterator(folder.path() / "Tessaly");
    EXPECT_EQ(std::distance(begin(entries), end(entries)), 1) << "a temporary file was not removed";
}

/// Starts a process that saves `key` `rounds` times, each time 20,000 times the same letter.
pid_t startWriter(std::u16string_view key, int rounds) {
    const pid_t child = fork();
    if (child != 0)
        return child;
    for (int round = 0; round < rounds; ++round)
        SettingsFile().SaveSetting(key, std::u16string(20'000, static_cast<char16_t>(u'a' + round % 26)));
    _exit(0);
}

bool isWhole(const std::u16string& value) {
    return value.empty() || (value.size() == 20'000 && value.find_first_not_of(value[0]) == value.npos);
}

TEST_F(SettingsFileTest, losesNothingWhenTwoProgramsSaveAtTheSameTime) {
    constexpr int rounds = 60;
    SettingsFile().SaveSetting(u"Option", u"3");
    const pid_t writers[] = {startWriter(u"Tags", rounds), startWriter(u"Snapshot", rounds)};
    for (std::size_t left = 2; left > 0;) {
        EXPECT_TRUE(isWhole(SettingsFile().GetSetting(u"Tags", u"")));
        EXPECT_TRUE(isWhole(SettingsFile().GetSetting(u"Snapshot", u"")));
        int status = 0;
        if (waitpid(-1, &status, WNOHANG) > 0) {
            EXPECT_EQ(status, 0);
            --left;
        }
    }
    const std::u16string last(20'000, static_cast<char16_t>(u'a' + (rounds - 1) % 26));
    for (const auto& [key, value] :
         {std::pair(u"Tags", last), std::pair(u"Snapshot", last), std::pair(u"Option", std::u16string(u"3"))})
        EXPECT_TRUE(SettingsFile().GetSetting(key, u"") == value);
    EXPECT_GT(writers[0] + writers[1], 0);
}

TEST_F(SettingsFileTest, keepsAWholeFileWhenAWriterIsKilled) {
    SettingsFile().SaveSetting(u"Option", u"3");
    for (int kills = 0; kills < 20; ++kills) {
        const pid_t writer = startWriter(u"Tags", 1'000'000);
        usleep(static_cast<useconds_t>(500 * kills));
        kill(writer, SIGKILL);
        waitpid(writer, nullptr, 0);
        ASSERT_TRUE(isWhole(SettingsFile().GetSetting(u"Tags", u""))) << kills;
        ASSERT_EQ(SettingsFile().GetSetting(u"Option", u""), u"3") << kills;
    }
    SettingsFile().SaveSetting(u"Tags", u"after");
    EXPECT_EQ(SettingsFile().GetSetting(u"Tags", u""), u"after");
}
#endif

} // namespace
} // namespace brindlewick
