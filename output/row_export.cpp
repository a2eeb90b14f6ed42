#include "output/row_export.h"

#include "platform/busy_scope.h"
#include "platform/error_report.h"
#include "platform/files.h"
#include "platform/text.h"

#include <cstdint>
#include <optional>
#include <string>

namespace brindlewick {

void RowFormat::measure(UserInterface&, const ListviewTable&) {}

bool mayWriteTo(UserInterface& user, std::u16string_view path) {
    return !FileExists(path) ||
           user.askYesNo(std::u16string(u"Are you sure you wish to overwrite ").append(path).append(u" ?"),
                         YesNo::no);
}

void exportRows(UserInterface& user, const ListviewTable& table, std::u16string_view path,
                ProgressIndicator* indicator, RowFormat& format) {
    const RowFormat::Rules rules = format.rules();
    const Guard guard(user, rules.routine);
    BusyScope busy(user, guard);
    ExportProgress progress(user, u"Writing", indicator, path, rules.setsFinalValue);
    bool hasFailed = false;
    // A step that fails resets the indicator before it is reported.
    const auto step = [&](const auto& action, std::uint_least32_t line = __builtin_LINE()) {
        const auto resetWhenFailing = [&] {
            try {
                action();
            } catch (...) {
                progress.fail();
                throw;
            }
        };
        if (!guard(resetWhenFailing, line))
            hasFailed = true;
    };

    bool mayWrite = !rules.asksBeforeReplacing;
    step([&] { mayWrite = mayWrite || mayWriteTo(user, path); });
    if (!mayWrite)
        return;
    step([&] { progress.begin(); });
    step([&] { format.measure(user, table); });

    if (user.isStopRequested()) {
        busy.end([] { return u"no file was written"; });
        return;
    }
    std::optional<TextFileWriter> file;
    const auto mayWait = [&user] {
        user.yield();
        return !user.isStopRequested();
    };
    step([&] { file.emplace(path, mayWait); });
    step([&] {
        if (file)
            format.writeHeader(*file, table);
    });

    const std::size_t rows = table.rowCount();
    ExportOutcome outcome{.tableRows = rows};
    for (std::size_t row = 0; row < rows && !user.isStopRequested(); ++row) {
        bool isIncluded = false;
        step([&] {
            user.yield();
            progress.showRow(row + 1, rows);
            isIncluded = rules.takesUncheckedRows || (row < table.rowCount() && table.isChecked(row));
        });
        if (!isIncluded) {
            outcome.untickedRows += row < table.rowCount() ? 1 : 0;
            continue;
        }
        if (rules.indicatesBeforeWriting)
            step([&] { progress.indicateRow(row + 1, rows); });
        step([&] {
            if (!file || row >= table.rowCount()) // the table became shorter while events were handled
                return;
            format.writeRow(*file, table, row);
            ++outcome.takenRows;
        });
        if (!rules.indicatesBeforeWriting)
            step([&] { progress.indicateRow(row + 1, rows); });
    }

    step([&] { progress.finish(); });
    step([&] {
        if (file) {
            outcome.replacedCharacters = file->replacedCharacters();
            file->close();
        }
    });
    busy.end([&]() -> std::u16string {
        if (hasFailed)
            return user.isStopRequested() ? u"not all rows were written" : u"Not all rows were written";
        return exportSummary(outcome, u"written", path);
    });
}

} // namespace brindlewick
