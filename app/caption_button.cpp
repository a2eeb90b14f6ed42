#include "app/caption_button.h"

#include <QKeyEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionButton>

namespace brindlewick {

void CaptionButton::makePrimary() {
    isPrimary_ = true;
    makeBold();
    setDefault(true);
}

void CaptionButton::setSign(const QString& sign) {
    sign_ = sign;
    makeBold();
}

void CaptionButton::makeBold() {
    QFont bold; // sets the weight alone: family and size follow the window's font
    bold.setBold(true);
    setFont(bold);
}

QSize CaptionButton::sizeHint() const {
    ensurePolished();
    QStyleOptionButton option;
    initStyleOption(&option);
    const int line = fontMetrics().height();
    QSize contents = fontMetrics().size(Qt::TextShowMnemonic, option.text) + QSize(line, 0);
    contents.rheight() += isPrimary_ ? line / 2 : line / 5;
    const QSize size = style()->sizeFromContents(QStyle::CT_PushButton, &option, contents, this);
    return sign_.isEmpty() ? size
                           : QSize(size.height(), size.height()); // styles add a minimum width for words
}

void CaptionButton::keyPressEvent(QKeyEvent* event) {
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isEnter && !event->isAutoRepeat())
        click();
    else
        QPushButton::keyPressEvent(event);
}

void CaptionButton::initStyleOption(QStyleOptionButton* option) const {
    QPushButton::initStyleOption(option);
    if (option->text.isEmpty())
        option->text = sign_;
}

void CaptionButton::paintEvent(QPaintEvent* event) {
    QPushButton::paintEvent(event);
    if (picture_ == CaptionPicture::none)
        return;
    QStyleOptionButton option;
    initStyleOption(&option);
    const QRect contents = style()->subElementRect(QStyle::SE_PushButtonContents, &option, this);
    QRect line = style()->itemTextRect(fontMetrics(), contents, Qt::AlignCenter, isEnabled(), text());
    line.setHeight(fontMetrics().height());
    QPainter painter(this);
    paintCaptionPicture(painter, picture_, line, option.palette.buttonText().color());
}

} // namespace brindlewick
