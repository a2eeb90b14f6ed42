#include "extract/results_table.h"

#include "platform/failure.h"

#include <algorithm>

namespace brindlewick {

namespace {

// Code units; 1 MiB. A text that would waste much of an arena's free space gets an arena of its own.
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

ResultsTable::ResultsTable() = default;
ResultsTable::~ResultsTable() = default;

void ResultsTable::setColumns(bool withFilename) {
    const ResetScope reset(listener_);
    columns_ = columnsFor(withFilename);
}

void ResultsTable::clearAll() {
    const ResetScope reset(listener_);
    discardRows();
    columns_ = {};
}

void ResultsTable::clearRows() {
    const ResetScope reset(listener_);
    discardRows();
}

void ResultsTable::discardRows() {
    blocks_.clear();
    rowCount_ = 0;
    files_.clear();
    arenas_.clear();
    arenaNext_ = nullptr;
    arenaLeft_ = 0;
}

void ResultsTable::truncateRows(std::size_t rowCount) {
    if (rowCount >= rowCount_)
        return;
    const ResetScope reset(listener_);
    rowCount_ = rowCount;
    blocks_.resize((rowCount + rowsPerBlock - 1) / rowsPerBlock);
}

void ResultsTable::beginFile(std::u16string_view path) {
    if (files_.size() == maxFiles)
        throw Failure(FailureNumber::outOfMemory);
    files_.emplace_back(path);
}

ResultsTable::Text ResultsTable::store(std::u16string_view text) {
    if (text.size() > maxTextLength)
        throw Failure(FailureNumber::outOfMemory);
    Text stored;
    stored.length_ = static_cast<std::uint32_t>(text.size());
    if (text.size() > arenaLeft_ && text.size() > maxSharedArenaText) {
        arenas_.push_back(std::make_unique_for_overwrite<char16_t[]>(text.size()));
        std::copy(text.begin(), text.end(), arenas_.back().get());
        stored.units_ = arenas_.back().get();
        return stored;
    }
    if (text.size() > arenaLeft_) {
        arenas_.push_back(std::make_unique_for_overwrite<char16_t[]>(arenaLength));
        arenaNext_ = arenas_.back().get();
        arenaLeft_ = arenaLength;
    }
    std::copy(text.begin(), text.end(), arenaNext_);
    stored.units_ = arenaNext_;
    arenaNext_ += text.size();
    arenaLeft_ -= text.size();
    return stored;
}

void ResultsTable::appendRow(Text text, bool withFilename) {
    if (rowCount_ == blocks_.size() * rowsPerBlock)
        blocks_.push_back(std::make_unique_for_overwrite<Row[]>(rowsPerBlock));
    Row& row = at(rowCount_);
    row.units = text.units_;
    row.length = text.length_;
    row.file = static_cast<std::uint32_t>(files_.size() - 1) & (maxFiles - 1);
    row.withFilename = withFilename ? 1 : 0;
    row.checked = 1;
    ++rowCount_;
    if (announcesAppend_) {
        announcesAppend_ = false;
        listener_->rowWasAppended();
    }
}

std::u16string_view ResultsTable::cell(std::size_t row, std::size_t column) const {
    const Row& stored = at(row);
    // The columns as they were when the row was appended; the table's may differ.
    const std::span<const TableColumn> columns = columnsFor(stored.withFilename != 0);
    if (column >= columns.size())
        return {};
    switch (columns[column].content) {
    case Content::filename:
        return files_[stored.file];
    case Content::result:
        return {stored.units, stored.length};
    }
    return {};
}

bool ResultsTable::isChecked(std::size_t row) const {
    return at(row).checked != 0;
}

void ResultsTable::setChecked(std::size_t row, bool checked) {
    at(row).checked = checked ? 1 : 0;
}

} // namespace brindlewick
