#include "output/output_handlers.h"

#include "output/aligned_text.h"
#include "output/comma_delimited_text.h"
#include "output/row_export.h"
#include "platform/busy_scope.h"

#include <cstddef>
#include <string>
#include <utility>

namespace brindlewick {

namespace {

constexpr FileDialog saveDialog{u"Save", u"Text Files (*.txt)|*.txt|All Files (*.*)|*.*|"};

constexpr std::u16string_view copiedMessage =
    u"Results have been copied to the clipboard.\r\r"
    u"Click a text area where you normally type and press Ctrl+V to paste the clipboard.";

} // namespace

// "Save Results As Text File"
void OutputHandlers::PushButton6_Click() {
    save(u"Form1.PushButton6_Click", SaveListviewProperlySpaced);
}

// "Save As Comma Delimited"
void OutputHandlers::PushButton12_Click() {
    save(u"Form1.PushButton12_Click", SaveListviewAsCommaDelimToFile);
}

// "Copy Results To Clipboard"
void OutputHandlers::PushButton11_Click() {
    const Guard guard(user_, u"Form1.PushButton11_Click");
    if (copy(guard, false, [&] { return CopyListviewToClipboard(user_, ResultsListview(table_)); }))
        guard([&] { user_.showMessage(copiedMessage); });
}

void OutputHandlers::ListView2_Copy(std::span<const RowRange> ranges) {
    if (std::exchange(isCopyingRows_, true))
        return;
    const Guard guard(user_, u"Form1.ListView2_KeyDown");
    copy(guard, true, [&] { return CopyRowsToClipboard(user_, ResultsListview(table_), ranges); });
    isCopyingRows_ = false;
}

// "Clear List"
void OutputHandlers::PushButton9_Click() {
    const Guard guard(user_, u"Form1.PushButton9_Click");
    guard([&] { table_.clearRows(); });
}

/// Asks for the path, and whether to replace a file that exists, then writes.
void OutputHandlers::save(std::u16string_view routine, Writer write) {
    const Guard guard(user_, routine);
    std::u16string path;
    bool mayWrite = false;
    guard([&] {
        path = user_.chooseFileToSave(saveDialog);
        mayWrite = !path.empty() && mayWriteTo(user_, path);
    });
    if (mayWrite)
        guard([&] { write(user_, ResultsListview(table_), path, nullptr); });
}

/// False when the user has stopped it. `copyRows` returns the number of rows.
bool OutputHandlers::copy(const Guard& guard, bool takesUncheckedRows,
                          const std::function<std::size_t()>& copyRows) {
    std::size_t rows = 0;
    BusyScope busy(user_, guard);
    const bool isCopied = guard([&] { rows = copyRows(); });
    const bool isStopped = user_.isStopRequested();
    busy.end([&]() -> std::u16string {
        const std::size_t tableRows = table_.rowCount();
        if (isStopped)
            return u"nothing was copied";
        return isCopied
                   ? exportSummary({tableRows, rows, takesUncheckedRows ? 0 : tableRows - rows}, u"copied")
                   : u"Nothing was copied";
    });
    return !isStopped;
}

} // namespace brindlewick
