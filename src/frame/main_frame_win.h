#pragma once
// The main window of an instance: menu, status bar and the four T-View panels, which it owns
// for its whole life. It decides at creation what the T-Views show and runs the close logic.
#include <array>
#include <memory>
#include <string>

#include "frame/app_module_win.h"
#include "frame/command_line.h"
#include "frame/focus_follower_win.h"
#include "frame/folder_set.h"
#include "frame/layout_toolbar_win.h"
#include "features/preview_pane_win.h"
#include "frame/magnifier_win.h"
#include "frame/options_dialog_win.h"
#include "frame/view_layout.h"
#include "nav/favorites_menu_win.h"
#include "nav/folder_tree_win.h"
#include "frame/last_state.h"
#include "frame/parking_win.h"
#include "panel/view_panel_win.h"
#include "win/window_win.h"

namespace tessel {

inline constexpr wchar_t kMainFrameClass[] = L"TesselMainFrame";

class CMainFrame : public win::Window, public IMessageFilter, public IOptionHost {
public:
    CMainFrame(std::wstring commandLine, int instanceNumber);
    ~CMainFrame() override;

    bool CreateFrame(int showCommand);
    bool PreTranslate(MSG& message) override;

    // Folder-set files: loaded with openedByUser when the user chose the file. The program's own
    // files (last state, hand-over) are saved with the layout and without columns and placement.
    // At start the T-Views not in use make their views once the window shows.
    bool LoadFolderSet(const std::wstring& path, bool openedByUser, bool atStart = false);
    bool SaveFolderSet(const std::wstring& path) { return SaveFolderSet(path, true, false, false); }
    bool SaveFolderSet(const std::wstring& path, bool withLayout, bool withColumns, bool withPlacement);
    void SaveViewSettings();

    CPloder& Panel(int number) { return *panels_[number - 1]; }  // 1..4
    // Layout 0..11 as the layout table says; a button click also resets splitter positions.
    void SetLayout(int layout, bool fromButton);
    const ViewLayout& Arrangement() const { return layout_; }
    void FocusView(int number);  // 1..4; a hidden T-View is not focused
    // 1..4: the T-View in use, the only one shown so, which the frame's commands act on.
    void UseView(int number);
    int FocusedView() const { return focusedView_; }
    int InstanceNumber() const { return instanceNumber_; }

    bool HeldOption(std::wstring_view key, int& value) override;
    void ApplyOptions(unsigned effects) override;

protected:
    LRESULT HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    bool OnCreate();
    void ApplyCommandLine();
    void FillEmptyViews();
    void Layout();
    FolderSet CollectFolderSet(bool withLayout, bool withColumns, bool withPlacement);
    void ApplyFolderSet(const LoadedFolderSet& set, bool atStart = false);
    void MakeLaterViews();
    void ApplyDesignMode();
    int BarWidth() const;
    int BarAt(POINT client) const;  // the splitter whose bar is under the point, or -1
    bool OnSetCursor();
    void StartBarDrag(LPARAM lParam);
    void DragBar(LPARAM lParam);
    void EndBarDrag();
    LRESULT OnNotify(NMHDR* header);
    void OnCommand(int id, LPARAM lParam);
    void ToggleMagnifier();
    void TogglePreview();
    void UpdatePreview();  // the focused item of the T-View in use
    bool PreviewShown() const { return preview_ && IsWindowVisible(preview_->hwnd()); }
    // Favorites: the menu's commands and entries, the folder, adding favorites.
    bool OnFavoritesCommand(int id);
    std::wstring EnsureFavoritesFolder();  // asks for one when none is known; "" when none
    bool ChooseFavoritesFolder();
    std::wstring FreeFavoritePath(const std::wstring& folder, std::wstring name, bool search);
    void AddFavorite();
    void AddSearchFavorite();
    void OpenFavorite(const std::wstring& path, bool folder, bool newWindow);
    void OnInitMenuPopup(HMENU menu);
    void ReplaceMenu();
    void SetLanguage(int languageId);
    void FillLanguageMenu(HMENU menu);
    void ShowLanguage();  // every menu and text in the language of the options
    void ApplyAddressBars();
    void ShowTitle();
    bool RouteWheel(MSG& message);
    void ShowStatusBar(bool show);
    void ShowAbout();
    void OpenFolderSetDialog();
    void TabCommand(int id);
    bool AddressBarCommand(int id);
    // 0: no frame-wide tree, 1: the tree beside the T-Views, 2: none, with the shared-tree flag.
    // With `reloadViews` each T-View reads its own tree setting again; a folder set gives its own.
    void SetTreeMode(int mode, bool reloadViews = true);
    int TreeMode() const { return treeMode_; }
    HWND FrameTree() const { return frameTree_.hwnd(); }
    // The one address bar of address_bar_mod 1, serving the T-View in use; null otherwise.
    CAdressBar* FrameAddressBar() const { return addressBar_.get(); }
    void SaveFolderSetDialog();
    void StartFurtherInstance();
    void ChooseColourScheme(int scheme);  // -1: no colours
    void ApplyColours();  // backgrounds and lists again after the rules changed

    void RequestClose();
    void SaveStateOnce();
    void StateChanged();
    void SaveStateNow();
    void FinishAndQuit();
    void CheckParkedDialogs();
    static constexpr UINT kTrayMessage = WM_APP + 1;  // from the icon in the notification area
    void OnTrayIcon(LPARAM event);
    bool MinimiseToTray();
    void RestoreFromTray();
    void ShowTrayMenu();
    void ForcedEnd();

    std::wstring commandLine_;
    int instanceNumber_;
    int treeMode_ = 0;
    std::array<std::unique_ptr<CPloder>, kViewCount> panels_;
    HWND statusBar_ = nullptr;
    LayoutToolbar layoutToolbar_;
    ViewLayout layout_;
    tessel::Arrangement arranged_;  // where the views and bars went at the last layout
    SIZE laidOut_{-1, -1};           // the client size of the last layout
    bool trayAsking_ = false;        // the tray icon's question is open
    bool parked_ = false;            // hidden until the open dialogs are closed
    bool saveArmed_ = false;         // a save of the last state is waiting for its timer
    bool lastStateOpen_ = false;     // the crash-start guard is held until the later views are made
    bool inTray_ = false;            // minimised into the notification area
    std::array<RECT, 3> splitterAreas_{};  // the area each splitter divides, for dragging
    int draggedBar_ = -1;
    int designMode_ = 0;
    int focusedView_ = 1;
    LayoutBlock layoutExtras_;  // tree and preview values kept for the next folder set
    CShellTree2 frameTree_;
    FavoritesMenu favorites_;
    std::unique_ptr<CAdressBar> addressBar_;
    std::unique_ptr<CMagnifier> magnifier_;  // while the screen magnifier is on
    std::unique_ptr<CPreviewPane> preview_;  // made when first shown
    RectI previewBar_{};  // the bar between the T-Views and the preview
    RectI previewArea_{};
    void ApplyFrameAddressBar();
    void ShowFocusedLocation();  // the frame's address bar and tree follow the T-View in use
    RectI treeBar_{};  // the bar between the frame-wide tree and the T-Views
    RectI treeArea_{};
    bool sharedTree_ = false;
    HACCEL accelerators_ = nullptr;
    LastStateSaver lastState_;
    TrayIcon tray_;
    std::unique_ptr<FocusFollower> focusFollower_;  // the T-View holding the focus is in use
};

}  // namespace tessel
