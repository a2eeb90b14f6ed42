// Rows as text for the clipboard: the checked ones in columns that line up, or the selected ones.
#pragma once

#include "output/listview_table.h"
#include "platform/user_interface.h"

#include <cstddef>
#include <span>
#include <string>

namespace brindlewick {

struct ClipboardText {
    std::u16string text;
    std::size_t rows = 0; ///< lines in it
};

/// One line per checked row, each ended by CR LF, without headers. Every cell but the last is padded with
/// blanks to the longest text of its column in all rows (UTF-16 code units) and followed by a tab. The last
/// cell loses the blanks at its end; the tab before it stays even when the cell is empty.
///
/// Fails with outOfMemory, before anything is built, when the text would be longer than `maxTextLength`.
/// Yields once per row in each of its passes. When the user stops it, the text is unfinished. Linear in the
/// text; the text is allocated once.
[[nodiscard]] ClipboardText clipboardText(UserInterface& user, const ListviewTable& table);

/// Puts the text on the clipboard and returns the number of rows in it. A table without rows, and a stop by
/// the user, leave the clipboard as it is. Fails as `clipboardText` and `UserInterface::setClipboardText` do.
std::size_t CopyListviewToClipboard(UserInterface& user, const ListviewTable& table);

/// Rows from `first` to `last`, both included.
struct RowRange {
    std::size_t first;
    std::size_t last;
};

/// Puts the rows on the clipboard, checked or not: a tab between two cells, CR LF after every row. Returns
/// the number of rows. No rows, and a stop by the user, leave the clipboard as it is. Yields and fails as
/// CopyListviewToClipboard does.
std::size_t CopyRowsToClipboard(UserInterface& user, const ListviewTable& table,
                                std::span<const RowRange> ranges);

} // namespace brindlewick
