#pragma once
// Image lists drawn by the program: one strip of square pictures on a mask colour.
#include <windows.h>
#include <commctrl.h>

#include <functional>

namespace tessel::win {

inline constexpr COLORREF kImageMask = RGB(255, 0, 255);

// `draw(dc, left)` paints picture number left / size at x = left; the caller owns the list.
HIMAGELIST DrawImageStrip(int count, int size, const std::function<void(HDC, int, int)>& draw);

}  // namespace tessel::win
