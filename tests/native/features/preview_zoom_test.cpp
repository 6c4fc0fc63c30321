#include "features/preview_zoom.h"

#include <gtest/gtest.h>

namespace tessel {

// An A4 page is 21,000 x 29,700 units of 0.01 mm; at 96 dpi its real width is about 794 pixels.
TEST(PreviewZoom, FitsThePageOrItsWidthOrShowsAShareOfItsRealSize) {
    EXPECT_NEAR(PreviewScale({ZoomFit::kPage, 100}, 21000, 29700, 400, 297, 96), 0.01, 1e-9) << "the height limits";
    EXPECT_NEAR(PreviewScale({ZoomFit::kWidth, 100}, 21000, 29700, 420, 297, 96), 0.02, 1e-9);
    EXPECT_NEAR(PreviewScale({ZoomFit::kPercent, 100}, 21000, 29700, 1, 1, 96) * 21000, 793.7, 0.1);
    EXPECT_NEAR(PreviewScale({ZoomFit::kPercent, 200}, 21000, 29700, 1, 1, 192) * 21000, 4 * 793.7, 0.5);
    EXPECT_GT(PreviewScale({ZoomFit::kPage, 100}, 0, 0, -5, 0, 0), 0.0) << "no room and no page still draw";
    EXPECT_NEAR(PreviewScale({ZoomFit::kPercent, 9999}, 21000, 29700, 1, 1, 96),
                PreviewScale({ZoomFit::kPercent, 400}, 21000, 29700, 1, 1, 96), 1e-12) << "a share is kept in range";
}

TEST(PreviewZoom, TheWheelStepsFromWhatIsShownToTheNextShare) {
    const double fitted = 0.45 * 96 / 2540;  // a fitted page at 45 % of its real size
    EXPECT_EQ(ZoomStep(fitted, 96, 1).percent, 50);
    EXPECT_EQ(ZoomStep(fitted, 96, -1).percent, 25);
    const double real = 96.0 / 2540;
    EXPECT_EQ(ZoomStep(real, 96, 1).percent, 150) << "from 100 % on, not to it again";
    EXPECT_EQ(ZoomStep(real, 96, -1).percent, 75);
    EXPECT_EQ(ZoomStep(real * 4, 96, 1).percent, 400) << "the largest stays";
    EXPECT_EQ(ZoomStep(real / 8, 96, -1).percent, 25);
    EXPECT_EQ(ZoomStep(real, 96, 1).fit, ZoomFit::kPercent);
}

}  // namespace tessel
