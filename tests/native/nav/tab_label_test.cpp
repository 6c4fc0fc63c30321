#include "nav/tab_label.h"

#include <gtest/gtest.h>

namespace tessel {
namespace {

class FixedWidth : public ITextMeasure {  // every character 7 pixels, "W" 12
public:
    int Width(std::wstring_view text) override {
        ++calls;
        int width = 0;
        for (wchar_t c : text) width += c == L'W' ? 12 : 7;
        return width;
    }
    int calls = 0;
};

TEST(TabLabel, CutsToTheLongestFittingPrefix) {
    FixedWidth measure;
    EXPECT_EQ(CutTabLabel(L"Documents", 120, measure), L"Documents");
    EXPECT_EQ(CutTabLabel(std::wstring(300, L'a'), 120, measure), std::wstring(17, L'a') + L" ...");
    EXPECT_EQ(CutTabLabel(L"WWWWWWWWWWW", 60, measure), L"WWWWW ...");
    EXPECT_EQ(CutTabLabel(L"", 60, measure), L"");
    // A name whose proper prefixes all fit stays whole although it is too wide.
    EXPECT_EQ(CutTabLabel(L"aaaaaaaaW", 60, measure), L"aaaaaaaaW");
}

TEST(TabLabel, WidthsDelaysAndPositions) {
    EXPECT_EQ(ClampTabMaxWidth(20), 60);
    EXPECT_EQ(ClampTabMaxWidth(999), 300);
    EXPECT_EQ(ClampTabMaxWidth(120), 120);
    const int delays[] = {500, 1000, 1500, 2000, 3000, 200, 500, 500};
    for (int setting = 0; setting < 7; ++setting) EXPECT_EQ(HoverDelayMs(setting), delays[setting]) << setting;
    EXPECT_EQ(HoverDelayMs(-1), 500);
    EXPECT_EQ(TabInsertIndex(L"", 4), 4);
    EXPECT_EQ(TabInsertIndex(L"2", 4), 2);
    EXPECT_EQ(TabInsertIndex(L"-1", 4), 4);
    EXPECT_EQ(TabInsertIndex(L"x", 4), 4);
}

TEST(TabLabel, SelectionAfterClosing) {
    EXPECT_EQ(TabSelectedAfterClose(0, 1, 0), -1) << "the last tab stays";
    EXPECT_EQ(TabSelectedAfterClose(1, 3, 1), 1) << "the right neighbour takes the place";
    EXPECT_EQ(TabSelectedAfterClose(2, 3, 2), 1) << "no right neighbour: the left one";
    EXPECT_EQ(TabSelectedAfterClose(0, 3, 2), 1) << "closing left of the selection shifts it";
    EXPECT_EQ(TabSelectedAfterClose(2, 3, 0), 0);
    EXPECT_EQ(TabSelectedAfterClose(5, 3, 0), -1);
    // A tab whose browser view was never made hands over to its left neighbour only.
    EXPECT_EQ(TabSelectedAfterClose(1, 3, 1, false), 0);
    EXPECT_EQ(TabSelectedAfterClose(2, 3, 2, false), 1);
    EXPECT_EQ(TabSelectedAfterClose(0, 3, 0, false), 0) << "no left neighbour: the next one moves in";
    EXPECT_EQ(TabSelectedAfterClose(0, 3, 2, false), 1);
}

}  // namespace
}  // namespace tessel
