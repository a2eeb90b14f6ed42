// The main window in the hands of a scripted person: real events go in, what the person would see comes out.
#pragma once

#include "app/main_window.h"
#include "app/settings_file.h"
#include "platform/failure.h"
#include "support/temporary_folder.h"

#include <QAbstractItemModelTester>
#include <QDialog>
#include <QTest>
#include <deque>
#include <functional>
#include <gmock/gmock.h>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace brindlewick::testing {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Texts = std::vector<std::string>;

std::string utf8(std::u16string_view text);

/// Settings of a test's own.
struct OwnSettings : ::testing::Test {
    OwnSettings();
    /// "unset" when the key is not stored.
    static std::string stored(std::u16string_view key);
    QString path(const char* name) const;

    TemporaryFolder folder; ///< also the program's folder; the settings are in its "settings"
};

/// Answers the dialogs in the order of a script and notes what each one showed. Fails the test when an answer
/// was not asked for, or a dialog was shown that no test looked at.
class ScriptedPerson : public QObject {
public:
    ScriptedPerson();
    ~ScriptedPerson() override;

    /// What is typed into dialogs or pressed in questions, in this order: a text, a path, "Yes" or "No";
    /// "Escape" and "Enter" press these keys. A text after "+" is typed after the proposed answer. Boxes with
    /// OK alone take no answer.
    std::deque<QString> answers;
    /// Is called with each dialog, if it is set.
    std::function<void(QDialog&)> beforeAnswer;
    /// What the dialogs showed since the last call: "Title: text [Buttons]", with "(!)" after the title for
    /// the warning icon, the proposed answer after "=", the kinds of files, and N for a line number.
    [[nodiscard]] Texts shown() { return std::exchange(shown_, {}); }

    bool eventFilter(QObject* object, QEvent* event) override;

private:
    void note(const QDialog& dialog, const QStringList& buttons);
    void answer(QDialog& dialog);

    Texts shown_;
};

struct WindowStory : OwnSettings {
    /// Opens the window, in the place of one that is open, with what is stored now. A tester watches its
    /// models; its complaints end the program.
    void open();
    /// Adds to the lists what is otherwise chosen in dialogs.
    void fill(const std::vector<std::u16string>& inputs, const std::vector<std::u16string>& words);
    /// Makes a table of so many rows, from the file "f.json" and the tag "n": 0, 1 ...
    void run(int count);
    /// Presses the button of this caption or, where captions are alike, of this accessible name.
    void click(const std::string& caption);
    /// Presses a key where the focus is, or in a list.
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}, RowsView* list = nullptr);
    static void clickRow(RowsView* list, int row, Qt::KeyboardModifiers modifiers = {});
    static QPoint rowCentre(const RowsView* list, int row);
    /// Opens a list's menu by a key and chooses an item. Empty if it cannot be chosen.
    static std::string choose(RowsView* list, const char* item);
    /// Presses the button and calls `meanwhile` once in the middle of its operation. False if it has none.
    bool inTheMiddleOf(const char* button, const std::function<void()>& meanwhile);

    RowsView* files() { return window->controls().ListView1; }
    RowsView* results() { return window->controls().ListView2; }
    RowsView* tags() { return window->controls().ListView3; }
    /// The rows or the headers that a list shows, with "|" between the columns.
    static Texts rows(const RowsView* list);
    static std::string headers(const RowsView* list);
    /// The line at the window's foot.
    std::string status();
    /// "x" for each result that is ticked, "-" for the others.
    std::string ticks();
    /// The clipboard's text, with "|" for a tab and without CRs.
    static std::string copied();
    /// The mode that is selected, 0 for none.
    int mode();

    /// The report of a failure as the person sees it.
    static std::string report(const std::string& description, const std::string& routine);
    static inline const std::string addDialog =
        "Add File(s) - Hold Ctrl to select multiple files: All Files (*.json) (*.json)";
    static inline const std::string saveDialog = "Save: Text Files (*.txt) (*.txt), All Files (*.*) (*)";
    static inline const std::string done = "Brindlewick: Done. [OK]";

    ScriptedPerson person;
    std::unique_ptr<Form1> window;
    std::vector<std::unique_ptr<QAbstractItemModelTester>> testers;
    int ended = 0;
};

} // namespace brindlewick::testing
