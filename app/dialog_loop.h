// Dialogs that take the window's input but leave its title bar usable.
#pragma once

class QDialog;
class QWidget;

namespace brindlewick {

/// Shows the dialog and handles events until it is closed; returns its result. Meanwhile the window takes no
/// input, but unlike the parent of a modal dialog it can be moved and closed.
int runDialog(QWidget& window, QDialog& dialog);

} // namespace brindlewick
