// Message boxes that stay usable whatever text they are given.
#pragma once

#include <QString>
#include <string_view>

class QWidget;

namespace brindlewick {

enum class MessageKind {
    plain,    ///< OK, no icon
    warning,  ///< OK, the warning icon
    question, ///< Yes and No, no icon; Escape and closing the box answer No
};

/// Shows the text as plain text and waits for the answer: true for OK and Yes. A text too long for a box is
/// shown in a bounded window that scrolls.
bool showMessageDialog(QWidget& parent, const QString& title, std::u16string_view text, MessageKind kind);

/// The text with every line end (CR LF, CR, LF) as one line feed, cut with an ellipsis beyond 65,536 units.
QString shownLines(std::u16string_view text);

} // namespace brindlewick
