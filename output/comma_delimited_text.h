// The export whose cells are joined by commas.
#pragma once

#include "output/listview_table.h"
#include "output/progress_indicator.h"
#include "platform/user_interface.h"

#include <string>
#include <string_view>

namespace brindlewick {

/// "Are you sure you wish to overwrite PATH ?"
std::u16string overwriteQuestion(std::u16string_view path);

/// Writes every row, ticked or not, to `path` in the single-byte character set with CR LF after every line.
/// With several columns the headers come first, each followed by a comma; with one column there is no header
/// line and every row but the last ends in a comma. Cells are written as they are: no quoting, no escaping.
///
/// Asks before it replaces an existing file and writes nothing unless the answer is Yes. Reports its own
/// failures, one per file for those of the file system, and goes on; what was written stays. `progress` may
/// be null. Yields once per row. Time is linear in the bytes written, memory constant.
void SaveListviewAsCommaDelimToFile(UserInterface& user, const ListviewTable& table, std::u16string_view path,
                                    ProgressIndicator* progress);

} // namespace brindlewick
