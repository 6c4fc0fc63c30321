#include "view/navigation_history.h"

#include <climits>

#include <gtest/gtest.h>

namespace tessel {
namespace {

// Walks like a browser view: the outgoing folder is recorded, then the step counts.
void Visit(NavigationHistory& history, uint8_t leaving) {
    history.RecordCurrent().folder = {leaving, 0, 0};
    history.Advance();
}

TEST(NavigationHistory, BackForwardAndANewNavigationCutForward) {
    NavigationHistory history;
    EXPECT_FALSE(history.CanGoBack());
    EXPECT_FALSE(history.CanGoForward());
    Visit(history, 'a');
    Visit(history, 'b');
    Visit(history, 'c');  // now at index 3, showing d
    EXPECT_EQ(history.BackIndices(), (std::vector<int>{2, 1, 0}));
    EXPECT_TRUE(history.ForwardIndices().empty());

    history.RecordCurrent().folder = {'d', 0, 0};  // a jump records the entry it leaves
    history.SetCurrent(1);  // two steps back
    EXPECT_TRUE(history.CanGoBack());
    EXPECT_TRUE(history.CanGoForward());
    EXPECT_EQ(history.ForwardIndices(), (std::vector<int>{2, 3}));
    EXPECT_EQ(history.BackIndices(), (std::vector<int>{0}));

    // A new navigation from there: forward is gone, the old entry waits out of reach.
    Visit(history, 'x');
    EXPECT_EQ(history.Current(), 2);
    EXPECT_EQ(history.Highest(), 2);
    EXPECT_FALSE(history.CanGoForward());
    ASSERT_NE(history.Find(3), nullptr);
    EXPECT_TRUE(history.ForwardIndices().empty());
    EXPECT_EQ(history.Find(1)->folder, (ItemBytes{'x', 0, 0})) << "the entry left is written again";
}

TEST(NavigationHistory, EntriesAreMadeOnFirstUseAndClearEmptiesAll) {
    NavigationHistory history;
    EXPECT_EQ(history.Find(7), nullptr);
    history.Entry(7).filterText = L"*.txt";
    EXPECT_EQ(history.Count(), 1u);
    EXPECT_EQ(history.Find(7)->filterText, L"*.txt");
    history.SetCurrent(7);  // a jump to an entry past the end raises the highest index
    EXPECT_EQ(history.Highest(), 7);
    history.SetCurrent(-1);  // not an index: ignored
    EXPECT_EQ(history.Current(), 7);
    history.Clear();
    EXPECT_EQ(history.Count(), 0u);
    EXPECT_EQ(history.Current(), 0);
    EXPECT_EQ(history.Highest(), 0);
    EXPECT_TRUE(history.BackIndices().empty());
}

TEST(NavigationHistory, TheIndexStopsAtItsLimit) {
    NavigationHistory history;
    history.SetCurrent(INT_MAX - 1);
    history.Advance();
    history.Advance();
    EXPECT_EQ(history.Current(), INT_MAX);
    EXPECT_TRUE(history.ForwardIndices().empty());
    history.SetCurrent(INT_MAX - 2);
    EXPECT_EQ(history.ForwardIndices(), (std::vector<int>{INT_MAX - 1, INT_MAX}));
}

TEST(NavigationHistory, ACopyOwnsItsSelectionsAndKeepsThePosition) {
    auto source = std::make_unique<NavigationHistory>();
    Visit(*source, 'a');
    source->Entry(0).selection = {{1, 2, 0, 0}, {3, 0, 0}};
    source->Entry(0).viewMode = 4;
    Visit(*source, 'b');
    source->SetCurrent(1);

    NavigationHistory target;
    Visit(target, 'z');
    target.CopyFrom(*source);
    source.reset();  // the source view closes first
    EXPECT_EQ(target.Count(), 2u);
    EXPECT_EQ(target.Current(), 1);
    EXPECT_EQ(target.Highest(), 2);
    ASSERT_NE(target.Find(0), nullptr);
    EXPECT_EQ(target.Find(0)->folder, (ItemBytes{'a', 0, 0}));
    EXPECT_EQ(target.Find(0)->selection.size(), 2u);
    EXPECT_EQ(target.Find(0)->viewMode, 4u);
    target.CopyFrom(target);  // onto itself: nothing lost
    EXPECT_EQ(target.Count(), 2u);
}

TEST(NavigationHistory, SameFilterComparesAllFourSwitchesAndTheExactText) {
    HistoryEntry entry;
    entry.filter = {1, 0, 1, 1};
    entry.filterText = L"*.TXT";
    EXPECT_TRUE(SameFilter(entry, {1, 0, 1, 1}, L"*.TXT"));
    EXPECT_FALSE(SameFilter(entry, {1, 0, 1, 1}, L"*.txt")) << "case counts";
    EXPECT_FALSE(SameFilter(entry, {1, 1, 1, 1}, L"*.TXT"));
    EXPECT_FALSE(SameFilter(entry, {1, 0, 1, 0}, L"*.TXT"));
}

TEST(NavigationHistory, ItemListsAreCheckedBeforeUse) {
    EXPECT_TRUE(IsItemList({0, 0}));  // the desktop
    EXPECT_TRUE(IsItemList({4, 0, 'a', 'b', 3, 0, 'c', 0, 0}));
    EXPECT_FALSE(IsItemList({}));
    EXPECT_FALSE(IsItemList({0}));
    EXPECT_FALSE(IsItemList({4, 0, 'a', 'b'})) << "no end";
    EXPECT_FALSE(IsItemList({9, 0, 'a', 0, 0})) << "an item past the end";
    EXPECT_FALSE(IsItemList({1, 0, 0, 0})) << "an item too short to move on";
    EXPECT_FALSE(IsItemList({0, 0, 0})) << "bytes after the end";
}

TEST(HistoryJumpGuard, AJumpDuringAJumpIsRefused) {
    EXPECT_FALSE(HistoryJumpGuard::Running());
    {
        HistoryJumpGuard outer;
        EXPECT_TRUE(outer.Acquired());
        HistoryJumpGuard inner;
        EXPECT_FALSE(inner.Acquired());
    }
    EXPECT_FALSE(HistoryJumpGuard::Running()) << "the inner guard does not clear the outer's flag";
    HistoryJumpGuard again;
    EXPECT_TRUE(again.Acquired());
}

}  // namespace
}  // namespace tessel
