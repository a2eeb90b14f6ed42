// The window's look: the optional skin and the hand pointer over buttons.
#pragma once

#include "app/cursor_picture.h"
#include "platform/user_interface.h"

#include <QObject>
#include <optional>
#include <string>
#include <string_view>

class QWidget;

namespace brindlewick {

/// Applies the skin file "x/o.cjs" of the program folder, a Qt style sheet in UTF-8, to the window. Before
/// that, gives the window's option buttons, check boxes, group boxes and labels the colour of button faces.
/// A skin refers to pictures in its folder by url(skin:name). Does nothing if the file is missing. A file
/// that cannot be loaded, or that makes the window's minimum width or height exceed 4,096 pixels, fails with
/// invalidProcedureCall; the window keeps its style sheet.
void ApplySkin(QWidget& window, std::u16string_view programFolder);

/// The pointer picture "HAND-M.CUR" of the program folder; none if the file does not exist. Fails with
/// invalidPicture if the file is not a pointer picture.
[[nodiscard]] std::optional<CursorPicture> loadHandPointer(std::u16string_view programFolder);

/// Shows the custom pointer over push buttons, and the default pointer over the window's surface and over
/// group box `Frame2`. Never replaces the hourglass. Handles the controls that the window has when this
/// object is constructed.
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
