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

}  // namespace tessel
