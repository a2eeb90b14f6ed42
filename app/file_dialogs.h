// The file dialogs, and the conversion of their filters and results.
#pragma once

#include <QString>
#include <QStringList>
#include <string>
#include <string_view>

class QWidget;

namespace brindlewick {

struct FileDialog;

/// Qt's name filters for "Caption|pattern|Caption|pattern|": the patterns follow the caption in parentheses.
/// "*.*" becomes "*", since it must match names without a dot too.
[[nodiscard]] QStringList nameFilters(std::u16string_view filter);

/// One path as it is; several as their common folder and the rest of each path, in order, with NULs between.
/// The folder has no separator at its end unless it is the root. Empty for no path.
[[nodiscard]] std::u16string joinedSelection(const QStringList& paths);

/// The dialogs open in `folder` and set it to the folder of the choice. They return an empty text or no path
/// when cancelled.
[[nodiscard]] QStringList runOpenDialog(QWidget& parent, const FileDialog& dialog, QString& folder);
[[nodiscard]] QString runSaveDialog(QWidget& parent, const FileDialog& dialog, QString& folder);
[[nodiscard]] QString runFolderDialog(QWidget& parent, const QString& prompt, const QString& startFolder);

} // namespace brindlewick
