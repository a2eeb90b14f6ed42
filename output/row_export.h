// The loop that the two text files share: one file, a header line and one line per row, in a row format.
#pragma once

#include "output/export_progress.h"
#include "output/listview_table.h"
#include "platform/text_file_writer.h"
#include "platform/user_interface.h"

#include <cstddef>
#include <string_view>

namespace brindlewick {

/// How one kind of file is written. A new kind of file is one row format and one button handler.
class RowFormat {
public:
    virtual ~RowFormat() = default;

    struct Rules {
        std::u16string_view routine;         ///< as Guard takes it
        bool asksBeforeReplacing = false;    ///< an existing file
        bool takesUncheckedRows = false;     ///< otherwise only checked rows
        bool indicatesBeforeWriting = false; ///< the indicator changes before the row is written, not after
        bool setsFinalValue = false;         ///< see ExportProgress
    };
    virtual Rules rules() const = 0;

    /// Reads the table once before the file is created. The default does nothing.
    virtual void measure(UserInterface& user, const ListviewTable& table);
    /// Writes the header line, if there is one, and its line end.
    virtual void writeHeader(TextFileWriter& file, const ListviewTable& table) const = 0;
    /// Writes the line of a row (from 0) and its line end.
    virtual void writeRow(TextFileWriter& file, const ListviewTable& table, std::size_t row) const = 0;
};

/// True when there is no such file, or the user answers Yes to "Are you sure you wish to overwrite PATH ?".
[[nodiscard]] bool mayWriteTo(UserInterface& user, std::u16string_view path);

/// Writes the table to `path`, replacing a file of that name, in the single-byte character set with CR LF
/// after every line. The user interface is busy meanwhile; at the end the status bar shows how many rows were
/// written.
///
/// When the user stops it, the row at hand is the last; before the first row, no file is created.
///
/// Reports its own failures and goes on, so that what was written stays; a file that cannot be written gives
/// one report. `indicator` may be null. Yields once per row, and as often as the format's `measure`. Time is
/// linear in the table and the bytes written, memory constant.
void exportRows(UserInterface& user, const ListviewTable& table, std::u16string_view path,
                ProgressIndicator* indicator, RowFormat& format);

} // namespace brindlewick
