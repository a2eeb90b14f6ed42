// The list of texts: undoing a removal, and rows that do not exist. The listener's calls are covered by the
// tests of the window's models.
#include "lists/text_list.h"

#include "lists/text_lists.h"
#include "support/failure_of.h"

#include <gtest/gtest.h>

namespace brindlewick {
namespace {

using testing::failureOf;
using testing::listOf;
using testing::Texts;

TEST(TextList, RefusesRowsThatDoNotExist) {
    TextList list = listOf({u"a", u"b"});
    EXPECT_EQ(failureOf([&] { list.removeAt(2); }), FailureNumber::subscriptOutOfRange);
    EXPECT_EQ(failureOf([&] { list.exchange(2, 0); }), FailureNumber::subscriptOutOfRange);
    EXPECT_EQ(failureOf([&] { list.exchange(0, 2); }), FailureNumber::subscriptOutOfRange);
    EXPECT_EQ(list.texts(), (Texts{u"a", u"b"}));
}

TEST(TextList, RestoresWhatTheLastChangeRemoved) {
    TextList list = listOf({u"a", u"b", u"c"});
    EXPECT_FALSE(list.restoreTaken());
    list.removeAt(1);
    EXPECT_TRUE(list.restoreTaken());
    EXPECT_EQ(list.texts(), (Texts{u"a", u"b", u"c"}));
    EXPECT_FALSE(list.restoreTaken()); // once
    list.clear();
    list.clear(); // takes nothing, so changes nothing
    EXPECT_TRUE(list.restoreTaken());
    EXPECT_EQ(list.texts(), (Texts{u"a", u"b", u"c"}));
    list.removeAt(0);
    list.append(u"d");
    EXPECT_FALSE(list.restoreTaken());
    list.removeAt(0);
    list.exchange(0, 1);
    EXPECT_FALSE(list.restoreTaken());
    EXPECT_EQ(list.texts(), (Texts{u"d", u"c"}));
}

} // namespace
} // namespace brindlewick
