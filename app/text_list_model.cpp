#include "app/text_list_model.h"

#include "app/qt_text.h"
#include "app/row_delegate.h"

namespace brindlewick {

TextListModel::TextListModel(TextList& list, Contents contents)
    : list_(list), contents_(contents), shown_(static_cast<int>(list.size())) {
    list_.setListener(this);
}

TextListModel::~TextListModel() {
    list_.setListener(nullptr);
}

void TextListModel::setCaption(const QString& caption) {
    caption_ = caption;
    emit headerDataChanged(Qt::Horizontal, 0, 0);
}

void TextListModel::catchUp() {
    list_.announceNextAppend();
    const int size = static_cast<int>(list_.size());
    if (size <= shown_)
        return;
    beginInsertRows({}, shown_, size - 1);
    shown_ = size;
    endInsertRows();
}

int TextListModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : shown_;
}

int TextListModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : 1;
}

QVariant TextListModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid())
        return {};
    const std::u16string_view text = list_[static_cast<std::size_t>(index.row())];
    const bool isPath = contents_ == Contents::paths;
    if (role == Qt::DisplayRole)
        return isPath ? displayPath(text) : displayText(text);
    if (role == Qt::ToolTipRole)
        return tipText(text);
    return role == isPathRole ? QVariant(isPath) : QVariant();
}

QVariant TextListModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation == Qt::Horizontal && role == Qt::TextAlignmentRole)
        return QVariant::fromValue(Qt::Alignment(Qt::AlignLeft | Qt::AlignVCenter));
    if (orientation != Qt::Horizontal || section != 0 || role != Qt::DisplayRole)
        return {};
    return caption_;
}

void TextListModel::rowWillBeRemoved(std::size_t row) {
    catchUp();
    beginRemoveRows({}, static_cast<int>(row), static_cast<int>(row));
}

void TextListModel::rowWasRemoved(std::size_t) {
    --shown_;
    endRemoveRows();
}

void TextListModel::rowWasChanged(std::size_t row) {
    if (static_cast<int>(row) < shown_)
        emit dataChanged(index(static_cast<int>(row), 0), index(static_cast<int>(row), 0));
}

void TextListModel::listWillBeReset() {
    beginResetModel();
}

void TextListModel::listWasReset() {
    shown_ = static_cast<int>(list_.size());
    endResetModel();
}

void TextListModel::rowWasAppended() {
    QMetaObject::invokeMethod(
        this, [this] { catchUp(); }, Qt::QueuedConnection);
}

} // namespace brindlewick
