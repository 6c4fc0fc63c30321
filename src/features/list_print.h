#pragma once
// A file list on paper: the columns of the export (the ones a user can see) scaled to the
// printable width, as many rows per page as fit under the title and the captions, and the
// page numbers. Platform-free; the drawing is list_print_win's.
#include <cstddef>
#include <vector>

#include "features/list_export.h"

namespace tessel {

struct PrintColumn {
    size_t source = 0;  // the column of the table
    int left = 0, width = 0;  // page units from the printable area's left
};

struct PrintLayout {
    std::vector<PrintColumn> columns;
    int lineHeight = 0;
    int rowsPerPage = 1;
    int pageCount = 1;  // at least one, an empty list included
};

// `unitsPerPixel`: page units for one pixel of the list's columns; wider than the area, the
// columns are narrowed together. Three lines of each page hold the title, the captions and the
// page number.
PrintLayout LayOutListPrint(const ExportTable& table, int areaWidth, int areaHeight, int lineHeight,
                            double unitsPerPixel);

// The rows of page `page` (from 0): [first, first + count).
struct PageRows {
    size_t first = 0, count = 0;
};
PageRows RowsOfPage(const PrintLayout& layout, size_t rowCount, int page);

// The printer prints the pages the preview planned: the preview's page (width and height in
// any unit) is laid whole on the printer's paper (same unit), centred, shrunk when the paper is
// smaller or turned the other way, never enlarged. So the page count and every row are the
// preview's whatever paper the printer has.
struct PageOnPaper {
    double scale = 1;
    int left = 0, top = 0;  // where the page's top left lies on the paper
};
PageOnPaper FitPageOnPaper(int pageWidth, int pageHeight, int paperWidth, int paperHeight);

}  // namespace tessel
