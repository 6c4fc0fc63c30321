#include "frame/setup_win.h"

#include <windows.h>
#include <shellapi.h>
#include <shlobj.h>
#include <shlwapi.h>

#include <vector>

#include "core/general_options.h"
#include "core/language_packs_win.h"
#include "core/settings_location.h"
#include "core/settings_store_win.h"
#include "core/text_case.h"
#include "frame/command_line.h"
#include "win/file_system_win.h"
#include "win/registry_win.h"
#include "win/shell_item_win.h"
#include "win/text_file_win.h"

namespace tessel {
namespace {

constexpr wchar_t kBackupSuffix[] = L".previous";


std::wstring FileNameOf(const std::wstring& path) { return path.substr(path.rfind(L'\\') + 1); }

std::wstring KnownFolder(REFKNOWNFOLDERID id) {
    PWSTR path = nullptr;
    std::wstring result;
    if (SUCCEEDED(SHGetKnownFolderPath(id, KF_FLAG_CREATE, nullptr, &path)) && path) result = path;
    CoTaskMemFree(path);
    return result;
}

std::wstring Line(int id, const std::wstring& what) { return GetText(id) + L" " + what; }

// A registry key as the user finds it in the registry editor.
std::wstring UserKey(const std::wstring& key) { return L"HKEY_CURRENT_USER\\" + key; }

// The files of a folder, not its sub-folders.
std::vector<std::wstring> FilesIn(const std::wstring& folder) {
    std::vector<std::wstring> names;
    WIN32_FIND_DATAW found{};
    HANDLE search = FindFirstFileW((folder + L"\\*").c_str(), &found);
    if (search == INVALID_HANDLE_VALUE) return names;
    do {
        if (!(found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY)) names.push_back(found.cFileName);
    } while (FindNextFileW(search, &found));
    FindClose(search);
    return names;
}

bool CreateFolderStep(SetupSteps& steps, const std::wstring& folder) {
    if (win::PathExists(folder)) return true;
    return steps.Run(Line(62130, folder), Line(62131, folder),
                     [&] { return SHCreateDirectoryExW(nullptr, folder.c_str(), nullptr) == ERROR_SUCCESS; },
                     [folder] { RemoveDirectoryW(folder.c_str()); });
}

// A file put in place of an older one keeps the older one aside until the install has succeeded.
bool CopyStep(SetupSteps& steps, const std::wstring& source, const std::wstring& target,
              std::vector<std::wstring>& backups) {
    const std::wstring backup = target + kBackupSuffix;
    const bool hadOld = win::PathExists(target);
    return steps.Run(Line(62132, target), Line(62133, target),
                     [&] {
                         if (hadOld && !MoveFileExW(target.c_str(), backup.c_str(), MOVEFILE_REPLACE_EXISTING)) return false;
                         if (hadOld) backups.push_back(backup);
                         if (CopyFileW(source.c_str(), target.c_str(), FALSE)) return true;
                         if (hadOld) MoveFileExW(backup.c_str(), target.c_str(), MOVEFILE_REPLACE_EXISTING);
                         return false;
                     },
                     [target, backup, hadOld] {
                         DeleteFileW(target.c_str());
                         if (hadOld) MoveFileExW(backup.c_str(), target.c_str(), MOVEFILE_REPLACE_EXISTING);
                     });
}

void CopyProgramFiles(SetupSteps& steps, const std::wstring& sourceExe, const SetupPlaces& places,
                      std::vector<std::wstring>& backups) {
    const std::wstring installedExe = places.programFolder + L"\\" + FileNameOf(sourceExe);
    if (EqualNoCase(installedExe, sourceExe)) {
        steps.Note(Line(62146, installedExe));  // this is the installed copy: its registrations are renewed
        return;
    }
    CreateFolderStep(steps, places.programFolder);
    CopyStep(steps, sourceExe, installedExe, backups);
    const std::wstring helpSource = FolderOf(sourceExe) + L"\\help", helpTarget = places.programFolder + L"\\help";
    const std::vector<std::wstring> pages = FilesIn(helpSource);
    if (!pages.empty()) CreateFolderStep(steps, helpTarget);
    for (const std::wstring& page : pages) CopyStep(steps, helpSource + L"\\" + page, helpTarget + L"\\" + page, backups);
}

// The marker makes the installed copy keep its settings per user, even with a settings file beside it.
void WriteMarkerStep(SetupSteps& steps, const SetupPlaces& places) {
    const std::wstring marker = places.MarkerPath();
    const bool hadMarker = win::PathExists(marker);
    steps.Run(Line(62134, marker), Line(62135, marker),
              [&] { return win::WriteUnicodeFile(marker, L"[Uninstall]\r\nFolder=" + places.programFolder + L"\r\n"); },
              [marker, hadMarker] {
                  if (!hadMarker) DeleteFileW(marker.c_str());
              });
}

// The language chosen now is what the installed copy starts in, unless the user has one already.
void WriteLanguageStep(SetupSteps& steps, const SetupPlaces& places, int languageId) {
    const std::wstring key = places.SettingsKey();
    std::wstring existing;
    if (win::GetRegString(places.registry.root, key, L"lng", existing)) return;
    const bool hadKey = win::RegKeyExists(places.registry.root, key);
    steps.Run(Line(62134, UserKey(key) + L"\\lng"), Line(62135, UserKey(key) + L"\\lng"),
              [&] { return win::SetRegString(places.registry.root, key, L"lng", std::to_wstring(languageId)); },
              [root = places.registry.root, key, hadKey] {
                  if (hadKey) SHDeleteValueW(root, key.c_str(), L"lng");
                  else win::DeleteRegTree(root, key);
              });
}

bool WriteUninstallEntry(const SetupPlaces& places, const std::wstring& exe) {
    const HKEY root = places.registry.root;
    const std::wstring key = places.UninstallKey();
    return win::SetRegString(root, key, L"DisplayName", L"Tessel") &&
           win::SetRegString(root, key, L"DisplayIcon", exe + L",0") &&
           win::SetRegString(root, key, L"DisplayVersion", L"4.19") &&
           win::SetRegString(root, key, L"Publisher", L"Vendorix") &&
           win::SetRegString(root, key, L"InstallLocation", places.programFolder) &&
           win::SetRegString(root, key, L"UninstallString", L"\"" + exe + L"\" -uninstall") &&
           win::SetRegString(root, key, L"QuietUninstallString", L"\"" + exe + L"\" -uninstall /quiet") &&
           win::SetRegNumber(root, key, L"NoModify", 1) && win::SetRegNumber(root, key, L"NoRepair", 1);
}

void RegisterSteps(SetupSteps& steps, const SetupPlaces& places, const std::wstring& exe) {
    const std::wstring shortcut = places.ShortcutPath();
    CreateFolderStep(steps, places.startMenuFolder);
    steps.Run(Line(62136, shortcut), Line(62137, shortcut),
              [&] { return win::CreateShortcut(shortcut, exe, places.programFolder, GetText(60000)); },
              [shortcut] { DeleteFileW(shortcut.c_str()); });
    const bool hadEntry = win::RegKeyExists(places.registry.root, places.UninstallKey());
    steps.Run(Line(62138, UserKey(places.UninstallKey())), Line(62139, UserKey(places.UninstallKey())),
              [&] { return WriteUninstallEntry(places, exe); },
              [&places, hadEntry] {
                  if (!hadEntry) win::DeleteRegTree(places.registry.root, places.UninstallKey());
              });
    steps.Run(GetText(62140), GetText(62141), [&] { return RegisterFolderSetType(exe, places.registry, true); },
              [exe, registry = places.registry] { UnregisterFolderSetType(exe, registry); });
}

// The copy running now cannot always delete itself: a hidden command does it once this process is gone.
bool RemoveAfterExit(const std::wstring& exe, const std::wstring& folder) {
    wchar_t system[MAX_PATH] = {};
    GetSystemDirectoryW(system, MAX_PATH);
    std::wstring command = L"\"" + std::wstring(system) + L"\\cmd.exe\" /c ping -n 3 127.0.0.1 >nul & del /f /q \"" +
                           exe + L"\" & rmdir \"" + folder + L"\"";
    STARTUPINFOW startup{sizeof(startup)};
    PROCESS_INFORMATION process{};
    if (!CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, CREATE_NO_WINDOW, nullptr, nullptr, &startup,
                        &process))
        return false;
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    return true;
}

void RemoveFileStep(SetupSteps& steps, const std::wstring& path) {
    if (!win::PathExists(path)) return;
    steps.Run(Line(62142, path), Line(62143, path), [&] { return DeleteFileW(path.c_str()) != FALSE; });
}

// The program first: while another Tessel runs from the folder it cannot go, and nothing else is touched.
void RemoveProgramFiles(SetupSteps& steps, const std::wstring& runningExe, const SetupPlaces& places,
                        const std::wstring& installedExe) {
    const bool removingSelf = EqualNoCase(runningExe, installedExe);
    bool deferred = false;
    if (win::PathExists(installedExe))
        steps.Run(Line(62142, installedExe), Line(62143, installedExe), [&] {
            if (DeleteFileW(installedExe.c_str())) return true;
            deferred = removingSelf && RemoveAfterExit(installedExe, places.programFolder);
            return deferred;
        });
    if (deferred) steps.Note(Line(62144, installedExe));
    // The help pages serve every configuration installed in this folder.
    if (!OtherConfigurationInstalled(places.baseName, FilesIn(places.programFolder))) {
        const std::wstring help = places.programFolder + L"\\help";
        for (const std::wstring& page : FilesIn(help)) RemoveFileStep(steps, help + L"\\" + page);
        RemoveDirectoryW(help.c_str());
    }
    RemoveFileStep(steps, places.MarkerPath());
    if (!deferred && !steps.Failed()) RemoveDirectoryW(places.programFolder.c_str());
}

void RemoveRegistrations(SetupSteps& steps, const SetupPlaces& places, const std::wstring& installedExe) {
    RemoveFileStep(steps, places.ShortcutPath());
    if (win::RegKeyExists(places.registry.root, places.UninstallKey()))
        steps.Run(Line(62142, UserKey(places.UninstallKey())), Line(62143, UserKey(places.UninstallKey())),
                  [&] { return win::DeleteRegTree(places.registry.root, places.UninstallKey()); });
    if (EqualNoCase(RegisteredFolderSetProgram(places.registry), installedExe))
        steps.Run(Line(62142, L".tsf"), Line(62143, L".tsf"),
                  [&] { return UnregisterFolderSetType(installedExe, places.registry); });
}

bool DeleteFolderTree(const std::wstring& folder) {
    std::wstring from = folder;
    from.push_back(L'\0');  // the list ends with two nulls
    SHFILEOPSTRUCTW operation{};
    operation.wFunc = FO_DELETE;
    operation.pFrom = from.c_str();
    operation.fFlags = FOF_NOCONFIRMATION | FOF_SILENT | FOF_NOERRORUI;
    return SHFileOperationW(&operation) == 0 && !win::PathExists(folder);
}

void RemoveSettings(SetupSteps& steps, const SetupPlaces& places) {
    const SettingsRemoval plan = PlanSettingsRemoval(places.baseName, places.portable, places.dataFolder,
                                                     places.profileFile, FilesIn(places.dataFolder));
    const HKEY root = places.registry.root;
    if (plan.registryKey && win::RegKeyExists(root, places.SettingsKey()))
        steps.Run(Line(62142, UserKey(places.SettingsKey())), Line(62143, UserKey(places.SettingsKey())),
                  [&] { return win::DeleteRegTree(root, places.SettingsKey()); });
    if (plan.wholeDataFolder && win::PathExists(places.dataFolder))
        steps.Run(Line(62142, places.dataFolder), Line(62143, places.dataFolder),
                  [&] { return DeleteFolderTree(places.dataFolder); });
    for (const std::wstring& file : plan.files) RemoveFileStep(steps, file);
    if (places.portable) steps.Note(GetText(62147));
}

bool InstalledHere(const SetupPlaces& places, const std::wstring& installedExe) {
    return win::PathExists(installedExe) || win::PathExists(places.MarkerPath()) || win::PathExists(places.ShortcutPath()) ||
           win::RegKeyExists(places.registry.root, places.UninstallKey());
}

void ShowReport(const SetupSteps& steps, int headline, bool offerStart, const std::wstring& installedExe) {
    std::wstring text = GetText(headline) + L"\n\n" + steps.ReportText();
    if (!offerStart) {
        MessageBoxW(nullptr, text.c_str(), GetText(60000).c_str(), steps.Failed() ? MB_ICONWARNING : MB_ICONINFORMATION);
        return;
    }
    text += L"\n" + GetText(62126);
    if (MessageBoxW(nullptr, text.c_str(), GetText(60000).c_str(), MB_YESNO | MB_ICONINFORMATION) == IDYES)
        ShellExecuteW(nullptr, L"open", installedExe.c_str(), nullptr, nullptr, SW_SHOWNORMAL);
}

std::wstring RunningExe() { return win::ModulePath(); }

}  // namespace

std::wstring SetupPlaces::UninstallKey() const {
    return registry.software + L"\\Microsoft\\Windows\\CurrentVersion\\Uninstall\\" + baseName;
}

SetupPlaces DefaultSetupPlaces(const std::wstring& baseName) {
    SetupPlaces places;
    places.baseName = baseName;
    std::wstring programs = KnownFolder(FOLDERID_UserProgramFiles);
    if (programs.empty()) programs = KnownFolder(FOLDERID_LocalAppData) + L"\\Programs";
    places.programFolder = programs + L"\\Tessel";
    places.startMenuFolder = KnownFolder(FOLDERID_Programs);
    places.dataFolder = KnownFolder(FOLDERID_RoamingAppData) + L"\\Tessel";
    wchar_t windows[MAX_PATH] = {};
    GetWindowsDirectoryW(windows, MAX_PATH);
    places.profileFile = std::wstring(windows) + L"\\" + baseName + L".ini";  // where a bare-named settings file lives
    return places;
}

SetupSteps Install(const std::wstring& sourceExe, const SetupPlaces& places, int languageId) {
    SetupSteps steps;
    const std::wstring installedExe = places.programFolder + L"\\" + FileNameOf(sourceExe);
    if (InstalledHere(places, installedExe)) steps.Note(GetText(62145));
    std::vector<std::wstring> backups;
    CopyProgramFiles(steps, sourceExe, places, backups);
    WriteMarkerStep(steps, places);
    WriteLanguageStep(steps, places, languageId);
    // The favorites have their folder from the start, where they are looked for: without one,
    // "Add to favorites" has nowhere to write.
    for (const std::wstring& folder : {places.dataFolder, places.dataFolder + L"\\Favoriten",
                                       places.dataFolder + L"\\Favoriten\\Quick-Link"})
        CreateFolderStep(steps, folder);
    RegisterSteps(steps, places, installedExe);
    if (!steps.Failed())
        for (const std::wstring& backup : backups) DeleteFileW(backup.c_str());
    return steps;
}

SetupSteps Uninstall(const std::wstring& runningExe, const SetupPlaces& places, bool removeSettings) {
    SetupSteps steps;
    const std::wstring installedExe = places.programFolder + L"\\" + FileNameOf(runningExe);
    if (!InstalledHere(places, installedExe)) {
        steps.Note(GetText(62125));
    } else {
        RemoveProgramFiles(steps, runningExe, places, installedExe);
        RemoveRegistrations(steps, places, installedExe);
    }
    if (removeSettings && !steps.Failed()) RemoveSettings(steps, places);
    else if (!steps.Failed()) steps.Note(GetText(62147));
    return steps;
}

bool HandleSetupCommand(const std::wstring& commandLine) {
    const SetupRequest request = ParseSetupWords(commandLine);
    if (request.action == SetupAction::kNone) return false;
    LoadGeneralOptions(Settings(), Options());  // the reports speak the user's language
    const std::wstring exe = RunningExe();
    SetupPlaces places = DefaultSetupPlaces(Settings().BaseName());
    places.portable = Settings().IsFileMode();
    if (request.action == SetupAction::kInstall) {
        SetupSteps steps = Install(exe, places, Options().m_lang_id);
        const std::wstring installedExe = places.programFolder + L"\\" + FileNameOf(exe);
        if (!request.quiet) ShowReport(steps, steps.Failed() ? 62122 : 62121, !steps.Failed(), installedExe);
        return true;
    }
    bool removeSettings = request.action == SetupAction::kUninstallAll;
    if (removeSettings && !request.quiet) {
        const std::wstring question = GetText(62127) + L"\n" + places.dataFolder;
        removeSettings = MessageBoxW(nullptr, question.c_str(), GetText(60000).c_str(), MB_YESNO | MB_ICONQUESTION) == IDYES;
    }
    SetupSteps steps = Uninstall(exe, places, removeSettings);
    if (!request.quiet) ShowReport(steps, steps.Failed() ? 62124 : 62123, false, L"");
    return true;
}

}  // namespace tessel
