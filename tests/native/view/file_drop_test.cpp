#include "view/file_drop.h"

#include <gtest/gtest.h>

namespace tessel {
namespace {

TEST(FileDrop, KeysAndVolumeChooseTheEffectWithinWhatTheSourceAllows) {
    const uint32_t both = kDropCopy | kDropMove;
    EXPECT_EQ(FileDropEffect(0, true, both), kDropMove) << "the same volume moves";
    EXPECT_EQ(FileDropEffect(0, false, both), kDropCopy) << "another volume copies";
    EXPECT_EQ(FileDropEffect(kKeyControl, true, both), kDropCopy);
    EXPECT_EQ(FileDropEffect(kKeyShift, false, both), kDropMove);
    EXPECT_EQ(FileDropEffect(kKeyControl | kKeyShift, true, both), kDropCopy) << "Ctrl wins";
    EXPECT_EQ(FileDropEffect(0, true, kDropCopy), kDropCopy) << "a source that only gives copies";
    EXPECT_EQ(FileDropEffect(kKeyShift, true, kDropCopy), 0u) << "a move asked for and refused";
    EXPECT_EQ(FileDropEffect(0, true, 4), 0u) << "links only: nothing";
    // A drop that only opens what it names never reports a move.
    EXPECT_EQ(OpeningEffect(kDropCopy | kDropMove | kDropLink), kDropLink);
    EXPECT_EQ(OpeningEffect(kDropCopy | kDropMove), kDropCopy);
    EXPECT_EQ(OpeningEffect(kDropMove), 0u);
}

TEST(FileDrop, VolumesAndDropsIntoThemselves) {
    EXPECT_TRUE(SameVolume(L"c:\\a\\b", L"C:\\x"));
    EXPECT_FALSE(SameVolume(L"C:\\a", L"D:\\a"));
    EXPECT_TRUE(SameVolume(L"\\\\Server\\Share\\a", L"\\\\server\\share"));
    EXPECT_FALSE(SameVolume(L"\\\\server\\one\\a", L"\\\\server\\two\\a"));
    EXPECT_FALSE(SameVolume(L"", L"")) << "no volume is nobody's volume";
    EXPECT_FALSE(SameVolume(L"relative", L"relative"));

    EXPECT_TRUE(DropsIntoItself({L"C:\\a\\b"}, L"c:\\A\\B"));
    EXPECT_TRUE(DropsIntoItself({L"C:\\a\\b\\"}, L"C:\\a\\b\\c"));
    EXPECT_FALSE(DropsIntoItself({L"C:\\a\\b"}, L"C:\\a\\bc")) << "a sibling that only shares the start";
    EXPECT_FALSE(DropsIntoItself({L"C:\\a\\b"}, L"C:\\a"));
    EXPECT_TRUE(DropsIntoItself({L"C:\\x", L"C:\\"}, L"C:\\y")) << "any of them";
    EXPECT_FALSE(DropsIntoItself({L""}, L"C:\\y"));
}

}  // namespace
}  // namespace tessel
