#pragma once
// What a drop on a navigation aid means as text: a file's name, or for an Internet shortcut
// (".url") the address it holds.
#include <string>
#include <string_view>

namespace tessel {

enum class DroppedFileKind { kPlain, kShellLink, kInternetShortcut };

// By the last four characters of the name, compared without case.
DroppedFileKind KindOfDroppedFile(std::wstring_view fileName);

}  // namespace tessel
