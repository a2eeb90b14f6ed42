#include "app/qt_text.h"

#include "platform/native_path.h"
#include "platform/text.h"

#include <QByteArray>
#include <QDir>
#include <QUrl>

namespace brindlewick {

namespace {

constexpr std::size_t maxShown = 500;   // code units of a cell: wider than any screen
constexpr std::size_t maxTipped = 4000; // code units of a tool tip: about a screen full

std::u16string beginningOf(std::u16string_view text, std::size_t maxLength) {
    std::u16string beginning(text.substr(0, maxLength));
    if (beginning.size() < text.size()) {
        if (isHighSurrogate(beginning.back())) // the pair was cut
            beginning.pop_back();
        beginning += u'\u2026';
    }
    return beginning;
}

QString onOneLine(std::u16string text) {
    for (char16_t& unit : text)
        if (unit < 32 || unit == 127)
            unit = u' ';
    return toQString(text);
}

} // namespace

#ifdef Q_OS_WIN
std::u16string pathOfUrl(const QUrl& url) {
    return fromQString(QDir::toNativeSeparators(url.toLocalFile()));
}

QUrl urlOfPath(std::u16string_view path) {
    return QUrl::fromLocalFile(toQString(path));
}
#else
std::u16string pathOfUrl(const QUrl& url) {
    const QByteArray bytes = QByteArray::fromPercentEncoding(url.path(QUrl::FullyEncoded).toLatin1());
    return textFromPathBytes({bytes.constData(), static_cast<std::size_t>(bytes.size())});
}

QUrl urlOfPath(std::u16string_view path) {
    QUrl url;
    url.setScheme(QStringLiteral("file"));
    url.setPath(QString::fromLatin1(QByteArray::fromStdString(pathBytes(path)).toPercentEncoding("/")),
                QUrl::TolerantMode);
    return url;
}
#endif

QString displayText(std::u16string_view text) {
    return onOneLine(beginningOf(text, maxShown));
}

QString displayPath(std::u16string_view path) {
    if (path.size() <= maxShown)
        return onOneLine(std::u16string(path));
    std::u16string_view end = path.substr(path.size() - maxShown / 2);
    if (isLowSurrogate(end.front())) // the pair was cut
        end.remove_prefix(1);
    return onOneLine(beginningOf(path, maxShown / 2) + std::u16string(end));
}

QString tipText(std::u16string_view text) {
    return toQString(beginningOf(text, maxTipped));
}

} // namespace brindlewick
