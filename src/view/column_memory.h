#pragma once
// Columns, widths and sort order are remembered per kind of folder: the shell view's opaque
// state stream is kept under a column key and stored in the settings as "%XX" hex pairs followed
// by "|CODEMODE1|<check value>|<byte count>".
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tessel {

inline constexpr size_t kColumnStreamLimit = 4096;  // bytes kept of one stream

// Over the bytes taken as signed 8-bit numbers: h = h * b for b != 0, then h = h + b (mod 2^32).
int32_t ColumnCheckValue(const uint8_t* bytes, size_t count);

// Stored-value text of the first 4,096 bytes.
std::wstring EncodeColumnValue(const std::vector<uint8_t>& bytes);

// False for a value of the wrong form, a wrong count or a check value that does not match.
bool DecodeColumnValue(std::wstring_view text, std::vector<uint8_t>& bytes);

// "Spatlen_<name>" for folders named by class identifier, "Spatlen_<count>" for folders with
// detail columns (folders with the same columns share one memory), "Spatlen_FTP" for ftp
// locations without columns, and "" for folders without column memory.
std::wstring ColumnKey(std::wstring_view parsingName, int columnCount);
// False for folders named by class identifier: their key does not depend on the column count.
bool ColumnKeyNeedsCount(std::wstring_view parsingName);

// "Column_OS_<major>.<minor>_<panel name>": remembered separately per system version.
std::wstring ColumnSectionName(int major, int minor, std::wstring_view panelName);

}  // namespace tessel
