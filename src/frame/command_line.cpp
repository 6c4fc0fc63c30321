#include "frame/command_line.h"

#include <algorithm>
#include <cwctype>

#include "core/text_case.h"

namespace tessel {

static std::wstring_view StripOneQuotePair(std::wstring_view s) {
    if (s.size() >= 2 && s.front() == L'"' && s.back() == L'"') return s.substr(1, s.size() - 2);
    return s;
}

static std::wstring_view TrimBlanks(std::wstring_view s) {
    while (!s.empty() && std::iswspace(s.front())) s.remove_prefix(1);
    while (!s.empty() && std::iswspace(s.back())) s.remove_suffix(1);
    return s;
}

static std::vector<std::wstring_view> Split(std::wstring_view s, wchar_t separator) {
    std::vector<std::wstring_view> parts;
    size_t start = 0;
    for (;;) {
        size_t end = s.find(separator, start);
        parts.push_back(s.substr(start, end == std::wstring_view::npos ? s.npos : end - start));
        if (end == std::wstring_view::npos) return parts;
        start = end + 1;
    }
}

HelpRequest ParseHelpRequest(std::wstring_view line) {
    HelpRequest help;
    if (line.substr(0, 5) != L"-help") return help;
    help.requested = true;
    std::vector<std::wstring_view> tokens = Split(line, L'#');
    if (tokens.size() > 1 && !tokens[1].empty()) help.anchor = L"#" + std::wstring(tokens[1]);
    return help;
}

SetupRequest ParseSetupWords(std::wstring_view line) {
    std::vector<std::wstring_view> words;
    for (std::wstring_view word : Split(line, L' '))
        if (!word.empty()) words.push_back(word);
    SetupRequest request;
    if (words.empty() || words.size() > 2) return request;
    if (words.size() == 2 && !EqualNoCase(words[1], L"/quiet")) return request;
    if (EqualNoCase(words[0], L"install") || EqualNoCase(words[0], L"setup")) request.action = SetupAction::kInstall;
    else if (EqualNoCase(words[0], L"-uninstall")) request.action = SetupAction::kUninstall;
    else if (EqualNoCase(words[0], L"-uninstall+")) request.action = SetupAction::kUninstallAll;
    request.quiet = request.action != SetupAction::kNone && words.size() == 2;
    return request;
}

std::vector<std::wstring> ParsePathList(std::wstring_view line) {
    std::vector<std::wstring> paths;
    if (line.size() < 4) return paths;
    for (std::wstring_view piece : Split(line, L'"')) {
        while (!piece.empty() && std::iswspace(piece.front())) piece.remove_prefix(1);
        if (piece.empty()) continue;
        std::wstring path(piece);
        for (wchar_t& c : path) c = static_cast<wchar_t>(std::towlower(c));
        paths.push_back(std::move(path));
    }
    return paths;
}

StartPlan InterpretCommandLine(std::wstring_view line, int startMode,
                               const std::function<bool(const std::wstring&)>& isExistingFile) {
    StartPlan plan;
    const bool lastState = startMode == kStartModeLastState;
    if (line.empty()) {
        plan.loadLastState = lastState;
        return plan;
    }
    if (line.substr(0, 10) == L"\"/Browse\" ") {
        plan.loadLastState = lastState;
        plan.viewPaths[0] = std::wstring(StripOneQuotePair(line.substr(10)));
        return plan;
    }
    if (line.substr(0, 2) == L"/e") {
        plan.loadLastState = lastState;
        std::vector<std::wstring_view> tokens = Split(line, L'>');
        if (tokens.size() > 1) plan.viewPaths[0] = std::wstring(StripOneQuotePair(TrimBlanks(tokens[1])));
        if (tokens.size() > 2) plan.browseExtra = std::wstring(tokens[2]);
        return plan;
    }
    std::wstring unquoted(StripOneQuotePair(line));
    if (isExistingFile(unquoted)) {
        plan.folderSetFile = unquoted;
        return plan;
    }
    std::vector<std::wstring> paths = ParsePathList(line);
    const size_t firstLater = std::max<size_t>(kViewCount, paths.size() > kLaterPathLimit ? paths.size() - kLaterPathLimit : 0);
    for (size_t i = 0; i < paths.size(); ++i) {
        if (i < kViewCount) plan.viewPaths[i] = std::move(paths[i]);
        else if (i >= firstLater) plan.laterFirstViewPaths.push_back(std::move(paths[i]));
    }
    return plan;
}

}  // namespace tessel
