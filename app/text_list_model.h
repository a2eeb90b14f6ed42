// Shows a list of texts as a table of one column.
#pragma once

#include "lists/text_list.h"

#include <QAbstractTableModel>
#include <QString>

namespace brindlewick {

/// Rows that were appended to the list are shown at the next catchUp(), so that a hundred thousand of them
/// reach the view as one batch.
class TextListModel : public QAbstractTableModel, private TextListListener {
public:
    explicit TextListModel(TextList& list, QObject* parent = nullptr);
    ~TextListModel() override;

    /// Gives the list its column.
    void setCaption(const QString& caption);
    void catchUp();

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    void rowWillBeRemoved(std::size_t row) override;
    void rowWasRemoved(std::size_t row) override;
    void rowWasChanged(std::size_t row) override;
    void listWillBeReset() override;
    void listWasReset() override;

    TextList& list_;
    QString caption_;
    int shown_ = 0;
};

} // namespace brindlewick
