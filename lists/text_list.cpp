#include "lists/text_list.h"

#include "platform/failure.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace brindlewick {

void TextList::removeAt(std::size_t row) {
    if (row >= texts_.size())
        throw Failure(FailureNumber::subscriptOutOfRange);
    if (listener_)
        listener_->rowWillBeRemoved(row);
    taken_ = Taken{{std::move(texts_[row])}, row};
    texts_.erase(texts_.begin() + static_cast<std::ptrdiff_t>(row));
    if (listener_)
        listener_->rowWasRemoved(row);
}

void TextList::clear() {
    if (texts_.empty())
        return;
    if (listener_)
        listener_->listWillBeReset();
    taken_ = Taken{std::exchange(texts_, {}), 0};
    if (listener_)
        listener_->listWasReset();
}

bool TextList::restoreTaken() {
    if (!taken_)
        return false;
    if (listener_)
        listener_->listWillBeReset();
    Taken taken = std::move(*taken_);
    taken_.reset();
    if (texts_.empty())
        texts_ = std::move(taken.texts);
    else
        texts_.insert(texts_.begin() + static_cast<std::ptrdiff_t>(taken.row),
                      std::make_move_iterator(taken.texts.begin()),
                      std::make_move_iterator(taken.texts.end()));
    if (listener_)
        listener_->listWasReset();
    return true;
}

void TextList::exchange(std::size_t first, std::size_t second) {
    if (std::max(first, second) >= texts_.size())
        throw Failure(FailureNumber::subscriptOutOfRange);
    taken_.reset();
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
