#pragma once
// A T-View panel. At this stage it shows which location its T-View was given; the folder
// browser that fills it comes with the browser view.
#include <string>

#include "win/handles_win.h"
#include "win/window_win.h"

namespace tessel {

class CPloder : public win::Window {
public:
    explicit CPloder(int viewNumber) : viewNumber_(viewNumber) {}
    bool Create(HWND parent);

    // Parses a typed path; an unknown location leaves the panel as it was and answers false.
    bool NavigateToText(const std::wstring& path);
    bool NavigateToSpecial(int csidl);
    bool HasLocation() const { return static_cast<bool>(location_); }
    const std::wstring& LocationName() const { return locationName_; }
    int ViewNumber() const { return viewNumber_; }
    void Refresh();

protected:
    LRESULT HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    bool Show(win::UniquePidl pidl);
    void Paint();

    int viewNumber_;
    win::UniquePidl location_;
    std::wstring locationName_;
    win::UniqueFont titleFont_;
};

}  // namespace tessel
