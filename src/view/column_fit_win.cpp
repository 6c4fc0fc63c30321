#include "view/column_fit_win.h"

#include <commctrl.h>

#include <algorithm>
#include <string>

#include "win/window_win.h"

namespace tessel {
namespace {

int TextWidth(HDC dc, const wchar_t* text) {
    SIZE extent{};
    GetTextExtentPoint32W(dc, text, lstrlenW(text), &extent);
    return extent.cx;
}

// The widest of the column's header and its texts in the first rows.
int ContentWidth(HWND list, HDC dc, int column, int rows) {
    wchar_t text[520] = {};
    LVCOLUMNW header{LVCF_TEXT};
    header.pszText = text;
    header.cchTextMax = 520;
    int widest = ListView_GetColumn(list, column, &header) ? TextWidth(dc, text) : 0;
    for (int row = 0; row < rows; ++row) {
        text[0] = 0;
        ListView_GetItemText(list, row, column, text, 520);
        widest = std::max(widest, TextWidth(dc, text));
    }
    return widest;
}

}  // namespace

bool FitColumnsToContent(HWND list, bool widenOnly, int onlyColumn) {
    if (!list || (GetWindowLongPtrW(list, GWL_STYLE) & LVS_TYPEMASK) != LVS_REPORT) return false;
    HWND header = ListView_GetHeader(list);
    const int columns = header ? Header_GetItemCount(header) : 0;
    // The rows in sight: every text read is a call into the shell's view.
    const int page = std::max(1, ListView_GetCountPerPage(list));
    const int rows = std::min({ListView_GetItemCount(list), page + 1, kColumnFitRows});
    if (columns <= 0 || rows <= 0) return false;
    HDC dc = GetDC(list);
    if (!dc) return false;
    HGDIOBJ old = SelectObject(dc, reinterpret_cast<HFONT>(SendMessageW(list, WM_GETFONT, 0, 0)));
    RECT client{};
    GetClientRect(list, &client);
    // Margins each side of the text, the sort arrow's room, and the first column's icon.
    const int margin = win::Scaled(list, 20);
    const int icon = GetSystemMetrics(SM_CXSMICON) + win::Scaled(list, 6);
    for (int column = 0; column < columns; ++column) {
        if (onlyColumn >= 0 && column != onlyColumn) continue;
        int wanted = ContentWidth(list, dc, column, rows) + margin + (column == 0 ? icon : 0);
        if (column == 0) wanted = std::min<int>(wanted, std::max<int>(win::Scaled(list, 120), client.right / 2));
        const int now = ListView_GetColumnWidth(list, column);
        if (now > 0 && (widenOnly ? wanted > now : wanted != now)) ListView_SetColumnWidth(list, column, wanted);
    }
    SelectObject(dc, old);
    ReleaseDC(list, dc);
    return true;
}

}  // namespace tessel
