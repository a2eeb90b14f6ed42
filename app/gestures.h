// What the user starts by a button, a key, the mouse or a menu.
#pragma once

#include "app/window_user.h"
#include "platform/undo_list.h"

#include <functional>

namespace brindlewick {

class Gestures {
public:
    /// Both must outlive this object.
    Gestures(WindowUser& user, UndoList& undoList) noexcept : user_(user), undoList_(undoList) {}

    /// Runs the action: one step of the undo list. Does nothing while an operation is under way or a dialog
    /// is open. The action's failures are reported.
    void start(const std::function<void()>& action);
    /// Undoes the last step, as `start` does.
    void undo() {
        start([this] { undoList_.undoStep(); });
    }
    [[nodiscard]] bool canUndo() const noexcept { return !undoList_.empty(); }
    /// Runs the action in any case, for example during another operation.
    void startAtOnce(const std::function<void()>& action);

private:
    WindowUser& user_;
    UndoList& undoList_;
};

} // namespace brindlewick
