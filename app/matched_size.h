// Widgets in different layouts that have one height or one width.
#pragma once

#include <QSize>
#include <Qt>

namespace brindlewick {

/// Its size hints in `direction` are those of its peer if these are larger.
template <class Widget, Qt::Orientation direction>
class Matched : public Widget {
public:
    using Widget::Widget;

    /// Both must live as long as either is shown.
    void matchWith(Matched& peer) {
        peer_ = &peer;
        peer.peer_ = this;
    }
    [[nodiscard]] QSize sizeHint() const override {
        return joined(Widget::sizeHint(), peer_ ? peer_->Widget::sizeHint() : QSize());
    }
    [[nodiscard]] QSize minimumSizeHint() const override {
        return joined(Widget::minimumSizeHint(), peer_ ? peer_->Widget::minimumSizeHint() : QSize());
    }

private:
    static QSize joined(QSize own, QSize other) {
        return direction == Qt::Vertical ? own.expandedTo({0, other.height()})
                                         : own.expandedTo({other.width(), 0});
    }

    const Matched* peer_ = nullptr;
};

} // namespace brindlewick
