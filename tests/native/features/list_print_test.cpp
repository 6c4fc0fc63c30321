// A file list laid out on pages: the visible columns fitted to the paper, the rows split into
// pages with room for the title, the captions and the page number.
#include "features/list_print.h"

#include <gtest/gtest.h>

namespace tessel {
namespace {

ExportTable Table(size_t rows) {
    ExportTable table;
    table.captions = {L"Name", L"Hidden", L"Size", L"Type"};
    table.widths = {200, 5, 100, 100};
    for (size_t i = 0; i < rows; ++i) table.rows.push_back({L"n", L"", L"1", L"t"});
    return table;
}

TEST(ListPrint, OnlyVisibleColumnsAreFittedToTheWidth) {
    const PrintLayout roomy = LayOutListPrint(Table(1), 10000, 5000, 100, 10.0);
    ASSERT_EQ(roomy.columns.size(), 3u) << "the 5-pixel column is a hidden one";
    EXPECT_EQ(roomy.columns[0].width, 2000) << "as wide as on screen when there is room";
    EXPECT_EQ(roomy.columns[1].source, 2u);
    EXPECT_EQ(roomy.columns[1].left, 2000);
    const PrintLayout narrow = LayOutListPrint(Table(1), 2000, 5000, 100, 10.0);
    EXPECT_EQ(narrow.columns[0].width, 1000) << "narrowed together, proportions kept";
    EXPECT_LE(narrow.columns.back().left + narrow.columns.back().width, 2000);
}

TEST(ListPrint, RowsAreSplitIntoPagesAndEveryRowIsOnOne) {
    const PrintLayout layout = LayOutListPrint(Table(25), 1000, 1300, 100, 1.0);  // 13 lines: 10 rows
    EXPECT_EQ(layout.rowsPerPage, 10);
    EXPECT_EQ(layout.pageCount, 3);
    EXPECT_EQ(RowsOfPage(layout, 25, 0).count, 10u);
    EXPECT_EQ(RowsOfPage(layout, 25, 2).first, 20u);
    EXPECT_EQ(RowsOfPage(layout, 25, 2).count, 5u);
    EXPECT_EQ(RowsOfPage(layout, 25, 3).count, 0u) << "beyond the last page";
    EXPECT_EQ(RowsOfPage(layout, 25, -1).count, 0u);
    EXPECT_EQ(LayOutListPrint(Table(30), 1000, 1300, 100, 1.0).pageCount, 3) << "exactly full pages";
}

// The printer prints the preview's pages: a portrait page on landscape paper (and the other way)
// is shrunk whole onto it, so every row of every planned page is printed and no page is blank.
TEST(ListPrint, ThePreviewsPageFitsWholeOnAnyPaper) {
    const PageOnPaper same = FitPageOnPaper(21000, 29700, 21000, 29700);
    EXPECT_DOUBLE_EQ(same.scale, 1.0);
    EXPECT_EQ(same.left, 0);
    EXPECT_EQ(same.top, 0);
    const PageOnPaper turned = FitPageOnPaper(21000, 29700, 29700, 21000);
    EXPECT_NEAR(turned.scale, 21000.0 / 29700, 1e-9);
    EXPECT_LE(21000 * turned.scale + turned.left, 29700 + 1) << "the whole width is on the paper";
    EXPECT_LE(29700 * turned.scale, 21000 + 1) << "the whole height is on the paper";
    EXPECT_GT(turned.left, 0) << "centred";
    const PageOnPaper larger = FitPageOnPaper(21000, 29700, 42000, 59400);
    EXPECT_DOUBLE_EQ(larger.scale, 1.0) << "never enlarged";
    EXPECT_EQ(larger.left, 10500);
    EXPECT_DOUBLE_EQ(FitPageOnPaper(0, 100, 100, 100).scale, 1.0);
}

TEST(ListPrint, EmptyListsAndTinyPagesStillGiveAPage) {
    EXPECT_EQ(LayOutListPrint(Table(0), 1000, 1300, 100, 1.0).pageCount, 1);
    const PrintLayout tiny = LayOutListPrint(Table(3), 1000, 50, 100, 1.0);
    EXPECT_EQ(tiny.rowsPerPage, 1) << "a page too small still takes one row";
    EXPECT_EQ(tiny.pageCount, 3);
    EXPECT_TRUE(LayOutListPrint(ExportTable{}, 1000, 1000, 10, 1.0).columns.empty());
}

}  // namespace
}  // namespace tessel
