// The order in which every platform lists a folder.
#pragma once

#include "platform/files.h"

namespace brindlewick {

/// By name without regard to case, then by code unit: n log n comparisons, each name folded once.
void sortByName(std::vector<FolderEntry>& entries);

} // namespace brindlewick
