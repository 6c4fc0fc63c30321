#include "view/column_store.h"

#include <gtest/gtest.h>

#include "support/memory_settings.h"

namespace tessel {
namespace {

TEST(ColumnStore, SavesAndLoadsEveryKeySkippingDamagedValues) {
    testing::MemorySettings settings;
    ColumnStore store;
    store.Replace(L"Spatlen_5") = {1, 2};
    store.Replace(L"Spatlen_::{20D04FE0}") = std::vector<uint8_t>(5000, 0xAB);
    store.Save(settings, L"Column_OS_10.0_TView1");
    EXPECT_EQ(settings.GetString(L"Column_OS_10.0_TView1", L"Spatlen_5", L""), L"%01%02|CODEMODE1|4|2");

    // A value edited by hand, a line without "=", and a value of the wrong form are skipped.
    settings.PutString(L"Column_OS_10.0_TView1", L"Spatlen_7", L"%01%03|CODEMODE1|4|2");
    settings.PutString(L"Column_OS_10.0_TView1", L"Spatlen_8", L"garbage");
    ColumnStore loaded;
    loaded.Replace(L"stale") = {9};
    loaded.Load(settings, L"column_os_10.0_tview1");
    EXPECT_EQ(loaded.Size(), 2u) << "loading replaces what was held";
    ASSERT_NE(loaded.Find(L"Spatlen_5"), nullptr);
    EXPECT_EQ(*loaded.Find(L"Spatlen_5"), (StreamBytes{1, 2}));
    ASSERT_NE(loaded.Find(L"Spatlen_::{20D04FE0}"), nullptr);
    EXPECT_EQ(loaded.Find(L"Spatlen_::{20D04FE0}")->size(), 4096u) << "streams are cut to 4,096 bytes";
    EXPECT_EQ(loaded.Find(L"Spatlen_7"), nullptr);
    EXPECT_EQ(loaded.Find(L"stale"), nullptr);

    ColumnStore other;  // a different system version reads another section
    other.Load(settings, L"Column_OS_6.1_TView1");
    EXPECT_EQ(other.Size(), 0u);
}

TEST(ColumnStore, HistoryStreamsAreUsedOnceWhenArmed) {
    ColumnStore store;
    EXPECT_FALSE(store.HistoryReadPending());
    EXPECT_EQ(store.TakeHistoryWriteIndex(), -1);
    store.ArmHistoryWrite(3);
    EXPECT_TRUE(store.HistoryWritePending());
    const int index = store.TakeHistoryWriteIndex();
    EXPECT_EQ(index, 3);
    EXPECT_FALSE(store.HistoryWritePending());
    store.StoreHistory(index, {7, 7});

    store.ArmHistoryRead(3);
    const StreamBytes* bytes = store.TakeHistoryRead();
    ASSERT_NE(bytes, nullptr);
    EXPECT_EQ(*bytes, (StreamBytes{7, 7}));
    EXPECT_FALSE(store.HistoryReadPending()) << "the index is used once";
    store.ArmHistoryRead(4);
    EXPECT_EQ(store.TakeHistoryRead(), nullptr) << "nothing stored for that entry";
    EXPECT_EQ(store.Size(), 0u) << "history streams are not column memory";
}

// The tabs of one T-View each hold a store of the same section: whatever order they save in,
// no tab's columns are lost, and a tab that saves later sees what the others wrote.
TEST(ColumnStore, SavesFromTabsOfOneViewKeepEachOthersColumns) {
    testing::MemorySettings settings;
    const std::wstring section = L"Column_OS_10.0_TView1";
    ColumnStore first, second;
    first.Load(settings, section);
    second.Load(settings, section);
    first.Replace(L"Spatlen_5") = {5};
    first.Save(settings, section);
    second.Replace(L"Spatlen_9") = {9};
    second.Save(settings, section);
    first.Replace(L"Spatlen_5") = {55};
    first.Save(settings, section);
    second.Save(settings, section);  // nothing changed: the newer value of the other tab stays

    ColumnStore fresh;
    fresh.Load(settings, section);
    ASSERT_NE(fresh.Find(L"Spatlen_5"), nullptr);
    ASSERT_NE(fresh.Find(L"Spatlen_9"), nullptr);
    EXPECT_EQ(*fresh.Find(L"Spatlen_5"), StreamBytes{55});
    EXPECT_EQ(*fresh.Find(L"Spatlen_9"), StreamBytes{9});
    ASSERT_NE(first.Find(L"Spatlen_9"), nullptr) << "a save takes in what other tabs wrote";
}

}  // namespace
}  // namespace tessel
