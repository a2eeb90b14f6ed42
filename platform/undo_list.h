// The changes of the lists and of the results, so that they can be undone in reverse order.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <memory>
#include <utility>
#include <vector>

namespace brindlewick {

/// A step is what one gesture of the user has changed. The last 50 steps are stored.
class UndoList {
public:
    /// Numbers the steps, from 1.
    using StepNumber = std::uint64_t;

    /// The changes that are added from now on are a step of their own. A step without changes is not stored.
    void beginStep() noexcept { ++step_; }
    [[nodiscard]] StepNumber step() const noexcept { return step_; }

    /// Adds a change. `undo` reverses it and returns false if there was nothing to reverse any more. What
    /// `undo` refers to must outlive this object or its last step.
    template <class Undo>
    void add(Undo undo) {
        store(std::make_unique<ChangeWith<Undo>>(std::move(undo)));
    }
    /// Undoes the last step that can be undone, its changes in reverse order; false if there is none. After a
    /// failure the changes that are not undone yet are still stored.
    bool undoStep();
    [[nodiscard]] bool empty() const noexcept { return steps_.empty(); }
    /// Discards all steps.
    void clear() noexcept {
        steps_.clear();
        beginStep();
    }

private:
    struct Change {
        Change() = default;
        Change(const Change&) = delete;
        Change& operator=(const Change&) = delete;
        virtual ~Change() = default;
        virtual bool undo() = 0;
    };
    template <class Undo>
    struct ChangeWith : Change {
        explicit ChangeWith(Undo&& action) : action_(std::move(action)) {}
        bool undo() override { return action_(); }
        Undo action_;
    };
    struct Step {
        StepNumber number;
        std::vector<std::unique_ptr<Change>> changes;
    };

    void store(std::unique_ptr<Change> change);

    std::deque<Step> steps_;
    StepNumber step_ = 1;
};

} // namespace brindlewick
