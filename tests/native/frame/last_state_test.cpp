#include "frame/last_state.h"

#include <gtest/gtest.h>

#include <vector>

#include "frame/instance_counter.h"
#include "support/memory_settings.h"

namespace tessel {
namespace {

using testing::MemorySettings;

struct RecordingRemover : IFileRemover {
    std::vector<std::wstring> removed;
    bool Remove(const std::wstring& path) override {
        removed.push_back(path);
        return true;
    }
};

TEST(CrashStartGuard, FlagIsSetOnlyWhileLoading) {
    MemorySettings store;
    RecordingRemover remover;
    int flagDuringLoad = -1;
    std::wstring loadedPath;
    bool loaded = LoadLastStateGuarded(store, L"C:\\Data", remover, [&](const std::wstring& path) {
        flagDuringLoad = store.GetInt(L"Start", L"StartCrash", 0);
        loadedPath = path;
        return true;
    });
    EXPECT_TRUE(loaded);
    EXPECT_EQ(flagDuringLoad, 1);
    EXPECT_EQ(loadedPath, L"C:\\Data\\start.tsf");
    EXPECT_EQ(store.GetInt(L"Start", L"StartCrash", -1), 0);
    EXPECT_TRUE(remover.removed.empty());
}

TEST(CrashStartGuard, LoadThatNeverReturnedDeletesTheFileUnread) {
    MemorySettings store;
    RecordingRemover remover;
    store.PutInt(L"Start", L"StartCrash", 1);  // the previous start died while loading
    bool called = false;
    EXPECT_FALSE(LoadLastStateGuarded(store, L"C:\\Data", remover, [&](const std::wstring&) {
        called = true;
        return true;
    }));
    EXPECT_FALSE(called);
    EXPECT_EQ(remover.removed, std::vector<std::wstring>{L"C:\\Data\\start.tsf"});
    EXPECT_EQ(store.GetInt(L"Start", L"StartCrash", -1), 0);

    // The start after that loads normally again.
    EXPECT_TRUE(LoadLastStateGuarded(store, L"C:\\Data", remover, [](const std::wstring&) { return true; }));
}

// Work the load leaves for later is still under the guard: a start that dies there counts as a
// load that never came back.
TEST(CrashStartGuard, LeftOpenUntilTheLaterWorkIsDone) {
    MemorySettings store;
    RecordingRemover remover;
    EXPECT_TRUE(LoadLastStateGuarded(store, L"C:\\Data", remover, [](const std::wstring&) { return true; }, true));
    EXPECT_EQ(store.GetInt(L"Start", L"StartCrash", -1), 1);
    EndLastStateLoad(store);
    EXPECT_EQ(store.GetInt(L"Start", L"StartCrash", -1), 0);

    // Died before the end: the next start deletes the file unread.
    EXPECT_TRUE(LoadLastStateGuarded(store, L"C:\\Data", remover, [](const std::wstring&) { return true; }, true));
    EXPECT_FALSE(LoadLastStateGuarded(store, L"C:\\Data", remover, [](const std::wstring&) { return true; }));
    EXPECT_EQ(remover.removed, std::vector<std::wstring>{L"C:\\Data\\start.tsf"});
}

TEST(LastStateSaver, SavesOnceAndOnlyInStartModeFive) {
    std::vector<std::wstring> saved;
    LastStateSaver saver([&](const std::wstring& path) {
        saved.push_back(path);
        return true;
    });
    saver.SaveOnce(5, L"D:\\T");
    saver.SaveOnce(5, L"D:\\T");
    EXPECT_EQ(saved, std::vector<std::wstring>{L"D:\\T\\start.tsf"});

    std::vector<std::wstring> none;
    LastStateSaver other([&](const std::wstring& path) {
        none.push_back(path);
        return true;
    });
    other.SaveOnce(3, L"D:\\T");
    EXPECT_TRUE(none.empty());
    EXPECT_TRUE(other.HasRun());
    EXPECT_EQ(HandOverStatePath(L"D:\\T"), L"D:\\T\\start2.tsf");
}

TEST(InstanceCounter, FirstTakesZeroLaterOnesCountUp) {
    MemorySettings store;
    store.PutInt(L"Start", L"Tessel_Id", 7);
    EXPECT_EQ(TakeInstanceNumber(store, false), 0);
    EXPECT_EQ(store.GetInt(L"Start", L"Tessel_Id", -1), 0);
    EXPECT_EQ(TakeInstanceNumber(store, true), 1);
    EXPECT_EQ(TakeInstanceNumber(store, true), 2);
    EXPECT_EQ(store.GetInt(L"Start", L"Tessel_Id", -1), 2);

    store.PutString(L"Start", L"Tessel_Id", L"2147483647");
    EXPECT_EQ(TakeInstanceNumber(store, true), 0) << "a damaged counter starts over";
}

TEST(InstanceCounter, RegistryModeCountsInTheRegistry) {
    MemorySettings store;
    store.fileMode = false;
    store.registry[L"Tessel_Id"] = 4;
    EXPECT_EQ(TakeInstanceNumber(store, true), 5);
    EXPECT_EQ(store.registry[L"Tessel_Id"], 5);
    EXPECT_EQ(store.GetString(L"Start", L"Tessel_Id", L"none"), L"none");
}

}  // namespace
}  // namespace tessel
