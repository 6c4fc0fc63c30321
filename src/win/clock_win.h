#pragma once
// A millisecond clock fine enough for limits of a few ms: the tick count moves in steps of up to
// 16 ms.
#include <windows.h>

namespace tessel::win {

inline double NowMs() {
    static const double perMs = [] {
        LARGE_INTEGER frequency;
        QueryPerformanceFrequency(&frequency);
        return frequency.QuadPart / 1000.0;
    }();
    LARGE_INTEGER counter;
    QueryPerformanceCounter(&counter);
    return counter.QuadPart / perMs;
}

}  // namespace tessel::win
