// A push button with room around its caption.
#pragma once

#include <QPushButton>

namespace brindlewick {

/// Several captions begin with a line end, from when a picture stood above them: they stand on the second
/// line.
class CaptionButton : public QPushButton {
public:
    using QPushButton::QPushButton;

    /// Makes the button stand out: bold, and half as high again.
    void makePrimary();
    /// What is drawn in bold, in place of a picture, on a button without a caption.
    void setSign(const QString& sign);
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void initStyleOption(QStyleOptionButton* option) const override;

private:
    void makeBold();

    bool isPrimary_ = false;
    QString sign_;
};

} // namespace brindlewick
