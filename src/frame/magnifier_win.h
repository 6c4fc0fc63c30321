#pragma once
// The screen magnifier: a small window above all others that shows the area under the mouse
// enlarged 2 to 8 times (the wheel or + and - change it; the zoom is kept in the settings).
#include <functional>

#include "win/window_win.h"

namespace tessel {

class CMagnifier : public win::Window {
public:
    explicit CMagnifier(std::function<void()> closed) : closed_(std::move(closed)) {}
    ~CMagnifier() override;
    bool Create(HWND owner);
    int Zoom() const { return zoom_; }
    void SetZoom(int zoom);

protected:
    LRESULT HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    void Paint(HDC target);
    void ShowZoomInTitle();

    std::function<void()> closed_;  // the window was closed by the user
    int zoom_ = 3;
};

}  // namespace tessel
