#include "frame/folder_set.h"

#include <cwchar>
#include <cwctype>
#include <unordered_map>

#include "core/utf8.h"

namespace tessel {
namespace {

constexpr wchar_t kLineEnd[] = L"\r\n";

std::wstring Printf(const wchar_t* format, auto... values) {
    wchar_t buffer[96];
    std::swprintf(buffer, 96, format, values...);
    return buffer;
}

void Line(std::wstring& out, std::wstring_view key, std::wstring_view value) {
    out.append(key).append(L"=").append(value).append(kLineEnd);
}

void StateLines(std::wstring& out, const std::wstring& prefix, const TabState& tab) {
    Line(out, L"Folder" + prefix, tab.folder);
    if (!tab.dir.empty()) Line(out, L"Dir" + prefix, tab.dir);
    if (!tab.viewModeFlags.empty()) Line(out, L"ViewModeFlags" + prefix, tab.viewModeFlags);
    if (!tab.viewMode.empty()) Line(out, L"ViewMode" + prefix, tab.viewMode);
    if (!tab.colsAndSort.empty()) Line(out, L"ColsAndSort" + prefix, tab.colsAndSort);
    if (!tab.colsId.empty()) {
        Line(out, L"ColsID" + prefix, tab.colsId);
        out += kLineEnd;
    }
}

void LayoutLines(std::wstring& out, const LayoutBlock& b) {
    const std::pair<const wchar_t*, int> lines[16] = {
        {L"SP0", b.splitters[0]}, {L"SP1", b.splitters[1]}, {L"SP2", b.splitters[2]}, {L"SPT", b.treeSplitter},
        {L"tree_mode", b.treeMode}, {L"Tree1", b.tree[0]}, {L"Tree2", b.tree[1]}, {L"Tree3", b.tree[2]},
        {L"Tree4", b.tree[3]}, {L"Tree1split", b.treeSplit[0]}, {L"Tree2split", b.treeSplit[1]},
        {L"Tree3split", b.treeSplit[2]}, {L"Tree4split", b.treeSplit[3]}, {L"Vorschau", b.preview},
        {L"VorschauPos", b.previewPosition}, {L"Focus", b.focus},
    };
    for (const auto& [key, value] : lines) Line(out, key, Printf(L"%d", value));
    out += kLineEnd;
}

// Every line's value by its key (the text before the line's first "="); the first line with a
// key wins. Built once, so a file is read in one pass however many keys are asked for.
class Lines {
public:
    explicit Lines(std::wstring_view text) {
        size_t start = 0;
        while (start < text.size()) {
            size_t stop = text.find_first_of(L"\r\n", start);
            if (stop == std::wstring_view::npos) stop = text.size();
            const std::wstring_view line = text.substr(start, stop - start);
            const size_t equals = line.find(L'=');
            if (equals != std::wstring_view::npos && equals > 0)
                values_.emplace(line.substr(0, equals), line.substr(equals + 1));
            start = stop + 1;
        }
    }
    bool Find(std::wstring_view key, std::wstring_view& value) const {
        const auto found = values_.find(key);
        if (found == values_.end()) return false;
        value = found->second;
        return true;
    }

private:
    std::unordered_map<std::wstring_view, std::wstring_view> values_;
};

// A key composed in a buffer of its own: name, then up to two numbers joined by "_" (for
// example "Folder3_15"). Reading asks for hundreds of keys; none of them allocates.
class Key {
public:
    Key(const wchar_t* name, int first = -1, int second = -1) {
        while (*name && size_ < 24) text_[size_++] = *name++;
        if (first >= 0) Number(first);
        if (second >= 0) {
            text_[size_++] = L'_';
            Number(second);
        }
    }
    operator std::wstring_view() const { return {text_, size_}; }

private:
    void Number(int value) {  // 0..99 is all a folder set numbers
        if (value >= 10) text_[size_++] = static_cast<wchar_t>(L'0' + value / 10 % 10);
        text_[size_++] = static_cast<wchar_t>(L'0' + value % 10);
    }
    wchar_t text_[32] = {};
    size_t size_ = 0;
};

int FindInt(const Lines& text, std::wstring_view key, int defaultValue) {
    std::wstring_view value;
    return text.Find(key, value) ? ParseLeadingInt(value) : defaultValue;
}

std::wstring FindText(const Lines& text, std::wstring_view key) {
    std::wstring_view value;
    return text.Find(key, value) ? std::wstring(value) : std::wstring();
}

// The tab group of T-View `number`: its active line set when `index` is -1, else tab `index`.
bool ReadTab(const Lines& text, int number, int index, TabState& tab) {
    std::wstring_view folder;
    if (!text.Find(Key(L"Folder", number, index), folder)) return false;
    tab.folder = folder;
    tab.dir = FindText(text, Key(L"Dir", number, index));
    tab.viewModeFlags = FindText(text, Key(L"ViewModeFlags", number, index));
    tab.viewMode = FindText(text, Key(L"ViewMode", number, index));
    tab.colsAndSort = FindText(text, Key(L"ColsAndSort", number, index));
    tab.colsId = FindText(text, Key(L"ColsID", number, index));
    return true;
}

int Position(const Lines& text, const wchar_t* key, int missing, int outOfRange) {
    const int value = FindInt(text, key, missing);
    return value >= 1 && value <= 10000 ? value : outOfRange;
}

}  // namespace

std::vector<int> RecordedViews(const std::array<bool, 4>& layoutShows, const std::array<bool, 4>& hasFolder) {
    std::vector<int> views;
    for (int i = 0; i < 4; ++i)
        if (layoutShows[i] && hasFolder[i]) views.push_back(i);
    return views;
}

std::wstring FolderSetPath(std::wstring path) {
    const size_t n = path.size();
    const bool hasExtension = n >= 4 && path[n - 4] == L'.' && std::towlower(path[n - 3]) == L't' &&
                              std::towlower(path[n - 2]) == L's' && std::towlower(path[n - 1]) == L'f';
    if (!hasExtension) path += L".tsf";
    return path;
}

std::wstring WriteFolderSet(const FolderSet& set) {
    std::wstring out = kFolderSetVersionLine;
    out += kLineEnd;
    Line(out, L"ViewMode", Printf(L"%d", set.viewMode));
    for (const ViewRecord& view : set.views) {
        StateLines(out, Printf(L"%d", view.number), view.active);
        for (size_t i = 0; i < view.tabs.size(); ++i) {
            const std::wstring prefix = Printf(L"%d_%d", view.number, static_cast<int>(i));
            StateLines(out, prefix, view.tabs[i]);
            if (static_cast<int>(i) == view.selectedTab) Line(out, L"CurSel" + prefix, L"1");
            Line(out, L"CurPos" + prefix, Printf(L"%d", static_cast<int>(i)));
        }
    }
    if (set.withLayout) LayoutLines(out, set.layout);
    if (set.withColumns)
        for (const std::wstring& columns : set.columnTexts) out += columns + kLineEnd;
    if (set.withPlacement) {
        const RectI& r = set.placement;
        const std::wstring rect = Printf(L"%d;%d;%d;%d", r.left, r.top, r.right, r.bottom);
        Line(out, L"windowplacement", rect + Printf(L"|sw=%d", set.showCommand));
    }
    return out;
}

LoadedFolderSet ReadFolderSet(std::wstring_view fileText, int treeMode, int focus) {
    const Lines text(fileText);
    LoadedFolderSet set;
    set.viewMode = FindInt(text, L"ViewMode", -1);
    for (int number = 4; number >= 1; --number) {
        LoadedView& view = set.views[number - 1];
        view.hasActive = ReadTab(text, number, -1, view.active);
        for (int index = 0; index < kFolderSetTabLimit; ++index) {
            TabState tab;
            if (!ReadTab(text, number, index, tab)) continue;
            if (FindInt(text, Key(L"CurSel", number, index), 0) == 1)
                view.selectedTab = static_cast<int>(view.tabs.size());
            view.tabs.push_back(std::move(tab));
        }
    }
    LayoutBlock& b = set.layout;
    b.splitters = {Position(text, L"SP0", 5000, 5000), Position(text, L"SP1", 5000, 5000),
                   Position(text, L"SP2", 5000, 5000)};
    b.treeSplitter = Position(text, L"SPT", 2000, 5000);  // 2000 when missing, 5000 when out of range
    b.treeMode = FindInt(text, L"tree_mode", treeMode);
    for (int i = 0; i < 4; ++i) {
        const wchar_t tree[] = {L'T', L'r', L'e', L'e', static_cast<wchar_t>(L'1' + i), 0};
        b.tree[i] = FindInt(text, tree, 0);
        b.treeSplit[i] = FindInt(text, std::wstring(tree) + L"split", 2500);
    }
    b.preview = FindInt(text, L"Vorschau", 0);
    b.previewPosition = FindInt(text, L"VorschauPos", 7500);
    b.focus = FindInt(text, L"Focus", focus);
    return set;
}

std::wstring Latin1Text(std::string_view bytes) { return DecodeLatin1(bytes); }

TabsToOpen TabsOfRecord(const LoadedView& view) {
    if (!view.tabs.empty()) return {view.tabs, view.selectedTab};
    if (view.hasActive) return {{view.active}, 0};
    return {};
}

bool IsFolderSetText(std::wstring_view text) {
    const Lines lines(text);
    std::wstring_view value;
    if (lines.Find(L"Tessel Version", value)) return true;
    for (int number = 1; number <= 4; ++number)
        if (lines.Find(Key(L"Folder", number), value)) return true;
    return false;
}

std::wstring FolderSetText(const std::string& bytes, const AnsiDecoder& ansi) { return DecodeTextFile(bytes, ansi); }

}  // namespace tessel
