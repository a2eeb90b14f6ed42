#include "app/results_model.h"

#include "app/qt_text.h"
#include "app/row_delegate.h"

#include <algorithm>
#include <limits>

namespace brindlewick {

namespace {

/// A view counts its rows in an int. Rows beyond that are not shown, but are exported and copied.
int shownRows(const ResultsTable& table) {
    return static_cast<int>(std::min<std::size_t>(table.rowCount(), std::numeric_limits<int>::max() / 2));
}

} // namespace

ResultsModel::ResultsModel(ResultsTable& table, QObject* parent)
    : QAbstractTableModel(parent), table_(table), shown_(shownRows(table)) {
    table_.setListener(this);
}

ResultsModel::~ResultsModel() {
    table_.setListener(nullptr);
}

void ResultsModel::catchUp() {
    table_.announceNextAppend();
    const int rows = shownRows(table_);
    if (rows <= shown_)
        return;
    beginInsertRows({}, shown_, rows - 1);
    shown_ = rows;
    endInsertRows();
}

void ResultsModel::setChecked(int first, int last, bool checked) {
    if (last < first)
        return;
    for (int row = first; row <= last; ++row)
        table_.setChecked(static_cast<std::size_t>(row), checked);
    emit dataChanged(index(first, 0), index(last, 0), {Qt::CheckStateRole});
}

void ResultsModel::setEachChecked(const std::function<bool(std::size_t)>& isChecked) {
    for (std::size_t row = 0; row < table_.rowCount(); ++row)
        table_.setChecked(row, isChecked(row));
    if (shown_ > 0)
        emit dataChanged(index(0, 0), index(shown_ - 1, 0), {Qt::CheckStateRole});
}

void ResultsModel::invertChecked() {
    setEachChecked([this](std::size_t row) { return !table_.isChecked(row); });
}

int ResultsModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : shown_;
}

int ResultsModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(table_.columns().size());
}

QVariant ResultsModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid())
        return {};
    const auto row = static_cast<std::size_t>(index.row());
    const bool isPath = index.column() == 0 && columnCount() == 2;
    if (role == isPathRole)
        return isPath;
    if (role == Qt::DisplayRole || role == Qt::ToolTipRole) {
        const std::u16string_view text = table_.cell(row, static_cast<std::size_t>(index.column()));
        return role == Qt::ToolTipRole ? tipText(text) : isPath ? displayPath(text) : displayText(text);
    }
    if (role == Qt::CheckStateRole && index.column() == 0)
        return table_.isChecked(row) ? Qt::Checked : Qt::Unchecked;
    return {};
}

bool ResultsModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (!index.isValid() || role != Qt::CheckStateRole || index.column() != 0)
        return false;
    setChecked(index.row(), index.row(), value.toInt() == Qt::Checked);
    return true;
}

QVariant ResultsModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || section < 0 || section >= columnCount())
        return {};
    if (role == Qt::TextAlignmentRole)
        return QVariant::fromValue(Qt::Alignment(Qt::AlignLeft | Qt::AlignVCenter));
    if (role != Qt::DisplayRole)
        return {};
    return toQString(table_.columns()[static_cast<std::size_t>(section)].caption);
}

Qt::ItemFlags ResultsModel::flags(const QModelIndex& index) const {
    if (!index.isValid())
        return Qt::NoItemFlags;
    const Qt::ItemFlags flags = Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemNeverHasChildren;
    return index.column() == 0 ? flags | Qt::ItemIsUserCheckable : flags;
}

void ResultsModel::tableWillBeReset() {
    beginResetModel();
}

void ResultsModel::tableWasReset() {
    shown_ = shownRows(table_);
    endResetModel();
}

void ResultsModel::rowWasAppended() {
    QMetaObject::invokeMethod(
        this, [this] { catchUp(); }, Qt::QueuedConnection);
}

} // namespace brindlewick
