// Scanned names that hold backslashes, which are separators elsewhere.
#include "lists/input_file_handlers.h"

#include "support/fake_settings.h"
#include "support/fake_user.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

namespace brindlewick {
namespace {

TEST(ScannedPaths, LoseDoubledBackslashes) {
    testing::TemporaryFolder folder;
    testing::FakeUser user;
    testing::FakeSettings settings;
    TextList files;
    folder.write("b\\\\c/d.json", "");
    user.textAnswers = {u"json"};
    user.folders = {folder.text()};
    InputFileHandlers(user, settings, files).PushButton5_Click();
    EXPECT_EQ(files.texts(), std::vector<std::u16string>{folder.text("b\\c/d.json")});
}

} // namespace
} // namespace brindlewick
