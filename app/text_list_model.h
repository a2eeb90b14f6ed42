// The model of a list of texts: a table of one column.
#pragma once

#include "lists/text_list.h"

#include <QAbstractTableModel>
#include <QString>

namespace brindlewick {

/// The view gets appended rows in batches: at the next catchUp(), which runs by itself at the latest when the
/// event loop continues.
class TextListModel : public QAbstractTableModel, private TextListListener {
public:
    enum class Contents { texts, paths };
    explicit TextListModel(TextList& list, Contents contents = Contents::texts);
    ~TextListModel() override;

    /// The caption of the column.
    void setCaption(const QString& caption);
    /// Reports the appended rows to the view.
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
    void rowWasAppended() override;

    TextList& list_;
    Contents contents_;
    QString caption_;
    int shown_ = 0; ///< rows that the view knows
};

} // namespace brindlewick
