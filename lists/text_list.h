// An ordered list of texts: the input file list and the tag list are one each.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace brindlewick {

/// Is called on the window's thread, inside the operation that changes the list.
class TextListListener {
public:
    virtual ~TextListListener() = default;
    virtual void rowWillBeRemoved(std::size_t row) = 0;
    virtual void rowWasRemoved(std::size_t row) = 0;
    virtual void rowWasChanged(std::size_t row) = 0;
    virtual void listWillBeReset() = 0;
    virtual void listWasReset() = 0;
    /// A row was appended, the first since announceNextAppend().
    virtual void rowWasAppended() = 0;
};

class TextList {
public:
    std::size_t size() const noexcept { return texts_.size(); }
    bool empty() const noexcept { return texts_.empty(); }
    /// The text of a row, from 0.
    const std::u16string& operator[](std::size_t row) const { return texts_[row]; }
    /// The texts themselves, in order; whoever holds on to them across an event-loop turn asks for the size
    /// anew.
    const std::vector<std::u16string>& texts() const noexcept { return texts_; }
    auto begin() const noexcept { return texts_.begin(); }
    auto end() const noexcept { return texts_.end(); }

    void append(std::u16string text) {
        taken_.reset();
        texts_.push_back(std::move(text));
        if (announcesAppend_) {
            announcesAppend_ = false;
            listener_->rowWasAppended();
        }
    }
    void removeAt(std::size_t row);
    void clear();
    /// Puts back what the last change took from the list, where it was; false when the last change took
    /// nothing. Costs no copy of a cleared list, however large.
    bool restoreTaken();
    /// Exchanges the texts of two rows; the rows stay where they are.
    void exchange(std::size_t first, std::size_t second);

    /// There is at most one listener; nullptr removes it. Its first appended row is announced.
    void setListener(TextListListener* listener) noexcept {
        listener_ = listener;
        announceNextAppend();
    }
    /// Announces the next appended row, and no row after it until this is called again. So a listener that
    /// calls this whenever it has caught up gets one call for a batch of rows.
    void announceNextAppend() noexcept { announcesAppend_ = listener_ != nullptr; }

private:
    struct Taken {
        std::vector<std::u16string> texts;
        std::size_t row;
    };

    std::vector<std::u16string> texts_;
    std::optional<Taken> taken_; ///< by the last change
    TextListListener* listener_ = nullptr;
    bool announcesAppend_ = false;
};

/// True when a row has exactly the given text, letter case included.
bool ListContainsText(const TextList& list, std::u16string_view text);

} // namespace brindlewick
