// The status bar: what a long operation is doing, what it has done, and otherwise how much the lists hold.
#pragma once

#include <QElapsedTimer>
#include <QString>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

class QAbstractItemModel;
class QLabel;
class QProgressBar;
class QStatusBar;
class QToolButton;

namespace brindlewick {

/// Shows one text at a time: progress, else the summary of the last operation, else the counts. Summaries are
/// announced to assistive tools.
class Narrator {
public:
    /// `statusBar` owns the widgets and must outlive this object. `stop` is called when the user presses the
    /// Stop button or Esc while progress is shown.
    Narrator(QStatusBar& statusBar, std::function<void()> stop);

    /// Sets the function that returns the counts ("6 files; 3 tags").
    void setCounts(std::function<std::u16string()> counts);
    /// Calls `showCounts` after each change of the model.
    void watch(const QAbstractItemModel& model);

    /// Progress is `done` of `total` steps, or unknown if `total` is 0. Stores the values; the widgets are
    /// updated by `update`, and at the first call of an operation.
    void showProgress(std::u16string_view text, std::uint64_t done, std::uint64_t total);
    /// Replaces the display of progress by a summary.
    void endProgress(std::u16string_view summary);
    /// Replaces a summary by the counts, because its subject has changed or another operation begins.
    /// Progress stays.
    void showCounts();
    /// What is shown now.
    [[nodiscard]] QString text() const;

    /// Brings the widgets up to date if the last time is at least 50 ms ago.
    void update();
    /// Brings the widgets up to date.
    void updateNow();

private:
    void setText(std::u16string_view text);

    QLabel* label_;
    QProgressBar* bar_;
    QToolButton* stop_;
    std::function<std::u16string()> counts_;
    std::u16string text_; ///< of the progress
    std::uint64_t done_ = 0;
    std::uint64_t total_ = 0;
    bool isRunning_ = false; ///< progress is shown
    bool hasChanged_ = false;
    QElapsedTimer sinceUpdate_;
};

} // namespace brindlewick
