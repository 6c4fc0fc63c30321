#pragma once
// Files written so that a failed write never damages the file that was there before, and read whole.
#include <string>

namespace tessel::win {

// Writes beside the target first, then moves the new file over it.
bool WriteFileReplacing(const std::wstring& path, const std::string& bytes);
// The whole file; false when it cannot be read or is larger than `limit` bytes.
bool ReadFileBytes(const std::wstring& path, size_t limit, std::string& bytes);
// The text as UTF-16LE after a byte-order mark, the form Tessel writes its text files in.
bool WriteUnicodeFile(const std::wstring& path, const std::wstring& text);

}  // namespace tessel::win
