#pragma once
// How sizes are written: the size column (units and decimals chosen in "X-Size") and the
// general form of the status bar and similar places.
#include <cstdint>
#include <string>
#include <string_view>

namespace tessel {

class ISettingsStore;

struct FolderSizeSettings {  // section "X-Size", read once per process
    int mode = 0;
    int fld_size = 0;
    int type = 1;  // 0 automatic, 1 bytes, 2 KB, 3 MB
    int ths_sep = 1;
    int dig = 0;   // decimals plus one
    int precent = 1;
    int ff_cnt = 1;
    int block_no_focus = 1;
    int nosort_fld_size = 1;
};

FolderSizeSettings ReadFolderSizeSettings(ISettingsStore& settings);

// The setting of key `key` in `settings`; null for a key of no folder-size setting.
int* FolderSizeField(FolderSizeSettings& settings, std::wstring_view key);

// "1234567" with `separator` every three digits of the integer part; an empty separator leaves it.
std::wstring GroupThousands(std::wstring_view number, std::wstring_view separator);

// The size column's text of a byte count.
std::wstring FormatColumnSize(uint64_t bytes, const FolderSizeSettings& settings, std::wstring_view separator);
// A folder's share of the largest folder size found, 0 while that is 0.
double SizeShare(uint64_t bytes, uint64_t largest);

// "999 Byte", "0.98 KB", "1.40 GB": decimal thresholds, binary units, two to no decimals.
std::wstring FormatSize(uint64_t bytes);

}  // namespace tessel
