#include "features/list_print.h"

#include <algorithm>

namespace tessel {

namespace {
constexpr int kFrameLines = 3;  // title, captions, page number
}

PrintLayout LayOutListPrint(const ExportTable& table, int areaWidth, int areaHeight, int lineHeight,
                            double unitsPerPixel) {
    PrintLayout layout;
    layout.lineHeight = std::max(lineHeight, 1);
    double total = 0;
    for (size_t c = 0; c < table.captions.size() && c < table.widths.size(); ++c)
        if (table.widths[c] >= kNarrowestShownColumn) total += table.widths[c] * unitsPerPixel;
    const double scale = total > areaWidth && total > 0 ? areaWidth / total : 1.0;
    double left = 0;
    for (size_t c = 0; c < table.captions.size() && c < table.widths.size(); ++c) {
        if (table.widths[c] < kNarrowestShownColumn) continue;
        const double width = table.widths[c] * unitsPerPixel * scale;
        layout.columns.push_back({c, static_cast<int>(left), std::max(static_cast<int>(width), 1)});
        left += width;
    }
    layout.rowsPerPage = std::max(areaHeight / layout.lineHeight - kFrameLines, 1);
    const size_t rows = table.rows.size();
    layout.pageCount = std::max<int>(1, static_cast<int>((rows + layout.rowsPerPage - 1) / layout.rowsPerPage));
    return layout;
}

PageRows RowsOfPage(const PrintLayout& layout, size_t rowCount, int page) {
    if (page < 0 || page >= layout.pageCount) return {};
    const size_t first = static_cast<size_t>(page) * static_cast<size_t>(layout.rowsPerPage);
    if (first >= rowCount) return {first, 0};
    return {first, std::min(static_cast<size_t>(layout.rowsPerPage), rowCount - first)};
}

PageOnPaper FitPageOnPaper(int pageWidth, int pageHeight, int paperWidth, int paperHeight) {
    PageOnPaper fit;
    if (pageWidth <= 0 || pageHeight <= 0 || paperWidth <= 0 || paperHeight <= 0) return fit;
    fit.scale = std::min({1.0, static_cast<double>(paperWidth) / pageWidth, static_cast<double>(paperHeight) / pageHeight});
    fit.left = static_cast<int>((paperWidth - pageWidth * fit.scale) / 2);
    fit.top = static_cast<int>((paperHeight - pageHeight * fit.scale) / 2);
    return fit;
}

}  // namespace tessel
