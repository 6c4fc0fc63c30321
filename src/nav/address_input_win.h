#pragma once
// Typed address bar input resolved by the shell: the text as a folder's path first, then the
// desktop parser's forms; none when nothing parses (the view stays where it is).
#include <string>

#include "win/handles_win.h"

namespace tessel {

win::UniquePidl ResolveTypedAddress(const std::wstring& typed);

}  // namespace tessel
