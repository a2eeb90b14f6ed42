// What goes into the file dialogs and what comes out of them, apart from the dialogs themselves.
#pragma once

#include <QString>
#include <QStringList>
#include <string>
#include <string_view>

class QWidget;

namespace brindlewick {

struct FileDialog;

/// Qt's name filters for "Caption|pattern|Caption|pattern|": a caption's own "(...)" gives way to the real
/// patterns, and "*.*" becomes "*", since it must match a name without a dot too.
QStringList nameFilters(std::u16string_view filter);

/// One path as it is; several as their folder (without a separator at its end unless it is the root) and the
/// rest of each path, in order, with a NUL between them. No path gives the empty text.
std::u16string joinedSelection(const QStringList& paths);

/// The dialogs. `folder` is where they open; a choice moves it. The empty text or no path when cancelled.
QStringList runOpenDialog(QWidget& parent, const FileDialog& dialog, QString& folder);
QString runSaveDialog(QWidget& parent, const FileDialog& dialog, QString& folder);
QString runFolderDialog(QWidget& parent, const QString& prompt, const QString& startFolder);

} // namespace brindlewick
