#include "frame/magnifier_area.h"

#include <algorithm>

namespace tessel {

int ClampZoom(int zoom) { return std::clamp(zoom, kMinZoom, kMaxZoom); }

Area MagnifiedArea(int mouseX, int mouseY, int windowWidth, int windowHeight, int zoom, const Area& screen) {
    zoom = ClampZoom(zoom);
    Area area;
    area.width = std::min(std::max(windowWidth / zoom, 1), std::max(screen.width, 1));
    area.height = std::min(std::max(windowHeight / zoom, 1), std::max(screen.height, 1));
    area.left = std::clamp(mouseX - area.width / 2, screen.left, screen.left + screen.width - area.width);
    area.top = std::clamp(mouseY - area.height / 2, screen.top, screen.top + screen.height - area.height);
    return area;
}

}  // namespace tessel
