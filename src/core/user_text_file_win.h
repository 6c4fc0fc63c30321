#pragma once
// Text files as users bring them: UTF-16 with its mark, UTF-8, or the system's code page.
#include <windows.h>

#include <string>

namespace tessel {

// "" when the file cannot be read or is larger than `limit` bytes.
std::wstring ReadUserTextFile(const std::wstring& path, size_t limit);

// Why a file chosen for an import gave nothing to import.
enum class UserFileProblem { kNone, kUnreadable, kTooLarge, kEmpty };
UserFileProblem ReadUserTextFile(const std::wstring& path, size_t limit, std::wstring& text);
// Says why, with the path, and that the list was left as it was.
void ReportImportProblem(HWND owner, UserFileProblem problem, const std::wstring& path, size_t limit);

}  // namespace tessel
