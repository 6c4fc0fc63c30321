#include "core/settings_store_win.h"

#include <gtest/gtest.h>

#include "support_win.h"

namespace tessel {
namespace {

using testing::FileExists;
using testing::ReadBytes;
using testing::TempFolder;
using testing::WriteBytes;

std::string Utf16(const std::wstring& text) {
    std::string bytes = "\xFF\xFE";
    for (wchar_t c : text) {
        bytes += static_cast<char>(c & 0xFF);
        bytes += static_cast<char>(c >> 8);
    }
    return bytes;
}

TEST(SettingsStore, PortableFileBesideTheExecutableAndRenamedExecutable) {
    TempFolder folder;
    WriteBytes(folder / L"Tessel.ini", "[Start]\r\nshow_tabs=0\r\n");
    CMyProfStr store(folder / L"Tessel.exe");
    EXPECT_TRUE(store.IsFileMode());
    EXPECT_EQ(store.SettingsPath(), folder / L"Tessel.ini");
    EXPECT_EQ(store.GetInt(L"Start", L"show_tabs", 2), 0);
    EXPECT_EQ(store.DataFolder(), folder.path());
    EXPECT_EQ(store.ExeFolder(), folder.path());

    WriteBytes(folder / L"Tools.ini", "[Start]\r\nshow_tabs=1\r\n");
    CMyProfStr renamed(folder / L"Tools.exe");
    EXPECT_EQ(renamed.SettingsPath(), folder / L"Tools.ini");
    EXPECT_EQ(renamed.GetInt(L"Start", L"show_tabs", 2), 1);
}

TEST(SettingsStore, UninstallMarkerInTheCurrentFolderKeepsRegistryMode) {
    TempFolder exeFolder, current;
    WriteBytes(exeFolder / L"Tessel.ini", "[Start]\r\n");
    WriteBytes(current / L"Tessel_Uninstall.ini", "");
    wchar_t previous[MAX_PATH] = {};
    GetCurrentDirectoryW(MAX_PATH, previous);
    SetCurrentDirectoryW(current.path().c_str());
    CMyProfStr store(exeFolder / L"Tessel.exe");
    SetCurrentDirectoryW(previous);
    EXPECT_FALSE(store.IsFileMode());
    EXPECT_EQ(store.SettingsPath(), L"Tessel.ini");
    EXPECT_EQ(ReadBytes(exeFolder / L"Tessel.ini"), "[Start]\r\n") << "the file beside the exe is left alone";
}

TEST(SettingsStore, ConfigurationNameFromTheExecutableName) {
    TempFolder folder;
    CMyProfStr work(folder / L"Tessel ini=Work.exe");
    EXPECT_FALSE(work.IsFileMode());
    EXPECT_EQ(work.BaseName(), L"Tessel_Work");
    EXPECT_NE(work.SettingsPath().find(L"Tessel_Work.ini"), std::wstring::npos);
    CMyProfStr shortName(folder / L"Tessel ini=Abc.exe");
    EXPECT_EQ(shortName.BaseName(), L"Tessel");
}

TEST(SettingsStore, UnwritableSettingsFileMovesToThePerUserFolder) {
    TempFolder folder;
    WriteBytes(folder / L"Tools.ini", "[Start]\r\n");
    // Another program holds the file open for reading only: it can be found but not written.
    HANDLE holder = CreateFileW((folder / L"Tools.ini").c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr,
                                OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    ASSERT_NE(holder, INVALID_HANDLE_VALUE);
    CMyProfStr store(folder / L"Tools.exe");
    CloseHandle(holder);
    EXPECT_TRUE(store.IsFileMode());
    EXPECT_NE(store.SettingsPath().find(L"\\Tessel\\Tessel.ini"), std::wstring::npos) << store.SettingsPath().c_str();
    EXPECT_EQ(ReadBytes(folder / L"Tools.ini"), "[Start]\r\n");
    EXPECT_EQ(store.DataFolder() + L"\\Tessel.ini", store.SettingsPath()) << "the last state follows the settings";
}

TEST(SettingsStore, NewFileIsUnicodeAndKeepsPathsOutsideTheCodePage) {
    TempFolder folder;
    WriteBytes(folder / L"Tessel.ini", Utf16(L""));  // found beside the exe, still empty
    CMyProfStr store(folder / L"Tessel.exe");
    const std::wstring path = L"C:\\Grüße ✓ 日本\\Ordner";
    ASSERT_TRUE(store.PutString(L"Pfade", L"eins", path));
    EXPECT_EQ(store.GetString(L"Pfade", L"eins", L""), path);

    std::wstring created = folder / L"fresh.ini";
    ASSERT_TRUE(store.PutIntTo(created, L"Start", L"x", 5));
    std::string bytes = ReadBytes(created);
    ASSERT_GE(bytes.size(), 2u);
    EXPECT_EQ(bytes.substr(0, 2), "\xFF\xFE") << "a file we create starts with the UTF-16LE mark";
    EXPECT_EQ(store.GetSectionOf(created, L"Start"), L"x=5\n");
}

TEST(SettingsStore, TypedValuesClampRectanglesAndLongValues) {
    TempFolder folder;
    WriteBytes(folder / L"Tessel.ini", "[Start]\r\nseven=7\r\nword=abc\r\nrc=10;20;30\r\nfull=1;2;3;4\r\n");
    CMyProfStr store(folder / L"Tessel.exe");
    EXPECT_EQ(store.GetInt(L"Start", L"seven", 0, 0, 3), 3);
    EXPECT_EQ(store.GetInt(L"Start", L"seven", 0, -1, 3), 7);
    EXPECT_EQ(store.GetInt(L"Start", L"word", 9), 0);
    EXPECT_EQ(store.GetInt(L"Start", L"missing", 9), 9);
    RectI rect{0, 0, 99, 99};
    EXPECT_FALSE(store.GetRect(L"Start", L"rc", rect));
    EXPECT_EQ(rect, (RectI{10, 20, 30, 99}));
    EXPECT_TRUE(store.GetRect(L"Start", L"full", rect));
    EXPECT_EQ(rect, (RectI{1, 2, 3, 4}));

    std::wstring longValue(3000, L'x');
    store.PutString(L"Start", L"long", longValue);
    EXPECT_EQ(store.GetString(L"Start", L"long", L"").size(), 1023u);

    ASSERT_TRUE(store.PutSection(L"List", L"a=1\nb=2"));
    EXPECT_EQ(store.GetSection(L"List"), L"a=1\nb=2\n");
    ASSERT_TRUE(store.PutSection(L"List", L""));
    EXPECT_EQ(store.GetSection(L"List"), L"");

    // A section far beyond the first 8,192-character buffer comes back whole (column memory of
    // many kinds of folder is that long).
    std::wstring lines;
    for (int i = 0; i < 400; ++i) lines += L"Spatlen_" + std::to_wstring(i) + L"=" + std::wstring(60, L'%') + L"\n";
    ASSERT_GT(lines.size(), 3 * 8192u);
    ASSERT_TRUE(store.PutSection(L"Column_OS_10.0_TView1", lines));
    EXPECT_EQ(store.GetSection(L"Column_OS_10.0_TView1"), lines);
}

TEST(SettingsStore, DamagedFilesGiveDefaults) {
    TempFolder folder;
    const std::string damaged[] = {
        "",
        std::string("\x00\x01\x02\xFF\xFE\x00[Start\x00show_tabs=1", 30),
        "[Start]\r\nshow_tabs=",
        "[Sta",
        std::string(200000, '\xA7'),
        "\xFF\xFE[\x00S\x00",
    };
    for (const std::string& bytes : damaged) {
        WriteBytes(folder / L"Tessel.ini", bytes);
        CMyProfStr store(folder / L"Tessel.exe");
        int value = store.GetInt(L"Start", L"show_tabs", 2);
        EXPECT_TRUE(value == 2 || value == 0) << value;
        RectI rect;
        EXPECT_FALSE(store.GetRect(L"Start", L"WinRC", rect));
        store.GetSection(L"Start");
    }
}

TEST(SettingsStore, RegistryValuesOnlyInRegistryMode) {
    TempFolder folder;
    CMyProfStr installed(folder / L"Tessel ini=RegTest.exe");
    ASSERT_FALSE(installed.IsFileMode());
    EXPECT_TRUE(installed.RegPutInt(L"lng", 1));
    EXPECT_EQ(installed.RegGetInt(L"lng", 7), 1);
    EXPECT_EQ(installed.RegGetInt(L"never_written", 7), 7);
    HKEY key = nullptr;
    ASSERT_EQ(RegOpenKeyExW(HKEY_CURRENT_USER, L"Software\\Vendorix\\Tessel_RegTest", 0, KEY_READ, &key),
              ERROR_SUCCESS);
    wchar_t text[16] = {};
    DWORD size = sizeof(text), type = 0;
    RegQueryValueExW(key, L"lng", nullptr, &type, reinterpret_cast<BYTE*>(text), &size);
    RegCloseKey(key);
    EXPECT_EQ(type, static_cast<DWORD>(REG_SZ));
    EXPECT_STREQ(text, L"1");
    RegDeleteKeyW(HKEY_CURRENT_USER, L"Software\\Vendorix\\Tessel_RegTest");

    WriteBytes(folder / L"Tessel.ini", "");
    CMyProfStr portable(folder / L"Tessel.exe");
    EXPECT_FALSE(portable.RegPutInt(L"lng", 1));
    EXPECT_EQ(portable.RegGetInt(L"lng", 7), 7);
}

}  // namespace
}  // namespace tessel
