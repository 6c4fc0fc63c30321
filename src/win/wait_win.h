#pragma once
// Waiting on the GUI thread for a worker that may itself be waiting on a message sent to it.
#include <windows.h>

namespace tessel::win {

// Serves messages sent to this thread (never posted ones) until `object` is signalled.
inline void WaitServingSentMessages(HANDLE object) {
    while (MsgWaitForMultipleObjects(1, &object, FALSE, INFINITE, QS_SENDMESSAGE) == WAIT_OBJECT_0 + 1) {
        MSG message;
        PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE | PM_QS_SENDMESSAGE);
    }
}

}  // namespace tessel::win
