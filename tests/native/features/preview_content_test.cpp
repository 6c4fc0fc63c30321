// What the preview shows: the kind of an item, text told from binary, and text decoded from
// every encoding it may come in, cut anywhere by the 64 KB limit.
#include "features/preview_content.h"

#include <gtest/gtest.h>

#include <string>
#include <thread>
#include <utility>

#include "core/fill_in.h"
#include "core/latest_request.h"
#include "core/utf8.h"

namespace tessel {
namespace {

TEST(PreviewContent, KindsFollowTheExtensionWhateverItsCase) {
    EXPECT_EQ(PreviewKindOf(L"C:\\a\\Photo.JPG", false), PreviewKind::kPicture);
    EXPECT_EQ(PreviewKindOf(L"notes.txt", false), PreviewKind::kText);
    EXPECT_EQ(PreviewKindOf(L"set.tsf", false), PreviewKind::kText);
    EXPECT_EQ(PreviewKindOf(L"archive.zip", false), PreviewKind::kOther);
    EXPECT_EQ(PreviewKindOf(L"Makefile", false), PreviewKind::kOther) << "no extension: sniffed later";
    EXPECT_EQ(PreviewKindOf(L"C:\\dir.png\\file", false), PreviewKind::kOther) << "a dot in a folder name is no extension";
    EXPECT_EQ(PreviewKindOf(L"pictures.png", true), PreviewKind::kFolder);
    EXPECT_EQ(PreviewKindOf(L"", false), PreviewKind::kOther);
}

TEST(PreviewContent, TextIsToldFromBinary) {
    EXPECT_TRUE(LooksLikeText("plain text\r\nwith\ttabs\n"));
    EXPECT_TRUE(LooksLikeText(""));
    EXPECT_TRUE(LooksLikeText(std::string("\xFF\xFEh\0i\0", 6))) << "UTF-16 has zero bytes";
    EXPECT_FALSE(LooksLikeText(std::string("MZ\x90\0\x03", 5)));
    EXPECT_FALSE(LooksLikeText("\x01\x02\x03\x04 mostly control"));
    EXPECT_TRUE(LooksLikeText("caf\xC3\xA9 na\xEFve"));
}

TEST(PreviewContent, EveryEncodingDecodesAndLineEndsBecomeCrLf) {
    EXPECT_EQ(DecodePreviewText("a\nb\r\nc\rd", false), L"a\r\nb\r\nc\r\nd");
    EXPECT_EQ(DecodePreviewText("\xEF\xBB\xBF" "caf\xC3\xA9", false), L"caf\u00E9");
    EXPECT_EQ(DecodePreviewText("caf\xE9", false), L"caf\u00E9") << "not UTF-8: Latin-1";
    EXPECT_EQ(DecodePreviewText(std::string("\xFF\xFEh\0i\0\n\0", 8), false), L"hi\r\n");
    EXPECT_EQ(DecodePreviewText(std::string("\xFE\xFF\0h\0i", 6), false), L"hi");
    EXPECT_EQ(DecodePreviewText(std::string("\xFF\xFEh\0i", 5), false), L"h") << "an odd last byte is dropped";
    EXPECT_EQ(DecodePreviewText(std::string("\xFF\xFEh\0\x3D\xD8", 6), false), L"h") << "half a surrogate pair is dropped";
    EXPECT_EQ(DecodePreviewText(std::string("a\0b", 3), false), L"a b") << "a zero would end the edit control's text";
}

TEST(PreviewContent, ACharacterCutByTheLimitIsDroppedNotGarbled) {
    const std::string euro = "\xE2\x82\xAC";
    EXPECT_EQ(DecodePreviewText("x" + euro, true), L"x\u20AC");
    EXPECT_EQ(DecodePreviewText("x" + euro.substr(0, 2), true), L"x");
    EXPECT_EQ(DecodePreviewText("x" + euro.substr(0, 1), true), L"x");
    EXPECT_EQ(DecodePreviewText("x\xF0\x9F\x98", true), L"x");
    std::wstring smile;
    ASSERT_TRUE(DecodeUtf8("x\xF0\x9F\x98\x80", smile));
    EXPECT_EQ(DecodePreviewText("x\xF0\x9F\x98\x80", true), smile);
    EXPECT_EQ(DecodePreviewText("caf\xE9", false), L"caf\u00E9") << "a whole file ending in Latin-1 keeps its last letter";
}

TEST(PreviewContent, PicturesShrinkToFitKeepingTheirShapeAndNeverGrow) {
    auto fit = [](int w, int h, int bw, int bh) {
        const PictureSize s = FitPicture({w, h}, {bw, bh});
        return std::pair(s.width, s.height);
    };
    EXPECT_EQ(fit(100, 50, 400, 400), std::pair(100, 50)) << "a small picture keeps its size";
    EXPECT_EQ(fit(800, 400, 400, 400), std::pair(400, 200));
    EXPECT_EQ(fit(400, 800, 400, 400), std::pair(200, 400));
    EXPECT_EQ(fit(1000, 1000, 300, 200), std::pair(200, 200));
    EXPECT_EQ(fit(10000, 1, 100, 100), std::pair(100, 1)) << "a sliver keeps one pixel";
    EXPECT_EQ(fit(60000, 60000, 1920, 1080), std::pair(1080, 1080)) << "no overflow with large pictures";
    EXPECT_EQ(fit(0, 10, 100, 100), std::pair(0, 0));
    EXPECT_EQ(fit(10, 10, 0, 100), std::pair(0, 0)) << "a pane without room shows nothing";
}

TEST(LatestRequest, AWaitingRequestIsReplacedAndTheOldOneIsNoLongerCurrent) {
    LatestRequest<int> slot;
    const uint64_t first = slot.Put(1);
    const uint64_t second = slot.Put(2);
    EXPECT_GT(second, first);
    int request = 0;
    uint64_t number = 0;
    ASSERT_TRUE(slot.Take(request, number));
    EXPECT_EQ(request, 2) << "only the latest is worked on";
    EXPECT_TRUE(slot.IsCurrent(number));
    slot.Put(3);
    EXPECT_FALSE(slot.IsCurrent(number)) << "the worker learns that its result is stale";
}

TEST(LatestRequest, StopWakesAWaitingWorker) {
    LatestRequest<int> slot;
    bool taken = true;
    std::thread worker([&] {
        int request = 0;
        uint64_t number = 0;
        taken = slot.Take(request, number);
    });
    slot.Stop();
    worker.join();
    EXPECT_FALSE(taken);
    EXPECT_FALSE(slot.IsCurrent(0));
}

}  // namespace
}  // namespace tessel

namespace tessel {
namespace {

TEST(FillIn, BlanksAreFilledInAnyOrderAndMissingOnesStayEmpty) {
    EXPECT_EQ(FillIn(L"Size: %1", {L"3 KB"}), L"Size: 3 KB");
    EXPECT_EQ(FillIn(L"%2 x %1", {L"a", L"b"}), L"b x a");
    EXPECT_EQ(FillIn(L"%3 and %s and 100%", {L"a"}), L" and %s and 100%") << "no printf formats, no values beyond";
    EXPECT_EQ(FillIn(L"%", {}), L"%");
}

}  // namespace
}  // namespace tessel
