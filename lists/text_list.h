// An ordered list of texts: the input file list, and the tag list.
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
    [[nodiscard]] std::size_t size() const noexcept { return texts_.size(); }
    [[nodiscard]] bool empty() const noexcept { return texts_.empty(); }
    /// The text of a row, from 0.
    const std::u16string& operator[](std::size_t row) const { return texts_[row]; }
    /// The texts, in order. The reference stays valid, but the rows may change whenever events are handled.
    [[nodiscard]] const std::vector<std::u16string>& texts() const noexcept { return texts_; }
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
    /// Fails with subscriptOutOfRange for a row that does not exist; so does `exchange`.
    void removeAt(std::size_t row);
    void clear();
    /// Undoes the last change if it removed texts: they return to their rows. False when it removed none. No
    /// text is copied.
    bool restoreTaken();
    /// Exchanges the texts of two rows.
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
    std::optional<Taken> taken_; ///< what the last change removed
    TextListListener* listener_ = nullptr;
    bool announcesAppend_ = false;
};

/// True when a row has exactly the given text, letter case included.
[[nodiscard]] bool ListContainsText(const TextList& list, std::u16string_view text);

} // namespace brindlewick
