#include "frame/setup_steps.h"

#include "core/text_case.h"

namespace tessel {

bool SetupSteps::Run(const std::wstring& done, const std::wstring& failed, const std::function<bool()>& act,
                     std::function<void()> undo) {
    if (failed_) return false;
    if (!act()) {
        failed_ = true;
        report_.push_back(failed);
        for (auto step = undo_.rbegin(); step != undo_.rend(); ++step) (*step)();
        undo_.clear();
        return false;
    }
    report_.push_back(done);
    if (undo) undo_.push_back(std::move(undo));
    return true;
}

std::wstring SetupSteps::ReportText() const {
    std::wstring text;
    for (const std::wstring& line : report_) text += line + L"\n";
    return text;
}

namespace {

bool EndsWithNoCase(const std::wstring& text, std::wstring_view end) {
    return text.size() >= end.size() && EqualNoCase(std::wstring_view(text).substr(text.size() - end.size()), end);
}

}  // namespace

SettingsRemoval PlanSettingsRemoval(const std::wstring& baseName, bool portable, const std::wstring& dataFolder,
                                    const std::wstring& profileFile, const std::vector<std::wstring>& dataFolderFiles) {
    SettingsRemoval plan;
    if (portable) return plan;
    plan.registryKey = true;
    const std::wstring ownFile = baseName + L".ini";
    bool othersThere = false;
    for (const std::wstring& name : dataFolderFiles)
        if (EndsWithNoCase(name, L".ini") && !EqualNoCase(name, ownFile) && name.size() > 6 &&
            EqualNoCase(std::wstring_view(name).substr(0, 6), L"Tessel"))
            othersThere = true;
    plan.wholeDataFolder = EqualNoCase(baseName, L"Tessel") && !othersThere;
    if (!plan.wholeDataFolder) plan.files.push_back(dataFolder + L"\\" + ownFile);
    plan.files.push_back(profileFile);
    return plan;
}

bool OtherConfigurationInstalled(const std::wstring& baseName, const std::vector<std::wstring>& programFolderFiles) {
    const std::wstring own = baseName + L"_Uninstall.ini";
    for (const std::wstring& name : programFolderFiles)
        if (EndsWithNoCase(name, L"_Uninstall.ini") && !EqualNoCase(name, own)) return true;
    return false;
}

}  // namespace tessel
