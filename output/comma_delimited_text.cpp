#include "output/comma_delimited_text.h"

#include "output/row_export.h"

#include <cstddef>

namespace brindlewick {

namespace {

class CommaDelimitedFormat final : public RowFormat {
public:
    Rules rules() const override {
        return {.routine = u"Extract1.SaveListviewAsCommaDelimToFile",
                .asksBeforeReplacing = true,
                .takesUncheckedRows = true,
                .indicatesBeforeWriting = true};
    }
    void writeHeader(TextFileWriter& file, const ListviewTable& table) const override {
        const std::size_t columns = table.columnCount();
        if (columns < 2)
            return;
        for (std::size_t column = 0; column < columns; ++column) {
            file.write(table.header(column));
            file.write(u",");
        }
        file.writeLineEnd();
    }
    void writeRow(TextFileWriter& file, const ListviewTable& table, std::size_t row) const override {
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
};

} // namespace

void SaveListviewAsCommaDelimToFile(UserInterface& user, const ListviewTable& table, std::u16string_view path,
                                    ProgressIndicator* progress) {
    CommaDelimitedFormat format;
    exportRows(user, table, path, progress, format);
}

} // namespace brindlewick
