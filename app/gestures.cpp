#include "app/gestures.h"

#include "platform/error_report.h"

namespace brindlewick {

void Gestures::start(const std::function<void()>& action) {
    if (!user_.isBusy() && !user_.hasDialog())
        startAtOnce(action);
}

void Gestures::startAtOnce(const std::function<void()>& action) {
    undoList_.beginStep();
    if (!user_.isBusy())
        user_.beginReports();
    // Handlers report their own failures. This guard keeps any other exception out of the event loop.
    const Guard guard(user_, u"Form1.Click");
    guard(action);
}

} // namespace brindlewick
