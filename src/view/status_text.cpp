#include "view/status_text.h"

#include <cwchar>

#include "features/size_format.h"

namespace tessel {
namespace {

std::wstring Printf(const wchar_t* format, auto... values) {
    wchar_t buffer[256];
    std::swprintf(buffer, 256, format, values...);
    return buffer;
}

// "1 item", "2 items": a count with its word, singular for one when the language has it.
std::wstring Counted(int count, const std::wstring& plural, const std::wstring& singular) {
    return Printf(L"%d %ls", count, (count == 1 && !singular.empty() ? singular : plural).c_str());
}

}  // namespace

std::wstring FormatByteSize(uint64_t bytes) {
    if (bytes < 1024) return Printf(L"%llu Bytes", static_cast<unsigned long long>(bytes));
    static const wchar_t* const kUnits[] = {L"KB", L"MB", L"GB", L"TB", L"PB"};
    double value = static_cast<double>(bytes) / 1024.0;
    int unit = 0;
    while (value >= 1024.0 && unit < 4) {
        value /= 1024.0;
        ++unit;
    }
    return Printf(L"%.1f %ls", value, kUnits[unit]);
}

std::wstring FormatStatusText(const ListCounts& c, int selectionType, int noSelectionType, const StatusWords& w) {
    std::wstring text;
    uint64_t bytes = c.totalBytes;
    if (c.selected > 0) {
        bytes = c.selectedBytes;
        if (selectionType == 2)
            text = Printf(L"%d %ls %d %ls", c.selected, w.of.c_str(), c.items, w.selected.c_str());
        else
            text = Printf(L"%d %ls", c.selected, w.selected.c_str());
        if (selectionType == 1) return text;
    } else {
        if (noSelectionType == 2 && c.sizesKnown)
            text = Counted(c.folders, w.folders, w.folder) + L", " + Counted(c.files, w.files, w.file);
        else
            text = Counted(c.items, w.items, w.item);
        if (noSelectionType == 1) return text;
    }
    if (c.sizesKnown) text += L" (" + FormatSize(bytes) + L")";
    return text;
}

std::wstring FormatFreeSpace(uint64_t freeBytes, uint64_t totalBytes, std::wstring_view of, std::wstring_view total) {
    return L"Frei: " + FormatByteSize(freeBytes) + L" " + std::wstring(of) + L" " + FormatByteSize(totalBytes) + L" " +
           std::wstring(total);
}

}  // namespace tessel
