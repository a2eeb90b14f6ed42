// Runs blocking work on a second thread while the caller keeps the window responsive.
#pragma once

#include <functional>

namespace brindlewick {

/// Runs `work` on a second thread and returns when it has ended. Until then, calls `meanwhile` on the
/// caller's thread about fifty times a second. Throws what `work` threw. An exception from `meanwhile` is
/// thrown once `work` has ended. If the system cannot start a thread, runs `work` on the caller's thread
/// instead.
void runInBackground(const std::function<void()>& work, const std::function<void()>& meanwhile);

} // namespace brindlewick
