#include "output/clipboard_text.h"

#include "output/export_progress.h"
#include "platform/failure.h"

#include <cstddef>
#include <string_view>
#include <vector>

namespace brindlewick {

namespace {

constexpr std::u16string_view lineEnd = u"\r\n";

std::u16string_view withoutBlanksAtEnd(std::u16string_view text) {
    return text.substr(0, text.find_last_not_of(u' ') + 1);
}

/// Of all columns but the last.
std::vector<std::size_t> paddedWidths(UserInterface& user, const ListviewTable& table) {
    std::vector<std::size_t> widths;
    for (std::size_t column = 0; column + 1 < table.columnCount(); ++column)
        widths.push_back(longestCell(user, table, column));
    return widths;
}

/// The exact length of the text with the rows that are checked now.
std::size_t textLength(UserInterface& user, const ListviewTable& table,
                       const std::vector<std::size_t>& widths) {
    std::size_t fixedLength = lineEnd.size();
    for (const std::size_t width : widths)
        fixedLength += width + 1;
    std::size_t length = 0;
    for (std::size_t row = 0; row < table.rowCount(); ++row) {
        if (table.isChecked(row))
            length += fixedLength + withoutBlanksAtEnd(table.cell(row, widths.size())).size();
        if (length > maxTextLength)
            throw Failure(FailureNumber::outOfMemory);
        user.yield();
        if (user.isStopRequested())
            return 0;
    }
    return length;
}

void appendLine(std::u16string& text, const ListviewTable& table, std::size_t row,
                const std::vector<std::size_t>& widths) {
    for (std::size_t column = 0; column < widths.size(); ++column) {
        const std::u16string_view cell = table.cell(row, column);
        text += cell;
        if (cell.size() < widths[column])
            text.append(widths[column] - cell.size(), u' ');
        text += u'\t';
    }
    text += withoutBlanksAtEnd(table.cell(row, widths.size()));
    text += lineEnd;
}

} // namespace

// Three passes: measure the columns, add up the length, build. The blanks at the end of a line are removed,
// so the last column is not padded.
ClipboardText clipboardText(UserInterface& user, const ListviewTable& table) {
    ClipboardText copy;
    if (table.columnCount() == 0)
        return copy;
    const std::vector<std::size_t> widths = paddedWidths(user, table);
    ExportProgress progress(user, u"Copying");
    copy.text.reserve(textLength(user, table, widths));
    for (std::size_t row = 0; row < table.rowCount() && !user.isStopRequested(); ++row) {
        if (table.isChecked(row)) {
            appendLine(copy.text, table, row, widths);
            ++copy.rows;
        }
        progress.showRow(row + 1, table.rowCount());
        user.yield();
    }
    return copy;
}

std::size_t CopyListviewToClipboard(UserInterface& user, const ListviewTable& table) {
    if (table.rowCount() == 0)
        return 0;
    const ClipboardText copy = clipboardText(user, table);
    if (user.isStopRequested())
        return 0;
    user.setClipboardText(copy.text);
    return copy.rows;
}

std::size_t CopyRowsToClipboard(UserInterface& user, const ListviewTable& table,
                                std::span<const RowRange> ranges) {
    const auto forEachRow = [&](const auto& action) {
        for (const auto& [first, last] : ranges) {
            for (std::size_t row = first; row <= last && !user.isStopRequested(); ++row) {
                action(row);
                user.yield();
            }
        }
    };
    std::size_t rows = 0;
    std::size_t length = 0;
    forEachRow([&](std::size_t row) {
        for (std::size_t column = 0; column < table.columnCount(); ++column)
            length += table.cell(row, column).size() + 1; // a tab, or one unit of the line end
        if (++length > maxTextLength)
            throw Failure(FailureNumber::outOfMemory);
        ++rows;
    });
    ExportProgress progress(user, u"Copying");
    std::u16string text;
    text.reserve(length);
    std::size_t copied = 0;
    forEachRow([&](std::size_t row) {
        for (std::size_t column = 0; column < table.columnCount(); ++column)
            text.append(column > 0 ? u"\t" : u"").append(table.cell(row, column));
        text += lineEnd;
        progress.showRow(++copied, rows);
    });
    if (rows == 0 || user.isStopRequested())
        return 0;
    user.setClipboardText(text);
    return rows;
}

} // namespace brindlewick
