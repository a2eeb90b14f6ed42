// A label with a path of a megabyte or a thousand lines would push a box's buttons off the screen.
#include "app/message_dialog.h"

#include "app/dialog_loop.h"
#include "app/qt_text.h"

#include <QCheckBox>
#include <QDialog>
#include <QDialogButtonBox>
#include <QGridLayout>
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

constexpr std::size_t maxLength = 65536; // code units

// For a message box; longer texts get a window that scrolls.
constexpr int maxBoxLines = 25;
constexpr qsizetype maxBoxLength = 2000; // code units
constexpr int maxWordLength = 100;       // code units
constexpr int maxTextWidth = 640;        // pixels; longer lines are wrapped

// Pixels, of a window that scrolls.
constexpr int windowWidth = 640;
constexpr QRect maxTextArea(0, 0, 560, 340);
constexpr int minTextHeight = 60;
constexpr int heightOfTheRest = 80;

bool isQuestion(MessageKind kind) {
    return kind == MessageKind::question || kind == MessageKind::warningQuestion;
}

bool fitsBox(const QString& lines) {
    if (lines.size() > maxBoxLength)
        return false;
    int lineCount = 1;
    int wordLength = 0;
    for (const QChar unit : lines) {
        lineCount += unit == u'\n';
        wordLength = unit.isSpace() ? 0 : wordLength + 1;
        if (wordLength > maxWordLength || lineCount > maxBoxLines)
            return false;
    }
    return true;
}

/// Removes the room that a box without an icon keeps on the left of its text.
void closeIconGap(QMessageBox& box) {
    auto* const grid = qobject_cast<QGridLayout*>(box.layout());
    QLayoutItem* const gap = grid ? grid->itemAtPosition(0, 0) : nullptr;
    if (gap == nullptr || gap->spacerItem() == nullptr)
        return;
    gap->spacerItem()->changeSize(0, 0);
    if (auto* label = box.findChild<QLabel*>(QStringLiteral("qt_msgbox_label")))
        label->setIndent(0);
}

bool showBox(QWidget& parent, const QString& title, const QString& lines, MessageKind kind,
             DialogCheckBox* checkBox) {
    QMessageBox box(&parent);
    box.setWindowTitle(title);
    box.setTextFormat(Qt::PlainText);
    box.setText(lines);
    box.setIcon(kind == MessageKind::warning ? QMessageBox::Warning : QMessageBox::NoIcon);
    box.setTextInteractionFlags(Qt::TextSelectableByMouse);
    if (isQuestion(kind)) {
        box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
        box.setDefaultButton(kind == MessageKind::question ? QMessageBox::Yes : QMessageBox::No);
        box.setEscapeButton(QMessageBox::No);
    } else {
        box.setStandardButtons(QMessageBox::Ok);
    }
    // Make the box wide enough for its title bar: the title, 130 pixels for icon and buttons. A box for
    // "Done." would be narrower.
    if (auto* label = box.findChild<QLabel*>(QStringLiteral("qt_msgbox_label"))) {
        const int titleWidth = box.fontMetrics().horizontalAdvance(title) + 130;
        label->setMinimumWidth(std::max(titleWidth, std::min(label->sizeHint().width(), maxTextWidth)));
    }
    if (kind != MessageKind::warning)
        closeIconGap(box);
    if (checkBox != nullptr) {
        box.setCheckBox(new QCheckBox(checkBox->caption));
        box.checkBox()->setChecked(checkBox->isTicked);
    }
    const int answer = runDialog(parent, box);
    if (checkBox != nullptr)
        checkBox->isTicked = box.checkBox()->isChecked();
    return answer == QMessageBox::Yes || answer == QMessageBox::Ok;
}

/// The height in pixels of the wrapped text, at most that of `maxTextArea`. 4,000 code units fill it.
int heightFor(const QString& lines, const QWidget& view) {
    const QRect text = view.fontMetrics().boundingRect(maxTextArea, Qt::TextWrapAnywhere, lines.left(4000));
    return std::clamp(text.height() + view.fontMetrics().height(), minTextHeight, maxTextArea.height());
}

bool showScrollingWindow(QWidget& parent, const QString& title, const QString& lines, MessageKind kind,
                         DialogCheckBox* checkBox) {
    QDialog dialog(&parent);
    dialog.setWindowTitle(title);
    auto* text = new QPlainTextEdit(lines);
    text->setReadOnly(true);
    text->setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    auto* buttons =
        new QDialogButtonBox(isQuestion(kind) ? QDialogButtonBox::Yes | QDialogButtonBox::No
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
    auto* const tick = checkBox != nullptr ? new QCheckBox(checkBox->caption) : nullptr;
    if (tick != nullptr) {
        tick->setChecked(checkBox->isTicked);
        column->addWidget(tick);
    }
    column->addWidget(buttons);
    const QSize maxSize = parent.screen()->availableSize() * 0.8;
    dialog.resize(QSize(windowWidth, heightFor(lines, *text) + heightOfTheRest).boundedTo(maxSize));
    auto* const preset = buttons->button(kind == MessageKind::question          ? QDialogButtonBox::Yes
                                         : kind == MessageKind::warningQuestion ? QDialogButtonBox::No
                                                                                : QDialogButtonBox::Ok);
    preset->setDefault(true);
    preset->setFocus();
    const bool isAccepted = runDialog(parent, dialog) == QDialog::Accepted;
    if (tick != nullptr)
        checkBox->isTicked = tick->isChecked();
    return isAccepted;
}

} // namespace

bool showMessageDialog(QWidget& parent, const QString& title, std::u16string_view text, MessageKind kind,
                       DialogCheckBox* checkBox) {
    const QString lines = shownLines(text);
    return fitsBox(lines) ? showBox(parent, title, lines, kind, checkBox)
                          : showScrollingWindow(parent, title, lines, kind, checkBox);
}

QString shownLines(std::u16string_view text) {
    const bool cut = text.size() > maxLength;
    QString lines = toQString(text.substr(0, maxLength));
    lines.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    lines.replace(u'\r', u'\n');
    if (cut)
        lines += u'\u2026';
    return lines;
}

} // namespace brindlewick
