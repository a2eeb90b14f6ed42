// Dragging inside the list: which texts are exchanged and which row is scrolled into view.
#include "lists/list_drag.h"

#include "lists/text_lists.h"

#include <gtest/gtest.h>

#include <numeric>

namespace brindlewick {
namespace {

using Row = std::optional<std::size_t>;
constexpr Row none = std::nullopt;

TEST(DragMove, ExchangesTwoTextsAndScrolls) {
    const struct {
        Row under;
        Row selected;
        int screenRow;
        std::u16string texts; ///< afterwards, of a list a b c c
        Row select;
        Row scrollTo;
    } cases[] = {
        {1, 0, 320, u"bacc", 1, none},       {0, 2, 320, u"cbac", 0, none},
        {2, 1, -5, u"acbc", 2, 1},           {1, 1, 320, u"abcc", none, none},
        {2, 3, 320, u"abcc", none, none}, // the same text twice
        {none, 1, 0, u"abcc", none, none},   {1, none, 320, u"abcc", none, none},
        {4, 1, 400, u"abcc", none, none},    {1, 4, 320, u"abcc", none, none},
        {1, none, 304, u"abcc", none, 0},    {1, none, 305, u"abcc", none, none},
        {1, none, 364, u"abcc", none, none}, {1, none, 365, u"abcc", none, 2},
        {0, none, 0, u"abcc", none, none},   {3, none, 900, u"abcc", none, none},
    };
    for (const auto& one : cases) {
        TextList list = testing::listOf({u"a", u"b", u"c", u"c"});
        ListDrag drag(list);
        for (const bool isDown : {false, true, false}) {
            if (isDown)
                drag.ListView1_MouseDown();
            const ListDrag::Outcome outcome =
                drag.ListView1_MouseMove(one.under, one.selected, one.screenRow);
            EXPECT_EQ(outcome.select, isDown ? one.select : none) << &one - cases;
            EXPECT_EQ(outcome.scrollTo, isDown ? one.scrollTo : none) << &one - cases;
            drag.ListView1_MouseUp();
        }
        EXPECT_EQ(std::accumulate(list.begin(), list.end(), std::u16string()), one.texts);
    }
}

} // namespace
} // namespace brindlewick
