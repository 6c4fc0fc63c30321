#pragma once
// A worker thread the GUI thread never waits on for long. Stopping asks the work to end and waits
// at most a short while, serving messages sent to the GUI thread meanwhile; work still sitting in
// a slow file system (a dropped network drive) is left to end on its own, and what it then
// reports is dropped by its owner. The work must therefore hold what it uses itself.
#include <windows.h>

#include <functional>
#include <memory>
#include <stop_token>
#include <thread>

namespace tessel::win {

inline constexpr DWORD kWorkerStopLimitMs = 80;  // the GUI thread is held 100 ms at most, all told

class WorkerThread {
public:
    WorkerThread() = default;
    ~WorkerThread() { Stop(); }
    WorkerThread(const WorkerThread&) = delete;
    WorkerThread& operator=(const WorkerThread&) = delete;

    // Runs `work`; a running one is stopped first. `wake` (optional) wakes the work from a wait
    // of its own when it is to stop.
    void Start(std::function<void(std::stop_token)> work, std::function<void()> wake = nullptr);
    // True when the work ended within the limit (or none ran); false when it was left behind.
    bool Stop(DWORD limitMs = kWorkerStopLimitMs);
    bool Running() const;
    static int LeftBehind();  // works left to end on their own, for the tests

private:
    struct Shared;
    std::shared_ptr<Shared> shared_;
    std::function<void()> wake_;
    std::thread thread_;
};

}  // namespace tessel::win
