// A push button whose caption may have several lines or be a single sign.
#pragma once

#include "app/caption_picture.h"

#include <QPushButton>

namespace brindlewick {

/// Leaves space around the caption. Some captions begin with a line end: a picture fills their first line.
class CaptionButton : public QPushButton {
public:
    using QPushButton::QPushButton;

    /// Makes the caption bold and the button half a text line higher.
    void makePrimary();
    /// A text drawn in bold on a button without a caption.
    void setSign(const QString& sign);
    /// A picture on the caption's first line, in the caption's colour and as high as its type.
    void setPicture(CaptionPicture picture) { picture_ = picture; }
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    /// Return and Enter press the button.
    void keyPressEvent(QKeyEvent* event) override;
    void initStyleOption(QStyleOptionButton* option) const override;
    void paintEvent(QPaintEvent* event) override;

private:
    void makeBold();

    bool isPrimary_ = false;
    QString sign_;
    CaptionPicture picture_ = CaptionPicture::none;
};

} // namespace brindlewick
