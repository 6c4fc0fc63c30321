#include "features/list_print_win.h"

#include <cderr.h>
#include <commdlg.h>

#include <algorithm>
#include <iterator>
#include <string>
#include <utility>

#include "core/fill_in.h"
#include "core/language_packs_win.h"
#include "core/settings_store_win.h"
#include "features/list_print.h"
#include "features/preview_zoom.h"
#include "res/resource.h"
#include "win/handles_win.h"
#include "win/window_win.h"

namespace tessel {
namespace {

constexpr wchar_t kSection[] = L"Druck";
constexpr int kFontHeight = 318;                // 9 points in 0.01 mm
constexpr int kLineHeight = 420;
constexpr double kUnitsPerPixel = 2540.0 / 96;  // a list column's pixel on paper
constexpr int kPageText = 62373, kNoPrinterText = 62377, kPrintFailedText = 62378;

win::UniqueFont PageFont(bool bold) {
    LOGFONTW font{};
    font.lfHeight = -kFontHeight;
    font.lfWeight = bold ? FW_BOLD : FW_NORMAL;
    lstrcpynW(font.lfFaceName, L"Arial", LF_FACESIZE);
    return win::UniqueFont(CreateFontIndirectW(&font));
}

void Cell(HDC dc, const std::wstring& text, int left, int top, int width) {
    RECT box{left, top, left + width - 60, top + kLineHeight};  // a little air between columns
    DrawTextW(dc, text.c_str(), static_cast<int>(text.size()), &box,
              DT_LEFT | DT_SINGLELINE | DT_END_ELLIPSIS | DT_NOPREFIX | DT_NOCLIP);
}

std::wstring Today() {
    wchar_t date[80] = {};
    GetDateFormatW(LOCALE_USER_DEFAULT, DATE_SHORTDATE, nullptr, nullptr, date, 80);
    return date;
}

}  // namespace

PaperSetup LoadPaperSetup() {
    PaperSetup setup;
    const std::wstring paper = Settings().GetString(kSection, L"Papier", L"");
    int width = 0, height = 0;
    if (swscanf(paper.c_str(), L"%d;%d", &width, &height) == 2 && width >= 5000 && height >= 5000 && width <= 200000 &&
        height <= 200000) {
        setup.width = width;
        setup.height = height;
    }
    RectI margins{};
    if (Settings().GetRect(kSection, L"Raender", margins) && margins.left >= 0 && margins.top >= 0 && margins.right >= 0 &&
        margins.bottom >= 0 && margins.left + margins.right < std::min(setup.width, setup.height) / 2 &&
        margins.top + margins.bottom < std::min(setup.width, setup.height) / 2)
        setup.margins = {margins.left, margins.top, margins.right, margins.bottom};
    setup.landscape = Settings().GetInt(kSection, L"Quer", 0) != 0;
    return setup;
}

void SavePaperSetup(const PaperSetup& setup) {
    Settings().PutString(kSection, L"Papier", std::to_wstring(setup.width) + L";" + std::to_wstring(setup.height));
    Settings().PutString(kSection, L"Raender",
                         FormatRect({setup.margins.left, setup.margins.top, setup.margins.right, setup.margins.bottom}));
    Settings().PutInt(kSection, L"Quer", setup.landscape ? 1 : 0);
}

namespace {

RECT PrintableArea(const PaperSetup& setup) {
    return {setup.margins.left, setup.margins.top, setup.PageWidth() - setup.margins.right,
            setup.PageHeight() - setup.margins.bottom};
}

PrintLayout LayOut(const ExportTable& table, const PaperSetup& setup) {
    const RECT area = PrintableArea(setup);
    return LayOutListPrint(table, area.right - area.left, area.bottom - area.top, kLineHeight, kUnitsPerPixel);
}

}  // namespace

int ListPageCount(const ExportTable& table, const PaperSetup& setup) { return LayOut(table, setup).pageCount; }

int DrawListPage(HDC dc, const ExportTable& table, const std::wstring& title, const PaperSetup& setup, int page) {
    const RECT area = PrintableArea(setup);
    const PrintLayout layout = LayOut(table, setup);
    win::UniqueFont normal = PageFont(false), bold = PageFont(true);
    HGDIOBJ old = SelectObject(dc, bold.get());
    SetBkMode(dc, TRANSPARENT);
    SetTextColor(dc, RGB(0, 0, 0));
    int y = area.top;
    Cell(dc, title, area.left, y, area.right - area.left);
    y += kLineHeight;
    for (const PrintColumn& column : layout.columns) Cell(dc, table.captions[column.source], area.left + column.left, y, column.width);
    y += kLineHeight;
    MoveToEx(dc, area.left, y - 60, nullptr);
    LineTo(dc, area.right, y - 60);
    SelectObject(dc, normal.get());
    const PageRows rows = RowsOfPage(layout, table.rows.size(), page);
    for (size_t r = rows.first; r < rows.first + rows.count; ++r, y += kLineHeight)
        for (const PrintColumn& column : layout.columns)
            if (column.source < table.rows[r].size())
                Cell(dc, table.rows[r][column.source], area.left + column.left, y, column.width);
    const std::wstring number = FillIn(GetText(kPageText), {std::to_wstring(page + 1), std::to_wstring(layout.pageCount)});
    RECT footer{area.left, area.bottom - kLineHeight, area.right, area.bottom};
    DrawTextW(dc, number.c_str(), -1, &footer, DT_CENTER | DT_SINGLELINE | DT_NOPREFIX | DT_NOCLIP);
    const std::wstring date = Today();
    DrawTextW(dc, date.c_str(), -1, &footer, DT_RIGHT | DT_SINGLELINE | DT_NOPREFIX | DT_NOCLIP);
    SelectObject(dc, old);
    return layout.pageCount;
}

namespace {

struct PreviewState {
    ExportTable table;
    std::wstring title;
    PaperSetup setup = LoadPaperSetup();
    int page = 0;
    int pages = 1;
    PreviewZoom zoom;
    POINT scroll{};  // pixels of a page larger than the area, scrolled out at the top left
    SIZE overflow{};   // how far the page as last painted reaches beyond the area
    SIZE areaGap{};    // from the area's right and bottom to the dialog's, as the resource lays it out
    int bottomRowGap = 0;  // from the bottom row's top to the dialog's bottom
};

// The resource's layout: the area ends 6 units left of the right edge and 24 above the bottom,
// and the bottom row starts 20 above it.
constexpr int kAreaGapX = 6, kAreaGapY = 24, kBottomRowGap = 20;

RECT ChildRect(HWND dialog, int id) {
    RECT rect{};
    GetWindowRect(GetDlgItem(dialog, id), &rect);
    MapWindowPoints(nullptr, dialog, reinterpret_cast<POINT*>(&rect), 2);
    return rect;
}

// The area takes what the dialog gains or loses; the zoom list and Close stay at the bottom.
void LayOutPreview(HWND dialog, const PreviewState& state) {
    RECT client{};
    GetClientRect(dialog, &client);
    const RECT area = ChildRect(dialog, IDC_PP_AREA);
    SetWindowPos(GetDlgItem(dialog, IDC_PP_AREA), nullptr, 0, 0, std::max<LONG>(0, client.right - state.areaGap.cx - area.left),
                 std::max<LONG>(0, client.bottom - state.areaGap.cy - area.top), SWP_NOMOVE | SWP_NOZORDER);
    const int top = client.bottom - state.bottomRowGap;
    const RECT zoom = ChildRect(dialog, IDC_PP_ZOOM), close = ChildRect(dialog, IDOK);
    SetWindowPos(GetDlgItem(dialog, IDC_PP_ZOOM), nullptr, zoom.left, top, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    SetWindowPos(GetDlgItem(dialog, IDOK), nullptr, client.right - state.areaGap.cx - (close.right - close.left), top, 0, 0,
                 SWP_NOSIZE | SWP_NOZORDER);
    InvalidateRect(dialog, nullptr, TRUE);
}

// A dialog larger than the screen's work area (a small screen at a large scale) is made to fit it.
void FitToWorkArea(HWND dialog) {
    MONITORINFO monitor{sizeof(monitor)};
    RECT window{};
    if (!GetMonitorInfoW(MonitorFromWindow(dialog, MONITOR_DEFAULTTONEAREST), &monitor) || !GetWindowRect(dialog, &window)) return;
    const RECT& work = monitor.rcWork;
    const int w = std::min(window.right - window.left, work.right - work.left);
    const int h = std::min(window.bottom - window.top, work.bottom - work.top);
    if (w == window.right - window.left && h == window.bottom - window.top) return;
    SetWindowPos(dialog, nullptr, work.left + (work.right - work.left - w) / 2, work.top + (work.bottom - work.top - h) / 2, w, h,
                 SWP_NOZORDER);
}

double ShownScale(const PreviewState& state, int roomW, int roomH, int dpi) {
    return PreviewScale(state.zoom, state.setup.PageWidth(), state.setup.PageHeight(), roomW, roomH, dpi);
}

// The page on grey at the zoom chosen, centred when it fits and scrolled where it does not.
void PaintPreview(const DRAWITEMSTRUCT& item, PreviewState& state) {
    HDC dc = item.hDC;
    const RECT& box = item.rcItem;
    win::UniqueBrush grey(CreateSolidBrush(RGB(128, 128, 128)));
    FillRect(dc, &box, grey.get());
    const int roomW = box.right - box.left - 16, roomH = box.bottom - box.top - 16;
    if (roomW <= 0 || roomH <= 0) return;
    const double scale = ShownScale(state, roomW, roomH, GetDeviceCaps(dc, LOGPIXELSY));
    const int w = static_cast<int>(state.setup.PageWidth() * scale);
    const int h = static_cast<int>(state.setup.PageHeight() * scale);
    state.overflow = {std::max(0, w - roomW), std::max(0, h - roomH)};
    state.scroll.x = std::clamp<LONG>(state.scroll.x, 0, state.overflow.cx);
    state.scroll.y = std::clamp<LONG>(state.scroll.y, 0, state.overflow.cy);
    RECT paper{w <= roomW ? box.left + (box.right - box.left - w) / 2 : box.left + 8 - state.scroll.x,
               h <= roomH ? box.top + (box.bottom - box.top - h) / 2 : box.top + 8 - state.scroll.y, 0, 0};
    paper.right = paper.left + w;
    paper.bottom = paper.top + h;
    FillRect(dc, &paper, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
    const int saved = SaveDC(dc);
    IntersectClipRect(dc, std::max(paper.left, box.left), std::max(paper.top, box.top), std::min(paper.right, box.right),
                      std::min(paper.bottom, box.bottom));
    SetMapMode(dc, MM_ANISOTROPIC);
    SetWindowExtEx(dc, state.setup.PageWidth(), state.setup.PageHeight(), nullptr);
    SetViewportExtEx(dc, w, h, nullptr);
    SetViewportOrgEx(dc, paper.left, paper.top, nullptr);
    DrawListPage(dc, state.table, state.title, state.setup, state.page);
    RestoreDC(dc, saved);
}

void ShowPageNumber(HWND dialog, const PreviewState& state) {
    const std::wstring text = FillIn(GetText(kPageText), {std::to_wstring(state.page + 1), std::to_wstring(state.pages)});
    SetDlgItemTextW(dialog, IDC_PP_PAGE, text.c_str());
    EnableWindow(GetDlgItem(dialog, IDC_PP_PREVIOUS), state.page > 0);
    EnableWindow(GetDlgItem(dialog, IDC_PP_NEXT), state.page + 1 < state.pages);
}

constexpr int kZoomPageText = 62420, kZoomWidthText = 62421;

void FillZoomChoices(HWND dialog) {
    HWND combo = GetDlgItem(dialog, IDC_PP_ZOOM);
    SendMessageW(combo, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(GetText(kZoomPageText).c_str()));
    SendMessageW(combo, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(GetText(kZoomWidthText).c_str()));
    for (int step : kZoomSteps)
        SendMessageW(combo, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>((std::to_wstring(step) + L" %").c_str()));
}

int ZoomChoiceOf(const PreviewZoom& zoom) {
    if (zoom.fit != ZoomFit::kPercent) return zoom.fit == ZoomFit::kPage ? 0 : 1;
    for (size_t i = 0; i < std::size(kZoomSteps); ++i)
        if (kZoomSteps[i] == zoom.percent) return static_cast<int>(i) + 2;
    return -1;
}

PreviewZoom ZoomOfChoice(int choice) {
    if (choice <= 0) return {};
    if (choice == 1) return {ZoomFit::kWidth, 100};
    return {ZoomFit::kPercent, kZoomSteps[std::min<size_t>(static_cast<size_t>(choice - 2), std::size(kZoomSteps) - 1)]};
}

void Repaint(HWND dialog, PreviewState& state) {
    state.pages = ListPageCount(state.table, state.setup);  // the paper may have changed
    state.page = std::clamp(state.page, 0, state.pages - 1);
    InvalidateRect(GetDlgItem(dialog, IDC_PP_AREA), nullptr, FALSE);
    ShowPageNumber(dialog, state);
}

// The system tells of a missing printer itself; other failures get our word.
void NoPrinter(HWND dialog) {
    const DWORD error = CommDlgExtendedError();
    if (error == 0 || error == PDERR_NODEFAULTPRN || error == PDERR_NODEVICES) return;
    MessageBoxW(dialog, GetText(kNoPrinterText).c_str(), GetText(60000).c_str(), MB_ICONINFORMATION);
}

void PageSetup(HWND dialog, PreviewState& state) {
    PAGESETUPDLGW page{sizeof(page)};
    page.hwndOwner = dialog;
    page.Flags = PSD_INHUNDREDTHSOFMILLIMETERS | PSD_MARGINS;
    page.rtMargin = state.setup.margins;
    if (!PageSetupDlgW(&page)) {
        NoPrinter(dialog);
        return;
    }
    const bool landscape = page.ptPaperSize.x > page.ptPaperSize.y;
    state.setup.width = landscape ? page.ptPaperSize.y : page.ptPaperSize.x;
    state.setup.height = landscape ? page.ptPaperSize.x : page.ptPaperSize.y;
    state.setup.landscape = landscape;
    state.setup.margins = page.rtMargin;
    if (page.hDevMode) GlobalFree(page.hDevMode);
    if (page.hDevNames) GlobalFree(page.hDevNames);
    SavePaperSetup(state.setup);
    CheckDlgButton(dialog, IDC_PP_LANDSCAPE, landscape ? BST_CHECKED : BST_UNCHECKED);
    Repaint(dialog, state);
}

// The printer is offered the preview's paper turned as in the preview; whatever paper it prints
// on, it prints the preview's pages, fitted whole.
win::UniqueGlobal DevModeOf(const PaperSetup& setup) {
    win::UniqueGlobal block(GlobalAlloc(GMEM_MOVEABLE | GMEM_ZEROINIT, sizeof(DEVMODEW)));
    if (auto* mode = block ? static_cast<DEVMODEW*>(GlobalLock(block.get())) : nullptr) {
        mode->dmSize = sizeof(DEVMODEW);
        mode->dmFields = DM_ORIENTATION | DM_PAPERWIDTH | DM_PAPERLENGTH;
        mode->dmOrientation = setup.landscape ? DMORIENT_LANDSCAPE : DMORIENT_PORTRAIT;
        mode->dmPaperWidth = static_cast<short>(setup.width / 10);  // 0.1 mm, portrait
        mode->dmPaperLength = static_cast<short>(setup.height / 10);
        GlobalUnlock(block.get());
    }
    return block;
}

// The preview's page (0.01 mm) onto the printer's paper, its unprintable edge kept out.
void MapPreviewPage(HDC dc, const PaperSetup& setup) {
    const int dpiX = std::max(GetDeviceCaps(dc, LOGPIXELSX), 1), dpiY = std::max(GetDeviceCaps(dc, LOGPIXELSY), 1);
    const int physW = GetDeviceCaps(dc, PHYSICALWIDTH), physH = GetDeviceCaps(dc, PHYSICALHEIGHT);
    const PageOnPaper fit = FitPageOnPaper(setup.PageWidth(), setup.PageHeight(), MulDiv(physW, 2540, dpiX),
                                           MulDiv(physH, 2540, dpiY));
    SetMapMode(dc, MM_ANISOTROPIC);
    SetWindowExtEx(dc, setup.PageWidth(), setup.PageHeight(), nullptr);
    SetViewportExtEx(dc, static_cast<int>(setup.PageWidth() * fit.scale * dpiX / 2540),
                     static_cast<int>(setup.PageHeight() * fit.scale * dpiY / 2540), nullptr);
    SetViewportOrgEx(dc, MulDiv(fit.left, dpiX, 2540) - GetDeviceCaps(dc, PHYSICALOFFSETX),
                     MulDiv(fit.top, dpiY, 2540) - GetDeviceCaps(dc, PHYSICALOFFSETY), nullptr);
}

void Print(HWND dialog, const PreviewState& state) {
    PRINTDLGW print{sizeof(print)};
    print.hwndOwner = dialog;
    print.Flags = PD_RETURNDC | PD_NOSELECTION | PD_USEDEVMODECOPIESANDCOLLATE;
    print.nMinPage = 1;
    print.nMaxPage = static_cast<WORD>(std::min(state.pages, 0xFFFF));
    print.nFromPage = 1;
    print.nToPage = print.nMaxPage;
    print.hDevMode = DevModeOf(state.setup).release();  // the dialog may replace it; freed below either way
    const BOOL chosen = PrintDlgW(&print);
    if (print.hDevMode) GlobalFree(print.hDevMode);
    if (print.hDevNames) GlobalFree(print.hDevNames);
    if (!chosen) {
        NoPrinter(dialog);
        return;
    }
    HDC dc = print.hDC;
    const int first = (print.Flags & PD_PAGENUMS) ? print.nFromPage - 1 : 0;
    const int last = std::min((print.Flags & PD_PAGENUMS) ? print.nToPage - 1 : state.pages - 1, state.pages - 1);
    DOCINFOW document{sizeof(document)};
    document.lpszDocName = state.title.c_str();
    bool ok = StartDocW(dc, &document) > 0;
    for (int page = first; ok && page <= last; ++page) {
        ok = StartPage(dc) > 0;
        MapPreviewPage(dc, state.setup);
        if (ok) DrawListPage(dc, state.table, state.title, state.setup, page);
        ok = ok && EndPage(dc) > 0;
    }
    if (ok) EndDoc(dc);
    else AbortDoc(dc);
    DeleteDC(dc);
    if (!ok) MessageBoxW(dialog, GetText(kPrintFailedText).c_str(), GetText(60000).c_str(), MB_ICONWARNING);
}

INT_PTR CALLBACK PreviewProcedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* state = reinterpret_cast<PreviewState*>(GetWindowLongPtrW(dialog, DWLP_USER));
    switch (message) {
    case WM_INITDIALOG:
        SetWindowLongPtrW(dialog, DWLP_USER, lParam);
        LocalizeDialog(dialog);
        state = reinterpret_cast<PreviewState*>(lParam);
        CheckDlgButton(dialog, IDC_PP_LANDSCAPE, state->setup.landscape ? BST_CHECKED : BST_UNCHECKED);
        FillZoomChoices(dialog);
        SendDlgItemMessageW(dialog, IDC_PP_ZOOM, CB_SETCURSEL, ZoomChoiceOf(state->zoom), 0);
        {
            // The resource's gaps in dialog units: the window may already be cut to the screen.
            RECT gaps{kAreaGapX, kAreaGapY, kBottomRowGap, 0};
            MapDialogRect(dialog, &gaps);
            state->areaGap = {gaps.left, gaps.top};
            state->bottomRowGap = gaps.right;
        }
        FitToWorkArea(dialog);
        LayOutPreview(dialog, *state);
        Repaint(dialog, *state);
        return TRUE;
    case WM_SIZE:
        if (state && state->bottomRowGap > 0) LayOutPreview(dialog, *state);
        return TRUE;
    case WM_GETMINMAXINFO:
        reinterpret_cast<MINMAXINFO*>(lParam)->ptMinTrackSize = {win::Scaled(dialog, 420), win::Scaled(dialog, 240)};
        return TRUE;
    case WM_MOUSEWHEEL: {
        if (!state) return FALSE;
        const int steps = GET_WHEEL_DELTA_WPARAM(wParam) / WHEEL_DELTA;
        if (GET_KEYSTATE_WPARAM(wParam) & MK_CONTROL) {
            if (steps == 0) return TRUE;
            HDC screen = GetDC(dialog);
            const int dpi = GetDeviceCaps(screen, LOGPIXELSY);
            ReleaseDC(dialog, screen);
            RECT area{};
            GetClientRect(GetDlgItem(dialog, IDC_PP_AREA), &area);
            state->zoom = ZoomStep(ShownScale(*state, area.right - 16, area.bottom - 16, dpi), dpi, steps);
            SendDlgItemMessageW(dialog, IDC_PP_ZOOM, CB_SETCURSEL, ZoomChoiceOf(state->zoom), 0);
        } else {  // a page larger than the area scrolls; Shift scrolls sideways
            LONG& along = (GET_KEYSTATE_WPARAM(wParam) & MK_SHIFT) ? state->scroll.x : state->scroll.y;
            along -= steps * win::Scaled(dialog, 60);
        }
        InvalidateRect(GetDlgItem(dialog, IDC_PP_AREA), nullptr, FALSE);
        return TRUE;
    }
    case WM_DRAWITEM:
        if (wParam != IDC_PP_AREA || !state) return FALSE;
        PaintPreview(*reinterpret_cast<DRAWITEMSTRUCT*>(lParam), *state);
        return TRUE;
    case WM_COMMAND:
        if (!state) return FALSE;
        switch (LOWORD(wParam)) {
        case IDC_PP_PREVIOUS: --state->page; Repaint(dialog, *state); return TRUE;
        case IDC_PP_NEXT: ++state->page; Repaint(dialog, *state); return TRUE;
        case IDC_PP_LANDSCAPE:
            state->setup.landscape = IsDlgButtonChecked(dialog, IDC_PP_LANDSCAPE) == BST_CHECKED;
            SavePaperSetup(state->setup);
            Repaint(dialog, *state);
            return TRUE;
        case IDC_PP_SETUP: PageSetup(dialog, *state); return TRUE;
        case IDC_PP_ZOOM:
            if (HIWORD(wParam) != CBN_SELCHANGE) return FALSE;
            state->zoom = ZoomOfChoice(static_cast<int>(SendDlgItemMessageW(dialog, IDC_PP_ZOOM, CB_GETCURSEL, 0, 0)));
            state->scroll = {};
            InvalidateRect(GetDlgItem(dialog, IDC_PP_AREA), nullptr, FALSE);
            return TRUE;
        case IDC_PP_PRINT: Print(dialog, *state); return TRUE;
        case IDOK:
        case IDCANCEL: EndDialog(dialog, IDOK); return TRUE;
        }
        return FALSE;
    }
    return FALSE;
}

}  // namespace

void CPrintPreview::Run(HWND owner, ExportTable table, std::wstring title) {
    PreviewState state;
    state.table = std::move(table);
    state.title = std::move(title);
    DialogBoxParamW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDD_PRINT_PREVIEW), owner, PreviewProcedure,
                    reinterpret_cast<LPARAM>(&state));
}

}  // namespace tessel
