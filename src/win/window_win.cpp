#include "win/window_win.h"

namespace tessel::win {

Window::~Window() {
    if (hwnd_) {
        SetWindowLongPtrW(hwnd_, GWLP_USERDATA, 0);
        DestroyWindow(hwnd_);
    }
}

HWND Window::CreateWindowOf(const wchar_t* className, DWORD style, DWORD exStyle, const wchar_t* title, int x,
                            int y, int width, int height, HWND parent, HMENU menuOrId, UINT classStyle, HICON icon) {
    HINSTANCE instance = GetModuleHandleW(nullptr);
    WNDCLASSEXW existing{sizeof(existing)};
    if (!GetClassInfoExW(instance, className, &existing)) {
        WNDCLASSEXW wc{sizeof(wc)};
        wc.style = classStyle;
        wc.lpfnWndProc = &Window::Procedure;
        wc.hInstance = instance;
        wc.hCursor = LoadCursorW(nullptr, IDC_ARROW);
        wc.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1);
        wc.lpszClassName = className;
        wc.hIcon = icon;
        wc.hIconSm = icon;
        RegisterClassExW(&wc);
    }
    return CreateWindowExW(exStyle, className, title, style, x, y, width, height, parent, menuOrId, instance, this);
}

LRESULT Window::HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) { return Default(message, wParam, lParam); }

LRESULT CALLBACK Window::Procedure(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_NCCREATE) {
        auto* self = static_cast<Window*>(reinterpret_cast<CREATESTRUCTW*>(lParam)->lpCreateParams);
        self->hwnd_ = hwnd;
        SetWindowLongPtrW(hwnd, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(self));
    }
    auto* self = reinterpret_cast<Window*>(GetWindowLongPtrW(hwnd, GWLP_USERDATA));
    if (!self) return DefWindowProcW(hwnd, message, wParam, lParam);
    LRESULT result = self->HandleMessage(message, wParam, lParam);
    if (message == WM_NCDESTROY) {
        SetWindowLongPtrW(hwnd, GWLP_USERDATA, 0);
        self->hwnd_ = nullptr;
        self->OnFinalMessage();
    }
    return result;
}

double DpiScaleOf(HWND hwnd) {
    // GetDpiForWindow exists from Windows 10 1607; older systems and failures fall back to the DC.
    using GetDpiForWindowFn = UINT(WINAPI*)(HWND);
    static auto getDpi = reinterpret_cast<GetDpiForWindowFn>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"user32.dll"), "GetDpiForWindow")));
    UINT dpi = getDpi && hwnd ? getDpi(hwnd) : 0;
    if (!dpi) {
        HDC dc = GetDC(nullptr);
        dpi = static_cast<UINT>(GetDeviceCaps(dc, LOGPIXELSX));
        ReleaseDC(nullptr, dc);
    }
    return dpi ? dpi / 96.0 : 1.0;
}

int Scaled(HWND hwnd, int pixelsAt96) { return MulDiv(pixelsAt96, static_cast<int>(DpiScaleOf(hwnd) * 96 + 0.5), 96); }

std::wstring WindowText(HWND window) {
    std::wstring text(static_cast<size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
    text.resize(static_cast<size_t>(GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
    return text;
}

}  // namespace tessel::win
