#pragma once
// Text files as users bring them: UTF-16 with its mark, UTF-8, or the system's code page.
#include <string>

namespace tessel {

// "" when the file cannot be read or is larger than `limit` bytes.
std::wstring ReadUserTextFile(const std::wstring& path, size_t limit);

}  // namespace tessel
