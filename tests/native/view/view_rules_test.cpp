// Rules of the browser view that need no window: typed locations, status texts, the browser
// slots of a panel and the names of copies.
#include <gtest/gtest.h>

#include <set>

#include "panel/browser_slots.h"
#include "view/copy_name.h"
#include "view/listing_progress.h"
#include "view/location_text.h"
#include "view/name_clash.h"
#include "view/shell_change.h"
#include "view/status_text.h"

namespace tessel {
namespace {

TEST(LocationText, SchemesBlanksAndQuotes) {
    EXPECT_EQ(NormalizeLocationText(L"ftp.example.org/pub"), L"ftp://ftp.example.org/pub");
    EXPECT_EQ(NormalizeLocationText(L"FTP.example.org"), L"ftp://FTP.example.org");
    EXPECT_EQ(NormalizeLocationText(L"  \"C:\\Data\"  "), L"C:\\Data");
    EXPECT_EQ(NormalizeLocationText(L"file:///C:/My%20Files/a%2Bb"), L"C:\\My Files\\a+b");
    EXPECT_EQ(NormalizeLocationText(L"file://localhost/C:/x"), L"C:\\x");
    EXPECT_EQ(NormalizeLocationText(L"FILE://server/share/dir"), L"\\\\server\\share\\dir");
    EXPECT_EQ(NormalizeLocationText(L"file:///C:/%C3%BC%E2%9C%93"), L"C:\\\u00FC\u2713") << "escapes are UTF-8";
    EXPECT_EQ(NormalizeLocationText(L"file:///C:/\u65E5\u672C"), L"C:\\\u65E5\u672C");
    EXPECT_EQ(NormalizeLocationText(L"file:///C:/100%"), L"C:\\100%") << "a broken escape stays";
    EXPECT_EQ(NormalizeLocationText(L"file:///C:/%FF"), L"C:\\\u00FF") << "a byte that is not UTF-8 stays a character";
    EXPECT_EQ(NormalizeLocationText(L""), L"");
    EXPECT_EQ(NormalizeLocationText(L"\"\""), L"");
    EXPECT_EQ(NormalizeLocationText(L"D:\\ftp.notes"), L"D:\\ftp.notes");
    // A fuzz finding: a lone surrogate was re-encoded and the whole path read back as Latin-1.
    EXPECT_EQ(NormalizeLocationText(L"file:///C:/a\xDCDC%41"), L"C:\\a\xDCDC" L"A");
}

TEST(StatusText, SizesAndEveryStatusChoice) {
    EXPECT_EQ(FormatByteSize(0), L"0 Bytes");
    EXPECT_EQ(FormatByteSize(1023), L"1023 Bytes");
    EXPECT_EQ(FormatByteSize(1024), L"1.0 KB");
    EXPECT_EQ(FormatByteSize(1536), L"1.5 KB");
    EXPECT_EQ(FormatByteSize(5ull << 30), L"5.0 GB");
    EXPECT_EQ(FormatByteSize(UINT64_MAX), L"16384.0 PB") << "the largest unit holds any size";

    const StatusWords words{L"items", L"selected", L"folders", L"files", L"of", L"item", L"folder", L"file"};
    ListCounts counts{120, 0, 20, 100, 2048, 0, true};
    EXPECT_EQ(FormatStatusText(counts, 0, 0, words), L"120 items (1.99 KB)");
    EXPECT_EQ(FormatStatusText(counts, 0, 1, words), L"120 items");
    EXPECT_EQ(FormatStatusText(counts, 0, 2, words), L"20 folders, 100 files (1.99 KB)");
    EXPECT_EQ(FormatStatusText(counts, 0, 9, words), L"120 items (1.99 KB)") << "out of range counts as 0";
    counts.selected = 3;
    counts.selectedBytes = 10;
    EXPECT_EQ(FormatStatusText(counts, 0, 0, words), L"3 selected (10 Byte)");
    EXPECT_EQ(FormatStatusText(counts, 1, 0, words), L"3 selected");
    EXPECT_EQ(FormatStatusText(counts, 2, 0, words), L"3 of 120 selected (10 Byte)");
    counts.sizesKnown = false;  // Computer and other virtual folders: counts only
    EXPECT_EQ(FormatStatusText(counts, 0, 0, words), L"3 selected");
    counts.selected = 0;
    EXPECT_EQ(FormatStatusText(counts, 0, 2, words), L"120 items");
    EXPECT_EQ(FormatStatusText({1, 0, 1, 0, 0, 0, true}, 0, 0, words), L"1 item (0 Byte)") << "one takes the singular";
    EXPECT_EQ(FormatStatusText({2, 0, 1, 1, 0, 0, true}, 0, 2, words), L"1 folder, 1 file (0 Byte)");
    EXPECT_EQ(FormatFreeSpace(3ull << 30, 100ull << 30, L"von", L"gesamt"), L"Frei: 3.0 GB von 100.0 GB gesamt");
}

TEST(BrowserSlots, FifteenBrowsersThenRefusedUntilOneCloses) {
    std::array<bool, kBrowserSlots> closed{};
    int count = 0;
    for (; count < 15; ++count) {
        const SlotChoice choice = ChooseBrowserSlot(closed, count);
        ASSERT_EQ(choice.kind, SlotChoice::kNew);
        EXPECT_EQ(choice.slot, count);
    }
    EXPECT_EQ(ChooseBrowserSlot(closed, count).kind, SlotChoice::kRefused);
    closed[4] = closed[9] = true;
    const SlotChoice reuse = ChooseBrowserSlot(closed, count);
    EXPECT_EQ(reuse.kind, SlotChoice::kReuse);
    EXPECT_EQ(reuse.slot, 4) << "the first closed slot is taken";
}

TEST(CopyName, NumbersUntilFreeAndKeepsTheExtension) {
    std::set<std::wstring> used{L"a (2).txt", L"a (3).txt"};
    auto taken = [&](const std::wstring& name) { return used.count(name) > 0; };
    EXPECT_EQ(FreeCopyName(L"a.txt", taken), L"a (4).txt");
    EXPECT_EQ(FreeCopyName(L"folder", taken), L"folder (2)");
    EXPECT_EQ(FreeCopyName(L".profile", taken), L".profile (2)");
    EXPECT_EQ(FreeCopyName(L"archive.tar.gz", taken), L"archive.tar (2).gz");
    EXPECT_EQ(FreeCopyName(L"x", [](const std::wstring&) { return true; }), L"x (10000)");
}

TEST(NameClash, AMoveMeetsNamesTakenInTheTargetAndFollowsTheAnswer) {
    const std::set<std::wstring> there{L"D:\\to\\a.txt", L"D:\\to\\Sub"};
    auto exists = [&](const std::wstring& path) { return there.count(path) > 0; };
    const std::vector<std::wstring> sources{L"C:\\from\\a.txt", L"C:\\from\\b.txt", L"C:\\from\\Sub"};
    const auto clashes = NameClashes(sources, L"D:\\to", exists);
    EXPECT_EQ(clashes, (std::vector<std::wstring>{L"C:\\from\\a.txt", L"C:\\from\\Sub"}));
    EXPECT_EQ(NameClashes(sources, L"D:\\to\\", exists), clashes) << "a trailing backslash is the same folder";
    EXPECT_TRUE(NameClashes({L"D:\\to\\a.txt"}, L"d:\\TO", exists).empty()) << "an item onto itself";
    EXPECT_EQ(SourcesToMove(sources, clashes, ClashAnswer::Replace), sources);
    EXPECT_EQ(SourcesToMove(sources, clashes, ClashAnswer::Skip), (std::vector<std::wstring>{L"C:\\from\\b.txt"}));
    EXPECT_TRUE(SourcesToMove(sources, clashes, ClashAnswer::Cancel).empty());
    EXPECT_EQ(ClashList(clashes), L"a.txt\nSub\n");
    EXPECT_EQ(ClashList(sources, 1), L"a.txt\n\u2026\n");
}

TEST(ShellChange, FreeSpaceEventsAndThePathTheFolderSizesHear) {
    for (long event : {kEventCreate, kEventDelete, kEventMkdir, kEventRmdir, kEventDriveRemoved, kEventDriveAdd,
                       kEventFreeSpace})
        EXPECT_TRUE(ChangeAffectsFreeSpace(event)) << event;
    for (long event : {0x1L, 0x2000L, 0x20000L, 0L})  // rename, update, folder rename, none
        EXPECT_FALSE(ChangeAffectsFreeSpace(event)) << event;
    EXPECT_EQ(kRegisteredEvents & (kEventDriveAdd | kEventDriveRemoved), 0) << "the drive events are not asked for";

    const ShellChange rename{kEventRenameItem, L"C:\\old.txt", L"C:\\new.txt"};
    EXPECT_EQ(PathForFolderSizes(rename), L"C:\\new.txt");
    EXPECT_EQ(PathForFolderSizes({kEventCreate, L"C:\\a", L""}), L"C:\\a");
    EXPECT_EQ(PathForFolderSizes({kEventUpdateItem, L"C:\\b", L""}), L"C:\\b");
    EXPECT_EQ(PathForFolderSizes({kEventDelete, L"C:\\c", L""}), L"");

    // A change measures again the listed folder it lies in, everything when the folder itself changed.
    EXPECT_EQ(SizeChangeOf(L"C:\\Data", L"c:\\data\\Photos\\2024\\a.jpg").folder, L"Photos");
    EXPECT_EQ(SizeChangeOf(L"C:\\", L"C:\\Photos").folder, L"Photos");
    EXPECT_TRUE(SizeChangeOf(L"C:\\Data\\", L"C:\\Data").all);
    for (const wchar_t* elsewhere : {L"C:\\Database\\x", L"C:\\Other\\x", L"C:\\Dat", L""}) {
        const SizeChange none = SizeChangeOf(L"C:\\Data", elsewhere);
        EXPECT_TRUE(!none.all && none.folder.empty()) << std::string(elsewhere, elsewhere + wcslen(elsewhere));
    }

    // The folder shown or one above it removed or renamed; never a sibling with a longer name.
    EXPECT_TRUE(ChangeRemovesFolder({kEventRmdir, L"C:\\Data", L""}, L"c:\\data"));
    EXPECT_TRUE(ChangeRemovesFolder({kEventRenameFolder, L"C:\\Data\\", L"C:\\New"}, L"C:\\Data\\Sub"));
    EXPECT_FALSE(ChangeRemovesFolder({kEventRmdir, L"C:\\Data", L""}, L"C:\\Database"));
    EXPECT_FALSE(ChangeRemovesFolder({kEventRmdir, L"C:\\Data\\Sub", L""}, L"C:\\Data"));
    EXPECT_FALSE(ChangeRemovesFolder({kEventCreate, L"C:\\Data", L""}, L"C:\\Data"));
    EXPECT_FALSE(ChangeRemovesFolder({kEventRmdir, L"", L""}, L"C:\\Data"));
}

}  // namespace
}  // namespace tessel

namespace tessel {
namespace {

// A sign of a long listing: none in the first half second, then one every 200 ms, none once ended.
TEST(ListingProgress, FirstAfterHalfASecondThenEvery200Ms) {
    ListingProgress progress;
    double now = 0;
    auto clock = [&] { return now; };
    progress.Begin(0);
    auto notices = [&](int items) {
        int due = 0;
        for (int i = 0; i < items; ++i) due += progress.Step(clock) ? 1 : 0;
        return due;
    };
    now = 499;
    EXPECT_EQ(notices(10000), 0);
    now = 500;
    EXPECT_EQ(notices(10000), 1) << "once, not at every look";
    now = 650;
    EXPECT_EQ(notices(10000), 0);
    now = 700;
    EXPECT_EQ(notices(10000), 1);
    EXPECT_EQ(progress.Items(), 40000);
    progress.End();
    now = 5000;
    EXPECT_EQ(notices(10000), 0);
    progress.Begin(5000);
    EXPECT_EQ(notices(10000), 0) << "a new listing waits its own half second";
}

}  // namespace
}  // namespace tessel
