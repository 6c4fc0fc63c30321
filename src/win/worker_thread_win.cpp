#include "win/worker_thread_win.h"

#include <atomic>

#include "win/handles_win.h"
#include "win/wait_win.h"

namespace tessel::win {

struct WorkerThread::Shared {
    std::stop_source stop;
    UniqueHandle finished{CreateEventW(nullptr, TRUE, FALSE, nullptr)};
};

namespace {

std::atomic<int> g_leftBehind{0};

}  // namespace

void WorkerThread::Start(std::function<void(std::stop_token)> work, std::function<void()> wake) {
    Stop();
    shared_ = std::make_shared<Shared>();
    wake_ = std::move(wake);
    thread_ = std::thread([shared = shared_, work = std::move(work)] {
        work(shared->stop.get_token());
        SetEvent(shared->finished.get());
    });
}

bool WorkerThread::Stop(DWORD limitMs) {
    if (!thread_.joinable()) return true;
    shared_->stop.request_stop();
    if (wake_) wake_();
    const bool ended = WaitServingSentMessages(shared_->finished.get(), limitMs);  // the work may send
    if (ended) {
        thread_.join();
    } else {
        thread_.detach();  // it holds its own share of what it uses
        ++g_leftBehind;
    }
    shared_.reset();
    wake_ = nullptr;
    return ended;
}

bool WorkerThread::Running() const {
    return thread_.joinable() && WaitForSingleObject(shared_->finished.get(), 0) == WAIT_TIMEOUT;
}

int WorkerThread::LeftBehind() { return g_leftBehind; }

}  // namespace tessel::win
