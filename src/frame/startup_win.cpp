#include "frame/startup_win.h"

#include <commctrl.h>
#include <objbase.h>
#include <ole2.h>

#include <memory>

#include "core/fill_in.h"
#include "core/help_win.h"
#include "core/language_packs_win.h"
#include "core/settings_store_win.h"
#include "frame/app_module_win.h"
#include "frame/instance_counter.h"
#include "frame/main_frame_win.h"
#include "frame/setup_win.h"
#include "res/resource.h"
#include "win/file_system_win.h"
#include "win/handles_win.h"
#include "win/start_trace_win.h"

namespace tessel {

int Entry(HINSTANCE, const wchar_t* commandLine, int showCommand) {
    // A drive without medium answers with an error instead of asking the user to insert one.
    StartMark("entry");
    SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX);
    HRESULT com = CoInitialize(nullptr);
    HRESULT ole = OleInitialize(nullptr);
    DefWindowProcW(nullptr, 0, 0, 0);  // makes sure the window library is loaded
    INITCOMMONCONTROLSEX controls{sizeof(controls), ICC_WIN95_CLASSES | ICC_USEREX_CLASSES | ICC_COOL_CLASSES};
    InitCommonControlsEx(&controls);
    StartMark("com-ole-controls");

    int code = Run(commandLine ? commandLine : L"", showCommand);

    if (SUCCEEDED(ole)) OleUninitialize();
    if (SUCCEEDED(com)) CoUninitialize();
    return code;
}

int Run(const std::wstring& commandLine, int showCommand) {
    MessageLoop loop;
    Module().AddLoop(GetCurrentThreadId(), &loop);
    struct LoopRegistration {
        ~LoopRegistration() { Module().RemoveLoop(GetCurrentThreadId()); }
    } registration;

    if (HelpRequest help = ParseHelpRequest(commandLine); help.requested) {
        OpenHelp(help.anchor);
        return 1;
    }
    CreateSettings();
    struct SettingsLifetime {
        ~SettingsLifetime() { DestroySettings(); }
    } settingsLifetime;
    StartMark("settings");
    if (HandleSetupCommand(commandLine)) {
        PostQuitMessage(1);
        return 0;
    }
    if (const std::wstring& aside = Settings().SetAsidePath(); !aside.empty())  // once: the file is gone now
        MessageBoxW(nullptr, FillIn(GetText(IDS_SETTINGS_SET_ASIDE), {Settings().FullSettingsPath(), aside}).c_str(),
                    GetText(60000).c_str(), MB_OK | MB_ICONWARNING);
    RegisterFolderSetType(win::ModulePath(), UserRegistry{}, false);
    StartMark("document-type");

    // The mutex only counts instances: a further instance opens its own window.
    win::UniqueHandle mutex(CreateMutexW(nullptr, FALSE, L"TESSEL-GUID"));
    const DWORD error = GetLastError();
    const bool anotherRuns = error == ERROR_ALREADY_EXISTS || error == ERROR_ACCESS_DENIED;
    const int instanceNumber = TakeInstanceNumber(Settings(), anotherRuns);

    auto frame = std::make_unique<CMainFrame>(commandLine, instanceNumber);
    if (!frame->CreateFrame(showCommand)) return 0;
    return loop.Run();
}

}  // namespace tessel
