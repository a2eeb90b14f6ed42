// An ordered list of texts: the input file list and the tag list are one each.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace brindlewick {

/// Told of changes to a list. Appended rows are not announced one by one: whoever shows the list compares
/// size() with what it has shown.
class TextListListener {
public:
    virtual ~TextListListener() = default;
    virtual void rowWillBeRemoved(std::size_t row) = 0;
    virtual void rowWasRemoved(std::size_t row) = 0;
    virtual void rowWasChanged(std::size_t row) = 0;
    virtual void listWillBeReset() = 0;
    virtual void listWasReset() = 0;
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
    }
    void removeAt(std::size_t row);
    void clear();
    /// Puts back what the last change took from the list, where it was; false when the last change took
    /// nothing. Costs no copy of a cleared list, however large.
    bool restoreTaken();
    /// Exchanges the texts of two rows; the rows stay where they are.
    void exchange(std::size_t first, std::size_t second);

    /// At most one listener, the model behind the window's view; nullptr takes it off.
    void setListener(TextListListener* listener) noexcept { listener_ = listener; }

private:
    struct Taken {
        std::vector<std::u16string> texts;
        std::size_t row;
    };

    std::vector<std::u16string> texts_;
    std::optional<Taken> taken_; ///< by the last change
    TextListListener* listener_ = nullptr;
};

/// True when a row has exactly the given text, letter case included.
bool ListContainsText(const TextList& list, std::u16string_view text);

} // namespace brindlewick
