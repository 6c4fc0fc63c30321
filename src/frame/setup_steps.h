#pragma once
// The steps of installing or removing the program. Each step that is done says what it did and
// how to take it back, so a failed step undoes the steps before it and nothing is left half done.
#include <functional>
#include <string>
#include <vector>

namespace tessel {

class SetupSteps {
public:
    // Runs `act` unless an earlier step failed. On success `done` goes into the report and
    // `undo` (may be empty) is kept; on failure `failed` goes into the report, the steps done so
    // far are undone in reverse order and every later step is skipped.
    bool Run(const std::wstring& done, const std::wstring& failed, const std::function<bool()>& act,
             std::function<void()> undo = {});
    // A line of the report that is not a step (a note, something left as it was).
    void Note(const std::wstring& line) { report_.push_back(line); }

    bool Failed() const { return failed_; }
    const std::vector<std::wstring>& Report() const { return report_; }
    std::wstring ReportText() const;  // the lines, one per line

private:
    std::vector<std::function<void()>> undo_;
    std::vector<std::wstring> report_;
    bool failed_ = false;
};

// What removing the settings takes: exactly what this configuration made. Configurations
// ("Tessel", "Tessel_Work", ...) share the per-user data folder, so the folder goes only with
// the main configuration and only while no other configuration's settings file is in it; a
// copy that keeps its settings beside itself removes no per-user settings at all.
struct SettingsRemoval {
    bool registryKey = false;
    std::vector<std::wstring> files;  // full paths
    bool wholeDataFolder = false;
};
SettingsRemoval PlanSettingsRemoval(const std::wstring& baseName, bool portable, const std::wstring& dataFolder,
                                    const std::wstring& profileFile, const std::vector<std::wstring>& dataFolderFiles);

// Whether another configuration is installed in the same program folder (its uninstall marker
// "<base name>_Uninstall.ini" is there): then the shared help pages stay.
bool OtherConfigurationInstalled(const std::wstring& baseName, const std::vector<std::wstring>& programFolderFiles);

}  // namespace tessel
