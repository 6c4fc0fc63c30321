#pragma once
// The user's lists of folders and programs ("Quick-Links", "Programs") and of file types with
// the program that opens them ("Association"): one "name=target" line per entry in a section
// of their own, each list switched off by "Disable" in "<section>_State".
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace tessel {

class ISettingsStore;

inline constexpr wchar_t kProgramsSection[] = L"Programs";
inline constexpr wchar_t kQuickLinksSection[] = L"Quick-Links";
inline constexpr wchar_t kAssociationSection[] = L"Association";

// The entries of an open menu get these command numbers, in line order.
inline constexpr int kQuickLinkFirstCommand = 2200;
inline constexpr int kQuickLinkLastCommand = 4199;
inline constexpr size_t kQuickLinkMaxEntries = kQuickLinkLastCommand - kQuickLinkFirstCommand + 1;

struct QuickLinkEntry {
    std::wstring name;    // the menu text: before the first "="
    std::wstring target;  // a folder, or a program with its arguments
    bool operator==(const QuickLinkEntry&) const = default;
};

// Whether the entry reads back equal from its settings line: a name without "=" that does not
// begin with "[" or ";" (a section or a comment), neither part with a line break, and a line
// that fits the settings' value limit.
bool QuickLinkStorable(const QuickLinkEntry& entry);

// Carriage returns dropped, empty lines skipped; a line without "=" names its own target.
// At most kQuickLinkMaxEntries entries are kept.
std::vector<QuickLinkEntry> ParseQuickLinks(std::wstring_view sectionText);
std::wstring FormatQuickLinks(const std::vector<QuickLinkEntry>& entries);

bool QuickLinksDisabled(ISettingsStore& settings, std::wstring_view section);
// Nothing when the list is switched off.
std::vector<QuickLinkEntry> ReadQuickLinks(ISettingsStore& settings, std::wstring_view section);
bool WriteQuickLinks(ISettingsStore& settings, std::wstring_view section, const std::vector<QuickLinkEntry>& entries);

// The program an "Association" entry names for a file: the entry whose name lists the file's
// extension (".txt", "txt" or "*.txt", several separated by ";" or ","), case ignored; "" for none.
std::wstring AssociatedProgram(const std::vector<QuickLinkEntry>& associations, std::wstring_view fileName);

// A command text split into the program and its arguments: a quoted program is taken as
// quoted; otherwise the shortest run of words that names an existing file, so that an unquoted
// "C:\Program Files\x.exe a b" still works; else the first word.
struct CommandParts {
    std::wstring program;
    std::wstring arguments;
};
CommandParts SplitCommand(std::wstring_view command, const std::function<bool(const std::wstring&)>& isFile);

}  // namespace tessel
