#include "frame/magnifier_win.h"

#include "core/language_packs_win.h"
#include "core/settings_store_win.h"
#include "frame/magnifier_area.h"
#include "res/resource.h"

namespace tessel {
namespace {

constexpr UINT_PTR kRefreshTimer = 1;
constexpr UINT kRefreshMs = 40;
constexpr wchar_t kSection[] = L"Lupe";

}  // namespace

CMagnifier::~CMagnifier() {
    if (hwnd()) DestroyWindow(hwnd());
}

bool CMagnifier::Create(HWND owner) {
    zoom_ = ClampZoom(Settings().GetInt(kSection, L"Zoom", kDefaultZoom));
    const int width = win::Scaled(owner, 280), height = win::Scaled(owner, 200);
    RECT work{};  // in the corner of the screen, where it covers the least
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &work, 0);
    const int margin = win::Scaled(owner, 16);
    if (!CreateWindowOf(L"TesselMagnifier", WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_THICKFRAME | WS_VISIBLE,
                        WS_EX_TOPMOST | WS_EX_TOOLWINDOW, L"", work.right - width - margin,
                        work.bottom - height - margin, width, height, owner, nullptr))
        return false;
    ShowZoomInTitle();
    SetTimer(hwnd(), kRefreshTimer, kRefreshMs, nullptr);
    return true;
}

void CMagnifier::SetZoom(int zoom) {
    zoom_ = ClampZoom(zoom);
    Settings().PutInt(kSection, L"Zoom", zoom_);
    ShowZoomInTitle();
    InvalidateRect(hwnd(), nullptr, FALSE);
}

void CMagnifier::ShowZoomInTitle() {
    const std::wstring title = GetText(ID_VIEW_MAGNIFIER) + L" " + std::to_wstring(zoom_) + L"x";
    SetWindowTextW(hwnd(), title.c_str());
}

void CMagnifier::Paint(HDC target) {
    RECT client{};
    GetClientRect(hwnd(), &client);
    POINT mouse{};
    GetCursorPos(&mouse);
    const Area screen{GetSystemMetrics(SM_XVIRTUALSCREEN), GetSystemMetrics(SM_YVIRTUALSCREEN),
                      GetSystemMetrics(SM_CXVIRTUALSCREEN), GetSystemMetrics(SM_CYVIRTUALSCREEN)};
    const Area area = MagnifiedArea(mouse.x, mouse.y, client.right, client.bottom, zoom_, screen);
    HDC desktop = GetDC(nullptr);
    SetStretchBltMode(target, COLORONCOLOR);  // whole pixels, as a magnifier should show them
    StretchBlt(target, 0, 0, area.width * zoom_, area.height * zoom_, desktop, area.left, area.top, area.width,
               area.height, SRCCOPY);
    ReleaseDC(nullptr, desktop);
}

LRESULT CMagnifier::HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_TIMER:
        if (wParam == kRefreshTimer) {
            HDC dc = GetDC(hwnd());
            Paint(dc);
            ReleaseDC(hwnd(), dc);
        }
        return 0;
    case WM_PAINT: {
        PAINTSTRUCT paint;
        HDC dc = BeginPaint(hwnd(), &paint);
        Paint(dc);
        EndPaint(hwnd(), &paint);
        return 0;
    }
    case WM_ERASEBKGND:
        return 1;
    case WM_MOUSEWHEEL:
        SetZoom(zoom_ + (GET_WHEEL_DELTA_WPARAM(wParam) > 0 ? 1 : -1));
        return 0;
    case WM_CHAR:
        if (wParam == L'+') SetZoom(zoom_ + 1);
        if (wParam == L'-') SetZoom(zoom_ - 1);
        return 0;
    case WM_CLOSE:
        if (closed_) closed_();  // the owner lets go of this object, which destroys the window
        return 0;
    case WM_DESTROY:
        KillTimer(hwnd(), kRefreshTimer);
        break;
    }
    return Default(message, wParam, lParam);
}

}  // namespace tessel
