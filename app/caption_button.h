// A push button whose caption may have several lines or be a single sign.
#pragma once

#include <QPushButton>

namespace brindlewick {

/// Leaves space around the caption. Some captions begin with a line end: their text is on the second line.
class CaptionButton : public QPushButton {
public:
    using QPushButton::QPushButton;

    /// Makes the caption bold and the button half a text line higher.
    void makePrimary();
    /// A text drawn in bold on a button without a caption.
    void setSign(const QString& sign);
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void initStyleOption(QStyleOptionButton* option) const override;

private:
    void makeBold();

    bool isPrimary_ = false;
    QString sign_;
};

} // namespace brindlewick
