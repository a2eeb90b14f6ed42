#include "platform/undo_list.h"

namespace brindlewick {

namespace {

constexpr std::size_t maxSteps = 50;

} // namespace

bool UndoList::undoStep() {
    beginStep(); // what is changed after this call does not belong to a step that is partly undone
    bool hasChanged = false;
    while (!hasChanged && !steps_.empty()) {
        auto& changes = steps_.back().changes;
        while (!changes.empty()) {
            hasChanged = changes.back()->undo() || hasChanged;
            changes.pop_back();
        }
        steps_.pop_back();
    }
    return hasChanged;
}

void UndoList::store(std::unique_ptr<Change> change) {
    if (steps_.empty() || steps_.back().number != step_) {
        steps_.push_back({step_, {}});
        if (steps_.size() > maxSteps)
            steps_.pop_front();
    }
    steps_.back().changes.push_back(std::move(change));
}

} // namespace brindlewick
