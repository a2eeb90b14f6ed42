// What an empty list shows: the step that fills it.
#pragma once

#include <QString>

class QPainter;
class QPalette;
class QRect;

namespace brindlewick {

/// One step of a first try, or with the number 0 a text alone.
struct Step {
    int number = 0;
    QString text = {};   ///< what to do
    QString detail = {}; ///< more about the step; may be empty
};

/// Paints the step into the middle of `room` with the painter's font: the number in a circle, and the text
/// below it, then the detail. Without room for all, the detail is left out; if that is not enough, the number
/// comes first on the text's line. What does not fit is cut at the end.
void paintStep(QPainter& painter, const QRect& room, const Step& step, const QPalette& palette);

/// Paints the frame of an empty list that has the focus.
void paintFocusFrame(QPainter& painter, const QRect& room, const QPalette& palette);

} // namespace brindlewick
