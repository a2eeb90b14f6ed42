#include "platform/background_work.h"

#include <chrono>
#include <future>

namespace brindlewick {

void runInBackground(const std::function<void()>& work, const std::function<void()>& meanwhile) {
    using namespace std::chrono_literals;
    // Without a thread, the library falls back to "deferred": get() then runs the work.
    std::future<void> done = std::async(std::launch::async | std::launch::deferred, work);
    while (done.wait_for(20ms) == std::future_status::timeout)
        meanwhile();
    done.get();
}

} // namespace brindlewick
