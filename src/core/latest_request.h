#pragma once
// A hand-over from the user-interface thread to one worker where only the latest request
// matters: a request put while the worker is busy replaces any that waits, and the worker can
// ask whether what it works on is still wanted.
#include <condition_variable>
#include <cstdint>
#include <mutex>
#include <optional>

namespace tessel {

template <class Request>
class LatestRequest {
public:
    // Returns the request's number; every later request has a higher one.
    uint64_t Put(Request request) {
        std::lock_guard lock(mutex_);
        waiting_ = std::move(request);
        const uint64_t number = ++latest_;
        changed_.notify_one();
        return number;
    }

    // Blocks until a request waits or Stop was called; false after Stop.
    bool Take(Request& request, uint64_t& number) {
        std::unique_lock lock(mutex_);
        changed_.wait(lock, [this] { return stopped_ || waiting_.has_value(); });
        if (stopped_) return false;
        request = std::move(*waiting_);
        waiting_.reset();
        number = latest_;
        return true;
    }

    // False once a newer request was put or the worker is to stop.
    bool IsCurrent(uint64_t number) const {
        std::lock_guard lock(mutex_);
        return !stopped_ && number == latest_;
    }

    void Stop() {
        std::lock_guard lock(mutex_);
        stopped_ = true;
        changed_.notify_all();
    }

private:
    mutable std::mutex mutex_;
    std::condition_variable changed_;
    std::optional<Request> waiting_;
    uint64_t latest_ = 0;
    bool stopped_ = false;
};

}  // namespace tessel
