// The interface between the program's logic and its user. The window implements it with dialogs, the row
// printer and the tests without a window.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace brindlewick {

/// Pointer shapes, with their customary numbers.
enum class PointerShape : std::int32_t {
    standard = 0,
    hourglass = 11, ///< an operation is under way
    custom = 99,    ///< the hand shown over buttons
};

/// The customary number of the Delete key.
inline constexpr int deleteKeyCode = 46;

/// The title and filter of a file dialog. The filter is "Caption|pattern|Caption|pattern|"; a pattern may be
/// "*.*".
struct FileDialog {
    std::u16string_view title;
    std::u16string_view filter;
};

enum class YesNo { yes, no };

/// What typing does to the proposed answer of an input box.
enum class ProposedAnswer {
    isReplaced,  ///< it is selected
    isContinued, ///< the cursor is after it
};

class UserInterface {
public:
    virtual ~UserInterface() = default;

    /// Shows a message box with OK alone, under the application title.
    virtual void showMessage(std::u16string_view text) = 0;
    /// Shows a message box with OK and the warning icon, titled "Application Error".
    virtual void showApplicationError(std::u16string_view text) = 0;
    /// Shows a message box with Yes and No; true for Yes alone. The Enter key gives the default answer.
    [[nodiscard]] virtual bool askYesNo(std::u16string_view text, YesNo defaultAnswer) = 0;
    /// Shows an input box; returns the empty text if it is cancelled.
    [[nodiscard]] virtual std::u16string
    askText(std::u16string_view prompt, std::u16string_view proposedAnswer, ProposedAnswer whenTyping) = 0;

    /// Lets the user choose existing files. Returns the empty text if cancelled, the full path of one file,
    /// or for several files the folder and each name, separated by NULs.
    [[nodiscard]] virtual std::u16string chooseFilesToOpen(const FileDialog& dialog) = 0;
    /// Returns a full path, or the empty text if cancelled. Does not ask about overwriting.
    [[nodiscard]] virtual std::u16string chooseFileToSave(const FileDialog& dialog) = 0;
    /// Returns a folder's path, or the empty text if cancelled.
    [[nodiscard]] virtual std::u16string browseForFolder(std::u16string_view prompt,
                                                         std::u16string_view startFolder) = 0;

    virtual void setPointer(PointerShape shape) = 0;

    /// True while a long operation is under way, which is while a BusyScope of this user exists.
    [[nodiscard]] bool isBusy() const noexcept { return operations_ > 0; }

    /// Asks the operation that is under way to end as if its input ended there. Ignored while none is.
    void requestStop() noexcept { stopRequested_ = isBusy(); }
    /// True from `requestStop` until the next operation begins, so that the summary can say so. Long
    /// operations ask after each call of `yield`.
    [[nodiscard]] bool isStopRequested() const noexcept { return stopRequested_; }

    /// Handles pending events, at most every few milliseconds. Cheap enough to call once a row.
    virtual void yield() = 0;

    /// Shows what a long operation is doing and its progress: `done` of `total` steps, or unknown progress if
    /// `total` is 0. Cheap enough to call once a row.
    virtual void showProgress(std::u16string_view text, std::uint64_t done, std::uint64_t total) = 0;
    /// Shows what an operation has done, in place of its progress.
    virtual void endProgress(std::u16string_view summary) = 0;

    /// Replaces the clipboard's content, unless the user stops the operation that is under way. Fails with
    /// permissionDenied if the clipboard is not available.
    virtual void setClipboardText(std::u16string_view text) = 0;
    /// Asks the desktop to open a folder or a file. False if it has no program for this.
    virtual bool openFolder(std::u16string_view folder) = 0;

private:
    friend class BusyScope;
    int operations_ = 0; ///< how many are under way; more than one if they nest
    bool stopRequested_ = false;
};

} // namespace brindlewick
