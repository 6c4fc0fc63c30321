#include "core/settings_location.h"

#include "core/profile_values.h"

namespace tessel {

std::wstring FolderOf(const std::wstring& path) {
    size_t slash = path.find_last_of(L'\\');
    return slash == std::wstring::npos ? std::wstring() : path.substr(0, slash);
}

static std::wstring FindCandidate(const std::wstring& exePath, const std::wstring& baseName, ILocationProbe& probe) {
    size_t dot = exePath.rfind(L'.');
    if (dot == std::wstring::npos || dot <= 2) return {};
    // A renamed executable finds a settings file of its own name first.
    std::wstring own = exePath.substr(0, dot) + L".ini";
    if (probe.CanOpenForRead(own)) return own;
    std::wstring beside = FolderOf(exePath) + L"\\" + baseName + L".ini";
    if (probe.CanOpenForRead(beside)) return beside;
    return {};
}

SettingsLocation ChooseSettingsLocation(const std::wstring& exePath, ILocationProbe& probe) {
    SettingsLocation loc;
    std::wstring found = FindCandidate(exePath, loc.baseName, probe);
    if (!found.empty()) {
        // An installed copy keeps its settings per user even with a settings file beside it.
        if (probe.RelativeFileExists(loc.baseName + L"_Uninstall.ini")) {
            loc.writeTestNeeded = false;
            return loc;
        }
        loc.filePath = found;
        loc.fileMode = true;
        return loc;
    }
    loc.configName = ConfigNameFromExePath(exePath);
    if (!loc.configName.empty()) {
        loc.baseName = L"Tessel_" + loc.configName;
        loc.filePath = loc.baseName + L".ini";
    }
    return loc;
}

}  // namespace tessel
