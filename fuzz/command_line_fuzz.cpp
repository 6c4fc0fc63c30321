// The command line is whatever a shortcut, a script or another program passes: help forms,
// folder-set files and up to four paths are read from any text.
#include "frame/command_line.h"
#include "fuzz_text.h"

using namespace tessel;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size == 0) return 0;
    const int startMode = data[0] % 8;  // the first byte picks the start mode
    const std::wstring line = fuzz::WideOf(data + 1, size - 1);
    ParseHelpRequest(line);
    ParsePathList(line);
    const SetupRequest setup = ParseSetupWords(line);
    fuzz::Check(!setup.quiet || setup.action != SetupAction::kNone);
    const StartPlan plan = InterpretCommandLine(line, startMode, [](const std::wstring& path) {
        return !path.empty() && path.back() == L'f';  // some paths name files, most do not
    });
    fuzz::Check(!(plan.loadLastState && !plan.folderSetFile.empty()));
    return 0;
}
