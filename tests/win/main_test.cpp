// Runs the Win32 tests with COM and the common controls set up as the program does.
#include <windows.h>
#include <commctrl.h>
#include <ole2.h>

#include <gtest/gtest.h>

int wmain(int argc, wchar_t** argv) {
    OleInitialize(nullptr);
    INITCOMMONCONTROLSEX controls{sizeof(controls), ICC_WIN95_CLASSES | ICC_USEREX_CLASSES | ICC_COOL_CLASSES};
    InitCommonControlsEx(&controls);
    ::testing::InitGoogleTest(&argc, argv);
    int result = RUN_ALL_TESTS();
    OleUninitialize();
    return result;
}
