#include "platform/background_work.h"

#include "platform/failure.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <thread>

namespace brindlewick {
namespace {

using namespace std::chrono_literals;

/// Waits until the condition holds; false after 20 seconds.
template <class Condition>
bool waitFor(Condition holds) {
    for (const auto end = std::chrono::steady_clock::now() + 20s; std::chrono::steady_clock::now() < end;)
        if (holds())
            return true;
        else
            std::this_thread::sleep_for(1ms);
    return false;
}

TEST(BackgroundWork, CallsTheCallersThreadMeanwhile) {
    const auto caller = std::this_thread::get_id();
    std::atomic<int> calls = 0;
    bool wasCalled = false;
    runInBackground([&] { wasCalled = waitFor([&] { return calls >= 3; }); },
                    [&] {
                        EXPECT_EQ(std::this_thread::get_id(), caller);
                        ++calls;
                    });
    EXPECT_TRUE(wasCalled);
}

TEST(BackgroundWork, ThrowsWhatTheWorkThrew) {
    EXPECT_THROW(runInBackground([] { throw Failure(FailureNumber::deviceIoError); }, [] {}), Failure);
}

TEST(BackgroundWork, EndsAfterTheWorkEvenIfMeanwhileThrows) {
    std::atomic<bool> hasThrown = false;
    bool isDone = false;
    const auto work = [&] {
        waitFor([&] { return hasThrown.load(); });
        std::this_thread::sleep_for(20ms);
        isDone = true;
    };
    EXPECT_THROW(runInBackground(work,
                                 [&] {
                                     hasThrown = true;
                                     throw Failure(FailureNumber::outOfMemory);
                                 }),
                 Failure);
    EXPECT_TRUE(isDone);
}

} // namespace
} // namespace brindlewick
