// The text file whose cells are joined by commas.
#pragma once

#include "output/export_progress.h"
#include "output/listview_table.h"
#include "platform/user_interface.h"

#include <string_view>

namespace brindlewick {

/// Writes every row, checked or not, as `exportRows` does, after asking whether to replace an existing file.
/// With several columns the headers come first, each followed by a comma. With one column there is no header
/// line, and every row but the last ends in a comma. Cells are written as they are, without quotes: a comma
/// inside a cell makes two fields of it.
void SaveListviewAsCommaDelimToFile(UserInterface& user, const ListviewTable& table, std::u16string_view path,
                                    ProgressIndicator* progress);

} // namespace brindlewick
