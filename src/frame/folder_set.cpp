#include "frame/folder_set.h"

#include <cwchar>
#include <cwctype>

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

// The value of the first line that starts with key + "=", up to the end of that line.
bool FindValue(std::wstring_view text, std::wstring_view key, std::wstring_view& value) {
    size_t at = 0;
    while ((at = text.find(key, at)) != std::wstring_view::npos) {
        const size_t end = at + key.size();
        const bool lineStart = at == 0 || text[at - 1] == L'\n' || text[at - 1] == L'\r';
        if (lineStart && end < text.size() && text[end] == L'=') {
            size_t stop = text.find_first_of(L"\r\n", end + 1);
            value = text.substr(end + 1, stop == std::wstring_view::npos ? std::wstring_view::npos : stop - end - 1);
            return true;
        }
        at = end;
    }
    return false;
}

int FindInt(std::wstring_view text, std::wstring_view key, int defaultValue) {
    std::wstring_view value;
    return FindValue(text, key, value) ? ParseLeadingInt(value) : defaultValue;
}

std::wstring FindText(std::wstring_view text, const std::wstring& key) {
    std::wstring_view value;
    return FindValue(text, key, value) ? std::wstring(value) : std::wstring();
}

bool ReadTab(std::wstring_view text, const std::wstring& prefix, TabState& tab) {
    std::wstring_view folder;
    if (!FindValue(text, L"Folder" + prefix, folder)) return false;
    tab.folder = folder;
    tab.dir = FindText(text, L"Dir" + prefix);
    tab.viewModeFlags = FindText(text, L"ViewModeFlags" + prefix);
    tab.viewMode = FindText(text, L"ViewMode" + prefix);
    tab.colsAndSort = FindText(text, L"ColsAndSort" + prefix);
    tab.colsId = FindText(text, L"ColsID" + prefix);
    return true;
}

int Position(std::wstring_view text, const wchar_t* key, int missing, int outOfRange) {
    const int value = FindInt(text, key, missing);
    return value >= 1 && value <= 10000 ? value : outOfRange;
}

}  // namespace

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

LoadedFolderSet ReadFolderSet(std::wstring_view text, int treeMode, int focus) {
    LoadedFolderSet set;
    set.viewMode = FindInt(text, L"ViewMode", -1);
    for (int number = 4; number >= 1; --number) {
        LoadedView& view = set.views[number - 1];
        view.hasActive = ReadTab(text, Printf(L"%d", number), view.active);
        for (int index = 0; index < kFolderSetTabLimit; ++index) {
            const std::wstring prefix = Printf(L"%d_%d", number, index);
            TabState tab;
            if (!ReadTab(text, prefix, tab)) continue;
            if (FindInt(text, L"CurSel" + prefix, 0) == 1) view.selectedTab = static_cast<int>(view.tabs.size());
            view.tabs.push_back(std::move(tab));
        }
    }
    LayoutBlock& b = set.layout;
    b.splitters = {Position(text, L"SP0", 5000, 5000), Position(text, L"SP1", 5000, 5000),
                   Position(text, L"SP2", 5000, 5000)};
    b.treeSplitter = Position(text, L"SPT", 2000, 5000);  // 2000 when missing, 5000 when out of range
    b.treeMode = FindInt(text, L"tree_mode", treeMode);
    for (int i = 0; i < 4; ++i) {
        b.tree[i] = FindInt(text, Printf(L"Tree%d", i + 1), 0);
        b.treeSplit[i] = FindInt(text, Printf(L"Tree%dsplit", i + 1), 2500);
    }
    b.preview = FindInt(text, L"Vorschau", 0);
    b.previewPosition = FindInt(text, L"VorschauPos", 7500);
    b.focus = FindInt(text, L"Focus", focus);
    return set;
}

std::wstring FolderSetText(const std::string& bytes) {
    const auto* data = reinterpret_cast<const unsigned char*>(bytes.data());
    const size_t size = bytes.size();
    const bool bom = size >= 2 && data[0] == 0xFF && data[1] == 0xFE;
    // Without the mark, UTF-16LE shows as ASCII bytes followed by zeros.
    const bool wide = bom || (size >= 4 && data[0] != 0 && data[1] == 0 && data[3] == 0);
    std::wstring text;
    if (wide) {
        text.reserve(size / 2);
        for (size_t i = bom ? 2 : 0; i + 1 < size; i += 2) text += static_cast<wchar_t>(data[i] | (data[i + 1] << 8));
    } else {
        text.assign(data, data + size);
    }
    return text;
}

}  // namespace tessel
