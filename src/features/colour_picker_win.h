#pragma once
// The system's colour dialog wherever a colour is chosen, with the user's sixteen custom
// colours kept in the settings file between uses and between runs.
#include <windows.h>

namespace tessel {

// `colour` is a COLORREF value or kNoColour on entry; true with the choice when the user chose.
bool PickColour(HWND owner, int& colour);

}  // namespace tessel
