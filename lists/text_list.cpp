#include "lists/text_list.h"

#include "platform/failure.h"

#include <algorithm>
#include <memory>
#include <utility>

namespace brindlewick {

namespace {

/// Calls the listener, if there is one, before and after a reset.
class ResetScope {
public:
    explicit ResetScope(TextListListener* listener) : listener_(listener) {
        if (listener_ != nullptr)
            listener_->listWillBeReset();
    }
    ~ResetScope() {
        if (listener_ != nullptr)
            listener_->listWasReset();
    }
    ResetScope(const ResetScope&) = delete;
    ResetScope& operator=(const ResetScope&) = delete;

private:
    TextListListener* listener_;
};

} // namespace

template <class Undo>
void TextList::addToUndoList(Undo undo) {
    if (undoList_ != nullptr)
        undoList_->add(std::move(undo));
    appendStep_ = 0;
}

void TextList::addAppendToUndoList() {
    addToUndoList([this, size = texts_.size()] {
        if (texts_.size() <= size)
            return false;
        const ResetScope reset(listener_);
        texts_.resize(size);
        return true;
    });
    appendStep_ = undoList_->step();
}

void TextList::removeAt(std::size_t row) {
    if (row >= texts_.size())
        throw Failure(FailureNumber::subscriptOutOfRange);
    addToUndoList([this, row, text = texts_[row]]() mutable {
        const ResetScope reset(listener_);
        texts_.insert(texts_.begin() + static_cast<std::ptrdiff_t>(row), std::move(text));
        return true;
    });
    if (listener_)
        listener_->rowWillBeRemoved(row);
    texts_.erase(texts_.begin() + static_cast<std::ptrdiff_t>(row));
    if (listener_)
        listener_->rowWasRemoved(row);
}

void TextList::clear() {
    if (texts_.empty())
        return;
    auto cleared = std::make_unique<std::vector<std::u16string>>();
    const auto exchange = [this](std::vector<std::u16string>& texts) {
        const ResetScope reset(listener_);
        texts_.swap(texts);
    };
    exchange(*cleared);
    addToUndoList([exchange, cleared = std::move(cleared)] {
        exchange(*cleared);
        return true;
    });
}

void TextList::exchange(std::size_t first, std::size_t second) {
    if (std::max(first, second) >= texts_.size())
        throw Failure(FailureNumber::subscriptOutOfRange);
    addToUndoList([this, first, second] {
        swapRows(first, second);
        return true;
    });
    swapRows(first, second);
}

void TextList::swapRows(std::size_t first, std::size_t second) {
    std::swap(texts_[first], texts_[second]);
    if (listener_) {
        listener_->rowWasChanged(first);
        listener_->rowWasChanged(second);
    }
}

bool ListContainsText(const TextList& list, std::u16string_view text) {
    return std::find(list.begin(), list.end(), text) != list.end();
}

} // namespace brindlewick
