// The divider between the JSON files and the tags.
#pragma once

#include <QSplitter>

namespace brindlewick {

/// Gives the left area three fifths of the width, or its size hint if that is wider and the right area can
/// still be shown. A divider that the user has moved is left alone.
class ListsSplitter : public QSplitter {
public:
    ListsSplitter(QWidget* left, QWidget* right);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    bool isMoved_ = false;
};

} // namespace brindlewick
