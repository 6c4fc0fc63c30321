#include "features/program_colours_win.h"

#include <shlwapi.h>

#include "core/general_options.h"
#include "core/settings_store.h"
#include "win/com_ptr_win.h"

namespace tessel {
namespace {

// What the rules ask about an item, from its folder, asked at most once per attribute.
class ShellItemAttributes final : public IItemAttributes {
public:
    ShellItemAttributes(IShellFolder* folder, PCUITEMID_CHILD item) : folder_(folder), item_(item) {}
    unsigned Attributes(unsigned mask) override {
        SFGAOF shell = 0;
        if (mask & kAttrFolder) shell |= SFGAO_FOLDER;
        if (mask & kAttrHidden) shell |= SFGAO_HIDDEN | SFGAO_GHOSTED;
        if (mask & kAttrReadOnly) shell |= SFGAO_READONLY;
        PCUITEMID_CHILD items[] = {item_};
        if (FAILED(folder_->GetAttributesOf(1, items, &shell))) return 0;
        unsigned answer = 0;
        if ((shell & SFGAO_FOLDER) && (mask & kAttrFolder)) answer |= kAttrFolder;
        if ((shell & (SFGAO_HIDDEN | SFGAO_GHOSTED)) && (mask & kAttrHidden)) answer |= kAttrHidden;
        if ((shell & SFGAO_READONLY) && (mask & kAttrReadOnly)) answer |= kAttrReadOnly;
        return answer;
    }

private:
    IShellFolder* folder_;
    PCUITEMID_CHILD item_;
};

}  // namespace

void FoldUpperWin(wchar_t* text, size_t length) {
    if (FoldAsciiUpper(text, length)) CharUpperBuffW(text, static_cast<DWORD>(length));
}
void FoldLowerWin(wchar_t* text, size_t length) {
    if (FoldAsciiLower(text, length)) CharLowerBuffW(text, static_cast<DWORD>(length));
}

ProgramColours& Colours() {
    static ProgramColours colours;
    return colours;
}

void ProgramColours::Load(ISettingsStore& settings) {
    if (LoadRules(settings, table_) == 0) {
        FillScheme(table_, 0);
        WriteRules(settings, table_, false);
    }
    index_.Rebuild(table_, FoldUpperWin);
}

void ProgramColours::WriteScheme(ISettingsStore& settings, int scheme) {
    FillScheme(table_, scheme);
    WriteRules(settings, table_, false);
    index_.Rebuild(table_, FoldUpperWin);
}

void ProgramColours::Replace(ISettingsStore& settings, const RuleTable& table) {
    table_ = table;
    WriteRules(settings, table_, true);
    LoadRules(settings, table_);
    index_.Rebuild(table_, FoldUpperWin);
}

int ProgramColours::MatchItem(IShellFolder* folder, PCUITEMID_CHILD item, int* flags) const {
    if (flags) *flags = 0;
    if (!folder || !item || index_.Empty()) return kNoColour;
    STRRET text{};
    wchar_t inFolder[MAX_PATH] = {}, full[MAX_PATH] = {};
    if (SUCCEEDED(folder->GetDisplayNameOf(item, SHGDN_FORPARSING | SHGDN_INFOLDER, &text)))
        StrRetToBufW(&text, item, inFolder, MAX_PATH);
    // Without an in-folder name (a drive, some virtual items) the full path is matched.
    if (!inFolder[0] && SUCCEEDED(folder->GetDisplayNameOf(item, SHGDN_FORPARSING, &text)))
        StrRetToBufW(&text, item, full, MAX_PATH);
    const std::wstring_view shown = RuleMatchName(inFolder, full);
    wchar_t* start = const_cast<wchar_t*>(shown.data());
    FoldUpperWin(start, shown.size());
    ShellItemAttributes attributes(folder, item);
    return index_.Match(shown, attributes, flags);
}

HFONT ProgramColours::FontFor(int flags, HFONT base) {
    if (flags == 0) return nullptr;
    if (auto found = fonts_.find(flags); found != fonts_.end()) return found->second.get();
    LOGFONTW description{};
    GetObjectW(base ? base : static_cast<HFONT>(GetStockObject(DEFAULT_GUI_FONT)), sizeof(description), &description);
    if (flags & kStyleItalic) description.lfItalic = TRUE;
    if (flags & kStyleBold) description.lfWeight = FW_BOLD;
    if (flags & kStyleUnderline) description.lfUnderline = TRUE;
    if (flags & kStyleStrikeout) description.lfStrikeOut = TRUE;
    return fonts_.emplace(flags, win::UniqueFont(CreateFontIndirectW(&description))).first->second.get();
}

bool TreeItemColours(PCIDLIST_ABSOLUTE folder, COLORREF& text, COLORREF&) {
    win::ComPtr<IShellFolder> parent;
    PCUITEMID_CHILD child = nullptr;
    if (!folder || FAILED(SHBindToParent(folder, IID_IShellFolder, parent.put_void(), &child))) return false;
    const int colour = Colours().MatchItem(parent.get(), child, nullptr);
    if (colour == kNoColour) return false;
    text = static_cast<COLORREF>(colour);
    return true;
}

COLORREF TreeBackground() {
    const int colour = Colours().Index().BgOther();
    return Options().useTreeColor == 1 && colour != kNoColour ? static_cast<COLORREF>(colour) : GetSysColor(COLOR_WINDOW);
}

COLORREF TreeLineColour() {
    const RuleIndex& index = Colours().Index();
    const bool coloured = Options().useTreeColor == 1 && index.BgOther() != kNoColour && index.StarColour() != kNoColour;
    return coloured ? static_cast<COLORREF>(index.StarColour()) : GetSysColor(COLOR_3DDKSHADOW);
}

COLORREF ViewBackground(bool activeView) {
    const RuleIndex& index = Colours().Index();
    if (!Options().useColor || index.BgOther() == kNoColour) return GetSysColor(COLOR_WINDOW);
    const int colour = activeView ? index.BgActive() : index.BgOther();
    return colour == kNoColour ? GetSysColor(COLOR_WINDOW) : static_cast<COLORREF>(colour);
}

}  // namespace tessel
