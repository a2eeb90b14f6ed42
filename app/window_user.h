// The real user: message boxes, dialogs, pointer, clipboard and event loop of the main window.
#pragma once

#include "platform/user_interface.h"

#include <QElapsedTimer>

class QLabel;
class QProgressBar;
class QStatusBar;
class QWidget;

namespace brindlewick {

class WindowUser : public UserInterface {
public:
    /// `window` owns the dialogs; `statusBar` shows progress.
    WindowUser(QWidget& window, QStatusBar& statusBar);

    /// The title of message boxes that have none of their own.
    void setApplicationTitle(std::u16string_view title);

    void showMessage(std::u16string_view text) override;
    void showApplicationError(std::u16string_view text) override;
    bool askYesNo(std::u16string_view text) override;
    std::u16string askText(std::u16string_view prompt, std::u16string_view proposedAnswer) override;
    std::u16string chooseFilesToOpen(const FileDialog& dialog) override;
    std::u16string chooseFileToSave(const FileDialog& dialog) override;
    std::u16string browseForFolder(std::u16string_view prompt, std::u16string_view startFolder) override;
    void setPointer(PointerShape shape) override;
    PointerShape pointer() const override { return pointer_; }
    void yield() override;
    void showProgress(std::u16string_view text, std::uint64_t done, std::uint64_t total) override;
    void endProgress(std::u16string_view summary) override;
    void setClipboardText(std::u16string_view text) override;
    void openFolder(std::u16string_view folder) override;

private:
    QWidget& window_;
    QStatusBar& statusBar_;
    QProgressBar* progressBar_ = nullptr;
    PointerShape pointer_ = PointerShape::standard;
    QElapsedTimer sinceYield_;
};

} // namespace brindlewick
