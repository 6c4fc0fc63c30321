// The main frame's folder sets: the arrangement is gathered from the windows into the model of
// folder_set.h and written as one UTF-16 text; a file read is applied back to the windows.
#include <windows.h>

#include <algorithm>
#include <cwchar>

#include "core/language_packs_win.h"
#include "core/settings_store_win.h"
#include "core/user_text_file_win.h"
#include "frame/main_frame_win.h"
#include "nav/tab_view_win.h"
#include "res/resource.h"
#include "view/column_memory.h"
#include "win/handles_win.h"
#include "win/shell_item_win.h"
#include "win/text_file_win.h"

namespace tessel {
namespace {

constexpr DWORD kFolderSetSizeLimit = 32u << 20;  // larger files are not folder sets

TabState TabOf(CMyShellBrowser& browser) {
    TabState tab;
    tab.folder = win::FolderTextOf(browser.Current());
    if (!browser.View()) return tab;
    const FOLDERSETTINGS settings = browser.CurrentSettings();
    tab.viewMode = std::to_wstring(settings.ViewMode);
    tab.viewModeFlags = std::to_wstring(settings.fFlags);
    tab.colsAndSort = browser.GetEncodedViewState(&tab.colsId);
    if (tab.colsAndSort.empty()) tab.colsId.clear();
    browser.SaveColumnMemory();  // what the file carries is in the settings too
    return tab;
}

int NumberOr(const std::wstring& text, int fallback) { return text.empty() ? fallback : ParseLeadingInt(text); }

// A tab whose browser view was never made keeps what the folder set gave it.
TabState TabOf(const TabRecord& record) {
    if (record.browser && record.browser->Current()) return TabOf(*record.browser);
    TabState tab;
    tab.folder = win::FolderTextOf(record.folder.get());
    if (record.hasSettings) {
        tab.viewMode = std::to_wstring(record.settings.ViewMode);
        tab.viewModeFlags = std::to_wstring(record.settings.fFlags);
    }
    tab.colsId = record.columnKey;
    tab.colsAndSort = record.columnValue;
    return tab;
}

void GiveSettings(const TabState& state, TabRecord& record) {
    const int mode = NumberOr(state.viewMode, 0);
    record.hasSettings = mode >= FVM_FIRST && mode <= FVM_LAST;
    record.settings = {static_cast<UINT>(mode), static_cast<UINT>(NumberOr(state.viewModeFlags, 0))};
    record.columnKey = state.colsId;
    record.columnValue = state.colsAndSort;
}

void CloseOtherTabs(CCBrowserTabView& strip) {
    CCBrowserTabView::LayoutHold hold(strip);
    for (int i = strip.Count() - 1; i >= 0; --i)
        if (i != strip.Selected()) strip.CloseTab(i);
}

// The T-View keeps its selected tab, which takes the first tab of the file; the others follow
// as new tabs, made lazily. A folder that is gone opens no tab. The tab is selected once the
// strip is laid out, so that a new view is made at its size.
void RestoreTabs(CPloder& panel, const std::vector<TabState>& tabs, int selected) {
    CCBrowserTabView& strip = panel.Tabs();
    int select = -1;
    {
        CCBrowserTabView::LayoutHold hold(strip);
        bool keptUsed = strip.Count() == 0;
        for (size_t i = 0; i < tabs.size(); ++i) {
            win::UniquePidl folder = win::PidlFromPath(tabs[i].folder);
            if (!folder) continue;
            int index = 0;
            if (!keptUsed) {
                keptUsed = true;
                TabRecord record;
                GiveSettings(tabs[i], record);
                if (CMyShellBrowser* browser = panel.Active()) ApplyTabSettings(record, *browser);
                panel.NavigateTo(std::move(folder));
            } else {
                index = strip.InsertTab(std::move(folder));
                if (TabRecord* record = index >= 0 ? strip.Record(index) : nullptr) GiveSettings(tabs[i], *record);
            }
            if (static_cast<int>(i) == selected) select = index;
        }
    }
    if (select < 0 && strip.Count() > 0 && strip.Selected() < 0) select = 0;
    if (select >= 0) strip.Select(select);
}

}  // namespace

FolderSet CMainFrame::CollectFolderSet(bool withLayout, bool withColumns, bool withPlacement) {
    FolderSet set;
    set.viewMode = withLayout ? layout_.layout : -1;
    std::array<bool, kViewCount> hasFolder{};
    for (int i = 0; i < kViewCount; ++i)
        if (layout_.visible[i]) {
            CMyShellBrowser* browser = panels_[i]->Active();
            hasFolder[i] = browser && browser->Current();
        }
    for (int i : RecordedViews(layout_.visible, hasFolder)) {
        CPloder& panel = *panels_[i];
        CMyShellBrowser* browser = panel.Active();
        ViewRecord record;
        record.number = i + 1;
        record.active = TabOf(*browser);
        for (int t = 0; t < panel.Tabs().Count(); ++t)
            if (const TabRecord* tab = panel.Tabs().Record(t)) record.tabs.push_back(TabOf(*tab));
        record.selectedTab = panel.Tabs().Selected();
        set.views.push_back(record);
        if (withColumns) set.columnTexts[i] = record.active.colsAndSort;
    }
    set.withLayout = withLayout;
    set.layout = layoutExtras_;
    for (int i = 0; i < 3; ++i) set.layout.splitters[i] = layout_.splitters[i].position;
    set.layout.treeMode = treeMode_;
    for (int i = 0; i < kViewCount; ++i) {  // what the T-Views show now, not what the last file said
        set.layout.tree[i] = panels_[i]->ShowTree();
        set.layout.treeSplit[i] = panels_[i]->TreeSplit();
    }
    set.layout.focus = focusedView_;
    set.layout.preview = PreviewShown() ? 1 : 0;
    set.withColumns = withColumns;
    set.withPlacement = withPlacement;
    WINDOWPLACEMENT placement{sizeof(placement)};
    if (withPlacement && GetWindowPlacement(hwnd(), &placement)) {
        const RECT& r = placement.rcNormalPosition;
        set.placement = {r.left, r.top, r.right, r.bottom};
        set.showCommand = static_cast<int>(placement.showCmd);
    }
    return set;
}

bool CMainFrame::SaveFolderSet(const std::wstring& path, bool withLayout, bool withColumns, bool withPlacement) {
    if (path.empty() || !hwnd()) return false;
    return win::WriteUnicodeFile(FolderSetPath(path), WriteFolderSet(CollectFolderSet(withLayout, withColumns, withPlacement)));
}

bool CMainFrame::LoadFolderSet(const std::wstring& path, bool openedByUser, bool atStart) {
    const std::wstring text = ReadUserTextFile(path, kFolderSetSizeLimit);
    if (!IsFolderSetText(text)) {
        if (openedByUser) MessageBoxW(hwnd(), (GetText(IDS_FOLDER_SET_UNREADABLE) + L"\n" + path).c_str(), GetText(60000).c_str(),
                                      MB_ICONWARNING);
        return false;
    }
    ApplyFolderSet(ReadFolderSet(text, treeMode_, focusedView_), atStart);
    return true;
}

void CMainFrame::ApplyFolderSet(const LoadedFolderSet& set, bool atStart) {
    for (auto& panel : panels_) CloseOtherTabs(panel->Tabs());  // every T-View, with a record or not
    // Laid out first, so that each view is made at its size instead of being made and resized.
    for (int i = 0; i < 3; ++i) {
        layout_.splitters[i].position = set.layout.splitters[i];
        layout_.splitters[i].pixel = -1;
    }
    layoutExtras_ = set.layout;
    for (int i = 0; i < kViewCount; ++i) panels_[i]->SetTreeState(set.layout.tree[i], set.layout.treeSplit[i]);
    if (set.layout.treeMode != treeMode_) SetTreeMode(set.layout.treeMode, false);
    if (set.viewMode >= 0 && set.viewMode < kLayoutCount) SetLayout(set.viewMode, false);
    else Layout();
    for (int number = kViewCount; number >= 1; --number) {
        TabsToOpen open = TabsOfRecord(set.views[number - 1]);
        if (open.tabs.empty()) continue;
        CPloder& panel = *panels_[number - 1];
        std::vector<TabState> tabs = std::move(open.tabs);
        const int selected = open.selected;
        if (atStart && number != set.layout.focus && !panel.HasLocation())
            panel.OpenLater([&panel, tabs = std::move(tabs), selected] { RestoreTabs(panel, tabs, selected); });
        else
            RestoreTabs(panel, tabs, selected);
    }
    FocusView(set.layout.focus);
    if ((set.layout.preview != 0) != PreviewShown()) PostMessageW(hwnd(), WM_COMMAND, ID_VIEW_PREVIEW, 0);
}

}  // namespace tessel
