#pragma once
// How large the print preview shows its page: the whole page, the page's width, or a fixed
// share of its real size on screen. Ctrl+wheel steps between the fixed shares.
namespace tessel {

enum class ZoomFit { kPage, kWidth, kPercent };

struct PreviewZoom {
    ZoomFit fit = ZoomFit::kPage;
    int percent = 100;  // of the real size, for kPercent
};

inline constexpr int kZoomSteps[] = {25, 50, 75, 100, 150, 200, 300, 400};

// Screen pixels per page unit (0.01 mm) for a page of `pageW` x `pageH` units in a room of
// `roomW` x `roomH` pixels on a screen of `dpi` pixels per inch. Never 0.
double PreviewScale(const PreviewZoom& zoom, int pageW, int pageH, int roomW, int roomH, int dpi);

// One Ctrl+wheel step from what is shown now (`scale` as PreviewScale gave it): the next fixed
// share above (direction > 0) or below, the end ones kept.
PreviewZoom ZoomStep(double scale, int dpi, int direction);

}  // namespace tessel
