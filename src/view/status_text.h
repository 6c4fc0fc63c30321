#pragma once
// What a T-View's status bar says about its list, and the free-space text of the main window.
#include <cstdint>
#include <string>
#include <string_view>

namespace tessel {

struct ListCounts {
    int items = 0;
    int selected = 0;
    int folders = 0;  // of all items, when sizesKnown
    int files = 0;
    uint64_t totalBytes = 0;
    uint64_t selectedBytes = 0;
    bool sizesKnown = false;  // file-system folders only
};

struct StatusWords {  // language words; the singular ones are used for a count of one
    std::wstring items, selected, folders, files, of;
    std::wstring item, folder, file;
};

// Drive sizes, "1.5 KB": bytes below 1,024 as "N Bytes", above with one decimal. The list's
// sizes are written as every other size of the program (FormatSize).
std::wstring FormatByteSize(uint64_t bytes);

// status_selection_type (something selected): 0 count and size, 1 count only,
// 2 "N of M selected" and size. status_no_selection_type: 0 count and size, 1 count only,
// 2 folders and files apart and size. Values out of range count as 0.
std::wstring FormatStatusText(const ListCounts& counts, int selectionType, int noSelectionType,
                              const StatusWords& words);

// "Frei: 12.3 GB of 100.0 GB total" with the language's "of" and "total".
std::wstring FormatFreeSpace(uint64_t freeBytes, uint64_t totalBytes, std::wstring_view of, std::wstring_view total);

}  // namespace tessel
