#pragma once
// Subclassing by replacing a window's procedure, with the replaced procedures kept in one
// program-wide table keyed by window handle, so that many windows can be subclassed at once.
// The common controls' own subclass chain looks its data up as a window property on every
// message, which under Wine is a round trip to the server: about 0.1 ms for each message a list
// receives, seconds when a status pass reads a large list.
#include <windows.h>

namespace tessel::win {

using SubclassProc = LRESULT (*)(HWND window, UINT message, WPARAM wParam, LPARAM lParam, void* data);

// Routes the window's messages to `procedure` first; false when it is subclassed already.
bool Subclass(HWND window, SubclassProc procedure, void* data);
// Stops routing. When another procedure was put in front meanwhile, the entry stays as a plain
// pass-through until the window is destroyed, so that chain keeps working.
void Unsubclass(HWND window);
// The window's procedure from before Subclass: what a handler calls for default handling.
LRESULT CallOriginal(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
int SubclassedCount();  // entries in the table, for the leak tests

}  // namespace tessel::win
