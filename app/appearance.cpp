// The files in the program folder may have any content.
#include "app/appearance.h"

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
#include <QPushButton>
#include <QRadioButton>
#include <QSinglePointEvent>
#include <QStringDecoder>
#include <QWidget>
#include <vector>

namespace brindlewick {

namespace {

constexpr std::size_t maxSkinSize = std::size_t{4} << 20;    // bytes
constexpr std::size_t maxPointerSize = std::size_t{1} << 20; // bytes
constexpr int maxMinimumSide = 4096;                         // pixels; limits the memory for the window

void takeButtonFace(QWidget& widget) {
    QPalette palette = widget.palette();
    palette.setColor(QPalette::Window, palette.color(QPalette::Button));
    widget.setPalette(palette);
    widget.setAutoFillBackground(true);
}

/// The skin's text; none if the bytes are not UTF-8 text.
std::optional<QString> skinText(const QByteArray& bytes) {
    if (static_cast<std::size_t>(bytes.size()) > maxSkinSize || bytes.contains('\0'))
        return std::nullopt;
    QStringDecoder decoder(QStringDecoder::Utf8);
    QString text = decoder.decode(bytes);
    return decoder.hasError() ? std::nullopt : std::optional(text);
}

bool styleSheetRefused = false;

void noteRefusal(QtMsgType, const QMessageLogContext&, const QString& message) {
    styleSheetRefused |= message.contains(QStringLiteral("Could not parse"));
}

/// Qt reports a style sheet that it cannot parse in its log only, so apply it to a hidden widget and read the
/// log.
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
    return needed.width() <= maxMinimumSide && needed.height() <= maxMinimumSide;
}

/// The minimum and maximum sizes of a window's widgets. Removing a style sheet does not restore them.
class SizeLimits {
public:
    explicit SizeLimits(QWidget& window) {
        for (QWidget* widget : window.findChildren<QWidget*>())
            limits_.push_back({widget, widget->minimumSize(), widget->maximumSize()});
        limits_.push_back({&window, window.minimumSize(), window.maximumSize()});
    }
    void restore() const {
        for (const Limit& limit : limits_) {
            limit.widget->setMinimumSize(limit.minimum);
            limit.widget->setMaximumSize(limit.maximum);
        }
    }

private:
    struct Limit {
        QWidget* widget;
        QSize minimum;
        QSize maximum;
    };
    std::vector<Limit> limits_;
};

QByteArray skinBytes(std::u16string_view path) {
    try {
        return readSmallFile(path, maxSkinSize);
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
        limits.restore();
        throw Failure(FailureNumber::invalidProcedureCall);
    }
}

std::optional<CursorPicture> loadHandPointer(std::u16string_view programFolder) {
    const std::u16string path = joinedPath(programFolder, u"HAND-M.CUR");
    if (!FileExistsByOpen(path))
        return std::nullopt;
    const QByteArray bytes = readSmallFile(path, maxPointerSize);
    if (static_cast<std::size_t>(bytes.size()) > maxPointerSize)
        throw Failure(FailureNumber::invalidPicture);
    return cursorPictureFromBytes(bytes);
}

HoverPointer::HoverPointer(QWidget& window, UserInterface& user) : window_(window), user_(user) {
    watch(window_);
    for (QWidget* widget : window_.findChildren<QWidget*>()) {
        // The window's surface: the central widget and those that only carry a layout.
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
        // A button passes its moves on to the surface below it, where the pointer must stay a hand.
        const QPoint position = static_cast<QSinglePointEvent*>(event)->position().toPoint();
        overButton =
            qobject_cast<QPushButton*>(widget) || qobject_cast<QPushButton*>(widget->childAt(position));
    }
    user_.setPointer(overButton ? PointerShape::custom : PointerShape::standard);
    return false;
}

} // namespace brindlewick
