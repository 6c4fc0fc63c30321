#pragma once
// Entry and exit of the program: libraries, settings store, instance number, main frame,
// message loop, and tear-down in reverse order.
#include <windows.h>

#include <string>

namespace tessel {

int Entry(HINSTANCE instance, const wchar_t* commandLine, int showCommand);
int Run(const std::wstring& commandLine, int showCommand);

}  // namespace tessel
