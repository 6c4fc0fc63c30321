#include "frame/setup_steps.h"

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

}  // namespace tessel
