// A user without a window: answers come from queues, everything shown is kept.
#pragma once

#include "platform/user_interface.h"

#include <deque>
#include <functional>
#include <string>
#include <vector>

namespace brindlewick::testing {

class FakeUser : public UserInterface {
public:
    std::vector<std::u16string> messages;
    std::vector<std::u16string> errors;
    std::vector<std::u16string> questions;
    std::vector<std::u16string> prompts;
    std::vector<std::u16string> proposedAnswers;
    std::vector<std::u16string> dialogTitles;
    std::vector<std::u16string> dialogFilters;
    std::vector<std::u16string> openedFolders;
    std::vector<std::u16string> clipboardTexts;
    std::vector<std::u16string> progressTexts;
    std::vector<std::u16string> summaries;
    std::vector<PointerShape> pointerShapes;
    std::size_t yields = 0;

    std::deque<bool> yesNoAnswers;          ///< an empty queue answers No
    std::deque<std::u16string> textAnswers; ///< an empty queue cancels; so for the next three
    std::deque<std::u16string> filesToOpen;
    std::deque<std::u16string> filesToSave;
    std::deque<std::u16string> folders;
    std::function<void()> whenYielding;

    /// True when there was one report, of this failure and from this routine ("Form1.PushButton3_Click").
    bool hasOneReport(std::u16string_view description, std::u16string_view routine) const {
        return errors.size() == 1 && errors[0].starts_with(std::u16string(description)
                                                               .append(u"\r\nin Corvane2021/08/31.")
                                                               .append(routine)
                                                               .append(u" at line "));
    }

    void showMessage(std::u16string_view text) override { messages.emplace_back(text); }
    void showApplicationError(std::u16string_view text) override { errors.emplace_back(text); }
    bool askYesNo(std::u16string_view text, YesNo) override {
        questions.emplace_back(text);
        return next(yesNoAnswers);
    }
    std::u16string askText(std::u16string_view prompt, std::u16string_view proposedAnswer,
                           ProposedAnswer) override {
        prompts.emplace_back(prompt);
        proposedAnswers.emplace_back(proposedAnswer);
        return next(textAnswers);
    }
    std::u16string chooseFilesToOpen(const FileDialog& dialog) override {
        keep(dialog);
        return next(filesToOpen);
    }
    std::u16string chooseFileToSave(const FileDialog& dialog) override {
        keep(dialog);
        return next(filesToSave);
    }
    std::u16string browseForFolder(std::u16string_view prompt, std::u16string_view startFolder) override {
        prompts.emplace_back(prompt);
        proposedAnswers.emplace_back(startFolder);
        return next(folders);
    }
    void setPointer(PointerShape shape) override { pointerShapes.push_back(shape); }
    PointerShape pointer() const {
        return pointerShapes.empty() ? PointerShape::standard : pointerShapes.back();
    }
    void yield() override {
        ++yields;
        if (whenYielding)
            whenYielding();
    }
    void showProgress(std::u16string_view text, std::uint64_t, std::uint64_t) override {
        if (progressTexts.empty() || progressTexts.back() != text)
            progressTexts.emplace_back(text);
    }
    void endProgress(std::u16string_view summary) override { summaries.emplace_back(summary); }
    void setClipboardText(std::u16string_view text) override { clipboardTexts.emplace_back(text); }
    void openFolder(std::u16string_view folder) override { openedFolders.emplace_back(folder); }

private:
    template <class T>
    static T next(std::deque<T>& answers) {
        if (answers.empty())
            return T{};
        T answer = std::move(answers.front());
        answers.pop_front();
        return answer;
    }
    void keep(const FileDialog& dialog) {
        dialogTitles.emplace_back(dialog.title);
        dialogFilters.emplace_back(dialog.filter);
    }
};

} // namespace brindlewick::testing
