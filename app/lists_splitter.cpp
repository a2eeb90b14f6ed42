#include "app/lists_splitter.h"

#include <algorithm>

namespace brindlewick {

ListsSplitter::ListsSplitter(QWidget* left, QWidget* right) : QSplitter(Qt::Horizontal) {
    addWidget(left);
    addWidget(right);
    setStretchFactor(0, 3);
    setStretchFactor(1, 2);
    connect(this, &QSplitter::splitterMoved, this, [this] { isMoved_ = true; });
}

void ListsSplitter::resizeEvent(QResizeEvent* event) {
    QSplitter::resizeEvent(event);
    if (isMoved_)
        return;
    const int room = width() - handleWidth();
    const int most = room - widget(1)->minimumSizeHint().width();
    const int wanted = widget(0)->sizeHint().width();
    const int left = std::max(room * 3 / 5, wanted <= most ? wanted : 0);
    setSizes({left, room - left});
}

} // namespace brindlewick
