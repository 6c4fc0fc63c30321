// What the file system says about a path, and this program's own path.
#include <windows.h>

#include <gtest/gtest.h>

#include "support_win.h"
#include "win/file_system_win.h"

namespace tessel::testing {
namespace {

TEST(FileSystem, FilesFoldersAndTheProgramsOwnPath) {
    TempFolder folder;
    WriteBytes(folder / L"a.txt", "a");
    EXPECT_TRUE(win::PathExists(folder / L"a.txt") && win::PathExists(folder.path()));
    EXPECT_TRUE(win::IsExistingFile(folder / L"a.txt"));
    EXPECT_FALSE(win::IsExistingFile(folder.path())) << "a folder is not a file";
    EXPECT_TRUE(win::IsDirectory(folder.path()));
    EXPECT_FALSE(win::IsDirectory(folder / L"a.txt"));
    EXPECT_FALSE(win::PathExists(folder / L"gone") || win::IsDirectory(folder / L"gone") || win::IsExistingFile(folder / L"gone"));
    const std::wstring exe = LowerCase(win::ModulePath());
    EXPECT_EQ(exe.substr(exe.size() - 20), L"tessel_win_tests.exe");
    EXPECT_EQ(LowerCase(win::ModuleFolder()), LowerCase(TestBinFolder()));
}

}  // namespace
}  // namespace tessel::testing
