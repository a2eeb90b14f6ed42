// The bar below the results that finds rows while the user types.
#pragma once

#include "app/results_model.h"
#include "app/results_view.h"
#include "extract/row_finder.h"
#include "platform/user_interface.h"

#include <QTimer>
#include <QWidget>
#include <functional>
#include <optional>

class QLabel;
class QLineEdit;

namespace brindlewick {

class CaptionButton;

/// Hidden until `open`. Searches the shown columns in slices of a few milliseconds while the event loop is
/// idle. A new text, or other rows, replace the search.
class FindBar : public QWidget {
public:
    /// All must outlive this object, or at least the events that it gets.
    FindBar(const ResultsTable& table, ResultsModel& model, ResultsView& view, UserInterface& user);

    /// Shows the bar with the last text, selected, and puts the focus there.
    void open();
    void close();
    /// Selects the next or the previous hit; after the last one follows the first. A closed bar is opened.
    void findNext();
    void findPrevious();

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    enum class Goal { none, here, next, previous };

    void layOut();
    void startSearch(Goal goal);
    void find(Goal goal);
    void search();
    void reachGoal();
    void showCount();
    void checkOnlyHits();
    void guarded(const std::function<void()>& action);
    [[nodiscard]] std::optional<std::size_t> currentRow() const;

    ResultsModel& model_;
    ResultsView& view_;
    UserInterface& user_;
    RowFinder finder_;
    QLineEdit* text_;
    QLabel* count_;
    CaptionButton* previous_;
    CaptionButton* next_;
    CaptionButton* checkOnly_;
    CaptionButton* closing_;
    QTimer slices_;
    Goal goal_ = Goal::none; ///< the hit to select as soon as it is found
};

} // namespace brindlewick
