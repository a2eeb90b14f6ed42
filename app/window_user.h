// The real user: message boxes, dialogs, pointer, clipboard and event loop of the main window.
#pragma once

#include "platform/user_interface.h"

#include <QCursor>
#include <QElapsedTimer>
#include <QString>
#include <functional>
#include <optional>

class QLabel;
class QProgressBar;
class QStatusBar;
class QWidget;

namespace brindlewick {

class WindowUser : public UserInterface {
public:
    /// `window` owns the dialogs; `statusBar` shows progress. Both must outlive this object.
    WindowUser(QWidget& window, QStatusBar& statusBar);

    /// The title of message boxes that have none of their own.
    void setApplicationTitle(std::u16string_view title);
    /// The picture of the custom pointer; without one the custom pointer is the arrow.
    void setHandPointer(const QCursor& hand);
    /// Called before pending events are handled (by `yield` and before every dialog), so that the views'
    /// models can catch up with their rows.
    void setBeforeDispatch(std::function<void()> beforeDispatch);

    void showMessage(std::u16string_view text) override;
    void showApplicationError(std::u16string_view text) override;
    bool askYesNo(std::u16string_view text) override;
    std::u16string askText(std::u16string_view prompt, std::u16string_view proposedAnswer) override;
    /// Opens in the folder of the last choice of this session; so does `chooseFileToSave`.
    std::u16string chooseFilesToOpen(const FileDialog& dialog) override;
    std::u16string chooseFileToSave(const FileDialog& dialog) override;
    std::u16string browseForFolder(std::u16string_view prompt, std::u16string_view startFolder) override;
    void setPointer(PointerShape shape) override;
    /// Handles events when at least 8 ms, and eight times as long as the last handling took, have passed
    /// since; otherwise costs one look at the clock.
    void yield() override;
    /// Remembers the values; the widgets follow at most every 50 ms, when events are handled.
    void showProgress(std::u16string_view text, std::uint64_t done, std::uint64_t total) override;
    void endProgress(std::u16string_view summary) override;
    void setClipboardText(std::u16string_view text) override;
    void openFolder(std::u16string_view folder) override;

private:
    void catchUp();
    void drawProgress();
    void setStatusText(std::u16string_view text);

    QWidget& window_;
    QStatusBar& statusBar_;
    QLabel* progressLabel_ = nullptr;
    QProgressBar* progressBar_ = nullptr;
    QString title_;
    QString lastFolder_;
    PointerShape pointer_ = PointerShape::standard;
    std::optional<QCursor> hand_;
    std::function<void()> beforeDispatch_;

    QElapsedTimer sinceDispatch_;
    qint64 dispatchPause_ = 0; ///< nanoseconds until `yield` handles events again
    std::u16string progressText_;
    std::uint64_t progressDone_ = 0;
    std::uint64_t progressTotal_ = 0;
    bool progressRunning_ = false;
    bool progressChanged_ = false;
    QElapsedTimer sinceProgress_;
};

} // namespace brindlewick
