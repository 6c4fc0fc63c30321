#pragma once
// Where the settings file lives: beside the executable (portable use, also under a renamed
// executable's own name), or per user, with an optional configuration name from "ini=".
#include <string>

namespace tessel {

class ILocationProbe {
public:
    virtual ~ILocationProbe() = default;
    virtual bool CanOpenForRead(const std::wstring& path) = 0;
    // The uninstall marker is looked up by its bare name, so in the current directory.
    virtual bool RelativeFileExists(const std::wstring& name) = 0;
};

struct SettingsLocation {
    std::wstring baseName = L"Tessel";  // "Tessel" or "Tessel_<configuration>"
    std::wstring configName;
    std::wstring filePath = L"Tessel.ini";  // a bare name until a candidate is taken
    bool fileMode = false;
    bool writeTestNeeded = true;  // false when the uninstall marker ended the choice
};

std::wstring FolderOf(const std::wstring& path);  // up to the last backslash, exclusive

SettingsLocation ChooseSettingsLocation(const std::wstring& exePath, ILocationProbe& probe);

}  // namespace tessel
