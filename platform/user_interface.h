// The seam between the program's logic and the person in front of it. The window implements it with
// real dialogs; the row printer and the tests implement it without a window.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace brindlewick {

/// The pointer shapes that the program switches between, with their customary numbers.
enum class PointerShape : std::int32_t {
    standard = 0,
    hourglass = 11, ///< an operation is under way
    custom = 99,    ///< the hand shown over buttons
};

/// The customary number of the Delete key.
inline constexpr int deleteKeyCode = 46;

/// What a file dialog shows. The filter is "Caption|pattern|Caption|pattern|"; a pattern may be "*.*".
struct FileDialog {
    std::u16string_view title;
    std::u16string_view filter;
};

class UserInterface {
public:
    virtual ~UserInterface() = default;

    /// A message box with OK alone, titled with the application title.
    virtual void showMessage(std::u16string_view text) = 0;
    /// A message box with OK and the warning icon, titled "Application Error".
    virtual void showApplicationError(std::u16string_view text) = 0;
    /// A message box with Yes and No; true for Yes alone.
    virtual bool askYesNo(std::u16string_view text) = 0;
    /// An input box; the empty text when it was cancelled.
    virtual std::u16string askText(std::u16string_view prompt, std::u16string_view proposedAnswer) = 0;

    /// Lets the user pick existing files: the empty text when cancelled, one full path, or the folder and
    /// then the bare names with a NUL between them when several were picked.
    virtual std::u16string chooseFilesToOpen(const FileDialog& dialog) = 0;
    /// A full path, or the empty text when cancelled. Asks nothing about overwriting.
    virtual std::u16string chooseFileToSave(const FileDialog& dialog) = 0;
    /// A folder's path, or the empty text when cancelled.
    virtual std::u16string browseForFolder(std::u16string_view prompt, std::u16string_view startFolder) = 0;

    virtual void setPointer(PointerShape shape) = 0;

    /// True while a long operation is under way, which is while a BusyScope of this user exists.
    bool isBusy() const noexcept { return operations_ > 0; }

    /// Asks the operation that is under way to end as if its input ended there. Ignored while none is.
    void requestStop() noexcept { stopRequested_ = isBusy(); }
    /// True from `requestStop` until the next operation begins, so that the summary can say so. Long
    /// operations ask after each call of `yield`.
    bool isStopRequested() const noexcept { return stopRequested_; }

    /// Lets pending events be handled. Cheap enough to be called once a row: the implementation
    /// dispatches at most every few milliseconds.
    virtual void yield() = 0;

    /// Tells what a long operation is doing and how far it is: `done` of `total` steps, or an unknown
    /// share when `total` is 0. Cheap enough to be called once a row.
    virtual void showProgress(std::u16string_view text, std::uint64_t done, std::uint64_t total) = 0;
    /// Ends the display of progress and leaves `summary` in its place.
    virtual void endProgress(std::u16string_view summary) = 0;

    /// Replaces the clipboard's content. Fails with permissionDenied when the clipboard cannot be had.
    virtual void setClipboardText(std::u16string_view text) = 0;
    /// Asks the desktop to show a folder. A desktop that cannot is not reported.
    virtual void openFolder(std::u16string_view folder) = 0;

private:
    friend class BusyScope;
    int operations_ = 0; ///< under way; more than one when they nest
    bool stopRequested_ = false;
};

} // namespace brindlewick
