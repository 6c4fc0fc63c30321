#pragma once
// The folder-set document type (".tsf") registered for the current user: its description, icon
// and "open" verb, so a double-click on a folder-set file opens it in Tessel.
#include <windows.h>

#include <string>

namespace tessel {

// Where the per-user registrations go; tests point it at a key of their own.
struct UserRegistry {
    HKEY root = HKEY_CURRENT_USER;
    std::wstring software = L"Software";
    std::wstring Classes() const { return software + L"\\Classes"; }
};

inline constexpr wchar_t kFolderSetProgId[] = L"Tessel.FolderSet";

// The command the "open" verb runs for a program at `exe`.
std::wstring FolderSetOpenCommand(const std::wstring& exe);

// At each normal start: registers the type for `exe` when it is not registered yet or its
// command names a program that no longer exists; another copy's working registration stays.
// `claim` (an install) always takes it over. True when the type is registered afterwards.
bool RegisterFolderSetType(const std::wstring& exe, const UserRegistry& registry, bool claim);
// Removes the registration when it belongs to the program at `exe`.
bool UnregisterFolderSetType(const std::wstring& exe, const UserRegistry& registry);
// The program whose command is registered ("" when none).
std::wstring RegisteredFolderSetProgram(const UserRegistry& registry);

}  // namespace tessel
