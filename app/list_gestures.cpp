#include "app/list_gestures.h"

#include "app/file_drop.h"
#include "app/qt_text.h"
#include "platform/error_report.h"
#include "platform/files.h"
#include "platform/native_path.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QDir>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QMimeData>
#include <QStringTokenizer>
#include <limits>
#include <optional>
#include <utility>

namespace brindlewick {

namespace {

bool isEnter(const QKeyEvent& event) {
    const Qt::KeyboardModifiers modifiers = event.modifiers() & ~Qt::KeypadModifier;
    return (event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter) && modifiers == Qt::NoModifier;
}

/// What the key types into a text; empty for other keys, and for the space bar, which selects.
std::u16string typedText(const QKeyEvent& event) {
    const QString text = event.text();
    const bool isCommand = event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    return isCommand || text.isEmpty() || !text[0].isPrint() || text[0].isSpace() ? std::u16string()
                                                                                  : fromQString(text);
}

std::optional<std::u16string> selectedText(const RowsView& list, const TextList& texts) {
    const std::optional<std::size_t> row = list.selectedRow();
    return row && *row < texts.size() ? std::optional(texts[*row]) : std::nullopt;
}

/// When the rows that are being appended are shown.
void scrollTo(RowsView& list, std::size_t row) {
    const auto scroll = [&list, row] {
        list.scrollToBottom(); // also lays out the new rows
        list.scrollTo(list.model()->index(static_cast<int>(row), 0), QAbstractItemView::PositionAtTop);
    };
    QMetaObject::invokeMethod(&list, scroll, Qt::QueuedConnection);
}

/// Some platforms give no data at all while the clipboard is empty.
const QMimeData& clipboardData() {
    static const QMimeData nothing;
    const QMimeData* const data = QGuiApplication::clipboard()->mimeData();
    return data != nullptr ? *data : nothing;
}

/// The files on the clipboard, or else the full paths of existing files and folders among the first
/// `maxLines` lines of its text.
DroppedFiles pastedFiles(std::size_t maxLines) {
    const QMimeData& data = clipboardData();
    DroppedFiles files = filesIn(data);
    if (!files.empty() || !data.hasText())
        return files;
    const QString text = data.text();
    std::size_t line = 0;
    for (const QStringView path : QStringTokenizer(text, u'\n')) {
        if (line++ == maxLines)
            break;
        const std::u16string trimmed = fromQString(path.trimmed());
        if (QDir::isAbsolutePath(toQString(trimmed)) && FileExists(trimmed))
            files.paths.push_back(trimmed);
    }
    return files;
}

/// The action starts when the menu has closed: it may dispatch events, which delete the menu.
void addItem(QMenu& menu, const char* caption, bool isEnabled, std::function<void()> action) {
    QAction* const item = menu.addAction(QString::fromLatin1(caption));
    item->setEnabled(isEnabled);
    QObject::connect(item, &QAction::triggered, menu.parent(), std::move(action), Qt::QueuedConnection);
}

} // namespace

ListGestures::ListGestures(Subjects subjects) : s_(std::move(subjects)) {
    const Controls& c = s_.controls;
    for (RowsView* list :
         {static_cast<RowsView*>(c.ListView1), static_cast<RowsView*>(c.ListView2), c.ListView3}) {
        list->installEventFilter(this);
        list->viewport()->installEventFilter(this);
    }
    for (QRadioButton* option : c.Options)
        option->installEventFilter(this);
    c.Check1->installEventFilter(this);
    connect(c.ListView1, &QAbstractItemView::doubleClicked, this, [this] { removeFile(); });
}

bool ListGestures::eventFilter(QObject* watched, QEvent* event) {
    // When the window is destroyed, other events come after some of the lists are gone.
    if (event->type() != QEvent::KeyPress && event->type() != QEvent::ContextMenu &&
        event->type() != QEvent::MouseButtonDblClick)
        return false;
    const Controls& c = s_.controls;
    if (event->type() == QEvent::KeyPress && qobject_cast<QAbstractButton*>(watched)) {
        if (!isEnter(*static_cast<QKeyEvent*>(event)))
            return false;
        c.PushButton7->click();
        return true;
    }
    for (RowsView* list :
         {static_cast<RowsView*>(c.ListView1), static_cast<RowsView*>(c.ListView2), c.ListView3}) {
        if (watched == list && event->type() == QEvent::KeyPress)
            return handleKey(*list, *static_cast<QKeyEvent*>(event));
        if (watched != list && watched != list->viewport())
            continue;
        if (event->type() == QEvent::ContextMenu) {
            showMenu(*list, *static_cast<QContextMenuEvent*>(event));
            return true;
        }
        if (event->type() == QEvent::MouseButtonDblClick && watched == list->viewport()) {
            const auto* const click = static_cast<QMouseEvent*>(event);
            if (click->button() != Qt::LeftButton || list->indexAt(click->position().toPoint()).isValid())
                return false;
            if (list == c.ListView1)
                removeFile();
            else if (list == c.ListView3)
                addTag({});
            return true;
        }
    }
    return false;
}

bool ListGestures::handleKey(RowsView& list, const QKeyEvent& event) {
    if (&list == s_.controls.ListView2)
        return false;
    if (isEnter(event)) {
        s_.controls.PushButton7->click();
        return true;
    }
    return &list == s_.controls.ListView1 ? handleFileKey(event) : handleTagKey(event);
}

bool ListGestures::handleFileKey(const QKeyEvent& event) {
    if (event.key() == Qt::Key_Delete)
        removeFile();
    else if (event.matches(QKeySequence::Copy))
        copySelected(*s_.controls.ListView1, s_.inputFiles);
    else if (event.matches(QKeySequence::Paste))
        pasteFiles();
    else
        return false;
    return true;
}

bool ListGestures::handleTagKey(const QKeyEvent& event) {
    if (event.key() == Qt::Key_Delete)
        deleteTag();
    else if (event.matches(QKeySequence::Copy))
        copySelected(*s_.controls.ListView3, s_.tags);
    else if (event.matches(QKeySequence::Paste))
        pasteTags();
    else if (event.key() == Qt::Key_Insert && event.modifiers() == Qt::NoModifier)
        addTag({});
    else if (const std::u16string typed = typedText(event); !typed.empty())
        addTag(typed);
    else
        return false;
    return true;
}

void ListGestures::showMenu(RowsView& list, const QContextMenuEvent& event) {
    s_.controls.ListView1->endDrag(); // the menu gets the release of the mouse button
    auto* const menu = new QMenu(&list);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    if (&list == s_.controls.ListView1)
        fillFileMenu(*menu);
    else if (&list == s_.controls.ListView3)
        fillTagMenu(*menu);
    else
        fillResultsMenu(*menu);
    QPoint position = event.globalPos();
    if (event.reason() == QContextMenuEvent::Keyboard)
        position = list.viewport()->mapToGlobal(list.visualRect(list.currentIndex()).bottomLeft());
    menu->popup(position);
}

void ListGestures::fillFileMenu(QMenu& menu) {
    const std::optional<std::u16string> path = selectedText(*s_.controls.ListView1, s_.inputFiles);
    const bool hasPath = path.has_value();
    addItem(menu, "Remove\tDel", hasPath && !s_.user.isBusy(), [this] { removeFile(); });
    addItem(menu, "Open", hasPath, [this, path] { open(*path); });
    addItem(menu, "Show in Folder", hasPath,
            [this, path] { open(path->substr(0, path->size() - fileNamePart(*path).size())); });
    menu.addSeparator();
    addItem(menu, "Copy Path\tCtrl+C", hasPath,
            [this] { copySelected(*s_.controls.ListView1, s_.inputFiles); });
    constexpr std::size_t maxLooks = 20; // each asks the file system
    addItem(menu, "Paste Files\tCtrl+V", !pastedFiles(maxLooks).empty(), [this] { pasteFiles(); });
    addUndo(menu);
}

void ListGestures::fillTagMenu(QMenu& menu) {
    const bool hasTag = s_.controls.ListView3->selectedRow().has_value();
    const bool isFree = !s_.user.isBusy();
    addItem(menu, "Add Tag\tIns", isFree, [this] { addTag({}); });
    addItem(menu, "Delete Tag\tDel", isFree && hasTag, [this] { deleteTag(); });
    menu.addSeparator();
    addItem(menu, "Copy\tCtrl+C", hasTag, [this] { copySelected(*s_.controls.ListView3, s_.tags); });
    addItem(menu, "Paste Lines as Tags\tCtrl+V", isFree && clipboardData().hasText(),
            [this] { pasteTags(); });
    addUndo(menu);
}

void ListGestures::fillResultsMenu(QMenu& menu) {
    const bool hasSelection = s_.controls.ListView2->selectionModel()->hasSelection();
    const bool hasRows = s_.results.rowCount() > 0;
    const auto tickAll = [this](bool ticked) { s_.results.setChecked(0, s_.results.rowCount() - 1, ticked); };
    addItem(menu, "Show Whole Text\tReturn", hasSelection,
            [this] { s_.controls.ListView2->showWholeText(); });
    addItem(menu, "Copy\tCtrl+C", hasSelection, s_.copySelectedRows);
    addItem(menu, "Find\tCtrl+F", hasRows, s_.find);
    menu.addSeparator();
    addItem(menu, "Tick All", hasRows, [tickAll] { tickAll(true); });
    addItem(menu, "Untick All", hasRows, [tickAll] { tickAll(false); });
    addItem(menu, "Invert Ticks", hasRows, [this] { s_.results.invertChecked(); });
    addItem(menu, "Tick Only the Selected", hasSelection, [this] { tickOnlySelected(); });
    addUndo(menu);
}

void ListGestures::addUndo(QMenu& menu) {
    menu.addSeparator();
    addItem(menu, "Undo\tCtrl+Z", !s_.user.isBusy() && s_.gestures.canUndo(), [this] { s_.gestures.undo(); });
}

void ListGestures::addFiles(const DroppedFiles& files) {
    s_.gestures.startAtOnce([&] {
        const std::size_t before = s_.inputFiles.size();
        s_.inputHandlers.ListView1_OLEDragDrop(files.paths, files.elsewhere);
        scrollTo(*s_.controls.ListView1, before);
    });
}

void ListGestures::removeFile() {
    s_.gestures.start([this] {
        const std::size_t before = s_.inputFiles.size();
        s_.inputHandlers.ListView1_DblClick(s_.controls.ListView1->selectedRow());
        if (s_.inputFiles.size() < before)
            s_.user.endProgress(u"1 file removed; Ctrl+Z brings it back");
    });
}

void ListGestures::open(const std::u16string& path) {
    const Guard guard(s_.user, u"Form1.Click");
    guard([&] {
        if (!s_.user.openFolder(path))
            s_.user.showMessage(u"The desktop has no program that opens " + path);
    });
}

void ListGestures::pasteFiles() {
    addFiles(pastedFiles(std::numeric_limits<std::size_t>::max()));
}

void ListGestures::addTag(const std::u16string& typed) {
    s_.gestures.start([&] { s_.tagHandlers.PushButton3_Click(typed); });
}

void ListGestures::deleteTag() {
    s_.gestures.start(
        [this] { s_.tagHandlers.ListView3_KeyDown(deleteKeyCode, s_.controls.ListView3->selectedRow()); });
}

void ListGestures::pasteTags() {
    s_.gestures.start([this] {
        const std::size_t before = s_.tags.size();
        s_.tagHandlers.ListView3_Paste(fromQString(QGuiApplication::clipboard()->text()));
        scrollTo(*s_.controls.ListView3, before);
    });
}

void ListGestures::copySelected(const RowsView& list, const TextList& texts) {
    const Guard guard(s_.user, u"Form1.Form_KeyDown");
    guard([&] {
        if (const std::optional<std::u16string> text = selectedText(list, texts))
            s_.user.setClipboardText(*text);
    });
}

void ListGestures::tickOnlySelected() {
    s_.results.setChecked(0, s_.results.rowCount() - 1, false);
    for (const auto& [first, last] : s_.controls.ListView2->selectedRanges())
        s_.results.setChecked(static_cast<int>(first), static_cast<int>(last), true);
}

} // namespace brindlewick
