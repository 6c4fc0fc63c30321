#include "frame/app_module_win.h"

namespace tessel {

int MessageLoop::Run() {
    MSG message;
    for (;;) {
        BOOL got = GetMessageW(&message, nullptr, 0, 0);
        if (got == 0) return static_cast<int>(message.wParam);
        if (got == -1) return -1;
        bool handled = false;
        for (auto it = filters_.rbegin(); it != filters_.rend() && !handled; ++it) handled = (*it)->PreTranslate(message);
        if (handled) continue;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

void AppModule::AddLoop(DWORD threadId, MessageLoop* loop) {
    std::lock_guard guard(lock_);
    loops_.emplace_back(threadId, loop);
}

void AppModule::RemoveLoop(DWORD threadId) {
    std::lock_guard guard(lock_);
    std::erase_if(loops_, [&](const auto& entry) { return entry.first == threadId; });
}

MessageLoop* AppModule::LoopOf(DWORD threadId) {
    std::lock_guard guard(lock_);
    for (auto& [id, loop] : loops_)
        if (id == threadId) return loop;
    return nullptr;
}

AppModule& Module() {
    static AppModule module;
    return module;
}

}  // namespace tessel
