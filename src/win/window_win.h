#pragma once
// Base of every window class of the program: registers the class once and routes messages to
// the C++ object that owns the window.
#include <windows.h>

#include <string>

namespace tessel::win {

class Window {
public:
    Window() = default;
    Window(const Window&) = delete;
    Window& operator=(const Window&) = delete;
    virtual ~Window();

    HWND hwnd() const { return hwnd_; }

protected:
    // Creates the window of a class registered on first use with the given style bits.
    HWND CreateWindowOf(const wchar_t* className, DWORD style, DWORD exStyle, const wchar_t* title, int x, int y,
                        int width, int height, HWND parent, HMENU menuOrId, UINT classStyle = CS_HREDRAW | CS_VREDRAW,
                        HICON icon = nullptr);
    virtual LRESULT HandleMessage(UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT Default(UINT message, WPARAM wParam, LPARAM lParam) { return DefWindowProcW(hwnd_, message, wParam, lParam); }
    // Called after WM_NCDESTROY; the object may delete itself here.
    virtual void OnFinalMessage() {}

private:
    static LRESULT CALLBACK Procedure(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam);
    HWND hwnd_ = nullptr;
};

std::wstring WindowText(HWND window);

double DpiScaleOf(HWND hwnd);  // 1.0 at 96 dots per inch
int Scaled(HWND hwnd, int pixelsAt96);

}  // namespace tessel::win
