#pragma once
// The path variables of user-defined commands as the system names its folders.
#include <string>

namespace tessel {

void ExpandSystemPathVariables(std::wstring& text);

}  // namespace tessel
