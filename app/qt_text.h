// Text on its way between the program (UTF-16 views) and Qt, unit for unit: lone surrogates and NULs stay.
#pragma once

#include <QString>
#include <QStringView>
#include <string>
#include <string_view>

namespace brindlewick {

inline QString toQString(std::u16string_view text) {
    return QString(reinterpret_cast<const QChar*>(text.data()), static_cast<qsizetype>(text.size()));
}

inline std::u16string fromQString(QStringView text) {
    return std::u16string(text.utf16(), static_cast<std::size_t>(text.size()));
}

} // namespace brindlewick
