// The folder-size walk over a made-up tree: links never entered, unreadable folders skipped,
// yields, pauses and cancelling; and the texts of the size cache.
#include <gtest/gtest.h>

#include <map>
#include <vector>

#include "features/folder_size_cache.h"
#include "features/folder_walk.h"

namespace tessel {
namespace {

struct FakeEntry {
    std::wstring name;
    bool directory;
    bool reparse;
    uint64_t size;
};

class FakeLister : public IDirectoryLister {
public:
    std::map<std::wstring, std::vector<FakeEntry>> folders;
    int opened = 0;

    std::unique_ptr<IDirectoryListing> Open(const std::wstring& folder) override {
        auto found = folders.find(folder);
        if (found == folders.end()) return nullptr;  // unreadable
        ++opened;
        struct Listing : IDirectoryListing {
            std::vector<FakeEntry> entries;
            size_t at = 0;
            bool Next(DirectoryEntry& entry) override {
                if (at >= entries.size()) return false;
                const FakeEntry& e = entries[at++];
                entry = {e.name, e.directory, e.reparse, e.size};
                return true;
            }
        };
        auto listing = std::make_unique<Listing>();
        listing->entries = {{L".", true, false, 0}, {L"..", true, false, 0}};
        listing->entries.insert(listing->entries.end(), found->second.begin(), found->second.end());
        return listing;
    }
};

class FakeControl : public IWalkControl {
public:
    int yields = 0, sleeps = 0, cancelAfterSleeps = -1, pausedSleeps = 0;
    bool Cancelled() override { return cancelAfterSleeps >= 0 && sleeps >= cancelAfterSleeps; }
    bool Paused() override { return pausedSleeps > 0; }
    void Sleep(unsigned milliseconds) override {
        ++sleeps;
        if (milliseconds == 0) ++yields;
        else --pausedSleeps;
    }
};

FakeLister Tree() {
    FakeLister lister;
    lister.folders[L"C:\\top"] = {{L"a.txt", false, false, 100}, {L"sub", true, false, 0},
                                 {L"loop", true, true, 0}, {L"denied", true, false, 0}};
    lister.folders[L"C:\\top\\sub"] = {{L"b.bin", false, false, 1000}, {L"deeper", true, false, 0}};
    lister.folders[L"C:\\top\\sub\\deeper"] = {{L"c", false, false, 5}};
    return lister;
}

TEST(FolderWalk, CountsLinksOnceSkipsUnreadableAndRecursesOnlyWhenAsked) {
    FakeLister lister = Tree();
    FakeControl control;
    FolderTotals totals;
    ASSERT_TRUE(MeasureFolder(lister, L"C:\\top", true, control, totals));
    EXPECT_EQ(totals.bytes, 1105u);
    EXPECT_EQ(totals.files, 4u) << "the junction counts as an entry";
    EXPECT_EQ(totals.folders, 3u) << "sub, deeper and the unreadable one";
    EXPECT_EQ(lister.opened, 3) << "the junction is never entered";

    FolderTotals flat;
    ASSERT_TRUE(MeasureFolder(lister, L"C:\\top", false, control, flat));
    EXPECT_EQ(flat.bytes, 100u);
    EXPECT_EQ(flat.folders, 2u);
    FolderTotals none;
    EXPECT_TRUE(MeasureFolder(lister, L"C:\\missing", true, control, none));
    EXPECT_EQ(none.files + none.folders, 0u);
}

TEST(FolderWalk, YieldsPausesAndStopsAtOnce) {
    FakeLister lister;
    for (int i = 0; i < 95; ++i) lister.folders[L"D:"].push_back({L"f" + std::to_wstring(i), false, false, 1});
    FakeControl control;
    FolderTotals totals;
    ASSERT_TRUE(MeasureFolder(lister, L"D:", true, control, totals));
    EXPECT_EQ(control.yields, 9) << "one every 10 entries";

    FakeControl paused;
    paused.pausedSleeps = 3;
    totals = {};
    ASSERT_TRUE(MeasureFolder(lister, L"D:", true, paused, totals));
    EXPECT_EQ(totals.files, 95u) << "a pause only delays";

    FakeControl cancelled;
    cancelled.cancelAfterSleeps = 2;
    totals = {};
    EXPECT_FALSE(MeasureFolder(lister, L"D:", true, cancelled, totals));
    EXPECT_LT(totals.files, 30u);
}

TEST(FolderSizeCache, TextsShareAndCounts) {
    FolderSizeCache cache;
    FolderSizeSettings settings;
    EXPECT_EQ(cache.Text(L"A", settings, L","), L"") << "not done: no size";
    cache.Store(L"A", {2048, 3, 1});
    cache.Store(L"B", {8192, 10, 2});
    cache.Store(L"EMPTY", {0, 0, 0});
    EXPECT_EQ(cache.Text(L"B", settings, L","), L"8,192  100 %  10 / 2");
    EXPECT_EQ(cache.Text(L"A", settings, L","), L"2,048  25 %  3 / 1");
    settings.precent = 0;
    settings.ff_cnt = 0;
    settings.type = 0;
    EXPECT_EQ(cache.Text(L"EMPTY", settings, L","), L"0");
    cache.Clear();
    EXPECT_EQ(cache.Largest(), 0u);
}

}  // namespace
}  // namespace tessel
