#include "features/quick_links.h"

#include <algorithm>
#include <cwctype>

#include "core/settings_store.h"
#include "core/text_case.h"

namespace tessel {
namespace {

std::wstring StateSection(std::wstring_view section) { return std::wstring(section) + L"_State"; }

std::wstring_view Trimmed(std::wstring_view text) {
    while (!text.empty() && (text.front() == L' ' || text.front() == L'\t')) text.remove_prefix(1);
    while (!text.empty() && (text.back() == L' ' || text.back() == L'\t')) text.remove_suffix(1);
    return text;
}

// "*.txt", ".txt" and "txt" all name the extension "txt".
std::wstring_view BareExtension(std::wstring_view token) {
    token = Trimmed(token);
    if (token.starts_with(L"*")) token.remove_prefix(1);
    if (token.starts_with(L".")) token.remove_prefix(1);
    return token;
}

}  // namespace

std::vector<QuickLinkEntry> ParseQuickLinks(std::wstring_view text) {
    std::vector<QuickLinkEntry> entries;
    while (!text.empty() && entries.size() < kQuickLinkMaxEntries) {
        const size_t end = std::min(text.find(L'\n'), text.size());
        std::wstring line(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
        std::erase(line, L'\r');
        if (line.empty()) continue;
        const size_t equals = line.find(L'=');
        if (equals == std::wstring::npos) entries.push_back({line, line});
        else entries.push_back({line.substr(0, equals), line.substr(equals + 1)});
    }
    return entries;
}

bool QuickLinkStorable(const QuickLinkEntry& entry) {
    const std::wstring_view name = entry.name;
    if (name.empty() || name.front() == L'[' || name.front() == L';' || name.find(L'=') != std::wstring_view::npos)
        return false;
    if ((entry.name + entry.target).find_first_of(L"\r\n") != std::wstring::npos) return false;
    return name.size() + 1 + entry.target.size() < kSettingsValueLimit;
}

std::wstring FormatQuickLinks(const std::vector<QuickLinkEntry>& entries) {
    std::wstring lines;
    for (const QuickLinkEntry& entry : entries) lines += entry.name + L"=" + entry.target + L"\n";
    return lines;
}

bool QuickLinksDisabled(ISettingsStore& settings, std::wstring_view section) {
    return settings.GetInt(StateSection(section), L"Disable", 0) != 0;
}

std::vector<QuickLinkEntry> ReadQuickLinks(ISettingsStore& settings, std::wstring_view section) {
    if (QuickLinksDisabled(settings, section)) return {};
    return ParseQuickLinks(settings.GetSection(section));
}

bool WriteQuickLinks(ISettingsStore& settings, std::wstring_view section, const std::vector<QuickLinkEntry>& entries) {
    return settings.PutSection(section, FormatQuickLinks(entries));
}

std::wstring AssociatedProgram(const std::vector<QuickLinkEntry>& associations, std::wstring_view fileName) {
    const size_t dot = fileName.rfind(L'.');
    if (dot == std::wstring_view::npos || fileName.find(L'\\', dot) != std::wstring_view::npos) return {};
    const std::wstring_view extension = fileName.substr(dot + 1);
    for (const QuickLinkEntry& entry : associations) {
        std::wstring_view names = entry.name;
        while (!names.empty()) {
            const size_t end = std::min(names.find_first_of(L";,"), names.size());
            const std::wstring_view token = BareExtension(names.substr(0, end));
            if (!token.empty() && EqualNoCase(token, extension)) return entry.target;
            names.remove_prefix(std::min(end + 1, names.size()));
        }
    }
    return {};
}

CommandParts SplitCommand(std::wstring_view command, const std::function<bool(const std::wstring&)>& isFile) {
    command = Trimmed(command);
    if (command.starts_with(L"\"")) {
        const size_t close = command.find(L'"', 1);
        if (close == std::wstring_view::npos) return {std::wstring(command.substr(1)), {}};
        return {std::wstring(command.substr(1, close - 1)), std::wstring(Trimmed(command.substr(close + 1)))};
    }
    size_t firstBlank = std::wstring_view::npos;
    for (size_t blank = command.find(L' '); blank != std::wstring_view::npos; blank = command.find(L' ', blank + 1)) {
        if (firstBlank == std::wstring_view::npos) firstBlank = blank;
        const std::wstring program(command.substr(0, blank));
        if (isFile(program)) return {program, std::wstring(Trimmed(command.substr(blank + 1)))};
    }
    if (firstBlank == std::wstring_view::npos || isFile(std::wstring(command))) return {std::wstring(command), {}};
    return {std::wstring(command.substr(0, firstBlank)), std::wstring(Trimmed(command.substr(firstBlank + 1)))};
}

}  // namespace tessel
