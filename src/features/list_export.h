#pragma once
// A list written as text, CSV or an HTML table (also under ".xls" and ".doc"): the captions and
// every row of the columns a user can see, and the tab-separated form of the options lists.
#include <string>
#include <string_view>
#include <vector>

namespace tessel {

enum class ExportType { kText = 1, kCsv, kHtml, kXls, kDoc };
inline constexpr int kNarrowestShownColumn = 11;  // pixels; narrower columns are hidden ones

struct ExportTable {
    std::vector<std::wstring> captions;
    std::vector<int> widths;  // pixels, one per caption
    std::vector<std::vector<std::wstring>> rows;
    std::vector<int> columns;  // the list's column index of each caption, when read from a list
};

// The type for a remembered "ExportIndex" (1 to 5, anything else is text).
ExportType ExportTypeOf(int index);
std::wstring_view ExportExtension(ExportType type);  // ".txt" ...
// The chosen name with the type's extension appended unless it ends with it already.
std::wstring WithExportExtension(std::wstring_view path, ExportType type);

// The file's text: text and CSV go to disk as UTF-8 with a byte-order mark, the HTML table as
// ASCII (characters outside it as character references).
std::wstring FormatExport(const ExportTable& table, ExportType type);
std::string ExportFileBytes(const ExportTable& table, ExportType type);

// Options lists: one line per row ending in CR LF, cells separated by TAB.
std::wstring FormatTabSeparated(const std::vector<std::vector<std::wstring>>& rows);
std::vector<std::vector<std::wstring>> ParseTabSeparated(std::wstring_view text);

}  // namespace tessel
