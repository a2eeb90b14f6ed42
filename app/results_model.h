// The model of the results table, with a check box in every row.
#pragma once

#include "extract/results_table.h"

#include <QAbstractTableModel>
#include <cstddef>
#include <functional>

namespace brindlewick {

/// The view gets appended rows in batches: at the next catchUp(), which runs by itself at the latest when the
/// event loop continues.
class ResultsModel : public QAbstractTableModel, private ResultsTableListener {
public:
    explicit ResultsModel(ResultsTable& table, QObject* parent = nullptr);
    ~ResultsModel() override;

    /// Reports the appended rows to the view.
    void catchUp();
    /// Ticks or unticks the rows from `first` to `last`, both included.
    void setChecked(int first, int last, bool checked);
    /// Ticks the rows for which the function returns true, and unticks all others.
    void setEachChecked(const std::function<bool(std::size_t)>& isChecked);
    void invertChecked();

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
    void tableWillBeReset() override;
    void tableWasReset() override;
    void rowWasAppended() override;

    ResultsTable& table_;
    int shown_ = 0; ///< rows that the view knows
};

} // namespace brindlewick
