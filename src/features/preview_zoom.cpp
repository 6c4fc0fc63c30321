#include "features/preview_zoom.h"

#include <algorithm>
#include <iterator>

namespace tessel {
namespace {

constexpr double kUnitsPerInch = 2540.0;  // 0.01 mm
constexpr double kSmallest = 1e-4;

double RealSize(int dpi) { return std::max(dpi, 1) / kUnitsPerInch; }

}  // namespace

double PreviewScale(const PreviewZoom& zoom, int pageW, int pageH, int roomW, int roomH, int dpi) {
    const double w = std::max(pageW, 1), h = std::max(pageH, 1);
    double scale = RealSize(dpi) * std::clamp(zoom.percent, kZoomSteps[0], std::end(kZoomSteps)[-1]) / 100.0;
    if (zoom.fit == ZoomFit::kPage) scale = std::min(roomW / w, roomH / h);
    if (zoom.fit == ZoomFit::kWidth) scale = roomW / w;
    return std::max(scale, kSmallest);
}

PreviewZoom ZoomStep(double scale, int dpi, int direction) {
    const double percent = scale / RealSize(dpi) * 100.0;
    int chosen = direction > 0 ? std::end(kZoomSteps)[-1] : kZoomSteps[0];
    if (direction > 0) {
        for (int step : kZoomSteps)
            if (step > percent + 0.5) {
                chosen = step;
                break;
            }
    } else {
        for (auto it = std::rbegin(kZoomSteps); it != std::rend(kZoomSteps); ++it)
            if (*it < percent - 0.5) {
                chosen = *it;
                break;
            }
    }
    return {ZoomFit::kPercent, chosen};
}

}  // namespace tessel
