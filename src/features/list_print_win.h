#pragma once
// The shown list of a T-View on paper: a preview page by page, the page set-up (the system's
// dialog when a printer is there; landscape in the preview always), and printing with page
// numbers. The paper and margins are kept in section "Druck" of the settings.
#include <windows.h>

#include <string>

#include "features/list_export.h"

namespace tessel {

struct PaperSetup {
    int width = 21000, height = 29700;          // 0.01 mm, portrait; A4 until a printer says otherwise
    RECT margins{2000, 2000, 2000, 2000};       // 0.01 mm
    bool landscape = false;
    int PageWidth() const { return landscape ? height : width; }
    int PageHeight() const { return landscape ? width : height; }
};

PaperSetup LoadPaperSetup();  // damaged or absurd values give way to A4 with 20 mm margins
void SavePaperSetup(const PaperSetup& setup);

int ListPageCount(const ExportTable& table, const PaperSetup& setup);

// Draws page `page` (from 0) on `dc`, whose logical unit is 0.01 mm with the paper's top left
// at the origin; returns the number of pages.
int DrawListPage(HDC dc, const ExportTable& table, const std::wstring& title, const PaperSetup& setup, int page);

class CPrintPreview {
public:
    static void Run(HWND owner, ExportTable table, std::wstring title);
};

}  // namespace tessel
