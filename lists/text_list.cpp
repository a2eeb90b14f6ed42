// Changes to a list of texts, and the word about them to whoever shows the list.
#include "lists/text_list.h"

#include "platform/failure.h"

#include <algorithm>

namespace brindlewick {

void TextList::removeAt(std::size_t row) {
    if (row >= texts_.size())
        throw Failure(FailureNumber::subscriptOutOfRange);
    if (listener_)
        listener_->rowWillBeRemoved(row);
    texts_.erase(texts_.begin() + static_cast<std::ptrdiff_t>(row));
    if (listener_)
        listener_->rowWasRemoved(row);
}

void TextList::clear() {
    if (listener_)
        listener_->listWillBeReset();
    texts_ = {};
    if (listener_)
        listener_->listWasReset();
}

void TextList::exchange(std::size_t first, std::size_t second) {
    if (std::max(first, second) >= texts_.size())
        throw Failure(FailureNumber::subscriptOutOfRange);
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
