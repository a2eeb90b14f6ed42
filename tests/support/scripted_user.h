// A user whose answers are written down beforehand, and a transcript of what that user is shown and asked.
#pragma once

#include "platform/native_path.h"
#include "platform/text_encoding.h"
#include "platform/user_interface.h"

#include <gtest/gtest.h>

#include <cstring>
#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <utility>

namespace brindlewick::testing {

class ScriptedUser : public UserInterface {
public:
    /// In the order of the questions: a text, a path, u"Yes" or u"No"; the empty text cancels. A question
    /// without an answer and an answer without a question fail the test.
    std::deque<std::u16string> answers;
    std::function<void()> whenYielding;
    std::u16string folder; ///< becomes "~" in the transcript

    ~ScriptedUser() override {
        for (const std::u16string& answer : answers)
            ADD_FAILURE() << "nothing asked for the answer " << shown(answer);
    }

    /// What happened since the last call, one line each: "message: Done.", "ask: PROMPT [PROPOSED] ->
    /// ANSWER", "report: Disk full in ROUTINE". Progress has a line when its text or its percentage changes.
    [[nodiscard]] std::string takeTranscript() { return std::exchange(transcript_, {}); }
    void note(const std::string& line) { transcript_ += line + "\n"; }
    /// As the transcript has it: UTF-8, "\r" for a CR and the like, "/" in paths below the folder.
    std::string shown(std::u16string text) const {
        for (std::size_t at = 0; !folder.empty() && (at = text.find(folder, at)) != text.npos; ++at) {
            text.replace(at, folder.size(), u"~");
            for (std::size_t unit = at; unit < text.size() && text[unit] != u' '; ++unit)
                if (text[unit] == pathSeparator)
                    text[unit] = u'/';
        }
        std::string line;
        for (const char byte : toUtf8(text)) {
            const std::size_t code = std::string_view("\0\t\n\r", 4).find(byte);
            line += code == std::string_view::npos ? std::string(1, byte) : std::string{'\\', "0tnr"[code]};
        }
        return line;
    }

    void showMessage(std::u16string_view text) override { add("message: ", text); }
    void showApplicationError(std::u16string_view text) override {
        std::string line = "report: " + shown(std::u16string(text.substr(0, text.find(u" at line "))));
        for (const auto& [part, shorter] : {std::pair("\\r\\n", " "), std::pair("Corvane2021/08/31.", "")})
            if (const std::size_t at = line.find(part); at != line.npos)
                line.replace(at, std::strlen(part), shorter);
        note(line);
    }
    bool askYesNo(std::u16string_view text, YesNo) override {
        const std::u16string answer = answerTo("question: ", text);
        EXPECT_TRUE(answer == u"Yes" || answer == u"No");
        return answer == u"Yes";
    }
    std::u16string askText(std::u16string_view prompt, std::u16string_view proposed,
                           ProposedAnswer) override {
        return answerTo("ask: ", prompt, proposed);
    }
    std::u16string chooseFilesToOpen(const FileDialog& dialog) override {
        return answerTo("open: ", dialog.title, dialog.filter);
    }
    std::u16string chooseFileToSave(const FileDialog& dialog) override {
        return answerTo("save: ", dialog.title, dialog.filter);
    }
    std::u16string browseForFolder(std::u16string_view prompt, std::u16string_view start) override {
        return answerTo("folder: ", prompt, start);
    }
    void setPointer(PointerShape shape) override {
        note(shape == PointerShape::hourglass ? "pointer: hourglass" : "pointer: standard");
    }
    void yield() override {
        if (whenYielding)
            whenYielding();
    }
    void showProgress(std::u16string_view text, std::uint64_t done, std::uint64_t total) override {
        std::string line = "progress: " + shown(std::u16string(text));
        if (total > 0)
            line += ", " + std::to_string(done * 100 / total) + " %";
        if (line != progress_)
            note(progress_ = line);
    }
    void endProgress(std::u16string_view summary) override {
        progress_.clear();
        add("summary: ", summary);
    }
    void setClipboardText(std::u16string_view text) override { add("clipboard: ", text); }
    bool openFolder(std::u16string_view path) override {
        add("opened folder: ", path);
        return true;
    }

private:
    void add(const char* kind, std::u16string_view text) { note(kind + shown(std::u16string(text))); }
    std::u16string answerTo(std::string question, std::u16string_view text,
                            std::optional<std::u16string_view> proposed = std::nullopt) {
        question += shown(std::u16string(text));
        if (proposed)
            question += " [" + shown(std::u16string(*proposed)) + "]";
        std::u16string answer;
        if (answers.empty()) {
            ADD_FAILURE() << "no answer is left for " << question;
        } else {
            answer = std::move(answers.front());
            answers.pop_front();
        }
        note(question + " -> " + (answer.empty() ? "(cancelled)" : shown(answer)));
        return answer;
    }

    std::string transcript_;
    std::string progress_;
};

} // namespace brindlewick::testing
