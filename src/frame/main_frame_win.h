#pragma once
// The main window of an instance: menu, status bar and the four T-View panels, which it owns
// for its whole life. It decides at creation what the T-Views show and runs the close logic.
#include <array>
#include <memory>
#include <string>

#include "frame/app_module_win.h"
#include "frame/command_line.h"
#include "frame/last_state.h"
#include "frame/parking_win.h"
#include "view/view_panel_win.h"
#include "win/window_win.h"

namespace tessel {

inline constexpr wchar_t kMainFrameClass[] = L"TesselMainFrame";

class CMainFrame : public win::Window, public IMessageFilter {
public:
    CMainFrame(std::wstring commandLine, int instanceNumber);
    ~CMainFrame() override;

    bool CreateFrame(int showCommand);
    bool PreTranslate(MSG& message) override;

    // Folder-set files: loaded with openedByUser when the user chose the file.
    bool LoadFolderSet(const std::wstring& path, bool openedByUser);
    bool SaveFolderSet(const std::wstring& path);
    void SaveViewSettings();

    CPloder& Panel(int number) { return *panels_[number - 1]; }  // 1..4
    int InstanceNumber() const { return instanceNumber_; }

protected:
    LRESULT HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    bool OnCreate();
    void ApplyCommandLine();
    void FillEmptyViews();
    void Layout();
    void OnCommand(int id, LPARAM lParam);
    void OnInitMenuPopup(HMENU menu);
    void ReplaceMenu();
    void SetLanguage(int languageId);
    void ShowStatusBar(bool show);
    void ShowAbout();
    void StartFurtherInstance();

    void RequestClose();
    void SaveStateOnce();
    void FinishAndQuit();
    void CheckParkedDialogs();
    void OnTrayIcon(LPARAM event);
    void ForcedEnd();

    std::wstring commandLine_;
    int instanceNumber_;
    int treeMode_ = 0;
    std::array<std::unique_ptr<CPloder>, kViewCount> panels_;
    HWND statusBar_ = nullptr;
    HACCEL accelerators_ = nullptr;
    LastStateSaver lastState_;
    TrayIcon tray_;
};

}  // namespace tessel
