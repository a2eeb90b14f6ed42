// Measures every column first, then streams the lines: no text of the file is kept in memory.
#include "output/aligned_text.h"

#include "output/export_steps.h"
#include "platform/text_file_writer.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <vector>

namespace brindlewick {

namespace {

using Widths = std::vector<std::size_t>;

Widths columnWidths(UserInterface& user, const ListviewTable& table) {
    Widths widths;
    for (std::size_t column = 0; column < table.columnCount(); ++column)
        widths.push_back(std::max(table.header(column).size(), longestCell(user, table, column)));
    return widths;
}

/// A cell that grew while events were handled, or a column that could not be measured, gets no blanks.
template <class CellOf>
void writeLine(TextFileWriter& file, const Widths& widths, std::size_t columns, CellOf cellOf) {
    for (std::size_t column = 0; column < columns; ++column) {
        const std::u16string_view text = cellOf(column);
        file.write(text);
        if (column < widths.size() && text.size() < widths[column])
            file.writeBlanks(widths[column] - text.size());
        file.write(u"\t");
    }
    file.writeLineEnd();
}

} // namespace

void SaveListviewProperlySpaced(UserInterface& user, const ListviewTable& table, std::u16string_view path,
                                ProgressIndicator* progress) {
    ExportSteps step(user, u"Extract1.SaveListviewProperlySpaced", progress, ValueOnFailure::zero);
    if (progress != nullptr) {
        step([&] { progress->setCaption(writingCaption(path)); });
        step([&] { user.yield(); });
    }
    Widths widths;
    step([&] { widths = columnWidths(user, table); });

    std::optional<TextFileWriter> file;
    step([&] { file.emplace(path); });
    const std::size_t columns = table.columnCount();
    step([&] {
        if (file)
            writeLine(*file, widths, columns, [&](std::size_t column) { return table.header(column); });
    });

    const std::size_t rows = table.rowCount();
    std::size_t written = 0;
    for (std::size_t row = 0; row < rows; ++row) {
        bool isTicked = false;
        step([&] {
            user.yield();
            showRows(user, u"Writing rows", row + 1, rows);
            isTicked = row < table.rowCount() && table.isChecked(row);
            if (isTicked && file) {
                writeLine(*file, widths, columns,
                          [&](std::size_t column) { return table.cell(row, column); });
                ++written;
            }
        });
        if (!isTicked || progress == nullptr)
            continue;
        step([&] { progress->setValue(percentDone(row + 1, rows)); });
        if ((row + 1) % rowsBetweenReports == 0)
            step([&] { progress->setCaption(writingCaption(path, row + 1)); });
    }

    if (progress != nullptr) {
        step([&] { progress->setValue(100); });
        step([&] { progress->setCaption(u"Done."); });
    }
    step([&] {
        if (file)
            file->close();
    });
    step([&] {
        user.endProgress(step.hasFailed() ? u"Not all rows were written" : rowsDone(written, u"written"));
    });
}

} // namespace brindlewick
