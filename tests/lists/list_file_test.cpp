// List files that are missing or unreadable. The line ends are covered by tests/cases/lists.cases.
#include "lists/list_file.h"

#include "lists/text_lists.h"
#include "support/failure_of.h"
#include "support/fake_user.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

namespace brindlewick {
namespace {

using testing::Texts;

TEST(ReadListFile, AppendsOnlyWhatCanBeRead) {
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
