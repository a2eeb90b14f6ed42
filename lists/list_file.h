// Text files with one path or one tag per line.
#pragma once

#include "lists/text_list.h"
#include "platform/error_report.h"
#include "platform/user_interface.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace brindlewick {

/// Appends every line of the file, read in the single-byte character set, to the list. Lines are not trimmed,
/// and blank lines become empty entries. CR or CR LF ends a line. A LF alone splits its line in two, so a LF
/// at the end of the file leaves an empty entry; a CR or CR LF there does not.
///
/// For a missing file it shows "File not found" and appends nothing. Fails as files.h describes, and with
/// outOfMemory for an entry longer than `maxTextLength`; what was appended before stays. Linear in the file's
/// length; needs memory for one entry beyond the list. Shows progress, and ends early when the user stops it.
void ReadListFile(UserInterface& user, std::u16string_view path, TextList& list);

/// An operation that reads the files in order, each as a step of `guard`, until the user stops it. Its
/// summary is that of the list's rows from a given one on. Does nothing without paths.
void ReadListFiles(UserInterface& user, const Guard& guard, const std::vector<std::u16string>& paths,
                   TextList& list, std::u16string (&summary)(const TextList&, std::size_t));

} // namespace brindlewick
