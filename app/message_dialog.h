// Message boxes for texts of any length.
#pragma once

#include <QString>
#include <string_view>

class QWidget;

namespace brindlewick {

enum class MessageKind {
    information,     ///< OK, no icon
    warning,         ///< OK, the warning icon
    question,        ///< Yes and No, no icon; Escape and closing the box answer No
    warningQuestion, ///< likewise, but No is the default
};

struct DialogCheckBox {
    QString caption;
    bool isTicked = false; ///< at first, then when the dialog is closed
};

/// Shows the text without markup and waits for the answer: true for OK and Yes. A text that is too long for a
/// box is shown in a window with a scroll bar. The check box is optional. The parent can be closed meanwhile.
bool showMessageDialog(QWidget& parent, const QString& title, std::u16string_view text, MessageKind kind,
                       DialogCheckBox* checkBox = nullptr);

/// The text with every line end (CR LF, CR, LF) as one line feed. After 65,536 code units it is cut and ends
/// with an ellipsis.
[[nodiscard]] QString shownLines(std::u16string_view text);

} // namespace brindlewick
