#pragma once
// The anchor of a help page as it may go on a browser's command line.
#include <string>
#include <string_view>

namespace tessel {

// "#" and a topic of letters, digits, "_", "-" and "."; anything else (a quote would end the
// argument) gives "" and the page opens at its start.
std::wstring SafeHelpAnchor(std::wstring_view anchor);

}  // namespace tessel
