// Conversions between the program's UTF-16 text and QString.
#pragma once

#include <QString>
#include <QStringView>
#include <string>
#include <string_view>

namespace brindlewick {

/// Both keep every unit, lone surrogates and NULs included.
[[nodiscard]] inline QString toQString(std::u16string_view text) {
    return QString(reinterpret_cast<const QChar*>(text.data()), static_cast<qsizetype>(text.size()));
}

[[nodiscard]] inline std::u16string fromQString(QStringView text) {
    return std::u16string(text.utf16(), static_cast<std::size_t>(text.size()));
}

/// The beginning of the text for one line of a view: control characters become blanks, and an ellipsis marks
/// that text follows. Costs the same for every length.
[[nodiscard]] QString displayText(std::u16string_view text);

/// The same for a path, with the ellipsis in the middle: its end is the file name.
[[nodiscard]] QString displayPath(std::u16string_view path);

/// The text for a tool tip: at most 4,000 code units, then an ellipsis.
[[nodiscard]] QString tipText(std::u16string_view text);

} // namespace brindlewick
