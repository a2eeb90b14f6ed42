#include "output/aligned_text.h"

#include "output/row_export.h"

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

namespace brindlewick {

namespace {

class AlignedFormat final : public RowFormat {
public:
    Rules rules() const override {
        return {.routine = u"Extract1.SaveListviewProperlySpaced", .setsFinalValue = true};
    }
    void measure(UserInterface& user, const ListviewTable& table) override {
        std::vector<std::size_t> widths;
        for (std::size_t column = 0; column < table.columnCount(); ++column)
            widths.push_back(std::max(table.header(column).size(), longestCell(user, table, column)));
        widths_ = std::move(widths);
    }
    void writeHeader(TextFileWriter& file, const ListviewTable& table) const override {
        writeLine(file, table.columnCount(), [&](std::size_t column) { return table.header(column); });
    }
    void writeRow(TextFileWriter& file, const ListviewTable& table, std::size_t row) const override {
        writeLine(file, table.columnCount(), [&](std::size_t column) { return table.cell(row, column); });
    }

private:
    template <class CellOf>
    void writeLine(TextFileWriter& file, std::size_t columns, CellOf cellOf) const {
        for (std::size_t column = 0; column < columns; ++column) {
            const std::u16string_view text = cellOf(column);
            file.write(text);
            // No blanks when measuring failed, or when the cell grew while events were handled.
            if (column < widths_.size() && text.size() < widths_[column])
                file.writeBlanks(widths_[column] - text.size());
            file.write(u"\t");
        }
        file.writeLineEnd();
    }

    std::vector<std::size_t> widths_;
};

} // namespace

void SaveListviewProperlySpaced(UserInterface& user, const ListviewTable& table, std::u16string_view path,
                                ProgressIndicator* progress) {
    AlignedFormat format;
    exportRows(user, table, path, progress, format);
}

} // namespace brindlewick
