#pragma once
// Tessel's help: HTML pages beside the executable, opened in the default browser.
#include <string>

namespace tessel {

// Opens help\index.html at the anchor ("" or "#Topic"); false when nothing could be started.
bool OpenHelp(const std::wstring& anchor);

}  // namespace tessel
