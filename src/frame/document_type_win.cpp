#include "frame/document_type_win.h"

#include <shlobj.h>

#include "core/language_packs_win.h"
#include "core/text_case.h"
#include "win/file_system_win.h"
#include "win/registry_win.h"

namespace tessel {
namespace {

std::wstring CommandKey(const UserRegistry& registry) {
    return registry.Classes() + L"\\" + kFolderSetProgId + L"\\shell\\open\\command";
}

// The program of a command line: the quoted first word, or the text up to the first blank.
std::wstring ProgramOf(const std::wstring& command) {
    if (command.starts_with(L"\"")) {
        const size_t end = command.find(L'"', 1);
        return end == std::wstring::npos ? std::wstring() : command.substr(1, end - 1);
    }
    return command.substr(0, command.find(L' '));
}

}  // namespace

std::wstring FolderSetOpenCommand(const std::wstring& exe) { return L"\"" + exe + L"\" \"%1\""; }

std::wstring RegisteredFolderSetProgram(const UserRegistry& registry) {
    std::wstring command;
    return win::GetRegString(registry.root, CommandKey(registry), nullptr, command) ? ProgramOf(command) : L"";
}

bool RegisterFolderSetType(const std::wstring& exe, const UserRegistry& registry, bool claim) {
    // Read once: this runs at every start.
    std::wstring command;
    win::GetRegString(registry.root, CommandKey(registry), nullptr, command);
    if (command == FolderSetOpenCommand(exe)) return true;
    const std::wstring current = ProgramOf(command);
    if (!claim && !current.empty() && win::IsExistingFile(current)) return true;  // another copy's, and it works
    const std::wstring type = registry.Classes() + L"\\" + kFolderSetProgId;
    const bool written = win::SetRegString(registry.root, registry.Classes() + L"\\.tsf", nullptr, kFolderSetProgId) &&
                         win::SetRegString(registry.root, type, nullptr, GetText(62120)) &&
                         win::SetRegString(registry.root, type + L"\\DefaultIcon", nullptr, exe + L",0") &&
                         win::SetRegString(registry.root, CommandKey(registry), nullptr, FolderSetOpenCommand(exe));
    if (written) SHChangeNotify(SHCNE_ASSOCCHANGED, SHCNF_IDLIST, nullptr, nullptr);
    return written;
}

bool UnregisterFolderSetType(const std::wstring& exe, const UserRegistry& registry) {
    if (!EqualNoCase(RegisteredFolderSetProgram(registry), exe)) return false;
    std::wstring progId;
    const std::wstring extension = registry.Classes() + L"\\.tsf";
    if (win::GetRegString(registry.root, extension, nullptr, progId) && progId == kFolderSetProgId)
        win::DeleteRegTree(registry.root, extension);
    const bool removed = win::DeleteRegTree(registry.root, registry.Classes() + L"\\" + kFolderSetProgId);
    SHChangeNotify(SHCNE_ASSOCCHANGED, SHCNF_IDLIST, nullptr, nullptr);
    return removed;
}

}  // namespace tessel
