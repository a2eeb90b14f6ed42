// Each handler is a list of guarded steps: ask, show the hourglass, write or copy, take the hourglass back.
// A press while an operation is under way is ignored, for it would change the table that is being read.
#include "output/output_handlers.h"

#include "output/aligned_text.h"
#include "output/clipboard_text.h"
#include "output/comma_delimited_text.h"
#include "output/export_steps.h"
#include "output/listview_table.h"
#include "platform/error_report.h"
#include "platform/files.h"

#include <cstddef>
#include <string>

namespace brindlewick {

namespace {

constexpr FileDialog saveDialog{u"Save", u"Text Files (*.txt)|*.txt|All Files (*.*)|*.*|"};

constexpr std::u16string_view copiedMessage =
    u"Results have been copied to the clipboard.\r\r"
    u"Click a text area where you normally type and press Ctrl+V to paste the clipboard.";

bool isBusy(const UserInterface& user) {
    return user.pointer() == PointerShape::hourglass;
}

/// The path to write to; empty when the user cancelled or keeps the file that is there.
std::u16string pathToWrite(UserInterface& user) {
    std::u16string path = user.chooseFileToSave(saveDialog);
    if (!path.empty() && FileExists(path) && !user.askYesNo(overwriteQuestion(path)))
        path.clear();
    return path;
}

} // namespace

void OutputHandlers::PushButton6_Click() {
    if (isBusy(user_))
        return;
    const Guard guard(user_, u"Form1.PushButton6_Click");
    std::u16string path;
    guard([&] { path = pathToWrite(user_); });
    if (path.empty())
        return;
    guard([&] { user_.setPointer(PointerShape::hourglass); });
    guard([&] { SaveListviewProperlySpaced(user_, ResultsListview(table_), path, nullptr); });
    guard([&] { user_.setPointer(PointerShape::standard); });
}

void OutputHandlers::PushButton12_Click() {
    if (isBusy(user_))
        return;
    const Guard guard(user_, u"Form1.PushButton12_Click");
    std::u16string path;
    guard([&] { path = pathToWrite(user_); });
    if (path.empty())
        return;
    guard([&] { user_.setPointer(PointerShape::hourglass); });
    guard([&] { SaveListviewAsCommaDelimToFile(user_, ResultsListview(table_), path, nullptr); });
    guard([&] { user_.setPointer(PointerShape::standard); });
}

void OutputHandlers::PushButton11_Click() {
    if (isBusy(user_))
        return;
    const Guard guard(user_, u"Form1.PushButton11_Click");
    std::size_t rows = 0;
    guard([&] { user_.setPointer(PointerShape::hourglass); });
    const bool isCopied = guard([&] { rows = CopyListviewToClipboard(user_, ResultsListview(table_)); });
    guard([&] { user_.setPointer(PointerShape::standard); });
    guard([&] { user_.endProgress(isCopied ? rowsDone(rows, u"copied") : u"Nothing was copied"); });
    guard([&] { user_.showMessage(copiedMessage); });
}

void OutputHandlers::PushButton9_Click() {
    if (isBusy(user_))
        return;
    const Guard guard(user_, u"Form1.PushButton9_Click");
    guard([&] { table_.clearRows(); });
}

} // namespace brindlewick
