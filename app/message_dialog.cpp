// Message boxes that stay usable whatever text they are given.
// A label as wide as a path of a megabyte, or as high as a thousand lines, would push the buttons off the
// screen.
#include "app/message_dialog.h"

#include "app/qt_text.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScreen>
#include <QStyle>
#include <QVBoxLayout>
#include <algorithm>

namespace brindlewick {

namespace {

constexpr std::size_t longestShown = 65536;
constexpr int mostLines = 25;
constexpr qsizetype mostUnits = 2000;
constexpr int longestWord = 100;
constexpr int widestText = 640; // pixels; longer lines are wrapped

bool fitsBox(const QString& lines) {
    if (lines.size() > mostUnits)
        return false;
    int lineCount = 1;
    int wordLength = 0;
    for (const QChar unit : lines) {
        lineCount += unit == u'\n';
        wordLength = unit.isSpace() ? 0 : wordLength + 1;
        if (wordLength > longestWord || lineCount > mostLines)
            return false;
    }
    return true;
}

bool showBox(QWidget& parent, const QString& title, const QString& lines, MessageKind kind) {
    QMessageBox box(&parent);
    box.setWindowTitle(title);
    box.setTextFormat(Qt::PlainText);
    box.setText(lines);
    box.setIcon(kind == MessageKind::warning ? QMessageBox::Warning : QMessageBox::NoIcon);
    box.setTextInteractionFlags(Qt::TextSelectableByMouse);
    if (kind == MessageKind::question) {
        box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
        box.setDefaultButton(QMessageBox::Yes);
        box.setEscapeButton(QMessageBox::No);
    } else {
        box.setStandardButtons(QMessageBox::Ok);
    }
    // A box as narrow as "Done." would show no title: room for it, the window's icon and its buttons. Lines
    // that are longer keep the room that they need.
    if (auto* label = box.findChild<QLabel*>(QStringLiteral("qt_msgbox_label"))) {
        const int titleWidth = box.fontMetrics().horizontalAdvance(title) + 130;
        label->setMinimumWidth(std::max(titleWidth, std::min(label->sizeHint().width(), widestText)));
    }
    const int answer = box.exec();
    return answer == QMessageBox::Yes || answer == QMessageBox::Ok;
}

/// The pixels that the text takes at the window's width, up to 340; its beginning is enough to tell.
int heightFor(const QString& lines, const QWidget& view) {
    const QRect room(0, 0, 560, 340);
    const QRect taken = view.fontMetrics().boundingRect(room, Qt::TextWrapAnywhere, lines.left(4000));
    return std::clamp(taken.height() + view.fontMetrics().height(), 60, room.height());
}

bool showScrollingWindow(QWidget& parent, const QString& title, const QString& lines, MessageKind kind) {
    QDialog dialog(&parent);
    dialog.setWindowTitle(title);
    auto* text = new QPlainTextEdit(lines);
    text->setReadOnly(true);
    text->setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    auto* buttons = new QDialogButtonBox(kind == MessageKind::question
                                             ? QDialogButtonBox::Yes | QDialogButtonBox::No
                                             : QDialogButtonBox::StandardButtons(QDialogButtonBox::Ok));
    QObject::connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
    QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);

    auto* row = new QHBoxLayout;
    if (kind == MessageKind::warning) {
        const int size = dialog.style()->pixelMetric(QStyle::PM_MessageBoxIconSize);
        auto* icon = new QLabel;
        icon->setPixmap(dialog.style()->standardIcon(QStyle::SP_MessageBoxWarning).pixmap(size));
        row->addWidget(icon, 0, Qt::AlignTop);
    }
    row->addWidget(text);
    auto* column = new QVBoxLayout(&dialog);
    column->addLayout(row);
    column->addWidget(buttons);
    const QSize room = parent.screen()->availableSize() * 0.8;
    dialog.resize(QSize(640, heightFor(lines, *text) + 80).boundedTo(room));
    buttons->button(kind == MessageKind::question ? QDialogButtonBox::Yes : QDialogButtonBox::Ok)->setFocus();
    return dialog.exec() == QDialog::Accepted;
}

} // namespace

bool showMessageDialog(QWidget& parent, const QString& title, std::u16string_view text, MessageKind kind) {
    const QString lines = shownLines(text);
    return fitsBox(lines) ? showBox(parent, title, lines, kind)
                          : showScrollingWindow(parent, title, lines, kind);
}

QString shownLines(std::u16string_view text) {
    const bool cut = text.size() > longestShown;
    QString lines = toQString(text.substr(0, longestShown));
    lines.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    lines.replace(u'\r', u'\n');
    if (cut)
        lines += u'\u2026';
    return lines;
}

} // namespace brindlewick
