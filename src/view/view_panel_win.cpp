#include "view/view_panel_win.h"

#include <shlobj.h>

#include <cwchar>

#include "core/language_packs_win.h"
#include "res/resource.h"

namespace tessel {
namespace {

std::wstring NameOf(PCIDLIST_ABSOLUTE pidl) {
    PWSTR name = nullptr;
    if (FAILED(SHGetNameFromIDList(pidl, SIGDN_DESKTOPABSOLUTEPARSING, &name))) return {};
    std::wstring result = name;
    CoTaskMemFree(name);
    // Special folders parse as "::{guid}"; show their display name instead.
    if (result.rfind(L"::", 0) == 0 && SUCCEEDED(SHGetNameFromIDList(pidl, SIGDN_NORMALDISPLAY, &name))) {
        result = name;
        CoTaskMemFree(name);
    }
    return result;
}

}  // namespace

bool CPloder::Create(HWND parent) {
    return CreateWindowOf(L"TesselViewPanel", WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN | WS_TABSTOP,
                          WS_EX_CONTROLPARENT | WS_EX_STATICEDGE, L"", 0, 0, 0, 0, parent,
                          reinterpret_cast<HMENU>(static_cast<INT_PTR>(1000 + viewNumber_))) != nullptr;
}

bool CPloder::NavigateToText(const std::wstring& path) {
    PIDLIST_ABSOLUTE pidl = nullptr;
    if (FAILED(SHParseDisplayName(path.c_str(), nullptr, &pidl, 0, nullptr))) return false;
    return Show(win::UniquePidl(pidl));
}

bool CPloder::NavigateToSpecial(int csidl) {
    PIDLIST_ABSOLUTE pidl = nullptr;
    if (FAILED(SHGetFolderLocation(nullptr, csidl, nullptr, 0, &pidl))) return false;
    return Show(win::UniquePidl(pidl));
}

bool CPloder::Show(win::UniquePidl pidl) {
    location_ = std::move(pidl);
    locationName_ = NameOf(location_.get());
    if (hwnd()) {
        SetWindowTextW(hwnd(), locationName_.c_str());  // readable by tests and accessibility tools
        InvalidateRect(hwnd(), nullptr, TRUE);
    }
    return true;
}

void CPloder::Refresh() {
    if (location_) locationName_ = NameOf(location_.get());
    InvalidateRect(hwnd(), nullptr, TRUE);
}

void CPloder::Paint() {
    PAINTSTRUCT ps;
    HDC dc = BeginPaint(hwnd(), &ps);
    RECT client;
    GetClientRect(hwnd(), &client);
    FillRect(dc, &client, GetSysColorBrush(COLOR_WINDOW));
    if (!titleFont_) {
        NONCLIENTMETRICSW metrics{sizeof(metrics)};
        SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof(metrics), &metrics, 0);
        metrics.lfMessageFont.lfWeight = FW_BOLD;
        titleFont_.reset(CreateFontIndirectW(&metrics.lfMessageFont));
    }
    SetBkMode(dc, TRANSPARENT);
    SetTextColor(dc, GetSysColor(COLOR_WINDOWTEXT));
    wchar_t title[64];
    std::swprintf(title, 64, GetText(IDS_VIEW_NUMBER).c_str(), viewNumber_);
    RECT line = client;
    InflateRect(&line, -win::Scaled(hwnd(), 12), -win::Scaled(hwnd(), 10));
    HGDIOBJ old = SelectObject(dc, titleFont_.get());
    DrawTextW(dc, title, -1, &line, DT_LEFT | DT_TOP | DT_SINGLELINE | DT_NOPREFIX);
    SelectObject(dc, GetStockObject(DEFAULT_GUI_FONT));
    line.top += win::Scaled(hwnd(), 24);
    std::wstring where = location_ ? locationName_ : GetText(IDS_VIEW_NOTHING);
    DrawTextW(dc, where.c_str(), -1, &line, DT_LEFT | DT_TOP | DT_WORDBREAK | DT_NOPREFIX | DT_PATH_ELLIPSIS);
    SelectObject(dc, old);
    EndPaint(hwnd(), &ps);
}

LRESULT CPloder::HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_PAINT:
        Paint();
        return 0;
    case WM_ERASEBKGND:
        return 1;
    case WM_LBUTTONDOWN:
        SetFocus(hwnd());
        return 0;
    case WM_SETFOCUS:
    case WM_KILLFOCUS:
        InvalidateRect(hwnd(), nullptr, FALSE);
        break;
    }
    return Default(message, wParam, lParam);
}

}  // namespace tessel
