// The window's look: the optional skin and the hand pointer over buttons.
#pragma once

#include "platform/user_interface.h"

#include <QCursor>
#include <QObject>
#include <optional>
#include <string>
#include <string_view>

class QWidget;

namespace brindlewick {

/// Applies the skin file "x/o.cjs" (a Qt style sheet in UTF-8) of the program folder to the window, after
/// giving its option buttons, check boxes, group boxes and labels the colour of button faces. Pictures beside
/// the skin are named url(skin:name). A missing file is not an error; one that cannot be loaded, or that
/// makes the window ask for more than 4,096 pixels, fails with invalidProcedureCall and leaves the window's
/// style sheet as it was.
void ApplySkin(QWidget& window, std::u16string_view programFolder);

/// The pointer picture "HAND-M.CUR" of the program folder with the hot spot that the file names; none when
/// the file does not exist. Fails with invalidPicture when it is no pointer picture.
std::optional<QCursor> loadHandPointer(std::u16string_view programFolder);

/// Shows the custom pointer over every push button and the default pointer over the window's surface and
/// over group box `Frame2`, and never replaces the hourglass. Watches the controls that the window has when
/// this is made.
class HoverPointer : public QObject {
public:
    HoverPointer(QWidget& window, UserInterface& user);
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void watch(QWidget& widget);

    QWidget& window_;
    UserInterface& user_;
};

} // namespace brindlewick
