// The window's look: the optional skin and the hand pointer over buttons.
// Files come from the program folder and may hold anything.
#include "app/appearance.h"

#include "app/cursor_picture.h"
#include "app/qt_text.h"
#include "app/small_file.h"
#include "platform/failure.h"
#include "platform/files.h"
#include "platform/native_path.h"

#include <QAbstractScrollArea>
#include <QCheckBox>
#include <QDir>
#include <QGroupBox>
#include <QLabel>
#include <QPixmap>
#include <QPushButton>
#include <QRadioButton>
#include <QSinglePointEvent>
#include <QStringDecoder>
#include <QWidget>
#include <vector>

namespace brindlewick {

namespace {

constexpr std::size_t longestSkin = std::size_t{4} << 20;    // bytes
constexpr std::size_t longestPointer = std::size_t{1} << 20; // bytes
// Pixels: no skin makes the window ask for more, and for the memory of it.
constexpr int largestMinimum = 4096;

void takeButtonFace(QWidget& widget) {
    QPalette palette = widget.palette();
    palette.setColor(QPalette::Window, palette.color(QPalette::Button));
    widget.setPalette(palette);
    widget.setAutoFillBackground(true);
}

/// The skin's text; none when the bytes are no text.
std::optional<QString> skinText(const QByteArray& bytes) {
    if (static_cast<std::size_t>(bytes.size()) > longestSkin || bytes.contains('\0'))
        return std::nullopt;
    QStringDecoder decoder(QStringDecoder::Utf8);
    QString text = decoder.decode(bytes);
    return decoder.hasError() ? std::nullopt : std::optional(text);
}

bool styleSheetRefused = false;

void noteRefusal(QtMsgType, const QMessageLogContext&, const QString& message) {
    styleSheetRefused |= message.contains(QStringLiteral("Could not parse"));
}

/// Qt tells only in its log that a style sheet cannot be parsed, so it is tried on a widget nobody sees.
bool isStyleSheet(const QString& text) {
    styleSheetRefused = false;
    const QtMessageHandler previous = qInstallMessageHandler(&noteRefusal);
    {
        QWidget trial;
        trial.setStyleSheet(text);
        trial.ensurePolished();
    }
    qInstallMessageHandler(previous);
    return !styleSheetRefused;
}

bool fitsAScreen(const QWidget& window) {
    for (const QWidget* widget : window.findChildren<QWidget*>())
        widget->ensurePolished();
    window.ensurePolished();
    const QSize needed = window.minimumSizeHint().expandedTo(window.minimumSize());
    return needed.width() <= largestMinimum && needed.height() <= largestMinimum;
}

/// The sizes that a style sheet sets stay when it is taken away, so they are put back one by one.
class SizeLimits {
public:
    explicit SizeLimits(QWidget& window) {
        for (QWidget* widget : window.findChildren<QWidget*>())
            limits_.push_back({widget, widget->minimumSize(), widget->maximumSize()});
        limits_.push_back({&window, window.minimumSize(), window.maximumSize()});
    }
    void putBack() const {
        for (const Limit& limit : limits_) {
            limit.widget->setMinimumSize(limit.smallest);
            limit.widget->setMaximumSize(limit.largest);
        }
    }

private:
    struct Limit {
        QWidget* widget;
        QSize smallest;
        QSize largest;
    };
    std::vector<Limit> limits_;
};

QByteArray skinBytes(std::u16string_view path) {
    try {
        return readSmallFile(path, longestSkin);
    } catch (const Failure&) {
        throw Failure(FailureNumber::invalidProcedureCall);
    }
}

} // namespace

void ApplySkin(QWidget& window, std::u16string_view programFolder) {
    const std::u16string path = joinedPath(joinedPath(programFolder, u"x"), u"o.cjs");
    if (!FileExistsByOpen(path))
        return;
    for (QWidget* widget : window.findChildren<QWidget*>())
        if (qobject_cast<QRadioButton*>(widget) || qobject_cast<QCheckBox*>(widget) ||
            qobject_cast<QGroupBox*>(widget) || qobject_cast<QLabel*>(widget))
            takeButtonFace(*widget);

    const std::optional<QString> text = skinText(skinBytes(path));
    QDir::setSearchPaths(QStringLiteral("skin"), {toQString(joinedPath(programFolder, u"x"))});
    if (!text || !isStyleSheet(*text))
        throw Failure(FailureNumber::invalidProcedureCall);
    const QString before = window.styleSheet();
    const SizeLimits limits(window);
    window.setStyleSheet(*text);
    if (!fitsAScreen(window)) {
        window.setStyleSheet(before);
        limits.putBack();
        throw Failure(FailureNumber::invalidProcedureCall);
    }
}

std::optional<QCursor> loadHandPointer(std::u16string_view programFolder) {
    const std::u16string path = joinedPath(programFolder, u"HAND-M.CUR");
    if (!FileExistsByOpen(path))
        return std::nullopt;
    const QByteArray bytes = readSmallFile(path, longestPointer);
    if (static_cast<std::size_t>(bytes.size()) > longestPointer)
        throw Failure(FailureNumber::invalidPicture);
    const CursorPicture cursor = cursorPictureFromBytes(bytes);
    return QCursor(QPixmap::fromImage(cursor.image), cursor.hotSpot.x(), cursor.hotSpot.y());
}

HoverPointer::HoverPointer(QWidget& window, UserInterface& user) : window_(window), user_(user) {
    watch(window_);
    for (QWidget* widget : window_.findChildren<QWidget*>()) {
        // Bare widgets are the window's surface: the central one and those that only hold a layout.
        const bool isSurface = widget->metaObject() == &QWidget::staticMetaObject && !widget->isWindow() &&
                               !qobject_cast<QAbstractScrollArea*>(widget->parentWidget());
        if (isSurface || qobject_cast<QPushButton*>(widget) ||
            widget->objectName() == QStringLiteral("Frame2"))
            watch(*widget);
    }
}

void HoverPointer::watch(QWidget& widget) {
    widget.setMouseTracking(true);
    widget.installEventFilter(this);
}

bool HoverPointer::eventFilter(QObject* watched, QEvent* event) {
    const QEvent::Type type = event->type();
    if (type != QEvent::Enter && type != QEvent::MouseMove && type != QEvent::Leave)
        return false;
    if (user_.isBusy())
        return false;
    auto* widget = static_cast<QWidget*>(watched);
    bool overButton = false;
    if (type != QEvent::Leave) {
        // A button lets its moves through to the surface under it, which must not take the hand away.
        const QPoint position = static_cast<QSinglePointEvent*>(event)->position().toPoint();
        overButton =
            qobject_cast<QPushButton*>(widget) || qobject_cast<QPushButton*>(widget->childAt(position));
    }
    user_.setPointer(overButton ? PointerShape::custom : PointerShape::standard);
    return false;
}

} // namespace brindlewick
