#pragma once
// Which part of the screen the magnifier shows: the area around the mouse that, enlarged by the
// zoom, fills its window, kept inside the screen so the picture never shows what lies beyond.
namespace tessel {

inline constexpr int kMinZoom = 2, kMaxZoom = 8, kDefaultZoom = 3;

struct Area {
    int left = 0, top = 0, width = 0, height = 0;
};

int ClampZoom(int zoom);  // a stored value out of range becomes the nearest allowed one
Area MagnifiedArea(int mouseX, int mouseY, int windowWidth, int windowHeight, int zoom, const Area& screen);

}  // namespace tessel
