// Work that may take the operating system long, done aside so that the window lives meanwhile.
#pragma once

#include <functional>

namespace brindlewick {

/// Does `work` on a thread of its own and comes back when it is done; until then `meanwhile` is called on the
/// caller's thread some fifty times a second. Throws what `work` threw. What `meanwhile` throws is thrown
/// once the work is done. Where the system has no thread left, `work` is done at once instead.
void runAside(const std::function<void()>& work, const std::function<void()>& meanwhile);

} // namespace brindlewick
