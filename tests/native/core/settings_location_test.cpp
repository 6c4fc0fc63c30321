#include "core/settings_location.h"

#include <gtest/gtest.h>

#include <set>

namespace tessel {
namespace {

struct FakeProbe : ILocationProbe {
    std::set<std::wstring> files;
    std::set<std::wstring> relative;
    bool CanOpenForRead(const std::wstring& path) override { return files.count(path) > 0; }
    bool RelativeFileExists(const std::wstring& name) override { return relative.count(name) > 0; }
};

TEST(SettingsLocation, PortableFileBesideTheExecutable) {
    FakeProbe probe;
    probe.files = {L"C:\\Apps\\Tessel.ini"};
    SettingsLocation loc = ChooseSettingsLocation(L"C:\\Apps\\Tessel.exe", probe);
    EXPECT_TRUE(loc.fileMode);
    EXPECT_EQ(loc.filePath, L"C:\\Apps\\Tessel.ini");
}

TEST(SettingsLocation, RenamedExecutablePrefersItsOwnName) {
    FakeProbe probe;
    probe.files = {L"C:\\Apps\\Tools.ini", L"C:\\Apps\\Tessel.ini"};
    EXPECT_EQ(ChooseSettingsLocation(L"C:\\Apps\\Tools.exe", probe).filePath, L"C:\\Apps\\Tools.ini");
    probe.files = {L"C:\\Apps\\Tessel.ini"};
    EXPECT_EQ(ChooseSettingsLocation(L"C:\\Apps\\Tools.exe", probe).filePath, L"C:\\Apps\\Tessel.ini");
}

TEST(SettingsLocation, UninstallMarkerKeepsRegistryModeAndSkipsTheWriteTest) {
    FakeProbe probe;
    probe.files = {L"C:\\Apps\\Tessel.ini"};
    probe.relative = {L"Tessel_Uninstall.ini"};
    SettingsLocation loc = ChooseSettingsLocation(L"C:\\Apps\\Tessel.exe", probe);
    EXPECT_FALSE(loc.fileMode);
    EXPECT_FALSE(loc.writeTestNeeded);
    EXPECT_EQ(loc.filePath, L"Tessel.ini");
}

TEST(SettingsLocation, ConfigurationNameWhenNoFileExists) {
    FakeProbe probe;
    SettingsLocation loc = ChooseSettingsLocation(L"C:\\Apps\\Tessel ini=Work.exe", probe);
    EXPECT_FALSE(loc.fileMode);
    EXPECT_EQ(loc.baseName, L"Tessel_Work");
    EXPECT_EQ(loc.filePath, L"Tessel_Work.ini");
    EXPECT_TRUE(loc.writeTestNeeded);

    loc = ChooseSettingsLocation(L"C:\\Apps\\Tessel ini=Abc.exe", probe);
    EXPECT_EQ(loc.baseName, L"Tessel");
    EXPECT_EQ(loc.filePath, L"Tessel.ini");
}

TEST(SettingsLocation, PathWithoutUsableDotFindsNoCandidate) {
    FakeProbe probe;
    probe.files = {L"C:\\Apps\\Tessel.ini"};
    EXPECT_FALSE(ChooseSettingsLocation(L"C:\\Apps\\Tessel", probe).fileMode);
    EXPECT_FALSE(ChooseSettingsLocation(L"a.b", probe).fileMode);
    EXPECT_EQ(FolderOf(L"C:\\a\\b.exe"), L"C:\\a");
    EXPECT_EQ(FolderOf(L"b.exe"), L"");
}

}  // namespace
}  // namespace tessel
