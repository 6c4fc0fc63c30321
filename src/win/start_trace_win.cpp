#include "win/start_trace_win.h"

#include <windows.h>

#include <cstdio>
#include <cstdlib>

namespace tessel {
namespace {

double MsSinceProcessCreated() {
    FILETIME created, exited, kernel, user, now;
    GetProcessTimes(GetCurrentProcess(), &created, &exited, &kernel, &user);
    GetSystemTimePreciseAsFileTime(&now);
    const auto ticks = [](const FILETIME& t) { return (static_cast<ULONGLONG>(t.dwHighDateTime) << 32) | t.dwLowDateTime; };
    return static_cast<double>(ticks(now) - ticks(created)) / 10000.0;
}

}  // namespace

void StartMark(const char* step) {
    static const char* const path = std::getenv("TESSEL_START_TRACE");
    if (!path) return;
    if (FILE* file = std::fopen(path, "a")) {
        std::fprintf(file, "%s: %.1f\n", step, MsSinceProcessCreated());
        std::fclose(file);
    }
}

}  // namespace tessel
