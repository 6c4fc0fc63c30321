#pragma once
// The system's drop-down of suggestions under an edit field, fed from a list of texts that is
// asked again each time the field starts suggesting.
#include <windows.h>

#include <functional>
#include <string>
#include <vector>

namespace tessel::win {

using SuggestionSource = std::function<std::vector<std::wstring>()>;

// False when the system offers no suggestion drop-down; the field then works without one.
// The system keeps the drop-down as long as the field exists.
bool AttachTextSuggestions(HWND edit, SuggestionSource source);

}  // namespace tessel::win
