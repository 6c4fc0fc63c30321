#include "view/click_sound_win.h"

#include <windows.h>
#include <mmsystem.h>

#include <condition_variable>
#include <mutex>
#include <thread>

#include "res/resource.h"

namespace tessel {
namespace {

class ClickPlayer {
public:
    ClickPlayer() {
        HMODULE module = GetModuleHandleW(nullptr);
        if (HRSRC found = FindResourceW(module, MAKEINTRESOURCEW(IDR_CLICK_SOUND), L"WAVE"))
            sound_ = LockResource(LoadResource(module, found));  // resources live as long as the program
        thread_ = std::jthread([this](std::stop_token stop) { Run(stop); });
    }
    ~ClickPlayer() {
        {
            std::lock_guard lock(mutex_);  // so the thread cannot miss the stop between its check and its wait
            thread_.request_stop();
        }
        wake_.notify_one();
    }
    void Play() {
        {
            std::lock_guard lock(mutex_);
            pending_ = true;
        }
        wake_.notify_one();
    }

private:
    void Run(std::stop_token stop) {
        std::unique_lock lock(mutex_);
        while (!stop.stop_requested()) {
            wake_.wait(lock, [&] { return pending_ || stop.stop_requested(); });
            if (stop.stop_requested()) break;
            pending_ = false;  // clicks asked for while one plays are one click
            lock.unlock();
            if (sound_) PlaySoundW(static_cast<LPCWSTR>(sound_), nullptr, SND_MEMORY | SND_SYNC | SND_NODEFAULT);
            lock.lock();
        }
    }

    const void* sound_ = nullptr;
    std::mutex mutex_;
    std::condition_variable wake_;
    bool pending_ = false;
    std::jthread thread_;  // last: it starts once the rest is ready
};

}  // namespace

void PlayNavigationClick() {
    static ClickPlayer player;  // made at the first click, ended with the program
    player.Play();
}

}  // namespace tessel
