// Saving settings while another program reads the file, which Windows does not let be replaced then.
#include "app/settings_file.h"
#include "app/system.h"
#include "platform/failure.h"
#include "support/temporary_folder.h"

#include <QByteArray>
#include <chrono>
#include <gtest/gtest.h>
#include <thread>

#include <windows.h>

namespace brindlewick {
namespace {

/// Opens the settings file like a reader that does not allow replacing it.
class SettingsThatAreRead : public ::testing::Test {
protected:
    SettingsThatAreRead() {
        qputenv(configFolderVariable, QByteArray::fromStdString(folder.path().string()));
        SettingsFile().SaveSetting(u"Option", u"1");
        const std::filesystem::path path = folder.path() / "Tessaly" / "Brindlewick.ini";
        reader =
            ::CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
    }
    ~SettingsThatAreRead() override { qputenv(configFolderVariable, before); }

    const QByteArray before = qgetenv(configFolderVariable);
    testing::TemporaryFolder folder;
    HANDLE reader;
};

TEST_F(SettingsThatAreRead, AreSavedWhenTheReaderClosesTheFile) {
    ASSERT_NE(reader, INVALID_HANDLE_VALUE);
    std::thread leaving([&] {
        std::this_thread::sleep_for(std::chrono::milliseconds(100));
        ::CloseHandle(reader);
    });
    EXPECT_NO_THROW(SettingsFile().SaveSetting(u"Option", u"2"));
    leaving.join();
    EXPECT_EQ(SettingsFile().GetSetting(u"Option", u""), u"2");
}

TEST_F(SettingsThatAreRead, AreKeptWhenTheReaderDoesNotCloseTheFile) {
    ASSERT_NE(reader, INVALID_HANDLE_VALUE);
    EXPECT_THROW(SettingsFile().SaveSetting(u"Option", u"2"), Failure);
    ::CloseHandle(reader);
    EXPECT_EQ(SettingsFile().GetSetting(u"Option", u""), u"1");
    const auto entries = std::filesystem::directory_iterator(folder.path() / "Tessaly");
    EXPECT_EQ(std::distance(begin(entries), end(entries)), 1) << "a temporary file was not removed";
}

} // namespace
} // namespace brindlewick
