// What a view shows of a text: its beginning, on one line.
#pragma once

#include <QString>
#include <string_view>

namespace brindlewick {

/// The first code units of the text, with blanks for line ends and other controls, and "..." where more
/// follows. Its cost does not depend on the text's length.
QString displayText(std::u16string_view text);

} // namespace brindlewick
