// The text file whose columns line up: every cell is padded with blanks to the width of its column.
#pragma once

#include "output/export_progress.h"
#include "output/listview_table.h"
#include "platform/user_interface.h"

#include <string_view>

namespace brindlewick {

/// Writes the header line and the checked rows as `exportRows` does. A column is as wide (UTF-16 code units)
/// as the longest of its header and its texts in all rows, unchecked rows included. A tab follows every cell,
/// the last one too. Measuring yields once per row and column.
void SaveListviewProperlySpaced(UserInterface& user, const ListviewTable& table, std::u16string_view path,
                                ProgressIndicator* progress);

} // namespace brindlewick
