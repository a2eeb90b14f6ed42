#include "extract/results_table.h"

#include "platform/failure.h"

#include <algorithm>
#include <utility>

namespace brindlewick {

namespace {

// Code units; 1 MiB. A text that would waste much of an arena's free space gets memory of its own.
constexpr std::size_t arenaLength = std::size_t{1} << 19;
constexpr std::size_t maxSharedArenaText = arenaLength / 8;

constexpr std::size_t maxFiles = std::size_t{1} << 30;

using Content = TableColumn::Content;
constexpr TableColumn columnsWithFilename[] = {{u"Filename", 3500, Content::filename},
                                               {u"Results", 3500, Content::result}};
constexpr TableColumn columnsWithoutFilename[] = {{u"Results", 7000, Content::result}};

constexpr std::span<const TableColumn> columnsFor(bool withFilename) {
    return withFilename ? std::span<const TableColumn>(columnsWithFilename) : columnsWithoutFilename;
}

/// Calls the listener, if there is one, before and after a reset.
class ResetScope {
public:
    explicit ResetScope(ResultsTableListener* listener) : listener_(listener) {
        if (listener_ != nullptr)
            listener_->tableWillBeReset();
    }
    ~ResetScope() {
        if (listener_ != nullptr)
            listener_->tableWasReset();
    }
    ResetScope(const ResetScope&) = delete;
    ResetScope& operator=(const ResetScope&) = delete;

private:
    ResultsTableListener* listener_;
};

} // namespace

ResultsTable::ResultsTable(UndoList* undoList) : undoList_(undoList) {}
ResultsTable::~ResultsTable() = default;

void ResultsTable::setColumns(bool withFilename) {
    const ResetScope reset(listener_);
    columns_ = columnsFor(withFilename);
}

void ResultsTable::clearAll() {
    const ResetScope reset(listener_);
    rows_ = {};
    cleared_.reset();
    columns_ = {};
}

void ResultsTable::clearRows() {
    if (rows_.count == 0)
        return;
    {
        const ResetScope reset(listener_);
        cleared_ = std::exchange(rows_, {});
    }
    if (undoList_ != nullptr)
        undoList_->add([this] { return restoreRows(); });
}

bool ResultsTable::restoreRows() {
    if (!cleared_)
        return false;
    const ResetScope reset(listener_);
    rows_ = *std::exchange(cleared_, std::nullopt);
    return true;
}

void ResultsTable::truncateRows(std::size_t rowCount) {
    if (rowCount >= rows_.count)
        return;
    const ResetScope reset(listener_);
    rows_.count = rowCount;
    rows_.blocks.resize((rowCount + rowsPerBlock - 1) / rowsPerBlock);
}

void ResultsTable::beginFile(std::u16string_view path) {
    if (rows_.files.size() == maxFiles)
        throw Failure(FailureNumber::outOfMemory);
    rows_.files.emplace_back(path);
}

ResultsTable::Text ResultsTable::store(std::u16string_view text) {
    if (text.size() > rows_.arenaLeft) {
        if (text.size() > maxTextLength)
            throw Failure(FailureNumber::outOfMemory);
        if (text.size() > maxSharedArenaText) {
            UnitBuffer copy(maxTextLength);
            copy.makeRoom(text.size());
            copy.put(text);
            return storeLong(std::move(copy));
        }
        rows_.arenas.push_back(std::make_unique_for_overwrite<char16_t[]>(arenaLength));
        rows_.arenaNext = rows_.arenas.back().get();
        rows_.arenaLeft = arenaLength;
    }
    std::copy(text.begin(), text.end(), rows_.arenaNext);
    const Text stored(rows_.arenaNext, text.size());
    rows_.arenaNext += text.size();
    rows_.arenaLeft -= text.size();
    return stored;
}

ResultsTable::Text ResultsTable::store(UnitBuffer& text) {
    if (text.length() <= maxSharedArenaText || text.length() > maxTextLength)
        return store(text.view());
    text.dropRoom();
    return storeLong(std::exchange(text, UnitBuffer(maxTextLength)));
}

ResultsTable::Text ResultsTable::storeLong(UnitBuffer&& text) {
    rows_.longTexts.push_back(std::move(text));
    const std::u16string_view stored = rows_.longTexts.back().view();
    return {stored.data(), stored.size()};
}

void ResultsTable::appendRow(Text text, bool withFilename) {
    if (rows_.count == rows_.blocks.size() * rowsPerBlock)
        rows_.blocks.push_back(std::make_unique_for_overwrite<Row[]>(rowsPerBlock));
    Row& row = at(rows_.count);
    row.units = text.units_;
    row.length = text.length_;
    row.file = static_cast<std::uint32_t>(rows_.files.size() - 1) & (maxFiles - 1);
    row.withFilename = withFilename ? 1 : 0;
    row.checked = 1;
    ++rows_.count;
    if (announcesAppend_) {
        announcesAppend_ = false;
        listener_->rowWasAppended();
    }
}

std::u16string_view ResultsTable::cell(std::size_t row, std::size_t column) const {
    // The columns as they were when the row was appended; the table's may differ.
    const std::span<const TableColumn> columns = columnsFor(at(row).withFilename != 0);
    if (column >= columns.size())
        return {};
    switch (columns[column].content) {
    case Content::filename:
        return filePath(row);
    case Content::result:
        return text(row);
    }
    return {};
}

std::u16string_view ResultsTable::text(std::size_t row) const {
    return {at(row).units, at(row).length};
}

std::u16string_view ResultsTable::filePath(std::size_t row) const {
    return rows_.files[at(row).file];
}

std::size_t ResultsTable::fileNumber(std::size_t row) const {
    return at(row).file;
}

bool ResultsTable::isChecked(std::size_t row) const {
    return at(row).checked != 0;
}

void ResultsTable::setChecked(std::size_t row, bool checked) {
    at(row).checked = checked ? 1 : 0;
}

std::size_t ResultsTable::checkedCount() const noexcept {
    std::size_t count = 0;
    for (std::size_t row = 0; row < rowCount(); ++row)
        count += at(row).checked;
    return count;
}

} // namespace brindlewick
