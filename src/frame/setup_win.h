#pragma once
// Installing the program for the current user (no administrator rights: the user's program
// folder, the user's Start menu and the user's part of the registry) and removing it again.
#include <string>

#include "frame/document_type_win.h"
#include "frame/setup_steps.h"

namespace tessel {

// Where an install goes; tests point every part at places of their own.
struct SetupPlaces {
    std::wstring programFolder;    // "<user's programs>\Tessel"
    std::wstring startMenuFolder;  // the user's Start-menu programs folder
    std::wstring dataFolder;       // the per-user data folder ("<application data>\Tessel")
    std::wstring profileFile;      // where a settings file named without a folder is kept
    UserRegistry registry;
    std::wstring baseName = L"Tessel";  // names the settings key, the settings file and the marker
    bool portable = false;  // the running copy keeps its settings beside itself, not per user

    std::wstring ShortcutPath() const { return startMenuFolder + L"\\Tessel.lnk"; }
    std::wstring MarkerPath() const { return programFolder + L"\\" + baseName + L"_Uninstall.ini"; }
    std::wstring UninstallKey() const;
    std::wstring SettingsKey() const { return registry.software + L"\\Vendorix\\" + baseName; }
};

// The places for the current user and the settings' base name.
SetupPlaces DefaultSetupPlaces(const std::wstring& baseName);

// Copies the program at `sourceExe` and its help pages into the program folder and registers it.
// Installing over an installed copy replaces its files; a failed step undoes the others.
SetupSteps Install(const std::wstring& sourceExe, const SetupPlaces& places, int languageId);
// Removes the installed copy; `removeSettings` also takes the settings and the data folder.
// `runningExe` is the program doing it: an installed copy removing itself is deleted once it ends.
SetupSteps Uninstall(const std::wstring& runningExe, const SetupPlaces& places, bool removeSettings);

// The set-up words of the command line; true when the line was one of them (and was handled).
bool HandleSetupCommand(const std::wstring& commandLine);

}  // namespace tessel
