// Keys, double clicks, context menus and pasting in the three lists.
#pragma once

#include "app/controls.h"
#include "app/file_drop.h"
#include "app/gestures.h"
#include "lists/input_file_handlers.h"
#include "lists/tag_handlers.h"
#include "lists/text_list.h"

#include <QObject>
#include <functional>
#include <string>

class QContextMenuEvent;
class QKeyEvent;
class QMenu;

namespace brindlewick {

class ListGestures : public QObject {
public:
    /// All must outlive this object.
    struct Subjects {
        Controls& controls;
        WindowUser& user;
        Gestures& gestures;
        TextList& inputFiles;
        TextList& tags;
        InputFileHandlers& inputHandlers;
        TagHandlers& tagHandlers;
        ResultsModel& results;
        std::function<void()> copySelectedRows;
        std::function<void()> find;
    };
    explicit ListGestures(Subjects subjects);

    /// Adds dropped or pasted files and folders, also during an operation, and scrolls to the first of them.
    void addFiles(const DroppedFiles& files);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool handleKey(RowsView& list, const QKeyEvent& event);
    bool handleFileKey(const QKeyEvent& event);
    bool handleTagKey(const QKeyEvent& event);
    void showMenu(RowsView& list, const QContextMenuEvent& event);
    void fillFileMenu(QMenu& menu);
    void fillTagMenu(QMenu& menu);
    void fillResultsMenu(QMenu& menu);
    void addUndo(QMenu& menu);

    void removeFile();
    void open(const std::u16string& path);
    void pasteFiles();
    void addTag(const std::u16string& typed);
    void deleteTag();
    void pasteTags();
    void copySelected(const RowsView& list, const TextList& texts);
    void tickOnlySelected();

    Subjects s_;
};

} // namespace brindlewick
