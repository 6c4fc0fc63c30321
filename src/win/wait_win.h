#pragma once
// Waiting on the GUI thread for a worker that may itself be waiting on a message sent to it.
#include <windows.h>

namespace tessel::win {

// Serves messages sent to this thread (never posted ones) until `object` is signalled or
// `limitMs` has passed; true when it was signalled.
inline bool WaitServingSentMessages(HANDLE object, DWORD limitMs = INFINITE) {
    const DWORD start = GetTickCount();
    for (;;) {
        const DWORD spent = GetTickCount() - start;
        if (limitMs != INFINITE && spent >= limitMs) return WaitForSingleObject(object, 0) == WAIT_OBJECT_0;
        const DWORD left = limitMs == INFINITE ? INFINITE : limitMs - spent;
        const DWORD woke = MsgWaitForMultipleObjects(1, &object, FALSE, left, QS_SENDMESSAGE);
        if (woke == WAIT_OBJECT_0) return true;
        if (woke != WAIT_OBJECT_0 + 1) return WaitForSingleObject(object, 0) == WAIT_OBJECT_0;
        MSG message;
        PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE | PM_QS_SENDMESSAGE);
    }
}

}  // namespace tessel::win
