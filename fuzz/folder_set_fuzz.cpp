// Folder-set files come from anywhere (a favorite, a mail, a hand edit): the reader takes any
// bytes, and what it read writes out and reads back the same.
#include <string>

#include "frame/folder_set.h"
#include "fuzz_text.h"

using namespace tessel;

namespace {

FolderSet AsWritable(const LoadedFolderSet& loaded) {
    FolderSet set;
    set.viewMode = loaded.viewMode;
    set.withLayout = true;
    set.layout = loaded.layout;
    for (int i = 0; i < 4; ++i) {
        const LoadedView& view = loaded.views[i];
        if (!view.hasActive) continue;
        ViewRecord record;
        record.number = i + 1;
        record.active = view.active;
        record.tabs = view.tabs;
        record.selectedTab = view.selectedTab;
        set.views.push_back(std::move(record));
    }
    return set;
}

bool SameTab(const TabState& a, const TabState& b) {
    return a.folder == b.folder && a.viewMode == b.viewMode && a.viewModeFlags == b.viewModeFlags &&
           a.colsAndSort == b.colsAndSort && a.colsId == b.colsId;
}

bool HasLineBreak(const TabState& tab) {
    for (const std::wstring* text : {&tab.folder, &tab.dir, &tab.viewMode, &tab.viewModeFlags, &tab.colsAndSort,
                                     &tab.colsId})
        if (text->find_first_of(L"\r\n") != std::wstring::npos) return true;
    return false;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::wstring text = FolderSetText(std::string(reinterpret_cast<const char*>(data), size));
    IsFolderSetText(text);
    const LoadedFolderSet loaded = ReadFolderSet(text, 0, 1);
    for (const LoadedView& view : loaded.views) {
        fuzz::Check(view.tabs.size() <= static_cast<size_t>(kFolderSetTabLimit));
        fuzz::Check(view.selectedTab >= -1 && view.selectedTab < static_cast<int>(view.tabs.size()) + 1);
        for (int s : loaded.layout.splitters) fuzz::Check(s >= 0 && s <= 10000);
    }
    // Written and read again, every value comes back (values are single lines by construction).
    const LoadedFolderSet again = ReadFolderSet(WriteFolderSet(AsWritable(loaded)), 0, 1);
    for (int i = 0; i < 4; ++i) {
        const LoadedView& a = loaded.views[i];
        if (!a.hasActive || HasLineBreak(a.active)) continue;
        fuzz::Check(again.views[i].hasActive && SameTab(a.active, again.views[i].active));
    }
    return 0;
}
