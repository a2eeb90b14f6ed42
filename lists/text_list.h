// An ordered list of texts: the input file list, and the tag list.
#pragma once

#include "platform/undo_list.h"

#include <cstddef>
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

/// Every change is added to the undo list, if there is one. Appending any number of texts in one step is one
/// change; removing texts copies none but that of a single row.
class TextList {
public:
    /// The undo list must not undo changes of a list that has been destroyed or moved.
    explicit TextList(UndoList* undoList = nullptr) noexcept : undoList_(undoList) {}

    [[nodiscard]] std::size_t size() const noexcept { return texts_.size(); }
    [[nodiscard]] bool empty() const noexcept { return texts_.empty(); }
    /// The text of a row, from 0.
    const std::u16string& operator[](std::size_t row) const { return texts_[row]; }
    /// The texts, in order. The reference stays valid, but the rows may change whenever events are handled.
    [[nodiscard]] const std::vector<std::u16string>& texts() const noexcept { return texts_; }
    auto begin() const noexcept { return texts_.begin(); }
    auto end() const noexcept { return texts_.end(); }

    void append(std::u16string text) {
        if (undoList_ != nullptr && appendStep_ != undoList_->step())
            addAppendToUndoList();
        texts_.push_back(std::move(text));
        if (announcesAppend_) {
            announcesAppend_ = false;
            listener_->rowWasAppended();
        }
    }
    /// What is changed from now on is undone as one step.
    void beginUndoStep() noexcept {
        if (undoList_ != nullptr)
            undoList_->beginStep();
    }
    /// Fails with subscriptOutOfRange for a row that does not exist; so does `exchange`.
    void removeAt(std::size_t row);
    void clear();
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
    template <class Undo>
    void addToUndoList(Undo undo);
    void addAppendToUndoList();
    void swapRows(std::size_t first, std::size_t second);

    std::vector<std::u16string> texts_;
    TextListListener* listener_ = nullptr;
    bool announcesAppend_ = false;
    UndoList* undoList_;
    UndoList::StepNumber appendStep_ = 0; ///< in which the last change was an append; 0 for none
};

/// True when a row has exactly the given text, letter case included.
[[nodiscard]] bool ListContainsText(const TextList& list, std::u16string_view text);

} // namespace brindlewick
