// The preview pane on real files: a picture scaled to fit, a text and its encoding, a folder
// counted, and what it does with a broken picture, a huge file, a deleted file and a selection
// that moves faster than the reading.
#include <windows.h>
#include <shlobj.h>

#include <gtest/gtest.h>

#include "core/fill_in.h"
#include "core/language_packs_win.h"
#include "features/preview_pane_win.h"
#include "view_host_win.h"

namespace tessel::testing {
namespace {

// A bottom-up 24-bit BMP of the given size, all one colour.
std::string BmpFile(int width, int height) {
    const int stride = (width * 3 + 3) & ~3;
    const DWORD pixels = static_cast<DWORD>(stride * height);
    BITMAPFILEHEADER file{0x4D42, static_cast<DWORD>(sizeof(BITMAPFILEHEADER) + sizeof(BITMAPINFOHEADER) + pixels), 0, 0,
                          sizeof(BITMAPFILEHEADER) + sizeof(BITMAPINFOHEADER)};
    BITMAPINFOHEADER info{sizeof(info), width, height, 1, 24, BI_RGB, pixels};
    std::string bytes(reinterpret_cast<const char*>(&file), sizeof(file));
    bytes.append(reinterpret_cast<const char*>(&info), sizeof(info));
    bytes.append(pixels, '\x40');
    return bytes;
}

class Preview : public ::testing::Test {
protected:
    void SetUp() override {
        pane_ = std::make_unique<CPreviewPane>();
        ASSERT_TRUE(pane_->Create(host_.hwnd(), 77));
        SetWindowPos(pane_->hwnd(), nullptr, 0, 0, 300, 400, SWP_NOZORDER | SWP_SHOWWINDOW);
    }
    // Shows the item at `path` and waits for the complete answer.
    bool Show(const std::wstring& path) {
        PIDLIST_ABSOLUTE item = nullptr;
        if (FAILED(SHParseDisplayName(path.c_str(), nullptr, &item, 0, nullptr))) return false;
        win::UniquePidl owner(item);
        pane_->ShowItem(item);
        return PumpUntil([&] { return pane_->Settled(); });
    }
    std::wstring Text() { return GetWindowTextString(GetDlgItem(pane_->hwnd(), 1)); }
    bool Says(int id) { return pane_->ShownFacts().find(GetText(id).substr(0, 12)) != std::wstring::npos; }

    ViewHost host_{1};
    TempFolder files_;
    std::unique_ptr<CPreviewPane> pane_;
};

TEST_F(Preview, PicturesAreScaledToFitAndBrokenOnesSaySo) {
    WriteBytes(files_ / L"wide.bmp", BmpFile(1000, 100));
    ASSERT_TRUE(Show(files_ / L"wide.bmp"));
    EXPECT_EQ(pane_->ShownKind(), PreviewKind::kPicture);
    const SIZE shown = pane_->ShownPictureSize();
    EXPECT_LE(shown.cx, 300);
    EXPECT_NEAR(static_cast<double>(shown.cx) / shown.cy, 10.0, 0.5) << "the proportions are kept";
    EXPECT_NE(pane_->ShownFacts().find(L"1000"), std::wstring::npos) << "the picture's own size is told";

    WriteBytes(files_ / L"broken.png", "\x89PNG\r\n\x1a\n not really a picture");
    ASSERT_TRUE(Show(files_ / L"broken.png"));
    EXPECT_EQ(pane_->ShownKind(), PreviewKind::kOther);
    EXPECT_TRUE(Says(62328));
}

TEST_F(Preview, TextsShowTheirFirst64KbInAnyEncoding) {
    WriteBytes(files_ / L"notes.txt", "caf\xC3\xA9\nline two\n");
    ASSERT_TRUE(Show(files_ / L"notes.txt"));
    EXPECT_EQ(pane_->ShownKind(), PreviewKind::kText);
    EXPECT_EQ(Text(), L"caf\u00E9\r\nline two\r\n");

    WriteBytes(files_ / L"Makefile", "all:\n\tmake it\n");  // no extension: its bytes tell
    ASSERT_TRUE(Show(files_ / L"Makefile"));
    EXPECT_EQ(pane_->ShownKind(), PreviewKind::kText);

    WriteBytes(files_ / L"data.bin", std::string("\x00\x01\x02\x03", 4));
    ASSERT_TRUE(Show(files_ / L"data.bin"));
    EXPECT_EQ(pane_->ShownKind(), PreviewKind::kOther);

    // A file of 2 GB is not read beyond its head.
    const std::wstring big = files_ / L"big.log";
    {
        HANDLE file = CreateFileW(big.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
        ASSERT_NE(file, INVALID_HANDLE_VALUE);
        DWORD written = 0;
        WriteFile(file, "head\n", 5, &written, nullptr);
        LARGE_INTEGER end{};
        end.QuadPart = 2LL << 30;
        SetFilePointerEx(file, end, nullptr, FILE_BEGIN);
        SetEndOfFile(file);
        CloseHandle(file);
    }
    ASSERT_TRUE(Show(big));
    EXPECT_EQ(pane_->ShownKind(), PreviewKind::kText);
    EXPECT_EQ(Text().substr(0, 6), L"head\r\n");
    EXPECT_LE(Text().size(), 70000u);
    EXPECT_TRUE(Says(62330)) << "the pane says that more follows";
}

TEST_F(Preview, FoldersAreCountedAndAGoneFileIsToldAsGone) {
    CreateDirectoryW((files_ / L"pics").c_str(), nullptr);
    CreateDirectoryW((files_ / L"pics\\old").c_str(), nullptr);
    WriteBytes(files_ / L"pics\\a.txt", "1234");
    WriteBytes(files_ / L"pics\\b.txt", "12");
    WriteBytes(files_ / L"pics\\old\\c.txt", "123456");
    ASSERT_TRUE(Show(files_ / L"pics"));
    EXPECT_EQ(pane_->ShownKind(), PreviewKind::kFolder);
    const std::wstring facts = pane_->ShownFacts();
    EXPECT_NE(facts.find(FillIn(GetText(62324), {L"1", L"2"})), std::wstring::npos) << std::string(facts.begin(), facts.end());
    EXPECT_NE(facts.find(L"12 Byte"), std::wstring::npos) << "all twelve bytes at every depth: " << std::string(facts.begin(), facts.end());

    PIDLIST_ABSOLUTE item = nullptr;
    WriteBytes(files_ / L"soon-gone.txt", "x");
    ASSERT_TRUE(SUCCEEDED(SHParseDisplayName((files_ / L"soon-gone.txt").c_str(), nullptr, &item, 0, nullptr)));
    win::UniquePidl owner(item);
    DeleteFileW((files_ / L"soon-gone.txt").c_str());
    pane_->ShowItem(item);
    ASSERT_TRUE(PumpUntil([&] { return pane_->Settled(); }));
    EXPECT_TRUE(Says(62327));
}

TEST_F(Preview, OnlyTheLatestOfManyQuickRequestsIsShown) {
    for (int i = 0; i < 20; ++i) WriteBytes(files_ / (L"f" + std::to_wstring(i) + L".txt"), "text " + std::to_string(i));
    for (int i = 0; i < 20; ++i) {
        PIDLIST_ABSOLUTE item = nullptr;
        ASSERT_TRUE(SUCCEEDED(SHParseDisplayName((files_ / (L"f" + std::to_wstring(i) + L".txt")).c_str(), nullptr, &item, 0, nullptr)));
        win::UniquePidl owner(item);
        pane_->ShowItem(item);  // no pumping between: the user holds an arrow key down
    }
    ASSERT_TRUE(PumpUntil([&] { return pane_->Settled(); }));
    EXPECT_EQ(Text(), L"text 19");
    pane_->ShowItem(nullptr);
    EXPECT_TRUE(pane_->Settled()) << "nothing focused: the pane is empty at once";
}

}  // namespace
}  // namespace tessel::testing
