// Conversions between the program's UTF-16 text, QString and QUrl.
#pragma once

#include <QString>
#include <QStringView>
#include <string>
#include <string_view>

class QUrl;

namespace brindlewick {

/// Both keep every unit, lone surrogates and NULs included.
[[nodiscard]] inline QString toQString(std::u16string_view text) {
    return QString(reinterpret_cast<const QChar*>(text.data()), static_cast<qsizetype>(text.size()));
}

[[nodiscard]] inline std::u16string fromQString(QStringView text) {
    return std::u16string(text.utf16(), static_cast<std::size_t>(text.size()));
}

/// The path in a file's address, whatever its host, and the address of a path. Both keep names that are not
/// valid text, as native_path.h says; QUrl's own conversions do not.
[[nodiscard]] std::u16string pathOfUrl(const QUrl& url);
[[nodiscard]] QUrl urlOfPath(std::u16string_view path);

/// The beginning of the text for one line of a view: control characters become blanks, and an ellipsis marks
/// that text follows. Costs the same for every length.
[[nodiscard]] QString displayText(std::u16string_view text);

/// The same for a path, with the ellipsis in the middle: its end is the file name.
[[nodiscard]] QString displayPath(std::u16string_view path);

/// The text for a tool tip: at most 4,000 code units, then an ellipsis.
[[nodiscard]] QString tipText(std::u16string_view text);

} // namespace brindlewick
