#pragma once
// The module object: which message loop serves which thread, and the loop itself with its
// pre-translation filters (accelerators, dialog navigation).
#include <windows.h>

#include <mutex>
#include <utility>
#include <vector>

namespace tessel {

class IMessageFilter {
public:
    virtual ~IMessageFilter() = default;
    virtual bool PreTranslate(MSG& message) = 0;  // true: handled, not dispatched
};

class MessageLoop {
public:
    void AddFilter(IMessageFilter* filter) { filters_.push_back(filter); }
    void RemoveFilter(IMessageFilter* filter) { std::erase(filters_, filter); }
    int Run();

private:
    std::vector<IMessageFilter*> filters_;
};

class AppModule {
public:
    void AddLoop(DWORD threadId, MessageLoop* loop);
    void RemoveLoop(DWORD threadId);
    MessageLoop* LoopOf(DWORD threadId);

private:
    std::mutex lock_;
    std::vector<std::pair<DWORD, MessageLoop*>> loops_;
};

AppModule& Module();

}  // namespace tessel
