#pragma once
// The preview pane beside the T-Views: the focused item of the T-View in use as a picture
// scaled to fit, a text, a folder's counts or a file's icon and facts. The reading is done by
// a worker; a selection that moves fast only ever waits for the latest item.
#include <windows.h>

#include <memory>
#include <string>

#include "features/preview_worker_win.h"
#include "win/handles_win.h"
#include "win/window_win.h"

namespace tessel {

class CPreviewPane : public win::Window {
public:
    ~CPreviewPane() override;
    bool Create(HWND parent, int id);
    // Shows `item` (absolute; null: nothing). The same item again is not read again.
    void ShowItem(PCIDLIST_ABSOLUTE item);
    void Reread();  // the same item read again, after a resize or a new background

    // What is shown: the answer to the latest request is complete (a folder counted to its depth).
    bool Settled() const;
    PreviewKind ShownKind() const { return shown_ ? shown_->kind : PreviewKind::kOther; }
    std::wstring ShownFacts() const;  // the name and the lines under it
    SIZE ShownPictureSize() const;    // as drawn; zero without a picture

protected:
    LRESULT HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    void Request();
    void TakeResult(std::unique_ptr<PreviewResult> result);
    void Paint(HDC dc);
    int PaintFacts(HDC dc, RECT area);
    void PlaceText();
    void ChooseBackground(POINT screen);

    std::unique_ptr<PreviewWorker> worker_;
    win::UniquePidl item_;
    uint64_t awaited_ = 0;  // the number of the latest request
    std::unique_ptr<PreviewResult> shown_;
    HWND text_ = nullptr;   // read-only edit control for texts
    win::UniqueFont bold_;
    win::UniqueBrush background_;
    COLORREF colour_ = RGB(255, 255, 255);
};

}  // namespace tessel
