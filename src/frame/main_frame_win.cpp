#include "frame/main_frame_win.h"

#include <commctrl.h>
#include <shellapi.h>
#include <shlobj.h>

#include <utility>
#include <vector>

#include "core/general_options.h"
#include "core/help_win.h"
#include "core/language_packs_win.h"
#include "core/settings_store_win.h"
#include "features/folder_size_worker_win.h"
#include "features/list_export_win.h"
#include "features/list_print_win.h"
#include "features/program_colours_win.h"
#include "frame/options_dialog_win.h"
#include "frame/translation_editor_win.h"
#include "frame/window_placement.h"
#include "res/resource.h"
#include "win/file_system_win.h"
#include "win/shell_item_win.h"
#include "win/start_trace_win.h"

namespace tessel {
namespace {

constexpr UINT kTimerParked = 2000;
constexpr UINT kTimerSaveState = 2001;
constexpr UINT kSaveStateDelayMs = 3000;  // changes within this time are saved together
constexpr int kFailedLoadParam = 100;  // lParam of the command posted when a named file fails
constexpr UINT kMsgFocusMoved = WM_APP + 0x160;  // the focus moved to the window in lParam

class FileRemover : public IFileRemover {
public:
    bool Remove(const std::wstring& path) override { return DeleteFileW(path.c_str()) != FALSE; }
};

// In a text box Ctrl+H deletes the character before the caret, as everywhere in Windows: there it
// is not the hidden-files switch.
bool EditKeepsKey(const MSG& message) {
    if (message.message != WM_KEYDOWN || message.wParam != 'H' || !(GetKeyState(VK_CONTROL) & 0x8000)) return false;
    wchar_t name[16] = {};
    return GetClassNameW(message.hwnd, name, 16) && _wcsicmp(name, L"Edit") == 0;
}

std::vector<RectI> Screens() {
    std::vector<RectI> screens;
    EnumDisplayMonitors(nullptr, nullptr, [](HMONITOR, HDC, LPRECT r, LPARAM found) -> BOOL {
        reinterpret_cast<std::vector<RectI>*>(found)->push_back({r->left, r->top, r->right, r->bottom});
        return TRUE;
    }, reinterpret_cast<LPARAM>(&screens));
    return screens;
}

RECT StartRectangle() {
    RectI saved{};
    if (Settings().GetRect(L"Start", L"WinRC", saved) && UsableStartRectangle(saved, Screens()))
        return {saved.left, saved.top, saved.right, saved.bottom};
    return {CW_USEDEFAULT, CW_USEDEFAULT, 0, 0};
}

}  // namespace

CMainFrame::CMainFrame(std::wstring commandLine, int instanceNumber)
    : commandLine_(std::move(commandLine)),
      instanceNumber_(instanceNumber),
      lastState_([this](const std::wstring& path) { return SaveFolderSet(path); }) {}

CMainFrame::~CMainFrame() {
    if (MessageLoop* loop = Module().LoopOf(GetCurrentThreadId())) loop->RemoveFilter(this);
}

bool CMainFrame::CreateFrame(int showCommand) {
    RECT r = StartRectangle();
    HICON icon = LoadIconW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDI_TESSEL));
    int width = r.left == CW_USEDEFAULT ? 1100 : r.right - r.left;
    int height = r.left == CW_USEDEFAULT ? 720 : r.bottom - r.top;
    if (!CreateWindowOf(kMainFrameClass, WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, WS_EX_CONTROLPARENT, L"Tessel",
                        r.left, r.top, width, height, nullptr, nullptr, CS_HREDRAW | CS_VREDRAW, icon))
        return false;
    accelerators_ = LoadAcceleratorsW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDR_ACCELERATORS));
    if (MessageLoop* loop = Module().LoopOf(GetCurrentThreadId())) loop->AddFilter(this);
    ShowWindow(hwnd(), StartShowCommand(showCommand, Settings().GetInt(L"Start", L"WinMax", 0) != 0));
    StartMark("shown");
    UpdateWindow(hwnd());
    StartMark("painted");
    MakeLaterViews();
    return true;
}

bool CMainFrame::PreTranslate(MSG& message) {
    RouteWheel(message);
    return hwnd() && accelerators_ && IsWindowVisible(hwnd()) && !EditKeepsKey(message) &&
           TranslateAcceleratorW(hwnd(), accelerators_, &message);
}

bool CMainFrame::OnCreate() {
    StartMark("frame-create");
    focusFollower_ = std::make_unique<FocusFollower>(hwnd(), kMsgFocusMoved);
    LoadGeneralOptions(Settings(), Options());
    Colours().Load(Settings());
    FolderSizeOptions() = ReadFolderSizeSettings(Settings());
    ReplaceMenu();
    statusBar_ = CreateWindowExW(0, STATUSCLASSNAMEW, L"", WS_CHILD | SBARS_SIZEGRIP, 0, 0, 0, 0, hwnd(),
                                 reinterpret_cast<HMENU>(static_cast<INT_PTR>(59393)), GetModuleHandleW(nullptr),
                                 nullptr);
    layoutToolbar_.Create(hwnd(), IDC_LAYOUT_TOOLBAR);
    designMode_ = Settings().GetInt(L"Start", L"designe_mode", 0);
    if (designMode_ < 0 || designMode_ > 2) designMode_ = 0;
    for (int i = 0; i < kViewCount; ++i) {
        panels_[i] = std::make_unique<CPloder>(i);
        if (!panels_[i]->Create(hwnd())) return false;
    }
    for (auto& panel : panels_) panel->SetPeers([this](int index) { return &Panel(index + 1); });
    ApplyFrameAddressBar();
    StartMark("panels");
    HWND tree = CreateWindowExW(WS_EX_CLIENTEDGE, WC_TREEVIEWW, L"",
                                WS_CHILD | TVS_HASBUTTONS | TVS_HASLINES | TVS_LINESATROOT | TVS_SHOWSELALWAYS, 0, 0, 0, 0,
                                hwnd(), reinterpret_cast<HMENU>(static_cast<INT_PTR>(IDC_FRAME_TREE)),
                                GetModuleHandleW(nullptr), nullptr);
    frameTree_.Attach(tree, [this](PCIDLIST_ABSOLUTE folder) {
        panels_[focusedView_ - 1]->NavigateTo(win::ClonePidl(folder));  // the T-View in use
    });
    ApplyDesignMode();
    SetLayout(layout_.layout, false);
    ShowStatusBar(Options().StatusBar != 0);
    StartMark("layout");
    ApplyCommandLine();
    StartMark("views");
    return true;
}

void CMainFrame::ApplyCommandLine() {
    StartPlan plan = InterpretCommandLine(commandLine_, Options().Als, win::IsExistingFile);
    if (plan.loadLastState) {
        FileRemover remover;
        lastStateOpen_ = true;  // until the T-Views left for later are made
        LoadLastStateGuarded(Settings(), Settings().DataFolder(), remover,
                             [this](const std::wstring& path) { return LoadFolderSet(path, false, true); }, true);
        StartMark("last-state");
    }
    if (!plan.folderSetFile.empty() && !LoadFolderSet(plan.folderSetFile, true)) {
        PostMessageW(hwnd(), WM_COMMAND, ID_VIEW_REFRESH_ALL, kFailedLoadParam);
        RedrawWindow(hwnd(), nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN);
    }
    for (int i = 0; i < kViewCount; ++i)
        if (!plan.viewPaths[i].empty()) panels_[i]->NavigateToText(plan.viewPaths[i]);
    for (const std::wstring& path : plan.laterFirstViewPaths) panels_[0]->NavigateToText(path);
    // The last state brings its own tree mode; any other start mode takes the one kept in "Start".
    if (Options().Als != kStartModeLastState)
        if (const int mode = Settings().GetInt(L"Start", L"tree_mode", treeMode_); mode != 0) SetTreeMode(mode);
    FillEmptyViews();
    FocusView(focusedView_);  // the views just made took the focus in turn: back to the T-View in use

}

// The window is on screen with the T-View in use listed; the others are made now, before the
// first message is served, so the whole start costs no more than before.
void CMainFrame::MakeLaterViews() {
    HWND focus = GetFocus();
    for (auto& panel : panels_) panel->MakeLaterView();
    FillEmptyViews();  // a T-View whose folders are all gone
    if (focus != GetFocus() && IsWindow(focus)) SetFocus(focus);  // each new view took the focus
    if (std::exchange(lastStateOpen_, false)) EndLastStateLoad(Settings());
    StartMark("later-views");
}

// Only the T-Views without a location are navigated.
void CMainFrame::FillEmptyViews() {
    for (int i = kViewCount - 1; i >= 0; --i)
        if (!panels_[i]->HasLocation()) panels_[i]->NavigateToSpecial(CSIDL_DRIVES);
}

void CMainFrame::SaveViewSettings() {
    WINDOWPLACEMENT placement{sizeof(placement)};
    if (hwnd() && GetWindowPlacement(hwnd(), &placement)) {
        const RECT& r = placement.rcNormalPosition;
        Settings().PutString(L"Start", L"WinRC", FormatRect({r.left, r.top, r.right, r.bottom}));
        // A minimised window remembers whether it goes back to maximised.
        const bool maximized = placement.showCmd == SW_SHOWMAXIMIZED ||
                               (IsIconic(hwnd()) && (placement.flags & WPF_RESTORETOMAXIMIZED));
        Settings().PutInt(L"Start", L"WinMax", maximized ? 1 : 0);
    }
}

void CMainFrame::ReplaceMenu() {
    HMENU menu = LoadMenuW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDR_MAINFRAME));
    LocalizeMenu(menu);
    HMENU old = GetMenu(hwnd());
    SetMenu(hwnd(), menu);
    if (old) DestroyMenu(old);
}

void CMainFrame::SetLanguage(int languageId) {
    Options().m_lang_id = languageId;
    WriteOption(Settings(), L"m_lang_id", languageId);
    ShowLanguage();
}

// Texts only: the lists keep their selection, and the preview its item.
void CMainFrame::ShowLanguage() {
    ReplaceMenu();
    for (auto& panel : panels_) panel->ShowLanguage();
    if (PreviewShown()) preview_->Reread();
}

void CMainFrame::ShowStatusBar(bool show) {
    ShowWindow(statusBar_, show ? SW_SHOWNOACTIVATE : SW_HIDE);
    Layout();
}

void CMainFrame::OnInitMenuPopup(HMENU menu) {
    CheckMenuItem(menu, ID_VIEW_STATUS_BAR, Options().StatusBar ? MF_CHECKED : MF_UNCHECKED);
    CheckMenuItem(menu, ID_OPTIONS_CLOSE_ASK, Options().close_ask ? MF_CHECKED : MF_UNCHECKED);
    CheckMenuItem(menu, ID_VIEW_FOLDER_SIZES, FolderSizeOptions().fld_size ? MF_CHECKED : MF_UNCHECKED);
    CheckMenuItem(menu, ID_VIEW_HIDDEN_FILES, Options().show_hidden ? MF_CHECKED : MF_UNCHECKED);
    CheckMenuItem(menu, ID_VIEW_MAGNIFIER, magnifier_ ? MF_CHECKED : MF_UNCHECKED);
    CheckMenuItem(menu, ID_VIEW_PREVIEW, PreviewShown() ? MF_CHECKED : MF_UNCHECKED);
    // Every start mode but the last state starts the same way: the menu offers the two.
    const bool lastState = Options().Als == kStartModeLastState;
    CheckMenuItem(menu, ID_START_MODE_LAST_STATE, lastState ? MF_CHECKED : MF_UNCHECKED);
    CheckMenuItem(menu, ID_START_MODE_FIRST, lastState ? MF_UNCHECKED : MF_CHECKED);
    CheckMenuRadioItem(menu, ID_LAYOUT_FIRST, ID_LAYOUT_LAST, kFirstLayoutCommand + layout_.layout, MF_BYCOMMAND);
    CheckMenuRadioItem(menu, ID_TREE_MODE_0, ID_TREE_MODE_2, ID_TREE_MODE_0 + treeMode_, MF_BYCOMMAND);
    const int mode = Options().address_bar_mod;
    CheckMenuRadioItem(menu, ID_ADDRESS_MODE_FRAME, ID_ADDRESS_MODE_NONE,
                       mode == 1 ? ID_ADDRESS_MODE_FRAME : mode == -1 ? ID_ADDRESS_MODE_NONE : ID_ADDRESS_MODE_VIEWS,
                       MF_BYCOMMAND);
    CheckMenuRadioItem(menu, ID_ADDRESS_STYLE_CLASSIC, ID_ADDRESS_STYLE_SEGMENTS,
                       Options().adresbar_style == 1 ? ID_ADDRESS_STYLE_SEGMENTS : ID_ADDRESS_STYLE_CLASSIC, MF_BYCOMMAND);
    CheckMenuItem(menu, ID_ADDRESS_HIGHLIGHT, Options().adresbar_use_highlighted ? MF_CHECKED : MF_UNCHECKED);
    CheckMenuItem(menu, ID_ADDRESS_TREE, Options().adress_tree ? MF_CHECKED : MF_UNCHECKED);
    CheckMenuItem(menu, ID_ADDRESS_AUTOSEL, Options().adress_autosel ? MF_CHECKED : MF_UNCHECKED);
    if (GetMenuState(menu, ID_LANGUAGE_GERMAN, MF_BYCOMMAND) != static_cast<UINT>(-1)) FillLanguageMenu(menu);
}

// German and English are in the menu; a language with only a file beside the program is added
// when the menu opens, so that the start never reads the packs for it.
void CMainFrame::FillLanguageMenu(HMENU menu) {
    for (int id = ID_LANGUAGE_FILE_FIRST; id <= ID_LANGUAGE_FILE_LAST; ++id) DeleteMenu(menu, id, MF_BYCOMMAND);
    for (const AvailableLanguage& language : AvailableLanguages())
        if (language.id >= 2 && ID_LANGUAGE_FILE_FIRST + language.id <= ID_LANGUAGE_FILE_LAST)
            AppendMenuW(menu, MF_STRING, ID_LANGUAGE_FILE_FIRST + language.id, language.name.c_str());
    const int current = Options().m_lang_id;
    const std::wstring code = LanguageCode(current);
    const UINT checked = current >= 2 && GetMenuState(menu, ID_LANGUAGE_FILE_FIRST + current, MF_BYCOMMAND) != static_cast<UINT>(-1)
                             ? ID_LANGUAGE_FILE_FIRST + current
                             : code == L"DE" ? ID_LANGUAGE_GERMAN : ID_LANGUAGE_ENGLISH;
    const int count = GetMenuItemCount(menu);
    for (int at = 0; at < count; ++at)
        if (GetMenuItemID(menu, at) == checked) CheckMenuRadioItem(menu, 0, count - 1, at, MF_BYPOSITION);
}

static INT_PTR CALLBACK AboutProcedure(HWND dialog, UINT message, WPARAM wParam, LPARAM) {
    if (message == WM_INITDIALOG) {
        LocalizeDialog(dialog);
        SetDlgItemTextW(dialog, IDC_ABOUT_VERSION, L"Tessel 4.19");
        SetDlgItemTextW(dialog, IDC_ABOUT_SETTINGS, Settings().FullSettingsPath().c_str());
        SetFocus(GetDlgItem(dialog, IDOK));  // the path is there to read and copy, not selected
        return FALSE;
    }
    if (message == WM_COMMAND && (LOWORD(wParam) == IDOK || LOWORD(wParam) == IDCANCEL)) {
        EndDialog(dialog, LOWORD(wParam));
        return TRUE;
    }
    return FALSE;
}

void CMainFrame::ShowAbout() {
    DialogBoxParamW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDD_ABOUT), hwnd(), AboutProcedure, 0);
}

// A scheme replaces the colour rules and turns colours on; "no colours" writes scheme 0 and
// turns them off.
void CMainFrame::ChooseColourScheme(int scheme) {
    const int use = scheme >= 0 ? 1 : 0;
    Colours().WriteScheme(Settings(), scheme >= 0 ? scheme : 0);
    Options().useTreeColor = use;
    Options().useColor = use;
    WriteOption(Settings(), L"useTreeColor", use);
    WriteOption(Settings(), L"useColor", use);
    ApplyColours();
}

void CMainFrame::ApplyColours() {
    for (int i = 0; i < kViewCount; ++i) {
        panels_[i]->SetInUse(i + 1 == focusedView_);
        panels_[i]->FolderTree().ApplyOptions();
    }
    frameTree_.ApplyOptions();
    OnCommand(ID_VIEW_REFRESH_ALL, 0);
    RedrawWindow(hwnd(), nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN);
}

void CMainFrame::StartFurtherInstance() {
    const std::wstring handOver = HandOverStatePath(Settings().DataFolder());
    const std::wstring exe = win::ModulePath();
    // Without a hand-over file the new window starts as any normal start does.
    std::wstring parameters = SaveFolderSet(handOver) ? L"\"" + handOver + L"\"" : L"";
    ShellExecuteW(hwnd(), L"open", exe.c_str(), parameters.empty() ? nullptr : parameters.c_str(), nullptr, SW_SHOWNORMAL);
}

// Closing the magnifier's window comes back here as the same command, outside its own handler.
void CMainFrame::ToggleMagnifier() {
    if (magnifier_) {
        magnifier_.reset();
        return;
    }
    magnifier_ = std::make_unique<CMagnifier>([this] { PostMessageW(hwnd(), WM_COMMAND, ID_VIEW_MAGNIFIER, 0); });
    if (!magnifier_->Create(hwnd())) magnifier_.reset();
}

void CMainFrame::OnCommand(int id, LPARAM lParam) {
    if (OnFavoritesCommand(id)) return;
    switch (id) {
    case ID_APP_EXIT: PostMessageW(hwnd(), WM_CLOSE, 0, 0); break;
    case ID_APP_ABOUT: ShowAbout(); break;
    case ID_HELP_TOPICS:
        if (!OpenHelp(L"")) MessageBoxW(hwnd(), GetText(IDS_HELP_FAILED).c_str(), GetText(60000).c_str(), MB_ICONWARNING);
        break;
    case ID_FILE_NEW_INSTANCE: StartFurtherInstance(); break;
    case ID_FILE_OPEN_SET: OpenFolderSetDialog(); break;
    case ID_FILE_SAVE_SET: SaveFolderSetDialog(); break;
    case ID_FILE_EXPORT_LIST:
        if (CMyShellBrowser* browser = panels_[focusedView_ - 1]->Active()) ExportWithDialog(hwnd(), browser->ListTable());
        break;
    case ID_FILE_PRINT_PREVIEW:
        if (CMyShellBrowser* browser = panels_[focusedView_ - 1]->Active(); browser && browser->Current())
            CPrintPreview::Run(hwnd(), browser->ListTable(), win::LocationNameOf(browser->Current()));
        break;
    case ID_VIEW_REFRESH_ALL:
        for (auto& panel : panels_) panel->Refresh();
        if (lParam == kFailedLoadParam) RedrawWindow(hwnd(), nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN);
        break;
    case ID_OPTIONS_DIALOG: COptionenWnd::Run(hwnd(), 0, this); break;
    case ID_TRANSLATION_EDITOR: CTranslationEditor(this).Run(hwnd()); break;
    case ID_COLOURS_CHANGED: ApplyColours(); break;
    case ID_VIEW_MAGNIFIER: ToggleMagnifier(); break;
    case ID_VIEW_PREVIEW: TogglePreview(); break;
    case ID_CUSTOMISE_VIEW_TOOLBAR: Panel(focusedView_).Toolbars().Customise(); break;
    case ID_CUSTOMISE_LAYOUT_TOOLBAR: layoutToolbar_.Customise(); break;
    case ID_VIEW_FOLDER_SIZES:
        FolderSizeOptions().fld_size = FolderSizeOptions().fld_size ? 0 : 1;
        Settings().PutInt(L"X-Size", L"fld_size", FolderSizeOptions().fld_size);
        for (auto& panel : panels_) panel->Refresh();
        break;
    case ID_VIEW_HIDDEN_FILES:
        Options().show_hidden = Options().show_hidden ? 0 : 1;
        WriteOption(Settings(), L"show_hidden", Options().show_hidden);
        for (auto& panel : panels_) panel->HiddenFilesChanged();
        break;
    case ID_VIEW_STATUS_BAR:
        Options().StatusBar = !Options().StatusBar;
        WriteOption(Settings(), L"StatusBar", Options().StatusBar);
        ShowStatusBar(Options().StatusBar != 0);
        break;
    case ID_OPTIONS_CLOSE_ASK:
        Options().close_ask = !Options().close_ask;
        WriteOption(Settings(), L"close_ask", Options().close_ask);
        break;
    case ID_LANGUAGE_GERMAN: SetLanguage(0); break;
    case ID_LANGUAGE_ENGLISH: SetLanguage(1); break;
    default:
        if (AddressBarCommand(id)) break;
        if (id >= ID_COLOUR_SCHEME_FIRST && id <= ID_COLOUR_SCHEME_LAST) ChooseColourScheme(id - ID_COLOUR_SCHEME_FIRST);
        else if (id == ID_COLOUR_NONE) ChooseColourScheme(-1);
        if (IsLayoutCommand(id)) SetLayout(id - kFirstLayoutCommand, lParam && reinterpret_cast<HWND>(lParam) == layoutToolbar_.hwnd());
        else if (id >= ID_FOCUS_VIEW_1 && id <= ID_FOCUS_VIEW_4) FocusView(id - ID_FOCUS_VIEW_1 + 1);
        else if (id >= ID_LANGUAGE_FILE_FIRST && id <= ID_LANGUAGE_FILE_LAST) SetLanguage(id - ID_LANGUAGE_FILE_FIRST);
        else if ((id >= ID_TAB_NEW && id <= ID_TAB_PREVIOUS) || id == ID_TAB_REOPEN) TabCommand(id);
        else if (id >= ID_START_MODE_FIRST && id <= ID_START_MODE_LAST) {
            Options().Als = id - ID_START_MODE_FIRST;
            WriteOption(Settings(), L"Als", Options().Als);
        }
        else if (id >= ID_TREE_MODE_0 && id <= ID_TREE_MODE_2) {
            SetTreeMode(id - ID_TREE_MODE_0);
            Settings().PutInt(L"Start", L"tree_mode", treeMode_);
        }
        break;
    }
}

// address_bar_mod 1: one bar above the views; what it chooses goes to the T-View in use.
void CMainFrame::ApplyFrameAddressBar() {
    if (Options().address_bar_mod != 1) {
        addressBar_.reset();
    } else if (!addressBar_) {
        addressBar_ = MakeAddressBar(hwnd(), IDC_FRAME_ADDRESS_BAR, [this] { return &Panel(focusedView_); });
    } else {
        addressBar_->SetStyle(Options().adresbar_style);
    }
    ShowFocusedLocation();
    Layout();
}

// The frame's address bar and its tree follow the T-View in use.
void CMainFrame::ShowFocusedLocation() {
    if (focusedView_ < 1 || focusedView_ > kViewCount || !panels_[focusedView_ - 1]) return;
    CPloder& panel = Panel(focusedView_);
    ShowTitle();
    if (addressBar_) panel.ShowLocation(*addressBar_);
    if (treeMode_ == 1 && Options().tree_auto_sel && panel.Active() && panel.Active()->Current())
        frameTree_.SyncTo(panel.Active()->Current());
}

void CMainFrame::ApplyAddressBars() {
    ApplyFrameAddressBar();
    for (auto& panel : panels_) {
        panel->ApplyAddressBarMode();
        InvalidateRect(panel->hwnd(), nullptr, TRUE);
    }
}

// The address bar options: each command sets its value, applies it to the four T-Views and
// writes it at once.
bool CMainFrame::AddressBarCommand(int id) {
    struct Setting {
        int command;
        const wchar_t* key;
        int* value;
        int set;  // -2: toggle
    };
    GeneralOptions& options = Options();
    const Setting settings[] = {
        {ID_ADDRESS_MODE_FRAME, L"address_bar_mod", &options.address_bar_mod, 1},
        {ID_ADDRESS_MODE_VIEWS, L"address_bar_mod", &options.address_bar_mod, 0},
        {ID_ADDRESS_MODE_NONE, L"address_bar_mod", &options.address_bar_mod, -1},
        {ID_ADDRESS_STYLE_CLASSIC, L"adresbar_style", &options.adresbar_style, 0},
        {ID_ADDRESS_STYLE_SEGMENTS, L"adresbar_style", &options.adresbar_style, 1},
        {ID_ADDRESS_HIGHLIGHT, L"adresbar_use_highlighted", &options.adresbar_use_highlighted, -2},
        {ID_ADDRESS_TREE, L"adress_tree", &options.adress_tree, -2},
        {ID_ADDRESS_AUTOSEL, L"adress_autosel", &options.adress_autosel, -2},
    };
    if (id == ID_ADDRESS_PLACEHOLDER_1 || id == ID_ADDRESS_PLACEHOLDER_2) {
        MessageBoxW(hwnd(),
                    L"Wildcard for the next version / Vista addressbar and + + + \n\n"
                    L"Platzhalter f\u00FCr die n\u00E4chste Version / Vista-Adressleiste und + + + ",
                    GetText(60000).c_str(), MB_OK | MB_ICONINFORMATION);
        return true;
    }
    for (const Setting& setting : settings) {
        if (setting.command != id) continue;
        *setting.value = setting.set == -2 ? (*setting.value ? 0 : 1) : setting.set;
        ApplyAddressBars();
        WriteOption(Settings(), setting.key, *setting.value);
        return true;
    }
    return false;
}

void CMainFrame::TabCommand(int id) {
    HWND focus = GetFocus();
    for (int i = 0; i < kViewCount; ++i)  // the T-View in use is the one holding the focus
        if (focus && (focus == panels_[i]->hwnd() || IsChild(panels_[i]->hwnd(), focus)) && i + 1 != focusedView_)
            UseView(i + 1);
    CPloder& panel = *panels_[focusedView_ - 1];
    switch (id) {
    case ID_TAB_NEW: panel.NewTab(); break;
    case ID_TAB_CLOSE: panel.CloseCurrentTab(); break;
    case ID_TAB_NEXT: panel.NextTab(1); break;
    case ID_TAB_PREVIOUS: panel.NextTab(-1); break;
    case ID_TAB_REOPEN: panel.ReopenClosedTab(); break;
    }
    StateChanged();
}

void CMainFrame::SaveStateOnce() {
    KillTimer(hwnd(), kTimerSaveState);
    lastState_.SaveOnce(Options().Als, Settings().DataFolder());
    SaveViewSettings();
}

// Layout, tabs or folders changed: the last state is written again shortly, so that a crash
// costs seconds. Changes that follow within the delay are saved together.
void CMainFrame::StateChanged() {
    if (!saveArmed_ && hwnd()) saveArmed_ = SetTimer(hwnd(), kTimerSaveState, kSaveStateDelayMs, nullptr) != 0;
}

void CMainFrame::SaveStateNow() {
    KillTimer(hwnd(), kTimerSaveState);
    saveArmed_ = false;
    // While the last state is still being opened, the file on disk is the better one; the
    // views left for later would also be made at once by gathering them.
    if (lastStateOpen_) return StateChanged();
    lastState_.SaveNow(Options().Als, Settings().DataFolder());
    SaveViewSettings();
}

void CMainFrame::RequestClose() {
    if (Options().close_ask && MessageBoxW(hwnd(), GetText(IDS_ASK_CLOSE).c_str(), GetText(60000).c_str(),
                                           MB_YESNO | MB_ICONQUESTION) != IDYES)
        return;
    if (CountOwnDialogs(hwnd()) == 0) {
        FinishAndQuit();
        return;
    }
    SaveStateOnce();
    ShowWindow(hwnd(), SW_HIDE);
    parked_ = true;
    inTray_ = false;
    tray_.Add(hwnd(), kTrayMessage, LoadIconW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDI_TRAY)), GetText(128));
    SetTimer(hwnd(), kTimerParked, 1000, nullptr);
}

void CMainFrame::FinishAndQuit() {
    SaveStateOnce();
    KillTimer(hwnd(), kTimerParked);
    tray_.Remove();
    DestroyWindow(hwnd());
    PostQuitMessage(0);
}

void CMainFrame::CheckParkedDialogs() {
    if (CountOwnDialogs(hwnd()) == 0) FinishAndQuit();
}

void CMainFrame::OnTrayIcon(LPARAM event) {
    if (inTray_) {
        if (event == WM_LBUTTONUP || event == WM_LBUTTONDBLCLK) RestoreFromTray();
        else if (event == WM_RBUTTONUP || event == WM_CONTEXTMENU) ShowTrayMenu();
        return;
    }
    if ((event != WM_LBUTTONUP && event != WM_RBUTTONUP) || trayAsking_) return;  // one question at a time
    trayAsking_ = true;
    const int answer = MessageBoxW(nullptr, GetText(183).c_str(), GetText(60000).c_str(), MB_OKCANCEL | MB_ICONQUESTION);
    trayAsking_ = false;
    if (answer == IDCANCEL) ForcedEnd();
}

void CMainFrame::ForcedEnd() {
    SaveStateOnce();
    tray_.Remove();
    // The open dialogs belong to work the user chose to abandon; nothing else is left to save.
    TerminateProcess(GetCurrentProcess(), 1);
}

LRESULT CMainFrame::HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_CREATE: return OnCreate() ? 0 : -1;
    case WM_SIZE:
        if (wParam == SIZE_MINIMIZED && MinimiseToTray()) return 0;
        // Showing the window the first time sends the size it already has: laying the four
        // views out again would only repaint them.
        if (LOWORD(lParam) != laidOut_.cx || HIWORD(lParam) != laidOut_.cy) Layout();
        return 0;
    case WM_COMMAND: OnCommand(LOWORD(wParam), lParam); return 0;
    case WM_INITMENUPOPUP: {
        HMENU menu = reinterpret_cast<HMENU>(wParam);
        if (GetMenuItemID(menu, 0) == ID_FAV_ADD) favorites_.Rebuild(menu);
        else if (!favorites_.FillSubmenu(menu)) OnInitMenuPopup(menu);
        return 0;
    }
    case WM_MEASUREITEM:
        if (favorites_.Measure(reinterpret_cast<MEASUREITEMSTRUCT*>(lParam))) return TRUE;
        break;
    case WM_DRAWITEM:
        if (favorites_.Draw(reinterpret_cast<DRAWITEMSTRUCT*>(lParam))) return TRUE;
        break;
    case WM_CLOSE: RequestClose(); return 0;
    case WM_TIMER:
        if (wParam == kTimerParked) CheckParkedDialogs();
        else if (wParam == kTimerSaveState) SaveStateNow();
        return 0;
    case WM_QUERYENDSESSION:
        // Windows may end the process soon after it asks: the state is written before answering.
        SaveStateNow();
        return TRUE;
    case WM_ENDSESSION:
        if (wParam) SaveStateNow();
        return 0;
    case kTrayMessage: OnTrayIcon(lParam); return 0;
    case WM_SETFOCUS:
        FocusView(focusedView_);
        return 0;
    case WM_SETCURSOR:
        if (OnSetCursor()) return TRUE;
        break;
    case WM_LBUTTONDOWN: StartBarDrag(lParam); return 0;
    case WM_MOUSEMOVE: DragBar(lParam); return 0;
    case WM_LBUTTONUP:
    case WM_CAPTURECHANGED: EndBarDrag(); return 0;
    case WM_NOTIFY: return OnNotify(reinterpret_cast<NMHDR*>(lParam));
    case kMsgViewFocused:  // posted when a list took the focus
    case kMsgFocusMoved: {
        // Views activated while a folder set is applied post it too, so only the T-View that
        // holds the focus now counts.
        HWND focus = GetFocus();
        for (int i = 0; i < kViewCount; ++i)
            if (focus && panels_[i] && (focus == panels_[i]->hwnd() || IsChild(panels_[i]->hwnd(), focus)))
                UseView(i + 1);
        return 0;
    }
    case kMsgViewNavigated:
        StateChanged();
        if (static_cast<int>(wParam) + 1 == focusedView_) {
            ShowFocusedLocation();
            UpdatePreview();
        }
        return 0;
    case kMsgViewSelection:
        if (static_cast<int>(wParam) + 1 == focusedView_) UpdatePreview();
        return 0;
    case WM_DESTROY:
        focusFollower_.reset();
        if (std::exchange(lastStateOpen_, false)) EndLastStateLoad(Settings());  // the window never showed
        for (auto& panel : panels_)
            if (panel) DestroyWindow(panel->hwnd());
        return 0;
    }
    return Default(message, wParam, lParam);
}

}  // namespace tessel
