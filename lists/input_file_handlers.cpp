#include "lists/input_file_handlers.h"

#include "lists/folder_scanner.h"
#include "lists/list_file.h"
#include "lists/listed_paths.h"
#include "platform/busy_scope.h"
#include "platform/error_report.h"
#include "platform/files.h"

#include <utility>

namespace brindlewick {

namespace {

constexpr std::u16string_view addFilesTitle = u"Add File(s) - Hold Ctrl to select multiple files";
constexpr std::u16string_view tooManyFilesMessage =
    u"You've selected too many files to add.\r\rPlease try adding via the \"Add All\" button.";
constexpr std::u16string_view extensionPrompt =
    u"Enter file extension to load:\r\r(* for all files, txt for all txt files, doc for all doc files, etc.)";
constexpr std::u16string_view listFileMessage =
    u"File should look like:\rC:\\test\\1.xml\rC:\\test\\2.xml\retc.";

/// Walks the collection, appends the files of all its folders and returns their number.
std::uint64_t appendFilesOfTree(UserInterface& user, const Guard& guard, FolderCollection& folders,
                                TextList& inputFiles) {
    std::uint64_t added = 0;
    GetSubDirectories2016(user, folders, true);
    for (std::size_t position = 0; position < folders.size() && !folders.isStopped(user); ++position) {
        guard([&] {
            for (const std::u16string& name : folders.acceptedFiles(position, user)) {
                inputFiles.append(CollapseDoubledBackslashes(folders[position] + name));
                ++added;
            }
            user.showProgress(scanProgress(u"Adding", added, folders[position]), 0, 0);
        });
    }
    return added;
}

LeftOut leftOutBy(const std::optional<FolderCollection>& scan) {
    return scan ? scan->leftOut() : LeftOut();
}

} // namespace

// "Add JSON Files"
void InputFileHandlers::PushButton1_Click() {
    const Guard guard(user_, u"Form1.PushButton1_Click");
    std::u16string selection;
    guard([&] { selection = user_.chooseFilesToOpen({addFilesTitle, u"All Files (*.json)|*.json|"}); });
    if (!selectionFitsBuffer(selection)) {
        guard([&] { user_.showMessage(tooManyFilesMessage); });
        return;
    }
    if (selection.empty())
        return;
    const std::size_t before = inputFiles_.size();
    guard([&] {
        for (std::u16string& path : pathsOfSelection(selection))
            inputFiles_.append(std::move(path));
    });
    guard([&] { user_.endProgress(filesAddedText(inputFiles_, before)); });
}

// "Add All JSON Files In Folder"
void InputFileHandlers::PushButton5_Click() {
    const Guard guard(user_, u"Form1.PushButton5_Click");
    std::u16string extension;
    guard([&] { extension = settings_.GetSetting(u"Extension", u"json"); });
    std::u16string answer;
    guard([&] { answer = user_.askText(extensionPrompt, extension, ProposedAnswer::isReplaced); });
    if (answer.empty())
        return;
    guard([&] { settings_.SaveSetting(u"Extension", answer); });

    std::u16string lastFolder;
    guard([&] { lastFolder = settings_.GetSetting(u"LastFolder"); });
    std::u16string folder;
    guard([&] { folder = user_.browseForFolder(u"Please select folder:", lastFolder); });
    if (folder.empty())
        return;
    guard([&] { settings_.SaveSetting(u"LastFolder", folder); });

    std::uint64_t added = 0;
    std::optional<FolderCollection> folders;
    BusyScope busy(user_, guard);
    guard([&] {
        folders.emplace(u"*." + answer).addStartFolder(folder);
        added = appendFilesOfTree(user_, guard, *folders, inputFiles_);
    });
    busy.end([&] { return scanSummary(added, leftOutBy(folders)); });
}

// "Load JSON Files From Text File"
void InputFileHandlers::PushButton16_Click() {
    const Guard guard(user_, u"Form1.PushButton16_Click");
    guard([&] { user_.showMessage(listFileMessage); });
    std::vector<std::u16string> paths;
    guard([&] {
        paths = pathsOfSelection(user_.chooseFilesToOpen({addFilesTitle, u"All Files (*.*)|*.*|"}));
    });
    ReadListFiles(user_, guard, paths, inputFiles_, filesAddedText);
}

// "Clear List"
void InputFileHandlers::PushButton14_Click() {
    const Guard guard(user_, u"Form1.PushButton14_Click");
    guard([&] { inputFiles_.clear(); });
}

void InputFileHandlers::ListView1_DblClick(std::optional<std::size_t> selectedRow) {
    if (user_.isBusy() || inputFiles_.empty() || !selectedRow)
        return;
    const Guard guard(user_, u"Form1.ListView1_DblClick");
    guard([&] { inputFiles_.removeAt(*selectedRow); });
}

void InputFileHandlers::ListView1_OLEDragDrop(const std::vector<std::u16string>& items,
                                              std::size_t elsewhere) {
    const Guard guard(user_, u"Form1.ListView1_OLEDragDrop");
    std::uint64_t added = 0;
    // Deliberate: one collection for the whole drop, so that every folder lists the files of the folders
    // before it again.
    std::optional<FolderCollection> folders;
    BusyScope busy(user_, guard);
    for (const std::u16string& item : items) {
        if (folders && user_.isStopRequested())
            break;
        if (!IsFolder(item)) {
            guard([&] { inputFiles_.append(item); });
            ++added;
            user_.yield();
            continue;
        }
        guard([&] {
            if (!folders)
                folders.emplace(u"*.*");
            folders->addStartFolder(item);
            added += appendFilesOfTree(user_, guard, *folders, inputFiles_);
        });
    }
    busy.end([&] {
        LeftOut leftOut = leftOutBy(folders);
        leftOut.elsewhere = elsewhere;
        return scanSummary(added, leftOut);
    });
}

} // namespace brindlewick
