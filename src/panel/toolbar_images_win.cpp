#include "panel/toolbar_images_win.h"

#include <initializer_list>
#include <vector>

#include "res/resource.h"
#include "win/handles_win.h"
#include "win/image_strip_win.h"

namespace tessel {
namespace {

constexpr COLORREF kInk = RGB(40, 52, 70);
constexpr COLORREF kBlue = RGB(38, 110, 190);
constexpr COLORREF kFolder = RGB(232, 178, 52);
constexpr COLORREF kPaper = RGB(252, 252, 252);
constexpr COLORREF kRed = RGB(200, 40, 40);
constexpr COLORREF kGreen = RGB(40, 150, 60);

// Drawing on the design grid: unit u pixels per grid step.
class Glyph {
public:
    Glyph(HDC dc, int x0, int unit) : dc_(dc), x0_(x0), u_(unit) {}
    int X(int gx) const { return x0_ + gx * u_; }
    int Y(int gy) const { return gy * u_; }
    void Box(int l, int t, int r, int b, COLORREF fill, COLORREF edge = kInk) {
        win::UniqueBrush brush(CreateSolidBrush(edge));
        RECT outer{X(l), Y(t), X(r), Y(b)};
        FillRect(dc_, &outer, brush.get());
        win::UniqueBrush inner(CreateSolidBrush(fill));
        RECT in{X(l) + Thin(), Y(t) + Thin(), X(r) - Thin(), Y(b) - Thin()};
        if (in.right > in.left && in.bottom > in.top) FillRect(dc_, &in, inner.get());
    }
    void Fill(int l, int t, int r, int b, COLORREF color) {
        win::UniqueBrush brush(CreateSolidBrush(color));
        RECT rect{X(l), Y(t), X(r), Y(b)};
        FillRect(dc_, &rect, brush.get());
    }
    void Shape(std::initializer_list<POINT> points, COLORREF fill) {
        std::vector<POINT> scaled;
        for (POINT p : points) scaled.push_back({X(p.x), Y(p.y)});
        win::UniqueBrush brush(CreateSolidBrush(fill));
        win::Unique<HPEN, win::PointerTraits<HPEN, win::DeleteGdiObject>> pen(CreatePen(PS_SOLID, 1, fill));
        HGDIOBJ oldBrush = SelectObject(dc_, brush.get());
        HGDIOBJ oldPen = SelectObject(dc_, pen.get());
        Polygon(dc_, scaled.data(), static_cast<int>(scaled.size()));
        SelectObject(dc_, oldBrush);
        SelectObject(dc_, oldPen);
    }
    void Line(int x1, int y1, int x2, int y2, COLORREF color, int width = 2) {
        win::Unique<HPEN, win::PointerTraits<HPEN, win::DeleteGdiObject>> pen(
            CreatePen(PS_SOLID, width * u_, color));
        HGDIOBJ old = SelectObject(dc_, pen.get());
        MoveToEx(dc_, X(x1), Y(y1), nullptr);
        LineTo(dc_, X(x2), Y(y2));
        SelectObject(dc_, old);
    }
    int Thin() const { return u_; }

private:
    HDC dc_;
    int x0_, u_;
};

void DrawFolder(Glyph& g) {
    g.Box(1, 3, 7, 6, kFolder);
    g.Box(1, 5, 15, 14, kFolder);
}

void DrawPage(Glyph& g, int l, int t, int r, int b) {
    g.Box(l, t, r, b, kPaper);
    for (int y = t + 3; y + 2 <= b; y += 2) g.Fill(l + 2, y, r - 2, y + 1, RGB(150, 160, 175));
}

void DrawCommand(Glyph& g, int command) {
    switch (command) {
    case ID_VIEW_BACK:
        g.Shape({{1, 8}, {8, 2}, {8, 6}, {15, 6}, {15, 10}, {8, 10}, {8, 14}}, kGreen);
        break;
    case ID_VIEW_FORWARD:
        g.Shape({{15, 8}, {8, 2}, {8, 6}, {1, 6}, {1, 10}, {8, 10}, {8, 14}}, kGreen);
        break;
    case ID_TRANSFER:  // one pane handed to the next
        g.Box(1, 2, 7, 14, kPaper);
        g.Box(9, 2, 15, 14, kPaper);
        g.Shape({{3, 6}, {9, 6}, {9, 3}, {13, 8}, {9, 13}, {9, 10}, {3, 10}}, kBlue);
        break;
    case ID_COPY_TO_VIEW:
    case ID_MOVE_TO_VIEW:
        DrawPage(g, 1, 1, 9, 12);
        g.Shape({{7, 9}, {11, 9}, {11, 6}, {15, 11}, {11, 15}, {11, 12}, {7, 12}},
                command == ID_COPY_TO_VIEW ? kGreen : kRed);
        break;
    case ID_VIEW_UP:
        DrawFolder(g);
        g.Shape({{8, 1}, {3, 7}, {13, 7}}, kGreen);
        g.Fill(6, 7, 10, 12, kGreen);
        break;
    case ID_VIEW_REFRESH:
        g.Line(3, 8, 3, 5, kBlue);
        g.Line(3, 5, 6, 2, kBlue);
        g.Line(6, 2, 11, 2, kBlue);
        g.Line(13, 8, 13, 11, kBlue);
        g.Line(13, 11, 10, 14, kBlue);
        g.Line(10, 14, 5, 14, kBlue);
        g.Shape({{11, 0}, {15, 2}, {11, 5}}, kBlue);
        g.Shape({{5, 11}, {1, 14}, {5, 16}}, kBlue);
        break;
    case ID_VIEW_NEW_FOLDER:
        DrawFolder(g);
        g.Fill(10, 0, 12, 6, kGreen);
        g.Fill(8, 2, 14, 4, kGreen);
        break;
    case ID_VIEW_CUT:
        g.Line(4, 1, 10, 10, kInk);
        g.Line(12, 1, 6, 10, kInk);
        g.Box(2, 10, 7, 15, kPaper, kRed);
        g.Box(9, 10, 14, 15, kPaper, kRed);
        break;
    case ID_VIEW_COPY:
        DrawPage(g, 1, 1, 10, 12);
        DrawPage(g, 6, 4, 15, 15);
        break;
    case ID_VIEW_PASTE:
        g.Box(2, 2, 13, 15, RGB(176, 128, 72));
        g.Box(5, 1, 10, 4, RGB(200, 200, 200));
        DrawPage(g, 7, 6, 15, 15);
        break;
    case ID_VIEW_DELETE:
        g.Line(3, 3, 13, 13, kRed, 3);
        g.Line(13, 3, 3, 13, kRed, 3);
        break;
    case ID_VIEW_PROPERTIES:
        DrawPage(g, 2, 1, 12, 15);
        g.Box(9, 8, 15, 15, kBlue, kBlue);
        g.Fill(11, 9, 13, 10, kPaper);
        g.Fill(11, 11, 13, 14, kPaper);
        break;
    case ID_VIEW_FOLDER_SIZES:
        DrawFolder(g);
        g.Fill(4, 10, 6, 13, kBlue);
        g.Fill(7, 8, 9, 13, kBlue);
        g.Fill(10, 7, 12, 13, kBlue);
        break;
    case ID_VIEW_FILTER_TOGGLE:
        g.Shape({{1, 2}, {15, 2}, {10, 8}, {10, 14}, {6, 15}, {6, 8}}, kBlue);
        break;
    case ID_VIEW_FOCUS_LIST:
    case ID_VIEW_MODE_LIST:
        for (int y = 2; y < 15; y += 4) {
            g.Fill(1, y, 4, y + 3, kBlue);
            g.Fill(5, y + 1, 15, y + 2, kInk);
        }
        break;
    case ID_VIEW_MODE_DETAILS:
        g.Box(1, 1, 15, 15, kPaper);
        g.Fill(1, 1, 15, 4, kBlue);
        for (int y = 6; y < 14; y += 3) g.Fill(3, y, 13, y + 1, kInk);
        g.Fill(8, 4, 9, 15, kInk);
        break;
    case ID_VIEW_MODES:
    case ID_VIEW_MODE_ICONS:
        g.Box(1, 1, 7, 7, kBlue, kBlue);
        g.Box(9, 1, 15, 7, kFolder, kFolder);
        g.Box(1, 9, 7, 15, kFolder, kFolder);
        g.Box(9, 9, 15, 15, kBlue, kBlue);
        break;
    case ID_QUICK_LINKS_MENU:  // a folder with a jump arrow
        DrawFolder(g);
        g.Shape({{5, 12}, {10, 7}, {8, 5}, {14, 5}, {14, 11}, {12, 9}, {7, 14}}, kGreen);
        break;
    case ID_PROGRAMS_MENU:  // a program window with a start arrow
        g.Box(1, 2, 15, 14, kPaper);
        g.Fill(1, 2, 15, 5, kBlue);
        g.Shape({{6, 7}, {11, 10}, {6, 13}}, kGreen);
        break;
    case ID_VIEW_HIDDEN_FILES: {  // a faded page half behind a solid one
        constexpr COLORREF kFaded = RGB(175, 180, 190);
        g.Box(1, 1, 10, 12, RGB(235, 237, 240), kFaded);
        DrawPage(g, 6, 4, 15, 15);
        break;
    }
    case ID_FILTER_INVERT:  // the funnel crossed out: what does not match
        g.Shape({{1, 2}, {15, 2}, {10, 8}, {10, 14}, {6, 15}, {6, 8}}, kBlue);
        g.Line(2, 14, 14, 1, kRed);
        break;
    case ID_FILTER_FOLDERS:  // a folder with the funnel
        DrawFolder(g);
        g.Shape({{5, 7}, {13, 7}, {10, 10}, {10, 14}, {8, 14}, {8, 10}}, kBlue);
        break;
    case ID_TOOLBAR_MORE:  // a chevron: the buttons that have no room
        g.Shape({{3, 4}, {5, 4}, {9, 8}, {5, 12}, {3, 12}, {7, 8}}, kInk);
        g.Shape({{8, 4}, {10, 4}, {14, 8}, {10, 12}, {8, 12}, {12, 8}}, kInk);
        break;
    default:
        g.Box(3, 3, 13, 13, kPaper);
        break;
    }
}

}  // namespace

HIMAGELIST DrawToolbarImages(const std::vector<int>& commands, int pixelSize) {
    const int unit = pixelSize >= 16 ? pixelSize / 16 : 1;
    return win::DrawImageStrip(static_cast<int>(commands.size()), unit * 16, [&](HDC dc, int index, int left) {
        Glyph glyph(dc, left, unit);
        DrawCommand(glyph, commands[index]);
    });
}

}  // namespace tessel
