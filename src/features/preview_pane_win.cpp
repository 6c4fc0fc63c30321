#include "features/preview_pane_win.h"

#include <shlobj.h>

#include <algorithm>
#include <vector>

#include "core/fill_in.h"
#include "core/general_options.h"
#include "core/language_packs_win.h"
#include "core/settings_store_win.h"
#include "features/colour_picker_win.h"
#include "features/colour_rules.h"
#include "features/size_format.h"
#include "win/com_ptr_win.h"
#include "win/shell_item_win.h"

namespace tessel {
namespace {

constexpr UINT kMsgPreviewResult = WM_APP + 0x140;
constexpr int kTextId = 1;
constexpr UINT kBackgroundCommand = 1;
constexpr wchar_t kSection[] = L"Vorschau";
constexpr wchar_t kBackgroundKey[] = L"Hintergrund";
// Strings of the pane.
constexpr int kSizeText = 62320, kTypeText = 62321, kChangedText = 62322, kPictureText = 62323,
              kEntriesText = 62324, kAllText = 62325, kCountingText = 62326, kGoneText = 62327,
              kUnreadableText = 62328, kBackgroundText = 62329, kCutText = 62330;

std::wstring DateText(const FILETIME& written) {
    FILETIME local{};
    SYSTEMTIME time{};
    if (!FileTimeToLocalFileTime(&written, &local) || !FileTimeToSystemTime(&local, &time)) return L"";
    wchar_t date[80] = {}, clock[40] = {};
    GetDateFormatW(LOCALE_USER_DEFAULT, DATE_SHORTDATE, &time, nullptr, date, 80);
    GetTimeFormatW(LOCALE_USER_DEFAULT, TIME_NOSECONDS, &time, nullptr, clock, 40);
    return std::wstring(date) + L" " + clock;
}

std::wstring DisplayName(PCIDLIST_ABSOLUTE item) {
    PWSTR name = nullptr;
    if (FAILED(SHGetNameFromIDList(item, SIGDN_NORMALDISPLAY, &name))) return L"";
    std::wstring text(name);
    CoTaskMemFree(name);
    return text;
}

bool IsFolderItem(PCIDLIST_ABSOLUTE item) {
    win::ComPtr<IShellFolder> parent;
    PCUITEMID_CHILD child = nullptr;
    if (FAILED(SHBindToParent(item, IID_IShellFolder, parent.put_void(), &child))) return false;
    SFGAOF attributes = SFGAO_FOLDER | SFGAO_STREAM;
    return SUCCEEDED(parent->GetAttributesOf(1, &child, &attributes)) && (attributes & SFGAO_FOLDER) &&
           !(attributes & SFGAO_STREAM);
}

std::wstring Count(uint64_t n) { return std::to_wstring(n); }

// The lines under the name: what is known of the item.
std::vector<std::wstring> FactLines(const PreviewResult& r) {
    std::vector<std::wstring> lines;
    if (!r.found) return {GetText(kGoneText)};
    if (r.unreadable) lines.push_back(GetText(kUnreadableText));
    if (!r.typeName.empty()) lines.push_back(FillIn(GetText(kTypeText), {r.typeName}));
    if (r.kind == PreviewKind::kFolder) {
        lines.push_back(FillIn(GetText(kEntriesText), {Count(r.inside.folders), Count(r.inside.files)}));
        lines.push_back(r.measured ? FillIn(GetText(kAllText), {FormatSize(r.all.bytes), Count(r.all.files), Count(r.all.folders)})
                                   : GetText(kCountingText));
    } else if (r.written.dwLowDateTime || r.written.dwHighDateTime) {
        lines.push_back(FillIn(GetText(kSizeText), {FormatSize(r.size)}));
    }
    if (r.written.dwLowDateTime || r.written.dwHighDateTime) lines.push_back(FillIn(GetText(kChangedText), {DateText(r.written)}));
    if (r.picture) lines.push_back(FillIn(GetText(kPictureText), {Count(r.pictureSize.cx), Count(r.pictureSize.cy)}));
    if (r.textCut) lines.push_back(GetText(kCutText));
    return lines;
}

}  // namespace

CPreviewPane::~CPreviewPane() {
    worker_.reset();  // joined before the window goes, so no result is posted to a stranger
    if (hwnd()) DestroyWindow(hwnd());
}

bool CPreviewPane::Create(HWND parent, int id) {
    colour_ = static_cast<COLORREF>(
        ParseColourText(Settings().GetString(kSection, kBackgroundKey, FormatColourText(GetSysColor(COLOR_WINDOW)))));
    if (static_cast<int>(colour_) < 0) colour_ = GetSysColor(COLOR_WINDOW);
    background_.reset(CreateSolidBrush(colour_));
    if (!CreateWindowOf(L"TesselPreview", WS_CHILD | WS_CLIPCHILDREN, WS_EX_CLIENTEDGE, L"", 0, 0, 0, 0, parent,
                        reinterpret_cast<HMENU>(static_cast<INT_PTR>(id))))
        return false;
    text_ = CreateWindowExW(0, L"EDIT", L"", WS_CHILD | WS_VSCROLL | WS_HSCROLL | ES_MULTILINE | ES_READONLY | ES_AUTOVSCROLL,
                            0, 0, 0, 0, hwnd(), reinterpret_cast<HMENU>(static_cast<INT_PTR>(kTextId)), GetModuleHandleW(nullptr), nullptr);
    SendMessageW(text_, WM_SETFONT, reinterpret_cast<WPARAM>(GetStockObject(DEFAULT_GUI_FONT)), FALSE);
    SendMessageW(text_, EM_SETLIMITTEXT, 0, 0);
    LOGFONTW font{};
    GetObjectW(GetStockObject(DEFAULT_GUI_FONT), sizeof(font), &font);
    font.lfWeight = FW_BOLD;
    bold_.reset(CreateFontIndirectW(&font));
    worker_ = std::make_unique<PreviewWorker>(hwnd(), kMsgPreviewResult);
    return true;
}

void CPreviewPane::ShowItem(PCIDLIST_ABSOLUTE item) {
    if (item && item_ && win::IdenticalPidl(item, item_.get())) return;
    item_.reset(item ? ILCloneFull(item) : nullptr);
    Request();
}

void CPreviewPane::Reread() { Request(); }

void CPreviewPane::Request() {
    if (!worker_) return;
    if (!item_) {
        ++awaited_;  // whatever is on its way is no longer wanted
        shown_.reset();
        ShowWindow(text_, SW_HIDE);
        InvalidateRect(hwnd(), nullptr, TRUE);
        return;
    }
    PreviewRequest request;
    request.item.reset(ILCloneFull(item_.get()));
    request.path = win::FileSystemPathOf(item_.get());
    request.name = DisplayName(item_.get());
    request.folder = IsFolderItem(item_.get());
    RECT client{};
    GetClientRect(hwnd(), &client);
    const int margin = win::Scaled(hwnd(), 8);
    request.box = {std::max<LONG>(client.right - 2 * margin, 1), std::max<LONG>(client.bottom * 2 / 3, 1)};
    request.shellThumbnails = Options().media_preview_by == 1;
    request.background = colour_;
    awaited_ = worker_->Request(std::move(request));
}

void CPreviewPane::TakeResult(std::unique_ptr<PreviewResult> result) {
    if (result->number != awaited_) return;  // an answer to a request overtaken since
    if (result->measured && shown_ && shown_->kind == PreviewKind::kFolder) {
        shown_->all = result->all;  // the folder's depth, counted after its own entries
        shown_->measured = true;
    } else {
        shown_ = std::move(result);
        if (shown_->kind == PreviewKind::kText) SetWindowTextW(text_, shown_->text.c_str());
        ShowWindow(text_, shown_->kind == PreviewKind::kText ? SW_SHOWNA : SW_HIDE);
    }
    PlaceText();
    InvalidateRect(hwnd(), nullptr, TRUE);
}

bool CPreviewPane::Settled() const {
    if (!item_) return !shown_;
    return shown_ && shown_->number == awaited_ && (shown_->kind != PreviewKind::kFolder || shown_->measured || !shown_->found);
}

SIZE CPreviewPane::ShownPictureSize() const {
    BITMAP facts{};
    if (!shown_ || !shown_->picture || !GetObjectW(shown_->picture.get(), sizeof(facts), &facts)) return {};
    return {facts.bmWidth, facts.bmHeight};
}

std::wstring CPreviewPane::ShownFacts() const {
    if (!shown_) return L"";
    std::wstring all = shown_->name;
    for (const std::wstring& line : FactLines(*shown_)) all += L"\n" + line;
    return all;
}

// The name in bold, then the facts; under them the picture, centred, or the text.
void CPreviewPane::Paint(HDC dc) {
    RECT client{};
    GetClientRect(hwnd(), &client);
    FillRect(dc, &client, background_.get());
    if (!shown_) return;
    const int margin = win::Scaled(hwnd(), 8);
    RECT area{client.left + margin, client.top + margin, client.right - margin, client.bottom - margin};
    SetBkMode(dc, TRANSPARENT);
    SetTextColor(dc, GetSysColor(COLOR_WINDOWTEXT));
    HGDIOBJ oldFont = SelectObject(dc, bold_.get());
    RECT line = area;
    DrawTextW(dc, shown_->name.c_str(), -1, &line, DT_LEFT | DT_TOP | DT_SINGLELINE | DT_END_ELLIPSIS | DT_NOPREFIX);
    SelectObject(dc, GetStockObject(DEFAULT_GUI_FONT));
    area.top += win::Scaled(hwnd(), 20);
    if (shown_->icon && !shown_->picture && shown_->kind != PreviewKind::kText) {
        DrawIconEx(dc, area.left, area.top, shown_->icon.get(), 0, 0, 0, nullptr, DI_NORMAL);
        area.top += GetSystemMetrics(SM_CYICON) + margin;
    }
    area.top = PaintFacts(dc, area) + margin;
    SelectObject(dc, oldFont);
    if (!shown_->picture) return;
    BITMAP facts{};
    GetObjectW(shown_->picture.get(), sizeof(facts), &facts);
    HDC memory = CreateCompatibleDC(dc);
    HGDIOBJ old = SelectObject(memory, shown_->picture.get());
    const int width = std::min<int>(facts.bmWidth, area.right - area.left);
    const int height = std::min<int>(facts.bmHeight, std::max<int>(area.bottom - area.top, 0));
    const int left = area.left + (area.right - area.left - width) / 2;
    BitBlt(dc, left, area.top, width, height, memory, 0, 0, SRCCOPY);
    SelectObject(memory, old);
    DeleteDC(memory);
}

// Returns the bottom of the last line.
int CPreviewPane::PaintFacts(HDC dc, RECT area) {
    TEXTMETRICW metrics{};
    GetTextMetricsW(dc, &metrics);
    for (const std::wstring& text : FactLines(*shown_)) {
        RECT line{area.left, area.top, area.right, area.top + metrics.tmHeight};
        DrawTextW(dc, text.c_str(), -1, &line, DT_LEFT | DT_TOP | DT_SINGLELINE | DT_END_ELLIPSIS | DT_NOPREFIX);
        area.top += metrics.tmHeight + 2;
    }
    return area.top;
}

// The text fills the pane below the name and its facts.
void CPreviewPane::PlaceText() {
    if (!shown_ || shown_->kind != PreviewKind::kText) return;
    RECT client{};
    GetClientRect(hwnd(), &client);
    HDC dc = GetDC(hwnd());
    HGDIOBJ old = SelectObject(dc, GetStockObject(DEFAULT_GUI_FONT));
    const int margin = win::Scaled(hwnd(), 8);
    const int top = PaintFacts(dc, {0, margin + win::Scaled(hwnd(), 20), 0, 0}) + margin;
    SelectObject(dc, old);
    ReleaseDC(hwnd(), dc);
    MoveWindow(text_, 0, top, client.right, std::max<int>(client.bottom - top, 0), TRUE);
}

void CPreviewPane::ChooseBackground(POINT screen) {
    win::UniqueMenu menu(CreatePopupMenu());
    AppendMenuW(menu.get(), MF_STRING, kBackgroundCommand, GetText(kBackgroundText).c_str());
    const UINT chosen = TrackPopupMenu(menu.get(), TPM_RETURNCMD | TPM_NONOTIFY, screen.x, screen.y, 0, hwnd(), nullptr);
    int colour = static_cast<int>(colour_);
    if (chosen != kBackgroundCommand || !PickColour(hwnd(), colour) || colour < 0) return;
    colour_ = static_cast<COLORREF>(colour);
    background_.reset(CreateSolidBrush(colour_));
    Settings().PutString(kSection, kBackgroundKey, FormatColourText(colour));
    Reread();  // a picture's transparent parts are laid over the background by the worker
}

LRESULT CPreviewPane::HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case kMsgPreviewResult:
        TakeResult(std::unique_ptr<PreviewResult>(reinterpret_cast<PreviewResult*>(lParam)));
        return 0;
    case WM_PAINT: {
        PAINTSTRUCT paint;
        HDC dc = BeginPaint(hwnd(), &paint);
        Paint(dc);
        EndPaint(hwnd(), &paint);
        return 0;
    }
    case WM_ERASEBKGND: return 1;
    case WM_SIZE:
        PlaceText();
        if (shown_ && shown_->picture) Reread();  // scaled again to the new room
        return 0;
    case WM_CONTEXTMENU: {
        POINT at{static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))};
        if (at.x == -1 && at.y == -1) GetCursorPos(&at);
        ChooseBackground(at);
        return 0;
    }
    case WM_NCDESTROY: {
        worker_.reset();  // joined: nothing more is posted
        MSG pending;
        while (PeekMessageW(&pending, hwnd(), kMsgPreviewResult, kMsgPreviewResult, PM_REMOVE))
            delete reinterpret_cast<PreviewResult*>(pending.lParam);
        break;
    }
    }
    return Default(message, wParam, lParam);
}

}  // namespace tessel
