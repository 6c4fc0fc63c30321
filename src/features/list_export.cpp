#include "features/list_export.h"

#include <algorithm>
#include <cstdint>

#include "core/utf8.h"

namespace tessel {
namespace {

constexpr std::wstring_view kHtmlHead =
    L"<html><head><style><!-- \r\nbody,td,a,p,.h{font-family:arial,sans-serif; font-size: 12px; }\r\n"
    L".h{font-size: 20px;}\r\n.q{color:#0000cc;}\r\n.b_grau{background-color:#EEEEEE;}\r\n"
    L".b_gelb{background-color:#EEEEAA;}\r\n//-->\r\n</style></head>\r\n\r\n<body>\r\n\r\n\r\n";

std::vector<size_t> ShownColumns(const ExportTable& table) {
    std::vector<size_t> shown;
    for (size_t c = 0; c < table.captions.size(); ++c)
        if (c >= table.widths.size() || table.widths[c] >= kNarrowestShownColumn) shown.push_back(c);
    return shown;
}

const std::wstring& CellOf(const std::vector<std::wstring>& row, size_t column) {
    static const std::wstring kEmpty;
    return column < row.size() ? row[column] : kEmpty;
}

// A cell's tabs and line breaks would start a new cell or row of the text file.
std::wstring TextCell(std::wstring_view cell) {
    std::wstring text(cell);
    std::replace_if(text.begin(), text.end(), [](wchar_t c) { return c == L'\t' || c == L'\r' || c == L'\n'; }, L' ');
    return text;
}

// A spreadsheet runs a cell that begins with one of these as a formula (a name such as
// "=HYPERLINK(...).txt" would run when the export is opened); a leading apostrophe makes it
// plain text there and keeps it readable.
std::wstring_view SpreadsheetSafe(std::wstring_view cell, std::wstring& guarded) {
    if (cell.empty() || std::wstring_view(L"=+-@\t\r").find(cell.front()) == std::wstring_view::npos) return cell;
    guarded = L"'";
    guarded += cell;
    return guarded;
}

// Every field is quoted, so ";" and line breaks stay inside it; a quote is doubled.
std::wstring CsvCell(std::wstring_view cell) {
    std::wstring guarded;
    cell = SpreadsheetSafe(cell, guarded);
    std::wstring text = L"\"";
    for (wchar_t c : cell) {
        if (c == L'"') text += L'"';
        text += c;
    }
    return text + L"\"";
}

// The character at `at`, a surrogate pair read as one (then `at` moves onto its second half).
uint32_t CodePointAt(std::wstring_view text, size_t& at) {
    const uint32_t c = static_cast<uint32_t>(text[at]);
    if (c >= 0xD800 && c <= 0xDBFF && at + 1 < text.size() && text[at + 1] >= 0xDC00 && text[at + 1] <= 0xDFFF)
        return 0x10000 + ((c - 0xD800) << 10) + (static_cast<uint32_t>(text[++at]) - 0xDC00);
    return c;
}

std::wstring HtmlText(std::wstring_view cell) {
    std::wstring text;
    for (size_t i = 0; i < cell.size(); ++i) {
        const wchar_t c = cell[i];
        switch (c) {
        case L'<': text += L"&lt;"; break;
        case L'>': text += L"&gt;"; break;
        case L'&': text += L"&amp;"; break;
        case L'"': text += L"&quot;"; break;
        case L'\r': break;
        case L'\n': text += L"<br>"; break;
        default:
            if (c < 0x80) text += c;
            else text += L"&#" + std::to_wstring(CodePointAt(cell, i)) + L";";
        }
    }
    return text;
}

std::wstring Delimited(const ExportTable& table, ExportType type) {
    const std::vector<size_t> shown = ShownColumns(table);
    const std::wstring_view separator = type == ExportType::kCsv ? L";" : L"\t";
    auto line = [&](const std::vector<std::wstring>& cells) {
        std::wstring text;
        for (size_t i = 0; i < shown.size(); ++i) {
            if (i) text += separator;
            const std::wstring& cell = CellOf(cells, shown[i]);
            text += type == ExportType::kCsv ? CsvCell(cell) : TextCell(cell);
        }
        return text + L"\r\n";
    };
    std::wstring text = line(table.captions);
    for (const auto& row : table.rows) text += line(row);
    return text;
}

// `forSpreadsheet`: the HTML that a spreadsheet opens (".xls"), whose cells it would run as formulas.
std::wstring Html(const ExportTable& table, bool forSpreadsheet) {
    const std::vector<size_t> shown = ShownColumns(table);
    std::wstring text(kHtmlHead);
    text += L"<TABLE Border=0><TR class=\"b_gelb\">";
    for (size_t c : shown)
        text += table.captions[c].empty() ? L"<td>&nbsp;</td>" : L"<td><b><nobr>" + HtmlText(table.captions[c]) + L"</b></td>";
    text += L"</TR>\r\n\r\n";
    bool grey = false;
    for (const auto& row : table.rows) {
        text += grey ? L"  <TR class=\"b_grau\">" : L"  <TR>";
        grey = !grey;
        for (size_t c : shown) {
            std::wstring guarded;
            const std::wstring_view cell = forSpreadsheet ? SpreadsheetSafe(CellOf(row, c), guarded) : CellOf(row, c);
            text += cell.empty() ? L"<td>&nbsp;</td>" : L"<td ><nobr>" + HtmlText(cell) + L"</td>";
        }
        text += L"   </TR>\r\n";
    }
    return text + L"</TABLE></body></html>\r\n";
}

}  // namespace

ExportType ExportTypeOf(int index) {
    return index >= 1 && index <= 5 ? static_cast<ExportType>(index) : ExportType::kText;
}

std::wstring_view ExportExtension(ExportType type) {
    switch (type) {
    case ExportType::kCsv: return L".csv";
    case ExportType::kHtml: return L".html";
    case ExportType::kXls: return L".xls";
    case ExportType::kDoc: return L".doc";
    default: return L".txt";
    }
}

std::wstring WithExportExtension(std::wstring_view path, ExportType type) {
    const std::wstring_view extension = ExportExtension(type);
    std::wstring text(path);
    if (path.size() >= extension.size()) {
        std::wstring tail(path.substr(path.size() - extension.size()));
        std::transform(tail.begin(), tail.end(), tail.begin(), [](wchar_t c) { return c >= L'A' && c <= L'Z' ? c + 32 : c; });
        if (tail == extension) return text;
    }
    return text + std::wstring(extension);
}

std::wstring FormatExport(const ExportTable& table, ExportType type) {
    return type == ExportType::kText || type == ExportType::kCsv ? Delimited(table, type) : Html(table, type == ExportType::kXls);
}

std::string ExportFileBytes(const ExportTable& table, ExportType type) {
    const std::string text = EncodeUtf8(FormatExport(table, type));
    return type == ExportType::kText || type == ExportType::kCsv ? "\xEF\xBB\xBF" + text : text;
}

std::wstring FormatTabSeparated(const std::vector<std::vector<std::wstring>>& rows) {
    std::wstring text;
    for (const auto& row : rows) {
        for (size_t i = 0; i < row.size(); ++i) text += (i ? L"\t" : L"") + TextCell(row[i]);
        text += L"\r\n";
    }
    return text;
}

std::vector<std::vector<std::wstring>> ParseTabSeparated(std::wstring_view text) {
    std::vector<std::vector<std::wstring>> rows;
    if (!text.empty() && text.front() == L'\xFEFF') text.remove_prefix(1);
    while (!text.empty()) {
        const size_t end = text.find_first_of(L"\r\n");
        const std::wstring_view line = text.substr(0, end);
        text = end == std::wstring_view::npos ? std::wstring_view() : text.substr(end + 1);
        if (line.empty()) continue;
        std::vector<std::wstring>& row = rows.emplace_back();
        for (size_t start = 0;;) {
            const size_t tab = line.find(L'\t', start);
            row.emplace_back(line.substr(start, tab - start));
            if (tab == std::wstring_view::npos) break;
            start = tab + 1;
        }
    }
    return rows;
}

}  // namespace tessel
