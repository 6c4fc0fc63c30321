#pragma once
// What the command line asks for at start: help, a folder-set file, folders for the T-Views,
// or the last state.
#include <array>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace tessel {

inline constexpr int kViewCount = 4;
inline constexpr int kStartModeLastState = 5;
inline constexpr size_t kLaterPathLimit = 32;  // "Als" value that reopens the last state

struct HelpRequest {
    bool requested = false;
    std::wstring anchor;  // empty or "#" + topic
};

// "-help" at position 0; the anchor is the text between the first and second "#".
HelpRequest ParseHelpRequest(std::wstring_view line);

struct StartPlan {
    bool loadLastState = false;          // under the crash-start guard, before any navigation
    std::wstring folderSetFile;          // an existing file named on the command line
    std::array<std::wstring, kViewCount> viewPaths;  // where T-View 1..4 navigate; empty = nothing
    // The fifth and later paths (the last kLaterPathLimit of them): T-View 1 goes to each in turn
    // after its first, so the last that can be shown is shown and the ones before it are in its
    // history. A line of thousands of paths does not make thousands of navigations at start.
    std::vector<std::wstring> laterFirstViewPaths;
    std::wstring browseExtra;            // token 2 of the "/e" form, kept for later use
};

// The set-up words: "install" or "setup" installs, "-uninstall" removes the installed copy and
// "-uninstall+" its settings too. Only a line that is one of these words, optionally followed by
// "/quiet" (no questions, no report box), is taken; any other line is a normal start.
enum class SetupAction { kNone, kInstall, kUninstall, kUninstallAll };
struct SetupRequest {
    SetupAction action = SetupAction::kNone;
    bool quiet = false;
};
SetupRequest ParseSetupWords(std::wstring_view line);

// Quoted or plain paths, split at double quotes, lowered, leading blanks stripped.
std::vector<std::wstring> ParsePathList(std::wstring_view line);

// isExistingFile tells whether a path names an existing file (not a folder).
StartPlan InterpretCommandLine(std::wstring_view line, int startMode,
                               const std::function<bool(const std::wstring&)>& isExistingFile);

}  // namespace tessel
