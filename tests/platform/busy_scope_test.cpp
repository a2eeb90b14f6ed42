// The busy state and the pointer through the life of an operation, alone and inside another.
#include "platform/busy_scope.h"

#include "support/fake_user.h"

#include <gtest/gtest.h>

#include <optional>

namespace brindlewick {
namespace {

using Shapes = std::vector<PointerShape>;
using Texts = std::vector<std::u16string>;

struct BusyScopes : ::testing::Test {
    testing::FakeUser user;
    const Guard guard{user, u"Form1.Test"};
};

TEST_F(BusyScopes, NestedOnesLeaveThePointerToTheOutermost) {
    BusyScope outer(user, guard);
    {
        BusyScope inner(user, guard);
        inner.end([] { return u"inner"; });
        EXPECT_TRUE(user.isBusy());
    }
    EXPECT_EQ(user.pointerShapes, Shapes{PointerShape::hourglass});
    outer.end([&] {
        EXPECT_FALSE(user.isBusy());
        EXPECT_EQ(user.pointer(), PointerShape::standard);
        return u"outer";
    });
    EXPECT_EQ(user.summaries, (Texts{u"inner", u"outer"}));
}

TEST_F(BusyScopes, EndWithoutSummaryWhenLeft) {
    std::optional<BusyScope> scope;
    EXPECT_FALSE(user.isBusy());
    scope.emplace(user, guard);
    EXPECT_TRUE(user.isBusy());
    scope.reset();
    EXPECT_FALSE(user.isBusy());
    EXPECT_EQ(user.pointerShapes, (Shapes{PointerShape::hourglass, PointerShape::standard}));
    EXPECT_TRUE(user.summaries.empty());
}

TEST_F(BusyScopes, KeepARequestToStopUntilTheNextOperation) {
    user.requestStop(); // nothing to stop
    EXPECT_FALSE(user.isStopRequested());
    {
        BusyScope outer(user, guard);
        user.requestStop();
        BusyScope inner(user, guard);
        EXPECT_TRUE(user.isStopRequested());
        outer.end([] { return u""; });
    }
    EXPECT_TRUE(user.isStopRequested());
    BusyScope next(user, guard);
    EXPECT_FALSE(user.isStopRequested());
}

TEST_F(BusyScopes, ReportASummaryThatFails) {
    BusyScope scope(user, guard);
    scope.end([]() -> std::u16string { throw Failure(FailureNumber::outOfMemory); });
    EXPECT_TRUE(user.hasOneReport(u"Out of memory", u"Form1.Test"));
    EXPECT_FALSE(user.isBusy());
    EXPECT_EQ(user.pointer(), PointerShape::standard);
}

} // namespace
} // namespace brindlewick
