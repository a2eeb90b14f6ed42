#include "app/row_viewer.h"

#include "app/message_dialog.h"
#include "app/qt_text.h"
#include "platform/text.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QPlainTextEdit>
#include <QScreen>
#include <QSpinBox>
#include <QVBoxLayout>
#include <algorithm>
#include <limits>

namespace brindlewick {

namespace {

constexpr std::size_t partLength = 32768; // code units; laid out in 10 ms, in 40 ms if it is one word
constexpr int columns = 80;               // characters of average width
constexpr int lines = 20;

int partCount(std::u16string_view text) {
    return static_cast<int>(std::max<std::size_t>(1, (text.size() + partLength - 1) / partLength));
}

/// The beginning of a part, which does not cut a surrogate pair or a line end.
std::size_t partBegin(std::u16string_view text, int number) {
    const std::size_t begin = std::min(text.size(), static_cast<std::size_t>(number) * partLength);
    if (begin == 0 || begin == text.size())
        return begin;
    const char16_t before = text[begin - 1];
    const char16_t after = text[begin];
    const bool isCut =
        (isHighSurrogate(before) && isLowSurrogate(after)) || (before == u'\r' && after == u'\n');
    return isCut ? begin + 1 : begin;
}

} // namespace

RowViewer::RowViewer(QWidget& owner, const ResultsTable& table)
    : QWidget(&owner,
              Qt::Dialog | Qt::WindowTitleHint | Qt::WindowCloseButtonHint | Qt::WindowMaximizeButtonHint),
      table_(table), text_(new QPlainTextEdit), parts_(new QWidget), part_(new QSpinBox),
      path_(new QLineEdit) {
    setObjectName(QStringLiteral("rowViewer"));
    setAttribute(Qt::WA_WindowPropagation); // takes the owner's font
    setAutoFillBackground(true);
    text_->setObjectName(QStringLiteral("rowText"));
    text_->setAccessibleName(QStringLiteral("Whole text of the row"));
    text_->setReadOnly(true);
    text_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    text_->setUndoRedoEnabled(false);
    text_->setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    text_->setTabChangesFocus(true);
    path_->setObjectName(QStringLiteral("rowPath"));
    path_->setReadOnly(true);
    path_->setMaxLength(std::numeric_limits<int>::max());
    part_->setObjectName(QStringLiteral("rowPart"));
    part_->setAccessibleName(QStringLiteral("Part of the text"));
    part_->setKeyboardTracking(false);
    part_->setGroupSeparatorShown(true);
    connect(part_, &QSpinBox::valueChanged, this, &RowViewer::showPart);

    auto* const partRow = new QHBoxLayout(parts_);
    partRow->setContentsMargins(0, 0, 0, 0);
    partRow->addWidget(new QLabel(QStringLiteral("Part")));
    partRow->addWidget(part_);
    auto* const below = new QHBoxLayout;
    below->addWidget(new QLabel(QStringLiteral("File")));
    below->addWidget(path_, 1);
    below->addWidget(parts_);
    auto* const column = new QVBoxLayout(this);
    column->addWidget(text_, 1);
    column->addLayout(below);
    setTabOrder(text_, path_);
    setTabOrder(path_, part_);
}

void RowViewer::showRow(std::size_t row) {
    rowText_ = table_.text(row);
    setWindowTitle(QStringLiteral("Row ") + toQString(groupedText(row + 1)));
    path_->setText(toQString(table_.filePath(row)));
    const int parts = partCount(rowText_);
    const QSignalBlocker blocker(part_);
    part_->setLocale(QLocale(QLocale::English)); // groups digits as groupedText does
    part_->setRange(1, parts);
    part_->setSuffix(QStringLiteral(" of ") + toQString(groupedText(static_cast<std::uint64_t>(parts))));
    part_->setValue(1);
    part_->setEnabled(true);
    parts_->setVisible(parts > 1);
    showPart(1);
    if (!isVisible()) {
        const QSize wanted(text_->fontMetrics().averageCharWidth() * columns,
                           text_->fontMetrics().lineSpacing() * lines);
        resize(wanted.boundedTo(parentWidget()->screen()->availableSize() * 0.8));
        text_->setFocus();
    }
    show();
    raise();
    activateWindow();
}

void RowViewer::forgetRow() {
    rowText_ = {};
    const QSignalBlocker blocker(part_); // a number that was being typed is not shown
    part_->setEnabled(false);
}

void RowViewer::showPart(int number) {
    const std::size_t begin = partBegin(rowText_, number - 1);
    text_->setPlainText(shownLines(rowText_.substr(begin, partBegin(rowText_, number) - begin)));
}

void RowViewer::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape)
        close();
    else
        QWidget::keyPressEvent(event);
}

} // namespace brindlewick
