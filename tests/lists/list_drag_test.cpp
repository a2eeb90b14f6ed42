// Dragging inside the list: which texts change places and which row comes into view.
#include "lists/list_drag.h"

#include <gtest/gtest.h>

namespace brindlewick {
namespace {

using Row = std::optional<std::size_t>;

struct Case {
    Row under;
    Row selected;
    int screenRow;
    std::u16string texts; ///< afterwards, of a list a b c c
    Row select;
    Row scrollTo;
};

class DragMove : public ::testing::TestWithParam<Case> {};

TEST_P(DragMove, IsAsExpected) {
    const Case& one = GetParam();
    TextList list;
    for (const char16_t letter : std::u16string(u"abcc"))
        list.append({letter});
    ListDrag drag(list);
    drag.ListView1_MouseDown();
    const ListDrag::Outcome outcome = drag.ListView1_MouseMove(one.under, one.selected, one.screenRow);
    std::u16string texts;
    for (const std::u16string& text : list)
        texts += text;
    EXPECT_EQ(texts, one.texts);
    EXPECT_EQ(outcome.select, one.select);
    EXPECT_EQ(outcome.scrollTo, one.scrollTo);
}

constexpr Row none = std::nullopt;
INSTANTIATE_TEST_SUITE_P(
    Exchange, DragMove,
    ::testing::Values(Case{1, 0, 320, u"bacc", 1, none}, Case{0, 2, 320, u"cbac", 0, none},
                      Case{1, 1, 320, u"abcc", none, none},
                      Case{2, 3, 320, u"abcc", none, none}, // the same text twice
                      Case{none, 1, 320, u"abcc", none, none}, Case{1, none, 320, u"abcc", none, none},
                      Case{4, 1, 400, u"abcc", none, none}, Case{1, 4, 320, u"abcc", none, none}));
INSTANTIATE_TEST_SUITE_P(
    Scroll, DragMove,
    ::testing::Values(Case{1, none, 304, u"abcc", none, 0}, Case{1, none, 305, u"abcc", none, none},
                      Case{1, none, 364, u"abcc", none, none}, Case{1, none, 365, u"abcc", none, 2},
                      Case{0, none, 0, u"abcc", none, none}, Case{3, none, 900, u"abcc", none, none},
                      Case{none, 1, 0, u"abcc", none, none}, Case{2, 1, -5, u"acbc", 2, 1}));

TEST(ListDrag, MovesNothingUnlessTheButtonIsDown) {
    TextList list;
    list.append(u"a");
    list.append(u"b");
    ListDrag drag(list);
    EXPECT_FALSE(drag.ListView1_MouseMove(1, 0, 0).select);
    drag.ListView1_MouseDown();
    EXPECT_TRUE(drag.ListView1_MouseMove(1, 0, 320).select);
    drag.ListView1_MouseUp();
    const ListDrag::Outcome outcome = drag.ListView1_MouseMove(0, 1, 900);
    EXPECT_FALSE(outcome.select || outcome.scrollTo);
    EXPECT_EQ(list[0], u"b");
}

} // namespace
} // namespace brindlewick
