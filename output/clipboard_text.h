// The ticked rows as plain text to paste: cells lined up by blanks and separated by tabs.
#pragma once

#include "output/listview_table.h"
#include "platform/user_interface.h"

#include <cstddef>
#include <string>

namespace brindlewick {

struct ClipboardText {
    std::u16string text;
    std::size_t rows = 0; ///< lines in it
};

/// One line per ticked row, each ended by CR LF, without headers. Every cell but the last is padded to the
/// longest text of its column in all rows (UTF-16 code units) and followed by a tab; the blanks at the end of
/// the last cell's text go, and the tab before it always stays.
///
/// Fails with outOfMemory, before anything is built, when the text would be longer than `longestText`.
/// Yields once per row in each of its passes. Linear in the text; the text is allocated once.
ClipboardText clipboardText(UserInterface& user, const ListviewTable& table);

/// Puts the text on the clipboard and gives the number of rows in it; a table without rows leaves the
/// clipboard as it was. Fails as `clipboardText` and `UserInterface::setClipboardText` do.
std::size_t CopyListviewToClipboard(UserInterface& user, const ListviewTable& table);

} // namespace brindlewick
