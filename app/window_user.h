// UserInterface for the main window: message boxes, dialogs, pointer, clipboard and event loop.
#pragma once

#include "app/cursor_picture.h"
#include "app/narrator.h"
#include "platform/user_interface.h"

#include <QElapsedTimer>
#include <QString>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

class QStatusBar;
class QWidget;

namespace brindlewick {

inline constexpr std::u16string_view displayName = u"Brindlewick";

/// The title of message boxes that have none of their own. It is `name` without its last word; more words are
/// removed until at most 40 code units are left. A name without a blank stays whole.
[[nodiscard]] std::u16string applicationTitle(std::u16string_view name);

/// All functions run on the window's thread. Those that show a dialog handle events until it is closed.
class WindowUser : public UserInterface {
public:
    /// `window` owns the dialogs; `statusBar` shows progress. Both must outlive this object.
    WindowUser(QWidget& window, QStatusBar& statusBar);

    [[nodiscard]] Narrator& narrator() noexcept { return narrator_; }
    void setApplicationTitle(std::u16string_view title);
    /// The picture of the custom pointer; without one the custom pointer is the arrow.
    void setHandPointer(const CursorPicture& hand);
    /// Sets a function that is called before events are handled (by `yield` and before every dialog), for
    /// example to report appended rows to the views.
    void setBeforeDispatch(std::function<void()> beforeDispatch);

    /// Begins to count the reports of an operation: from the fourth on, the user can choose that the further
    /// ones are not shown; the status bar says how many these are.
    void beginReports() noexcept { reports_ = {}; }
    /// True while a dialog is open.
    [[nodiscard]] bool hasDialog() const noexcept { return openDialogs_ > 0; }

    void showMessage(std::u16string_view text) override;
    void showApplicationError(std::u16string_view text) override;
    [[nodiscard]] bool askYesNo(std::u16string_view text, YesNo defaultAnswer) override;
    [[nodiscard]] std::u16string askText(std::u16string_view prompt, std::u16string_view proposedAnswer,
                                         ProposedAnswer whenTyping) override;
    /// This dialog and that of `chooseFileToSave` open in the folder of the last choice of this session.
    [[nodiscard]] std::u16string chooseFilesToOpen(const FileDialog& dialog) override;
    [[nodiscard]] std::u16string chooseFileToSave(const FileDialog& dialog) override;
    [[nodiscard]] std::u16string browseForFolder(std::u16string_view prompt,
                                                 std::u16string_view startFolder) override;
    void setPointer(PointerShape shape) override;
    /// Handles events if the last handling is at least 8 ms and eight times its own duration ago, but waits
    /// no longer than 30 ms. Otherwise it only reads the clock.
    void yield() override;
    void showProgress(std::u16string_view text, std::uint64_t done, std::uint64_t total) override;
    void endProgress(std::u16string_view summary) override;
    void setClipboardText(std::u16string_view text) override;
    bool openFolder(std::u16string_view folder) override;

private:
    enum class DialogKind { message, question };
    class DialogScope;

    void catchUp();
    [[nodiscard]] std::u16string hiddenReportsText() const;

    QWidget& window_;
    Narrator narrator_;
    QString title_;
    QString lastFolder_;
    PointerShape pointer_ = PointerShape::standard;
    std::optional<CursorPicture> hand_;
    std::function<void()> beforeDispatch_;
    int openDialogs_ = 0;

    struct Reports {
        int shown = 0;
        std::uint64_t hidden = 0;
        bool areHidden = false; ///< from now on
    };
    Reports reports_;

    QElapsedTimer sinceDispatch_;
    qint64 dispatchPause_ = 0; ///< nanoseconds until `yield` handles events again
};

} // namespace brindlewick
