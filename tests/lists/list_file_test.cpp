// List files that are missing or cannot be read, and the list that they are appended to.
#include "lists/list_file.h"

#include "lists/text_lists.h"
#include "support/failure_of.h"
#include "support/fake_user.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

namespace brindlewick {
namespace {

using testing::Texts;

TEST(ReadListFile, AppendsWhatCanBeRead) {
    const testing::TemporaryFolder folder;
    testing::FakeUser user;
    TextList list = testing::listOf({u"x"});
    ReadListFile(user, folder.text("none.txt"), list);
    EXPECT_EQ(user.messages, Texts{u"File not found"});
    EXPECT_EQ(testing::failureOf([&] { ReadListFile(user, folder.text(), list); }),
              FailureNumber::permissionDenied);
    ReadListFile(user, folder.write("list.txt", "a\r\nx\r\n"), list);
    EXPECT_EQ(list.texts(), (Texts{u"x", u"a", u"x"}));
}

} // namespace
} // namespace brindlewick
