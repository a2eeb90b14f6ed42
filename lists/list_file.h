// Text files that hold one path or one tag a line.
#pragma once

#include "lists/text_list.h"
#include "platform/user_interface.h"

#include <string_view>

namespace brindlewick {

/// Appends every line of the file, in the single-byte character set, to the list: nothing trimmed, blank
/// lines included. CR, with or without a LF behind it, ends a line, and nothing follows the last one. A bare
/// LF cuts its line in two, so a LF at the end of the file leaves an empty entry.
///
/// A missing file is told with a message and appends nothing. Fails as files.h says, and with outOfMemory for
/// an entry above longestText; what was appended before stays. Linear in the file's length; memory beyond the
/// list is one entry.
void ReadListFile(UserInterface& user, std::u16string_view path, TextList& list);

} // namespace brindlewick
