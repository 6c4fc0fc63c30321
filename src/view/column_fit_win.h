#pragma once
// Columns that no memory sizes are sized to what they show: the widest text of the first rows
// and the header, so that dates and folder sizes are not cut. Only the first rows are read, so a
// folder of 100,000 files costs the same as one of a hundred.
#include <windows.h>

namespace tessel {

inline constexpr int kColumnFitRows = 60;  // at most: the rows a page shows are read

// Sizes every column of a list in details mode (`onlyColumn` >= 0: that one). With `widenOnly`
// no column gets narrower. The first column (names) takes at most half of the list's width.
// False when the list shows no columns or no rows yet.
bool FitColumnsToContent(HWND list, bool widenOnly, int onlyColumn = -1);

}  // namespace tessel
