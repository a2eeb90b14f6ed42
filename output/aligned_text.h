// The export whose columns line up: every cell padded with blanks to its column's width and followed by a
// tab.
#pragma once

#include "output/listview_table.h"
#include "output/progress_indicator.h"
#include "platform/user_interface.h"

#include <string_view>

namespace brindlewick {

/// Writes the header line and the ticked rows to `path`, replacing a file of that name, in the single-byte
/// character set with CR LF after every line. A column is as wide (UTF-16 code units) as the longest of its
/// header and its texts in all rows, unticked ones too. The tab follows the last cell as well.
///
/// Reports its own failures, one per file for those of the file system, and goes on; what was written stays.
/// `progress` may be null. Yields once per row and column when measuring and once per row when writing. Time
/// is linear in the table and the bytes written, memory constant.
void SaveListviewProperlySpaced(UserInterface& user, const ListviewTable& table, std::u16string_view path,
                                ProgressIndicator* progress);

} // namespace brindlewick
