// Streams the rows as they stand; a comma inside a cell spreads it over several fields, and that is wanted.
#include "output/comma_delimited_text.h"

#include "output/export_steps.h"
#include "platform/files.h"
#include "platform/text_file_writer.h"

#include <cstddef>
#include <optional>

namespace brindlewick {

namespace {

void writeHeaderLine(TextFileWriter& file, const ListviewTable& table) {
    for (std::size_t column = 0; column < table.columnCount(); ++column) {
        file.write(table.header(column));
        file.write(u",");
    }
    file.writeLineEnd();
}

void writeRow(TextFileWriter& file, const ListviewTable& table, std::size_t row) {
    const std::size_t columns = table.columnCount();
    for (std::size_t column = 0; column < columns; ++column) {
        if (column > 0)
            file.write(u",");
        file.write(table.cell(row, column));
    }
    if (columns == 1 && row + 1 < table.rowCount())
        file.write(u",");
    file.writeLineEnd();
}

} // namespace

std::u16string overwriteQuestion(std::u16string_view path) {
    return std::u16string(u"Are you sure you wish to overwrite ").append(path).append(u" ?");
}

void SaveListviewAsCommaDelimToFile(UserInterface& user, const ListviewTable& table, std::u16string_view path,
                                    ProgressIndicator* progress) {
    ExportSteps step(user, u"Extract1.SaveListviewAsCommaDelimToFile", progress, ValueOnFailure::kept);
    bool mayWrite = false;
    step([&] { mayWrite = !FileExists(path) || user.askYesNo(overwriteQuestion(path)); });
    if (!mayWrite)
        return;
    if (progress != nullptr) {
        step([&] { progress->setCaption(writingCaption(path)); });
        step([&] { user.yield(); });
    }

    std::optional<TextFileWriter> file;
    step([&] { file.emplace(path); });
    step([&] {
        if (file && table.columnCount() > 1)
            writeHeaderLine(*file, table);
    });

    const std::size_t rows = table.rowCount();
    for (std::size_t row = 0; row < rows; ++row) {
        step([&] { user.yield(); });
        if (progress != nullptr) {
            step([&] { progress->setValue(percentDone(row + 1, rows)); });
            if ((row + 1) % rowsBetweenReports == 0)
                step([&] { progress->setCaption(writingCaption(path, row + 1)); });
        }
        step([&] {
            showRows(user, u"Writing rows", row + 1, rows);
            if (file && row < table.rowCount())
                writeRow(*file, table, row);
        });
    }

    if (progress != nullptr)
        step([&] { progress->setCaption(u"Done."); });
    step([&] {
        if (file)
            file->close();
    });
    step([&] {
        user.endProgress(step.hasFailed() ? u"Not all rows were written" : rowsDone(rows, u"written"));
    });
}

} // namespace brindlewick
