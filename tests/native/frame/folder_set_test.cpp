#include "frame/folder_set.h"

#include <gtest/gtest.h>


namespace tessel {
namespace {

FolderSet TwoViews() {
    FolderSet set;
    set.viewMode = 3;
    ViewRecord one;
    one.number = 1;
    one.active = {L"C:\\Data", L"", L"1", L"4", L"%01%02|CODEMODE1|4|2", L"Spatlen_5"};
    one.tabs = {one.active, {L"D:\\Music \u266B", L"", L"", L"", L"", L""}};
    one.selectedTab = 0;
    ViewRecord two;
    two.number = 2;
    two.active = {L"::{20D04FE0-3AEA-1069-A2D8-08002B30309D}", L"", L"", L"", L"", L""};
    two.tabs = {two.active};
    set.views = {one, two};
    set.withLayout = true;
    set.layout.splitters = {6600, 5000, 4000};
    set.layout.focus = 2;
    return set;
}

TEST(FolderSet, WritesTheLinesInTheirOrder) {
    const std::wstring golden =
        L"Tessel Version=4.19\r\n"
        L"ViewMode=3\r\n"
        L"Folder1=C:\\Data\r\nViewModeFlags1=1\r\nViewMode1=4\r\nColsAndSort1=%01%02|CODEMODE1|4|2\r\n"
        L"ColsID1=Spatlen_5\r\n\r\n"
        L"Folder1_0=C:\\Data\r\nViewModeFlags1_0=1\r\nViewMode1_0=4\r\nColsAndSort1_0=%01%02|CODEMODE1|4|2\r\n"
        L"ColsID1_0=Spatlen_5\r\n\r\nCurSel1_0=1\r\nCurPos1_0=0\r\n"
        L"Folder1_1=D:\\Music \u266B\r\nCurPos1_1=1\r\n"
        L"Folder2=::{20D04FE0-3AEA-1069-A2D8-08002B30309D}\r\n"
        L"Folder2_0=::{20D04FE0-3AEA-1069-A2D8-08002B30309D}\r\nCurSel2_0=1\r\nCurPos2_0=0\r\n"
        L"SP0=6600\r\nSP1=5000\r\nSP2=4000\r\nSPT=2000\r\ntree_mode=0\r\nTree1=0\r\nTree2=0\r\nTree3=0\r\n"
        L"Tree4=0\r\nTree1split=2500\r\nTree2split=2500\r\nTree3split=2500\r\nTree4split=2500\r\nVorschau=0\r\n"
        L"VorschauPos=7500\r\nFocus=2\r\n\r\n";
    FolderSet set = TwoViews();
    set.views[1].selectedTab = 0;
    EXPECT_EQ(WriteFolderSet(set), golden);

    set.withLayout = false;
    set.viewMode = -1;
    set.withColumns = true;
    set.columnTexts = {L"a", L"", L"", L"d"};
    set.withPlacement = true;
    set.placement = {10, 20, 810, 620};
    set.showCommand = 3;
    const std::wstring text = WriteFolderSet(set);
    EXPECT_NE(text.find(L"\r\nViewMode=-1\r\n"), std::wstring::npos);
    EXPECT_EQ(text.find(L"SP0="), std::wstring::npos) << "no layout block without the layout";
    EXPECT_NE(text.find(L"a\r\n\r\n\r\nd\r\nwindowplacement=10;20;810;620|sw=3\r\n"), std::wstring::npos);
}

TEST(FolderSet, ReadsBackWhatItWrote) {
    const LoadedFolderSet loaded = ReadFolderSet(WriteFolderSet(TwoViews()), 1, 4);
    EXPECT_EQ(loaded.viewMode, 3);
    ASSERT_TRUE(loaded.views[0].hasActive);
    EXPECT_EQ(loaded.views[0].active.folder, L"C:\\Data");
    EXPECT_EQ(loaded.views[0].active.colsAndSort, L"%01%02|CODEMODE1|4|2");
    ASSERT_EQ(loaded.views[0].tabs.size(), 2u);
    EXPECT_EQ(loaded.views[0].tabs[1].folder, L"D:\\Music \u266B");
    EXPECT_EQ(loaded.views[0].tabs[1].viewMode, L"");
    EXPECT_EQ(loaded.views[0].selectedTab, 0);
    EXPECT_EQ(loaded.views[1].tabs.size(), 1u);
    EXPECT_FALSE(loaded.views[2].hasActive) << "hidden T-Views leave no record";
    EXPECT_EQ(loaded.layout.splitters[0], 6600);
    EXPECT_EQ(loaded.layout.splitters[2], 4000);
    EXPECT_EQ(loaded.layout.focus, 2);
    EXPECT_EQ(loaded.layout.treeMode, 0);
}

TEST(FolderSet, DefaultsRangesAndTheTabLimit) {
    const LoadedFolderSet empty = ReadFolderSet(L"", 2, 3);
    EXPECT_EQ(empty.viewMode, -1) << "a file without a layout keeps the current one";
    EXPECT_EQ(empty.layout.splitters[0], 5000);
    EXPECT_EQ(empty.layout.treeSplitter, 2000) << "SPT missing: 2000";
    EXPECT_EQ(empty.layout.treeMode, 2);
    EXPECT_EQ(empty.layout.focus, 3);
    EXPECT_EQ(empty.layout.treeSplit[3], 2500);
    EXPECT_EQ(empty.layout.previewPosition, 7500);

    const LoadedFolderSet odd = ReadFolderSet(L"SP0=0\nSP1=10001\nSP2=-5\nSPT=0\nViewMode=99\nxSP0=7\n", 0, 1);
    EXPECT_EQ(odd.layout.splitters[0], 5000);
    EXPECT_EQ(odd.layout.splitters[1], 5000);
    EXPECT_EQ(odd.layout.splitters[2], 5000);
    EXPECT_EQ(odd.layout.treeSplitter, 5000) << "SPT out of range: 5000";
    EXPECT_EQ(odd.viewMode, 99) << "the frame decides what a number outside 0..11 does";

    std::wstring twenty;
    for (int i = 19; i >= 0; --i) twenty += L"Folder3_" + std::to_wstring(i) + L"=C:\\t" + std::to_wstring(i) + L"\r\n";
    twenty += L"CurSel3_4=1\r\n";
    const LoadedFolderSet many = ReadFolderSet(twenty, 0, 1);
    ASSERT_EQ(many.views[2].tabs.size(), 16u) << "tab groups 0 to 15 only, whatever the order of lines";
    EXPECT_EQ(many.views[2].tabs[15].folder, L"C:\\t15");
    EXPECT_EQ(many.views[2].selectedTab, 4);
}

TEST(FolderSet, RecordsTheViewsTheLayoutShowsThatHaveAFolder) {
    EXPECT_EQ(RecordedViews({true, true, false, true}, {true, true, true, false}), (std::vector<int>{0, 1}));
    EXPECT_EQ(RecordedViews({true, true, true, true}, {true, true, true, true}), (std::vector<int>{0, 1, 2, 3}));
    EXPECT_TRUE(RecordedViews({false, false, false, false}, {true, true, true, true}).empty());
}

TEST(FolderSet, AViewOpensItsTabsOrItsActiveFolderOrKeepsWhatItShows) {
    LoadedView listed;
    listed.hasActive = true;
    listed.active.folder = L"C:\\active";
    listed.tabs = {TabState{L"C:\\one"}, TabState{L"C:\\two"}};
    listed.selectedTab = 1;
    TabsToOpen open = TabsOfRecord(listed);
    ASSERT_EQ(open.tabs.size(), 2u);
    EXPECT_EQ(open.tabs[1].folder, L"C:\\two");
    EXPECT_EQ(open.selected, 1);
    listed.tabs.clear();  // an older file: the active folder alone
    open = TabsOfRecord(listed);
    ASSERT_EQ(open.tabs.size(), 1u);
    EXPECT_EQ(open.tabs[0].folder, L"C:\\active");
    EXPECT_EQ(open.selected, 0);
    EXPECT_TRUE(TabsOfRecord(LoadedView{}).tabs.empty()) << "no record: the T-View keeps what it shows";
}

TEST(FolderSet, PathsAndFileBytes) {
    EXPECT_EQ(FolderSetPath(L"C:\\sets\\work"), L"C:\\sets\\work.tsf");
    EXPECT_EQ(FolderSetPath(L"C:\\sets\\work.tsf"), L"C:\\sets\\work.tsf");
    EXPECT_EQ(FolderSetPath(L"C:\\sets\\WORK.TSF"), L"C:\\sets\\WORK.TSF");
    EXPECT_EQ(FolderSetPath(L"tsf"), L"tsf.tsf");
    EXPECT_EQ(FolderSetText(std::string("\xFF\xFE" "A\0=\0", 6)), L"A=");
    EXPECT_EQ(FolderSetText(std::string("A\0=\0", 4)), L"A=");
    EXPECT_EQ(FolderSetText("SP0=1"), L"SP0=1");
    // Without a mark: UTF-8 when it is UTF-8, else the system's single-byte code page.
    EXPECT_EQ(FolderSetText("Folder1=C:\\Gr\xC3\xBC\xC3\x9F" "e \xE2\x9C\x93"), L"Folder1=C:\\Gr\u00FC\u00DFe \u2713");
    EXPECT_EQ(FolderSetText("\xEF\xBB\xBF" "A=\xE6\x97\xA5"), L"A=\u65E5") << "with the UTF-8 mark";
    const AnsiDecoder marked = [](std::string_view bytes) { return L"ansi:" + Latin1Text(bytes); };
    EXPECT_EQ(FolderSetText("Folder1=C:\\Gr\xFC\xDF" "e", marked), L"ansi:Folder1=C:\\Gr\u00FC\u00DFe");
    EXPECT_EQ(FolderSetText("A=\xC0\xAF", marked), L"ansi:A=\u00C0\u00AF") << "an overlong form is not UTF-8";
    EXPECT_EQ(FolderSetText(std::string("\xFF\xFE" "A", 3)), L"") << "an odd last byte is dropped";
}

// Damaged and random text is the fuzz target's (fuzz/folder_set_fuzz.cpp).
TEST(FolderSet, TenMegabytesAreReadToTheEnd) {
    std::wstring huge(5 * 1024 * 1024, L'=');  // 10 MB of UTF-16
    huge += L"\nSP0=4242\n";
    EXPECT_EQ(ReadFolderSet(huge, 0, 1).layout.splitters[0], 4242);
}

TEST(FolderSet, OnlyFolderSetsAreTakenForOne) {
    EXPECT_TRUE(IsFolderSetText(WriteFolderSet(TwoViews())));
    EXPECT_TRUE(IsFolderSetText(L"Folder2=C:\\Data\r\n")) << "written by hand, without the header";
    EXPECT_FALSE(IsFolderSetText(L""));
    EXPECT_FALSE(IsFolderSetText(L"hello\r\nworld\r\n"));
    EXPECT_FALSE(IsFolderSetText(L"Folder5=C:\\Data\r\nFolders1=x\r\n"));
    EXPECT_FALSE(IsFolderSetText(FolderSetText(std::string("\x89PNG\r\n\x1a\n\0\0\0\rIHDR", 16))));
}

}  // namespace
}  // namespace tessel
