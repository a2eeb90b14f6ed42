// Runs jobs on worker threads ahead of the thread that takes their results, and returns the results in the
// order of the jobs.
#pragma once

#include "platform/failure.h"

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <functional>
#include <list>
#include <memory>
#include <mutex>
#include <optional>
#include <system_error>
#include <thread>
#include <utility>
#include <vector>

namespace brindlewick {

/// One thread, the owner's, adds jobs and takes outcomes. Workers start the jobs in order; each runs one at a
/// time. A running job may add a job that directly follows it. Memory is bounded: while the finished results
/// take `maxHeld` bytes or more, a worker starts a job only if its outcome is the next to be taken. Jobs run
/// without a lock.
///
/// `Result` has a default constructor and `std::size_t heldBytes() const`.
template <class Job, class Result>
class OrderedJobs {
public:
    struct Outcome {
        Job job; ///< as changed by the worker
        Result result;
        std::optional<FailureNumber> failure; ///< of a job that threw; `result` is then incomplete
    };

    /// For a running job: adds the job that directly follows it.
    using AddNext = std::function<void(Job)>;
    /// Runs a job. Each worker has its own Work. The result is new, or one that was given back, with its old
    /// content.
    using Work = std::function<void(Job&, Result&, const AddNext&)>;

    /// Starts `workers` threads, at least one, or as many as the system permits. If it permits none, the jobs
    /// run on the owner's thread.
    OrderedJobs(std::size_t workers, std::size_t maxHeld, const std::function<Work()>& makeWork)
        : state_(std::make_shared<State>()) {
        state_->maxHeld = maxHeld;
        state_->spares.reserve(maxSpares);
        spares_.reserve(maxSpares);
        ownWork_ = makeWork();
        workers = std::max<std::size_t>(workers, 1);
        threads_.reserve(workers);
        try {
            while (threads_.size() < workers)
                threads_.emplace_back([state = state_, work = makeWork()] { runJobs(*state, work); });
        } catch (const std::system_error&) {
            // The jobs run with fewer workers.
        } catch (...) {
            stop();
            throw;
        }
    }
    /// Drops jobs that have not started. A worker that does not end soon, for example because its disk does
    /// not answer, is detached: it uses only memory that it owns or shares.
    ~OrderedJobs() { stop(); }
    OrderedJobs(const OrderedJobs&) = delete;
    OrderedJobs& operator=(const OrderedJobs&) = delete;

    /// Adds a job after all others. It starts at the next call of `take` or later.
    void addLast(Job job) { pushWaiting(added_, std::move(job)); }
    /// Adds a job before all others, to repeat one whose outcome has been taken.
    void addFirst(Job job) {
        Slots slot;
        pushWaiting(slot, std::move(job));
        const std::lock_guard lock(state_->mutex);
        for (const Slot& taken : taken_)
            state_->held += taken.held;
        state_->slots.splice(state_->slots.begin(), taken_);
        state_->slots.splice(state_->slots.begin(), slot);
        state_->next = state_->slots.begin();
        wakeWorker(*state_);
    }

    /// True when every outcome has been taken.
    bool empty() const {
        const std::lock_guard lock(state_->mutex);
        return taken_.empty() && added_.empty() && state_->slots.empty();
    }

    /// The next outcome, or none after `patience`. Takes all finished outcomes from the workers at once.
    /// While it waits, workers wake it for a number of outcomes rather than for each, because jobs may be
    /// short.
    std::optional<Outcome> take(std::chrono::milliseconds patience) {
        if (taken_.empty() || added_.size() >= maxAddedUnknown)
            fetch(taken_.empty() ? patience : patience.zero());
        if (taken_.empty())
            return std::nullopt;
        std::optional<Outcome> outcome(std::move(taken_.front().outcome));
        taken_.pop_front();
        return outcome;
    }

    /// Returns the memory of a result for a later job. Reused memory stays mapped and in the cache; new
    /// memory for every result costs a tenth of the time.
    void giveBack(Result&& result) {
        if (spares_.size() < maxSpares && result.heldBytes() <= maxSpareBytes)
            spares_.push_back(std::move(result));
    }

private:
    static constexpr std::size_t maxSpares = 16;
    static constexpr std::size_t maxSpareBytes = std::size_t{1} << 20;
    static constexpr std::size_t maxAddedUnknown = 32; ///< jobs that have not been passed to the workers
    static constexpr std::chrono::milliseconds patienceAtEnd{50};

    enum class Stage { waiting, running, done };
    struct Slot {
        Outcome outcome;
        Stage stage = Stage::waiting;
        std::size_t held = 0; ///< bytes
    };
    using Slots = std::list<Slot>;

    struct State {
        std::mutex mutex;
        std::condition_variable jobsReady;
        std::condition_variable outcomesReady;
        std::condition_variable workerLeft;
        Slots slots;                                 ///< in the order of the jobs
        typename Slots::iterator next = slots.end(); ///< the first that is waiting
        std::vector<Result> spares;
        std::size_t held = 0; ///< bytes of all finished results
        std::size_t maxHeld = 0;
        std::size_t idle = 0; ///< workers
        std::size_t left = 0; ///< workers that have ended
        bool isOwnerWaiting = false;
        bool isStopping = false;
    };

    static void pushWaiting(Slots& slots, Job&& job) {
        slots.push_back({{std::move(job), Result(), std::nullopt}, Stage::waiting, 0});
    }

    /// Passes jobs and spare memory to the workers, and takes outcomes from them.
    void fetch(std::chrono::milliseconds patience) {
        std::unique_lock lock(state_->mutex);
        State& state = *state_;
        for (; !spares_.empty() && state.spares.size() < maxSpares; spares_.pop_back())
            state.spares.push_back(std::move(spares_.back()));
        if (!added_.empty() && state.next == state.slots.end())
            state.next = added_.begin();
        state.slots.splice(state.slots.end(), added_);
        if (state.slots.empty())
            return;
        wakeWorker(state);
        if (threads_.empty() && state.slots.front().stage == Stage::waiting)
            runFirst(state, ownWork_, lock);
        if (state.slots.front().stage != Stage::done && patience > patience.zero()) {
            state.isOwnerWaiting = true;
            state.outcomesReady.wait_for(lock, patience, [&state] { return !state.isOwnerWaiting; });
            state.isOwnerWaiting = false;
        }
        auto end = state.slots.begin();
        for (; end != state.slots.end() && end->stage == Stage::done; ++end)
            state.held -= end->held;
        taken_.splice(taken_.end(), state.slots, state.slots.begin(), end);
        wakeWorker(state);
    }

    static bool mayBegin(const State& state) {
        return state.next != state.slots.end() &&
               (state.held < state.maxHeld || state.next == state.slots.begin());
    }

    static void wakeWorker(State& state) {
        if (state.idle > 0 && mayBegin(state))
            state.jobsReady.notify_one();
    }

    static void wakeOwner(State& state) {
        if (std::exchange(state.isOwnerWaiting, false))
            state.outcomesReady.notify_one();
    }

    /// Runs the first waiting job.
    static void runFirst(State& state, const Work& work, std::unique_lock<std::mutex>& lock) {
        const auto slot = state.next;
        slot->stage = Stage::running;
        do {
            ++state.next;
        } while (state.next != state.slots.end() && state.next->stage != Stage::waiting);
        if (!state.spares.empty()) {
            slot->outcome.result = std::move(state.spares.back());
            state.spares.pop_back();
        }
        wakeWorker(state);
        lock.unlock();
        const AddNext addNext = [&state, slot](Job job) {
            Slots following;
            pushWaiting(following, std::move(job));
            const std::lock_guard adding(state.mutex);
            state.slots.splice(std::next(slot), following);
            const auto waits = [](const Slot& one) { return one.stage == Stage::waiting; };
            state.next = std::find_if(state.slots.begin(), state.slots.end(), waits);
            wakeWorker(state);
        };
        try {
            work(slot->outcome.job, slot->outcome.result, addNext);
        } catch (...) {
            slot->outcome.failure = currentFailure();
        }
        lock.lock();
        slot->stage = Stage::done;
        slot->held = slot->outcome.result.heldBytes();
        state.held += slot->held;
    }

    static void runJobs(State& state, const Work& work) {
        std::unique_lock lock(state.mutex);
        while (!state.isStopping) {
            if (mayBegin(state)) {
                runFirst(state, work, lock);
                if (state.held * 2 >= state.maxHeld && state.slots.front().stage == Stage::done)
                    wakeOwner(state);
                continue;
            }
            if (!state.slots.empty() && state.slots.front().stage == Stage::done)
                wakeOwner(state);
            ++state.idle;
            state.jobsReady.wait(lock);
            --state.idle;
        }
        ++state.left;
        state.workerLeft.notify_all();
    }

    void stop() noexcept {
        std::unique_lock lock(state_->mutex);
        state_->isStopping = true;
        state_->jobsReady.notify_all();
        const bool haveLeft = state_->workerLeft.wait_for(lock, patienceAtEnd,
                                                          [this] { return state_->left == threads_.size(); });
        lock.unlock();
        for (std::thread& thread : threads_) {
            if (haveLeft)
                thread.join();
            else
                thread.detach();
        }
        threads_.clear();
    }

    std::shared_ptr<State> state_; ///< shared with workers that outlive this object
    std::vector<std::thread> threads_;
    Work ownWork_;
    Slots added_; ///< not yet passed to the workers
    Slots taken_; ///< taken from the workers, not yet returned by `take`
    std::vector<Result> spares_;
};

} // namespace brindlewick
