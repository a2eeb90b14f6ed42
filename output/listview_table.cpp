#include "output/listview_table.h"

#include <algorithm>

namespace brindlewick {

std::size_t longestCell(UserInterface& user, const ListviewTable& table, std::size_t column) {
    std::size_t longest = 0;
    for (std::size_t row = 0; row < table.rowCount() && !user.isStopRequested(); ++row) {
        longest = std::max(longest, table.cell(row, column).size());
        user.yield();
    }
    return longest;
}

} // namespace brindlewick
