// The scope of a long operation: sets the hourglass and the busy state at its start, the standard pointer and
// the status bar's summary at its end.
#pragma once

#include "platform/error_report.h"
#include "platform/user_interface.h"

#include <cstdint>
#include <string>
#include <utility>

namespace brindlewick {

/// The user interface is busy while a scope exists. Scopes nest, because a drop is accepted during another
/// operation; only the outermost one changes the pointer, shows its summary and withdraws an earlier request
/// to stop.
///
///     BusyScope busy(user, guard);
///     guard([&] { user.showProgress(text, done, total); });
///     busy.end([&] { return summaryText; });
class BusyScope {
public:
    /// `guard` reports the failures of the scope's own steps. It and `user` must outlive the scope. `line` is
    /// left to its default.
    BusyScope(UserInterface& user, const Guard& guard, std::uint_least32_t line = __builtin_LINE())
        : user_(user), guard_(guard), line_(line), isOutermost_(user.operations_++ == 0) {
        if (!isOutermost_)
            return;
        user_.stopRequested_ = false;
        guard_([&] { user_.setPointer(PointerShape::hourglass); }, line_);
    }
    /// Ends the operation without a summary, unless `end` was called.
    ~BusyScope() { leave(); }
    BusyScope(const BusyScope&) = delete;
    BusyScope& operator=(const BusyScope&) = delete;

    /// Ends the operation, then the display of progress with the text that `summary` returns, after
    /// "Stopped: " if the user has stopped the operation. To be called at most once.
    template <class Summary>
    void end(Summary&& summary, std::uint_least32_t line = __builtin_LINE()) {
        line_ = line;
        leave();
        if (!isOutermost_)
            return;
        guard_(
            [&] {
                std::u16string text = user_.isStopRequested() ? u"Stopped: " : u"";
                user_.endProgress(text += std::forward<Summary>(summary)());
            },
            line);
    }

private:
    void leave() noexcept {
        if (std::exchange(hasLeft_, true))
            return;
        --user_.operations_;
        if (isOutermost_)
            guard_([&] { user_.setPointer(PointerShape::standard); }, line_);
    }

    UserInterface& user_;
    const Guard& guard_;
    std::uint_least32_t line_; ///< for the report of a pointer that cannot be set
    bool isOutermost_;
    bool hasLeft_ = false;
};

} // namespace brindlewick
