// Installing and removing for the current user, with every place (folders and registry) moved
// into the test's own corner, and the folder-set document type.
#include <gtest/gtest.h>

#include <shlobj.h>

#include "core/language_packs_win.h"
#include "frame/document_type_win.h"
#include "frame/setup_win.h"
#include "support_win.h"
#include "win/registry_win.h"

namespace tessel {
namespace {

using testing::FileExists;
using testing::TempFolder;

class Setup : public ::testing::Test {
protected:
    void SetUp() override {
        places.programFolder = root / L"Programs\\Tessel";
        places.startMenuFolder = root / L"Start";
        places.dataFolder = root / L"Data\\Tessel";
        places.profileFile = root / L"Tessel.ini";
        places.registry.software = L"Software\\TesselTest\\Setup" + std::to_wstring(GetCurrentProcessId());
        source = testing::TestBinFolder() + L"\\tessel.exe";
        installed = places.programFolder + L"\\tessel.exe";
    }
    void TearDown() override { win::DeleteRegTree(HKEY_CURRENT_USER, L"Software\\TesselTest"); }

    std::wstring Value(const std::wstring& key, const wchar_t* name) {
        std::wstring value;
        win::GetRegString(HKEY_CURRENT_USER, key, name, value);
        return value;
    }
    bool Reports(const SetupSteps& steps, int id) { return steps.ReportText().find(GetText(id)) != std::wstring::npos; }
    bool AnythingInstalled() {
        return FileExists(installed) || FileExists(places.ShortcutPath()) || FileExists(places.MarkerPath()) ||
               win::RegKeyExists(HKEY_CURRENT_USER, places.UninstallKey()) ||
               !RegisteredFolderSetProgram(places.registry).empty();
    }

    TempFolder root;
    SetupPlaces places;
    std::wstring source, installed;
};

TEST_F(Setup, InstallTwiceThenRemoveKeepsTheSettingsUnlessAskedToRemoveThem) {
    SetupSteps first = Install(source, places, 1);
    ASSERT_FALSE(first.Failed()) << first.ReportText();
    EXPECT_TRUE(FileExists(installed));
    EXPECT_TRUE(FileExists(places.programFolder + L"\\help\\index.html"));
    EXPECT_TRUE(FileExists(places.MarkerPath()));
    EXPECT_TRUE(FileExists(places.ShortcutPath()));
    EXPECT_TRUE(FileExists(places.dataFolder + L"\\Favoriten\\Quick-Link")) << "favorites have their folder";
    EXPECT_EQ(Value(places.UninstallKey(), L"UninstallString"), L"\"" + installed + L"\" -uninstall");
    EXPECT_EQ(Value(places.SettingsKey(), L"lng"), L"1");
    EXPECT_EQ(Value(places.registry.Classes() + L"\\Tessel.FolderSet\\shell\\open\\command", nullptr),
              FolderSetOpenCommand(installed));
    EXPECT_EQ(Value(places.registry.Classes() + L"\\.tsf", nullptr), L"Tessel.FolderSet");

    // The user's own language and files survive a second install.
    win::SetRegString(HKEY_CURRENT_USER, places.SettingsKey(), L"lng", L"0");
    SHCreateDirectoryExW(nullptr, places.dataFolder.c_str(), nullptr);
    testing::WriteUnicodeText(places.dataFolder + L"\\start.tsf", L"[Start]\r\n");
    SetupSteps second = Install(source, places, 1);
    ASSERT_FALSE(second.Failed()) << second.ReportText();
    EXPECT_TRUE(Reports(second, 62145));
    EXPECT_EQ(Value(places.SettingsKey(), L"lng"), L"0");
    EXPECT_FALSE(FileExists(installed + L".previous"));

    SetupSteps removal = Uninstall(source, places, false);
    ASSERT_FALSE(removal.Failed()) << removal.ReportText();
    EXPECT_FALSE(AnythingInstalled());
    EXPECT_FALSE(FileExists(places.programFolder));
    EXPECT_TRUE(FileExists(places.dataFolder + L"\\start.tsf"));
    EXPECT_EQ(Value(places.SettingsKey(), L"lng"), L"0");

    SetupSteps again = Uninstall(source, places, false);
    EXPECT_FALSE(again.Failed());
    EXPECT_TRUE(Reports(again, 62125));

    testing::WriteUnicodeText(places.profileFile, L"[Start]\r\n");
    SetupSteps everything = Uninstall(source, places, true);
    ASSERT_FALSE(everything.Failed()) << everything.ReportText();
    EXPECT_FALSE(FileExists(places.dataFolder));
    EXPECT_FALSE(FileExists(places.profileFile));
    EXPECT_FALSE(win::RegKeyExists(HKEY_CURRENT_USER, places.SettingsKey()));
}

// Two configurations share the program folder and the data folder: removing one with its
// settings leaves the other's settings, last state, favorites and help pages.
TEST_F(Setup, RemovingAConfigurationTakesOnlyItsOwn) {
    ASSERT_FALSE(Install(source, places, 1).Failed());
    SetupPlaces work = places;
    work.baseName = L"Tessel_Work";
    work.profileFile = root / L"Tessel_Work.ini";
    ASSERT_FALSE(Install(source, work, 1).Failed());
    SHCreateDirectoryExW(nullptr, (places.dataFolder + L"\\Favoriten").c_str(), nullptr);
    for (const wchar_t* name : {L"start.tsf", L"Tessel.ini", L"Tessel_Work.ini", L"Favoriten\\set.tsf"})
        testing::WriteUnicodeText(places.dataFolder + L"\\" + name, L"[Start]\r\n");

    SetupSteps removal = Uninstall(source, work, true);
    ASSERT_FALSE(removal.Failed()) << removal.ReportText();
    EXPECT_FALSE(FileExists(places.dataFolder + L"\\Tessel_Work.ini"));
    EXPECT_FALSE(win::RegKeyExists(HKEY_CURRENT_USER, work.SettingsKey()));
    for (const wchar_t* name : {L"start.tsf", L"Tessel.ini", L"Favoriten\\set.tsf"})
        EXPECT_TRUE(FileExists(places.dataFolder + L"\\" + name)) << name;
    EXPECT_TRUE(win::RegKeyExists(HKEY_CURRENT_USER, places.SettingsKey()));
    EXPECT_TRUE(FileExists(places.programFolder + L"\\help\\index.html")) << "the main configuration still uses them";

    SetupPlaces portable = places;  // run from a copy that keeps its settings beside itself
    portable.portable = true;
    ASSERT_FALSE(Uninstall(source, portable, true).Failed());
    EXPECT_TRUE(FileExists(places.dataFolder + L"\\start.tsf"));
    EXPECT_TRUE(win::RegKeyExists(HKEY_CURRENT_USER, places.SettingsKey()));
}

TEST_F(Setup, AFailedStepLeavesNothingInstalled) {
    // The program folder cannot be made: a file has its parent's name.
    testing::WriteBytes(root / L"Programs", "not a folder");
    SetupSteps blocked = Install(source, places, 1);
    EXPECT_TRUE(blocked.Failed());
    EXPECT_FALSE(AnythingInstalled());
    DeleteFileW((root / L"Programs").c_str());

    // The files are copied, then the shortcut fails: the copies go again.
    testing::WriteBytes(places.startMenuFolder, "not a folder");
    SetupSteps late = Install(source, places, 1);
    EXPECT_TRUE(late.Failed());
    EXPECT_TRUE(Reports(late, 62132));
    EXPECT_FALSE(AnythingInstalled());
    EXPECT_FALSE(FileExists(places.programFolder + L"\\help\\index.html"));
    EXPECT_FALSE(FileExists(places.programFolder));
    EXPECT_FALSE(win::RegKeyExists(HKEY_CURRENT_USER, places.SettingsKey()));
}

TEST_F(Setup, AFailedReinstallKeepsTheCopyThatWasThere) {
    ASSERT_FALSE(Install(source, places, 1).Failed());
    testing::WriteBytes(installed, "the copy installed before");
    // A help page held open by another program cannot be replaced.
    HANDLE held = CreateFileW((places.programFolder + L"\\help\\index.html").c_str(), GENERIC_READ, 0, nullptr,
                              OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(held, INVALID_HANDLE_VALUE);
    SetupSteps steps = Install(source, places, 1);
    CloseHandle(held);
    EXPECT_TRUE(steps.Failed());
    EXPECT_EQ(testing::ReadBytes(installed), "the copy installed before");
    EXPECT_FALSE(FileExists(installed + L".previous"));
    EXPECT_TRUE(win::RegKeyExists(HKEY_CURRENT_USER, places.UninstallKey()));
}

TEST_F(Setup, TheDocumentTypeStaysWithAWorkingCopyAndMovesFromAGoneOne) {
    const std::wstring first = root / L"first.exe", second = root / L"second.exe";
    testing::WriteBytes(first, "a program");
    testing::WriteBytes(second, "a program");
    ASSERT_TRUE(RegisterFolderSetType(first, places.registry, false));
    EXPECT_EQ(RegisteredFolderSetProgram(places.registry), first);
    EXPECT_EQ(Value(places.registry.Classes() + L"\\Tessel.FolderSet", nullptr), GetText(62120));
    RegisterFolderSetType(second, places.registry, false);
    EXPECT_EQ(RegisteredFolderSetProgram(places.registry), first);
    EXPECT_FALSE(UnregisterFolderSetType(second, places.registry));
    DeleteFileW(first.c_str());
    RegisterFolderSetType(second, places.registry, false);
    EXPECT_EQ(RegisteredFolderSetProgram(places.registry), second);
    RegisterFolderSetType(first, places.registry, true);  // an install takes it over
    EXPECT_EQ(RegisteredFolderSetProgram(places.registry), first);
    EXPECT_TRUE(UnregisterFolderSetType(first, places.registry));
    EXPECT_FALSE(win::RegKeyExists(HKEY_CURRENT_USER, places.registry.Classes() + L"\\.tsf"));
}

}  // namespace
}  // namespace tessel
