// What an open dialog returned, taken apart into paths.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace brindlewick {

/// The paths of a selection, in order. One part is a full path and is left as it is; of several parts with a
/// NUL between them the first is the folder, and each of the others gives folder & separator & name, cleaned
/// by CollapseDoubledBackslashes. The empty selection (a cancelled dialog) gives none.
std::vector<std::u16string> pathsOfSelection(std::u16string_view selection);

/// Room for a selection in the dialog of "Add JSON Files", in code units, its closing NUL included.
inline constexpr std::size_t selectionBufferSize = 260;
/// False when the selection and its closing NUL need more than that.
bool selectionFitsBuffer(std::u16string_view selection) noexcept;
inline constexpr std::u16string_view tooManyFilesMessage =
    u"You've selected too many files to add.\r\rPlease try adding via the \"Add All\" button.";

} // namespace brindlewick
