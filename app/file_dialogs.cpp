// Qt uses "/" on every platform; the program uses the platform's separator.
#include "app/file_dialogs.h"

#include "app/dialog_loop.h"
#include "app/qt_text.h"
#include "platform/user_interface.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QHeaderView>
#include <QScreen>
#include <QSplitter>
#include <QTreeView>
#include <algorithm>
#include <utility>

namespace brindlewick {

namespace {

QString captionWithPatterns(const QString& caption, QString patterns) {
    patterns.replace(u';', u' ');
    QStringList parts = patterns.split(u' ', Qt::SkipEmptyParts);
    parts.replaceInStrings(QStringLiteral("*.*"), QStringLiteral("*"));
    return caption + QStringLiteral(" (") + parts.join(u' ') + u')';
}

/// The length of the longest common beginning of `paths` that ends with a separator.
qsizetype sharedFolderLength(const QStringList& paths) {
    const QChar separator = QDir::separator();
    qsizetype length = paths.front().lastIndexOf(separator) + 1;
    for (const QString& path : paths)
        while (length > 0 && QStringView(path).left(length) != QStringView(paths.front()).left(length))
            length = QStringView(paths.front()).left(length - 1).lastIndexOf(separator) + 1;
    return length;
}

/// Makes room for the names. Native dialogs have sizes of their own.
void makeRoom(QFileDialog& dialog) {
    const QFontMetrics metrics = dialog.fontMetrics();
    const int character = metrics.averageCharWidth();
    dialog.resize(
        QSize(130 * character, 34 * metrics.height()).boundedTo(dialog.screen()->availableSize() * 0.85));
    if (auto* const panes = dialog.findChild<QSplitter*>(QStringLiteral("splitter")))
        panes->setSizes({18 * character, 112 * character});
    auto* const details = dialog.findChild<QTreeView*>(QStringLiteral("treeView"));
    if (details == nullptr)
        return;
    for (const auto& [column, characters] : {std::pair(1, 10), {2, 10}, {3, 22}}) // size, type, date
        details->setColumnWidth(column, characters * character);
    details->header()->setStretchLastSection(false);
    details->header()->setSectionResizeMode(0, QHeaderView::Stretch);
}

/// Shows the dialog; true when the user has chosen. The window can be closed meanwhile, except on Windows,
/// whose own dialogs are always modal.
bool run(QFileDialog& dialog) {
    makeRoom(dialog);
#ifdef Q_OS_WIN
    return dialog.exec() == QDialog::Accepted;
#else
    return runDialog(*dialog.parentWidget(), dialog) == QDialog::Accepted;
#endif
}

bool run(QFileDialog& dialog, const FileDialog& wanted, const QString& folder) {
    dialog.setWindowTitle(toQString(wanted.title));
    // The captions already show the patterns.
    dialog.setOption(QFileDialog::HideNameFilterDetails);
    dialog.setNameFilters(nameFilters(wanted.filter));
    if (!folder.isEmpty())
        dialog.setDirectory(folder);
    return run(dialog);
}

} // namespace

QStringList nameFilters(std::u16string_view filter) {
    const QStringList parts = toQString(filter).split(u'|');
    QStringList filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2)
        if (!parts[i + 1].trimmed().isEmpty())
            filters += captionWithPatterns(parts[i], parts[i + 1]);
    return filters;
}

std::u16string joinedSelection(const QStringList& paths) {
    if (paths.isEmpty())
        return {};
    if (paths.size() == 1)
        return fromQString(paths.front());
    const qsizetype length = sharedFolderLength(paths);
    QString folder = paths.front().left(length);
    if (folder.size() > 1 && !QDir(folder).isRoot())
        folder.chop(1);
    for (const QString& path : paths)
        folder += QChar(u'\0') + QStringView(path).mid(length).toString();
    return fromQString(folder);
}

QStringList runOpenDialog(QWidget& parent, const FileDialog& dialog, QString& folder) {
    QFileDialog files(&parent);
    files.setAcceptMode(QFileDialog::AcceptOpen);
    files.setFileMode(QFileDialog::ExistingFiles);
    if (!run(files, dialog, folder))
        return {};
    QStringList paths = files.selectedFiles();
    folder = QFileInfo(paths.value(0)).absolutePath(); // a typed path may be of a folder that is not shown
    std::transform(paths.begin(), paths.end(), paths.begin(), &QDir::toNativeSeparators);
    return paths;
}

QString runSaveDialog(QWidget& parent, const FileDialog& dialog, QString& folder) {
    QFileDialog files(&parent);
    files.setAcceptMode(QFileDialog::AcceptSave);
    files.setFileMode(QFileDialog::AnyFile);
    // The caller asks before it overwrites a file.
    files.setOption(QFileDialog::DontConfirmOverwrite);
    if (!run(files, dialog, folder) || files.selectedFiles().isEmpty())
        return {};
    folder = QFileInfo(files.selectedFiles().front()).absolutePath();
    return QDir::toNativeSeparators(files.selectedFiles().front());
}

QString runFolderDialog(QWidget& parent, const QString& prompt, const QString& startFolder) {
    QFileDialog folders(&parent, prompt);
    folders.setAcceptMode(QFileDialog::AcceptOpen);
    folders.setFileMode(QFileDialog::Directory);
    folders.setOption(QFileDialog::ShowDirsOnly);
    if (!startFolder.isEmpty() && QFileInfo(startFolder).isDir())
        folders.setDirectory(startFolder);
    if (!run(folders) || folders.selectedFiles().isEmpty())
        return {};
    return QDir::toNativeSeparators(folders.selectedFiles().front());
}

} // namespace brindlewick
