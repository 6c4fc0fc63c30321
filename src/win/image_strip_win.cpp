#include "win/image_strip_win.h"

#include "win/handles_win.h"

namespace tessel::win {

HIMAGELIST DrawImageStrip(int count, int size, const std::function<void(HDC, int, int)>& draw) {
    HIMAGELIST images = ImageList_Create(size, size, ILC_COLOR24 | ILC_MASK, count, 0);
    if (!images || count <= 0) return images;
    HDC screen = GetDC(nullptr);
    HDC dc = CreateCompatibleDC(screen);
    UniqueBitmap strip(CreateCompatibleBitmap(screen, size * count, size));
    ReleaseDC(nullptr, screen);
    HGDIOBJ old = SelectObject(dc, strip.get());
    UniqueBrush background(CreateSolidBrush(kImageMask));
    RECT all{0, 0, size * count, size};
    FillRect(dc, &all, background.get());
    for (int i = 0; i < count; ++i) draw(dc, i, i * size);
    SelectObject(dc, old);
    DeleteDC(dc);
    ImageList_AddMasked(images, strip.get(), kImageMask);
    return images;
}

}  // namespace tessel::win
