#pragma once
// Folder-set files (".tsf"): a whole arrangement of the main window as "key=value" text lines.
// The writer takes a model of the arrangement; the reader finds each value by its key, so the
// order of the lines does not matter to it and anything it cannot find keeps its default.
#include <array>
#include <functional>
#include <string>
#include <string_view>
#include <string_view>
#include <vector>

#include "core/profile_values.h"

namespace tessel {

inline constexpr wchar_t kFolderSetVersionLine[] = L"Tessel Version=4.19";
inline constexpr int kFolderSetTabLimit = 16;  // tab groups 0..15 of a T-View are read

struct TabState {
    std::wstring folder;
    std::wstring dir;            // written only when not empty
    std::wstring viewModeFlags;  // the view's flags, decimal; "" when unknown
    std::wstring viewMode;       // the view mode, decimal; "" when unknown
    std::wstring colsAndSort;    // the column memory's stored-value text
    std::wstring colsId;         // the column key
};

struct ViewRecord {  // one visible T-View
    int number = 1;  // 1..4
    TabState active;
    std::vector<TabState> tabs;
    int selectedTab = 0;
};

struct LayoutBlock {
    std::array<int, 3> splitters{5000, 5000, 5000};  // SP0, SP1, SP2
    int treeSplitter = 2000;                         // SPT
    int treeMode = 0;
    std::array<int, 4> tree{};
    std::array<int, 4> treeSplit{2500, 2500, 2500, 2500};
    int preview = 0;  // Vorschau
    int previewPosition = 7500;
    int focus = 1;
};

struct FolderSet {
    int viewMode = -1;  // the layout 0..11, or -1 when saved without it
    std::vector<ViewRecord> views;
    bool withLayout = false;
    LayoutBlock layout;
    bool withColumns = false;
    std::array<std::wstring, 4> columnTexts;
    bool withPlacement = false;
    RectI placement;
    int showCommand = 1;
};

// The T-Views (from 0) that a folder set records: those the layout shows and that have a folder.
// Decided from the layout, never from the windows: a window waiting in the notification area
// is hidden whole, and its arrangement must still be written.
std::vector<int> RecordedViews(const std::array<bool, 4>& layoutShows, const std::array<bool, 4>& hasFolder);

// ".tsf" is appended unless the path already ends with it (any case).
std::wstring FolderSetPath(std::wstring path);

std::wstring WriteFolderSet(const FolderSet& set);

struct LoadedView {
    bool hasActive = false;
    TabState active;
    std::vector<TabState> tabs;  // the groups found, in index order
    int selectedTab = -1;        // index into tabs of the group marked "CurSel", or -1
};

// The tabs a T-View opens from its record: its tab list with the one marked selected (-1: none
// marked), or, for files that list no tabs, the active folder alone. Empty: the T-View keeps what
// it shows.
struct TabsToOpen {
    std::vector<TabState> tabs;
    int selected = 0;
};
TabsToOpen TabsOfRecord(const LoadedView& view);

struct LoadedFolderSet {
    int viewMode = -1;
    std::array<LoadedView, 4> views;
    LayoutBlock layout;
};

// Reads what the text holds; missing values take the defaults, positions out of range the
// replacement values. `treeMode` and `focus` are the current ones, kept when the file has none.
LoadedFolderSet ReadFolderSet(std::wstring_view text, int treeMode, int focus);

// Whether a file's text is a folder set at all: it has the header line "Tessel Version=..." or,
// written by hand, at least one T-View's "Folder<n>=" line. A text file, an empty file or a
// picture is not one, and opening it fails.
bool IsFolderSetText(std::wstring_view text);

// Single-byte text in the system's code page; Latin-1 where no system is asked.
using AnsiDecoder = std::function<std::wstring(std::string_view bytes)>;
std::wstring Latin1Text(std::string_view bytes);

// The file's bytes as text (DecodeTextFile), single bytes in the system's code page.
std::wstring FolderSetText(const std::string& bytes, const AnsiDecoder& ansi = Latin1Text);

}  // namespace tessel
